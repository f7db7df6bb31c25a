// SPDX-License-Identifier: GPL-3.0-or-later
// Scans of a unit that sends whole sweeps.
#include <gmock/gmock.h>

#include "tests/analyzer/analyzer_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

constexpr const char* kChooseFirst =
    "Para poder elegir otro Archivo de Medición hay que primero detener el Analizador (botón verde "
    "con símbolo de 'pausa')";
constexpr const char* kBeginFirst =
    "Para poder comenzar un nuevo Archivo de Medición hay que primero detener el Analizador (botón "
    "verde con símbolo de 'pausa')";

class ScanFrames : public AnalyzerBench {
 protected:
    ScanFrames() {
        store("a.3Ds", 2, "of a");
        bench.driver.floorLevel = 33.4f;
        open();
    }
    void start() {
        click(form.butStart_BW);
        ASSERT_EQ(measurement.ScanRunning, -1);
    }
};

TEST_F(ScanFrames, StartAsksForSweepsOf25Khz) {
    start();
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", testing::StartsWith("HM_Normal(981"),
                            "HM_Parar", "HM_StartEspectro(880, 1080, 25)"));
    EXPECT_TRUE(form.Timer1.enabled);
    EXPECT_TRUE(form.butStart.visible);
    EXPECT_TRUE(form.butPause_BW.visible);
    EXPECT_FALSE(form.butStart_BW.visible);
    EXPECT_FALSE(form.butPause.visible);
    EXPECT_EQ(form.ScanStartMHz, 88);
    EXPECT_EQ(form.ScanStopMHz, 108);
}

TEST_F(ScanFrames, StoresTheAudioModeLAndR) {
    bench.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "1", "0"}));
    start();
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
}

TEST_F(ScanFrames, TheStartKeyBlinksAt500MsWithoutAFrameToo) {
    start();
    bench.advance(500ms);
    EXPECT_FALSE(form.butStart.visible);
    EXPECT_TRUE(form.butStart_BW.visible);
    EXPECT_EQ(form.butStart_BW.caption, "Measuring");
    bench.advance(500ms);
    EXPECT_TRUE(form.butStart.visible);
    EXPECT_FALSE(form.butStart_BW.visible);
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, 2);
    EXPECT_EQ(form.MeasurementAquisitonsField.caption, "2");
}

TEST_F(ScanFrames, AFrameIsCountedWrittenAndSaved) {
    bench.driver.spectrum[880] = 100.9f;  // row 70, which no view shows
    bench.driver.spectrum[880.25f] = 12;  // below 30: counted in row 0
    bench.driver.spectrum[1080] = 55.9f;
    start();
    frames(1);
    EXPECT_EQ(form.MeasurementAquisitonsField.caption, "3");
    EXPECT_EQ(counted(0, 100), 1);
    EXPECT_EQ(counted(1, 30), 1);
    EXPECT_EQ(counted(2, 33), 1);
    EXPECT_EQ(counted(800, 55), 1);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 3);
    std::string text = "800\r\n 25\r\n87.975\r\n100\r\n30\r\n";
    for (int i = 2; i < 800; ++i) text += "33\r\n";
    EXPECT_EQ(log("a.spc"), text + "55\r\n\r\n");
    EXPECT_EQ(form.FrameBusy, 0);
}

TEST_F(ScanFrames, TheFieldCorrectionIsAddedBeforeTheWholePart) {
    bench.state.DbCorrection10 = "-35";
    start();
    frames(1);
    // 33.4 - 3.5 is 29.9.
    EXPECT_EQ(counted(2, 30), 1);
    click(form.butPause);
    bench.state.DbCorrection10 = "6";
    start();
    frames(1);
    EXPECT_EQ(counted(2, 34), 1);
}

TEST_F(ScanFrames, TheCountChangesItsColourWithEachSweep) {
    start();
    frames(1);
    EXPECT_EQ(form.MeasurementAquisitonsField.colour.get().bgr, 8421504u);
    frames(1);
    EXPECT_EQ(form.MeasurementAquisitonsField.colour.get().bgr, 255u);
    frames(1);
    EXPECT_EQ(form.MeasurementAquisitonsField.colour.get().bgr, 8421504u);
}

TEST_F(ScanFrames, TheBarsAreDrawnWhileTheyAreOnShow) {
    start();
    frames(1);
    int bars = 0;
    for (const display::Mark& mark : form.PictureZoom.drawing.marks()) {
        if (mark.colour == display::Colour{49152} && mark.y1 == 400.f + 59 * (100 - 33)) ++bars;
    }
    EXPECT_EQ(bars, 801);
}

TEST_F(ScanFrames, TheMapIsDrawnWhileItIsOnShow) {
    click(form.butSpecMode);
    start();
    const auto bars = form.PictureZoom.drawing.marks().back().number;
    const auto map = form.Picture3d.drawing.marks().back().number;
    frames(1);
    EXPECT_EQ(form.PictureZoom.drawing.marks().back().number, bars);
    EXPECT_NE(form.Picture3d.drawing.marks().back().number, map);
    click(form.butSpecMode);
    frames(1);
    EXPECT_NE(form.PictureZoom.drawing.marks().back().number, bars);
}

