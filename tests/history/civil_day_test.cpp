// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/civil_day.h"

#include <gtest/gtest.h>

#include "tests/history/zone.h"

namespace history::test {
namespace {

TEST(CivilDays, HaveNamesThatComeBack) {
    EXPECT_EQ((CivilDay{2026, 3, 9}.text()), "2026-03-09");
    EXPECT_EQ(CivilDay::parse("2026-03-09"), (CivilDay{2026, 3, 9}));
    for (const char* odd : {"", "2026-13-01", "2026-00-01", "2026-01-32", "2026/01/01", "26-01-01",
                            "2026-1-011", "2026-01-01x"}) {
        EXPECT_FALSE(CivilDay::parse(odd)) << odd;
    }
}

TEST(CivilDays, AreTwentyThreeAndTwentyFiveHoursLongWhereTheClockChanges) {
    const Zone zone("Europe/Madrid");
    const DayBounds spring = boundsOfDay(utc(2026, 3, 29, 12));
    EXPECT_EQ(spring.end - spring.begin, 23 * 3600);
    EXPECT_EQ(spring.begin, utc(2026, 3, 28, 23));
    const DayBounds autumn = boundsOfDay(utc(2026, 10, 25, 12));
    EXPECT_EQ(autumn.end - autumn.begin, 25 * 3600);
    const DayBounds usual = boundsOfDay(utc(2026, 6, 1));
    EXPECT_EQ(usual.end - usual.begin, 24 * 3600);
    EXPECT_EQ(CivilDay::of(usual.begin), (CivilDay{2026, 6, 1}));
    EXPECT_EQ(CivilDay::of(usual.end), (CivilDay{2026, 6, 2}));
    EXPECT_EQ(zoneOffset(usual.begin), 7200);
    EXPECT_EQ(zoneName(usual.begin), "CEST");
}

TEST(CivilDays, MayLackTheirMidnight) {
    // There the clock goes from 24:00 to 01:00.
    const Zone zone("America/Santiago");
    const DayBounds day = boundsOfDay(utc(2022, 9, 11, 15));
    EXPECT_EQ(day.end - day.begin, 23 * 3600);
    EXPECT_EQ(CivilDay::of(day.begin), (CivilDay{2022, 9, 11}));
    EXPECT_EQ(CivilDay::of(day.begin - 1), (CivilDay{2022, 9, 10}));
}

TEST(CivilDays, KnowTheLeapDay) {
    const Zone zone("America/Argentina/Buenos_Aires");
    EXPECT_EQ(CivilDay::of(utc(2028, 2, 29, 12)), (CivilDay{2028, 2, 29}));
    EXPECT_EQ(CivilDay::of(utc(2028, 3, 1, 2, 59, 59)), (CivilDay{2028, 2, 29}));
    EXPECT_EQ(CivilDay::of(utc(2028, 3, 1, 3)), (CivilDay{2028, 3, 1}));
}

}  // namespace
}  // namespace history::test
