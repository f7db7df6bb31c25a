// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/figures.h"

#include <algorithm>
#include <cmath>

#include "drivers/simulated/band.h"
#include "drivers/simulated/chance.h"
#include "drivers/simulated/programme.h"

namespace hm16::simulated {

namespace {

enum FigureStream : unsigned {
    kPilotError = 16,
    kPilotLevel,
    kNoiseLeft,
    kNoiseRight,
    kSeparationLeft,
    kSeparationRight,
    kDistortion,
    kCarrier,
    kMultipath,
    kPeaks,
    kRdsError,
    kRdsLevel
};

// The end of the unit's carrier counter, in units of 100 Hz.
constexpr double kCarrierEnd = 100;
// Below this level a tuner receives more noise than station.
constexpr double kWeakField = 45;

// The two channels for the audio mode: left and right, or half the sum and half the difference.
void putLevels(Readings& readings, const Programme& programme, AudioMode mode) {
    double first = programme.left;
    double second = programme.right;
    if (mode == AudioMode::SumDifference) {
        first = std::max(programme.left, programme.right) - 0.4;
        second = std::max(first - programme.width, -60.0);
    }
    readings.levelFirst = static_cast<float>(first);
    readings.levelSecond = static_cast<float>(second);
}

// Peaks over 100 % in a minute: none for a careful station, hundreds for an overmodulated one.
double peaksOf(const Station& station, double wander) {
    const double excess = station.modulation - 98;
    if (excess <= 0) return std::floor(1.5 * (1 + wander));
    return std::floor(6 * excess * (1 + 0.3 * wander));
}

Readings onStation(const Station& station, std::uint64_t seed, const Tuning& tuning, double time) {
    const auto wander = [&](FigureStream figure, double period) {
        return Chance(seed, streamOf(station, figure)).wander(time, period);
    };
    const Programme programme = programmeAt(station, seed, time);
    const double weakness = std::max(0.0, kWeakField - station.field);
    const double offset = (station.frequency - tuning.frequency) * 100000 + station.carrierError;
    const bool aside = std::abs(offset) > 20000;
    Readings r;
    const double peak = tuning.detector == Detector::Peak ? programme.peak : programme.peak * 0.74;
    r.peakModulation = static_cast<float>(peak);
    putLevels(r, programme, tuning.audioMode);
    r.stereoPhase = static_cast<float>(programme.phase);
    r.relativePower = static_cast<float>(10 * programme.power);
    if (station.isStereo()) {
        r.pilotError = static_cast<float>(station.pilotError + 0.12 * wander(kPilotError, 0.8));
        r.pilotLevel = static_cast<float>(station.pilot + 0.08 * wander(kPilotLevel, 1.1));
        r.separationLeft = static_cast<float>(station.separation + 2 * wander(kSeparationLeft, 3));
        r.separationRight =
            static_cast<float>(station.separation - 0.8 + 2 * wander(kSeparationRight, 3.4));
    }
    r.noiseLeft = static_cast<float>(station.noise + weakness + 0.9 * wander(kNoiseLeft, 2.1));
    r.noiseRight =
        static_cast<float>(station.noise + 0.6 + weakness + 0.9 * wander(kNoiseRight, 2.3));
    const double bent = station.distortion * (aside ? 4 : 1);
    r.distortion = static_cast<float>(bent * (1 + 0.12 * wander(kDistortion, 1.9)));
    const double carrier = offset / 100 + 0.7 * wander(kCarrier, 0.5);
    r.carrierDeviation = static_cast<float>(std::clamp(carrier, -kCarrierEnd, kCarrierEnd));
    const double spread = 1 + 0.15 * station.multipath;
    r.multipath = static_cast<float>(
        std::max(0.0, station.multipath + (aside ? 8 : 0) + spread * wander(kMultipath, 0.35)));
    r.peaksPerMinute = static_cast<float>(peaksOf(station, wander(kPeaks, 20)));
    if (station.hasRds()) {
        r.rdsError = static_cast<float>(3 * station.pilotError + 0.2 * wander(kRdsError, 0.9));
        r.rdsLevel = static_cast<float>(station.rds + 0.1 * wander(kRdsLevel, 1.3));
    }
    return r;
}

// Between stations the detector receives the band's noise: loud, wide and without a pilot.
Readings onNoise(std::uint64_t seed, const Tuning& tuning, double time) {
    const auto place = static_cast<std::uint64_t>(std::lround(tuning.frequency * 4));
    const auto wander = [&](unsigned figure, double period) {
        return Chance(seed, (place << 16) + figure).wander(time, period);
    };
    Readings r;
    r.peakModulation = static_cast<float>(132 + 14 * wander(0, 0.05));
    r.levelFirst = static_cast<float>(-4 + 2.5 * wander(1, 0.05));
    r.levelSecond = static_cast<float>(-4 + 2.5 * wander(2, 0.05));
    r.stereoPhase = static_cast<float>(45 + 40 * wander(3, 0.06));
    r.relativePower = static_cast<float>(6.5 + 0.6 * wander(4, 0.7));
    r.pilotError = static_cast<float>(20 * wander(5, 0.2));
    r.pilotLevel = static_cast<float>(0.12 + 0.1 * wander(6, 0.3));
    r.noiseLeft = static_cast<float>(-11 + 1.2 * wander(7, 0.8));
    r.noiseRight = static_cast<float>(-11 + 1.2 * wander(8, 0.8));
    r.carrierDeviation = static_cast<float>(24 * wander(9, 0.3));
    r.multipath = static_cast<float>(38 + 9 * wander(10, 0.3));
    r.peaksPerMinute = static_cast<float>(std::floor(420 + 40 * wander(11, 15)));
    return r;
}

}  // namespace

double stepped(double level, double step) {
    return step > 0 ? std::round(level / step) * step : level;
}

Readings figuresAt(std::uint64_t seed, const Tuning& tuning, double time, double levelStep) {
    const Station* const station = stationAt(tuning.frequency);
    Readings readings =
        station != nullptr ? onStation(*station, seed, tuning, time) : onNoise(seed, tuning, time);
    readings.field =
        static_cast<float>(stepped(bandLevel(seed, tuning.frequency, time), levelStep));
    return readings;
}

}  // namespace hm16::simulated
