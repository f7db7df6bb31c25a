// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/hour_summary.h"

#include "base/number_text.h"

#include <algorithm>
#include <cmath>

namespace hm16 {

namespace {

// With both channels below this level a listener notices silence.
constexpr float kSilenceDb = -40;
// Beyond this angle L-R is stronger than L+R: a mono receiver loses more than half.
constexpr float kInvertedDegrees = 90;
constexpr double kStretchSeconds = 3;

double powerOf(float level) {
    return std::pow(10.0, std::clamp(level, -100.0f, 100.0f) / 10.0);
}

std::string levelText(double power) {
    return power > 0 ? base::decimalText(10 * std::log10(power), 1) : "A";
}

}  // namespace

void HourSummary::Stretches::add(bool holds, double seconds) {
    const double before = lasting_;
    lasting_ = holds ? lasting_ + seconds : 0;
    if (before < kStretchSeconds && lasting_ >= kStretchSeconds) ++count_;
}

void HourSummary::add(const Readings& readings, double radiatedPower, double seconds) {
    if (!(seconds > 0)) return;
    seconds_ += seconds;
    highestModulation_ = std::max(highestModulation_, readings.peakModulation);
    powerFirst_ += powerOf(readings.levelFirst) * seconds;
    powerSecond_ += powerOf(readings.levelSecond) * seconds;
    phase_ += readings.stereoPhase * seconds;
    radiated_ += radiatedPower * seconds;
    peaks_ += readings.peaksPerMinute * seconds;
    silences_.add(readings.levelFirst < kSilenceDb && readings.levelSecond < kSilenceDb, seconds);
    inversions_.add(readings.stereoPhase > kInvertedDegrees, seconds);
}

std::string HourSummary::line(int hour) const {
    std::string line = std::to_string(hour) + " ";
    if (!(seconds_ > 0)) return line + "A A A A A 0 A A A ";
    line += base::decimalText(highestModulation_, 1) + " ";
    line += levelText(powerFirst_ / seconds_) + " ";
    line += levelText(powerSecond_ / seconds_) + " ";
    line += base::decimalText(phase_ / seconds_, 1) + " ";
    line += base::decimalText(radiated_ / seconds_, 3) + " ";
    line += base::decimalText(minutes(), 1) + " ";
    line += base::decimalText(peaks_ / seconds_, 1) + " ";
    line += std::to_string(silences_.count()) + " ";
    line += std::to_string(inversions_.count()) + " ";
    return line;
}

}  // namespace hm16
