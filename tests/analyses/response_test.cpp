// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const std::string kStoredRun = lines({"-30", "-12", "-5", "0", "0", "1", "15", "20", "15000",
                                      "12000", "8000", "4000", "1000", "400", "125", "30"});

class Response : public testing::Test {
 protected:
    Response() {
        bench.start();
        bench.takeCalls();
    }

    void release(display::Picture& key) {
        bench.hand.click(key);
        bench.desktop.settle();
    }
    void measured() {
        bench.driver.response.frequency = {15000, 12000, 8000, 4000, 1000, 400, 125, 30};
        bench.driver.response.level = {-30, -12, -5, 0, 0, 1, 15, 20};
    }
    /// "label=data" of each row, which must be the same in the window and on the page.
    std::vector<std::string> rows() {
        EXPECT_EQ(told(bench.forms.formDd3.Graph1), told(bench.forms.form7.Graph1));
        return told(bench.forms.formDd3.Graph1);
    }
    static std::vector<std::string> told(const display::Chart& chart) {
        std::vector<std::string> all;
        for (int row = 1; row <= chart.rowCount(); ++row) {
            all.push_back(std::string(chart.rowLabelAt(row)) + "=" +
                          std::string(chart.dataAt(row, 1)));
        }
        return all;
    }

    RackBench bench;
    const std::vector<std::string> curve{"30=17", "125=16.5", "400=15.1", "1K=15",
                                         "4K=15", "8K=14.5",  "12K=13.8", "15K=12"};
    const std::vector<std::string> empty{"30=10", "125=10", "400=10", "1K=10",
                                         "4K=10", "8K=10",  "12k=10", "15k=10"};
};

TEST_F(Response, TuningToAStationWithoutAFileShowsTheEmptyCurve) {
    bench.formB.cambfre();
    EXPECT_EQ(rows(), empty);
}

TEST_F(Response, TuningToAStationShowsItsStoredCurve) {
    bench.write("0981.res", kStoredRun);
    bench.formB.cambfre();
    EXPECT_EQ(rows(), curve);
}

TEST_F(Response, AStoredFileWithoutAResultShowsTheEmptyCurve) {
    bench.write("0981.res", kStoredRun);
    bench.formD.respo();
    bench.write("0981.res", lines(std::vector<std::string>(16, "0")));
    bench.formD.respo();
    EXPECT_EQ(rows(), empty);
}

TEST_F(Response, AFileCutAtAnyLineShowsThePairsThatAreWhole) {
    std::size_t end = 0;
    for (int count = 0; count <= 16; ++count) {
        bench.write("0981.res", kStoredRun.substr(0, end));
        bench.formD.respo();
        EXPECT_EQ(rows().size(), count <= 8 ? 8u : static_cast<std::size_t>(count - 8)) << count;
        if (count < 16) end = kStoredRun.find('\n', end) + 1;
    }
    EXPECT_EQ(rows(), curve);
}

TEST_F(Response, ArmingStoresThePilotOfThatMomentAndRetunes) {
    bench.readings.pilotError = 1.5f;
    bench.readings.pilotLevel = 9.2f;
    release(bench.formD.Image5);
    EXPECT_EQ(bench.formD.Image5.picture, "OffA");
    EXPECT_EQ(bench.state.ResponseAuto, "si");
    EXPECT_EQ(bench.read("Hm-res.dat"), "1\r\n1.5\r\n 9.2 \r\n");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(981, 0, 0, 1, 0)"));
}

TEST_F(Response, ArmingInAnotherAudioModeGoesBackToLeftAndRight) {
    bench.write("hm-16.dat", lines({"1", "-2", "0", "1", "0", "0", "1", "7"}));
    release(bench.formD.Image5);
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "-2", "0", "1", "0", "0", "0", "7"}));
    EXPECT_EQ(bench.formB.Image1.picture, "LyRA");
    EXPECT_EQ(bench.formB.Image2.picture, "LRN");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Parar", "HM_Normal(981, 0, 0, 0, 0)",
                                               "HM_Parar", "HM_Normal(981, 0, 0, 1, 0)"));
}

