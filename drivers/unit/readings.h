// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hm16 {

// One set of readings, in the order and units of HM_Data, then of HM_DataRDS (drivers/hm16.h).
// A figure that is not known is 0.
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

// What outputs 6 and 7 show when the tones of an armed response run have ended; only whole parts
// count.
inline constexpr float kEndMarkError = 11583;
inline constexpr float kEndMarkLevel = 18;

}  // namespace hm16
