// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "core/stored_frequency.h"

namespace hmonitor {

/// The frequency typed on the tuner keypad (UTF-8), without a point in units of 100 kHz: "981" is
/// 98.1 MHz, "9815" its half step. None outside the band, 875 to 1080.
std::optional<StoredFrequency> keypadFrequency(std::string_view typed);

/// True if these digits, perhaps with more after them, are a frequency for keypadFrequency().
bool canBecomeTunable(std::string_view typed);

}  // namespace hmonitor
