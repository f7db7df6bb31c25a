// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

// Text becomes numbers here and nowhere else: always a point, whatever the locale.
namespace base {

/// The number that a text begins with: blanks skipped, a sign, digits, one point, digits. No
/// exponent, no hexadecimal, no words; a tab is no blank. Anything else, a lone sign or point
/// included, is 0. Beyond the range of a double the largest one stands.
double valueOf(std::string_view text);

/// The number that the whole of `text` is, blanks, tabs and line ends around it allowed; nothing
/// when it is something else. Takes a sign, digits and one point; no exponent, no hexadecimal, no
/// "inf".
std::optional<double> numberIn(std::string_view text);

/// The same for a number that may carry a power of ten as well, "1.2e6", or one of the letters k, M
/// and G behind it, "2.4M".
std::optional<double> scaledNumberIn(std::string_view text);

}  // namespace base
