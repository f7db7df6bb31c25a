// SPDX-License-Identifier: GPL-3.0-or-later
// The page that the analyzer's print key opens.
#include <gmock/gmock.h>

#include "tests/analyzer/analyzer_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;

class AnalyzerPage : public AnalyzerBench {
 protected:
    void openWith(int sweeps) {
        store("a.3Ds", sweeps, "of a");
        open();
    }
    const display::CellMap* mapOf(const display::PictureBox& box) {
        for (const display::Mark& mark : box.drawing.marks()) {
            if (mark.map) return mark.map.get();
        }
        return nullptr;
    }
    Form6& page = bench.forms.form6;
};

TEST_F(AnalyzerPage, TakesTheBarsWhileTheyAreOnShow) {
    openWith(1);
    ASSERT_TRUE(form.PictureZoom.visible);
    click(form.SSCommand1);
    EXPECT_TRUE(page.visible);
    EXPECT_EQ(page.Label2.caption, "Monday 4, May 2026");
    EXPECT_EQ(page.Picture1.drawing.marks().size(), form.PictureZoom.drawing.marks().size());
    EXPECT_EQ(mapOf(page.Picture1), nullptr);
    EXPECT_EQ(page.Picture1.left, form.PictureZoom.left);
    EXPECT_EQ(page.Picture1.width, form.width);
}

TEST_F(AnalyzerPage, TakesTheMapWhileItIsOnShow) {
    openWith(60);
    ASSERT_TRUE(form.Picture3d.visible);
    click(form.SSCommand1);
    ASSERT_NE(mapOf(page.Picture1), nullptr);
    EXPECT_EQ(mapOf(page.Picture1)->cells, mapOf(form.Picture3d)->cells);
    EXPECT_EQ(page.Picture1.drawing.unit(), form.Picture3d.drawing.unit());
    EXPECT_EQ(page.Picture1.left, form.Picture3d.left);
    EXPECT_EQ(page.Picture1.width, form.width);
}

TEST_F(AnalyzerPage, TakesTheViewAsFarAsItIsScrolled) {
    openWith(1);
    bench.set(form.HScroll1, 20);
    click(form.SSCommand1);
    EXPECT_LT(page.Picture1.left, 0);
    EXPECT_EQ(page.Picture1.left, form.PictureZoom.left);
    EXPECT_EQ(page.Picture1.width, form.width);
}

TEST_F(AnalyzerPage, EmptiesTheTableOfAChannelSpectrum) {
    bench.write("0981.spc", lines({"3", "50", "97.8", "12", "0", "7", ""}));
    bench.forms.formD1.unload();
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.settle();
    click(bench.forms.formD1.SSCommand1);
    EXPECT_FALSE(page.Picture1B.drawing.marks().empty());
    bench.hand.close(bench.forms.formD1);
    bench.settle();
    openWith(1);
    click(form.SSCommand1);
    EXPECT_THAT(page.Picture1B.drawing.marks(), IsEmpty());
}

TEST_F(AnalyzerPage, StaysAsItWasWhileTheScanGoesOnAndPrintsWhatItShows) {
    openWith(60);
    click(form.butStart_BW);
    frames(1);
    click(form.SSCommand1);
    const auto cells = mapOf(page.Picture1)->cells;
    bench.driver.floorLevel = 77;
    frames(3);
    EXPECT_NE(mapOf(form.Picture3d)->cells, cells);
    bool printed = false;
    bench.desktop.duringSheet = [&](const display::Panel&) {
        EXPECT_EQ(mapOf(page.Picture1)->cells, cells);
        printed = true;
    };
    click(page.SSCommand2);
    EXPECT_TRUE(printed);
    frames(1);
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, 65);
    EXPECT_EQ(measurement.ScanRunning, -1);
}

}  // namespace
}  // namespace hmonitor::test
