// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/analyses/scanner_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

using OneByOne = ScannerBench;
using Sweep = ScannerBench;

const char* const kMeasuring = "HM_Normal(981, 0, 0, 0, 0)";
const char* const kSum = "HM_Normal(981, 0, 1, 0, 0)";

TEST_F(OneByOne, ARunCallsTheDriverInItsOrder) {
    open(1.5f);
    run();
    std::vector<std::string> wanted{"HM_Parar", "HM_Parar", kSum, "HM_Parar"};
    const auto measured = supers(tableFill("run", ScanSpacing::Odd));
    wanted.insert(wanted.end(), measured.begin(), measured.end());
    wanted.insert(wanted.end(), {"HM_Parar", "HM_Parar", kMeasuring});
    EXPECT_EQ(bench.takeCalls(), wanted);
    EXPECT_EQ(scanner.CommandClose.caption, "Ok");
}

TEST_F(OneByOne, EveryChoiceWrapsBehindColumnFiveAndOnlyOddAndEvenAreStored) {
    for (const float version : {1.5f, 2.0f, 0.f}) {
        for (const ScanSpacing spacing : kAllSpacings) {
            bench.write("scan.dat", "before\r\n");
            open(version);
            choose(spacing);
            run();
            const TableFill& table = tableFill("run", spacing);
            expectLevels(table);
            const bool stored = spacing == ScanSpacing::Odd || spacing == ScanSpacing::Even;
            EXPECT_EQ(bench.read("scan.dat"), stored ? storedLevels(table) : "before\r\n");
            click(scanner.CommandClose);
            page.unload();
        }
    }
}

TEST_F(OneByOne, CellsBehindTheShownRowsAreKept) {
    open(1.5f);
    choose(ScanSpacing::All);
    run();
    EXPECT_EQ(scanner.Graph1.rowCount(), 21);
    EXPECT_EQ(scanner.Graph1.dataAt(42, 3), std::to_string(levelAt(10800)));
}

TEST_F(OneByOne, TheOffsetOfLineEightIsAddedInThisKindOfRun) {
    bench.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "-7"}));
    open(1.5f);
    run();
    expectLevels(tableFill("run", ScanSpacing::Odd), -7);
    EXPECT_EQ(bench.read("scan.dat"), storedLevels(tableFill("run", ScanSpacing::Odd), -7));
}

TEST_F(OneByOne, ANegativeLevelIsStoredWithoutItsSign) {
    open(1.5f);
    bench.driver.superLevel = -3;
    click(scanner.Command3D1);
    EXPECT_EQ(scanner.Graph1.dataAt(1, 3), "-3");
    EXPECT_TRUE(bench.read("scan.dat").starts_with("3\r\n3\r\n"));
}

TEST_F(OneByOne, TheChartMovesAlongAtRowsElevenAndTwenty) {
    open(1.5f);
    bench.hand.set(scanner.HScroll1, 5);
    bench.desktop.settle();
    std::vector<int> seen;
    run([&](float) {
        if (seen.empty() || seen.back() != scanner.HScroll1.value)
            seen.push_back(scanner.HScroll1.value);
    });
    EXPECT_THAT(seen, ElementsAre(0, 9, 11));
}

TEST_F(OneByOne, StopStoresNothingAndLeavesTheChart) {
    bench.write("scan.dat", "before\r\n");
    open(1.5f);
    int measured = 0;
    run([&](float) {
        EXPECT_EQ(scanner.CommandClose.caption, "Wait");
        if (++measured == 20) bench.hand.click(scanner.CommandClose);
    });
    EXPECT_EQ(measured, 20);
    EXPECT_EQ(scanner.CommandClose.caption, "Ok");
    EXPECT_EQ(bench.read("scan.dat"), "before\r\n");
    EXPECT_EQ(scanner.Graph1.dataAt(1, 3), std::to_string(levelAt(8750)));
    EXPECT_EQ(scanner.Graph1.dataAt(10, 1), "0");
    EXPECT_TRUE(rackDisabled());
    EXPECT_EQ(bench.driver.calls.back(), "HM_Parar");
}

