// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/form4.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/performance/log_bench.h"
#include "tests/support/page_recorder.h"

namespace hmonitor::test {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class PageWindow : public testing::Test {
 protected:
    PageWindow() {
        bench.write("0981.dat", lines(std::vector<std::string>(24, "x")));
        bench.open();
        bench.hand.click(bench.charts.SSCommand1);
        bench.desktop.settle();
    }

    std::vector<std::string> page() const { return recorded(bench.page.ViewPro1.document()); }
    static std::string comment(const std::string& text) {
        return "text \"" + text + "\" 1500 13700 size 10 black";
    }
    void press(display::Key& key) {
        bench.hand.click(key);
        bench.desktop.settle();
    }

    LogBench bench;
};

TEST_F(PageWindow, OpensFromPrintModeWithThePageOfTheDay) {
    EXPECT_TRUE(bench.page.visible);
    EXPECT_TRUE(bench.charts.visible);
    EXPECT_THAT(page(),
                Contains("text \" On-Air Performance Log:   " + bench.state.StationName.str() +
                         "  98.1 mhz   20260304\" 5300 500 size 8 black"));
    EXPECT_EQ(bench.page.SSCommand1.caption, "Cancel");
    EXPECT_EQ(bench.page.SSCommand2.caption, "Print");
    EXPECT_EQ(bench.page.SSCommand3.caption, "Set");
    EXPECT_EQ(bench.page.Label9.caption, "Comment");
    EXPECT_EQ(bench.page.Frame1.caption, "Zoom");
}

TEST_F(PageWindow, TheOtherDaysPageStandsThereWhenItIsChosen) {
    bench.choose("20260302");
    EXPECT_THAT(page(), Contains(testing::HasSubstr("mhz   20260302\"")));
}

TEST_F(PageWindow, TheScrollBarSetsTheZoom) {
    EXPECT_EQ(bench.page.ViewPro1.zoom.get(), bench.page.hscZoom.value);
    bench.hand.set(bench.page.hscZoom, 125);
    bench.desktop.settle();
    EXPECT_EQ(bench.page.ViewPro1.zoom.get(), 125);
    // A new page keeps the zoom.
    press(bench.page.SSCommand3);
    EXPECT_EQ(bench.page.ViewPro1.zoom.get(), 125);
}

TEST_F(PageWindow, SetDrawsThePageAgainWithTheComment) {
    EXPECT_THAT(page(), Contains(comment("")));
    bench.hand.edit(bench.page.Text1, "after the storm");
    bench.desktop.settle();
    EXPECT_THAT(page(), Not(Contains(comment("after the storm"))));
    press(bench.page.SSCommand3);
    EXPECT_THAT(page(), Contains(comment("after the storm")));
}

TEST_F(PageWindow, SetReadsTheLogAnew) {
    bench.write("20260304.log", countingLog(0, 24));
    press(bench.page.SSCommand3);
    EXPECT_EQ(bench.charts.Graph[0].dataAt(24, 1), "24");
}

TEST_F(PageWindow, CancelKeepsTheComment) {
    bench.hand.edit(bench.page.Text1, "kept");
    press(bench.page.SSCommand1);
    EXPECT_FALSE(bench.page.visible);
    EXPECT_TRUE(bench.page.loaded());
    press(bench.charts.SSCommand1);
    EXPECT_TRUE(bench.page.visible);
    EXPECT_EQ(bench.page.Text1.text, "kept");
}

TEST_F(PageWindow, EscapeAndTheWindowsCloseDoWhatCancelDoes) {
    bench.hand.escape(bench.page);
    bench.desktop.settle();
    EXPECT_FALSE(bench.page.visible);
    press(bench.charts.SSCommand1);
    bench.hand.close(bench.page);
    bench.desktop.settle();
    EXPECT_FALSE(bench.page.visible);
    EXPECT_TRUE(bench.page.loaded());
}

TEST_F(PageWindow, PrintPrintsTheFirstPageAndUnloadsTheForm) {
    bench.hand.edit(bench.page.Text1, "printed");
    press(bench.page.SSCommand3);
    const auto shown = page();
    press(bench.page.SSCommand2);
    ASSERT_THAT(bench.desktop.printedPages, SizeIs(1));
    EXPECT_EQ(recorded(bench.desktop.printedPages[0].document), shown);
    EXPECT_EQ(bench.desktop.printedPages[0].first, 1);
    EXPECT_EQ(bench.desktop.printedPages[0].last, 1);
    EXPECT_FALSE(bench.page.loaded());
    EXPECT_TRUE(bench.charts.visible);
}

TEST_F(PageWindow, AfterAPrintItComesBackWithTheDaysPageAndWithoutAComment) {
    bench.hand.edit(bench.page.Text1, "printed");
    press(bench.page.SSCommand3);
    press(bench.page.SSCommand2);
    press(bench.charts.SSCommand1);
    EXPECT_EQ(bench.page.Text1.text, "");
    EXPECT_THAT(page(), Contains(comment("")));
    EXPECT_THAT(beginning(page(), "polyline"), SizeIs(8 * 24));
}

TEST_F(PageWindow, AFailedPrintSaysNothingAndLeavesTheKeysUsable) {
    bench.desktop.printerFault = "No printer is set up on this computer.";
    press(bench.page.SSCommand2);
    EXPECT_THAT(bench.desktop.boxes, IsEmpty());
    EXPECT_FALSE(bench.page.loaded());
    press(bench.charts.SSCommand1);
    EXPECT_TRUE(bench.page.visible);
    press(bench.page.SSCommand2);
    EXPECT_THAT(bench.desktop.printedPages, SizeIs(2));
}

TEST_F(PageWindow, AFailedPrintKeepsTheCommentForTheNextTime) {
    bench.desktop.printerFault = "No printer is set up on this computer.";
    bench.hand.edit(bench.page.Text1, "never on paper");
    press(bench.page.SSCommand3);
    press(bench.page.SSCommand2);
    press(bench.charts.SSCommand1);
    EXPECT_EQ(bench.page.Text1.text, "never on paper");
    EXPECT_THAT(page(), Contains(comment("never on paper")));
    bench.desktop.printerFault.clear();
    press(bench.page.SSCommand2);
    press(bench.charts.SSCommand1);
    EXPECT_EQ(bench.page.Text1.text, "");
}

TEST_F(PageWindow, ACommentThatThePageDoesNotCarryYetIsNotLostByAPrint) {
    bench.hand.edit(bench.page.Text1, "not set");
    press(bench.page.SSCommand2);
    ASSERT_THAT(bench.desktop.printedPages, SizeIs(1));
    EXPECT_THAT(recorded(bench.desktop.printedPages[0].document), Contains(comment("")));
    press(bench.charts.SSCommand1);
    EXPECT_EQ(bench.page.Text1.text, "not set");
}

TEST_F(PageWindow, PrintPressedTwiceIsOnePage) {
    bench.hand.click(bench.page.SSCommand2);
    bench.hand.click(bench.page.SSCommand2);
    bench.desktop.settle();
    EXPECT_THAT(bench.desktop.printedPages, SizeIs(1));
}

TEST_F(PageWindow, IsMovedByItsTitle) {
    const float left = bench.page.left;
    bench.hand.mouseDown(bench.page.SSPanel1, display::Mouse{100, 100, true});
    bench.hand.mouseMove(bench.page.SSPanel1, display::Mouse{160, 70, true});
    bench.desktop.settle();
    EXPECT_EQ(bench.page.left, left + 60);
}

TEST(PageWindowOf, ABrandHasItsLogoOnThePageInItsOwnSize) {
    for (const auto brand : {Brand::Marvenia, Brand::Teskel}) {
        LogBench bench(RackBench::kEnglish, brand);
        bench.open();
        const std::string logo = brand == Brand::Marvenia ? "InkMarvenia" : "InkTeskel";
        EXPECT_EQ(bench.page.Picture1.picture, logo);
        EXPECT_THAT(recorded(bench.page.ViewPro1.document()),
                    Contains("picture \"" + logo + "\" 550 -360 2550 40"));
    }
}

TEST(PageWindowOf, NoDayIsAnEmptyPage) {
    LogBench bench;
    for (const char* day : {"20260302.log", "20260303.log", "20260304.log"}) bench.remove(day);
    bench.open();
    bench.hand.click(bench.charts.SSCommand1);
    bench.desktop.settle();
    EXPECT_TRUE(bench.page.visible);
    EXPECT_THAT(bench.page.ViewPro1.document().pages(), IsEmpty());
    bench.hand.click(bench.page.SSCommand3);
    bench.desktop.settle();
    EXPECT_THAT(bench.page.ViewPro1.document().pages(), IsEmpty());
}

TEST(PageWindowOf, AStationTakesTheResultsOfItsMemory) {
    struct Station {
        const char* memoryFreq;
        const char* file;
    };
    for (const Station& station : {Station{"979", "0979.dat"}, Station{"1025.5", "1025.5.dat"}}) {
        LogBench bench;
        for (const bool there : {false, true}) {
            bench.state.MemoryFreq = station.memoryFreq;
            if (there) bench.write(station.file, lines(std::vector<std::string>(24, "seen")));
            bench.open();
            const auto page = recorded(bench.page.ViewPro1.document());
            const auto foot =
                testing::Contains(std::string("text \"Noise L: seen\" 1500 13100 size 10 black"));
            if (there) {
                EXPECT_THAT(page, foot) << station.file;
            } else {
                EXPECT_THAT(page, Not(foot)) << station.file;
            }
            bench.hand.click(bench.charts.SSCommand3);
            bench.desktop.settle();
        }
    }
}

}  // namespace
}  // namespace hmonitor::test
