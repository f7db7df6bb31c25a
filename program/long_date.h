// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/numbers.h"
#include "display/desktop.h"

namespace hmonitor {

/// Today's date for the head of pages, in the user's language: weekday, day of the month, comma,
/// month, year ("Monday 4, May 2026").
inline std::string longDate(const display::Desktop& desktop) {
    const display::Date today = desktop.today();
    return desktop.weekdayName(today.weekday) + " " + shortText(today.day).str() + ", " +
           desktop.monthName(today.month - 1) + " " + shortText(today.year).str();
}

}  // namespace hmonitor