TEST_F(ScanFrames, PauseHaltsTheUnitAndReturnsIt) {
    start();
    frames(2);
    bench.takeCalls();
    click(form.butPause_BW);
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", testing::StartsWith("HM_Normal(981")));
    EXPECT_EQ(measurement.ScanRunning, 0);
    EXPECT_FALSE(form.Timer1.enabled);
    EXPECT_TRUE(form.butStart_BW.visible);
    EXPECT_TRUE(form.butPause.visible);
    EXPECT_FALSE(form.butStart.visible);
    EXPECT_FALSE(form.butPause_BW.visible);
    EXPECT_EQ(form.butStart_BW.caption, "Start");
    EXPECT_EQ(bench.desktop.pointerShape, display::PointerShape::Arrow);
    bench.driver.frames = {1};
    bench.advance(2s);
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, 4);
    // The scan has stopped already, so the key stops nothing.
    bench.takeCalls();
    click(form.butPause);
    EXPECT_THAT(bench.takeCalls(), ElementsAre());
}

TEST_F(ScanFrames, TheKeyboardGoesToTheKeyThatIsNext) {
    start();
    EXPECT_EQ(bench.desktop.focus, &form.butPause_BW);
    EXPECT_EQ(form.Label_State.caption, "Measuring");
    click(form.butPause_BW);
    EXPECT_EQ(bench.desktop.focus, &form.butStart_BW);
    EXPECT_EQ(form.Label_State.caption, "Stopped");
}

TEST_F(ScanFrames, StartGoesOnWithTheCount) {
    start();
    frames(2);
    click(form.butPause_BW);
    start();
    frames(1);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 5);
}

TEST_F(ScanFrames, ClosingEndsTheScan) {
    start();
    frames(1);
    bench.takeCalls();
    bench.hand.close(form);
    bench.desktop.settle();
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", testing::StartsWith("HM_Normal(981")));
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(measurement.ScanRunning, 0);
}

TEST_F(ScanFrames, ChoosingAnotherSessionIsRefused) {
    store("b.3Ds", 2, "of b");
    form.ListSessions();
    form.SelectCurrentSession();
    start();
    bench.desktop.boxAnswers = {"OK"};
    choose("b.3Ds");
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].title, "Atención!");
    EXPECT_EQ(bench.desktop.boxes[0].text, kChooseFirst);
    EXPECT_EQ(bench.desktop.boxes[0].icon, display::BoxIcon::Information);
    EXPECT_EQ(form.cboCurrentMeasurementFile.list.text(), "a.3Ds");
    EXPECT_EQ(measurement.CurrentSessionFile, "a.3Ds");
    EXPECT_EQ(measurement.ScanRunning, -1);
}

TEST_F(ScanFrames, AddAndEditAreRefusedWithTheSameWords) {
    start();
    bench.desktop.boxAnswers = {"OK", "OK"};
    click(form.picAddMeasurement);
    click(form.picEditMeasurement);
    ASSERT_EQ(bench.desktop.boxes.size(), 2u);
    for (const display::MessageBox& box : bench.desktop.boxes) {
        EXPECT_EQ(box.title, "Atención!");
        EXPECT_EQ(box.text, kBeginFirst);
        EXPECT_EQ(box.icon, display::BoxIcon::Information);
    }
    EXPECT_FALSE(editor.visible);
}

TEST_F(ScanFrames, ViewsAndDetailWorkMeanwhile) {
    start();
    const float before = form.PictureZoom.width;
    click(form.butSpecMode);
    EXPECT_TRUE(form.Picture3d.visible);
    click(form.btnDetail_Higher);
    EXPECT_GT(form.PictureZoom.width, before);
    click(form.btnDetail_Lower);
    EXPECT_FLOAT_EQ(form.PictureZoom.width, before);
    bench.hand.set(form.HScroll1, 3);
    bench.desktop.settle();
    EXPECT_LT(form.PictureZoom.left, 120);
    click(form.SSCommand1);
    frames(1);
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, 3);
}

TEST_F(ScanFrames, DeletingPausesTheScanAfterItsOk) {
    store("0.3Ds", 1, "of 0");
    start();
    frames(1);
    bench.desktop.boxAnswers = {"Cancel", "OK"};
    click(form.picDelMeasurement);
    EXPECT_EQ(measurement.ScanRunning, -1) << "the scan goes on while nobody has said yes";
    click(form.picDelMeasurement);
    EXPECT_EQ(measurement.ScanRunning, 0);
    EXPECT_FALSE(form.Timer1.enabled);
    EXPECT_FALSE(hasLog("a.3Ds"));
    EXPECT_FALSE(hasLog("a.spc"));
    frames(2);
    EXPECT_FALSE(hasLog("a.3Ds")) << "nothing writes it again";
    EXPECT_EQ(form.MeasurementCommentField.caption, "of 0");
    EXPECT_TRUE(form.butStart_BW.visible);
}

