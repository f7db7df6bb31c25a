// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

// Numbers in the files that a library reads and writes: always a point, never a locale.
namespace hm16 {

// Decimal text with at most `decimals` places, rounded, trailing zeros cut, never "-0" and never an
// exponent. Something that is no number gives "0".
std::string decimalText(double value, int decimals);

// The number that the whole of `text` is, blanks around it allowed; nothing when it is something
// else. Takes a sign, digits and one point; no exponent, no hexadecimal, no "inf".
std::optional<double> numberIn(std::string_view text);

// The same for a number that may carry a power of ten as well, "1.2e6", or one of the letters k, M
// and G behind it, "2.4M".
std::optional<double> scaledNumberIn(std::string_view text);

// `text` in double quotes, as a sentence names what somebody wrote.
std::string inQuotes(std::string_view text);

// `text` without blanks, tabs and line ends around it.
std::string_view trimmed(std::string_view text);

}  // namespace hm16
