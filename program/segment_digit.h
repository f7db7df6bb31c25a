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

/// The style of a segment in a digit of that height; it is a seventh of the height thick.
constexpr display::LineStyle segmentStyle(float digitHeight, display::Colour colour) {
    return {colour, digitHeight / 7 / 15, display::Stroke::Segment};
}

/// A seven-segment digit drawn from seven line elements: segment 0 lower left, 1 upper left,
/// 2 bottom, 3 lower right, 4 upper right, 5 middle, 6 top. One table serves all panels.
class SegmentDigit {
 public:
    /// The lines' names are the stem and these numbers, segments 0 to 6 in that order.
    SegmentDigit(display::Form& form, std::string_view stem, const std::array<int, 7>& numbers);

    /// Lights the segments of the digit and darkens the others. A number that is no digit (10)
    /// leaves the place as it was.
    void show(int digit, display::Colour lit, display::Colour dark);
    /// Darkens all segments.
    void blank(display::Colour dark);
    /// The figure that is shown; none while all segments are dark.
    std::optional<int> figure() const { return figure_; }

    display::Line& segment(int number) { return lines_[number]; }

    /// The position of each segment in a digit of this box; digits lean a little to the right.
    static std::array<display::Box, 7> strokes(const display::Box& box);

    /// True when the segment is lit in the digit 0 to 9.
    static bool lights(int digit, int segment);

 private:
    display::Family<display::Line, 7> lines_;
    std::optional<int> figure_;
};

/// The text that these places show, from the left; dark ones are left out.
std::string figuresOf(std::initializer_list<const SegmentDigit*> places);

/// The numbers first, first + 1 ... first + 6, for lines numbered upwards.
constexpr std::array<int, 7> upFrom(int first) {
    return {first, first + 1, first + 2, first + 3, first + 4, first + 5, first + 6};
}

/// The numbers first, first - 1 ... first - 6, for lines numbered downwards.
constexpr std::array<int, 7> downFrom(int first) {
    return {first, first - 1, first - 2, first - 3, first - 4, first - 5, first - 6};
}

/// The digit of a character; any other character counts as 0.
constexpr int digitOf(char character) {
    return character >= '0' && character <= '9' ? character - '0' : 0;
}

}  // namespace hmonitor
