// SPDX-License-Identifier: GPL-3.0-or-later
#include <charconv>
#include <cmath>
#include <limits>

#include "core/numbers.h"

namespace hmonitor {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t digitsFrom(std::string_view text, std::size_t at) {
    while (at < text.size() && isDigit(text[at])) ++at;
    return at;
}

}  // namespace

double valueOf(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size() && text[at] == ' ') ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) negative = text[at++] == '-';

    const std::size_t start = at;
    const std::size_t point = digitsFrom(text, start);
    std::size_t end = point;
    if (point < text.size() && text[point] == '.') end = digitsFrom(text, point + 1);

    double value = 0;
    const auto result =
        std::from_chars(text.data() + start, text.data() + end, value, std::chars_format::fixed);
    if (result.ec == std::errc::invalid_argument) return 0;  // no digit, or a point alone
    if (result.ec == std::errc::result_out_of_range || std::isinf(value)) {
        const bool large =
            text.substr(start, point - start).find_first_not_of('0') != std::string_view::npos;
        value = large ? std::numeric_limits<double>::max() : 0;
    }
    return negative && value != 0 ? -value : value;
}

}  // namespace hmonitor
