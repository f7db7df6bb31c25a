// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/page.h"

namespace hmonitor {

/// Prints lines of text with tab characters on one page, in a fixed-pitch font: tab stops are every
/// eight characters, and the size is the largest, up to `points`, at which the longest line fits
/// between the margins. So the page is the same on every printer.
display::PageDocument composeReportPage(const std::vector<std::string>& lines,
                                        const display::Paper& paper, float points);

/// The line with each tab replaced by blanks up to the next tab stop.
std::string tabsExpanded(std::string_view line);

}  // namespace hmonitor
