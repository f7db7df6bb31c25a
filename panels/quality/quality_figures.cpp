// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/quality/quality_figures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "program/segment_digit.h"

namespace hmonitor {

namespace {

constexpr int kBlank = ThreePlaces::kBlank;

/// The digit of a character; a missing one counts as 0.
int character(std::string_view text, std::size_t index) {
    return index < text.size() ? digitOf(text[index]) : 0;
}

/// First, second and third character from left to right.
ThreePlaces threeOf(std::string_view text) {
    return {{character(text, 0), character(text, 1), character(text, 2)}};
}

}  // namespace

PilotErrorFigure pilotErrorFigure(float hertz) {
    float tenths = hertz * 10;
    if (tenths > 999) tenths = 999;
    PilotErrorFigure figure;
    figure.negative = tenths < 0;
    figure.text = shortText(std::fabs(tenths));
    const std::string_view text = figure.text;
    // Four characters mean that there are three digits before the point.
    const double size = valueOf(text.substr(0, 4));
    if (size < 10) {
        figure.digits.places = {kBlank, kBlank, character(text, 0)};
    } else if (size < 100) {
        figure.digits.places = {kBlank, character(text, 0), character(text, 1)};
    } else if (size < 1000) {
        figure.digits = threeOf(text);
    } else {
        // Only a large negative error gets here: it is not clamped, and changes no digit.
        figure.digits.changes = false;
    }
    return figure;
}

ThreePlaces pilotLevelDigits(float level) {
    const int tenths = std::abs(wholeTowardZero(level * 10));
    const SmallText text = wholeText(tenths);
    if (tenths < 10) return {{kBlank, kBlank, character(text, 0)}};
    if (tenths < 100) return {{kBlank, character(text, 0), character(text, 1)}};
    return threeOf(text);
}

int noiseFigure(float reading, std::string_view floor) {
    const auto stored = static_cast<float>(valueOf(floor));
    if (floor != "xx" && floor != "0" && reading < stored) reading = stored;
    if (reading == 0) reading = stored;
    return std::min(99, wholeTowardZero(std::fabs(reading)));
}

int separationFigure(float reading, std::string_view floor) {
    return std::max(std::min(99, floorWhole(reading)), floorWhole(valueOf(floor)));
}

double distortionFigure(float reading, std::string_view floor) {
    return std::max(valueOf(shortText(reading)) * 100, valueOf(floor));
}

ThreePlaces distortionDigits(double hundredths) {
    const SmallText text = shortText(hundredths);
    if (hundredths < 10) return {{0, 0, character(text, 0)}};
    if (hundredths < 100) return {{0, character(text, 0), character(text, 1)}};
    return threeOf(text);
}

SmallText signedTenths(float reading) {
    const SmallText digits = mask("0.0", reading);
    return reading > 0 ? SmallText("+").append(digits) : digits;
}

}  // namespace hmonitor
