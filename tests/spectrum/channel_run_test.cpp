// SPDX-License-Identifier: GPL-3.0-or-later
// The run of a channel spectrum, from the key that starts it to the file that it writes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "tests/spectrum/spectrum_bench.h"

namespace hmonitor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

TEST(ChannelRun, AtTheStartMeasures17PointsAround875AndLeavesTheRackUsable) {
    RackBench bench;
    bench.driver.noteData = true;
    bench.readings.field = 60;
    bench.start();
    const auto calls = bench.takeCalls();
    const auto version = std::find(std::next(std::ranges::find(calls, "HM_getHardwareVersion")),
                                   calls.end(), "HM_getHardwareVersion");
    ASSERT_NE(version, calls.end());
    const std::vector<std::string> opening(version - 2, version);
    EXPECT_THAT(opening, ElementsAre("HM_Data", "HM_Parar"));
    // Without the readings that a tuning takes for the panels.
    std::vector<std::string> rest(version + 1, calls.end());
    std::erase(rest, "HM_Data");
    ASSERT_GE(rest.size(), 22u);
    EXPECT_EQ(rest[0], "HM_Parar");
    EXPECT_THAT(rest[1], StartsWith("HM_Normal(875,"));
    EXPECT_EQ(rest[2], "HM_Parar");
    for (std::size_t i = 0; i < 17; ++i) {
        const double frequency = 873.0 + 0.25 * static_cast<double>(i);
        EXPECT_EQ(rest[3 + i], "HM_Super(" + shortText(frequency).str() + ")");
    }
    EXPECT_EQ(rest[20], "HM_Parar");
    EXPECT_THAT(rest[21], StartsWith("HM_Normal(875,"));
    EXPECT_TRUE(bench.exists("0875.spc"));
    EXPECT_TRUE(bench.forms.formD1.loaded());
    EXPECT_FALSE(bench.forms.formNewSpectro.loaded());
    for (const display::Form* panel : bench.program.rack) EXPECT_TRUE(panel->enabled);
}

TEST(ChannelRun, AtTheStartLeavesItsWindowBesideTheRack) {
    RackBench bench;
    bench.readings.field = 70;
    bench.start();
    EXPECT_TRUE(bench.forms.formD1.visible);
    EXPECT_GE(bench.forms.formD1.left, bench.form1.left + bench.form1.width);
    EXPECT_EQ(bench.forms.formD1.top, bench.form1.top);
}

TEST(ChannelRun, OfAStartWithoutACarrierStaysHiddenUntilItsDoorOpens) {
    RackBench bench;
    bench.start();
    EXPECT_TRUE(bench.forms.formD1.loaded());
    EXPECT_FALSE(bench.forms.formD1.visible);
    EXPECT_THAT(bench.desktop.journal, Not(Contains("show Form_D1")));
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    EXPECT_TRUE(bench.forms.formD1.visible);
}

TEST(ChannelRun, OfTheStartNeverStandsBeforeTheRackHasItsPlace) {
    RackBench bench;
    bench.readings.field = 70;
    bench.start();
    const auto& journal = bench.desktop.journal;
    EXPECT_GT(std::ranges::find(journal, "show Form_D1"),
              std::ranges::find(journal, "show Form_B"));
    EXPECT_NE(std::ranges::find(journal, "show Form_D1"), journal.end());
}

TEST(ChannelRun, OfTheStartStaysHiddenWhereItWouldHideAPartOfTheRack) {
    RackBench roomy;
    roomy.readings.field = 70;
    roomy.start();
    const Form_D1& shown = roomy.forms.formD1;
    const float needed = shown.left + shown.width;
    for (const float lacking : {0.f, 1.f}) {
        RackBench bench;
        bench.readings.field = 70;
        bench.desktop.screen = {0, 0, needed - lacking, 20000};
        bench.start();
        EXPECT_EQ(bench.forms.formD1.visible, lacking == 0);
        EXPECT_TRUE(bench.forms.formD1.loaded());
    }
}

TEST(ChannelRun, InDemoModeMeasuresNothing) {
    SpectrumBench bench;
    bench.state.DemoMode = "si";
    bench.remove("0979.spc");
    bench.runSpan(0);
    EXPECT_EQ(SpectrumBench::count(bench.takeCalls(), "HM_Super"), 0u);
    EXPECT_TRUE(bench.asks.visible);
    EXPECT_FALSE(bench.exists("0979.spc"));
}