TEST_F(OneByOne, TheRunAfterAStopGoesToItsEnd) {
    open(1.5f);
    run([&](float) { bench.hand.click(scanner.CommandClose); });
    bench.takeCalls();
    run();
    EXPECT_EQ(callsOf("HM_Super"), 103);
    expectLevels(tableFill("run", ScanSpacing::Odd));
}

TEST_F(OneByOne, ClosingAfterAStopReturnsTheUnit) {
    open(1.5f);
    run([&](float) { bench.hand.click(scanner.CommandClose); });
    bench.takeCalls();
    click(scanner.CommandClose);
    EXPECT_FALSE(scanner.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", kMeasuring));
}

TEST_F(OneByOne, ClosingAfterAWholeRunTunesNothingMore) {
    open(1.5f);
    run();
    bench.takeCalls();
    click(scanner.CommandClose);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_TRUE(rackEnabled());
}

TEST_F(OneByOne, AUnitThatFailsEndsTheRunLikeAStop) {
    bench.write("scan.dat", "before\r\n");
    open(1.5f);
    bench.driver.superResults = {0, 0, 0, 1};
    run();
    EXPECT_EQ(callsOf("HM_Super"), 4);
    EXPECT_EQ(scanner.CommandClose.caption, "Ok");
    EXPECT_EQ(bench.read("scan.dat"), "before\r\n");
    click(scanner.CommandClose);
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(bench.driver.calls.back(), kMeasuring);
}

TEST_F(OneByOne, ClosingTheWindowInARunStopsItAndASecondCloseCloses) {
    open(1.5f);
    int measured = 0;
    run([&](float) {
        if (++measured == 5) bench.hand.close(scanner);
    });
    EXPECT_EQ(measured, 5);
    EXPECT_TRUE(scanner.visible);
    bench.hand.close(scanner);
    bench.desktop.settle();
    EXPECT_FALSE(scanner.loaded());
    EXPECT_TRUE(rackEnabled());
}

TEST_F(OneByOne, OnlyItsStopKeyAndItsBarPassInARun) {
    open(1.5f);
    int measured = 0;
    run([&](float) {
        if (++measured != 3) return;
        bench.hand.choose(scanner.Option_All);
        bench.hand.click(scanner.Command3D1);
        bench.hand.enter(scanner);
        bench.hand.click(bench.formD.Image3);
        bench.hand.set(scanner.HScroll1, 4);
    });
    EXPECT_EQ(measured, 103);
    EXPECT_EQ(callsOf("HM_Super"), 103);
    EXPECT_TRUE(scanner.Option_Impares.chosen);
    EXPECT_FALSE(bench.forms.formDd3.visible);
}

TEST_F(OneByOne, TheBarMovesTheChartInTheMiddleOfARun) {
    open(1.5f);
    int measured = 0;
    float left = 0;
    run([&](float) {
        if (++measured == 3) bench.hand.set(scanner.HScroll1, 4);
        if (measured == 5) left = scanner.Graph1.left;
    });
    EXPECT_EQ(left, -920 * 4 - 280);
}

TEST_F(OneByOne, ThePanelsGoOnMeasuringInARun) {
    open(1.5f);
    const int before = bench.driver.dataCalls;
    run([&](float) { bench.desktop.elapse(30ms); });
    EXPECT_GT(bench.driver.dataCalls, before + 50);
}

TEST_F(OneByOne, AUnitOfVersionTwoColoursThePrintKey) {
    open(1.5f);
    run();
    EXPECT_NE(scanner.SSCommand1.colour, display::kRed);
    click(scanner.CommandClose);
    open(2.0f);
    run();
    EXPECT_EQ(scanner.SSCommand1.colour, display::kRed);
}

TEST_F(OneByOne, NothingRunsInDemoMode) {
    open(0);
    bench.state.DemoMode = "si";
    click(scanner.Command3D1);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_EQ(scanner.CommandClose.caption, "&Cancel");
    choose(ScanSpacing::Even);
    EXPECT_EQ(bench.takeCalls(), supers(tableFill("option", ScanSpacing::Even)));
}

TEST_F(OneByOne, AScanThatCannotBeStoredIsSaidAndTheUnitIsReturned) {
    open(1.5f);
    bench.remove("scan.dat");
    std::filesystem::create_directory(bench.scratch.path() / "scan.dat");
    bench.desktop.answerEveryBox = true;
    run();
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_THAT(bench.desktop.boxes[0].text, testing::HasSubstr("scan.dat"));
    EXPECT_EQ(bench.driver.calls.back(), kMeasuring);
    EXPECT_EQ(scanner.CommandClose.caption, "Ok");
}

TEST_F(Sweep, EveryFrameDrawsFromTheStartOfTheBand) {
    for (const float version : {1.7f, 1.8f, 1.99f}) {
        for (const ScanSpacing spacing : kAllSpacings) {
            bench.write("scan.dat", "before\r\n");
            open(version);
            choose(spacing);
            bench.takeCalls();
            click(scanner.Command3D1);
            EXPECT_EQ(scanner.Command3D1.caption, "Stop");
            EXPECT_EQ(scanner.CommandClose.caption, "Wait");
            frames(1);
            expectLevels(tableFill("frame89.5", spacing));
            frames(9);
            expectLevels(tableFill("frame107.5", spacing));
            EXPECT_EQ(bench.read("scan.dat"), "before\r\n");
            frames(1);
            const TableFill& last = tableFill("frame108.0", spacing);
            expectLevels(last);
            // Stored for every choice of channels, unlike a run that measures one by one.
            EXPECT_EQ(bench.read("scan.dat"), storedLevels(last));
            EXPECT_EQ(scanner.Command3D1.caption, "&New Run");
            EXPECT_EQ(scanner.CommandClose.caption, "Ok");
            EXPECT_FALSE(scanner.Timer1.enabled);
            EXPECT_EQ(callsOf("HM_StartEspectro"), 11);
            EXPECT_EQ(bench.driver.calls.back(), kMeasuring);
            click(scanner.CommandClose);
            EXPECT_TRUE(rackEnabled());
        }
    }
}

TEST_F(Sweep, AsksForTwoMhzAtATime) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(2);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Parar", kSum, "HM_Parar",
                                               "HM_StartEspectro(875, 895, 100)", "HM_Parar",
                                               "HM_StartEspectro(895, 915, 100)", "HM_Parar",
                                               "HM_StartEspectro(915, 935, 100)"));
    frames(8);
    EXPECT_EQ(bench.driver.calls.back(), "HM_StartEspectro(1075, 1080, 100)");
}

