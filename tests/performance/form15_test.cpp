// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/form15.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "performance/report_page.h"
#include "tests/performance/log_bench.h"
#include "tests/performance/second_days.h"

namespace hmonitor::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

void press(LogBench& bench, display::Key& key) {
    bench.hand.click(key);
    bench.desktop.settle();
}

/// The texts of the one page that was printed last, from the top.
std::vector<std::string> printedTexts(const LogBench& bench) {
    const display::PageDocument& document = bench.desktop.printedPages.back().document;
    std::vector<std::string> texts;
    for (const display::PageMark& mark : document.pages().at(0).marks) texts.push_back(mark.text);
    return texts;
}

std::vector<std::string> expanded(const std::vector<std::string>& lines) {
    std::vector<std::string> texts;
    for (const std::string& line : lines) texts.push_back(tabsExpanded(line));
    return texts;
}

TEST(TextWindow, OpensFromTextModeInPlaceOfTheCharts) {
    LogBench bench;
    bench.openText();
    EXPECT_TRUE(bench.text.visible);
    EXPECT_FALSE(bench.charts.visible);
    EXPECT_TRUE(bench.charts.loaded());
    EXPECT_EQ(bench.text.SSPanel22.caption, "(20260304)");
    for (const display::Form* panel : bench.program.rack) EXPECT_FALSE(panel->enabled);
}

TEST(TextWindow, NamesTheStationBesideTheDay) {
    LogBench bench;
    bench.openText();
    EXPECT_EQ(bench.text.Station.caption, "RADIO UNO 98.1 MHz");
}

TEST(TextWindow, StandsWithItsWords) {
    LogBench bench;
    bench.openText();
    EXPECT_EQ(bench.text.SSPanel2.caption, "Text Mode");
    EXPECT_EQ(bench.text.SSCommand2.caption, "Print");
    EXPECT_EQ(bench.text.SSCommand1.caption, "Done");
    std::vector<std::string> tabs;
    for (const auto& page : bench.text.SSTab1.pages()) tabs.push_back(page.caption);
    EXPECT_THAT(tabs, ElementsAre("Modulation / Power", "Performance Values"));
    std::vector<std::string> words;
    for (const display::Label& label : bench.text.Label) words.push_back(label.caption.get());
    EXPECT_THAT(words, ElementsAre("Left and ", " Right", "level", "Stereo phase", "Overmod PK/Min",
                                   "Silence", "Reverse"));
    EXPECT_NE(bench.text.find("Label2"), nullptr);
    EXPECT_NE(bench.text.find("Label8"), nullptr);
    for (const display::Label& head : bench.text.Time) EXPECT_EQ(head.caption, "Time");
    std::vector<std::string> heads;
    for (const display::Label& head : bench.text.Value) heads.push_back(head.caption.get());
    EXPECT_THAT(heads, ElementsAre(" Value", " Value", " Left", " Right", " Value", "Value",
                                   "Silence", " Reverse"));
}

TEST(TextWindow, ItsListsStandOnTheirTabs) {
    LogBench bench;
    bench.openText();
    EXPECT_TRUE(bench.text.List[0].shown());
    EXPECT_FALSE(bench.text.List[2].shown());
    bench.hand.choose(bench.text.SSTab1, 1);
    bench.desktop.settle();
    EXPECT_FALSE(bench.text.List[1].shown());
    for (std::size_t i = 2; i < 6; ++i) EXPECT_TRUE(bench.text.List[i].shown());
}

TEST(TextWindow, ItsListsHoldWhatTheSecondProgramWrites) {
    LogBench bench;
    for (const SecondDay& day : secondDays()) bench.write(day.day + ".log", day.bytes);
    bench.open();
    for (const SecondDay& day : secondDays()) {
        bench.choose(day.day);
        press(bench, bench.charts.SSCommand2);
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_EQ(bench.text.List[i].list.rows(), day.of("list" + std::to_string(i + 1)))
                << day.day;
        press(bench, bench.text.SSCommand1);
    }
}

TEST(TextWindow, LeerReadsTheLogAnew) {
    LogBench bench;
    bench.openText();
    bench.write("20260304.log", countingLog(0, 1));
    bench.text.Leer();
    EXPECT_EQ(bench.text.List[0].list.rows()[0], "00             1");
    EXPECT_THAT(bench.text.List[0].list.rows(), SizeIs(24));
    EXPECT_EQ(bench.forms.formD4A.tables.field(0, 1), "1");
}

