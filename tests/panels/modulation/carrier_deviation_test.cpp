// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/modulation/carrier_deviation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/panels/modulation/demo_start.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

const display::Colour kReadoutRed{0x0000ff};
const display::Colour kReadoutCyan{0xffff00};

TEST(CarrierDeviation, EmptyPlacesCountAsZeroAndTheMeanGrows) {
    CarrierDeviation carrier;
    for (int i = 1; i <= 100; ++i) EXPECT_EQ(carrier.take(50), 50.f * static_cast<float>(i));
    EXPECT_EQ(carrier.take(50), 5000);
}

TEST(CarrierDeviation, TheOldestOfAHundredSamplesLeaves) {
    CarrierDeviation carrier;
    carrier.take(70);
    for (int i = 1; i <= 99; ++i) EXPECT_EQ(carrier.take(0), 70) << i;
    EXPECT_EQ(carrier.take(0), 0);
}

TEST(CarrierDeviation, LimitIsTenKHzEitherSide) {
    EXPECT_TRUE(CarrierDeviation::outOfLimit(10000));
    EXPECT_FALSE(CarrierDeviation::outOfLimit(9999));
    EXPECT_TRUE(CarrierDeviation::outOfLimit(-10000));
    EXPECT_FALSE(CarrierDeviation::outOfLimit(-9999));
    EXPECT_FALSE(CarrierDeviation::outOfLimit(0));
}

TEST(CarrierOver, LightsWithTheFourthSampleAtTheEnd) {
    CarrierOver over;
    for (int i = 1; i <= 3; ++i) EXPECT_FALSE(over.take(100)) << i;
    EXPECT_TRUE(over.take(100));
    EXPECT_FALSE(over.take(99));
    for (int i = 1; i <= 3; ++i) EXPECT_FALSE(over.take(100)) << i;
    EXPECT_TRUE(over.take(100));
}

TEST(CarrierOver, MeansExactlyAHundredEitherSide) {
    CarrierOver beyond;
    CarrierOver below;
    CarrierOver fraction;
    bool lit[3] = {};
    for (int i = 0; i < 4; ++i) {
        lit[0] = beyond.take(101);
        lit[1] = below.take(-100);
        lit[2] = fraction.take(100.9f);
    }
    EXPECT_FALSE(lit[0]);
    EXPECT_TRUE(lit[1]);
    EXPECT_TRUE(lit[2]);
}

TEST(CarrierReadout, GrowsFromNothingAndTurnsRedAtTenKHz) {
    RackBench bench;
    bench.readings.carrierDeviation = 100;
    bench.start();
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.colour, kReadoutCyan);
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.caption, "0.1");
    bench.advance(9800ms);
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.caption, "9.9");
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.colour, kReadoutCyan);
    EXPECT_FALSE(bench.form1.Label_Bad_CarrierDev.visible);
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.caption, "10.0");
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.colour, kReadoutRed);
    EXPECT_TRUE(bench.form1.Label_Bad_CarrierDev.visible);
    bench.readings.carrierDeviation = 0;
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.caption, "9.9");
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.colour, kReadoutCyan);
    EXPECT_FALSE(bench.form1.Label_Bad_CarrierDev.visible);
}

TEST(CarrierReadout, TurnsRedAtMinusTenKHz) {
    RackBench bench;
    bench.readings.carrierDeviation = -100;
    bench.start();
    bench.advance(9900ms);
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.caption, "-9.9");
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.colour, kReadoutCyan);
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.caption, "-10.0");
    EXPECT_EQ(bench.form1.Label_CarrierDeviation.colour, kReadoutRed);
    EXPECT_TRUE(bench.form1.Label_Bad_CarrierDev.visible);
}

TEST(OverLamp, LightsAfterFourTicksAtAHundredAndDarkensBeyond) {
    RackBench bench;
    bench.readings.carrierDeviation = 100;
    bench.start();
    bench.advance(300ms);
    EXPECT_FALSE(bench.form1.Label_OVER.visible);
    bench.advance(100ms);
    EXPECT_TRUE(bench.form1.Label_OVER.visible);
    bench.readings.carrierDeviation = 104;
    bench.advance(100ms);
    EXPECT_FALSE(bench.form1.Label_OVER.visible);
}

TEST(OverLamp, StaysDarkInDemoMode) {
    RackBench bench;
    bench.readings.carrierDeviation = 100;
    startInDemoMode(bench);
    for (int tick = 0; tick < 6; ++tick) {
        bench.advance(100ms);
        EXPECT_FALSE(bench.form1.Label_OVER.visible) << tick;
    }
}

}  // namespace
}  // namespace hmonitor::test
