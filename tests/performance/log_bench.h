// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "performance/form15.h"
#include "performance/form4.h"
#include "performance/form_d4a.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// The measuring rack with three days of logs, and the windows of the log.
class LogBench : public RackBench {
 public:
    explicit LogBench(int languageId = kEnglish, Brand brand = Brand::Marvenia);

    /// Opens the log by the key of the analyses panel.
    void open();
    /// Opens the charts, and from them the text of the chosen day.
    void openText();
    /// Chooses a day in `Combo1` as the user does.
    void choose(std::string_view day);

    hmonitor::Form_D4A& charts;
    hmonitor::Form15& text;
    hmonitor::Form4& page;
};

/// The bytes of a log: hours from `first` on with lines "HOUR 1 2 3 4 5 6 7 8 9 ", each field plus
/// the hour's number.
std::string countingLog(int first, int hours);

}  // namespace hmonitor::test
