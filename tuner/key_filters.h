// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// The upper case of a letter of the files' code page; any other character stays.
char32_t upperCase(char32_t character);

/// Whether a field of digits takes the character: digits and backspace.
bool isDigitKey(char32_t character);

/// Whether the field of a signed decimal number takes it: digits, point, signs and backspace.
bool isCorrectionKey(char32_t character);

}  // namespace hmonitor
