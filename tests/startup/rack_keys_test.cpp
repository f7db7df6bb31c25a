// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the whole rack: fold, handle, version box, power and print.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(Fold, HidesThePanelsAndUnfoldBringsThemBackWithoutATuning) {
    RackBench bench;
    bench.start();
    bench.takeCalls();
    for (int i = 0; i < 2; ++i) {
        bench.press(bench.form1.Image7);
        EXPECT_EQ(bench.form1.Image7.picture, "MinA");
        bench.release(bench.form1.Image7);
        EXPECT_EQ(bench.form1.Image7.picture, "MinN");
        EXPECT_EQ(bench.form1.windowState, display::WindowState::Minimised);
        EXPECT_FALSE(bench.formB.visible);
        EXPECT_FALSE(bench.formC.visible);
        EXPECT_FALSE(bench.formD.visible);
        EXPECT_EQ(bench.form1.RackPhase, 0);
        bench.hand.unfold(bench.form1);
        bench.desktop.settle();
        EXPECT_TRUE(bench.formB.visible);
        EXPECT_TRUE(bench.formC.visible);
        EXPECT_TRUE(bench.formD.visible);
        EXPECT_EQ(bench.formB.top, bench.form1.top + bench.form1.height);
    }
    EXPECT_THAT(bench.driver.calls, IsEmpty());
    EXPECT_FALSE(bench.forms.form3.loaded());
}

TEST(Handle, MovesTheFourPanelsAsOne) {
    RackBench bench;
    bench.start();
    const float before[] = {bench.form1.left, bench.form1.top, bench.formD.left, bench.formD.top};
    bench.hand.mouseMove(bench.form1.Picture3, {100, 50, false});
    bench.hand.mouseDown(bench.form1.Picture3, {100, 50, true});
    bench.hand.mouseMove(bench.form1.Picture3, {130, 40, true});
    bench.desktop.settle();
    EXPECT_EQ(bench.form1.left, before[0] + 30);
    EXPECT_EQ(bench.form1.top, before[1] - 10);
    EXPECT_EQ(bench.formB.left, bench.form1.left);
    EXPECT_EQ(bench.formC.left, bench.form1.left);
    EXPECT_EQ(bench.formD.left, before[2] + 30);
    EXPECT_EQ(bench.formD.top, before[3] - 10);
    bench.hand.mouseMove(bench.form1.Picture3, {500, 500, false});
    bench.desktop.settle();
    EXPECT_EQ(bench.form1.left, before[0] + 30);
}

TEST(Handle, GoesByThePlaceThatWasNotedWithNoButtonDown) {
    RackBench bench;
    bench.start();
    const float left = bench.form1.left;
    bench.hand.mouseMove(bench.form1.Picture3, {100, 50, false});
    bench.hand.mouseMove(bench.form1.Picture3, {200, 60, false});
    bench.hand.mouseMove(bench.form1.Picture3, {205, 63, true});
    bench.desktop.settle();
    EXPECT_EQ(bench.form1.left, left + 5);
}

TEST(VersionBox, ShowsThreeLinesUnderTheModel) {
    RackBench bench;
    bench.start();
    bench.takeCalls();
    bench.desktop.boxAnswers = {"ok"};
    bench.driver.hardwareVersion = 1.75f;
    bench.hand.doubleClick(bench.form1.Picture3);
    bench.desktop.settle();
    EXPECT_THAT(bench.driver.calls,
                ElementsAre("HM_getHardwareVersion", "HM_getDriverVersion(1.75)"));
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].title, "HMonitor");
    EXPECT_EQ(bench.desktop.boxes[0].text,
              "Software Version: 4.5\nDriver Version:  4.2\nHardware Version:  1.75");
    EXPECT_FLOAT_EQ(bench.program.words.gHardwareVersion, 1.75f);
}

TEST(Power, StopsWritesThePresetTerminatesAndEnds) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "-7.5"}));
    bench.start();
    bench.advance(100ms);
    bench.state.MemoryNumber = "3";
    bench.takeCalls();
    bench.press(bench.form1.Image_Power);
    EXPECT_EQ(bench.form1.Image_Power.picture, "PowerA");
    EXPECT_FALSE(bench.desktop.ended());
    bench.release(bench.form1.Image_Power);
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.driver.calls, ElementsAre("HM_Parar", "HM_Terminate"));
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"3", "0", "0", "1", "0", "0", "0", "-7.5"}));
}

