// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/time_ticks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace display::test {

using testing::ElementsAre;
using testing::SizeIs;

namespace {

constexpr std::int64_t kNoon = 1'795'262'400;  // 2026-11-21 12:00 UTC
/// The clock changes of Central Europe at 01:00 UTC: back on 2026-10-25, forward on 2026-03-29.
constexpr std::int64_t kBack = 1'792'890'000;
constexpr std::int64_t kForward = 1'774'746'000;

int europe(std::int64_t t) {
    return t >= kForward && t < kBack ? 7200 : 3600;
}

class TimeTicks : public testing::Test {
 protected:
    static std::vector<std::string> words(std::int64_t from, std::int64_t seconds, int atMost,
                                          const WallClock& clock = {}) {
        std::vector<std::string> all;
        const PlotAxis axis{AxisKind::Moments, static_cast<double>(from) * 1000,
                            static_cast<double>(from + seconds) * 1000};
        for (const PlotTick& tick : timeTicks(axis, atMost, clock)) all.push_back(tick.words);
        return all;
    }
    WallClock words2{{}, [](int month) { return month == 10 ? "Nov" : "Dec"; }};
};

TEST_F(TimeTicks, AreAsFineAsTheRoomAllows) {
    EXPECT_THAT(words(kNoon, 10, 5), ElementsAre("12:00:00", "12:00:02", "12:00:04", "12:00:06",
                                                 "12:00:08", "12:00:10"));
    EXPECT_THAT(words(kNoon + 7, 600, 4), ElementsAre("12:05", "12:10"));
    EXPECT_THAT(words(kNoon, 6 * 3600, 6),
                ElementsAre("12:00", "13:00", "14:00", "15:00", "16:00", "17:00", "18:00"));
}

TEST_F(TimeTicks, AMidnightAmongHoursTellsItsDate) {
    EXPECT_THAT(words(kNoon, 24 * 3600, 4, words2),
                ElementsAre("12:00", "18:00", "22 Nov", "06:00", "12:00"));
}

TEST_F(TimeTicks, DaysWeeksMonthsAndYears) {
    EXPECT_THAT(words(kNoon, 3 * 86400, 3, words2), ElementsAre("22 Nov", "23 Nov", "24 Nov"));
    // The 23rd is a Monday.
    EXPECT_THAT(words(kNoon, 15 * 86400, 3, words2), ElementsAre("23 Nov", "30 Nov"));
    EXPECT_THAT(words(kNoon, 90 * 86400, 4, words2), ElementsAre("Dec", "2027", "Dec"))
        << "the third is February, for which this clock has no name of its own";
    EXPECT_THAT(words(kNoon, 10 * 31'557'600LL, 5),
                ElementsAre("2028", "2030", "2032", "2034", "2036"));
}

TEST_F(TimeTicks, StandWhereTheClockOnTheWallReadsThem) {
    const WallClock clock{europe, {}};
    const PlotAxis day{AxisKind::Moments, kNoon * 1000.0, (kNoon + 86400) * 1000.0};
    const auto ticks = timeTicks(day, 4, clock);
    ASSERT_THAT(ticks, SizeIs(4u));
    EXPECT_EQ(ticks[0].at, (kNoon + 5 * 3600) * 1000.0);
    EXPECT_EQ(ticks[0].words, "18:00");
}

TEST_F(TimeTicks, ADayOf25HoursHasItsSecondHourTwice) {
    const WallClock clock{europe, {}};
    EXPECT_THAT(words(kBack - 2 * 3600, 4 * 3600, 4, clock),
                ElementsAre("01:00", "02:00", "02:00", "03:00", "04:00"));
}

TEST_F(TimeTicks, ADayOf23HoursLeavesAnHourOut) {
    const WallClock clock{europe, {}};
    EXPECT_THAT(words(kForward - 2 * 3600, 4 * 3600, 4, clock),
                ElementsAre("29 03", "01:00", "03:00", "04:00", "05:00"));
}

TEST_F(TimeTicks, MidnightsAreThoseOfTheirOwnSide) {
    const WallClock clock{europe, {}};
    EXPECT_EQ(clock.momentOf(kForward + 3600 - 3600), kForward - 3600) << "01:00 of winter";
    const std::int64_t midnightBefore = kBack - 3 * 3600;
    EXPECT_EQ(clock.momentOf(midnightBefore + 7200), midnightBefore);
    const std::int64_t midnightAfter = kBack + 22 * 3600;
    EXPECT_EQ(clock.momentOf(midnightAfter + 3600), midnightAfter);
}

TEST_F(TimeTicks, NeverMoreThanTheRoomHasWhateverTheRange) {
    for (double span = 10; span < 3.2e8; span *= 1.37) {
        const PlotAxis axis{AxisKind::Moments, kNoon * 1000.0, kNoon * 1000.0 + span * 1000};
        const auto ticks = timeTicks(axis, 9, {europe, {}});
        EXPECT_LE(ticks.size(), 11u) << span;
        EXPECT_GE(ticks.size(), 1u) << span;
    }
}

}  // namespace
}  // namespace display::test
