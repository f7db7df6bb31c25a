// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "history/kind_sum.h"
#include "history/span_value.h"

namespace history::test {
namespace {

using figures::Kind;

FigureSecond known(float value, int ms = 1000, State state = State::Known) {
    return {value, static_cast<std::uint16_t>(ms), state};
}

double meanOf(Kind kind, std::initializer_list<std::pair<double, double>> values) {
    KindSum sum(kind);
    for (const auto& [value, weight] : values) sum.add(value, weight);
    return sum.mean();
}

TEST(Kinds, LevelIsTheMeanOfPowers) {
    // 0 dB and -10 dB: (1 + 0.1) / 2 = -2.596 dB.
    EXPECT_NEAR(meanOf(Kind::Level, {{0, 1}, {-10, 1}}), -2.5963731, 1e-6);
}

TEST(Kinds, MeanWeighsByTime) {
    EXPECT_DOUBLE_EQ(meanOf(Kind::Mean, {{1, 3}, {5, 1}}), 2);
    EXPECT_DOUBLE_EQ(meanOf(Kind::Share, {{1, 3}, {5, 1}}), 2);
    EXPECT_DOUBLE_EQ(meanOf(Kind::Peak, {{1, 1}, {5, 1}}), 3);
}

TEST(Kinds, CountIsARateWhoseTimeMakesTheSum) {
    // 12 a minute for 30 s and 0 for 30 s: 6 in that minute.
    const double rate = meanOf(Kind::Count, {{12, 30000}, {0, 30000}});
    EXPECT_DOUBLE_EQ(rate * 60000 / 60000, 6);
}

TEST(Kinds, AngleIsAnAxis) {
    EXPECT_NEAR(meanOf(Kind::Angle, {{178, 1}, {6, 1}}), 2, 1e-9);
    EXPECT_NEAR(meanOf(Kind::Angle, {{40, 1}, {50, 1}}), 45, 1e-9);
    EXPECT_NEAR(meanOf(Kind::Angle, {{170, 1}, {178, 1}}), 174, 1e-9);
    EXPECT_EQ(meanOf(Kind::Angle, {{0, 1}, {90, 1}}), 0);
}

TEST(Kinds, AnglesThatCancelOneAnotherHaveNoMeanThatRoundingInvents) {
    KindSum sum(Kind::Angle);
    for (int i = 0; i < 1800; ++i) {
        sum.add(static_cast<double>(static_cast<float>(i) / 10 + 0.05f), 1000);
    }
    EXPECT_LT(sum.length(), 1e-4);
    EXPECT_EQ(sum.mean(), 0);
}

TEST(Kinds, AnAngleThatRoundingPutBelowZeroIsZero) {
    EXPECT_EQ(meanOf(Kind::Angle, {{180 - 1e-9, 1}}), 0);
    EXPECT_NEAR(meanOf(Kind::Angle, {{180 - 1e-3, 1}}), 180 - 1e-3, 1e-9);
}

TEST(Kinds, StateIsTheOneThatHeldLongest) {
    EXPECT_EQ(meanOf(Kind::State, {{7, 2}, {3, 1}, {3, 2}}), 3);
    EXPECT_EQ(meanOf(Kind::State, {{7, 2}, {3, 2}}), 3);
}

TEST(Spans, TellLowestMeanHighestAndForHowLong) {
    const std::vector<FigureSecond> seconds{known(3), known(1), known(8, 500, State::Gap),
                                            known(0, 0, State::NoPilot)};
    const SpanValue span = spanOf(Kind::Mean, seconds);
    EXPECT_EQ(span.lowest, 1);
    EXPECT_EQ(span.highest, 8);
    EXPECT_FLOAT_EQ(span.mean, 8.f / 2.5f);
    EXPECT_EQ(span.knownMs, 2500u);
    EXPECT_EQ(span.causes[static_cast<std::size_t>(State::Gap)], 500u);
    EXPECT_EQ(span.causes[static_cast<std::size_t>(State::NoPilot)], 1000u);
    EXPECT_EQ(longestCause(span.causes), State::NoPilot);
    EXPECT_EQ(span.toldMs(), 4000u);
}

TEST(Spans, PercentilesAreTheNearestRank) {
    std::vector<FigureSecond> seconds;
    for (int i = 200; i >= 1; --i) seconds.push_back(known(static_cast<float>(i)));
    const SpanValue span = spanOf(Kind::Mean, seconds);
    EXPECT_EQ(span.percentile1, 2);
    EXPECT_EQ(span.percentile99, 198);
    const SpanValue one = spanOf(Kind::Mean, std::vector{known(5)});
    EXPECT_EQ(one.percentile1, 5);
    EXPECT_EQ(one.percentile99, 5);
}

TEST(Spans, AnAnglesBandAboutZeroStaysNarrow) {
    const SpanValue span = spanOf(Kind::Angle, std::vector{known(178), known(2), known(0)});
    EXPECT_NEAR(span.mean, 0, 0.01);
    EXPECT_EQ(span.lowest, -2);
    EXPECT_EQ(span.highest, 2);
}

TEST(Spans, AnAngleOppositeToTheMeanLiesBelowItWhateverTheMeanIsRoundedTo) {
    for (const double rounding : {-1e-5, 0.0, 1e-5}) {
        EXPECT_NEAR(nearAxis(121.2, 31.2 + rounding), -58.8, 1e-9);
        EXPECT_NEAR(nearAxis(301.2, 31.2 + rounding), -58.8, 1e-9);
        EXPECT_NEAR(nearAxis(121.1, 31.2 + rounding), 121.1, 1e-9);
    }
}

TEST(Spans, OfNothingKnownHaveOnlyCauses) {
    const SpanValue span = spanOf(Kind::Level, std::vector{known(0, 0, State::Stale)});
    EXPECT_EQ(span.knownMs, 0u);
    EXPECT_EQ(longestCause(span.causes), State::Stale);
}

TEST(Spans, JoinedAreWhatTheirSecondsAre) {
    const std::vector<FigureSecond> first{known(10), known(20)};
    const std::vector<FigureSecond> second{known(170), known(30, 250, State::TooNoisy)};
    std::vector<FigureSecond> both = first;
    both.insert(both.end(), second.begin(), second.end());
    for (const Kind kind : {Kind::Peak, Kind::Level, Kind::Mean, Kind::Angle, Kind::Count}) {
        SpanValue joined = spanOf(kind, first);
        joinSpan(kind, joined, spanOf(kind, second));
        const SpanValue whole = spanOf(kind, both);
        EXPECT_NEAR(joined.mean, whole.mean, 1e-4) << static_cast<int>(kind);
        EXPECT_NEAR(joined.lowest, whole.lowest, 1e-3) << static_cast<int>(kind);
        EXPECT_NEAR(joined.highest, whole.highest, 1e-3) << static_cast<int>(kind);
        EXPECT_EQ(joined.knownMs, whole.knownMs);
        EXPECT_EQ(joined.causes, whole.causes);
    }
    SpanValue nothing;
    joinSpan(Kind::Mean, nothing, spanOf(Kind::Mean, first));
    EXPECT_EQ(nothing.mean, 15);
}

}  // namespace
}  // namespace history::test
