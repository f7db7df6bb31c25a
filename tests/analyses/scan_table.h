// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "analyses/scan_channels.h"

namespace hmonitor::test {

/// One cell of the table that scan_cells.py calculates.
struct TableCell {
    ScanCell cell;
    int hundredths;  ///< of a MHz
};

/// The cells of one way of filling the chart, in the order of writing.
struct TableFill {
    std::string fill;
    ScanSpacing spacing;
    std::vector<TableCell> cells;
};

const std::vector<TableFill>& scanTable();
/// The line of that name; throws if the table has none.
const TableFill& tableFill(const std::string& fill, ScanSpacing spacing);

const char* nameOf(ScanSpacing spacing);
inline constexpr ScanSpacing kAllSpacings[] = {ScanSpacing::Odd, ScanSpacing::Even,
                                               ScanSpacing::Quarter, ScanSpacing::All};

}  // namespace hmonitor::test
