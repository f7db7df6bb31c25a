// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace figures {

/// One set of readings, in the order and units of HM_Data, then of HM_DataRDS (drivers/hm16.h). A
/// figure that is not known is 0.
struct Readings {
    float peakModulation = 0;
    float levelFirst = 0;
    float levelSecond = 0;
    float stereoPhase = 0;
    float relativePower = 0;
    float pilotError = 0;
    float pilotLevel = 0;
    float noiseLeft = 0;
    float noiseRight = 0;
    float separationLeft = 0;
    float separationRight = 0;
    float distortion = 0;
    float carrierDeviation = 0;
    float field = 0;
    float multipath = 0;
    float peaksPerMinute = 0;
    float rdsError = 0;
    float rdsLevel = 0;

    friend bool operator==(const Readings&, const Readings&) = default;
};

using Output = float Readings::*;

/// All readings in their order, for code that treats them alike: the sixteen of HM_Data, then the
/// two of HM_DataRDS.
inline constexpr std::array<Output, 18> kOutputs{
    &Readings::peakModulation,   &Readings::levelFirst,      &Readings::levelSecond,
    &Readings::stereoPhase,      &Readings::relativePower,   &Readings::pilotError,
    &Readings::pilotLevel,       &Readings::noiseLeft,       &Readings::noiseRight,
    &Readings::separationLeft,   &Readings::separationRight, &Readings::distortion,
    &Readings::carrierDeviation, &Readings::field,           &Readings::multipath,
    &Readings::peaksPerMinute,   &Readings::rdsError,        &Readings::rdsLevel};
static_assert(sizeof(Readings) == kOutputs.size() * sizeof(float), "each reading is listed");

/// The number of readings from HM_Data.
inline constexpr std::size_t kDataOutputs = 16;

/// The pilot error and pilot level that signal the end of the tones in an armed response run; only
/// their whole parts count.
inline constexpr float kEndMarkError = 11583;
inline constexpr float kEndMarkLevel = 18;
inline bool showsEndMark(const Readings& readings) {
    return std::trunc(readings.pilotError) == kEndMarkError &&
           std::trunc(readings.pilotLevel) == kEndMarkLevel;
}

}  // namespace figures
