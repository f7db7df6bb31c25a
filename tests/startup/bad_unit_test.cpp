// SPDX-License-Identifier: GPL-3.0-or-later
// A faulty unit with the whole rack: it falls silent, cannot be opened, or gives values that no
// unit can measure.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <map>
#include <random>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

/// Every text on the four panels.
std::map<std::string, std::string> texts(RackBench& bench) {
    std::map<std::string, std::string> all;
    for (const display::Form* panel : bench.program.rack) {
        for (display::Control* control : panel->controls()) {
            if (const auto* label = dynamic_cast<const display::Label*>(control)) {
                all[panel->name() + "." + label->name()] = label->caption.get();
            }
        }
    }
    return all;
}

/// A station that every panel can show, with the carrier on its frequency.
void measureWell(RackBench& bench) {
    const float figures[16] = {80,  -6, -7, 45,   3.5f, 1.5f, 9.1f, -61,
                               -62, 40, 41, 0.3f, 0,    67,   5,    12};
    for (int output = 1; output <= 16; ++output) bench.output(output) = figures[output - 1];
    bench.readings.rdsError = 1.2f;
    bench.readings.rdsLevel = 3.1f;
}

TEST(BadUnit, WhatNoUnitCanMeasureNeverReachesThePanels) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const float kNan = std::numeric_limits<float>::quiet_NaN();
    RackBench bench;
    measureWell(bench);
    bench.start();
    bench.advance(3000ms);
    const auto before = texts(bench);
    ASSERT_EQ(before.at("Form1.Label_FMod_Porcentaje"), "80.0");
    ASSERT_EQ(before.at("Form1.Label_FieldIntensity"), "67.0");
    for (int output = 1; output <= 16; ++output) {
        for (const float bad : {kNan, -kNan, kInfinity, -kInfinity, 1e38f, -1e38f, 3e30f}) {
            measureWell(bench);
            bench.output(output) = bad;
            bench.advance(200ms);
            EXPECT_EQ(texts(bench), before) << "output " << output << " said " << bad;
            ASSERT_FALSE(bench.desktop.ended());
        }
    }
    for (const float bad : {kNan, kInfinity, 1e38f}) {
        measureWell(bench);
        bench.readings.rdsError = bench.readings.rdsLevel = bad;
        bench.advance(200ms);
        EXPECT_EQ(texts(bench), before) << "RDS said " << bad;
    }
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST(BadUnit, GarbageInEveryOutputLeavesNumbersOnThePanels) {
    RackBench bench;
    bench.start();
    std::mt19937 random(16);
    for (int round = 0; round < 300; ++round) {
        for (int output = 1; output <= 16; ++output) {
            bench.output(output) = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        }
        bench.readings.rdsLevel = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        bench.advance(100ms);
        for (const auto& [name, text] : texts(bench)) {
            for (const char* word : {"nan", "inf", "E+"}) {
                ASSERT_EQ(text.find(word), std::string::npos) << name << " shows " << text;
            }
        }
    }
    EXPECT_FALSE(bench.desktop.ended());
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST(BadUnit, AUnitThatFallsSilentLeavesTheReadoutsStandingWithoutAWord) {
    RackBench bench;
    measureWell(bench);
    bench.start();
    bench.advance(3000ms);
    const auto before = texts(bench);
    bench.driver.silent = true;
    bench.advance(10s);
    EXPECT_EQ(texts(bench), before);
    EXPECT_TRUE(bench.desktop.boxes.empty());
    EXPECT_FALSE(bench.desktop.ended());
    // The rack can still be used, and the readouts follow the unit again.
    bench.driver.silent = false;
    bench.readings.field = 50;
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_FieldIntensity.caption, "50.0");
}

TEST(BadUnit, AnOpeningThatFailsIsNotLookedAtWhileAVersionComes) {
    RackBench bench;
    bench.driver.initResult = -7;
    bench.start();
    EXPECT_EQ(bench.state.HardwareVersion, "1.8");
    EXPECT_EQ(bench.state.DemoMode, "");
    EXPECT_EQ(bench.formB.PanelStarted, 1);
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

}  // namespace
}  // namespace hmonitor::test
