// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Detectors, AverageIsStoredAndTheUnitRetunedOnPress) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"1", "-7.5", "0", "1", "0", "0", "0", "-3"}));
    bench.start();
    bench.advance(100ms);
    bench.takeCalls();
    bench.press(bench.form1.Image_Average);
    EXPECT_EQ(bench.form1.Image_Average.picture, "msA");
    EXPECT_EQ(bench.form1.Image6.picture, "PeakN");
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "-7.5", "0", "1", "0", "1", "0", "-3"}));
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", "HM_Normal(981, 1, 0, 0, 0)"));
    bench.release(bench.form1.Image_Average);
    EXPECT_EQ(bench.form1.Image_Average.picture, "msA");
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
}

TEST(Detectors, PeakIsStoredAndLeavesTheStopToTheTuning) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"1", "0", "0", "1", "1", "1", "0", "0"}));
    bench.start();
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Image_Average.picture, "msA");
    bench.takeCalls();
    bench.press(bench.form1.Image6);
    EXPECT_EQ(bench.form1.Image6.picture, "PeakA");
    EXPECT_EQ(bench.form1.Image_Average.picture, "msN");
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "0", "0", "1", "1", "0", "0", "0"}));
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(981, 0, 0, 0, 1)"));
    bench.release(bench.form1.Image6);
    EXPECT_EQ(bench.form1.Image6.picture, "PeakA");
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
}

TEST(Detectors, WithoutRetuningAPressOnlyTurnsItOn) {
    for (const bool average : {true, false}) {
        RackBench bench;
        bench.start();
        bench.advance(100ms);
        const std::string before = bench.read("hm-16.dat");
        bench.takeCalls();
        bench.form1.RetuneOnMode = 0;
        bench.press(average ? bench.form1.Image_Average : bench.form1.Image6);
        EXPECT_EQ(bench.form1.RetuneOnMode, 1);
        EXPECT_EQ(bench.form1.Image_Average.picture, "msN");
        EXPECT_EQ(bench.read("hm-16.dat"), before);
        EXPECT_THAT(bench.takeCalls(), IsEmpty());
    }
}

TEST(Detectors, TheCurrentPresetIsNotWrittenWithThem) {
    RackBench bench;
    bench.start();
    bench.advance(100ms);
    bench.state.MemoryNumber = "3";
    bench.click(bench.form1.Image_Average);
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "0", "0", "1", "0", "1", "0", "0"}));
}

TEST(AmKey, ChangesNothing) {
    RackBench bench;
    bench.start();
    bench.advance(100ms);
    bench.takeCalls();
    const std::string picture = bench.form1.SSbAMmode.picture.get();
    const std::string settings = bench.read("hm-16.dat");
    bench.press(bench.form1.SSbAMmode);
    EXPECT_EQ(bench.form1.SSbAMmode.picture, picture);
    bench.release(bench.form1.SSbAMmode);
    EXPECT_EQ(bench.form1.SSbAMmode.picture, picture);
    EXPECT_EQ(bench.state.Band, "FM");
    EXPECT_EQ(bench.state.ModSettle, "5") << "no tuning has run";
    EXPECT_EQ(bench.read("hm-16.dat"), settings);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST(FirstSlowTick, ShowsTheDetectorOfTheSettings) {
    struct Case {
        const char* line6;
        const char* average;
        const char* peak;
    };
    for (const Case& at :
         {Case{"1", "msA", "PeakN"}, Case{"0", "msN", "PeakA"}, Case{"7", "msN", "PeakA"},
          Case{" 1", "msA", "PeakN"}, Case{"", "msN", "PeakA"}}) {
        RackBench bench;
        bench.write("hm-16.dat", lines({"1", "0", "0", "1", "0", at.line6, "0", "0"}));
        bench.start();
        EXPECT_EQ(bench.form1.Image6.picture, "PeakN");
        EXPECT_EQ(bench.form1.Image_Average.picture, "msN");
        EXPECT_NE(bench.form1.FirstTick, "1");
        bench.advance(100ms);
        EXPECT_EQ(bench.form1.Image_Average.picture, at.average) << at.line6;
        EXPECT_EQ(bench.form1.Image6.picture, at.peak) << at.line6;
        EXPECT_EQ(bench.form1.FirstTick, "1");
    }
}

TEST(FirstSlowTick, ShowsTheAudioModeOfTheSettings) {
    struct Case {
        const char* line7;
        const char* sum;
        const char* leftRight;
    };
    for (const Case& at : {Case{"1", "LRA", "LyRN"}, Case{"0", "LRN", "LyRA"},
                           Case{" 1 ", "LRA", "LyRN"}, Case{"LR", "LRN", "LyRA"}}) {
        RackBench bench;
        bench.start();
        // Written after the start, which itself falls back to "0".
        bench.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", at.line7, "0"}));
        bench.advance(100ms);
        EXPECT_EQ(bench.formB.Image2.picture, at.sum) << at.line7;
        EXPECT_EQ(bench.formB.Image1.picture, at.leftRight) << at.line7;
    }
}

TEST(FirstSlowTick, ReadsPresetAndCorrectionOnce) {
    RackBench bench;
    bench.start();
    bench.write("hm-16.dat", lines({"3", "-3.5", "0", "1", "0", "0", "0", "0"}));
    bench.advance(100ms);
    EXPECT_EQ(bench.state.MemoryNumber, "3");
    EXPECT_EQ(bench.state.DbCorrection10, "-35");
    bench.write("hm-16.dat", lines({"16", "2", "0", "1", "0", "1", "1", "0"}));
    bench.advance(1000ms);
    EXPECT_EQ(bench.state.MemoryNumber, "3");
    EXPECT_EQ(bench.state.DbCorrection10, "-35");
    EXPECT_EQ(bench.form1.Image_Average.picture, "msN");
}

}  // namespace
}  // namespace hmonitor::test
