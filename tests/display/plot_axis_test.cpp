// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/plot_axis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace display::test {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The labels of all lines, in order.
std::vector<std::string> wordsOf(const std::vector<PlotTick>& ticks) {
    std::vector<std::string> words;
    for (const PlotTick& tick : ticks) words.push_back(tick.words);
    return words;
}

TEST(PlotAxes, ALinearAxisDividesItsRangeEvenly) {
    const PlotAxis axis{AxisKind::Linear, 50, 100};
    EXPECT_DOUBLE_EQ(axis.shareOf(50), 0);
    EXPECT_DOUBLE_EQ(axis.shareOf(75), 0.5);
    EXPECT_DOUBLE_EQ(axis.shareOf(110), 1.2);
    EXPECT_DOUBLE_EQ(axis.valueAt(0.25), 62.5);
}

TEST(PlotAxes, ALogarithmicAxisGivesEachDecadeTheSameRoom) {
    const PlotAxis axis{AxisKind::Log, 10, 100000};
    EXPECT_NEAR(axis.shareOf(100), 0.25, 1e-12);
    EXPECT_NEAR(axis.shareOf(10000), 0.75, 1e-12);
    EXPECT_NEAR(axis.valueAt(0.5), 1000, 1e-9);
    EXPECT_LT(axis.shareOf(0), -100) << "0 lies below every foot";
    EXPECT_LT(axis.shareOf(-3), -100);
}

TEST(PlotAxes, ARangeOfNoLengthPutsAllAtItsFoot) {
    for (const AxisKind kind : {AxisKind::Linear, AxisKind::Log, AxisKind::Moments}) {
        const PlotAxis axis{kind, 5, 5};
        EXPECT_EQ(axis.shareOf(7), 0);
        EXPECT_EQ(axis.valueAt(0.5), 5);
        EXPECT_THAT(roundTicks(axis, 5), IsEmpty());
    }
}

TEST(PlotAxes, LinesStandAtRoundValuesWithTheDecimalsThatTheyNeed) {
    EXPECT_THAT(wordsOf(roundTicks({AxisKind::Linear, 0, 100}, 5)),
                ElementsAre("0", "20", "40", "60", "80", "100"));
    EXPECT_THAT(wordsOf(roundTicks({AxisKind::Linear, 6, 12}, 6)),
                ElementsAre("6", "7", "8", "9", "10", "11", "12"));
    EXPECT_THAT(wordsOf(roundTicks({AxisKind::Linear, -0.3, 0.3}, 6)),
                ElementsAre("-0.3", "-0.2", "-0.1", "0.0", "0.1", "0.2", "0.3"));
    EXPECT_THAT(wordsOf(roundTicks({AxisKind::Linear, 8.02, 8.09}, 4)),
                ElementsAre("8.02", "8.04", "8.06", "8.08"));
}

TEST(PlotAxes, NoLineOfADecibelAxisStandsBetweenWholeDecibels) {
    EXPECT_THAT(wordsOf(roundTicks({AxisKind::Decibel, -61.5, -59.5}, 20)),
                ElementsAre("-61", "-60"));
    EXPECT_THAT(wordsOf(roundTicks({AxisKind::Decibel, 60, 100}, 5)),
                ElementsAre("60", "70", "80", "90", "100"));
}

TEST(PlotAxes, ALogarithmicAxisShowsDecadesAndBetweenThemWhatFits) {
    EXPECT_THAT(wordsOf(roundTicks({AxisKind::Log, 0.1, 100}, 4)),
                ElementsAre("0.1", "1", "10", "100"));
    EXPECT_THAT(wordsOf(roundTicks({AxisKind::Log, 1, 20}, 8)),
                ElementsAre("1", "2", "5", "10", "20"));
    EXPECT_THAT(roundTicks({AxisKind::Log, 0, 20}, 8), IsEmpty()) << "has no logarithm";
}

TEST(PlotAxes, AtMostSoManyPartsWhateverTheRange) {
    for (double span = 1e-6; span < 1e9; span *= 1.7) {
        EXPECT_LE(roundTicks({AxisKind::Linear, 3, 3 + span}, 6).size(), 7u) << span;
    }
}

}  // namespace display::test
