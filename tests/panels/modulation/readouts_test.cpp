// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/panels/modulation/demo_start.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

void expectBarAt(RackBench& bench, float percent) {
    EXPECT_EQ(bench.form1.Label10.left, 48 * percent - 40) << percent;
    EXPECT_EQ(bench.form1.Picture1.left, 48 * percent + 200) << percent;
    EXPECT_EQ(bench.form1.Picture2.left, 48 * percent + 180) << percent;
    EXPECT_EQ(bench.form1.Line1.x1, 48 * percent + 230) << percent;
    EXPECT_EQ(bench.form1.Line1.x2, 48 * percent + 230) << percent;
}

TEST(Bar, StandsAt48UnitsAPercent) {
    RackBench bench;
    bench.start();
    for (const float percent : {1.f, 80.f, 100.f, 160.f}) {
        bench.readings.peakModulation = percent;
        bench.beat();
        expectBarAt(bench, percent);
    }
    EXPECT_EQ(bench.form1.Label10.left, 7640.f);
    EXPECT_EQ(bench.form1.Line1.x1, 7910.f);
}

TEST(Bar, From100To50Takes25Heartbeats) {
    RackBench bench;
    bench.start();
    bench.readings.peakModulation = 100;
    bench.beat();
    bench.readings.peakModulation = 50;
    bench.beat();
    expectBarAt(bench, 98);
    bench.beat(23);
    expectBarAt(bench, 52);
    bench.beat();
    expectBarAt(bench, 50);
    bench.beat();
    expectBarAt(bench, 50);
}

TEST(Bar, JumpsOnTheFirstHeartbeatAfterATuning) {
    RackBench bench;
    bench.start();
    bench.readings.peakModulation = 100;
    bench.beat(2);
    EXPECT_EQ(bench.state.ModBar, 100);
    EXPECT_EQ(bench.state.ModSettle, "5");
    bench.readings.peakModulation = 50;
    bench.formB.cambfre();
    EXPECT_EQ(bench.state.ModSettle, "0");
    expectBarAt(bench, 100);
    bench.beat();
    expectBarAt(bench, 50);
    EXPECT_EQ(bench.state.ModBar, 0);
    EXPECT_EQ(bench.state.ModSettle, "5");
}

TEST(Bar, AnEmptySettleWordRefillsAtOnce) {
    RackBench bench;
    bench.start();
    bench.readings.peakModulation = 100;
    bench.beat();
    bench.readings.peakModulation = 10;
    bench.state.ModSettle = "";
    bench.beat();
    expectBarAt(bench, 10);
    EXPECT_EQ(bench.state.ModSettle, "5");
}

TEST(HeldReadouts, Steady80Shows80And60) {
    RackBench bench;
    bench.readings.peakModulation = 80;
    bench.start();
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_FMod_Porcentaje.caption, "80.0");
    EXPECT_EQ(bench.form1.Label_FMod.caption, "60.0");
}

TEST(HeldReadouts, APeakOf120Stays2100MsThenFallsByFiveEvery300Ms) {
    RackBench bench;
    bench.readings.peakModulation = 80;
    bench.start();
    bench.advance(100ms);
    bench.readings.peakModulation = 120;
    bench.advance(100ms);
    bench.readings.peakModulation = 80;
    bench.advance(2000ms);
    EXPECT_EQ(bench.form1.Label_FMod_Porcentaje.caption, "120.0");
    EXPECT_EQ(bench.form1.Label_FMod.caption, "90.0");
    bench.advance(100ms);
    const struct {
        const char* percent;
        const char* kHz;
    } steps[] = {{"115.0", "86.3"}, {"110.0", "82.5"}, {"105.0", "78.8"}, {"100.0", "75.0"},
                 {"95.0", "71.3"},  {"90.0", "67.5"},  {"85.0", "63.8"},  {"80.0", "60.0"}};
    for (const auto& step : steps) {
        EXPECT_EQ(bench.form1.Label_FMod_Porcentaje.caption, step.percent);
        EXPECT_EQ(bench.form1.Label_FMod.caption, step.kHz);
        bench.advance(200ms);
        EXPECT_EQ(bench.form1.Label_FMod_Porcentaje.caption, step.percent);
        bench.advance(100ms);
    }
    EXPECT_EQ(bench.form1.Label_FMod_Porcentaje.caption, "80.0");
}

