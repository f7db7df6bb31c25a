// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include "tests/analyses/scan_table.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// The measuring rack with the band scanner open, on a unit of some version. Each channel has its
/// own level, so that a cell tells which channel it holds.
class ScannerBench : public testing::Test {
 protected:
    ScannerBench();

    /// Opens the window by its key, and clears the journal of driver calls.
    void open(float version);

    static int levelAt(int hundredths) { return 30 + hundredths / 5 % 61; }

    void choose(ScanSpacing spacing);
    display::Option& option(ScanSpacing spacing);
    void click(display::Key& key);
    /// Clicks the run key; `during` is called while each channel is measured.
    void run(std::function<void(float)> during = {});
    /// Delivers frames, one at each tick.
    void frames(int count);

    /// Expects that each cell of the table holds its channel's level, on both charts.
    void expectLevels(const TableFill& table, int added = 0);
    std::string storedLevels(const TableFill& table, int added = 0) const;
    std::vector<std::string> supers(const TableFill& table) const;
    bool rackEnabled() const;
    bool rackDisabled() const;
    int callsOf(std::string_view beginning);

    RackBench bench;
    Form_BandSCanner& scanner;
    Form_PrintBandScan& page;
};

}  // namespace hmonitor::test
