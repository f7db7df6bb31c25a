// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "drivers/simulated/band.h"
#include "drivers/simulated/station.h"

namespace hm16::simulated {
namespace {

constexpr std::uint64_t kSpectrumSeed = 16;

double meanLevel(double frequency) {
    double sum = 0;
    for (int i = 0; i < 200; ++i) sum += bandLevel(kSpectrumSeed, frequency, i * 0.17);
    return sum / 200;
}

double highestLevel(double frequency) {
    double highest = -1000;
    for (int i = 0; i < 400; ++i) {
        highest = std::max(highest, bandLevel(kSpectrumSeed, frequency, i * 0.05));
    }
    return highest;
}

TEST(Band, RepeatsWithTheSameSeedAndTime) {
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(bandLevel(kSpectrumSeed, 870 + i * 2.1, i),
                  bandLevel(kSpectrumSeed, 870 + i * 2.1, i));
    }
}

TEST(Band, HasSensibleLevelsFrom87To108Point2) {
    for (int i = 0; i <= 848; ++i) {
        const double frequency = 870 + i * 0.25;
        const double level = bandLevel(kSpectrumSeed, frequency, i * 0.01);
        EXPECT_GE(level, 19) << frequency;
        EXPECT_LE(level, 93) << frequency;
    }
}

TEST(Band, ReadsAStationsFieldAtItsCarrier) {
    for (const Station& station : stations()) {
        if (std::abs(station.carrierError) > 10000) continue;
        EXPECT_NEAR(meanLevel(station.frequency), station.field, 1.5) << station.name;
    }
}

TEST(Band, FallsAwayOnBothSidesOfACarrier) {
    const double carrier = meanLevel(985);
    double last[2] = {carrier, carrier};
    for (int step = 1; step <= 8; ++step) {
        for (int side = 0; side < 2; ++side) {
            const double level = meanLevel(985 + (side == 0 ? -0.25 : 0.25) * step);
            EXPECT_LT(level, last[side]) << step;
            last[side] = level;
        }
    }
    EXPECT_LT(last[0], carrier - 40);
    EXPECT_LT(last[1], carrier - 40);
}

// What the bandwidth graph is made of: the strongest level in each place over a while.
TEST(Band, SidebandsOfAModulatedStationReachAboutSeventyFiveKilohertz) {
    const double carrier = meanLevel(985);
    EXPECT_LT(carrier - highestLevel(985.25), 6);
    EXPECT_LT(carrier - highestLevel(985.75), 20);
    EXPECT_GT(carrier - highestLevel(986.5), 26);
}

TEST(Band, TheOverModulatedStationIsWiderThanAGoodOne) {
    const double good = meanLevel(985) - highestLevel(986);
    const double wide = meanLevel(939) - highestLevel(940);
    EXPECT_LT(wide, good - 4);
}

TEST(SidebandLoss, IsZeroAtTheCarrierAndNeverFallsWithDistance) {
    EXPECT_EQ(sidebandLoss(0, 75), 0);
    for (const double deviation : {10.0, 40.0, 75.0, 110.0}) {
        double last = 0;
        for (int khz = 1; khz < 1500; ++khz) {
            const double loss = sidebandLoss(khz, deviation);
            ASSERT_GE(loss, last);
            ASSERT_EQ(loss, sidebandLoss(-khz, deviation));
            last = loss;
        }
    }
}

}  // namespace
}  // namespace hm16::simulated
