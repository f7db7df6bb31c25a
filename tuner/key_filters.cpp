// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/key_filters.h"

namespace hmonitor {

namespace {

constexpr char32_t kBackspace = 8;

bool isBetween(char32_t first, char32_t character, char32_t last) {
    return first <= character && character <= last;
}

}  // namespace

char32_t upperCase(char32_t character) {
    constexpr char32_t kDivision = 0xF7;
    const bool isPlain = isBetween(U'a', character, U'z');
    const bool isAccented = isBetween(0xE0, character, 0xFE) && character != kDivision;
    if (isPlain || isAccented) return character - 0x20;
    switch (character) {
        case 0x161:  // s with caron
        case 0x153:  // oe
        case 0x17E:  // z with caron
            return character - 1;
        case 0xFF:  // y with diaeresis: its capital stands apart
            return 0x178;
        default:
            return character;
    }
}

bool isDigitKey(char32_t character) {
    return isBetween(U'0', character, U'9') || character == kBackspace;
}

bool isCorrectionKey(char32_t character) {
    return isDigitKey(character) || character == U'.' || character == U'+' || character == U'-';
}

}  // namespace hmonitor