TEST_F(Response, TurningTheSwitchOffTakesWhatWasMeasured) {
    release(bench.formD.Image5);
    bench.takeCalls();
    measured();
    release(bench.formD.Image5);
    EXPECT_EQ(bench.formD.Image5.picture, "OffN");
    EXPECT_EQ(bench.state.ResponseState, "no");
    EXPECT_EQ(bench.state.ResponseAuto, "");
    EXPECT_EQ(bench.read("Hm-res.dat"), lines({"0", "0", "0"}));
    EXPECT_EQ(bench.read("0981.res"), kStoredRun);
    EXPECT_EQ(rows(), curve);
    // The read-out tunes once, and the switch once.
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_RespFrecuencia", "HM_Parar",
                                               "HM_Parar", "HM_Normal(981, 0, 0, 0, 0)", "HM_Parar",
                                               "HM_Normal(981, 0, 0, 0, 0)"));
}

TEST_F(Response, TheEndMarkEndsTheRun) {
    release(bench.formD.Image5);
    bench.advance(100ms);
    EXPECT_EQ(bench.state.ResponseState, "sisi");
    measured();
    bench.readings.pilotError = 11583.4f;
    bench.readings.pilotLevel = 18.9f;
    bench.takeCalls();
    bench.advance(100ms);
    EXPECT_THAT(bench.takeCalls(), Contains("HM_RespFrecuencia"));
    EXPECT_EQ(bench.formD.Image5.picture, "OffN");
    EXPECT_EQ(bench.state.ResponseState, "no");
    EXPECT_EQ(bench.read("0981.res"), kStoredRun);
    EXPECT_EQ(rows(), curve);
}

TEST_F(Response, ARunThatEndsWhileThePresetEditorIsOpenBelongsToItsStation) {
    release(bench.formD.Image5);
    bench.advance(100ms);
    bench.hand.click(bench.formB.Image3);
    bench.desktop.settle();
    ASSERT_TRUE(bench.forms.formSetMemories.visible);
    measured();
    bench.readings.pilotError = 11583;
    bench.readings.pilotLevel = 18;
    bench.advance(100ms);
    EXPECT_EQ(bench.read("0981.res"), kStoredRun);
    EXPECT_FALSE(bench.exists("01.res"));
    EXPECT_EQ(rows(), curve);
}

TEST_F(Response, WhateverStandsInTheFrequencysPlaceTheFileIsNamedFromTheFrequencyInUse) {
    measured();
    bench.state.CurrentFreq = "1";
    bench.form1.respolee();
    EXPECT_EQ(bench.read("0981.res"), kStoredRun);
    bench.state.CurrentFreq = "1";
    bench.formD.respo();
    EXPECT_EQ(rows(), curve);
}

TEST_F(Response, AReadOutWithoutAResultLeavesAllButRetunes) {
    bench.write("0981.res", kStoredRun);
    bench.formD.respo();
    bench.formD.Image5.picture = "OffA";
    bench.takeCalls();
    bench.form1.respolee();
    EXPECT_EQ(bench.read("0981.res"), kStoredRun);
    EXPECT_EQ(rows(), curve);
    EXPECT_EQ(bench.formD.Image5.picture, "OffA");
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_RespFrecuencia", "HM_Parar",
                                               "HM_Parar", "HM_Normal(981, 0, 0, 0, 0)"));
}

TEST_F(Response, PairsThatAreNoToneAreStoredButNotShown) {
    bench.driver.response.frequency = {30, 777, 0, 0, 0, 0, 0, 0};
    bench.driver.response.level = {5, 6, 0, 0, 0, 0, 0, 0};
    bench.form1.respolee();
    EXPECT_THAT(rows(), ElementsAre("30=15.5"));
    EXPECT_EQ(bench.read("0981.res"), lines({"5", "6", "0", "0", "0", "0", "0", "0", "30", "777",
                                             "0", "0", "0", "0", "0", "0"}));
}

