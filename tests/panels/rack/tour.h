// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <map>
#include <string>

namespace hmonitor::test {

/// What is shown, by the names of the places.
using Sights = std::map<std::string, std::string>;

/// One stop of the tour: an output of the unit keeps a value for 13 seconds.
struct Stop {
    float said;
    Sights sights;
};

/// The two outputs of HM_DataRDS, counted after the sixteen of HM_Data.
inline constexpr int kRdsError = 17;
inline constexpr int kRdsLevel = 18;

/// Visits the stops of one output, each on a new rack that has shown an ordinary station for a
/// second. The places that the stop lists show what it says, all others still the ordinary station.
void visit(int output, std::initializer_list<Stop> stops);

}  // namespace hmonitor::test
