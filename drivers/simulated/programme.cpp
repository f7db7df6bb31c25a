// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/programme.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drivers/simulated/chance.h"

namespace hm16::simulated {

namespace {

enum ProgrammeStream : unsigned {
    kSwell,
    kBeat,
    kGrain,
    kPause,
    kBalance,
    kSpread,
    kPeak,
    kDensity
};

double toAmplitude(double decibels) {
    return std::pow(10.0, decibels / 20);
}

// The level of the louder channel in dB.
double loudness(const Station& station, std::uint64_t seed, double time) {
    const auto chance = [&](ProgrammeStream figure) {
        return Chance(seed, streamOf(station, figure));
    };
    const double grain = chance(kGrain).wander(time, 0.07);
    switch (station.sound) {
        case Sound::Speech: {
            // Speakers breathe: the voice falls away between phrases.
            const double voice = chance(kPause).wander(time, 0.9);
            const double pause = voice < -0.55 ? (-0.55 - voice) * 60 : 0;
            const double syllable = chance(kBeat).wander(time, 0.19);
            return -5 + 4.5 * syllable + 2.5 * grain - pause;
        }
        case Sound::Music: {
            const double phrase = chance(kSwell).wander(time, 5);
            const double beat = std::exp(-5 * std::fmod(time, 0.5));
            return -6.5 + 2.5 * phrase + 5 * beat + 2.5 * grain;
        }
        case Sound::Classical: {
            const double swell = chance(kSwell).wander(time, 9);
            const double phrase = chance(kBeat).wander(time, 1.3);
            return -11 + 8 * swell + 3 * phrase + 1.5 * grain;
        }
    }
    return -100;
}

// The ratio of mean power to peak power, which processing raises.
double densityOf(Sound sound) {
    switch (sound) {
        case Sound::Speech:
            return 0.20;
        case Sound::Music:
            return 0.36;
        case Sound::Classical:
            return 0.09;
    }
    return 0;
}

}  // namespace

std::uint64_t streamOf(const Station& station, unsigned figure) {
    return static_cast<std::uint64_t>(std::lround(station.frequency * 4)) * 64 + figure;
}

Programme programmeAt(const Station& station, std::uint64_t seed, double time) {
    const auto chance = [&](ProgrammeStream figure) {
        return Chance(seed, streamOf(station, figure));
    };
    Programme programme;
    const double loud = std::clamp(loudness(station, seed, time), -58.0, 3.0);
    const double stage = station.isStereo() ? (station.sound == Sound::Speech ? 1.2 : 4.0) : 0;
    const double balance = stage * chance(kBalance).wander(time, 0.4);
    programme.left = loud - std::max(0.0, -balance);
    programme.right = loud - std::max(0.0, balance);

    const double direction = std::atan2(toAmplitude(programme.left), toAmplitude(programme.right)) *
                             180 / std::numbers::pi;
    programme.phase =
        std::clamp(direction + 2.2 * stage * chance(kSpread).wander(time, 0.15), 0.0, 90.0);
    programme.width = station.isStereo() ? 22 - 3 * std::abs(balance) - stage : 60;

    // Pilot and RDS deviate the carrier even in silence.
    const double carriers = station.pilot + station.rds;
    const double swing = 0.38 + 0.62 * std::min(1.0, toAmplitude(loud - 0.5));
    const double peak = carriers + (station.modulation - carriers) * swing;
    programme.peak = std::max(carriers, peak + 4 * chance(kPeak).wander(time, 0.06));

    const double full = station.modulation / 100;
    programme.power =
        densityOf(station.sound) * full * full * (1 + 0.25 * chance(kDensity).wander(time, 1.7));
    return programme;
}

}  // namespace hm16::simulated
