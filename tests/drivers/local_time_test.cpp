// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/local_time.h"

#include <gtest/gtest.h>

namespace hm16 {
namespace {

TEST(LocalTime, ComesBackFromItsMoment) {
    const LocalTime time{2024, 2, 29, 23, 59, 58};
    EXPECT_EQ(localTimeAt(momentOf(time)), time);
    EXPECT_EQ(localTimeAt(momentOf(time) + std::chrono::seconds(2)),
              (LocalTime{2024, 3, 1, 0, 0, 0}));
}

TEST(LocalTime, DayMarkHasEightDigitsYearFirst) {
    EXPECT_EQ(dayMark({2026, 3, 4, 22, 59, 50}), "20260304");
    EXPECT_EQ(dayMark({2026, 12, 31, 0, 0, 0}), "20261231");
}

TEST(LocalTime, SameHourLooksAtTheDayToo) {
    const LocalTime time{2026, 3, 4, 22, 59, 50};
    EXPECT_TRUE(sameHour(time, {2026, 3, 4, 22, 0, 0}));
    EXPECT_FALSE(sameHour(time, {2026, 3, 4, 23, 59, 50}));
    EXPECT_FALSE(sameHour(time, {2026, 3, 5, 22, 59, 50}));
    EXPECT_FALSE(sameHour(time, {2026, 4, 4, 22, 59, 50}));
    EXPECT_FALSE(sameHour(time, {2027, 3, 4, 22, 59, 50}));
}

}  // namespace
}  // namespace hm16
