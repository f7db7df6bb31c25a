// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace hm16 {

std::string decimalText(double value, int decimals) {
    if (!std::isfinite(value)) return "0";
    std::array<char, 400> buffer;
    const auto done = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::fixed, decimals);
    std::string text(buffer.data(), done.ptr);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    return text == "-0" ? "0" : text;
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

std::string inQuotes(std::string_view text) {
    std::string quoted(1, '"');
    quoted += text;
    quoted += '"';
    return quoted;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlank = " \t\r\n";
    const auto first = text.find_first_not_of(kBlank);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

}  // namespace hm16
