// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/rds/rds_bits.h"

#include <algorithm>
#include <cmath>

#include "drivers/receiver/rds/rds_pulse.h"

namespace hm16::receiver {
namespace {

// The pulse's energy lies within this; more would only let in the neighbours' noise.
constexpr double kReach = 1.25;
constexpr int kTablePerBit = 128;
constexpr double kEnergyKept = 0.9;    // from decision to decision
constexpr double kBetterPhase = 1.05;  // a new phase must be this much stronger

std::vector<float> pulseTable() {
    std::vector<float> table;
    const int reach = static_cast<int>(kReach * kTablePerBit);
    for (int n = -reach; n <= reach; ++n)
        table.push_back(static_cast<float>(rdsPulse(static_cast<double>(n) / kTablePerBit)));
    return table;
}

const std::vector<float>& pulse() {
    static const std::vector<float> table = pulseTable();
    return table;
}

}  // namespace

void RdsBits::add(double bits, float value) {
    samples_.push_back({bits, value});
    if (!started_) {
        nextBit_ = static_cast<std::int64_t>(std::ceil(bits + kReach));
        started_ = true;
    }
}

double RdsBits::matched(double middle) const {
    const std::vector<float>& table = pulse();
    const double start = middle - kReach;
    const auto first = std::lower_bound(samples_.begin(), samples_.end(), start,
                                        [](const Timed& s, double t) { return s.bits < t; });
    double sum = 0;
    for (auto s = first; s != samples_.end() && s->bits <= middle + kReach; ++s)
        sum += s->value * table[static_cast<std::size_t>((s->bits - start) * kTablePerBit + 0.5)];
    return sum;
}

void RdsBits::decide() {
    if (samples_.empty()) return;
    for (double& energy : energy_) energy *= kEnergyKept;
    std::vector<double> chosen;
    while (static_cast<double>(nextBit_) + 1 + kReach <= samples_.back().bits) {
        for (std::size_t p = 0; p < kPhases; ++p) {
            const double middle = static_cast<double>(nextBit_) + static_cast<double>(p) / kPhases;
            const double output = matched(middle);
            energy_[p] += output * output;
            if (p == phase_) chosen.push_back(output);
        }
        ++nextBit_;
    }
    for (const double output : chosen) {
        const bool sign = output > 0;
        onBit_(sign != lastSign_);
        lastSign_ = sign;
    }
    const auto best = static_cast<std::size_t>(std::max_element(energy_.begin(), energy_.end()) -
                                               energy_.begin());
    if (energy_[best] > kBetterPhase * energy_[phase_]) phase_ = best;
    const double oldest = static_cast<double>(nextBit_) - kReach - 1;
    const auto needed = std::find_if(samples_.begin(), samples_.end(),
                                     [=](const Timed& s) { return s.bits >= oldest; });
    samples_.erase(samples_.begin(), needed);
}

}  // namespace hm16::receiver
