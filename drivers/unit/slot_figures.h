// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

#include "drivers/hm16_more.h"
#include "drivers/unit/readings.h"

namespace hm16 {

// The figures of the registry (base/figures.h), in its order: what a slot of our libraries holds.
std::span<const HM16_FigureInfo> registeredFigures();

// The index of a figure in a slot, by its key; -1 if the registry has none of that name.
int placeOfFigure(std::string_view key);

// Fills a slot's values from two sets of readings of the same 50 ms, one in each audio mode, each
// with the state that the registry's rule gives it.
void putReadings(HM16_Slot& slot, const Readings& leftRight, const Readings& sumDifference);

// Sets the state of a figure of the registry, unless it is already marked as unknown.
void markUnknown(HM16_Slot& slot, std::string_view key, int state);

// Sets the state of every figure except those in `keys`.
void markAllUnknownBut(HM16_Slot& slot, std::span<const std::string_view> keys, int state);

}  // namespace hm16