TEST(TextWindow, DoneGoesBackToTheCharts) {
    LogBench bench;
    bench.openText();
    press(bench, bench.text.SSCommand1);
    EXPECT_FALSE(bench.text.loaded());
    EXPECT_TRUE(bench.charts.visible);
    EXPECT_EQ(bench.charts.Combo1.list.text(), "20260304");
    for (const display::Form* panel : bench.program.rack) EXPECT_FALSE(panel->enabled);
}

TEST(TextWindow, EscapeEnterAndTheWindowsCloseDoWhatDoneDoes) {
    for (int way = 0; way < 3; ++way) {
        LogBench bench;
        bench.openText();
        if (way == 0) bench.hand.escape(bench.text);
        if (way == 1) bench.hand.enter(bench.text);
        if (way == 2) bench.hand.close(bench.text);
        bench.desktop.settle();
        EXPECT_FALSE(bench.text.loaded()) << way;
        EXPECT_TRUE(bench.charts.visible) << way;
    }
}

TEST(TextWindow, PrintsTheReportOfItsBrand) {
    for (const auto brand : {Brand::Marvenia, Brand::Teskel}) {
        LogBench bench(RackBench::kSpanish, brand);
        const SecondDay& day = secondDays().front();
        for (const char* name : {"20260302.log", "20260303.log", "20260304.log"})
            bench.remove(name);
        bench.write(day.day + ".log", day.bytes);
        bench.openText();
        press(bench, bench.text.SSCommand2);
        ASSERT_THAT(bench.desktop.printedPages, SizeIs(1));
        const std::string word = brand == Brand::Marvenia ? "Marvenia" : "Teskel";
        EXPECT_EQ(printedTexts(bench), expanded(day.of("report " + word)));
        EXPECT_TRUE(bench.text.visible);
    }
}

TEST(TextWindow, ItsReportReadsTheLogByItselfAndNotTheTables) {
    LogBench bench;
    bench.openText();
    const auto lines = [&] {
        press(bench, bench.text.SSCommand2);
        return printedTexts(bench);
    };
    EXPECT_THAT(lines()[5], testing::StartsWith("                8|      A       A"));
    bench.write("20260304.log", countingLog(3, 1));
    EXPECT_THAT(lines()[4], testing::StartsWith("                3|      4       8"));
    bench.remove("20260304.log");
    EXPECT_THAT(lines(), SizeIs(6)) << "the heads alone";
}

TEST(TextWindow, ItsReportFitsBetweenTheMarginsOfEachPaper) {
    for (const display::Paper& paper : {display::kA4, display::kLetter}) {
        LogBench bench;
        bench.desktop.paperSize = paper;
        bench.openText();
        press(bench, bench.text.SSCommand2);
        const auto& page = bench.desktop.printedPages.back().document.pages().at(0);
        const float points = page.marks[0].font.points;
        for (const display::PageMark& mark : page.marks) {
            const float end = static_cast<float>(mark.text.size()) * display::fixedAdvance(points);
            EXPECT_LE(end, paper.width - page.margins.left - page.margins.right + 0.5f);
            EXPECT_LE(mark.from.y + display::lineHeight(points),
                      paper.height - page.margins.top - page.margins.bottom);
        }
    }
}

TEST(TextWindow, AFailedPrintSaysNothingAndLeavesTheKeysUsable) {
    LogBench bench;
    bench.desktop.printerFault = "No printer is set up on this computer.";
    bench.openText();
    press(bench, bench.text.SSCommand2);
    EXPECT_THAT(bench.desktop.boxes, IsEmpty());
    EXPECT_TRUE(bench.text.SSCommand2.usable());
    press(bench, bench.text.SSCommand2);
    EXPECT_THAT(bench.desktop.printedPages, SizeIs(2));
}

TEST(TextWindow, IsMovedByItsTitle) {
    LogBench bench;
    bench.openText();
    const float left = bench.text.left;
    bench.hand.mouseDown(bench.text.SSPanel1, display::Mouse{100, 100, true});
    bench.hand.mouseMove(bench.text.SSPanel1, display::Mouse{160, 70, true});
    bench.desktop.settle();
    EXPECT_EQ(bench.text.left, left + 60);
}

}  // namespace
}  // namespace hmonitor::test
