// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/bandwidth_curve.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "spectrum/percent_of_db.h"

namespace hmonitor {
namespace {

constexpr double kTolerancePercent = 0.001;

std::vector<double> numbersOf(const std::string& line) {
    std::istringstream in(line);
    std::vector<double> numbers;
    for (double number = 0; in >> number;) numbers.push_back(number);
    return numbers;
}

void expectCurve(const BandwidthCurve::Points& points, const std::vector<double>& expected) {
    ASSERT_EQ(expected.size(), 150u);
    for (std::size_t kHz = 1; kHz <= 150; ++kHz) {
        EXPECT_NEAR(static_cast<double>(points[kHz]), expected[kHz - 1], kTolerancePercent)
            << kHz << " kHz";
    }
}

TEST(BandwidthCurve, AgreesWithASecondReckoning) {
    std::ifstream table(HMONITOR_SOURCE_DIR "/tests/spectrum/bandwidth_curves.txt");
    int sets = 0;
    for (std::string peaksLine; std::getline(table, peaksLine); ++sets) {
        SCOPED_TRACE(peaksLine);
        const std::vector<double> six = numbersOf(peaksLine.substr(std::string("peaks ").size()));
        ASSERT_EQ(six.size(), 6u);
        BandwidthCurve::Peaks peaks{};
        for (std::size_t i = 0; i < 6; ++i) peaks[i + 1] = static_cast<float>(six[i]);
        std::string line;
        ASSERT_TRUE(std::getline(table, line));
        expectCurve(BandwidthCurve::through(peaks), numbersOf(line));
    }
    EXPECT_GE(sets, 10);
}

TEST(BandwidthCurve, WithNoPeaksFallsToNothingAt25kHzAndIsRoundedFrom15To35) {
    const auto points = BandwidthCurve::through({});
    EXPECT_FLOAT_EQ(points[0], 100);
    EXPECT_FLOAT_EQ(points[15], 40);  // still the straight line, 4 percent a kHz
    EXPECT_NEAR(points[16], 34.9125, 1e-3);
    EXPECT_NEAR(points[25], 3.75, 1e-3);  // half way: the bow alone, 15 / 4
    EXPECT_NEAR(points[35], 0, 1e-4);
    EXPECT_NEAR(points[150], 0, 1e-4);
}

TEST(BandwidthCurve, EveryCurveIsAStraightLineUpTo15kHz) {
    const BandwidthCurve::Peaks peaks{0, 50, 50, 50, 50, 50, 50, 0};
    for (int redraw = 0; redraw < 2; ++redraw) {
        const auto points = BandwidthCurve::through(peaks);
        for (std::size_t kHz = 0; kHz <= 15; ++kHz)
            EXPECT_FLOAT_EQ(points[kHz], 100 - 2 * static_cast<float>(kHz)) << kHz;
    }
}

TEST(BandwidthCurve, TheEndsAre100AndNothingWhateverTheyHold) {
    EXPECT_EQ(BandwidthCurve::through({7, 10, 10, 10, 10, 10, 10, 99}),
              BandwidthCurve::through({100, 10, 10, 10, 10, 10, 10, 0}));
}

struct Row {
    float db;
    float percent;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.db << " dB";
}

class PercentOfDb : public testing::TestWithParam<Row> {};

TEST_P(PercentOfDb, FollowsTheTable) {
    EXPECT_EQ(percentOfDb(GetParam().db), GetParam().percent) << GetParam().db << " dB";
}

INSTANTIATE_TEST_SUITE_P(WholeRows, PercentOfDb,
                         testing::Values(Row{0, 100}, Row{1, 90}, Row{2, 80}, Row{3, 70},
                                         Row{4, 63}, Row{5, 56}, Row{6, 50}, Row{7, 45}, Row{8, 40},
                                         Row{9, 35}, Row{10, 32}, Row{11, 28}, Row{12, 25},
                                         Row{13, 22}, Row{14, 20}, Row{15, 18}, Row{16, 16},
                                         Row{17, 14}, Row{18, 13}, Row{19, 11}, Row{20, 10}));
INSTANTIATE_TEST_SUITE_P(Ranges, PercentOfDb,
                         testing::Values(Row{21, 7}, Row{22.5f, 7}, Row{25, 7}, Row{26, 4},
                                         Row{28.25f, 4}, Row{30, 4}, Row{30.5f, 0}, Row{31, 0},
                                         Row{70, 0}));
INSTANTIATE_TEST_SUITE_P(BetweenTheRows, PercentOfDb,
                         testing::Values(Row{0.5f, 0}, Row{3.0001f, 0}, Row{19.5f, 0},
                                         Row{20.5f, 0}, Row{25.5f, 0}));

}  // namespace
}  // namespace hmonitor