TEST(HeldReadouts, KeepRunningOverATuning) {
    RackBench bench;
    bench.readings.peakModulation = 120;
    bench.start();
    bench.advance(100ms);
    bench.readings.peakModulation = 30;
    bench.formB.cambfre();
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_FMod_Porcentaje.caption, "120.0");
    EXPECT_EQ(bench.form1.held.PeakHoldCount, 1);
}

TEST(HeldReadouts, AreNotWrittenBelowTheHold) {
    RackBench bench;
    bench.readings.peakModulation = 120;
    bench.start();
    bench.advance(100ms);
    bench.readings.peakModulation = 80;
    bench.form1.Label_FMod.caption = "untouched";
    bench.advance(2000ms);
    EXPECT_EQ(bench.form1.Label_FMod.caption, "untouched");
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_FMod.caption, "86.3");
}

TEST(HeldReadouts, AreOfTheSimulatedModulationInDemoMode) {
    RackBench bench;
    bench.readings.peakModulation = 150;
    startInDemoMode(bench);
    bench.desktop.randoms = {0, 0, 0.5, 0, 0, 0, 0, 0};
    bench.advance(100ms);
    EXPECT_EQ(bench.state.DemoPeak, 25);
    EXPECT_EQ(bench.form1.Label_FMod_Porcentaje.caption, "25.0");
    EXPECT_EQ(bench.form1.Label_FMod.caption, "18.8");
}

TEST(PeaksPerMinute, HaveNoLeadingBlank) {
    RackBench bench;
    bench.readings.peaksPerMinute = 12;
    bench.start();
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_PicosPorMinuto.caption, "12");
    bench.readings.peaksPerMinute = 0;
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_PicosPorMinuto.caption, "0");
}

TEST(Field, ShowsTheCorrectedLevel) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"1", "-3.5", "0", "1", "0", "0", "0", "0"}));
    bench.readings.field = 60;
    bench.start();
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_FieldIntensity.caption, "56.5");
    EXPECT_EQ(bench.form1.FieldTenths, 565);
    EXPECT_THAT(bench.form1.FieldDigits, ElementsAre(5, 6, 5));
    bench.readings.field = 61;
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_FieldIntensity.caption, "57.5");
}

TEST(Field, TenthsAreAtMost999AndLeadingPlacesClear) {
    RackBench bench;
    bench.start();
    bench.readings.field = 120;
    bench.form1.RefrescoIntensidadDeCampo();
    EXPECT_EQ(bench.form1.FieldTenths, 999);
    EXPECT_THAT(bench.form1.FieldDigits, ElementsAre(9, 9, 9));
    bench.readings.field = 4.5f;
    bench.form1.RefrescoIntensidadDeCampo();
    EXPECT_THAT(bench.form1.FieldDigits, ElementsAre(-1, 4, 5));
    bench.readings.field = 0.7f;
    bench.form1.RefrescoIntensidadDeCampo();
    EXPECT_THAT(bench.form1.FieldDigits, ElementsAre(-1, -1, 7));
    bench.readings.field = 10;
    bench.form1.RefrescoIntensidadDeCampo();
    EXPECT_THAT(bench.form1.FieldDigits, ElementsAre(1, 0, 0));
}

TEST(Field, IsReadAfterATuning) {
    RackBench bench;
    bench.start();
    bench.readings.field = 52;
    bench.formB.cambfre();
    EXPECT_EQ(bench.form1.FieldTenths, 520);
}

TEST(Field, Is695InDemoMode) {
    RackBench bench;
    bench.readings.field = 30;
    startInDemoMode(bench);
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_FieldIntensity.caption, "69.5");
    EXPECT_EQ(bench.form1.FieldTenths, 695);
    EXPECT_THAT(bench.form1.FieldDigits, ElementsAre(6, 9, 5));
}

}  // namespace
}  // namespace hmonitor::test
