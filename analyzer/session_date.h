// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/desktop.h"

namespace hmonitor {

/// A local date and time of day as days since 30 December 1899. It is what the clock on the wall
/// says, so that no change to or from summer time moves a date that was stored.
double serialDate(const display::Date& date);
/// The date and time to the nearest second. Beyond the years 100 to 9999 the nearest end.
display::Date dateOfSerial(double serial);

/// "21/Nov/2026 - 18:30 Hs", the month in the user's language.
std::string createdText(const display::Desktop& desktop, double created);

}  // namespace hmonitor
