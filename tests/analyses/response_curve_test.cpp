// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/response_curve.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analyses/form_dd3.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> told(const ResponseCurve& curve) {
    std::vector<std::string> rows;
    for (const auto& row : curve.rows())
        rows.push_back(std::string(row.label) + "=" + row.data.str());
    return rows;
}

ResponsePairs inReverse() {
    ResponsePairs pairs;
    pairs.frequency = {15000, 12000, 8000, 4000, 1000, 400, 125, 30};
    pairs.level = {-30, -12, -5, 0, 0, 1, 15, -151};
    return pairs;
}

TEST(ResponseCurve, RowsStandInTheOrderOfTheTonesWhateverTheOrderOfThePairs) {
    EXPECT_THAT(told(ResponseCurve::of(inReverse())),
                ElementsAre("30=-0.1", "125=16.5", "400=15.1", "1K=15", "4K=15", "8K=14.5",
                            "12K=13.8", "15K=12"));
}

TEST(ResponseCurve, SevenPairsGiveSevenRowsWithoutAGap) {
    ResponsePairs pairs = inReverse();
    pairs.frequency[5] = 0;
    EXPECT_THAT(told(ResponseCurve::of(pairs)), ElementsAre("30=-0.1", "125=16.5", "1K=15", "4K=15",
                                                            "8K=14.5", "12K=13.8", "15K=12"));
}

TEST(ResponseCurve, APairThatIsNoToneIsDropped) {
    ResponsePairs pairs = inReverse();
    pairs.frequency[0] = 15001;
    pairs.frequency[1] = -12000;
    EXPECT_THAT(told(ResponseCurve::of(pairs)),
                ElementsAre("30=-0.1", "125=16.5", "400=15.1", "1K=15", "4K=15", "8K=14.5"));
    EXPECT_EQ(ResponseCurve::resultsIn(pairs), 8);
}

TEST(ResponseCurve, OfTwoPairsOfOneToneTheSecondHasTheLabel) {
    ResponsePairs pairs;
    pairs.frequency = {1000, 30, 1000, 0, 0, 0, 0, 0};
    pairs.level = {10, 20, 30, 0, 0, 0, 0, 0};
    EXPECT_THAT(told(ResponseCurve::of(pairs)), ElementsAre("30=17", "=16", "1K=18"));
    EXPECT_EQ(ResponseCurve::resultsIn(pairs), 3);
}

TEST(ResponseCurve, NothingMeasuredHasNoRowsAndNoResults) {
    EXPECT_THAT(told(ResponseCurve::of({})), IsEmpty());
    EXPECT_EQ(ResponseCurve::resultsIn({}), 0);
}

TEST(ResponseCurve, TheEmptyCurveStandsAtTenWithItsTwoHighestTonesInLowerCase) {
    EXPECT_THAT(told(ResponseCurve::empty()), ElementsAre("30=10", "125=10", "400=10", "1K=10",
                                                          "4K=10", "8K=10", "12k=10", "15k=10"));
}

TEST(ResponseCurve, AbsurdLevelsAreShownAsTheyAre) {
    ResponsePairs pairs;
    pairs.frequency[0] = 30;
    pairs.level[0] = 2147483647;
    EXPECT_THAT(told(ResponseCurve::of(pairs)), ElementsAre("30=214748379.7"));
}

TEST(ResponseCurve, AShownCurveMakesTheChartAsLongAsItself) {
    RackBench bench;
    display::Chart& chart = bench.program.Form_Dd3->Graph1;
    ResponseCurve::empty().show(chart);
    EXPECT_EQ(chart.rowCount(), 8);
    ResponsePairs pairs;
    pairs.frequency = {1000, 30, 1000, 0, 0, 0, 0, 0};
    ResponseCurve::of(pairs).show(chart);
    EXPECT_EQ(chart.rowCount(), 3);
    EXPECT_EQ(chart.dataAt(2, 1), "15");
    // The label of the previous curve is gone.
    EXPECT_EQ(chart.rowLabelAt(2), "");
    EXPECT_EQ(chart.rowLabelAt(3), "1K");
}

TEST(ResponseCurve, ThePointerIsToldToneAndLevel) {
    RackBench bench;
    display::Chart& chart = bench.program.Form_Dd3->Graph1;
    ResponseCurve::of(inReverse()).show(chart);
    EXPECT_EQ(chart.tellCell(8, 1), "15K Hz: -3.0 dB");
    EXPECT_EQ(chart.tellCell(2, 1), "125 Hz: 1.5 dB");
    EXPECT_THAT(chart.reading(), testing::StartsWith("30 Hz: -15.1 dB, 125 Hz: 1.5 dB, "));
    EXPECT_THAT(chart.reading(), testing::EndsWith("15K Hz: -3.0 dB"));
}

TEST(ResponseCurve, WhatWasNeverMeasuredIsToldSoInTheLanguageOfThePanels) {
    for (const auto& [id, words] : {std::pair{RackBench::kEnglish, "not measured"},
                                    std::pair{RackBench::kSpanish, "sin medir"}}) {
        RackBench bench(id);
        bench.start();
        for (display::Chart* chart : {&bench.forms.formDd3.Graph1, &bench.forms.form7.Graph1}) {
            EXPECT_EQ(chart->note, words);
            EXPECT_TRUE(chart->dashed);
        }
        const display::Chart& chart = bench.forms.formDd3.Graph1;
        EXPECT_EQ(chart.tellCell(2, 1), std::string("125 Hz: ") + words);
        EXPECT_EQ(chart.reading(), words);
        ResponseCurve::of(inReverse()).show(bench.forms.formDd3.Graph1);
        EXPECT_EQ(chart.note, "");
        EXPECT_FALSE(chart.dashed);
    }
}

}  // namespace
}  // namespace hmonitor::test
