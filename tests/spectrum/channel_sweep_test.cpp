// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/channel_sweep.h"

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "spectrum/span_choice.h"

namespace hmonitor {
namespace {

struct Span {
    double halfSpan;
    double step;
    int points;
    float first;  ///< around 97.9 MHz
    float last;
    double beforeFirstMhz;
};

void PrintTo(const Span& span, std::ostream* out) {
    *out << span.halfSpan << " kHz to each side in steps of " << span.step;
}

class Spans : public testing::TestWithParam<Span> {};

TEST_P(Spans, RunFromTheLowEdgeToTheHighOne) {
    const Span& span = GetParam();
    const ChannelSweep sweep{979, span.halfSpan, span.step};
    EXPECT_EQ(sweep.points(), span.points);
    EXPECT_EQ(sweep.frequency(1), span.first);
    EXPECT_EQ(sweep.frequency(span.points), span.last);
    EXPECT_EQ(shortText(sweep.beforeFirstMhz()), shortText(span.beforeFirstMhz));
    const int centre = span.points / 2 + 1;
    for (int i = 1; i <= span.points; ++i) EXPECT_EQ(sweep.isCentre(i), i == centre) << i;
    EXPECT_EQ(sweep.frequency(centre), 979.f);
}

INSTANTIATE_TEST_SUITE_P(
    All, Spans,
    testing::Values(Span{200, 25, 17, 977, 981, 97.675}, Span{300, 25, 25, 976, 982, 97.575},
                    Span{350, 25, 29, 975.5f, 982.5f, 97.525}, Span{500, 50, 21, 974, 984, 97.35},
                    Span{600, 50, 25, 973, 985, 97.25}, Span{800, 50, 33, 971, 987, 97.05},
                    Span{1000, 100, 21, 969, 989, 96.8}));

TEST(ChannelSweep, EveryItemOfTheListIsOneOfTheSpans) {
    const int points[] = {17, 25, 29, 21, 25, 33, 21};
    for (std::size_t i = 0; i < kSpanChoices.size(); ++i) {
        const SpanChoice& choice = kSpanChoices[i];
        const ChannelSweep sweep{979, valueOf(choice.halfSpan), valueOf(choice.step)};
        EXPECT_EQ(sweep.points(), points[i]) << choice.item;
        // The item's text names the span and the step that are run.
        EXPECT_NE(std::string(choice.item).find(std::string(choice.halfSpan) + "Khz"),
                  std::string::npos);
        EXPECT_NE(std::string(choice.item).find("(" + std::string(choice.step) + ")"),
                  std::string::npos);
    }
}

TEST(ChannelSweep, HalfStepStationIsMeasuredAroundItsOwnFrequency) {
    const ChannelSweep sweep{1025.5, 200, 25};
    EXPECT_EQ(sweep.frequency(1), 1023.5f);
    EXPECT_EQ(sweep.frequency(17), 1027.5f);
    EXPECT_EQ(shortText(sweep.beforeFirstMhz()), "102.325");
}

TEST(ChannelSweep, HalfCountsOfStepsGoUpSoThatTheHighEdgeIsKept) {
    const double goUp[] = {3.5, 5.5, 6.5, 7.5, 9.5, 10.5, 11.5, 13.5, 17.5, 19.5};
    for (const double steps : goUp) {
        // 2 * halfSpan / step gives exactly these numbers.
        const ChannelSweep sweep{979, steps * 50, 100};
        EXPECT_EQ(sweep.points(), static_cast<int>(steps + 0.5) + 1) << steps;
    }
    // Other numbers of steps are rounded, halves to even.
    EXPECT_EQ((ChannelSweep{979, 225, 100}).points(), 6);   // 4.5 steps
    EXPECT_EQ((ChannelSweep{979, 625, 100}).points(), 14);  // 12.5 steps
    EXPECT_EQ((ChannelSweep{979, 200, 30}).points(), 14);   // 13.33 steps
}

TEST(ChannelSweep, StepThatMissesTheCarrierHasNoCentre) {
    const ChannelSweep sweep{979, 200, 30};
    for (int i = 1; i <= sweep.points(); ++i) EXPECT_FALSE(sweep.isCentre(i)) << i;
}

TEST(DbAgainstCarrier, IsRoundedHalvesToEvenAndNeverAboveTheCarrier) {
    EXPECT_EQ(dbAgainstCarrier(40, 70), -30);
    EXPECT_EQ(dbAgainstCarrier(40.5f, 70), -30);  // -29.5
    EXPECT_EQ(dbAgainstCarrier(41.5f, 70), -28);  // -28.5
    EXPECT_EQ(dbAgainstCarrier(70, 70), 0);
    EXPECT_EQ(dbAgainstCarrier(75, 70), 0);
    EXPECT_EQ(dbAgainstCarrier(-10000, 10000), -20000);
}

}  // namespace
}  // namespace hmonitor