TEST(ChannelRun, EachSpanMeasuresItsPointsOnBothGenerationsOfUnits) {
    const std::size_t points[] = {17, 25, 29, 21, 25, 33, 21};
    const char* firsts[] = {"977", "976", "975.5", "974", "973", "971", "969"};
    for (const float version : {1.5f, 1.8f}) {
        SpectrumBench bench(version);
        for (int item = 0; item < 7; ++item) {
            SCOPED_TRACE(item);
            bench.takeCalls();
            bench.runSpan(item);
            const auto calls = bench.takeCalls();
            EXPECT_EQ(SpectrumBench::count(calls, "HM_Super"), points[item]);
            EXPECT_THAT(calls, Contains("HM_Super(" + std::string(firsts[item]) + ")"));
            EXPECT_THAT(bench.read("0979.spc"), StartsWith(std::to_string(points[item]) + "\r\n"));
        }
    }
}

TEST(ChannelRun, StoresDbBelowTheCarrierWithNothingAtTheCentre) {
    SpectrumBench bench;
    // Above the carrier, equal to it, below, and far below; the ninth is the carrier itself.
    bench.driver.superLevels = {75, 70, 69, 40.5f, 20, 19, -10, 55, 33};
    bench.driver.superLevel = 50;
    bench.runSpan(0);
    EXPECT_EQ(bench.read("0979.spc"),
              lines({"17", "25", "97.675", "0",  "0",  "1",  "30", "50", "50", "50", "15",
                     "0",  "20", "20",     "20", "20", "20", "20", "20", "20", ""}));
    EXPECT_THAT(SpectrumBench::printedAt(bench.shows.Picture2, 500),
                ElementsAre("0", "0", "-1", "-30", "-50", "-50", "-50", "-15", "0", "-20", "-20",
                            "-20", "-20", "-20", "-20", "-20", "-20"));
}

TEST(ChannelRun, ReturnsTheUnitAndIsReady) {
    SpectrumBench bench;
    bench.runSpan(0);
    const auto calls = bench.takeCalls();
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[calls.size() - 2], "HM_Parar");
    EXPECT_THAT(calls.back(), StartsWith("HM_Normal(979,"));
    EXPECT_EQ(bench.shows.Command3D2.caption, "Ok");
    EXPECT_TRUE(bench.shows.visible);
    EXPECT_FALSE(bench.asks.loaded());
}

TEST(ChannelRun, BarsAndValuesGrowAsThePointsCome) {
    SpectrumBench bench;
    std::vector<std::size_t> printed;
    bench.driver.duringSuper = [&](float) {
        printed.push_back(SpectrumBench::printedAt(bench.shows.Picture2, 500).size());
        EXPECT_TRUE(bench.shows.visible);
        EXPECT_FALSE(bench.asks.visible);
    };
    bench.runSpan(0);
    ASSERT_THAT(printed, SizeIs(17));
    for (std::size_t i = 0; i < printed.size(); ++i) EXPECT_EQ(printed[i], i);
}

TEST(ChannelRun, LetsEventsThroughOncePerPoint) {
    SpectrumBench bench;
    const int before = bench.desktop.passes;
    bench.runSpan(5);
    EXPECT_EQ(bench.desktop.passes - before, 33);
}

TEST(ChannelRun, WaitIsALockAgainstTheKeyAndTheWindowsClose) {
    SpectrumBench bench;
    bench.driver.duringSuper = [&](float) {
        EXPECT_EQ(bench.shows.Command3D2.caption, "Wait");
        for (const display::Form* panel : bench.program.rack) EXPECT_FALSE(panel->enabled);
        bench.hand.click(bench.shows.Command3D2);
        bench.hand.close(bench.shows);
        bench.hand.click(bench.shows.Command3D1);
        bench.hand.click(bench.shows.SSCommand2);
        bench.hand.escape(bench.shows);
        bench.hand.click(bench.formB.SSCommand1);
    };
    bench.runSpan(0);
    EXPECT_EQ(SpectrumBench::count(bench.takeCalls(), "HM_Super"), 17u);
    EXPECT_TRUE(bench.exists("0979.spc"));
    bench.driver.duringSuper = nullptr;
    for (const display::Form* panel : bench.program.rack) EXPECT_TRUE(panel->enabled);
}

TEST(ChannelRun, KeepsTheFrequencyThatItBeganWith) {
    SpectrumBench bench;
    bench.remove("1000.spc");
    bench.driver.duringSuper = [&](float) { bench.formB.TunedFreq = 1000; };
    bench.runSpan(0);
    const auto calls = bench.takeCalls();
    EXPECT_THAT(calls, Contains("HM_Super(981)"));
    EXPECT_THAT(bench.read("0979.spc"), StartsWith("17\r\n25\r\n97.675\r\n"));
    EXPECT_FALSE(bench.exists("1000.spc"));
}

