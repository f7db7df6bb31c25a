// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace base {

/// A finite number as a person reads it: `mantissa` times ten to the minus `scale`. The mantissa
/// has no trailing zero, unless it is 0 itself.
struct Decimal {
    bool negative = false;
    std::uint64_t mantissa = 0;
    int scale = 0;
};

/// Most decimals that a text shows: with "-0." they fill a SmallText.
inline constexpr int kMostDecimals = 28;

/// `value` to at most `significant` digits (1 to 17) and `kMostDecimals` decimals. The rounding is
/// that of the exact binary value; a tie goes to the even digit. `value` is finite.
Decimal toDecimal(double value, int significant);

/// The mantissa that `number` has with exactly `decimals` decimals, halves away from zero.
/// Needs a number of at most 1e15 and at most 3 decimals, else the result would not fit.
std::uint64_t mantissaAt(const Decimal& number, int decimals);

/// Ten to the power of 0 to 19.
std::uint64_t powerOfTen(int exponent);

/// How many digits stand before the point: 12.5 has 2, 0.05 has -1.
int wholeDigits(const Decimal& number);

}  // namespace base
