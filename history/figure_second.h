// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "base/figures.h"
#include "history/state.h"

namespace history {

/// Room for the registry's figures, with some to come.
inline constexpr std::size_t kMostFigures = 32;

/// How many figures are kept: all of the registry, by their place in it.
std::size_t figureCount();

/// To which a figure is stored, exact in decimals (0.01, not the float beside it).
double stepOf(const figures::Figure& figure);

/// What one figure was in one second.
struct FigureSecond {
    float value = 0;                   ///< by the figure's kind; counts where knownMs is over 0
    std::uint16_t knownMs = 0;         ///< 0 to 1000
    State state = State::NotMeasured;  ///< Known exactly where knownMs is 1000
};

/// One second of one station. `epoch` tells apart seconds that a clock which was set has twice.
struct Second {
    std::int64_t t = 0;  ///< seconds since 1970, UTC
    int station = 0;     ///< kHz
    int epoch = 0;
    std::array<FigureSecond, kMostFigures> figures{};
};

/// Joins two records of one second: of each figure what was known for longer.
void joinSecond(Second& into, const Second& other);

}  // namespace history
