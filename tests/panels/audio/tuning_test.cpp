// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class TuningByBar : public testing::Test {
 protected:
    void start() {
        bench.start();
        bench.takeCalls();
    }
    void moveBar(int value) { bench.set(bench.formB.HScroll1, value); }
    bool anyTimerRuns() {
        return bench.form1.Timer1.enabled || bench.form1.Timer4.enabled ||
               bench.formB.Timer2.enabled || bench.formB.Timer3.enabled;
    }
    bool allTimersRun() {
        return bench.form1.Timer1.enabled && bench.form1.Timer4.enabled &&
               bench.formB.Timer2.enabled && bench.formB.Timer3.enabled;
    }
    RackBench bench;
};

TEST_F(TuningByBar, StopsTheUnitAndTunesItWithTheStoredSwitches) {
    bench.write("hm-16.dat", lines({"1", "0", "8", "9", "1", "1", "0", "0"}));
    start();
    moveBar(206);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(1081, 1, 0, 0, 1)"));
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "108.10");
    EXPECT_EQ(bench.state.CurrentFreq, "1081");
    EXPECT_EQ(bench.state.ModSettle, "0");
}

TEST_F(TuningByBar, NoMeasuringTimerRunsWhileTheUnitIsTuned) {
    start();
    EXPECT_TRUE(allTimersRun());
    int checked = 0;
    bench.driver.duringNormal = [&] {
        ++checked;
        EXPECT_FALSE(anyTimerRuns());
        EXPECT_TRUE(bench.formB.enabled);
    };
    moveBar(20);
    bench.formB.cambfre();
    EXPECT_EQ(checked, 2);
    EXPECT_TRUE(allTimersRun());
}

TEST_F(TuningByBar, BeforeTheUnitComesWhatIsStoredAndAfterItWhatIsShown) {
    start();
    bench.write("0925.dat", lines(std::vector<std::string>(24, "3")));
    bool checked = false;
    bench.driver.duringNormal = [&] {
        checked = true;
        EXPECT_EQ(bench.formB.TunedFreq, 925);
        EXPECT_EQ(bench.formB.Label_RadioName.caption, "");
        EXPECT_EQ(bench.formB.OffMemory, 1);
        EXPECT_EQ(bench.state.FloorNoiseL, "3");
        EXPECT_EQ(bench.state.CurrentFreq, "981");
        EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "98.10");
        EXPECT_EQ(bench.driver.calls.front(), "HM_Parar");
    };
    moveBar(50);
    EXPECT_TRUE(checked);
    EXPECT_EQ(bench.state.CurrentFreq, "925");
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "92.50");
}

TEST_F(TuningByBar, AStepKeyDisablesThePanelWhileTheUnitIsTuned) {
    start();
    bench.write("halden.dat", memoryBlock({{1, "UNO", "981"}, {2, "DOS", "900"}}));
    bool checked = false;
    bench.driver.duringNormal = [&] {
        checked = true;
        EXPECT_FALSE(bench.formB.enabled);
        EXPECT_EQ(bench.formB.ButtonTune, "1");
    };
    bench.click(bench.formB.SSCommand1);
    EXPECT_TRUE(checked);
    EXPECT_TRUE(bench.formB.enabled);
    EXPECT_EQ(bench.formB.ButtonTune, "0");
}

TEST_F(TuningByBar, LeavesTheMemory) {
    start();
    moveBar(50);
    EXPECT_EQ(bench.formB.RadioName, "");
    EXPECT_EQ(bench.state.RadioName, "");
    EXPECT_EQ(bench.formB.MemoryState, "cero");
    EXPECT_EQ(bench.formB.OffMemory, 1);
    EXPECT_EQ(bench.formB.Line45.colour, display::Colour{0x1d1c20});
    EXPECT_EQ(bench.formB.Label_MemoryNumber.caption, "1");
}

TEST_F(TuningByBar, AMoveByAMemoryKeepsNameAndDigits) {
    start();
    bench.write("halden.dat", memoryBlock({{1, "UNO", "981"}, {2, "DOS", "900"}}));
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.formB.Label_RadioName.caption, "DOS      ");
    EXPECT_EQ(bench.formB.MemoryState, "");
    EXPECT_EQ(bench.formB.OffMemory, 0);
    moveBar(26);
    EXPECT_EQ(bench.formB.OffMemory, 1);
}

TEST_F(TuningByBar, TheHalfStepStaysWithTheBar) {
    bench.write("hm-16.dat", lines({"3", "0", "0", "1", "0", "0", "0", "0"}));
    start();
    moveBar(0);
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "87.55");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(875.5, 0, 0, 0, 0)"));
}

TEST_F(TuningByBar, DraggingShowsTheFrequencyAndTunesAtRelease) {
    start();
    bench.hand.drag(bench.formB.HScroll1, 10);
    bench.hand.drag(bench.formB.HScroll1, 60);
    bench.desktop.settle();
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "93.50");
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_EQ(bench.formB.TunedFreq, 981);
    EXPECT_EQ(bench.formB.OffMemory, 0);
    bench.hand.drop(bench.formB.HScroll1);
    bench.desktop.settle();
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(935, 0, 0, 0, 0)"));
    EXPECT_EQ(bench.formB.OffMemory, 1);
}

