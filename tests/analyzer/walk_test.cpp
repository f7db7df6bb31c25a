// SPDX-License-Identifier: GPL-3.0-or-later
// A user who presses every key of the analyzer in any order, in the middle of scans too: the rack
// always measures again in the end.
#include <gmock/gmock.h>

#include <random>

#include "tests/analyzer/analyzer_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

class AnalyzerWalk : public AnalyzerBench, public testing::WithParamInterface<float> {
 protected:
    int draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

    /// One random act of the user.
    void act() {
        switch (draw(20)) {
            case 0:
            case 1:
                bench.hand.click(draw(2) ? form.butStart : form.butStart_BW);
                break;
            case 2:
                bench.hand.click(draw(2) ? form.butPause : form.butPause_BW);
                break;
            case 3:
                bench.hand.click(form.butSpecMode);
                break;
            case 4:
                bench.hand.click(draw(2) ? form.btnDetail_Higher : form.btnDetail_Lower);
                break;
            case 5:
                bench.hand.set(form.HScroll1, draw(60) - 5);
                break;
            case 6:
                bench.hand.click(form.picAddMeasurement);
                break;
            case 7:
                bench.hand.click(form.picEditMeasurement);
                break;
            case 8:
                bench.hand.click(form.picDelMeasurement);
                break;
            case 9:
                bench.hand.select(form.cboCurrentMeasurementFile, draw(4) - 1);
                break;
            case 10:
                bench.hand.click(form.SSCommand1);
                break;
            case 11:
                bench.hand.click(draw(2) ? editor.PicOk2 : editor.PicCancel);
                break;
            case 12:
                bench.hand.edit(editor.MeasurementNameField, draw(3) ? "a" : " ");
                break;
            case 13:
                bench.hand.select(editor.Combo_StartFreq, draw(20));
                break;
            case 14:
                bench.hand.select(editor.Combo_StopFreq, draw(20));
                break;
            case 15:
                bench.hand.edit(editor.LatDeg, std::to_string(draw(99)));
                break;
            case 16:
                bench.driver.frames.push_back(1);
                break;
            case 17:
                if (draw(3) == 0) bench.hand.close(form);
                break;
            case 18:
                if (draw(4) == 0) bench.driver.superResults.push_back(1);
                break;
            default:
                bench.hand.click(bench.formD.Image6);
                break;
        }
    }

    std::mt19937 random_{16};
};

TEST_P(AnalyzerWalk, TheRackAlwaysComesBackMeasuring) {
    constexpr int kSteps = 1500;
    bench.desktop.answerEveryBox = true;
    if (GetParam() == 0) bench.state.DemoMode = "si";
    int points = 0;
    bench.driver.duringSuper = [&](float) {
        // The user acts in the middle of a measurement, and in the end stops the scan.
        if (++points % 7 == 0) act();
        if (points % 60 == 0) bench.hand.click(form.butPause_BW);
        bench.desktop.elapse(20ms);
    };
    open(GetParam());
    for (int i = 0; i < kSteps; ++i) {
        act();
        bench.advance(std::chrono::milliseconds(draw(700)));
        bench.driver.calls.clear();
        ASSERT_FALSE(bench.desktop.queue().running()) << "step " << i;
        ASSERT_EQ(rackEnabled(), !form.visible) << "step " << i;
        ASSERT_EQ(form.enabled, !editor.visible) << "step " << i;
    }
    bench.driver.duringSuper = nullptr;
    if (editor.visible) click(editor.PicCancel);
    if (form.visible) bench.hand.close(form);
    bench.desktop.settle();
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(measurement.ScanRunning, 0);
    EXPECT_TRUE(bench.formB.Timer2.enabled) << "the heart beats";
    const int before = bench.driver.dataCalls;
    if (GetParam() != 0) {
        bench.beat(3);
        EXPECT_GT(bench.driver.dataCalls, before);
    }
}

INSTANTIATE_TEST_SUITE_P(Units, AnalyzerWalk, testing::Values(1.5f, 1.8f, 2.0f, 0.f),
                         [](const auto& unit) {
                             return "Version" + std::to_string(static_cast<int>(unit.param * 10));
                         });

}  // namespace
}  // namespace hmonitor::test
