// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace base {

namespace {

struct Scientific {
    std::uint64_t mantissa = 0;
    int exponent = 0;  // of the first digit
    int digits = 0;
};

// The standard library rounds the exact binary value; its text is d.ddde-xx.
Scientific libraryScientific(double magnitude, int significant) {
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

constexpr std::array<double, 23> kExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Power of ten of the first digit of a number from 1e-7 to under 1e15. At a boundary below 1 it
// may be one too high, which gives the same digits: the number then rounds to the boundary.
int firstDigitPlace(double magnitude) {
    int place = 0;
    if (magnitude >= 1) {
        while (magnitude >= kExactPowers[static_cast<std::size_t>(place) + 1]) ++place;
    } else {
        do --place;
        while (magnitude < 1 / kExactPowers[static_cast<std::size_t>(-place)]);
    }
    return place;
}

// What the live panels show all day goes this way, several times faster than the library: powers
// of ten up to 1e22 are exact in a double, so the product and what it lost are known exactly.
std::optional<Scientific> quickScientific(double magnitude, int significant) {
    if (!(magnitude >= 1e-7 && magnitude < 1e15) || significant > 15) return std::nullopt;
    const int place = firstDigitPlace(magnitude);
    const int scale = significant - 1 - place;
    if (scale < 0) return std::nullopt;
    const double power = kExactPowers[static_cast<std::size_t>(scale)];
    const double product = magnitude * power;
    const double lost = std::fma(magnitude, power, -product);
    double whole = std::floor(product);
    const double rest = product - whole;
    const bool isOdd = static_cast<std::uint64_t>(whole) % 2 != 0;
    if (rest > 0.5 || (rest == 0.5 && (lost > 0 || (lost == 0 && isOdd)))) ++whole;
    return Scientific{static_cast<std::uint64_t>(whole), place, significant};
}

int digitsOf(std::uint64_t value) {
    int count = 0;
    for (; value != 0; value /= 10) ++count;
    return count;
}

Scientific toScientific(double magnitude, int significant) {
    const auto quick = quickScientific(magnitude, significant);
    return quick ? *quick : libraryScientific(magnitude, significant);
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
