// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/hour_of_air.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "drivers/simulated/chance.h"
#include "drivers/simulated/programme.h"

namespace hm16::simulated {

namespace {

enum Figure : unsigned { kDrive = 40, kPower, kTilt, kSilences, kInversions, kMoments };

// How hard a music station drives its processor at each hour of the day.
constexpr double kDayOfDrive[24] = {0.86, 0.83, 0.80, 0.79, 0.80, 0.84, 0.93, 1.00,
                                    1.00, 0.98, 0.97, 0.97, 0.98, 0.96, 0.95, 0.96,
                                    0.98, 1.00, 1.01, 1.00, 0.98, 0.96, 0.93, 0.90};

// The length of a mishap: the time that somebody needs to notice it and react, but long enough to
// be noticed by a unit running a thousand times faster than real time.
constexpr int kMishapSeconds = 24;
constexpr int kMostMishaps = 8;
constexpr float kSilentDb = -60;
constexpr float kInvertedDegrees = 135;

// Counts hours over all days.
std::int64_t hourNumber(const LocalTime& when) {
    using namespace std::chrono;
    const sys_days day = year(when.year) / month(static_cast<unsigned>(when.month)) /
                         std::chrono::day(static_cast<unsigned>(when.day));
    return static_cast<std::int64_t>(day.time_since_epoch().count()) * 24 + when.hour;
}

// The number of mishaps: none in most hours, one in some, several when something is broken.
int mishapsOf(double chance) {
    if (chance < 0.72) return 0;
    if (chance < 0.92) return 1;
    if (chance < 0.985) return 2;
    return 5;
}

// The hour is divided, so that mishaps do not overlap: those of one kind in the even parts, of the
// other in the odd ones.
bool inMishap(const Chance& moments, std::int64_t hour, int part, int count, int second) {
    constexpr int kPartSeconds = 3600 / (2 * kMostMishaps);
    for (int i = 0; i < count; ++i) {
        const int place = 2 * i + part;
        const double share = moments.even(hour * 2 * kMostMishaps + place);
        const int from = place * kPartSeconds + 12 +
                         static_cast<int>(share * (kPartSeconds - 2 * 12 - kMishapSeconds));
        if (second >= from && second < from + kMishapSeconds) return true;
    }
    return false;
}

float decibels(double share) {
    return static_cast<float>(20 * std::log10(share));
}

}  // namespace

HourOfAir hourOfAir(std::uint64_t seed, const Station& station, const LocalTime& when) {
    const std::int64_t hour = hourNumber(when);
    const auto even = [&](Figure figure) {
        return Chance(seed, streamOf(station, figure)).even(hour);
    };
    HourOfAir air;
    air.drive = kDayOfDrive[std::clamp(when.hour, 0, 23)] + 0.06 * (even(kDrive) - 0.5);
    air.power = 0.94 + 0.10 * even(kPower);
    air.tilt = 1.6 * (even(kTilt) - 0.5);
    air.silences = mishapsOf(even(kSilences));
    // Inverted polarity is rarer than silence.
    air.inversions = std::max(0, mishapsOf(even(kInversions)) - 1);
    return air;
}

void liveThrough(Readings& readings, std::uint64_t seed, const Station& station,
                 const LocalTime& when) {
    const HourOfAir air = hourOfAir(seed, station, when);
    const Chance moments(seed, streamOf(station, kMoments));
    const std::int64_t hour = hourNumber(when);
    const int second = when.minute * 60 + when.second;

    readings.peakModulation *= static_cast<float>(air.drive);
    readings.relativePower *= static_cast<float>(air.drive * air.drive);
    readings.peaksPerMinute *= static_cast<float>(std::max(0.05, 1 + 6 * (air.drive - 0.86)));
    readings.levelFirst += decibels(air.drive) + static_cast<float>(air.tilt / 2);
    readings.levelSecond += decibels(air.drive) - static_cast<float>(air.tilt / 2);
    if (inMishap(moments, hour, 0, air.silences, second)) {
        readings.levelFirst = readings.levelSecond = kSilentDb;
    } else if (inMishap(moments, hour, 1, air.inversions, second)) {
        readings.stereoPhase = kInvertedDegrees;
    }
}

}  // namespace hm16::simulated