TEST_F(Sweep, AsksForAWiderStepWith250Khz) {
    open(1.8f);
    choose(ScanSpacing::Quarter);
    bench.takeCalls();
    click(scanner.Command3D1);
    EXPECT_EQ(bench.driver.calls.back(), "HM_StartEspectro(875, 895, 250)");
}

TEST_F(Sweep, TheChartMovesAlongAbove102Mhz) {
    open(1.8f);
    bench.hand.set(scanner.HScroll1, 3);
    bench.desktop.settle();
    click(scanner.Command3D1);
    std::vector<int> seen;
    for (int i = 0; i < 11; ++i) {
        frames(1);
        seen.push_back(scanner.HScroll1.value);
    }
    EXPECT_THAT(seen, ElementsAre(0, 0, 0, 0, 0, 0, 1, 3, 5, 6, 6));
}

TEST_F(Sweep, TheOffsetOfLineEightIsNotAdded) {
    bench.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "-7"}));
    open(1.8f);
    click(scanner.Command3D1);
    frames(1);
    expectLevels(tableFill("frame89.5", ScanSpacing::Odd));
}

TEST_F(Sweep, WaitsForAFrame) {
    open(1.8f);
    click(scanner.Command3D1);
    bench.takeCalls();
    bench.advance(5s);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_EQ(scanner.Graph1.dataAt(1, 3), "0");
}

