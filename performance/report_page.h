// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/page.h"

namespace hmonitor {

/// Lines of text with tab characters on one page of a paper, in a fixed-pitch font: tab stops
/// stand every eight characters, and the size is the largest, up to `points`, at which the longest
/// line fits between the margins. So it is the same on every printer.
display::PageDocument composeReportPage(const std::vector<std::string>& lines,
                                        const display::Paper& paper, float points);

/// The line with blanks up to the next tab stop in place of each tab character.
std::string tabsExpanded(std::string_view line);

}  // namespace hmonitor
