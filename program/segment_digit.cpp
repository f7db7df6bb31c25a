// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/segment_digit.h"

#include <utility>

#include "core/numbers.h"

namespace hmonitor {

namespace {

using display::Box;
using display::Colour;
using display::Line;

/// Lit segments of the digits 0 to 9, one bit a segment.
constexpr unsigned bits(std::initializer_list<int> segments) {
    unsigned set = 0;
    for (const int segment : segments) set |= 1u << segment;
    return set;
}

constexpr std::array<unsigned, 10> kLit = {
    bits({0, 1, 2, 3, 4, 6}),
    bits({3, 4}),
    bits({0, 2, 4, 5, 6}),
    bits({2, 3, 4, 5, 6}),
    bits({1, 3, 4, 5}),
    bits({1, 2, 3, 5, 6}),
    bits({0, 1, 2, 3, 5, 6}),
    bits({1, 3, 4, 6}),  // a 7 with the upper left segment, as the instrument draws it
    bits({0, 1, 2, 3, 4, 5, 6}),
    bits({1, 2, 3, 4, 5, 6}),
};

std::array<std::string, 7> namesOf(std::string_view stem, const std::array<int, 7>& numbers) {
    std::array<std::string, 7> names;
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = SmallText(stem).append(wholeText(numbers[i])).str();
    return names;
}

}  // namespace

SegmentDigit::SegmentDigit(display::Form& form, std::string_view stem,
                           const std::array<int, 7>& numbers)
    : lines_(form, namesOf(stem, numbers)) {}

bool SegmentDigit::lights(int digit, int segment) {
    return (kLit[static_cast<std::size_t>(digit)] >> segment & 1u) != 0;
}

void SegmentDigit::show(int digit, Colour lit, Colour dark) {
    if (digit < 0 || digit > 9) return;
    for (int i = 0; i < 7; ++i) segment(i).colour = lights(digit, i) ? lit : dark;
    figure_ = digit;
}

void SegmentDigit::blank(Colour dark) {
    for (Line& line : lines_) line.colour = dark;
    figure_.reset();
}

std::string figuresOf(std::initializer_list<const SegmentDigit*> places) {
    std::string text;
    for (const SegmentDigit* place : places) {
        if (place->figure()) text += wholeText(*place->figure()).view();
    }
    return text;
}

std::array<Box, 7> SegmentDigit::strokes(const Box& box) {
    const float lean = box.height * 0.1f;
    const float left = box.left;
    const float right = box.right() - lean;
    const float half = lean / 2;
    const float top = box.top;
    const float middle = box.top + box.height / 2;
    const float bottom = box.bottom();
    // The two ends of each segment: (left, top) and (left + width, top + height).
    auto ends = [](float x1, float y1, float x2, float y2) {
        return Box{x1, y1, x2 - x1, y2 - y1};
    };
    return {ends(left + half, middle, left, bottom),
            ends(left + lean, top, left + half, middle),
            ends(left, bottom, right, bottom),
            ends(right + half, middle, right, bottom),
            ends(right + lean, top, right + half, middle),
            ends(left + half, middle, right + half, middle),
            ends(left + lean, top, right + lean, top)};
}

}  // namespace hmonitor
