// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace display {

/// A 24-bit colour, blue byte first: 0x0000ff is red, 0xff0000 is blue.
struct Colour {
    std::uint32_t bgr = 0;

    constexpr int red() const { return static_cast<int>(bgr & 0xff); }
    constexpr int green() const { return static_cast<int>(bgr >> 8 & 0xff); }
    constexpr int blue() const { return static_cast<int>(bgr >> 16 & 0xff); }
    constexpr bool operator==(const Colour&) const = default;
};

inline constexpr Colour kBlack{0x000000};
inline constexpr Colour kWhite{0xffffff};
inline constexpr Colour kRed{0x0000ff};
inline constexpr Colour kGreen{0x00ff00};
inline constexpr Colour kCyan{0xffff00};

}  // namespace display