TEST_F(ScanFrames, TheScanGoesOnWhileTheQuestionStands) {
    start();
    bench.desktop.boxAnswers = {"Cancel"};
    bench.desktop.duringBox = [&] {
        bench.desktop.duringBox = nullptr;
        bench.driver.frames.push_back(1);
        bench.desktop.elapse(500ms);
        bench.desktop.queue().runBoxPass();
    };
    click(form.picDelMeasurement);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 3);
}

TEST_F(ScanFrames, WithoutASessionTheStartTakesAFreeName) {
    bench.remove("Logs/a.3Ds");
    choose("a.3Ds");
    bench.hand.close(form);
    bench.desktop.settle();
    std::filesystem::remove_all(bench.scratch.path() / "Logs");
    open();
    measurement.SpectralDensity.set(800, 70, 5);
    start();
    EXPECT_EQ(measurement.CurrentSessionFile, "Sin Nombre.3Ds");
    EXPECT_EQ(measurement.SpectralDensity.at(800, 70), 0) << "all cells are empty";
    frames(1);
    EXPECT_EQ(storedInfo("Sin Nombre.3Ds").Acquisitions, 1);
    EXPECT_TRUE(hasLog("Sin Nombre.spc"));
}

TEST_F(ScanFrames, WhatLiesBelow88MhzIsWrittenButNotCountedNorDrawn) {
    measurement.SessionInfo.StartMHz = 87.5f;
    measurement.SessionInfo.StopMHz = 88.5f;
    start();
    EXPECT_EQ(callsOf("HM_StartEspectro(875, 890, 25)"), 1);
    frames(1);
    std::string text = "40\r\n 25\r\n87.475\r\n";
    for (int i = -20; i <= 40; ++i) text += "33\r\n";
    EXPECT_EQ(log("a.spc"), text + "\r\n");
    double all = 0;
    for (int x = 0; x <= 800; ++x) all += measurement.SpectralDensity.at(x, 3);
    // 41 points, and the cells that the stored session had at that level.
    EXPECT_EQ(all, 41 + 2 * 14);
    int bars = 0;
    for (const display::Mark& mark : form.PictureZoom.drawing.marks())
        bars += mark.colour == display::Colour{49152} ? 1 : 0;
    EXPECT_EQ(bars, 41);
}

TEST_F(ScanFrames, AStopBelowTheStartMeasuresNothing) {
    measurement.SessionInfo.StartMHz = 107;
    measurement.SessionInfo.StopMHz = 89;
    start();
    EXPECT_EQ(callsOf("HM_StartEspectro(1070, 890, 25)"), 1);
    const std::string before = log("a.3Ds");
    bench.advance(3s);
    EXPECT_EQ(log("a.3Ds"), before);
    click(form.butPause_BW);
    EXPECT_EQ(measurement.ScanRunning, 0);
}

TEST_F(ScanFrames, EndsThatAreNoNumbersAreNotAskedOfTheUnit) {
    measurement.SessionInfo.StartMHz = std::numeric_limits<float>::quiet_NaN();
    click(form.butStart_BW);
    EXPECT_EQ(callsOf("HM_StartEspectro"), 0);
    EXPECT_EQ(measurement.ScanRunning, 0);
    EXPECT_TRUE(form.butStart_BW.visible);
    EXPECT_FALSE(form.Timer1.enabled);
}

TEST_F(ScanFrames, AVersionOf17Sweeps_2DoesNot) {
    bench.hand.close(form);
    bench.desktop.settle();
    open(1.7f);
    start();
    EXPECT_EQ(callsOf("HM_StartEspectro"), 1);
    bench.hand.close(form);
    bench.desktop.settle();
    open(2.0f);
    bench.driver.superResults = {1};
    click(form.butStart_BW);
    EXPECT_EQ(callsOf("HM_StartEspectro"), 0);
    EXPECT_EQ(callsOf("HM_Super"), 1);
}

TEST_F(ScanFrames, AMillionthSweepStillCounts) {
    measurement.SessionInfo.Acquisitions = std::numeric_limits<std::int32_t>::max();
    start();
    frames(1);
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, std::numeric_limits<std::int32_t>::max());
}

TEST_F(ScanFrames, InDemoModeAStartChangesThePicturesAlone) {
    bench.state.DemoMode = "si";
    const std::string before = log("a.3Ds");
    click(form.butStart_BW);
    EXPECT_TRUE(form.butStart.visible);
    EXPECT_TRUE(form.butPause_BW.visible);
    bench.driver.frames = {1, 1};
    bench.advance(2s);
    EXPECT_EQ(measurement.ScanRunning, 0);
    EXPECT_EQ(log("a.3Ds"), before);
    EXPECT_THAT(bench.takeCalls(), ElementsAre());
    click(form.butPause_BW);
    EXPECT_TRUE(form.butStart_BW.visible);
}

}  // namespace
}  // namespace hmonitor::test
