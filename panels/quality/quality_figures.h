// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

#include "core/numbers.h"

namespace hmonitor {

/// The three places of a display, 1 to 3 from the left. A blank place goes dark; a display that is
/// not written keeps its digits.
struct ThreePlaces {
    static constexpr int kBlank = -1;

    std::array<int, 3> places{kBlank, kBlank, kBlank};
    bool changes = true;

    friend bool operator==(const ThreePlaces&, const ThreePlaces&) = default;
};

/// The digits of the 19 kHz pilot error: sign and tenths, at most 99.9 upwards.
struct PilotErrorFigure {
    bool negative = false;
    SmallText text;  ///< tenths of a hertz without sign; its characters are the digits
    ThreePlaces digits;
};

PilotErrorFigure pilotErrorFigure(float hertz);

/// The pilot level in tenths, rounded down.
ThreePlaces pilotLevelDigits(float level);

/// A noise reading in dB, limited to the stored floor ("xx": no floor). Returns the figure of the
/// digits, 0 to 99.
int noiseFigure(float reading, std::string_view floor);

/// A separation in dB, at most 99, and at least the stored result.
int separationFigure(float reading, std::string_view floor);

/// A distortion in hundredths of a percent, at least the stored result.
double distortionFigure(float reading, std::string_view floor);

/// Three digits with a point after place 1; further decimals are cut.
ThreePlaces distortionDigits(double hundredths);

/// A reading with one decimal and a plus when it is above 0; dashes where it means nothing.
SmallText signedTenths(float reading);

inline constexpr std::string_view kMeaningless = "----";
/// A pilot or RDS level must be above this for its frequency error to mean anything.
inline constexpr float kLeastLevel = 0.3f;

}  // namespace hmonitor
