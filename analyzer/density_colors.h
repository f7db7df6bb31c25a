// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "display/colour.h"

namespace hmonitor {

/// The colour of a share of sweeps: entry v stands for v in 5280 sweeps.
using DensityColors = std::array<display::Colour, 1281>;

/// Five ramps of 256 entries, red over magenta, blue, cyan and green to yellow, and black at the
/// end: levels seen in 24 percent of the sweeps or more leave a hole in the map.
constexpr DensityColors buildPalette() {
    constexpr std::uint32_t kFull = 255;
    DensityColors colors{};
    const auto put = [&colors](std::uint32_t at, std::uint32_t red, std::uint32_t green,
                               std::uint32_t blue) {
        colors[at] = display::Colour{red | green << 8 | blue << 16};
    };
    for (std::uint32_t i = 0; i <= kFull; ++i) {
        put(i, kFull, 0, i);
        put(256 + i, kFull - i, 0, kFull);
        put(512 + i, 0, i, kFull);
        put(768 + i, 0, kFull, kFull - i);
        put(1024 + i, i, kFull, 0);
    }
    put(1280, 0, 0, 0);
    return colors;
}

/// The number of sweeps of which entry 1 is one: the scale of the map.
inline constexpr double kSweepsOfScale = 5280.0;
/// The last entry of the table.
inline constexpr double kMostCommon = 1280.0;

}  // namespace hmonitor
