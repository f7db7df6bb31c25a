// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/view_range.h"

#include <gtest/gtest.h>

namespace hmonitor::test {
namespace {

constexpr std::int64_t kNoon = 1'795'262'400'000;  // 2026-11-21 12:00 UTC

TEST(ViewRange, IsInRoundColumnsThatBeginAtRoundTimes) {
    const AskedRange day = askedRange(kNoon + 12'345, kNoon + 12'345 + kDayMs);
    EXPECT_EQ(day.eachMs, 60'000);
    EXPECT_EQ(day.fromMs, kNoon);
    EXPECT_EQ(day.toMs, kNoon + kDayMs + 60'000);
    EXPECT_EQ(day.columns(), 1441);
}

TEST(ViewRange, IsTheSameWhileAViewMovesWithinAColumn) {
    const AskedRange one = askedRange(kNoon + 1000, kNoon + 1000 + kDayMs);
    EXPECT_EQ(askedRange(kNoon + 40'000, kNoon + 40'000 + kDayMs), one);
}

TEST(ViewRange, CoversTheViewFromTenSecondsToTenYears) {
    for (std::int64_t span = kShortestView; span <= kLongestView; span += span / 3) {
        const AskedRange asked = askedRange(kNoon + 777, kNoon + 777 + span);
        EXPECT_LE(asked.fromMs, kNoon + 777);
        EXPECT_GE(asked.toMs, kNoon + 777 + span);
        EXPECT_LE(asked.columns(), 2002) << span;
        EXPECT_GE(asked.eachMs, 1000) << "nothing finer is recorded";
        EXPECT_GE(asked.columns(), span > 600'000 ? 600 : 10) << "no coarser than the picture";
    }
}

TEST(ViewRange, BeforeNineteenSeventyToo) {
    const AskedRange asked = askedRange(-90'500, -30'500);
    EXPECT_EQ(asked.fromMs, -91'000);
    EXPECT_EQ(asked.toMs, -30'000);
}

}  // namespace
}  // namespace hmonitor::test
