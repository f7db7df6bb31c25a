// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "core/stored_frequency.h"

namespace hmonitor {

/// The frequency that digits of the tuner keypad ask for (UTF-8), typed without a point in units
/// of 100 kHz: "981" is 98.1 MHz, "9815" its half step. Nothing outside the band, 875 to 1080.
std::optional<StoredFrequency> keypadFrequency(std::string_view typed);

/// True while further digits, or none, can make these a frequency that keypadFrequency() takes.
bool canBecomeTunable(std::string_view typed);

}  // namespace hmonitor
