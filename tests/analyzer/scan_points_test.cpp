// SPDX-License-Identifier: GPL-3.0-or-later
// Scans of a unit that is measured point by point, during which the thread is held.
#include <gmock/gmock.h>

#include "tests/analyzer/analyzer_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class ScanPoints : public AnalyzerBench {
 protected:
    ScanPoints() {
        store("a.3Ds", 2, "of a");
        bench.driver.superLevel = 40.7f;
        open(1.5f);
        measurement.SessionInfo.StopMHz = 89;  // 41 points
    }

    /// Runs a scan; `at` is called at each point with its number, from 1.
    void scan(std::function<void(int)> at) {
        points = 0;
        bench.driver.duringSuper = [this, at](float) { at(++points); };
        click(form.butStart_BW);
        bench.driver.duringSuper = nullptr;
    }
    /// Stops the scan by the pause key at that point.
    std::function<void(int)> pauseAt(int point) {
        return [this, point](int here) {
            if (here == point) bench.hand.click(form.butPause_BW);
        };
    }
    static std::string text(int levels) {
        std::string all = "40\r\n 25\r\n87.975\r\n";
        for (int i = 0; i < levels; ++i) all += "40\r\n";
        return all + "\r\n";
    }
    int points = 0;
};

TEST_F(ScanPoints, ASessionShowsTheBarsAndMeasuresEachPoint) {
    click(form.butSpecMode);
    scan([&](int point) {
        if (point == 1) {
            EXPECT_TRUE(form.PictureZoom.visible);
            EXPECT_EQ(form.butSpecMode.caption, "3D spectrum mode");
            EXPECT_EQ(measurement.ScanRunning, -1);
            EXPECT_TRUE(form.butPause_BW.visible);
        }
        if (point == 3) bench.hand.click(form.butPause_BW);
    });
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", testing::StartsWith("HM_Normal(981"),
                            "HM_Parar", "HM_Parar", "HM_Super(880)", "HM_Super(880.25)",
                            "HM_Super(880.5)", "HM_Parar", testing::StartsWith("HM_Normal(981")));
    EXPECT_EQ(measurement.ScanRunning, 0);
    EXPECT_TRUE(form.butStart_BW.visible);
}

TEST_F(ScanPoints, EachRoundIsWrittenOnItsOwn) {
    std::vector<std::string> seen;
    scan([&](int point) {
        if (point % 41 == 1) seen.push_back(hasLog("a.spc") ? log("a.spc") : "");
        if (point == 41 * 2 + 5) bench.hand.click(form.butPause_BW);
    });
    EXPECT_THAT(seen, ElementsAre("", text(41), text(41)));
    EXPECT_EQ(log("a.spc"), text(41)) << "a round that was left is not written";
    EXPECT_EQ(counted(0, 40), 3);
    EXPECT_EQ(counted(3, 40), 3);
    EXPECT_EQ(counted(4, 40), 2) << "the point of the pause is not counted any more";
    EXPECT_EQ(counted(5, 40), 2);
}

TEST_F(ScanPoints, NeitherCountsNorSavesTheSession) {
    const std::string before = log("a.3Ds");
    scan(pauseAt(100));
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, 2);
    EXPECT_EQ(form.MeasurementAquisitonsField.caption, "2");
    EXPECT_EQ(log("a.3Ds"), before);
}

TEST_F(ScanPoints, TheStartKeyBlinksFromPointToPoint) {
    std::vector<bool> lit;
    scan([&](int point) {
        lit.push_back(form.butStart.visible);
        EXPECT_NE(form.butStart.visible, form.butStart_BW.visible);
        if (point == 4) bench.hand.click(form.butPause_BW);
    });
    EXPECT_THAT(lit, ElementsAre(true, false, true, false));
}

TEST_F(ScanPoints, DrawsABarForEachPoint) {
    int bars = 0;
    scan([&](int point) {
        if (point != 42) return;
        for (const display::Mark& mark : form.PictureZoom.drawing.marks())
            bars += mark.colour == display::Colour{49152} && mark.y1 == 400.f + 59 * 60 ? 1 : 0;
        bench.hand.click(form.butPause_BW);
    });
    EXPECT_EQ(bars, 41);
}

