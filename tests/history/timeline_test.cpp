// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/timeline.h"

#include <gtest/gtest.h>

namespace history::test {
namespace {

TEST(Timeline, FollowsTheWallClock) {
    Timeline timeline;
    EXPECT_EQ(timeline.at({5000, 100}).ms, 5000);
    EXPECT_EQ(timeline.at({5030, 130}).ms, 5030);
    EXPECT_EQ(timeline.epoch(), 0);
}

TEST(Timeline, NeverGoesBackWhileTheClockIsSlewed) {
    Timeline timeline;
    timeline.at({5000, 0});
    EXPECT_EQ(timeline.at({3001, 1}).ms, 5000);
    EXPECT_EQ(timeline.at({4000, 1000}).ms, 5000);
    EXPECT_EQ(timeline.at({5001, 2001}).ms, 5001);
    EXPECT_EQ(timeline.epoch(), 0);
}

TEST(Timeline, AStepOverTwoSecondsBeginsAnEpoch) {
    Timeline timeline(3);
    timeline.at({10000000, 0});
    const auto back = timeline.at({10000000 - 3600000 + 30, 30});
    EXPECT_EQ(back.steppedMs, -3600000);
    EXPECT_EQ(back.ms, 6400030);
    EXPECT_EQ(timeline.epoch(), 4);
    const auto on = timeline.at({6400060 + 86400000, 60});
    EXPECT_EQ(on.steppedMs, 86400000);
    EXPECT_EQ(timeline.epoch(), 5);
    EXPECT_EQ(timeline.at({6400090 + 86400000, 90}).steppedMs, 0);
}

TEST(Timeline, TwoSecondsAreNoStepYet) {
    Timeline timeline;
    timeline.at({10000, 0});
    EXPECT_EQ(timeline.at({12000, 0}).steppedMs, 0);
    EXPECT_EQ(timeline.at({14001, 0}).steppedMs, 2001);
}

TEST(Timeline, ManySmallStepsOfADayAreNone) {
    Timeline timeline;
    for (int hour = 0; hour < 24; ++hour) {
        const std::int64_t steady = hour * 3600000LL;
        EXPECT_EQ(timeline.at({steady + hour * 500, steady}).steppedMs, 0);
    }
}

TEST(Timeline, ASleepOfTheMachineIsNoStep) {
    Timeline timeline;
    timeline.at({10000, 500});
    EXPECT_EQ(timeline.at({10000 + 28800000, 500 + 28800000}).steppedMs, 0);
}

}  // namespace
}  // namespace history::test
