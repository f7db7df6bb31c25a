// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/page.h"

namespace hmonitor::test {

/// A document as lines of text, one a mark, as a test reads it:
///
///     page 720 720 720 720
///     picture "InkTeskel" 550 -360 3050 40
///     text "RF Power" 8500 400 size 16 bold blue
///     text "0     5" 10300 4000 turned 900 size 12 black
///     line 550 900 550 4000 width 8 b0b0b0
///     polyline "550 900 971 905 " width 70 red
std::vector<std::string> recorded(const display::PageDocument& document);

/// The lines that begin with a text.
std::vector<std::string> beginning(const std::vector<std::string>& lines, const std::string& with);

}  // namespace hmonitor::test