TEST_F(ScanPoints, AUnitThatFailsEndsItLikeAPause) {
    bench.driver.superResults = {0, 0, 1};
    scan([](int) {});
    EXPECT_EQ(points, 3);
    EXPECT_EQ(measurement.ScanRunning, 0);
    EXPECT_TRUE(form.butStart_BW.visible);
    EXPECT_TRUE(form.butPause.visible);
    EXPECT_FALSE(form.butStart.visible);
    EXPECT_EQ(callsOf("HM_Normal"), 2);
    EXPECT_FALSE(hasLog("a.spc"));
    EXPECT_EQ(form.Label_State.caption, "The unit failed at 88.05 MHz");
}

TEST_F(ScanPoints, ClosingMeanwhileUnwindsTheScanFirst) {
    scan([&](int point) {
        if (point == 3) bench.hand.close(form);
        if (point == 4) ADD_FAILURE() << "the scan went on";
    });
    EXPECT_EQ(callsOf("HM_Normal"), 3) << "of the start, of the scan's end and of the close";
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_FALSE(bench.desktop.queue().running());
}

TEST_F(ScanPoints, ViewsDetailAndScrollingWorkMeanwhile) {
    const float before = form.PictureZoom.width;
    scan([&](int point) {
        switch (point) {
            case 1:
                bench.hand.click(form.butSpecMode);
                break;
            case 2:
                EXPECT_TRUE(form.Picture3d.visible);
                bench.hand.shortcut(form, "Ctrl+X");
                break;
            case 3:
                EXPECT_FLOAT_EQ(form.PictureZoom.width, before * 1.5f);
                bench.hand.click(form.btnDetail_Lower);
                break;
            case 4:
                EXPECT_FLOAT_EQ(form.PictureZoom.width, before);
                bench.hand.set(form.HScroll1, 4);
                break;
            case 5:
                EXPECT_EQ(form.HScroll1.value, 4);
                bench.hand.click(form.butPause_BW);
                break;
            default:
                break;
        }
    });
    EXPECT_EQ(points, 5);
}

TEST_F(ScanPoints, NothingElseIsHeardMeanwhile) {
    scan([&](int point) {
        if (point == 2) {
            bench.hand.click(form.picAddMeasurement);
            bench.hand.click(form.picEditMeasurement);
            bench.hand.click(form.picDelMeasurement);
            bench.hand.click(form.butStart);
            bench.hand.click(form.butStart_BW);
            bench.hand.click(form.SSCommand1);
            bench.hand.select(form.cboCurrentMeasurementFile, 0);
            bench.hand.click(bench.formD.Image6);
        }
        if (point == 6) bench.hand.click(form.butPause_BW);
    });
    EXPECT_EQ(points, 6);
    EXPECT_TRUE(bench.desktop.boxes.empty());
    EXPECT_FALSE(editor.visible);
    EXPECT_FALSE(bench.forms.form6.visible);
    EXPECT_EQ(measurement.ScanRunning, 0);
}

TEST_F(ScanPoints, ARangeWithoutAPointEndsAtOnce) {
    measurement.SessionInfo.StartMHz = 107;
    scan([](int) {});
    EXPECT_EQ(points, 0);
    EXPECT_EQ(measurement.ScanRunning, 0);
    EXPECT_TRUE(form.butStart_BW.visible);
    measurement.SessionInfo.StartMHz = 108.5f;
    measurement.SessionInfo.StopMHz = 120;
    scan([](int) {});
    EXPECT_EQ(points, 0);
}

TEST_F(ScanPoints, TogglingARunningScanCountsAndSavesASweep) {
    // In the window only the span dialog does this, which the scan's state allows.
    measurement.ScanRunning = -1;
    bench.driver.superResults = {1};
    form.ToggleScan();
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, 3);
    EXPECT_EQ(form.MeasurementAquisitonsField.caption, "3");
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 3);
    EXPECT_EQ(measurement.ScanRunning, 0);
}

TEST_F(ScanPoints, InDemoModeAStartMeasuresNothing) {
    bench.state.DemoMode = "si";
    scan([](int) {});
    EXPECT_EQ(points, 0);
    EXPECT_TRUE(form.butStart.visible);
    form.runScanOld();
    EXPECT_EQ(points, 0);
    EXPECT_TRUE(form.visible);
}

TEST_F(ScanPoints, ASecondScanHasAnEmptyTextAgain) {
    scan(pauseAt(10));
    scan(pauseAt(45));
    EXPECT_EQ(log("a.spc"), text(41));
}

}  // namespace
}  // namespace hmonitor::test