TEST_F(Response, AToneThatCameTwiceHasTwoRowsAndItsLabelOnTheSecond) {
    bench.formD.respo();
    bench.driver.response.frequency = {1000, 30, 1000, 0, 0, 0, 0, 0};
    bench.driver.response.level = {10, 20, 30, 0, 0, 0, 0, 0};
    bench.form1.respolee();
    EXPECT_THAT(rows(), ElementsAre("30=17", "=16", "1K=18"));
}

TEST_F(Response, AbsurdResultsAreStoredAndShownAsTheyAre) {
    bench.driver.response.frequency = {-1, 2147483647, 30, 0, 0, 0, 0, 0};
    bench.driver.response.level = {1, 2, -2147483647, 0, 0, 0, 0, 0};
    bench.form1.respolee();
    EXPECT_THAT(rows(), ElementsAre("30=-214748349.7"));
    EXPECT_EQ(bench.read("0981.res"), lines({"1", "2", "-2147483647", "0", "0", "0", "0", "0", "-1",
                                             "2147483647", "30", "0", "0", "0", "0", "0"}));
}

TEST_F(Response, ResultsThatAreAllUnknownLeaveNoRow) {
    bench.driver.response.frequency = {777, 0, 0, 0, 0, 0, 0, 0};
    bench.form1.respolee();
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(bench.formD.Image5.picture, "OffN");
}

TEST_F(Response, AResultThatCannotBeStoredIsSaidAndTheRackGoesOn) {
    measured();
    std::filesystem::create_directory(bench.scratch.path() / "0981.res");
    bench.desktop.answerEveryBox = true;
    bench.form1.respolee();
    ASSERT_FALSE(bench.desktop.boxes.empty());
    EXPECT_THAT(bench.desktop.boxes[0].text, testing::HasSubstr("0981.res"));
    EXPECT_EQ(bench.formD.Image5.picture, "OffN");
    EXPECT_FALSE(bench.desktop.ended());
}

TEST_F(Response, ClosingTheWindowEnablesTheRackAndKeepsTheCurve) {
    bench.write("0981.res", kStoredRun);
    bench.formD.respo();
    release(bench.formD.Image3);
    ASSERT_TRUE(bench.forms.formDd3.visible);
    bench.hand.escape(bench.forms.formDd3);
    bench.desktop.settle();
    EXPECT_FALSE(bench.forms.formDd3.visible);
    EXPECT_TRUE(bench.forms.formDd3.loaded());
    for (const display::Form* panel : bench.program.rack) EXPECT_TRUE(panel->enabled);
    EXPECT_EQ(rows(), curve);
}

TEST_F(Response, ThePageIsHeadedByStationFrequencyAndDate) {
    release(bench.formD.Image3);
    bench.hand.click(bench.forms.formDd3.SSCommand1);
    bench.desktop.settle();
    EXPECT_EQ(bench.forms.form7.Label2.caption, "RADIO UNO  98.1 mhz  Monday 4, May 2026");
}

TEST_F(Response, APageThatWasUnloadedTakesOverTheCurveAgain) {
    bench.write("0981.res", kStoredRun);
    bench.formD.respo();
    bench.forms.form7.unload();
    bench.program.Form7->show();
    EXPECT_EQ(rows(), curve);
}

TEST_F(Response, DraggingTheStripMovesTheWindow) {
    release(bench.formD.Image3);
    Form_Dd3& window = bench.forms.formDd3;
    const float left = window.left;
    const float top = window.top;
    bench.hand.mouseDown(window.Panel3D1, {100, 100, true});
    bench.hand.mouseMove(window.Panel3D1, {130, 90, true});
    bench.desktop.settle();
    EXPECT_EQ(window.left, left + 30);
    EXPECT_EQ(window.top, top - 10);
}

}  // namespace
}  // namespace hmonitor::test
