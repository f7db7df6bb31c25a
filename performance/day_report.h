// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hmonitor {

/// The text report of one day, line by line with its tab characters (UTF-8). It reads the log
/// anew and as text: an absent figure prints as the "A" that stands there. `bytes` of a log that
/// is gone are none, and only the heads are printed.
std::vector<std::string> dayReport(std::string_view bytes, std::string_view day,
                                   std::string_view brand);

/// A value cut to the report's width: four characters, three where the fourth is a point.
std::string_view shortened(std::string_view value);

}  // namespace hmonitor