TEST(ChannelRun, ARefusedRunTellsSoWithItsFrequencyUntilTheNextOne) {
    SpectrumBench bench;
    bench.driver.superResults = {0, 0, 1};
    bench.runSpan(0);
    EXPECT_EQ(bench.shows.Refused.caption, "The unit refused 97.75 MHz: the run ended there.");
    bench.runSpan(0);
    EXPECT_EQ(bench.shows.Refused.caption, "");
}

TEST(ChannelRun, WithoutAStepOnlyReturnsTheUnit) {
    for (const char* step : {"", "abc", "0", "-25", "0.5"}) {
        SCOPED_TRACE(step);
        SpectrumBench bench;
        bench.remove("0979.spc");
        bench.hand.click(bench.shows.Command3D1);
        bench.desktop.settle();
        bench.hand.edit(bench.asks.Text_Step, step);
        bench.takeCalls();
        bench.hand.click(bench.asks.Command3D1);
        bench.desktop.settle();
        EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_getHardwareVersion", "HM_Parar",
                                                   StartsWith("HM_Normal(979,")));
        EXPECT_TRUE(bench.asks.visible);
        EXPECT_FALSE(bench.exists("0979.spc"));
        EXPECT_EQ(bench.asks.Refused.caption, "The least step is 1 kHz.");
        EXPECT_EQ(bench.desktop.focus, &bench.asks.Text_Step);
        // The sentence about the step disappears when the step is changed.
        bench.type(bench.asks.Text_Step, "50");
        EXPECT_EQ(bench.asks.Text_Step.text, "50");
        EXPECT_EQ(bench.asks.Refused.caption, "");
        EXPECT_EQ(bench.program.unitInUse.window, nullptr);
    }
}

TEST(ChannelRun, KeepsItsSpanWhereNoItemOfTheListIsChosen) {
    SpectrumBench bench;
    bench.hand.click(bench.shows.Command3D1);
    bench.desktop.settle();
    bench.hand.select(bench.asks.Combo1, -1);
    bench.hand.click(bench.asks.Command3D1);
    bench.desktop.settle();
    EXPECT_EQ(SpectrumBench::count(bench.takeCalls(), "HM_Super"), 17u);
}

TEST(ChannelRun, UnitThatFailsEndsItKeepsTheOldFileAndIsReturnedAtTheClose) {
    SpectrumBench bench;
    bench.runSpan(0);
    const std::string old = bench.read("0979.spc");
    bench.driver.superLevel = 10;
    bench.driver.superResults = {0, 0, 0, 1};
    bench.takeCalls();
    bench.runSpan(0);
    EXPECT_EQ(SpectrumBench::count(bench.takeCalls(), "HM_Super"), 4u);
    EXPECT_EQ(bench.read("0979.spc"), old);
    EXPECT_THAT(SpectrumBench::printedAt(bench.shows.Picture2, 500), SizeIs(3));
    bench.hand.click(bench.shows.Command3D2);
    bench.desktop.settle();
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", StartsWith("HM_Normal(979,")));
    EXPECT_FALSE(bench.shows.loaded());
    for (const display::Form* panel : bench.program.rack) EXPECT_TRUE(panel->enabled);
}

TEST(ChannelRun, GarbageLevelsKeepTheLastGoodOne) {
    SpectrumBench bench;
    bench.driver.superLevels = {60, std::nanf(""), 1e30f, -std::numeric_limits<float>::infinity()};
    bench.driver.superLevel = 70;
    bench.runSpan(0);
    EXPECT_THAT(bench.read("0979.spc"),
                StartsWith("17\r\n25\r\n97.675\r\n10\r\n10\r\n10\r\n10\r\n0\r\n"));
}

TEST(ChannelRun, FolderThatCannotBeWrittenIsToldOnceAndTheRunEndsAsEver) {
    SpectrumBench bench;
    bench.remove("0979.spc");
    std::filesystem::create_directory(bench.scratch.path() / "0979.spc");
    bench.desktop.answerEveryBox = true;
    bench.runSpan(0);
    ASSERT_THAT(bench.desktop.boxes, SizeIs(1));
    EXPECT_THAT(bench.desktop.boxes[0].text, testing::HasSubstr("0979.spc"));
    EXPECT_EQ(bench.shows.Command3D2.caption, "Ok");
    EXPECT_THAT(bench.takeCalls().back(), StartsWith("HM_Normal(979,"));
}

TEST(ChannelRun, ThumbnailShowsTheSpectrumThatWasStored) {
    SpectrumBench bench;
    bench.driver.superLevel = 40;
    bench.runSpan(0);
    // A filled background and seventeen bars.
    EXPECT_THAT(bench.formD.PictureGraph1.drawing.marks(), SizeIs(18));
}

}  // namespace
}  // namespace hmonitor::test
