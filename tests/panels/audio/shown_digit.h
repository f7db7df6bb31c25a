// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "program/segment_digit.h"

namespace hmonitor::test {

/// The lit segments of a place, as "1346"; a segment in neither colour shows as "?".
inline std::string litSegments(SegmentDigit& digit, display::Colour lit, display::Colour dark) {
    std::string segments;
    for (int i = 0; i < 7; ++i) {
        const display::Colour colour = digit.segment(i).colour;
        if (colour == lit) {
            segments += std::to_string(i);
        } else if (!(colour == dark)) {
            segments += '?';
        }
    }
    return segments;
}

/// The lit segments of the digits 0 to 9.
inline constexpr std::array<std::string_view, 10> kFigureSegments{
    "012346", "34", "02456", "23456", "1345", "12356", "012356", "1346", "0123456", "123456"};

/// The figure that a place shows: "7", "" when it is dark, "?" when it is no figure.
inline std::string shownFigure(SegmentDigit& digit, display::Colour lit, display::Colour dark) {
    const std::string segments = litSegments(digit, lit, dark);
    if (segments.empty()) return "";
    for (std::size_t i = 0; i < kFigureSegments.size(); ++i) {
        if (segments == kFigureSegments[i]) return std::to_string(i);
    }
    return "?";
}

}  // namespace hmonitor::test
