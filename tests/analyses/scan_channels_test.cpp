// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/scan_channels.h"

#include <gtest/gtest.h>

#include "analyses/scan_option.h"
#include "tests/analyses/scan_table.h"

namespace hmonitor::test {
namespace {

void expectWalk(const TableFill& table, const ScanChannels& channels, ScanWalk walk) {
    SCOPED_TRACE(table.fill + " " + nameOf(table.spacing));
    ASSERT_EQ(channels.count(), static_cast<int>(table.cells.size()));
    for (int i = 0; i < channels.count(); ++i) {
        const TableCell& cell = table.cells[static_cast<std::size_t>(i)];
        ASSERT_EQ(channels.at(i), cell.hundredths);
        const ScanCell next = walk.next();
        ASSERT_EQ(next.row, cell.cell.row) << i;
        ASSERT_EQ(next.column, cell.cell.column) << i;
    }
}

TEST(ScanChannels, ClearedCellsAreThoseOfTheSecondCalculation) {
    for (const ScanSpacing spacing : kAllSpacings) {
        expectWalk(tableFill("clear", spacing), clearedCells(spacing),
                   ScanWalk(0, scanOption(spacing).columns));
    }
}

TEST(ScanChannels, OptionChannelsAreThoseOfTheSecondCalculation) {
    for (const ScanSpacing spacing : kAllSpacings) {
        const ScanOption& option = scanOption(spacing);
        expectWalk(tableFill("option", spacing), optionChannels(spacing),
                   ScanWalk(option.startColumn, option.columns));
    }
}

TEST(ScanChannels, SweptChannelsOfEveryFrameAreThoseOfTheSecondCalculation) {
    for (const ScanSpacing spacing : kAllSpacings) {
        for (int limit = 8950;; limit = std::min(limit + 200, kBandStop)) {
            const std::string name =
                "frame" + std::to_string(limit / 100) + "." + std::to_string(limit / 10 % 10);
            expectWalk(tableFill(name, spacing), sweptChannels(spacing, limit),
                       ScanWalk(2, scanOption(spacing).columns));
            if (limit == kBandStop) break;
        }
    }
}

TEST(ScanChannels, MeasuredChannelsAreThoseOfTheSecondCalculation) {
    for (const ScanSpacing spacing : kAllSpacings)
        expectWalk(tableFill("run", spacing), measuredChannels(spacing), ScanWalk(2, 5));
}

TEST(ScanChannels, TheDriverTakesThemInTenthsOfMhzWithoutAnError) {
    const ScanChannels quarter = measuredChannels(ScanSpacing::Quarter);
    EXPECT_EQ(quarter.tenths(0), 875.f);
    EXPECT_EQ(quarter.tenths(1), 877.5f);
    const ScanChannels all = measuredChannels(ScanSpacing::All);
    for (int i = 0; i < all.count(); ++i) EXPECT_EQ(all.tenths(i), 875.f + static_cast<float>(i));
}

TEST(ScanChannels, AnEndBeforeTheStartIsNoChannel) {
    EXPECT_EQ((ScanChannels{8750, 8740, 20}.count()), 0);
    EXPECT_EQ((ScanChannels{8750, 8750, 20}.count()), 1);
}

TEST(ScanOption, RowsAreLabelledFromTheirOwnBeginnings) {
    EXPECT_EQ(rowMhz(scanOption(ScanSpacing::Odd), 1), "87.1");
    EXPECT_EQ(rowMhz(scanOption(ScanSpacing::Odd), 21), "107.1");
    EXPECT_EQ(rowMhz(scanOption(ScanSpacing::Even), 1), "87.0");
    EXPECT_EQ(rowMhz(scanOption(ScanSpacing::Quarter), 14), "100.0");
    EXPECT_EQ(rowMhz(scanOption(ScanSpacing::All), 21), "107.0");
}

}  // namespace
}  // namespace hmonitor::test
