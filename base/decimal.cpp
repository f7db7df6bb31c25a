// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/decimal.h"

#include <charconv>
#include <cmath>

namespace base {

namespace {

struct Scientific {
    std::uint64_t mantissa = 0;
    int exponent = 0;  // of the first digit
    int digits = 0;
};

// The standard library rounds the exact binary value; its text is d.ddde-xx.
Scientific toScientific(double magnitude, int significant) {
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, magnitude,
                                   std::chars_format::scientific, significant - 1)
                         .ptr;
    Scientific result;
    const char* at = text;
    for (; at != end && *at != 'e'; ++at) {
        if (*at == '.') continue;
        result.mantissa = result.mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
        ++result.digits;
    }
    ++at;
    if (*at == '+') ++at;
    std::from_chars(at, end, result.exponent);
    return result;
}

int digitsOf(std::uint64_t value) {
    int count = 0;
    for (; value != 0; value /= 10) ++count;
    return count;
}

}  // namespace

std::uint64_t powerOfTen(int exponent) {
    std::uint64_t power = 1;
    while (exponent-- > 0) power *= 10;
    return power;
}

Decimal toDecimal(double value, int significant) {
    Decimal result;
    const double magnitude = std::fabs(value);
    if (magnitude < 1e-28) return result;
    Scientific parts = toScientific(magnitude, significant);
    if (significant - 1 - parts.exponent > kMostDecimals) {
        // Fewer digits fit behind the zeros; rounding afresh avoids rounding twice.
        parts = toScientific(magnitude, kMostDecimals + 1 + parts.exponent);
    }
    result.mantissa = parts.mantissa;
    result.scale = parts.digits - 1 - parts.exponent;
    while (result.mantissa % 10 == 0) {
        result.mantissa /= 10;
        --result.scale;
    }
    result.negative = std::signbit(value);
    return result;
}

std::uint64_t mantissaAt(const Decimal& number, int decimals) {
    const int surplus = number.scale - decimals;
    if (surplus <= 0) return number.mantissa * powerOfTen(-surplus);
    if (surplus > 18) return 0;
    const std::uint64_t divisor = powerOfTen(surplus);
    return number.mantissa / divisor + (number.mantissa % divisor >= divisor / 2 ? 1 : 0);
}

int wholeDigits(const Decimal& number) {
    return digitsOf(number.mantissa) - number.scale;
}

}  // namespace base
