// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/form_d4a.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/performance/log_bench.h"
#include "tests/performance/second_days.h"
#include "tests/support/page_recorder.h"

namespace hmonitor::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<bool> enabledPanels(const RackBench& bench) {
    std::vector<bool> enabled;
    for (const display::Form* panel : bench.program.rack) enabled.push_back(panel->enabled);
    return enabled;
}

std::vector<std::string> cellsOf(const display::Chart& chart, int column = 1) {
    std::vector<std::string> cells;
    for (int row = 1; row <= 24; ++row) cells.emplace_back(chart.dataAt(row, column));
    return cells;
}

std::string captionOf(Form_D4A& form, int label) {
    return form.Label[label].caption.get();
}

TEST(LogWindow, OpensFromTheLogKeyBesideTheDisabledRack) {
    LogBench bench;
    bench.open();
    EXPECT_TRUE(bench.charts.visible);
    EXPECT_THAT(enabledPanels(bench), Each(false));
    EXPECT_EQ(bench.formD.Image4.picture, "LogN");
}

TEST(LogWindow, StandsWithItsWords) {
    LogBench bench;
    bench.open();
    EXPECT_EQ(bench.charts.caption, "Analyze data");
    EXPECT_EQ(bench.charts.Heading.caption, "On-Air Performance Log");
    EXPECT_EQ(bench.charts.SSCommand1.caption, "Print Mode");
    EXPECT_EQ(bench.charts.SSCommand2.caption, "Text Mode");
    EXPECT_EQ(bench.charts.SSCommand3.caption, "Cancel");
    std::vector<std::string> words;
    for (int label = 8; label <= 20; ++label) words.push_back(captionOf(bench.charts, label));
    EXPECT_THAT(words,
                ElementsAre("Modulation", "RF Power", "Left", "and", "Right", "Level", "Stereo",
                            "Phase", "OverMod", "Pk/min", "Silence", "Inverted", "Retrive"));
    for (int first = 21; first <= 36; first += 4) {
        EXPECT_EQ(captionOf(bench.charts, first), "0 hs");
        EXPECT_EQ(captionOf(bench.charts, first + 1), "6 hs");
        EXPECT_EQ(captionOf(bench.charts, first + 2), "12 hs");
        EXPECT_EQ(captionOf(bench.charts, first + 3), "18 hs");
    }
    EXPECT_NE(bench.charts.find("Label36"), nullptr);
    EXPECT_EQ(bench.charts.find("Label37"), nullptr);
    EXPECT_EQ(bench.charts.Label_Station.caption, bench.state.StationName.view());
    EXPECT_EQ(bench.charts.Label_Mhz.caption, "98.10 MHz");
}

TEST(LogWindow, ListsTheDaysThatHaveANumberAndShowsTheLast) {
    LogBench bench;
    for (const char* name : {"abc.log", "0.log", "9.LOG", "12ab.log"}) bench.write(name, "");
    std::filesystem::create_directory(bench.scratch.path() / "20270101.log");
    bench.open();
    EXPECT_THAT(bench.charts.Combo1.list.rows(),
                ElementsAre("9", "12ab", "20260302", "20260303", "20260304"));
    EXPECT_EQ(bench.charts.Combo1.list.text(), "20260304");
    EXPECT_EQ(bench.charts.Graph[0].dataAt(8, 1), "20");
    EXPECT_FALSE(bench.charts.File1.visible);
    EXPECT_THAT(bench.charts.File1.list.rows(), SizeIs(7));
}

TEST(LogWindow, EachChoiceOfADayIsShown) {
    LogBench bench;
    bench.open();
    bench.choose("20260302");
    EXPECT_EQ(bench.charts.Graph[0].dataAt(1, 1), "1");
    EXPECT_EQ(bench.charts.Graph[0].dataAt(24, 1), "24");
    bench.choose("20260303");
    EXPECT_EQ(bench.charts.Graph[0].dataAt(1, 1), "0");
    EXPECT_EQ(bench.charts.Graph[0].dataAt(6, 1), "6");
}

TEST(LogWindow, ItsChartsHoldWhatTheSecondProgramReads) {
    LogBench bench;
    for (const SecondDay& day : secondDays()) bench.write(day.day + ".log", day.bytes);
    bench.open();
    struct Place {
        const char* word;
        std::size_t chart;
        int column;
    };
    const Place places[] = {{"modulation", 0, 1}, {"second level", 2, 1}, {"first level", 2, 2},
                            {"phase", 3, 1},      {"power", 1, 1},        {"overmodulation", 4, 1},
                            {"inverted", 5, 1},   {"silence", 5, 2}};
    for (const SecondDay& day : secondDays()) {
        bench.choose(day.day);
        for (const Place& place : places)
            EXPECT_EQ(cellsOf(bench.charts.Graph[place.chart], place.column),
                      day.of(std::string("cells ") + place.word))
                << day.day << " " << place.word;
    }
}

