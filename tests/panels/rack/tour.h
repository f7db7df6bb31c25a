// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <map>
#include <string>

namespace hmonitor::test {

/// What places show, by their names.
using Sights = std::map<std::string, std::string>;

/// One stop of the tour: an output of the unit has a value for 13 seconds.
struct Stop {
    float said;
    Sights sights;
};

/// The two outputs of the RDS call, after the sixteen.
inline constexpr int kRdsError = 17;
inline constexpr int kRdsLevel = 18;

/// Visits the stops of one output, each on a rack of its own that has shown an ordinary station for
/// a second: the places of the stop show what it says, and every other place still shows the
/// ordinary station.
void visit(int output, std::initializer_list<Stop> stops);

}  // namespace hmonitor::test
