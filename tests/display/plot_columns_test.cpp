// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/plot_columns.h"

#include <gtest/gtest.h>

#include <cmath>

namespace display::test {
namespace {

constexpr std::uint8_t kAway = 8;
constexpr std::uint8_t kStale = 9;
constexpr std::uint8_t kNobody = 13;

PlotPoint band(double x, float lowest, float y, float highest, std::uint8_t cause = 0) {
    return {x, y, lowest, highest, cause};
}

/// A series whose points last one second each, from 0 on.
PlotSeries seconds(std::vector<PlotPoint> points) {
    PlotSeries series;
    series.points = std::move(points);
    series.each = 1;
    series.missing = kNobody;
    return series;
}

TEST(PlotColumns, TakeTheLowestAndTheHighestOfAllThatIsInThem) {
    PlotSeries series = seconds({});
    for (int i = 0; i < 1000; ++i)
        series.points.push_back(band(i, -static_cast<float>(i), 5, static_cast<float>(i)));
    const auto columns = columnsOf(series, {AxisKind::Linear, 0, 1000}, 10);
    ASSERT_EQ(columns.size(), 10u);
    EXPECT_EQ(columns[0].highest, 99);
    EXPECT_EQ(columns[9].lowest, -999);
    EXPECT_EQ(columns[4].low, 5);
    EXPECT_EQ(columns[4].high, 5);
    EXPECT_EQ(columns[4].cause, 0);
    EXPECT_TRUE(columns[4].joins);
}

TEST(PlotColumns, OneHighPointAmongManyIsNeverLost) {
    PlotSeries series = seconds({});
    for (int i = 0; i < 86400; ++i)
        series.points.push_back(PlotPoint::of(i, i == 51234 ? 99.f : 60.f));
    const auto columns = columnsOf(series, {AxisKind::Linear, 0, 86400}, 1200);
    for (std::size_t i = 0; i < columns.size(); ++i)
        EXPECT_EQ(columns[i].high, i == 51234 / 72 ? 99.f : 60.f) << i;
}

TEST(PlotColumns, APointStandsForAllOfItsTime) {
    const auto columns =
        columnsOf(seconds({PlotPoint::of(0, 3), PlotPoint::of(1, 7)}), {AxisKind::Linear, 0, 2}, 8);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(columns[i].high, 3) << i;
    for (std::size_t i = 4; i < 8; ++i) EXPECT_EQ(columns[i].high, 7) << i;
    EXPECT_FALSE(columns[0].joins);
    EXPECT_TRUE(columns[4].joins);
}

TEST(PlotColumns, AHoleHasItsCauseAndIsNeverJoined) {
    const auto columns =
        columnsOf(seconds({PlotPoint::of(0, 3), PlotPoint::unknown(1, kAway), PlotPoint::of(2, 4)}),
                  {AxisKind::Linear, 0, 3}, 3);
    EXPECT_TRUE(columns[0].known);
    EXPECT_TRUE(columns[1].hole());
    EXPECT_EQ(columns[1].cause, kAway);
    EXPECT_TRUE(columns[2].known);
    EXPECT_FALSE(columns[2].joins);
}

TEST(PlotColumns, WhereNoPointIsNobodyRecorded) {
    const auto columns =
        columnsOf(seconds({PlotPoint::of(0, 3), PlotPoint::of(5, 4)}), {AxisKind::Linear, 0, 6}, 6);
    for (const std::size_t i : {1u, 2u, 3u, 4u}) {
        EXPECT_TRUE(columns[i].hole()) << i;
        EXPECT_EQ(columns[i].cause, kNobody) << i;
    }
    EXPECT_FALSE(columns[5].joins);
}

TEST(PlotColumns, BeyondWhatWasAskedForNothingIsTold) {
    PlotSeries series = seconds({PlotPoint::of(4, 3)});
    series.from = 3;
    series.to = 6;
    const auto columns = columnsOf(series, {AxisKind::Linear, 0, 10}, 10);
    for (std::size_t i = 0; i < 10; ++i) EXPECT_EQ(columns[i].told, i >= 3 && i < 6) << i;
    EXPECT_TRUE(columns[3].hole());
    EXPECT_TRUE(columns[5].hole());
}

TEST(PlotColumns, AHoleNarrowerThanAColumnKeepsTheCurveAndTellsItsCause) {
    std::vector<PlotPoint> points;
    for (int i = 0; i < 100; ++i)
        points.push_back(i == 55 || i == 56 ? PlotPoint::unknown(i, kStale)
                         : i == 57          ? PlotPoint::unknown(i, kAway)
                                            : PlotPoint::of(i, 1));
    const auto columns = columnsOf(seconds(points), {AxisKind::Linear, 0, 100}, 10);
    EXPECT_TRUE(columns[5].known);
    EXPECT_EQ(columns[5].cause, kStale) << "the longer of the two";
    EXPECT_EQ(columns[4].cause, 0);
    EXPECT_EQ(columns[6].cause, 0);
}

TEST(PlotColumns, WhatIsKnownInPartHasBothValueAndCause) {
    const auto columns =
        columnsOf(seconds({band(0, 1, 2, 3, kStale)}), {AxisKind::Linear, 0, 1}, 1);
    EXPECT_TRUE(columns[0].known);
    EXPECT_EQ(columns[0].high, 2);
    EXPECT_EQ(columns[0].cause, kStale);
}

TEST(PlotColumns, ACurveLeadsFromPointToPoint) {
    PlotSeries series;
    series.points = {PlotPoint::of(0, 0), PlotPoint::of(10, 10)};
    const auto columns = columnsOf(series, {AxisKind::Linear, 0, 10}, 10);
    EXPECT_NEAR(columns[3].low, 3, 1e-5);
    EXPECT_NEAR(columns[3].high, 4, 1e-5);
    EXPECT_TRUE(columns[3].joins);
}

TEST(PlotColumns, ACurveComesInFromBesideTheRange) {
    PlotSeries series;
    series.points = {PlotPoint::of(-10, 0), PlotPoint::of(30, 40)};
    const auto columns = columnsOf(series, {AxisKind::Linear, 0, 10}, 10);
    EXPECT_NEAR(columns[0].low, 10, 1e-4);
    EXPECT_NEAR(columns[9].high, 20, 1e-4);
}

TEST(PlotColumns, AnUnknownPointInterruptsACurveOnBothSides) {
    PlotSeries series;
    series.points = {PlotPoint::of(0, 1), PlotPoint::unknown(4, kAway), PlotPoint::of(8, 1)};
    const auto columns = columnsOf(series, {AxisKind::Linear, 0, 9}, 9);
    EXPECT_TRUE(columns[0].known);
    for (std::size_t i = 1; i < 8; ++i) {
        EXPECT_TRUE(columns[i].hole()) << i;
        EXPECT_EQ(columns[i].cause, kAway) << i;
    }
    EXPECT_TRUE(columns[8].known);
    EXPECT_FALSE(columns[8].joins);
}

TEST(PlotColumns, ALogarithmicAxisPutsPointsWhereItSays) {
    PlotSeries series;
    for (const double hertz : {30.0, 100.0, 1000.0, 15000.0})
        series.points.push_back(PlotPoint::of(hertz, static_cast<float>(hertz)));
    const auto columns = columnsOf(series, {AxisKind::Log, 10, 100000}, 40);
    EXPECT_TRUE(columns[10].known) << "100";
    EXPECT_TRUE(columns[20].known) << "1000";
    EXPECT_FALSE(columns[0].told) << "below 30";
    EXPECT_FALSE(columns[39].told);
}

TEST(PlotColumns, OfNothingAndOfNoWidthNothingIsTold) {
    EXPECT_TRUE(columnsOf(seconds({PlotPoint::of(0, 1)}), {AxisKind::Linear, 0, 1}, 0).empty());
    EXPECT_TRUE(columnsOf(seconds({PlotPoint::of(0, 1)}), {AxisKind::Linear, 1, 1}, 5).empty());
    for (const PlotColumn& column : columnsOf(seconds({}), {AxisKind::Linear, 0, 1}, 5))
        EXPECT_FALSE(column.told);
    PlotSeries asked = seconds({});
    asked.to = 1;
    for (const PlotColumn& column : columnsOf(asked, {AxisKind::Linear, 0, 1}, 5))
        EXPECT_EQ(column.cause, kNobody);
}

}  // namespace
}  // namespace display::test
