// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/sweep_store.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <vector>

namespace hm16 {
namespace {

constexpr float kFloor = 24;

std::vector<float> levelsFrom(int points, float first) {
    std::vector<float> levels(static_cast<std::size_t>(points));
    std::iota(levels.begin(), levels.end(), first);
    return levels;
}

TEST(SweepRange, CountsBothEnds) {
    EXPECT_EQ((SweepRange{875, 895, 100}.points()), 21);
    EXPECT_EQ((SweepRange{880, 1080, 25}.points()), 801);
    EXPECT_EQ((SweepRange{985.25f, 986.5f, 25}.points()), 6);
    EXPECT_EQ((SweepRange{875, 875, 100}.points()), 1);
    EXPECT_EQ((SweepRange{875, 876.9, 250}.points()), 1);
    EXPECT_EQ((SweepRange{895, 875, 100}.points()), 0);
    EXPECT_EQ((SweepRange{875, std::numeric_limits<double>::quiet_NaN(), 100}.points()), 0);
}

TEST(SweepRange, WorksEachFrequencyOutFromItsNumber) {
    const SweepRange range{880, 1080, 25};
    EXPECT_EQ(range.frequency(0), 880);
    EXPECT_EQ(range.frequency(399), 979.75);
    EXPECT_EQ(range.frequency(800), 1080);
}

TEST(SweepStore, GivesTheNoiseFloorWhereNoFrameReached) {
    SweepStore store(kFloor);
    EXPECT_EQ(store.level(985), kFloor);
    store.takeFrame({980, 990, 100}, levelsFrom(11, 60));
    EXPECT_EQ(store.level(979.75), kFloor);
    EXPECT_EQ(store.level(990.25), kFloor);
    EXPECT_EQ(store.level(0), kFloor);
    EXPECT_EQ(store.level(-5), kFloor);
    EXPECT_EQ(store.level(1e30), kFloor);
    EXPECT_EQ(store.level(std::numeric_limits<double>::quiet_NaN()), kFloor);
}

TEST(SweepStore, GivesEachPointItsLevel) {
    SweepStore store(kFloor);
    store.takeFrame({880, 1080, 25}, levelsFrom(801, 0));
    for (int i = 0; i <= 800; ++i) {
        const float frequency = (static_cast<float>(i * 25) / 1000 + 88) * 10;
        EXPECT_EQ(store.level(frequency), static_cast<float>(i));
    }
}

TEST(SweepStore, APointStandsForTheStepAroundIt) {
    SweepStore store(kFloor);
    store.takeFrame({875, 880, 100}, levelsFrom(6, 50));
    EXPECT_EQ(store.level(875), 50);
    EXPECT_EQ(store.level(875.5), 50);
    EXPECT_EQ(store.level(875.75), 51);
    EXPECT_EQ(store.level(876), 51);
    EXPECT_EQ(store.level(880), 55);
    SweepStore wide(kFloor);
    wide.takeFrame({875, 880, 250}, levelsFrom(3, 50));
    EXPECT_EQ(wide.level(876), 50);
    EXPECT_EQ(wide.level(877), 51);
    EXPECT_EQ(wide.level(877.5), 51);
    EXPECT_EQ(wide.level(880), 52);
}

TEST(SweepStore, ALaterFrameReplacesWhatItCoversAndNothingElse) {
    SweepStore store(kFloor);
    store.takeFrame({875, 895, 100}, std::vector<float>(21, 50));
    store.takeFrame({885, 905, 100}, std::vector<float>(21, 60));
    EXPECT_EQ(store.level(884), 50);
    EXPECT_EQ(store.level(884.75), 50);
    EXPECT_EQ(store.level(885), 60);
    EXPECT_EQ(store.level(905), 60);
}

TEST(SweepStore, SaysOnceThatAFrameCameHoweverManyThereWere) {
    SweepStore store(kFloor);
    EXPECT_FALSE(store.frameArrived());
    store.takeFrame({875, 895, 100}, levelsFrom(21, 50));
    store.takeFrame({875, 895, 100}, levelsFrom(21, 60));
    EXPECT_TRUE(store.frameArrived());
    EXPECT_FALSE(store.frameArrived());
    EXPECT_EQ(store.level(875), 60);
}

TEST(SweepStore, ANewSweepForgetsTheArrivalAndKeepsTheLevels) {
    SweepStore store(kFloor);
    store.takeFrame({875, 895, 100}, levelsFrom(21, 50));
    store.forgetArrival();
    EXPECT_FALSE(store.frameArrived());
    EXPECT_EQ(store.level(880), 55);
}

TEST(SweepStore, BearsAFrameOutsideAnyBand) {
    SweepStore store(kFloor);
    store.takeFrame({1, 100, 1000}, levelsFrom(10, 50));
    store.takeFrame({590, 610, 1000}, levelsFrom(3, 50));
    store.takeFrame({1390, 1500, 1000}, levelsFrom(12, 70));
    EXPECT_EQ(store.level(50), kFloor);
    EXPECT_EQ(store.level(600), 51);
    EXPECT_EQ(store.level(1399), 71);
    EXPECT_EQ(store.level(1450), kFloor);
}

}  // namespace
}  // namespace hm16
