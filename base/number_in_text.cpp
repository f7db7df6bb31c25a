// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/number_in_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "base/plain_text.h"

namespace base {

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

std::optional<double> numberIn(std::string_view text) {
    text = trimmed(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') return std::nullopt;
    }
    if (text.find_first_not_of("-.0123456789") != std::string_view::npos) return std::nullopt;
    double value = 0;
    const auto end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value, std::chars_format::fixed);
    if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
    return value;
}

std::optional<double> scaledNumberIn(std::string_view text) {
    text = trimmed(text);
    if (text.empty()) return std::nullopt;
    constexpr std::string_view kLetters = "kKMG";
    constexpr std::array kScales{1e3, 1e3, 1e6, 1e9};
    double scale = 1;
    if (const auto letter = kLetters.find(text.back()); letter != std::string_view::npos) {
        scale = kScales[letter];
        text.remove_suffix(1);
    } else if (const auto mark = text.find_first_of("eE"); mark != std::string_view::npos) {
        const auto power = text.substr(mark + 1);
        // One digit is enough for any frequency.
        if (power.size() != 1 || power.front() < '0' || power.front() > '9') return std::nullopt;
        scale = std::pow(10.0, power.front() - '0');
        text = text.substr(0, mark);
    }
    if (text.empty() || text.back() == ' ') return std::nullopt;
    const auto number = numberIn(text);
    return number ? std::optional(*number * scale) : std::nullopt;
}

}  // namespace base
