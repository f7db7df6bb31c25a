// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/readings_of.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

constexpr double kHzPerPercent = 750;
constexpr double kCarrierLimit = 100;  // times 100 Hz

float percent(double hz) {
    return static_cast<float>(hz / kHzPerPercent);
}

}  // namespace

double stepped(double level, double stepDb) {
    return stepDb > 0 ? stepDb * std::round(level / stepDb) : level;
}

Readings readingsOf(const Figures& figures, double peakHz, AudioMode mode, double levelStepDb) {
    const bool sum = mode == AudioMode::SumDifference;
    Readings readings;
    readings.peakModulation = percent(peakHz);
    readings.levelFirst = static_cast<float>(sum ? figures.levelSumDb : figures.levelLeftDb);
    readings.levelSecond =
        static_cast<float>(sum ? figures.levelDifferenceDb : figures.levelRightDb);
    readings.stereoPhase = static_cast<float>(figures.stereoPhaseDegrees);
    readings.relativePower = static_cast<float>(10 * figures.relativePower);
    readings.pilotError = static_cast<float>(figures.pilotErrorHz);
    readings.pilotLevel = percent(figures.pilotHz);
    readings.noiseLeft = static_cast<float>(figures.noiseLeftDb);
    readings.noiseRight = static_cast<float>(figures.noiseRightDb);
    readings.separationLeft = static_cast<float>(figures.separationLeftDb);
    readings.separationRight = static_cast<float>(figures.separationRightDb);
    readings.distortion = static_cast<float>(figures.distortionPercent);
    readings.carrierDeviation =
        static_cast<float>(std::clamp(figures.carrierHz / 100, -kCarrierLimit, kCarrierLimit));
    readings.field = static_cast<float>(stepped(figures.fieldDb, levelStepDb));
    readings.multipath = static_cast<float>(figures.multipathPercent);
    readings.peaksPerMinute = static_cast<float>(figures.peaksPerMinute);
    readings.rdsError = static_cast<float>(figures.rdsErrorHz);
    readings.rdsLevel = percent(figures.rdsHz);
    return readings;
}

}  // namespace hm16::receiver
