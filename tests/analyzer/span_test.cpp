// SPDX-License-Identifier: GPL-3.0-or-later
// The span dialog, which nothing in the program opens.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/analyzer/analyzer_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

class SpanDialog : public AnalyzerBench {
 protected:
    explicit SpanDialog(int languageId = RackBench::kEnglish) : AnalyzerBench(languageId) {
        bench.desktop.answerEveryBox = true;
        store("a.3Ds", 2, "of a");
        bench.driver.superLevel = 40;
        open(1.5f);
        span.show();
        bench.takeCalls();
    }
    frmSpectrumAnalizerSpan& span{bench.forms.formSpectrumAnalizerSpan};
};

class SpanishSpanDialog : public SpanDialog {
 protected:
    SpanishSpanDialog() : SpanDialog(RackBench::kSpanish) {}
};

TEST_F(SpanDialog, HasOneStep) {
    EXPECT_EQ(span.caption, "Spectrum");
    EXPECT_EQ(span.Label3.caption, "Values for NEW spectrum run:");
    EXPECT_EQ(span.FrameCaption.caption, "Frequency: BW");
    EXPECT_EQ(span.Label2.caption, "Khz");
    EXPECT_EQ(span.Label1.caption, "Step");
    EXPECT_EQ(span.Command3D1.caption, "&New Run");
    EXPECT_EQ(span.Command3D2.caption, "&Cancel");
    EXPECT_THAT(span.Combo1.list.rows(), ElementsAre("  Step Size 25KHz"));
    EXPECT_EQ(span.Text2.text, "25");
}

TEST_F(SpanDialog, CancelShowsTheAnalyzer) {
    form.hide();
    click(span.Command3D2);
    EXPECT_TRUE(form.visible);
    EXPECT_FALSE(span.loaded());
    EXPECT_TRUE(bench.takeCalls().empty());
}

TEST_F(SpanDialog, WhileNoScanRunsItsRunEndsAfterAPoint) {
    click(span.Command3D1);
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_getHardwareVersion", "HM_Parar", "HM_Super(930)",
                            "HM_Parar", testing::StartsWith("HM_Normal(981")));
    EXPECT_FALSE(hasLog("a.spc"));
    EXPECT_EQ(counted(0, 40), 0) << "only a running scan counts";
    EXPECT_FALSE(span.loaded());
    EXPECT_FALSE(bench.desktop.queue().running());
}

TEST_F(SpanDialog, InARunningScanMeasures400PointsAround98MhzAndGoesOn) {
    measurement.ScanRunning = -1;
    int points = 0;
    bench.driver.duringSuper = [&](float) {
        // Ends the scan that continues after the run, at its first point.
        if (++points == 401) bench.driver.superResults = {1};
    };
    click(span.Command3D1);
    EXPECT_EQ(callsOf("HM_Super(930)"), 1);
    EXPECT_EQ(callsOf("HM_Super(1029.75)"), 1);
    EXPECT_EQ(counted(0, 40), 1);
    EXPECT_EQ(counted(399, 40), 1);
    std::string text = "400\r\n25\r\n92.975\r\n";
    for (int i = 0; i < 400; ++i) text += "40\r\n";
    EXPECT_EQ(log("a.spc"), text + "\r\n");
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, 3) << "the sweep is counted";
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 3);
}

TEST_F(SpanDialog, AStepOf10Is100) {
    span.Combo1.list.clear();
    span.Combo1.list.add("  Step Size 10 KHz");
    span.Combo1.select(0);
    EXPECT_EQ(span.Text2.text, "100");
}

TEST_F(SpanDialog, WithoutAStepMeasuresNothingAndSaysWhy) {
    for (const char* step : {"", "0", "x", "0.9", "-25"}) {
        SCOPED_TRACE(step);
        span.show();
        bench.hand.edit(span.Text2, step);
        bench.desktop.boxes.clear();
        bench.takeCalls();
        click(span.Command3D1);
        EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_getHardwareVersion", "HM_Parar",
                                                   testing::StartsWith("HM_Normal(981")));
        ASSERT_EQ(bench.desktop.boxes.size(), 1u);
        EXPECT_EQ(bench.desktop.boxes[0].title, "Spectrum");
        EXPECT_EQ(bench.desktop.boxes[0].text, "The least step is 1 kHz.");
        EXPECT_FALSE(span.loaded());
        EXPECT_FALSE(bench.desktop.queue().running());
    }
}

TEST_F(SpanDialog, TheUnitMeasuresOnWhileTheWordAboutTheStepStands) {
    bench.hand.edit(span.Text2, "0");
    std::vector<std::string> before{"no box stood"};
    bench.desktop.duringBox = [&] { before = bench.takeCalls(); };
    click(span.Command3D1);
    EXPECT_THAT(before, testing::IsEmpty());
}

TEST_F(SpanishSpanDialog, SaysInSpanishWhyNothingWasMeasured) {
    bench.hand.edit(span.Text2, "");
    click(span.Command3D1);
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "El paso mínimo es 1 kHz.");
}

TEST_F(SpanDialog, AStepOf1KhzIsMeasuredWithoutAWord) {
    bench.hand.edit(span.Text2, "1");
    click(span.Command3D1);
    EXPECT_EQ(callsOf("HM_Super(930)"), 1);
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST_F(SpanDialog, InDemoModeShowsTheAnalyzer) {
    bench.state.DemoMode = "si";
    form.hide();
    click(span.Command3D1);
    EXPECT_TRUE(form.visible);
    EXPECT_FALSE(span.loaded());
    EXPECT_TRUE(bench.takeCalls().empty());
}

}  // namespace
}  // namespace hmonitor::test
