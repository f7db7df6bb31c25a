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
/// A value over 8740 in tenths of a megahertz counts as typed without the point. Digits after the
/// half step stay in the text; the record cuts those for which it has no room.
std::optional<SmallText> recordFrequency(std::string_view typed);

/// A frequency in units of 100 kHz for the editor, in MHz: 875 is "87.5", 1025 "102.5", with a
/// further "5" for the half step.
SmallText megahertzText(const StoredFrequency& frequency);

}  // namespace hmonitor
