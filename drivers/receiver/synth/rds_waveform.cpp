// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/synth/rds_waveform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "drivers/receiver/rds/rds_code.h"
#include "drivers/receiver/rds/rds_pulse.h"

namespace hm16::receiver {
namespace {

constexpr std::size_t kNameLetters = 8;
constexpr std::size_t kTextLetters = 64;

void addBlock(std::vector<bool>& bits, std::uint16_t information, RdsOffset offset) {
    const std::uint32_t block = rdsBlock(information, offset);
    for (int place = kRdsBlockBits - 1; place >= 0; --place)
        bits.push_back((block >> static_cast<unsigned>(place) & 1U) != 0);
}

void addGroup(std::vector<bool>& bits, const std::array<std::uint16_t, 4>& words) {
    addBlock(bits, words[0], RdsOffset::A);
    addBlock(bits, words[1], RdsOffset::B);
    addBlock(bits, words[2], RdsOffset::C);
    addBlock(bits, words[3], RdsOffset::D);
}

std::uint16_t pair(const std::string& text, std::size_t at) {
    return static_cast<std::uint16_t>(static_cast<unsigned char>(text[at]) << 8U |
                                      static_cast<unsigned char>(text[at + 1]));
}

}  // namespace

std::vector<bool> rdsBits(const RdsPlan& plan) {
    std::string name = plan.name;
    name.resize(kNameLetters, ' ');
    std::string text = plan.text;
    text.resize(kTextLetters, ' ');
    std::vector<bool> bits;
    constexpr std::uint16_t kMusicAndAlternative = 0xE0CD;
    constexpr std::uint16_t kTextGroup = 2U << 12U;
    for (std::size_t segment = 0; segment < kTextLetters / 4; ++segment) {
        const std::size_t part = segment % (kNameLetters / 2);
        addGroup(bits, {plan.programme, static_cast<std::uint16_t>(8U | part), kMusicAndAlternative,
                        pair(name, 2 * part)});
        addGroup(bits, {plan.programme, static_cast<std::uint16_t>(kTextGroup | segment),
                        pair(text, 4 * segment), pair(text, 4 * segment + 2)});
    }
    return bits;
}

RdsWaveform::RdsWaveform(const RdsPlan& plan) {
    if (plan.deviationHz <= 0 || plan.plainCarrier) return;
    const std::vector<bool> once = plan.bits.empty() ? rdsBits(plan) : plan.bits;
    // Twice round, so that differential coding comes back to where it began.
    std::vector<int> signs;
    bool sent = false;
    for (int round = 0; round < 2; ++round) {
        for (const bool bit : once) {
            sent = sent != bit;
            signs.push_back(sent ? 1 : -1);
        }
    }
    const auto bits = static_cast<int>(signs.size());
    length_ = bits;
    points_.assign(signs.size() * kPointsPerBit, 0.0F);
    const auto points = static_cast<int>(points_.size());
    const int reach = static_cast<int>(kRdsPulseReach) * kPointsPerBit;
    std::vector<float> pulse;
    for (int k = -reach; k <= reach; ++k)
        pulse.push_back(static_cast<float>(rdsPulse(static_cast<double>(k) / kPointsPerBit)));
    for (int bit = 0; bit < bits; ++bit) {
        const auto sign = static_cast<float>(signs[static_cast<std::size_t>(bit)]);
        int at = (bit * kPointsPerBit + kPointsPerBit / 2 - reach + points) % points;
        for (const float value : pulse) {
            points_[static_cast<std::size_t>(at)] += sign * value;
            if (++at == points) at = 0;
        }
    }
    float highest = 0;
    for (const float point : points_) highest = std::max(highest, std::fabs(point));
    for (float& point : points_) point /= highest;
}

double RdsWaveform::at(double bits) const {
    double place = (bits - length_ * std::floor(bits / length_)) * kPointsPerBit;
    const double whole = std::floor(place);
    const double x = place - whole;
    const std::size_t count = points_.size();
    const std::size_t i = static_cast<std::size_t>(whole) % count;
    const double a = points_[(i + count - 1) % count];
    const double b = points_[i];
    const double c = points_[(i + 1) % count];
    const double d = points_[(i + 2) % count];
    // The cubic through four neighbours.
    return b + x * ((c - a) / 2 +
                    x * (a - 2.5 * b + 2 * c - d / 2 + x * (1.5 * (b - c) + (d - a) / 2)));
}

}  // namespace hm16::receiver