TEST_F(TuningByBar, StepsAndPagesTuneAtOnce) {
    start();
    bench.hand.scroll(bench.formB.HScroll1, 1);
    bench.desktop.settle();
    EXPECT_EQ(bench.formB.TunedFreq, 982);
    bench.hand.page(bench.formB.HScroll1, -1);
    bench.desktop.settle();
    EXPECT_EQ(bench.formB.TunedFreq, 972);
    moveBar(999);
    EXPECT_EQ(bench.formB.TunedFreq, 1081);
    moveBar(-5);
    EXPECT_EQ(bench.formB.TunedFreq, 875);
}

TEST_F(TuningByBar, DrawsANewTagFrom1To9999) {
    start();
    const std::pair<double, const char*> draws[] = {{0, "1"}, {0.5, "5000"}, {0.99999, "9999"}};
    for (const auto& [draw, tag] : draws) {
        bench.desktop.randoms = {draw};
        bench.formB.cambfre();
        EXPECT_EQ(bench.state.TuneTag, tag);
    }
}

TEST_F(TuningByBar, FirstTuningMakesTheBarsWhole) {
    bool checked = false;
    bench.driver.duringNormal = [&] {
        // Skips the tunings before: that of the spectrum that runs at the start, at the bar's first
        // position.
        if (bench.formB.PanelStarted == 1 || bench.formB.TunedFreq != 981) return;
        checked = true;
        EXPECT_TRUE(bench.forms.form3.loaded());
    };
    start();
    EXPECT_TRUE(checked);
    for (std::size_t i = 0; i < 62; ++i) {
        for (auto* family : {&bench.formB.LineAudL, &bench.formB.LineAudR}) {
            EXPECT_TRUE((*family)[i].visible) << i;
            EXPECT_EQ((*family)[i].x1, 5 + 45 * static_cast<float>(i));
            EXPECT_EQ((*family)[i].x2, 5 + 45 * static_cast<float>(i));
        }
    }
}

class Floors : public TuningByBar {
 protected:
    std::vector<std::string> now() {
        return {bench.state.FloorNoiseL.str(), bench.state.FloorNoiseR.str(),
                bench.state.FloorSepL.str(), bench.state.FloorSepR.str(),
                bench.state.FloorThd.str()};
    }
    static std::string file(const std::vector<std::string>& from18) {
        std::vector<std::string> all(17, "99");
        all.insert(all.end(), from18.begin(), from18.end());
        return lines(all);
    }
};

TEST_F(Floors, ComeFromTheFileOfTheFrequency) {
    start();
    bench.write("0925.dat", file({"-61.5", "-58", "42.9", "-3.2", "0.25", "1", "2"}));
    moveBar(50);
    EXPECT_THAT(now(), ElementsAre("-61.5", "-58", "42", "-4", "25"));
}

TEST_F(Floors, WithoutAFileAreNotMeasured) {
    start();
    bench.write("0925.dat", file({"1", "2", "3", "4", "5"}));
    moveBar(50);
    moveBar(51);
    EXPECT_THAT(now(), ElementsAre("xx", "xx", "0", "0", "0"));
    EXPECT_FALSE(bench.exists("0926.dat"));
}

TEST_F(Floors, AShortFileCountsLineByLine) {
    start();
    bench.write("0925.dat", file({"-61", "-60", "33"}));
    moveBar(50);
    EXPECT_THAT(now(), ElementsAre("-61", "-60", "33", "0", "0"));
}

TEST_F(Floors, TextWhereAFigureIsAwaitedIsZero) {
    start();
    bench.write("0925.dat", file({"bad", "", "sep", "7dB", "-"}));
    moveBar(50);
    EXPECT_THAT(now(), ElementsAre("bad", "", "0", "7", "0"));
}

TEST_F(Floors, HaveTheirNameWithFourFiguresAndTheHalfStep) {
    bench.write("0999.5.dat", file({"A"}));
    bench.write("1000.dat", file({"B"}));
    bench.write("1025.5.dat", file({"C"}));
    bench.write("halden.dat", memoryBlock({{1, "A", "9995"}, {2, "B", "1000"}, {3, "C", "10255"}}));
    start();
    EXPECT_EQ(bench.state.FloorNoiseL, "A");
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.state.FloorNoiseL, "B");
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.state.FloorNoiseL, "C");
}

class ArmedResponse : public TuningByBar {
 protected:
    void SetUp() override {
        bench.write("Hm-res.dat", lines({"1", "0", "0"}));
        bench.start();
    }
};

TEST_F(ArmedResponse, TheFirstChangeTakesIt) {
    EXPECT_THAT(bench.takeCalls(), Contains("HM_Normal(981, 0, 0, 1, 0)"));
    EXPECT_EQ(bench.state.ResponseState, "sisi") << "the quality panel takes it further";
    EXPECT_EQ(bench.state.ResponseAuto, "si");
    EXPECT_EQ(bench.formD.Image5.picture, "OffA");
    EXPECT_EQ(bench.read("Hm-res.dat"), lines({"1", "0", "0"}));
}

TEST_F(ArmedResponse, ARetuningLeavesIt) {
    bench.takeCalls();
    bench.formB.cambfre();
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(981, 0, 0, 1, 0)"));
    EXPECT_EQ(bench.state.ResponseState, "sisi");
}

TEST_F(ArmedResponse, AHandOnTheBarCancelsIt) {
    bench.takeCalls();
    moveBar(50);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(925, 0, 0, 0, 0)"));
    EXPECT_EQ(bench.state.ResponseState, "no");
    EXPECT_EQ(bench.state.ResponseAuto, "");
    EXPECT_EQ(bench.formD.Image5.picture, "OffN");
    EXPECT_EQ(bench.read("Hm-res.dat"), lines({"0", "0", "0"}));
}

}  // namespace
}  // namespace hmonitor::test
