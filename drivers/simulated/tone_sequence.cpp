// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/tone_sequence.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "drivers/simulated/chance.h"
#include "drivers/simulated/programme.h"

namespace hm16::simulated {

namespace {

constexpr std::array kTones = {30, 125, 400, 1000, 4000, 8000, 12000, 15000};
constexpr double kLead = 1;
constexpr double kTone = 1.5;
constexpr int kCount = static_cast<int>(kTones.size());

// The unit stores results in the order of its tone detectors: the middle of the band first.
constexpr std::array kOrder = {3, 4, 2, 5, 1, 6, 0, 7};

enum ToneStream : unsigned { kBass = 40, kTreble, kRipple };

}  // namespace

ToneSequence::ToneSequence(const Station* station, std::uint64_t seed, double time)
    : station_(station), seed_(seed), start_(time) {}

int ToneSequence::tonesDone(double time) const {
    const double passed = (time - start_ - kLead) / kTone;
    return static_cast<int>(std::clamp(std::floor(passed), 0.0, static_cast<double>(kCount)));
}

bool ToneSequence::ended(double time) const {
    return tonesDone(time) == kCount;
}

int ToneSequence::toneAt(double time) const {
    if (station_ == nullptr || time < start_ + kLead || ended(time)) return 0;
    return kTones[static_cast<std::size_t>(tonesDone(time))];
}

// The level relative to 1 kHz in tenths of dB: it falls at both ends of the band, with a little
// ripple between.
int ToneSequence::levelOf(int tone) const {
    const double bass = 4 + 12 * Chance(seed_, streamOf(*station_, kBass)).even(0);
    const double treble = 6 + 18 * Chance(seed_, streamOf(*station_, kTreble)).even(0);
    const double ripple = 4 * Chance(seed_, streamOf(*station_, kRipple)).even(tone) - 2;
    if (tone == 1000) return 0;
    const double low = bass * std::pow(30.0 / tone, 1.4);
    const double high = treble * std::pow(tone / 15000.0, 2.5);
    return static_cast<int>(std::lround(ripple - low - high));
}

ResponseResults ToneSequence::results(double time) const {
    ResponseResults results;
    if (station_ == nullptr) return results;
    const int done = tonesDone(time);
    for (std::size_t i = 0; i < results.size(); ++i) {
        const int place = kOrder[i];
        if (place >= done) continue;
        const int tone = kTones[static_cast<std::size_t>(place)];
        results[i] = {tone, levelOf(tone)};
    }
    return results;
}

}  // namespace hm16::simulated
