// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/chart.h"

#include <gtest/gtest.h>

#include "display/headless/headless_desktop.h"

namespace hmonitor::test {
namespace {

using display::Chart;

class ChartForm final : public display::Form {
 public:
    explicit ChartForm(display::Desktop& desktop) : Form(desktop, "ChartForm") {}
    Chart one{*this, "one"};
    Chart other{*this, "other"};

 protected:
    void layOut() override {
        place(one, {0, 0, 100, 100});
        place(other, {0, 0, 100, 100});
    }
};

class ChartTest : public testing::Test {
 protected:
    ChartTest() { form.load(); }
    display::HeadlessDesktop desktop;
    ChartForm form{desktop};
    Chart& chart = form.one;

    void put(int row, int column, std::string_view text) {
        chart.row = row;
        chart.column = column;
        chart.data(text);
    }
};

TEST_F(ChartTest, KeepsCellsOutOfTheShownRange) {
    chart.rowCount(2);
    chart.columnCount(2);
    put(5, 7, "12");
    EXPECT_EQ(chart.rowCount(), 2);
    EXPECT_EQ(chart.columnCount(), 2);
    EXPECT_EQ(chart.dataAt(5, 7), "12");
    chart.rowCount(1);
    EXPECT_EQ(chart.dataAt(5, 7), "12");
}

TEST_F(ChartTest, GivesTheNumberOfACell) {
    put(1, 1, " 12.5");
    put(1, 2, "-3");
    put(1, 3, "abc");
    put(1, 4, "inf");
    EXPECT_EQ(chart.valueAt(1, 1), 12.5);
    EXPECT_EQ(chart.valueAt(1, 2), -3);
    EXPECT_FALSE(chart.valueAt(1, 3));
    EXPECT_FALSE(chart.valueAt(1, 4));
    EXPECT_FALSE(chart.valueAt(1, 5));
    EXPECT_FALSE(chart.valueAt(9, 1));
    EXPECT_FALSE(chart.valueAt(0, 0));
}

TEST_F(ChartTest, AnEqualValueDrawsNothing) {
    put(1, 1, "12");
    const auto before = chart.revision();
    put(1, 1, "12");
    EXPECT_EQ(chart.revision(), before);
    put(1, 1, "13");
    EXPECT_GT(chart.revision(), before);
}

TEST_F(ChartTest, ATwinTakesRowsColumnsDataAndLabels) {
    chart.rowCount(3);
    chart.columnCount(2);
    put(3, 2, "55");
    chart.rowLabel("89.1");
    put(30, 9, "7");
    form.other.take(chart);
    EXPECT_EQ(form.other.rowCount(), 3);
    EXPECT_EQ(form.other.columnCount(), 2);
    EXPECT_EQ(form.other.dataAt(3, 2), "55");
    EXPECT_EQ(form.other.rowLabelAt(3), "89.1");
    EXPECT_EQ(form.other.dataAt(30, 9), "7");
}

TEST_F(ChartTest, ColoursBeginAnewBehindTheTenth) {
    chart.seriesColour(2, display::kRed);
    EXPECT_EQ(chart.seriesColourAt(2), display::kRed);
    EXPECT_EQ(chart.seriesColourAt(12), display::kRed);
    EXPECT_EQ(chart.seriesColourAt(1), display::kCyan);
}

TEST_F(ChartTest, ALoadPutsEverythingBack) {
    chart.rowCount(3);
    put(3, 2, "55");
    chart.rowLabel("x");
    chart.seriesColour(1, display::kRed);
    chart.insets = Chart::Insets{1, 2, 3, 4};
    form.unload();
    form.load();
    EXPECT_EQ(chart.rowCount(), 0);
    EXPECT_EQ(chart.dataAt(3, 2), "");
    EXPECT_EQ(chart.rowLabelAt(3), "");
    EXPECT_EQ(chart.seriesColourAt(1), display::kCyan);
    EXPECT_EQ(chart.insets.get(), Chart::Insets{});
}

}  // namespace
}  // namespace hmonitor::test
