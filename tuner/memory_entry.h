// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "core/small_text.h"
#include "core/stored_frequency.h"

namespace hmonitor {

/// The text that a memory record keeps for a frequency typed in the memory editor (UTF-8): "98.1"
/// and "981" give "981", "98.15" and "9815" give "9815". Nothing when the frequency is wrong; the
/// band runs from 87.5 to 108.0 MHz, the upper half step included.
///
/// What is over 8740 in tenths of a megahertz is taken as typed without the point. Digits behind
/// the half step's place stay in the text, and the record cuts what it has no room for.
std::optional<SmallText> recordFrequency(std::string_view typed);

/// A frequency in units of 100 kHz as the editor shows it, in MHz: 875 is "87.5", 1025 "102.5".
/// Two digits below 1000 and three from there stand before the point, one behind it, and a "5"
/// follows with the half step.
SmallText megahertzText(const StoredFrequency& frequency);

}  // namespace hmonitor
