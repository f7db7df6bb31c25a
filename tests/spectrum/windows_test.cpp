// SPDX-License-Identifier: GPL-3.0-or-later
// The windows' controls with their accessible names, and the marks that are left after drawing for
// an hour.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/spectrum/spectrum_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

TEST(SpectrumWindows, TheChannelSpectrumStandsWithItsWords) {
    SpectrumBench bench;
    const Form_D1& window = bench.shows;
    EXPECT_EQ(window.caption, "Spectrum");
    EXPECT_EQ(window.Label1.caption, "Channel Spectrum");
    EXPECT_EQ(window.Command3D1.caption, "&New Run");
    EXPECT_EQ(window.SSCommand1.caption, "Print Mode");
    EXPECT_EQ(window.SSCommand2.caption, "Mod. Bandwidth");
    bench.shows.unload();
    bench.shows.load();
    EXPECT_EQ(window.Command3D2.caption, "&Cancel");
}

TEST(SpectrumWindows, TheChannelSpectrumsTimerTicksForNothing) {
    SpectrumBench bench;
    EXPECT_EQ(milliseconds(bench.shows.Timer1.interval), 9000ms);
    EXPECT_TRUE(bench.shows.Timer1.enabled);
    const std::size_t before = bench.shows.Picture1.drawing.marks().size();
    bench.takeCalls();
    bench.advance(30s);
    EXPECT_EQ(bench.shows.Picture1.drawing.marks().size(), before);
    EXPECT_THAT(bench.takeCalls(), testing::IsEmpty());
}

TEST(SpectrumWindows, TheQuestionForASpanStandsWithItsWords) {
    SpectrumBench bench;
    const Form_NewSpectro& window = bench.asks;
    bench.asks.load();
    EXPECT_EQ(window.caption, "Spectrum");
    EXPECT_EQ(window.Label3.caption, "Values for NEW spectrum run:");
    EXPECT_EQ(window.FrameCaption.caption, "Frequency: BW");
    EXPECT_EQ(window.Label1.caption, "Step");
    EXPECT_EQ(window.Label2.caption, "Khz");
    EXPECT_EQ(window.Command3D1.caption, "&New Run");
    EXPECT_EQ(window.Command3D2.caption, "&Cancel");
}

TEST(SpectrumWindows, TheBandwidthStandsWithItsWordsAndItsTimerOff) {
    SpectrumBench bench;
    bench.openBandwidth();
    EXPECT_EQ(bench.width.Command3D1.caption, "Run");
    EXPECT_TRUE(bench.width.Command3D2.enabled);
    EXPECT_EQ(milliseconds(bench.width.Timer1.interval), 50ms);
    EXPECT_FALSE(bench.width.Timer1.enabled);
}

TEST(SpectrumWindows, EachIsMovedByItsTitle) {
    SpectrumBench bench;
    bench.asks.show();
    bench.width.show();
    const auto drag = [&](display::Form& form, display::Panel& strip) {
        const float left = form.left;
        const float top = form.top;
        bench.hand.mouseDown(strip, display::Mouse{100, 50, true});
        bench.hand.mouseMove(strip, display::Mouse{70, 90, true});
        bench.desktop.settle();
        EXPECT_EQ(form.left, left - 30) << form.name();
        EXPECT_EQ(form.top, top + 40) << form.name();
        bench.hand.mouseMove(strip, display::Mouse{300, 300, false});
        bench.desktop.settle();
        EXPECT_EQ(form.left, left - 30) << form.name();
    };
    drag(bench.asks, bench.asks.SSPanel1);
    drag(bench.width, bench.width.SSPanel1);
}

TEST(SpectrumWindows, AnHourOfChannelSpectraDoesNotGrowTheDrawings) {
    SpectrumBench bench;
    bench.runSpan(5);
    const std::size_t bars = bench.shows.Picture1.drawing.marks().size();
    const std::size_t table = bench.shows.Picture2.drawing.marks().size();
    for (int run = 0; run < 60; ++run) {
        bench.driver.superLevel = 70 - static_cast<float>(run % 50);
        bench.runSpan(5);
        ASSERT_LE(bench.shows.Picture1.drawing.marks().size(), bars) << run;
        ASSERT_LE(bench.shows.Picture2.drawing.marks().size(), table) << run;
    }
}

TEST(SpectrumWindows, AnHourOfBandwidthRunsDoesNotGrowTheDrawing) {
    SpectrumBench bench;
    bench.openBandwidth();
    std::size_t first = 0;
    for (int run = 0; run < 30; ++run) {
        bench.hand.click(bench.width.Command3D1);
        for (int tick = 0; tick < 12; ++tick) {
            // Peaks that grow with nearly each sample, so that nearly each one is drawn.
            bench.driver.superLevel = 40 + static_cast<float>((run + 3 * tick) % 31);
            bench.advance(200ms);
        }
        bench.hand.click(bench.width.Command3D1);
        bench.desktop.settle();
        const std::size_t marks = bench.width.Picture1.drawing.marks().size();
        // Crossing curves hide more or less of one another, and the count has more or fewer digits.
        if (run == 0) first = marks;
        ASSERT_LE(marks, first + 150) << run;
    }
    EXPECT_GT(first, 300u);
}

}  // namespace
}  // namespace hmonitor::test
