// SPDX-License-Identifier: GPL-3.0-or-later
// An end from outside the windows does what the power key does, without its box, whatever is going
// on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

std::string firstLine(const std::string& bytes) {
    return bytes.substr(0, bytes.find('\r'));
}

/// Steps from preset 1 to preset 3, which only an end in good order stores.
void stepOn(RackBench& bench) {
    bench.click(bench.formB.SSCommand1);
    ASSERT_EQ(bench.state.MemoryNumber, "3");
    ASSERT_EQ(firstLine(bench.read("hm-16.dat")), "1");
    bench.takeCalls();
}

TEST(EndWanted, DoesThePowerKeysSteps) {
    RackBench bench;
    bench.start();
    stepOn(bench);
    bench.desktop.wantEnd();
    bench.settle();
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Terminate"));
    EXPECT_EQ(firstLine(bench.read("hm-16.dat")), "3");
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST(EndWanted, IsHeardByARunAsItsStop) {
    RackBench bench;
    bench.start();
    bench.driver.hardwareVersion = 1.5f;
    stepOn(bench);
    int levels = 0;
    bench.driver.duringSuper = [&](float) {
        if (++levels == 3) bench.desktop.wantEnd();
    };
    bench.click(bench.formD.Image2);
    bench.click(bench.forms.formBandSCanner.Command3D1);
    EXPECT_EQ(levels, 3);
    EXPECT_TRUE(bench.desktop.ended());
    const auto calls = bench.takeCalls();
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[calls.size() - 2], "HM_Parar");
    EXPECT_EQ(calls.back(), "HM_Terminate");
    EXPECT_EQ(firstLine(bench.read("hm-16.dat")), "3");
    EXPECT_EQ(bench.read("scan.dat"), "") << "what broke off is not stored";
}

TEST(EndWanted, EndsARunThatGoesOnAndOn) {
    RackBench bench;
    bench.start();
    bench.driver.hardwareVersion = 1.5f;
    int levels = 0;
    bench.driver.duringSuper = [&](float) {
        if (++levels == 900) bench.desktop.wantEnd();
    };
    bench.click(bench.formD.Image6);
    bench.click(bench.forms.formSpectrumAnalizer.butStart_BW);
    EXPECT_EQ(levels, 900);
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_EQ(bench.takeCalls().back(), "HM_Terminate");
}

TEST(EndWanted, DoesNotWaitForABoxToBeAnswered) {
    RackBench bench;
    bench.start();
    stepOn(bench);
    bench.desktop.boxAnswers = {"ok"};
    bench.desktop.duringBox = [&] { bench.desktop.wantEnd(); };
    bench.hand.doubleClick(bench.form1.Picture3);
    bench.settle();
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.takeCalls(), Contains("HM_Terminate").Times(1));
    EXPECT_EQ(firstLine(bench.read("hm-16.dat")), "3");
}

TEST(EndWanted, AtTheDemoOfferKeepsThePresetThatIsStored) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"16", "0", "0", "1", "0", "0", "0", "0"}));
    const std::string before = bench.read("hm-16.dat");
    bench.driver.hardwareVersion = 0;
    bench.desktop.modalScripts["FormModoDemo"] = [&](display::Form&) { bench.desktop.wantEnd(); };
    bench.start();
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Init", "HM_getHardwareVersion", "HM_Parar", "HM_Terminate"));
    EXPECT_EQ(bench.read("hm-16.dat"), before);
}

TEST(EndWanted, InTheLevelsOfTheStartComesBehindThem) {
    RackBench bench;
    int levels = 0;
    bench.driver.duringSuper = [&](float) {
        if (++levels == 2) bench.desktop.wantEnd();
    };
    bench.start();
    EXPECT_EQ(levels, 2);
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_EQ(bench.takeCalls().back(), "HM_Terminate");
}

TEST(EndWanted, BeforeTheUnitIsOpenedClosesIt) {
    RackBench bench;
    bench.showSplash();
    bench.desktop.wantEnd();
    bench.settle();
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Terminate"));
}

TEST(EndWanted, TellsWhoeverStartedItOfAPresetThatCannotBeStored) {
    RackBench bench;
    bench.start();
    stepOn(bench);
    bench.remove("hm-16.dat");
    bench.desktop.wantEnd();
    bench.settle();
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_TRUE(bench.desktop.boxes.empty());
    EXPECT_THAT(bench.desktop.journal, Contains("tell File not found: hm-16.dat"));
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Terminate"));
}

TEST(EndWanted, WhileThePowerKeySaysWhatItCannotStoreEndsOnce) {
    RackBench bench;
    bench.start();
    stepOn(bench);
    // A folder in place of the file: a file without rights would not stop root.
    bench.desktop.boxAnswers = {"ok"};
    bench.desktop.duringBox = [&] { bench.desktop.wantEnd(); };
    bench.remove("hm-16.dat");
    bench.click(bench.form1.Image_Power);
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_THAT(bench.takeCalls(), Contains("HM_Terminate").Times(1));
}

TEST(EndWanted, StoresThePresetWhenTheSessionMayEnd) {
    RackBench bench;
    bench.start();
    stepOn(bench);
    bench.desktop.onSaveWanted();
    EXPECT_EQ(firstLine(bench.read("hm-16.dat")), "3");
    EXPECT_FALSE(bench.desktop.ended());
    EXPECT_THAT(bench.takeCalls(), testing::IsEmpty());
}

TEST(EndWanted, AfterTheEndIsNothing) {
    RackBench bench;
    bench.start();
    bench.click(bench.form1.Image_Power);
    ASSERT_TRUE(bench.desktop.ended());
    bench.takeCalls();
    bench.desktop.wantEnd();
    bench.settle();
    EXPECT_FALSE(bench.desktop.endWanted());
    EXPECT_THAT(bench.takeCalls(), testing::IsEmpty());
}

}  // namespace
}  // namespace hmonitor::test