TEST(LogWindow, ShowsValuesBeyondTheRangeAsTheyAreAndThePageClipsThem) {
    LogBench bench;
    bench.open();
    EXPECT_EQ(bench.charts.Graph[0].dataAt(8, 1), "20");
    EXPECT_EQ(bench.charts.Graph[2].dataAt(8, 1), "-12");
    EXPECT_EQ(bench.charts.Graph[2].dataAt(8, 2), "7");
    EXPECT_EQ(bench.charts.Graph[3].dataAt(8, 1), "190");
    EXPECT_EQ(bench.charts.Graph[1].dataAt(8, 1), "6");
    const auto drawn = beginning(recorded(bench.page.ViewPro1.document()), "polyline");
    ASSERT_THAT(drawn, SizeIs(8 * 24));
    EXPECT_NE(drawn[7].find(" 3497 4000 "), std::string::npos) << drawn[7];
    EXPECT_NE(drawn[4 * 24 + 7].find(" 3497 900 "), std::string::npos) << drawn[4 * 24 + 7];
}

TEST(LogWindow, TellsTheHourAndWhetherItHasFigures) {
    for (const int language : {RackBench::kEnglish, RackBench::kSpanish}) {
        LogBench bench(language);
        bench.open();
        EXPECT_EQ(bench.charts.Graph[0].tellCell(8, 1), "07 hs: 20");
        EXPECT_EQ(bench.charts.Graph[2].tellCell(8, 2), "07 hs: 7");
        EXPECT_EQ(bench.charts.Graph[0].tellCell(1, 1),
                  language == RackBench::kEnglish ? "00 hs: no data" : "00 hs: sin datos");
    }
}

TEST(LogWindow, WithoutLogsNoDayIsChosenAndTheChartsAreClear) {
    LogBench bench;
    for (const char* day : {"20260302.log", "20260303.log", "20260304.log"}) bench.remove(day);
    bench.open();
    EXPECT_THAT(bench.charts.Combo1.list.rows(), IsEmpty());
    // Each row is written before the row pointer moves on, so the last one stays empty.
    std::vector<std::string> wanted(23, "0");
    wanted.emplace_back();
    for (display::Chart& chart : bench.charts.Graph) EXPECT_EQ(cellsOf(chart), wanted);
    for (const std::size_t i : {2u, 5u})
        EXPECT_THAT(cellsOf(bench.charts.Graph[i], 2), Each(IsEmpty()));
}

TEST(LogWindow, ResetWritesTheRowUnderThePointerFirst) {
    LogBench bench;
    bench.open();
    Form_D4A& form = bench.charts;
    for (display::Chart& chart : form.Graph) {
        for (chart.column = 1; chart.column <= 2; ++chart.column) {
            for (chart.row = 1; chart.row <= 24; ++chart.row) chart.data("9");
        }
        chart.column = 1;
        chart.row = 5;
    }
    form.Graph[2].column = 2;
    form.Reset();
    // Row 5, where the row pointer is, then rows 1 to 23; row 24 stays as it was.
    std::vector<std::string> written(23, "0");
    written.emplace_back("9");
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(cellsOf(form.Graph[i], i == 2 ? 2 : 1), written) << i;
        EXPECT_THAT(cellsOf(form.Graph[i], i == 2 ? 1 : 2), Each("9")) << i;
        EXPECT_EQ(form.Graph[i].row, 24);
        EXPECT_EQ(form.Graph[i].column, 1);
    }
}

TEST(LogWindow, ADayWhoseFileWentAwayIsADayWithoutLinesAndLeavesNoFile) {
    LogBench bench;
    bench.open();
    bench.remove("20260303.log");
    bench.choose("20260303");
    EXPECT_THAT(cellsOf(bench.charts.Graph[0]), Each("0"));
    EXPECT_FALSE(bench.exists("20260303.log"));
}

TEST(LogWindow, TheUpperBarMovesModulationAndPower) {
    LogBench bench;
    bench.open();
    Form_D4A& form = bench.charts;
    EXPECT_EQ(form.Graph[0].left, -240);
    bench.hand.set(form.HScroll1, 1);
    bench.desktop.settle();
    EXPECT_EQ(form.Graph[0].left, -3360);
    EXPECT_EQ(form.Graph[1].left, -3360);
    EXPECT_EQ(form.Graph[2].left, -240);
    bench.hand.set(form.HScroll1, 2);
    bench.desktop.settle();
    EXPECT_EQ(form.Graph[0].left, -4470);
    EXPECT_EQ(form.Graph[0].left + form.Graph[0].width, form.View[0].width) << "all was seen";
    bench.hand.set(form.HScroll1, 0);
    bench.desktop.settle();
    EXPECT_EQ(form.Graph[0].left, -240);
    EXPECT_EQ(form.Graph[1].left, -240);
}

