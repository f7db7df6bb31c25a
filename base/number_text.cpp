// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/decimal.h"

namespace base {

namespace {

constexpr int kFloatDigits = 7;
constexpr int kDoubleDigits = 15;
constexpr double kExponentFrom = 1e15;

SmallText digitsText(std::uint64_t value) {
    char digits[20];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return std::string_view(digits, static_cast<std::size_t>(end - digits));
}

void appendZeros(SmallText& text, int count) {
    while (count-- > 0) text.append('0');
}

// `mantissa` with a point before its last `decimals` digits and at least `wholes` digits before it.
void appendFixed(SmallText& text, std::uint64_t mantissa, int decimals, int wholes) {
    const SmallText digits = digitsText(mantissa);
    const int count = mantissa == 0 ? 0 : static_cast<int>(digits.size());
    const int before = count - decimals;
    appendZeros(text, wholes - std::max(before, 0));
    if (before > 0) text.append(digits.view().substr(0, static_cast<std::size_t>(before)));
    if (decimals == 0) return;
    text.append('.');
    appendZeros(text, -before);
    if (count > 0) text.append(digits.view().substr(static_cast<std::size_t>(std::max(before, 0))));
}

void appendExponent(SmallText& text, const Decimal& number) {
    const SmallText digits = digitsText(number.mantissa);
    text.append(digits[0]);
    if (digits.size() > 1) text.append('.').append(digits.view().substr(1));
    text.append("E+").append(digitsText(static_cast<std::uint64_t>(wholeDigits(number) - 1)));
}

SmallText unendingText(double value) {
    if (std::isnan(value)) return "nan";
    return value < 0 ? "-inf" : "inf";
}

SmallText textOf(double value, int significant) {
    if (!std::isfinite(value)) return unendingText(value);
    const Decimal number = toDecimal(value, significant);
    SmallText text = number.negative ? "-" : "";
    if (std::fabs(value) >= kExponentFrom) {
        appendExponent(text, number);
    } else if (number.scale < 0) {
        appendFixed(text, number.mantissa * powerOfTen(-number.scale), 0, 1);
    } else {
        appendFixed(text, number.mantissa, number.scale, 1);
    }
    return text;
}

struct Pattern {
    std::string_view before, after;
    int wholes = 0;    // digits always shown before the point
    int decimals = 0;  // digits behind it
};

Pattern parsePattern(std::string_view pattern) {
    Pattern result;
    std::size_t at = std::min(pattern.find_first_of("#0"), pattern.size());
    result.before = pattern.substr(0, at);
    for (; at < pattern.size() && (pattern[at] == '#' || pattern[at] == '0'); ++at) {
        if (pattern[at] == '0') ++result.wholes;
    }
    if (at + 1 < pattern.size() && pattern[at] == '.' && pattern[at + 1] == '0') {
        for (++at; at < pattern.size() && pattern[at] == '0'; ++at) ++result.decimals;
    }
    result.after = pattern.substr(at);
    return result;
}

SmallText masked(std::string_view pattern, double value, int significant) {
    const Pattern parts = parsePattern(pattern);
    SmallText text = parts.before;
    if (!(std::fabs(value) < kExponentFrom)) {
        return text.append(textOf(value, significant)).append(parts.after);
    }
    const Decimal number = toDecimal(value, significant);
    const int decimals = std::min(parts.decimals, 3);
    const std::uint64_t mantissa = mantissaAt(number, decimals);
    if (number.negative && mantissa != 0) text.append('-');
    appendFixed(text, mantissa, decimals, parts.wholes);
    return text.append(parts.after);
}

}  // namespace

SmallText shortText(float value) {
    return textOf(static_cast<double>(value), kFloatDigits);
}
SmallText shortText(double value) {
    return textOf(value, kDoubleDigits);
}

SmallText wholeText(std::int64_t value) {
    char digits[20];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return std::string_view(digits, static_cast<std::size_t>(end - digits));
}

SmallText mask(std::string_view pattern, float value) {
    return masked(pattern, static_cast<double>(value), kFloatDigits);
}

SmallText mask(std::string_view pattern, double value) {
    return masked(pattern, value, kDoubleDigits);
}

SmallText frequencyKey(double frequency) {
    const SmallText text = shortText(frequency);
    return frequency < 1000 ? SmallText("0").append(text) : text;
}

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

}  // namespace base