TEST(Power, WritesBetweenTheStopAndTheLastCallAndLeavesTheFormsAsTheyAre) {
    RackBench bench;
    bench.start();
    bench.advance(100ms);
    bench.state.MemoryNumber = "3";
    bool looked = false;
    bench.driver.duringTerminate = [&] {
        looked = true;
        EXPECT_THAT(bench.read("hm-16.dat"), testing::StartsWith("3\r\n"));
        EXPECT_FALSE(bench.desktop.ended());
    };
    bench.click(bench.form1.Image_Power);
    EXPECT_TRUE(looked);
    for (const display::Form* panel : bench.program.rack) {
        EXPECT_TRUE(panel->loaded()) << panel->name();
        EXPECT_TRUE(panel->visible) << panel->name();
    }
    EXPECT_EQ(bench.desktop.journal.back(), "end");
}

TEST(Power, AReleaseOutsideTheKeyTakesItBack) {
    RackBench bench;
    bench.start();
    bench.takeCalls();
    bench.hand.press(bench.form1.Image_Power);
    bench.hand.cancel(bench.form1.Image_Power);
    bench.desktop.settle();
    EXPECT_EQ(bench.form1.Image_Power.picture, "PowerN");
    EXPECT_FALSE(bench.desktop.ended());
    EXPECT_THAT(bench.driver.calls, IsEmpty());
}

TEST(Settings, ChangeOnDiskOnlyThroughTheKeysThatStoreThem) {
    RackBench bench;
    bench.start();
    const std::string before = bench.read("hm-16.dat");
    // None of these acts stores the preset, so a crash would keep the old one.
    bench.hand.click(bench.formB.SSCommand1);
    bench.hand.set(bench.formB.HScroll1, 150);
    bench.advance(600s);
    bench.hand.click(bench.formB.SSCommand1);
    bench.hand.click(bench.form1.Image7);
    bench.hand.unfold(bench.form1);
    bench.advance(1000ms);
    EXPECT_NE(bench.state.MemoryNumber, "1");
    EXPECT_EQ(bench.read("hm-16.dat"), before);
    const std::string memory = bench.state.MemoryNumber.str();
    bench.click(bench.form1.Image_Power);
    EXPECT_EQ(bench.read("hm-16.dat"), lines({memory, "0", "0", "1", "0", "0", "0", "0"}));
}

TEST(Power, EndsTheProgramThoughTheFileCannotBeWritten) {
    RackBench bench;
    bench.start();
    bench.advance(100ms);
    bench.remove("hm-16.dat");
    bench.desktop.boxAnswers = {"ok"};
    bench.click(bench.form1.Image_Power);
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.driver.calls, Contains("HM_Terminate"));
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_THAT(bench.desktop.boxes[0].text, HasSubstr("hm-16.dat"));
}

TEST(Power, ClosingTheRacksWindowIsThePowerKey) {
    RackBench bench;
    bench.start();
    bench.takeCalls();
    bench.hand.close(bench.form1);
    bench.desktop.settle();
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.driver.calls, ElementsAre("HM_Parar", "HM_Terminate"));
}

TEST(Print, SendsTheImageOfTheFourPanelsAndLeavesTheClipboardAlone) {
    RackBench bench;
    bench.start();
    bench.desktop.clipboard = "the user's own";
    bench.press(bench.form1.Image9);
    EXPECT_EQ(bench.form1.Image9.picture, "MinA");
    EXPECT_TRUE(bench.desktop.printed.empty());
    bench.release(bench.form1.Image9);
    EXPECT_EQ(bench.form1.Image9.picture, "MinN");
    ASSERT_EQ(bench.desktop.printed.size(), 1u);
    EXPECT_THAT(bench.desktop.printed[0],
                ElementsAre(&bench.form1, &bench.formB, &bench.formC, &bench.formD));
    EXPECT_EQ(bench.desktop.clipboard, "the user's own");
}

TEST(Print, SaysWhatThePrinterSays) {
    RackBench bench;
    bench.start();
    bench.desktop.printerFault = "No printer is set up.";
    bench.desktop.boxAnswers = {"ok"};
    bench.click(bench.form1.Image9);
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "No printer is set up.");
}

}  // namespace
}  // namespace hmonitor::test