TEST_F(Sweep, StopEndsItAndStoresNothing) {
    bench.write("scan.dat", "before\r\n");
    open(1.8f);
    click(scanner.Command3D1);
    frames(3);
    bench.takeCalls();
    click(scanner.Command3D1);
    EXPECT_EQ(scanner.Command3D1.caption, "&New Run");
    EXPECT_EQ(scanner.CommandClose.caption, "Ok");
    EXPECT_FALSE(scanner.Timer1.enabled);
    EXPECT_EQ(bench.read("scan.dat"), "before\r\n");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Parar", kSum));
    click(scanner.CommandClose);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", kMeasuring));
    EXPECT_TRUE(rackEnabled());
}

TEST_F(Sweep, TheRunAfterAStopGoesToItsEnd) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(3);
    click(scanner.Command3D1);
    click(scanner.Command3D1);
    frames(11);
    EXPECT_EQ(bench.read("scan.dat"), storedLevels(tableFill("frame108.0", ScanSpacing::Odd)));
}

TEST_F(Sweep, TheCloseKeyHaltsTheUnitAndTheRunGoesOnUntilItsOwnKey) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(1);
    bench.takeCalls();
    bench.hand.close(scanner);
    bench.desktop.settle();
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar"));
    EXPECT_TRUE(scanner.visible);
    EXPECT_TRUE(scanner.Timer1.enabled);
    EXPECT_EQ(scanner.CommandClose.caption, "Wait");
    click(scanner.Command3D1);
    click(scanner.CommandClose);
    EXPECT_FALSE(scanner.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(bench.driver.calls.back(), kMeasuring);
}

TEST_F(Sweep, AUnitThatTheCloseKeyHaltedIsAskedForTheSameFrameAgain) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(2);
    click(scanner.CommandClose);
    bench.takeCalls();
    bench.advance(250ms);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_StartEspectro(915, 935, 100)"));
    bench.advance(5s);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    frames(9);
    expectLevels(tableFill("frame108.0", ScanSpacing::Odd));
    EXPECT_EQ(scanner.CommandClose.caption, "Ok");
    EXPECT_EQ(bench.read("scan.dat"), storedLevels(tableFill("frame108.0", ScanSpacing::Odd)));
}

TEST_F(Sweep, AFrameThatWasUnderWayWhenTheCloseKeyHaltedTheUnitIsTaken) {
    open(1.8f);
    click(scanner.Command3D1);
    click(scanner.CommandClose);
    bench.takeCalls();
    frames(1);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_StartEspectro(895, 915, 100)"));
    expectLevels(tableFill("frame89.5", ScanSpacing::Odd));
}

TEST_F(Sweep, AUnitThatFallsSilentInTheMiddleIsLeftByStopAndClose) {
    bench.write("scan.dat", "before\r\n");
    open(1.8f);
    click(scanner.Command3D1);
    frames(4);
    bench.advance(60s);
    EXPECT_EQ(scanner.Command3D1.caption, "Stop");
    expectLevels(tableFill("frame95.5", ScanSpacing::Odd));
    click(scanner.Command3D1);
    click(scanner.CommandClose);
    EXPECT_FALSE(scanner.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(bench.driver.calls.back(), kMeasuring);
    EXPECT_EQ(bench.read("scan.dat"), "before\r\n");
}

TEST_F(Sweep, AChoiceInTheMiddleOfASweepIsFollowedByTheNextFrame) {
    open(1.8f);
    click(scanner.Command3D1);
    frames(1);
    choose(ScanSpacing::All);
    frames(1);
    expectLevels(tableFill("frame91.5", ScanSpacing::All));
}

TEST_F(Sweep, GarbageLevelsLeaveTheLastGoodOne) {
    open(1.8f);
    bench.driver.spectrum[877.f] = std::numeric_limits<float>::quiet_NaN();
    click(scanner.Command3D1);
    frames(1);
    EXPECT_EQ(scanner.Graph1.dataAt(1, 4), std::to_string(levelAt(8750)));
}

}  // namespace
}  // namespace hmonitor::test
