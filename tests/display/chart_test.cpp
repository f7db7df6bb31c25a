// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/chart.h"

#include <gtest/gtest.h>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

class Charts : public testing::Test {
 protected:
    Charts() { form.show(); }
    void put(int row, int column, std::string_view text) {
        chart.row = row;
        chart.column = column;
        chart.data(text);
    }
    HeadlessDesktop desktop;
    SampleForm form{desktop};
    Chart& chart = form.Chart1;
};

TEST_F(Charts, AreAddressedByRowAndColumnFromOne) {
    put(2, 1, "12.5");
    chart.rowLabel("98.5");
    EXPECT_EQ(chart.dataAt(2, 1), "12.5");
    EXPECT_EQ(chart.rowLabelAt(2), "98.5");
    EXPECT_EQ(chart.dataAt(1, 1), "");
    EXPECT_EQ(chart.dataAt(0, 1), "");
    EXPECT_EQ(chart.dataAt(1, 0), "");
    EXPECT_EQ(chart.dataAt(99, 99), "");
    EXPECT_EQ(chart.rowLabelAt(99), "");
}

TEST_F(Charts, EqualDataDrawNothing) {
    put(1, 1, "5");
    const auto before = chart.revision();
    put(1, 1, "5");
    chart.rowCount(4);
    chart.columnCount(1);
    EXPECT_EQ(chart.revision(), before);
    put(1, 1, "6");
    EXPECT_GT(chart.revision(), before);
}

TEST_F(Charts, CellsBeyondTheShownRangeAreKept) {
    put(4, 1, "44");
    put(7, 3, "73");
    chart.rowCount(2);
    EXPECT_EQ(chart.rowCount(), 2);
    chart.rowCount(8);
    chart.columnCount(3);
    EXPECT_EQ(chart.dataAt(4, 1), "44");
    EXPECT_EQ(chart.dataAt(7, 3), "73");
}

TEST_F(Charts, OddAddressesAndCountsAreIgnored) {
    const auto before = chart.revision();
    put(0, 1, "x");
    put(1, -3, "x");
    chart.row = 0;
    chart.rowLabel("x");
    chart.rowCount(-1);
    chart.columnCount(-1);
    EXPECT_EQ(chart.revision(), before);
    EXPECT_EQ(chart.rowCount(), 4);
}

TEST_F(Charts, AValueIsTheNumberThatTheDataBeginWith) {
    put(1, 1, " 12.5 dB");
    put(2, 1, "-3");
    put(3, 1, "nan");
    put(4, 1, "");
    EXPECT_EQ(chart.valueAt(1, 1), 12.5);
    EXPECT_EQ(chart.valueAt(2, 1), -3);
    EXPECT_FALSE(chart.valueAt(3, 1).has_value());
    EXPECT_FALSE(chart.valueAt(4, 1).has_value());
    put(1, 1, "inf");
    EXPECT_FALSE(chart.valueAt(1, 1).has_value());
}

TEST_F(Charts, ATwinTakesRowsColumnsDataAndLabels) {
    SampleForm other{desktop, "Other"};
    put(3, 1, "33");
    chart.rowLabel("third");
    other.Chart1.take(chart);
    EXPECT_EQ(other.Chart1.rowCount(), 4);
    EXPECT_EQ(other.Chart1.columnCount(), 1);
    EXPECT_EQ(other.Chart1.dataAt(3, 1), "33");
    EXPECT_EQ(other.Chart1.rowLabelAt(3), "third");
}

TEST_F(Charts, ALabelStandsUnderItsRowOrUnderAColumnOfIt) {
    EXPECT_EQ(chart.rowLabelColumnAt(2), 0);
    EXPECT_EQ(chart.rowLabelColumnAt(0), 0);
    EXPECT_EQ(chart.rowLabelColumnAt(99), 0);
    chart.row = 2;
    chart.rowLabelColumn(3);
    EXPECT_EQ(chart.rowLabelColumnAt(2), 3);
    const auto before = chart.revision();
    chart.rowLabelColumn(3);
    chart.rowLabelColumn(-1);
    chart.row = 0;
    chart.rowLabelColumn(1);
    EXPECT_EQ(chart.revision(), before);
    chart.reset();
    EXPECT_EQ(chart.rowLabelColumnAt(2), 0);
}

TEST_F(Charts, ATwinTakesOverThatNothingWasMeasuredAndAResetForgetsIt) {
    SampleForm other{desktop, "Other"};
    chart.dashed = true;
    chart.note = "not measured";
    chart.row = 2;
    chart.rowLabelColumn(3);
    other.Chart1.take(chart);
    EXPECT_TRUE(other.Chart1.dashed);
    EXPECT_EQ(other.Chart1.note, "not measured");
    EXPECT_EQ(other.Chart1.rowLabelColumnAt(2), 3);
    other.Chart1.reset();
    EXPECT_FALSE(other.Chart1.dashed);
    EXPECT_EQ(other.Chart1.note, "");
}

TEST_F(Charts, SeriesColoursRepeatAfterTen) {
    chart.seriesColour(2, kRed);
    EXPECT_EQ(chart.seriesColourAt(2), kRed);
    EXPECT_EQ(chart.seriesColourAt(12), kRed);
    EXPECT_EQ(chart.seriesColourAt(1), kCyan);
}

}  // namespace
}  // namespace display::test
