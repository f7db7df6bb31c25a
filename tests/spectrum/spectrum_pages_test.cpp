// SPDX-License-Identifier: GPL-3.0-or-later
// What the pages of channel spectrum and bandwidth copy from their windows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/spectrum/spectrum_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

void expectSame(const display::PictureBox& copy, const display::PictureBox& from) {
    EXPECT_EQ(copy.drawing.unit(), from.drawing.unit());
    ASSERT_EQ(copy.drawing.marks().size(), from.drawing.marks().size());
    for (std::size_t i = 0; i < copy.drawing.marks().size(); ++i) {
        const display::Mark& a = copy.drawing.marks()[i];
        const display::Mark& b = from.drawing.marks()[i];
        EXPECT_TRUE(a.kind == b.kind && a.x1 == b.x1 && a.y1 == b.y1 && a.x2 == b.x2 &&
                    a.y2 == b.y2 && a.colour == b.colour && a.text == b.text)
            << i;
    }
}

/// A started rack with a stored spectrum; its window and its page are open.
struct SpectrumPage : SpectrumBench {
    SpectrumPage() {
        write("0979.spc", lines({"3", "50", "97.8", "12", "0", "7", ""}));
        shows.unload();
        hand.doubleClick(formD.PictureGraph1);
        desktop.settle();
        click(shows.SSCommand1);
    }
    Form6& page = forms.form6;
};

TEST(SpectrumPages, TheChannelSpectrumTakesBarsAndTableOver) {
    SpectrumPage bench;
    EXPECT_THAT(SpectrumBench::printedAt(bench.page.Picture1B, 500), ElementsAre("-12", "0", "-7"));
    expectSame(bench.page.Picture1, bench.shows.Picture1);
    expectSame(bench.page.Picture1B, bench.shows.Picture2);
}

TEST(SpectrumPages, TheBarsTakeTheirLeftEdgeAndTheWidthOfTheirWindow) {
    SpectrumPage bench;
    EXPECT_EQ(bench.page.Picture1.left, bench.shows.Picture1.left);
    EXPECT_EQ(bench.page.Picture1.width, bench.shows.width);
    // The table is beside the bars.
    EXPECT_GE(bench.page.Picture1B.left, bench.page.Picture1.left + bench.shows.Picture1.width);
    EXPECT_GE(bench.page.Picture1.height, bench.shows.Picture1.height);
    EXPECT_GE(bench.page.Picture1B.height, bench.shows.Picture2.height);
}

TEST(SpectrumPages, ThePageStaysAsItWasWhileItsWindowMeasuresOn) {
    SpectrumPage bench;
    const auto before = SpectrumBench::printedAt(bench.page.Picture1B, 500);
    bench.driver.superLevel = 40;
    bench.runSpan(0);
    EXPECT_THAT(SpectrumBench::printedAt(bench.shows.Picture2, 500), SizeIs(17));
    EXPECT_EQ(SpectrumBench::printedAt(bench.page.Picture1B, 500), before);
    // The window's key copies what it shows now.
    bench.click(bench.shows.SSCommand1);
    expectSame(bench.page.Picture1B, bench.shows.Picture2);
}

TEST(SpectrumPages, PrintedInTheMiddleOfARunItShowsThePointsThatAreMeasured) {
    SpectrumPage bench;
    bool printed = false;
    bench.desktop.duringSheet = [&](const display::Panel&) {
        EXPECT_THAT(SpectrumBench::printedAt(bench.page.Picture1B, 500), SizeIs(3));
        printed = true;
    };
    // The run holds the thread, so the key's click waits until it has ended.
    int points = 0;
    bench.driver.duringSuper = [&](float) {
        if (++points == 5) bench.hand.click(bench.page.SSCommand2);
    };
    bench.edit(bench.page.Text1, "meanwhile");
    bench.runSpan(0);
    EXPECT_EQ(points, 17);
    EXPECT_FALSE(printed);
    if (!printed) bench.click(bench.page.SSCommand2);
    EXPECT_TRUE(printed);
    EXPECT_EQ(bench.page.Text2.text, "meanwhile");
}

TEST(SpectrumPages, TheBandwidthTakesItsCurveOver) {
    SpectrumBench bench(1.8f);
    bench.openBandwidth();
    bench.click(bench.width.Command1);
    bench.click(bench.width.SSCommand1);
    const FormD1aP& page = bench.forms.formD1aP;
    EXPECT_TRUE(page.visible);
    EXPECT_GT(page.Picture1.drawing.marks().size(), 20u);
    expectSame(page.Picture1, bench.width.Picture1);
    EXPECT_EQ(page.Picture1.width, bench.width.Picture1.width);
    EXPECT_EQ(page.Picture1.height, bench.width.Picture1.height);
}

TEST(SpectrumPages, TheBandwidthsRunGoesOnBehindItsPage) {
    SpectrumBench bench(1.8f);
    bench.openBandwidth();
    bench.click(bench.width.Command3D1);
    bench.click(bench.width.SSCommand1);
    bench.driver.frames = {1, 1};
    bench.advance(std::chrono::milliseconds(60));
    bench.click(bench.forms.formD1aP.SSCommand2);
    bench.advance(std::chrono::milliseconds(60));
    EXPECT_EQ(bench.desktop.printedSheets.size(), 1u);
    EXPECT_EQ(bench.width.SampleCount, 2);
    EXPECT_EQ(bench.width.Command3D1.caption, "Stop");
}

}  // namespace
}  // namespace hmonitor::test
