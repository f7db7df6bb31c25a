// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/desktop.h"

namespace hmonitor {

/// A local date and time as days since 30 December 1899. It is the time shown by the clock, so
/// changes to and from summer time do not move a stored date.
double serialDate(const display::Date& date);
/// The date and time to the nearest second; clamped to the years 100 to 9999.
display::Date dateOfSerial(double serial);

/// "21/Nov/2026 - 18:30 Hs", the month in the user's language.
std::string createdText(const display::Desktop& desktop, double created);

}  // namespace hmonitor
