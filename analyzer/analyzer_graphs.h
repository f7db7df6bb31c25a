// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "analyzer/density.h"
#include "analyzer/density_colors.h"
#include "core/int16.h"
#include "display/canvas.h"

namespace hmonitor {

class Class1;

/// The graph of the density map: 800 columns of 25 kHz, 70 rows of 1 dB.
Class1 densityGraph(display::Canvas& canvas, Int16 stepKhz);
/// The graph of one sweep as bars.
Class1 sweepGraph(display::Canvas& canvas, Int16 columns, Int16 stepKhz, Int16 skipLabels);
/// -1 for more than 25 columns, else 0
Int16 skipLabelsFor(int lastIndex);

inline constexpr int kNotSeen = -1;
/// The entry of the colour table for a cell's count: the count's share of the sweeps in 5280ths,
/// halves to even. kNotSeen below one 5280th. `sweeps` is not 0.
int densityEntry(double counted, std::int32_t acquisitions);
/// How a cell of that entry stands against others in the same pixel: the more common is shown, but
/// the black of the last entry gives way to all colours, so that none is lost in a narrow window.
int weightOf(int entry);

/// Level i (from 1) of the simulated spectrum of a session without one: a noise floor with a peak
/// every 100 steps. `random` from 0 up to 1.
double madeUpLevel(int i, double random);

}  // namespace hmonitor
