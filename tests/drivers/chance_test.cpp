// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/chance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace hm16::simulated {
namespace {

TEST(Chance, RepeatsWithTheSameSeedAndDiffersWithAnother) {
    int same = 0;
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(Chance(16, 3).even(i), Chance(16, 3).even(i));
        same += Chance(16, 3).even(i) == Chance(17, 3).even(i) ? 1 : 0;
        same += Chance(16, 3).even(i) == Chance(16, 4).even(i) ? 1 : 0;
    }
    EXPECT_EQ(same, 0);
}

TEST(Chance, EvenIsSpreadFromZeroUpToOne) {
    double sum = 0, low = 1, high = 0;
    for (int i = -5000; i < 5000; ++i) {
        const double value = Chance(16, 1).even(i);
        ASSERT_GE(value, 0);
        ASSERT_LT(value, 1);
        sum += value;
        low = std::min(low, value);
        high = std::max(high, value);
    }
    EXPECT_NEAR(sum / 10000, 0.5, 0.02);
    EXPECT_LT(low, 0.01);
    EXPECT_GT(high, 0.99);
}

TEST(Chance, WanderIsSmoothAndStaysWithinOne) {
    const Chance chance(16, 9);
    double low = 1, high = -1;
    for (int i = 0; i < 100000; ++i) {
        const double value = chance.wander(i * 0.01, 1);
        ASSERT_LE(std::abs(value), 1);
        // The steepest part of the ease is 1.5 times the mean slope of at most 2 a period.
        ASSERT_LE(std::abs(chance.wander((i + 1) * 0.01, 1) - value), 0.031);
        low = std::min(low, value);
        high = std::max(high, value);
    }
    EXPECT_LT(low, -0.9);
    EXPECT_GT(high, 0.9);
}

}  // namespace
}  // namespace hm16::simulated
