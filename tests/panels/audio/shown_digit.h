// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

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

/// The figure that a place shows: "7", "" when it is dark, "?" when it is no figure.
inline std::string shownFigure(SegmentDigit& digit, display::Colour lit, display::Colour dark) {
    const char* const figures[] = {"012346", "34",     "02456", "23456",   "1345",
                                   "12356",  "012356", "1346",  "0123456", "123456"};
    const std::string segments = litSegments(digit, lit, dark);
    if (segments.empty()) return "";
    for (int i = 0; i < 10; ++i) {
        if (segments == figures[i]) return std::to_string(i);
    }
    return "?";
}

}  // namespace hmonitor::test
