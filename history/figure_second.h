// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "base/figures.h"
#include "history/state.h"

namespace history {

/// Capacity for the figures of the registry, with room for some more.
inline constexpr std::size_t kMostFigures = 32;

/// The number of figures that are recorded: all of the registry, by their index in it.
std::size_t figureCount();

/// The step in which a figure is stored, as an exact decimal (0.01, not the nearest float).
double stepOf(const figures::Figure& figure);

/// The value of one figure in one second.
struct FigureSecond {
    float value = 0;                   ///< by the figure's kind; valid if knownMs is over 0
    std::uint16_t knownMs = 0;         ///< 0 to 1000
    State state = State::NotMeasured;  ///< Known exactly if knownMs is 1000
};

/// One second of one station. When the clock was set back, `epoch` tells equal times apart.
struct Second {
    std::int64_t t = 0;  ///< seconds since 1970, UTC
    int station = 0;     ///< kHz
    int epoch = 0;
    std::array<FigureSecond, kMostFigures> figures{};
};

/// Merges two records of one second: of each figure, the one that was known for longer.
void joinSecond(Second& into, const Second& other);

}  // namespace history
