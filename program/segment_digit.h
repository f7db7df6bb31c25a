// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "display/design.h"
#include "display/family.h"

namespace hmonitor {

/// A stroke of a digit of that height, a seventh of it thick.
constexpr display::LineStyle segmentStyle(float digitHeight, display::Colour colour) {
    return {colour, digitHeight / 7 / 15, display::Stroke::Segment};
}

/// A seven-segment digit drawn from seven line elements: segment 0 lower left, 1 upper left,
/// 2 bottom, 3 lower right, 4 upper right, 5 middle, 6 top. One table serves all panels.
class SegmentDigit {
 public:
    /// The lines' run-time names are a stem and a number each, segments 0 to 6 in that order.
    SegmentDigit(display::Form& form, std::string_view stem, const std::array<int, 7>& numbers);

    /// Lights the segments of the digit and darkens the others. A number that is no digit (10)
    /// leaves the place as it was.
    void show(int digit, display::Colour lit, display::Colour dark);
    /// Darkens all segments.
    void blank(display::Colour dark);
    /// The figure that the place shows; none while it is dark.
    std::optional<int> figure() const { return figure_; }

    display::Line& segment(int number) { return lines_[number]; }

    /// Where each segment runs in a digit of this box, leaning a little to the right.
    static std::array<display::Box, 7> strokes(const display::Box& box);

    /// True when the segment is lit in the digit 0 to 9.
    static bool lights(int digit, int segment);

 private:
    display::Family<display::Line, 7> lines_;
    std::optional<int> figure_;
};

/// What places from the left read as text; a dark one is left out.
std::string figuresOf(std::initializer_list<const SegmentDigit*> places);

/// Numbers first, first + 1 ... first + 6: a digit whose lines are numbered upwards.
constexpr std::array<int, 7> upFrom(int first) {
    return {first, first + 1, first + 2, first + 3, first + 4, first + 5, first + 6};
}

/// Numbers first, first - 1 ... first - 6: some places are numbered backwards.
constexpr std::array<int, 7> downFrom(int first) {
    return {first, first - 1, first - 2, first - 3, first - 4, first - 5, first - 6};
}

/// The figure that a character stands for; any other character counts as 0.
constexpr int digitOf(char character) {
    return character >= '0' && character <= '9' ? character - '0' : 0;
}

}  // namespace hmonitor