TEST(LogWindow, TheLowerBarMovesTheOtherFour) {
    LogBench bench;
    bench.open();
    Form_D4A& form = bench.charts;
    bench.hand.set(form.HScroll2, 3);
    bench.desktop.settle();
    for (std::size_t i = 2; i < 6; ++i) EXPECT_EQ(form.Graph[i].left, -1140);
    EXPECT_EQ(form.Graph[0].left, -240);
    bench.hand.set(form.HScroll2, form.HScroll2.maximum);
    bench.desktop.settle();
    EXPECT_EQ(form.Graph[5].left + form.Graph[5].width, form.View[5].width) << "all was seen";
}

TEST(LogWindow, HourMarksGoWithTheirCharts) {
    LogBench bench;
    bench.open();
    Form_D4A& form = bench.charts;
    display::Label& upper = form.Label[23];
    display::Label& lower = form.Label[31];
    const float before = upper.left;
    EXPECT_EQ(lower.left, before);
    bench.hand.set(form.HScroll1, 1);
    bench.hand.set(form.HScroll2, 2);
    bench.desktop.settle();
    EXPECT_EQ(upper.left, before - 3120);
    EXPECT_EQ(lower.left, before - 600);
}

TEST(LogWindow, BackgroundsTrembleAsTheBarsMove) {
    LogBench bench;
    bench.open();
    Form_D4A& form = bench.charts;
    const auto lefts = [&] {
        return std::vector<float>{form.Picture1.left, form.Picture4.left, form.Picture5.left,
                                  form.Picture2.left};
    };
    EXPECT_THAT(lefts(), Each(-120.f));
    bench.hand.set(form.HScroll1, 1);
    bench.desktop.settle();
    EXPECT_THAT(lefts(), ElementsAre(-240, -240, -120, -120));
    bench.hand.set(form.HScroll1, 2);
    bench.hand.set(form.HScroll2, 5);
    bench.desktop.settle();
    EXPECT_THAT(lefts(), ElementsAre(-120, -120, -240, -240));
    bench.hand.set(form.HScroll2, 6);
    bench.desktop.settle();
    EXPECT_THAT(lefts(), Each(-120.f));
    // A new load begins at the same side.
    bench.hand.set(form.HScroll1, 0);
    bench.hand.click(form.SSCommand3);
    bench.desktop.settle();
    bench.open();
    bench.hand.set(form.HScroll1, 1);
    bench.desktop.settle();
    EXPECT_EQ(form.Picture1.left, -240);
}

TEST(LogWindow, CancelGivesTheRackBackAndUnloadsWindowAndPage) {
    for (const bool withDays : {true, false}) {
        LogBench bench;
        if (!withDays) {
            for (const char* day : {"20260302.log", "20260303.log", "20260304.log"})
                bench.remove(day);
        }
        bench.open();
        bench.hand.click(bench.charts.SSCommand1);
        bench.hand.click(bench.charts.SSCommand3);
        bench.desktop.settle();
        EXPECT_THAT(enabledPanels(bench), Each(true));
        EXPECT_FALSE(bench.charts.loaded());
        EXPECT_FALSE(bench.page.loaded());
    }
}

TEST(LogWindow, EscapeAndTheWindowsCloseDoWhatCancelDoes) {
    for (const bool byKey : {true, false}) {
        LogBench bench;
        bench.open();
        if (byKey) {
            bench.hand.escape(bench.charts);
        } else {
            bench.hand.close(bench.charts);
        }
        bench.desktop.settle();
        EXPECT_FALSE(bench.charts.visible);
        EXPECT_THAT(enabledPanels(bench), Each(true));
    }
}

TEST(LogWindow, TextModeWithoutADayDoesNothing) {
    LogBench bench;
    for (const char* day : {"20260302.log", "20260303.log", "20260304.log"}) bench.remove(day);
    bench.open();
    bench.hand.click(bench.charts.SSCommand2);
    bench.desktop.settle();
    EXPECT_TRUE(bench.charts.visible);
    EXPECT_FALSE(bench.text.loaded());
}

TEST(LogWindow, IsMovedByItsTitle) {
    LogBench bench;
    bench.open();
    const float left = bench.charts.left;
    const float top = bench.charts.top;
    bench.hand.mouseDown(bench.charts.SSPanel1, display::Mouse{100, 100, true});
    bench.hand.mouseMove(bench.charts.SSPanel1, display::Mouse{160, 70, true});
    bench.desktop.settle();
    EXPECT_EQ(bench.charts.left, left + 60);
    EXPECT_EQ(bench.charts.top, top - 30);
}

TEST(LogWindow, ItsTablesOutliveIt) {
    LogBench bench;
    bench.open();
    bench.choose("20260302");
    bench.hand.click(bench.charts.SSCommand3);
    bench.desktop.settle();
    EXPECT_EQ(bench.forms.formD4A.tables.field(23, 9), "32");
}

}  // namespace
}  // namespace hmonitor::test
