// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/spectrum/spectrum_bench.h"

namespace hmonitor::test {
namespace {

using std::chrono::milliseconds;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr float kPoints = 1.5f;  ///< a unit that is measured point by point
constexpr float kFrames = 1.8f;  ///< a unit that sends frames

struct WidthBench : SpectrumBench {
    explicit WidthBench(float version) : SpectrumBench(version) {
        openBandwidth();
        takeCalls();
    }
    void press(display::Key& key) {
        hand.click(key);
        desktop.settle();
    }
    void run() { press(width.Command3D1); }
    bool rackUsable() const {
        return std::ranges::all_of(program.rack, [](auto* panel) { return panel->enabled.get(); });
    }
};

TEST(FormD1a, OpensIdleWithTheEmptyGraph) {
    SpectrumBench bench(kFrames);
    bench.openBandwidth();
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_getHardwareVersion"));
    EXPECT_TRUE(bench.width.visible);
    EXPECT_EQ(bench.width.Command3D1.caption, "Run");
    EXPECT_THAT(SpectrumBench::printedAt(bench.width.Picture1, 40),
                ElementsAre("100", "80", "60", "40", "20", "0", "%Mod"));
    EXPECT_THAT(SpectrumBench::printedAt(bench.width.Picture1, 9200), ElementsAre("BW=+/-Khz"));
}

TEST(FormD1a, InDemoModeDoesNotRun) {
    WidthBench bench(kFrames);
    bench.state.DemoMode = "si";
    bench.run();
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_EQ(bench.width.Command3D1.caption, "Run");
}

TEST(FormD1a, RunOnAUnitOfFramesSweepsFrom25To150kHzAboveTheCarrier) {
    WidthBench bench(kFrames);
    bench.driver.superLevel = 69.5f;
    bench.run();
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", StartsWith("HM_Normal(979,"), "HM_Parar",
                            "HM_Super(979)", "HM_StartEspectro(979.25, 980.5, 0)"));
    EXPECT_EQ(milliseconds(bench.width.Timer1.interval), milliseconds(50));
    EXPECT_TRUE(bench.width.Timer1.enabled);
    EXPECT_EQ(bench.width.Levels[0], 69.5f);
    EXPECT_EQ(bench.width.Command3D1.caption, "Stop");
    EXPECT_FALSE(bench.width.Command3D2.enabled);
    EXPECT_FALSE(bench.rackUsable());
}

TEST(FormD1a, ReferenceTooFarBelowTheCarrierIsTenDbUnderIt) {
    for (const auto& [measured, reference] : {std::pair{69.1f, 69.1f}, std::pair{69.f, 60.f},
                                              std::pair{40.f, 60.f}, std::pair{75.f, 75.f}}) {
        WidthBench bench(kFrames);
        bench.driver.superLevel = measured;
        bench.run();
        EXPECT_EQ(bench.width.Levels[0], reference) << measured;
    }
}

TEST(FormD1a, RunOnAUnitOfPointsTakesTheCarrierAndTicksEach200ms) {
    WidthBench bench(kPoints);
    bench.run();
    EXPECT_EQ(SpectrumBench::count(bench.takeCalls(), "HM_Super"), 0u);
    EXPECT_EQ(bench.width.Levels[0], 70);
    bench.advance(milliseconds(199));
    EXPECT_EQ(bench.width.SampleCount, 0);
    bench.advance(milliseconds(1));
    EXPECT_EQ(bench.width.SampleCount, 1);
    const auto calls = bench.takeCalls();
    EXPECT_THAT(calls, Contains("HM_Super(979.25)"));
    EXPECT_THAT(calls, Contains("HM_Super(980.5)"));
    EXPECT_EQ(SpectrumBench::count(calls, "HM_Super"), 6u);
}

TEST(FormD1a, CountsASampleForEachFrameThatArrives) {
    WidthBench bench(kFrames);
    bench.driver.frames = {0, 1, 0, 0, 1, 1};
    bench.run();
    bench.advance(milliseconds(300));
    EXPECT_EQ(bench.width.SampleCount, 3);
    EXPECT_THAT(SpectrumBench::printedAt(bench.width.Picture1, 5500), Contains("3"));
}

TEST(FormD1a, UnitThatNeverSendsAFrameCanBeStopped) {
    WidthBench bench(kFrames);
    bench.run();
    bench.advance(milliseconds(10000));
    EXPECT_EQ(bench.width.SampleCount, 0);
    bench.takeCalls();
    bench.run();
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", StartsWith("HM_Normal(979,")));
    EXPECT_EQ(bench.width.Command3D1.caption, "Run");
    EXPECT_TRUE(bench.width.Command3D2.enabled);
    EXPECT_FALSE(bench.width.Timer1.enabled);
}

TEST(FormD1a, PeaksOnlyGrow) {
    WidthBench bench(kPoints);
    bench.driver.superLevels = {60, 50, 75, 69, 40, 39};
    bench.run();
    bench.advance(milliseconds(200));
    EXPECT_THAT(bench.width.PeakPercent, ElementsAre(100, 32, 10, 100, 90, 4, 0, 0));
    bench.driver.superLevels = {65, 30, 30, 30, 70, 45};
    bench.advance(milliseconds(200));
    EXPECT_THAT(bench.width.PeakPercent, ElementsAre(100, 56, 10, 100, 90, 100, 7, 0));
}

TEST(FormD1a, AReadingBetweenTheRowsOfTheTableIsNothing) {
    WidthBench bench(kPoints);
    bench.driver.superLevel = 69.5f;
    bench.run();
    bench.advance(milliseconds(200));
    EXPECT_THAT(bench.width.PeakPercent, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
}

std::string graphOf(const display::PictureBox& picture) {
    std::string text;
    for (const display::Mark& mark : picture.drawing.marks()) {
        if (mark.kind == display::Mark::Kind::Print && mark.y1 < 300) continue;
        if (mark.kind == display::Mark::Kind::Filled && mark.y2 <= 300) continue;
        text += std::to_string(mark.number) + " ";
    }
    return text;
}

TEST(FormD1a, WithNoPeakChangedTheGraphStandsStillWhileTheCountGoesUp) {
    WidthBench bench(kPoints);
    bench.driver.superLevel = 60;
    bench.run();
    bench.advance(milliseconds(200));
    const std::string graph = graphOf(bench.width.Picture1);
    bench.advance(milliseconds(600));
    EXPECT_EQ(graphOf(bench.width.Picture1), graph);
    EXPECT_EQ(bench.width.SampleCount, 4);
}

TEST(FormD1a, AnHourOfSamplesDoesNotGrowTheDrawing) {
    constexpr int kTicksAnHour = 72000;
    WidthBench bench(kFrames);
    bench.width.GraficoMuestras(1);
    const std::size_t early = bench.width.Picture1.drawing.marks().size();
    for (int i = 2; i <= kTicksAnHour; ++i) {
        bench.width.GraficoMuestras(i);
        ASSERT_LE(bench.width.Picture1.drawing.marks().size(), early) << i;
    }
    EXPECT_THAT(SpectrumBench::printedAt(bench.width.Picture1, 5500), Contains("32767"));
}

TEST(FormD1a, AnHourOfRedrawsDoesNotGrowTheDrawing) {
    WidthBench bench(kPoints);
    bench.press(bench.width.Command1);
    const std::size_t early = bench.width.Picture1.drawing.marks().size();
    for (int i = 0; i < 1000; ++i) bench.press(bench.width.Command1);
    EXPECT_EQ(bench.width.Picture1.drawing.marks().size(), early);
}

TEST(FormD1a, StopBetweenTicksReturnsTheUnitAtOnce) {
    WidthBench bench(kPoints);
    bench.run();
    bench.advance(milliseconds(250));
    bench.takeCalls();
    bench.run();
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", StartsWith("HM_Normal(979,")));
    EXPECT_TRUE(bench.width.Command3D2.enabled);
    EXPECT_THAT(SpectrumBench::printedAt(bench.width.Picture1, 2700),
                ElementsAre("Stop Time: 12:00:00"));
}

TEST(FormD1a, StopWithinATickLeavesTheReturnToTheTick) {
    WidthBench bench(kPoints);
    bench.run();
    bench.takeCalls();
    int point = 0;
    bool enabledInside = true;
    bench.driver.duringSuper = [&](float) {
        if (++point == 3) bench.hand.click(bench.width.Command3D1);
        if (point == 4) enabledInside = bench.width.Command3D2.enabled;
    };
    bench.advance(milliseconds(200));
    const auto calls = bench.takeCalls();
    EXPECT_EQ(SpectrumBench::count(calls, "HM_Super"), 6u);
    EXPECT_EQ(SpectrumBench::count(calls, "HM_Normal"), 1u);
    EXPECT_THAT(calls.back(), StartsWith("HM_Normal(979,"));
    EXPECT_FALSE(enabledInside);
    EXPECT_TRUE(bench.width.Command3D2.enabled);
    EXPECT_EQ(bench.width.Command3D1.caption, "Run");
    bench.advance(milliseconds(1000));
    EXPECT_EQ(bench.width.SampleCount, 1);
}

TEST(FormD1a, StopWhileTheReferenceIsMeasuredStartsNoSampling) {
    WidthBench bench(kFrames);
    bench.driver.duringSuper = [&](float) { bench.hand.click(bench.width.Command3D1); };
    bench.run();
    const auto calls = bench.takeCalls();
    EXPECT_EQ(SpectrumBench::count(calls, "HM_StartEspectro"), 0u);
    EXPECT_THAT(calls.back(), StartsWith("HM_Normal(979,"));
    EXPECT_FALSE(bench.width.Timer1.enabled);
    EXPECT_EQ(bench.width.Command3D1.caption, "Run");
    EXPECT_TRUE(bench.width.Command3D2.enabled);
}

TEST(FormD1a, StoppedAndClosedWhileTheReferenceIsMeasuredGivesTheRackBack) {
    WidthBench bench(kFrames);
    bench.driver.duringSuper = [&](float) {
        bench.hand.click(bench.width.Command3D1);
        bench.hand.close(bench.width);
    };
    bench.run();
    EXPECT_FALSE(bench.width.loaded());
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_FALSE(bench.desktop.queue().running());
    EXPECT_THAT(bench.takeCalls().back(), StartsWith("HM_Normal(979,"));
    EXPECT_TRUE(bench.formB.Timer2.enabled);
}

TEST(FormD1a, UnitThatFailsEndsTheRunAndIsReturned) {
    WidthBench bench(kPoints);
    bench.run();
    bench.driver.superResults = {0, 1};
    bench.takeCalls();
    bench.advance(milliseconds(200));
    const auto calls = bench.takeCalls();
    EXPECT_EQ(SpectrumBench::count(calls, "HM_Super"), 2u);
    EXPECT_THAT(calls.back(), StartsWith("HM_Normal(979,"));
    EXPECT_EQ(bench.width.Command3D1.caption, "Run");
    EXPECT_TRUE(bench.width.Command3D2.enabled);
}

TEST(FormD1a, ARefusedRunTellsSoWithItsFrequencyUntilTheNextOne) {
    WidthBench bench(kPoints);
    bench.run();
    bench.driver.superResults = {0, 1};
    bench.advance(milliseconds(200));
    EXPECT_EQ(bench.width.Refused.caption, "The unit refused 97.95 MHz: the run ended there.");
    bench.run();
    EXPECT_EQ(bench.width.Refused.caption, "");
}

TEST(FormD1a, ARefusedReferenceTellsSo) {
    WidthBench bench(kFrames);
    bench.driver.superResults = {1};
    bench.run();
    EXPECT_EQ(bench.width.Refused.caption, "The unit refused 97.9 MHz: the run ended there.");
}

TEST(FormD1a, RunStartsOver) {
    WidthBench bench(kPoints);
    bench.driver.superLevel = 70;
    bench.run();
    bench.advance(milliseconds(200));
    bench.run();
    bench.driver.superLevel = 30;
    bench.run();
    EXPECT_EQ(bench.width.SampleCount, 0);
    EXPECT_THAT(SpectrumBench::printedAt(bench.width.Picture1, 5500), ElementsAre("0"));
    bench.advance(milliseconds(200));
    EXPECT_THAT(bench.width.PeakPercent, ElementsAre(100, 0, 0, 0, 0, 0, 0, 0));
}

TEST(FormD1a, ARunKeepsTheFrequencyThatItBeganWith) {
    WidthBench bench(kPoints);
    bench.run();
    bench.formB.TunedFreq = 1000;
    bench.advance(milliseconds(200));
    EXPECT_THAT(bench.takeCalls(), Contains("HM_Super(979.25)"));
}

TEST(FormD1a, TheKeyThatLeavesItWaitsForTheEndOfARun) {
    WidthBench bench(kPoints);
    bench.run();
    bench.hand.click(bench.width.Command3D2);
    bench.hand.escape(bench.width);
    bench.desktop.settle();
    EXPECT_TRUE(bench.width.visible);
    EXPECT_EQ(bench.width.Command3D1.caption, "Stop");
    bench.run();
    bench.hand.click(bench.width.Command3D2);
    bench.desktop.settle();
    EXPECT_FALSE(bench.width.loaded());
}

TEST(FormD1a, TheWindowsCloseStopsARunAndCloses) {
    for (const float version : {kPoints, kFrames}) {
        SCOPED_TRACE(version);
        WidthBench bench(version);
        bench.run();
        bench.advance(milliseconds(230));
        bench.hand.close(bench.width);
        bench.desktop.settle();
        EXPECT_FALSE(bench.width.loaded());
        EXPECT_FALSE(bench.width.Timer1.enabled);
        EXPECT_TRUE(bench.rackUsable());
        EXPECT_EQ(bench.program.unitInUse.window, nullptr);
        EXPECT_THAT(bench.takeCalls().back(), StartsWith("HM_Normal(979,"));
    }
}

TEST(FormD1a, ClosedWithinATickItGoesWhenTheTickHasMeasured) {
    WidthBench bench(kPoints);
    bench.run();
    bench.takeCalls();
    int point = 0;
    bool openInside = false;
    bench.driver.duringSuper = [&](float) {
        if (++point == 3) bench.hand.close(bench.width);
        if (point == 4) openInside = bench.width.loaded();
    };
    bench.advance(milliseconds(200));
    EXPECT_TRUE(openInside);
    EXPECT_EQ(point, 6);
    EXPECT_FALSE(bench.width.loaded());
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_FALSE(bench.desktop.queue().running());
    EXPECT_THAT(bench.takeCalls().back(), StartsWith("HM_Normal(979,"));
    bench.advance(milliseconds(1000));
    EXPECT_EQ(point, 6);
}

TEST(FormD1a, ClosedWhileTheReferenceIsMeasuredItGoesWithoutSampling) {
    WidthBench bench(kFrames);
    bench.driver.duringSuper = [&](float) { bench.hand.close(bench.width); };
    bench.run();
    EXPECT_FALSE(bench.width.loaded());
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_FALSE(bench.desktop.queue().running());
    const auto calls = bench.takeCalls();
    EXPECT_EQ(SpectrumBench::count(calls, "HM_StartEspectro"), 0u);
    EXPECT_THAT(calls.back(), StartsWith("HM_Normal(979,"));
    // The next time it opens as usual.
    bench.driver.duringSuper = nullptr;
    bench.openBandwidth();
    bench.run();
    bench.advance(milliseconds(200));
    EXPECT_TRUE(bench.width.visible);
    EXPECT_EQ(bench.width.Command3D1.caption, "Stop");
}

TEST(FormD1a, AChannelSpectrumDoesNotStartWhileARunGoesOn) {
    WidthBench bench(kPoints);
    bench.run();
    bench.takeCalls();
    bench.program.Form_NewSpectro->Command3D1.press();
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_TRUE(bench.width.Timer1.enabled);
}

/// The blue, green and yellow marks of the curve.
std::vector<display::Mark> curveOf(const display::PictureBox& picture) {
    std::vector<display::Mark> found;
    for (const display::Mark& mark : picture.drawing.marks()) {
        const auto colour = mark.colour.bgr;
        if (colour == 1114111 || colour == 16711680 || colour == 12648384) found.push_back(mark);
    }
    return found;
}

TEST(FormD1aCurve, Is75kHzTheLastColumnInBlue) {
    WidthBench bench(kPoints);
    bench.driver.superLevel = 70;
    bench.run();
    bench.advance(milliseconds(200));
    // 75 kHz; a kHz is (10200 - 400) / 150 units.
    const float at75 = 400 + 75 * (9800.f / 150);
    for (const display::Mark& mark : curveOf(bench.width.Picture1)) {
        if (mark.kind != display::Mark::Kind::Filled) continue;
        EXPECT_EQ(mark.colour.bgr, mark.x2 <= at75 ? 16711680u : 12648384u) << mark.x2;
    }
}

TEST(FormD1aCurve, IsAYellowLineOfWidthTwoOver150kHz) {
    WidthBench bench(kPoints);
    bench.driver.superLevel = 65;
    bench.run();
    bench.advance(milliseconds(200));
    std::size_t strokes = 0;
    for (const display::Mark& mark : curveOf(bench.width.Picture1)) {
        if (mark.kind != display::Mark::Kind::Stroke) continue;
        ++strokes;
        EXPECT_EQ(mark.lineWidth, 2);
    }
    EXPECT_EQ(strokes, 150u);
}

TEST(FormD1aCurve, GraphLineRewritesItsArgument) {
    WidthBench bench(kPoints);
    for (const auto& [y, left] :
         {std::pair{100.f, 1.f}, std::pair{99.5f, 1.f}, std::pair{99.f, 1.f}, std::pair{40.f, 60.f},
          std::pair{-2.f, 102.f}}) {
        float percent = y;
        bench.width.GraphLine(10, percent);
        EXPECT_EQ(percent, left) << y;
    }
}

TEST(FormD1aCurve, TestPatternJoinsItsSevenCorners) {
    WidthBench bench(kPoints);
    bench.press(bench.width.Command1);
    const auto marks = curveOf(bench.width.Picture1);
    std::vector<float> rows;
    for (const display::Mark& mark : marks) {
        if (mark.kind == display::Mark::Kind::Stroke) rows.push_back(mark.y2);
    }
    // The percents 80, 80, 40, 20, 20, 80; a percent is 55 units, counted from 400.
    EXPECT_THAT(rows, ElementsAre(1500, 1500, 3700, 4800, 4800, 1500));
}

TEST(FormD1aCurve, GraficoRampsTowardsItsEndInSteps) {
    WidthBench bench(kPoints);
    bench.width.GraphClean();
    float start = 100;
    bench.width.GraphLine(0, start);
    bench.width.Grafico(25, 50);
    EXPECT_EQ(std::ranges::count(curveOf(bench.width.Picture1), display::Mark::Kind::Stroke,
                                 &display::Mark::kind),
              24);
    bench.width.GraphClean();
    bench.width.Grafico(50, 25);
    std::vector<float> rows;
    for (const display::Mark& mark : curveOf(bench.width.Picture1)) {
        if (mark.kind == display::Mark::Kind::Stroke) rows.push_back(mark.y2);
    }
    ASSERT_THAT(rows, SizeIs(25));
    EXPECT_EQ(rows.front(), 400 + 55 * 51);  // 49 percent
    EXPECT_EQ(rows.back(), 400 + 55 * 75);   // 25 percent
}

TEST(FormD1aGrid, HeavyAndLightLinesTakeTurnsAndTheLastIsLowered) {
    WidthBench bench(kPoints);
    bench.width.Picture1.drawing.clear();
    bench.width.GraphRepaint();
    const auto& marks = bench.width.Picture1.drawing.marks();
    ASSERT_THAT(marks, SizeIs(18));
    for (std::size_t i = 0; i < 11; ++i) {
        const float lowered = i == 10 ? 30 : 0;
        EXPECT_EQ(marks[i].y1, 400 + 550 * static_cast<float>(i) + lowered) << i;
        EXPECT_EQ(marks[i].lineWidth, i % 2 == 0 ? 2 : 1) << i;
    }
    EXPECT_EQ(marks[11].x1, 400);
    EXPECT_EQ(marks[17].x1, 390 + 150 * (9800.f / 150));
    EXPECT_EQ(marks[17].y2, 5930);
}

}  // namespace
}  // namespace hmonitor::test
