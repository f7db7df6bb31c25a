// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/analyses/scanner_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ScannerWindow : public ScannerBench {
 protected:
    std::vector<std::string> words() {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < ScanLegend::kColumns; ++i) {
            EXPECT_EQ(scanner.legend.Label_Serie[i].visible.get(),
                      page.legend.Label_Serie[i].visible.get());
            EXPECT_EQ(scanner.legend.stroke(i).visible.get(),
                      scanner.legend.Label_Serie[i].visible.get());
            if (!scanner.legend.Label_Serie[i].visible) continue;
            EXPECT_EQ(scanner.legend.Label_Serie[i].caption.get(),
                      page.legend.Label_Serie[i].caption.get());
            all.push_back(scanner.legend.Label_Serie[i].caption.get());
        }
        return all;
    }
    std::vector<std::string> labels(const display::Chart& chart) {
        return {std::string(chart.rowLabelAt(1)), std::string(chart.rowLabelAt(2)),
                std::string(chart.rowLabelAt(21))};
    }
};

TEST_F(ScannerWindow, ShowsTheStoredScanInTheCellsOfTheOddChannels) {
    for (const int count : {0, 1, 102, 103, 104}) {
        const TableFill& table = tableFill("stored", ScanSpacing::Odd);
        std::vector<std::string> stored;
        for (int i = 0; i < count; ++i) stored.push_back(std::to_string(30 + i % 60));
        bench.write("scan.dat", lines(stored));
        open(1.8f);
        for (std::size_t i = 0; i < table.cells.size(); ++i) {
            const std::string wanted = i < stored.size() ? stored[i] : "";
            const ScanCell& cell = table.cells[i].cell;
            ASSERT_EQ(scanner.Graph1.dataAt(cell.row, cell.column), wanted) << count << " " << i;
            ASSERT_EQ(page.Graph1.dataAt(cell.row, cell.column), wanted);
        }
        EXPECT_EQ(scanner.Graph1.dataAt(22, 1), "");
        click(scanner.CommandClose);
        page.unload();
    }
}

TEST_F(ScannerWindow, ThePageIsInStepWithAWindowThatComesBack) {
    open(1.8f);
    choose(ScanSpacing::All);
    click(scanner.CommandClose);
    bench.write("scan.dat", "44\r\n");
    open(1.8f);
    ASSERT_EQ(scanner.Graph1.columnCount(), page.Graph1.columnCount());
    for (int row = 1; row <= 21; ++row) {
        for (int column = 1; column <= 10; ++column)
            ASSERT_EQ(scanner.Graph1.dataAt(row, column), page.Graph1.dataAt(row, column))
                << row << "," << column;
    }
    EXPECT_EQ(page.Graph1.dataAt(1, 3), "44");
    EXPECT_THAT(words(), ElementsAre(".1", ".3", ".5", ".7", ".9"));
    EXPECT_THAT(labels(page.Graph1), ElementsAre("87.1", "88.1", "107.1"));
}

TEST_F(ScannerWindow, ReadsNoMoreOfAHugeStoredScanThanItShows) {
    std::string huge;
    for (int i = 0; i < 100000; ++i) huge += "55\r\n";
    bench.write("scan.dat", huge);
    open(1.8f);
    const ScanCell last = tableFill("stored", ScanSpacing::Odd).cells.back().cell;
    EXPECT_EQ(scanner.Graph1.dataAt(last.row, last.column), "55");
    EXPECT_EQ(scanner.Graph1.dataAt(last.row, last.column + 1), "");
    EXPECT_EQ(scanner.Graph1.dataAt(last.row + 1, 1), "");
}

TEST_F(ScannerWindow, KeepsStoredTextThatIsNoNumber) {
    bench.write("scan.dat", "abc\r\n 55\r\n");
    open(1.8f);
    EXPECT_EQ(scanner.Graph1.dataAt(1, 3), "abc");
    EXPECT_FALSE(scanner.Graph1.valueAt(1, 3));
    EXPECT_EQ(scanner.Graph1.valueAt(1, 4), 55);
}

TEST_F(ScannerWindow, AMissingStoredScanEndsTheProgram) {
    bench.remove("scan.dat");
    bench.desktop.answerEveryBox = true;
    bench.hand.click(bench.formD.Image2);
    bench.desktop.settle();
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "File not found: scan.dat");
    EXPECT_TRUE(bench.desktop.ended());
}

TEST_F(ScannerWindow, StopsTheUnitAsksItsVersionAndTunesAgainAtItsLoad) {
    bench.driver.hardwareVersion = 1.8f;
    bench.takeCalls();
    bench.hand.click(bench.formD.Image2);
    bench.desktop.settle();
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_getHardwareVersion", "HM_Parar",
                                               "HM_Normal(981, 0, 0, 0, 0)"));
}

TEST_F(ScannerWindow, StandsOnTheOddChannelsAtItsLoad) {
    open(1.8f);
    EXPECT_TRUE(scanner.Option_Impares.chosen);
    EXPECT_EQ(scanner.Graph1.rowCount(), 21);
    EXPECT_EQ(scanner.Graph1.columnCount(), 5);
    EXPECT_THAT(words(), ElementsAre(".1", ".3", ".5", ".7", ".9"));
    EXPECT_THAT(labels(scanner.Graph1),
                ElementsAre("     87.5", "         88.1", "         107.1"));
    EXPECT_THAT(labels(page.Graph1), ElementsAre("87.1", "88.1", "107.1"));
}

TEST_F(ScannerWindow, EachChoiceHasItsLegendRowsAndColumns) {
    open(1.8f);
    choose(ScanSpacing::Even);
    EXPECT_EQ(scanner.Graph1.columnCount(), 5);
    EXPECT_THAT(words(), ElementsAre(".0", ".2", ".4", ".6", ".8"));
    EXPECT_THAT(labels(scanner.Graph1),
                ElementsAre("     87.6", "         88.0", "         107.0"));
    choose(ScanSpacing::Quarter);
    EXPECT_EQ(page.Graph1.columnCount(), 4);
    EXPECT_THAT(words(), ElementsAre(".0", ".25", ".5", ".75"));
    EXPECT_THAT(labels(scanner.Graph1),
                ElementsAre("     87.5", "         88.0", "         107.0"));
    choose(ScanSpacing::All);
    EXPECT_EQ(scanner.Graph1.columnCount(), 10);
    EXPECT_THAT(words(), ElementsAre(".0", ".1", ".2", ".3", ".4", ".5", ".6", ".7", ".8", ".9"));
    EXPECT_THAT(labels(page.Graph1), ElementsAre("87.0", "88.0", "107.0"));
    choose(ScanSpacing::Odd);
    EXPECT_THAT(words(), ElementsAre(".1", ".3", ".5", ".7", ".9"));
}

TEST_F(ScannerWindow, AChoiceFillsTheChartFromEitherKindOfUnit) {
    for (const float version : {1.5f, 1.7f, 1.8f, 1.99f, 2.0f, 0.f}) {
        open(version);
        const bool sweeps = version >= 1.7f && version < 2;
        for (const ScanSpacing spacing :
             {ScanSpacing::Even, ScanSpacing::Quarter, ScanSpacing::All, ScanSpacing::Odd}) {
            bench.takeCalls();
            choose(spacing);
            const TableFill& table = tableFill("option", spacing);
            expectLevels(table);
            const auto calls = bench.takeCalls();
            EXPECT_EQ(calls, sweeps ? std::vector<std::string>{} : supers(table)) << version;
        }
        EXPECT_EQ(bench.read("scan.dat"), "");
        click(scanner.CommandClose);
        EXPECT_TRUE(rackEnabled());
    }
}

TEST_F(ScannerWindow, ALevelIsTheWholePartWithTheFieldCorrection) {
    open(1.8f);
    bench.state.DbCorrection10 = "-35";
    bench.driver.spectrum[874.f] = 60;
    bench.driver.spectrum[876.f] = 2.9f;
    choose(ScanSpacing::Even);
    EXPECT_EQ(scanner.Graph1.dataAt(1, 3), "56");
    EXPECT_EQ(scanner.Graph1.dataAt(1, 4), "-1");
}

TEST_F(ScannerWindow, TheBarMovesTheChartSidewaysAndNotItsTwin) {
    open(1.8f);
    EXPECT_EQ(scanner.Graph1.left, -280);
    const float twin = page.Graph1.left;
    bench.hand.set(scanner.HScroll1, 9);
    bench.desktop.settle();
    EXPECT_EQ(scanner.Graph1.left, -920 * 9 - 280);
    EXPECT_EQ(page.Graph1.left, twin);
}

TEST_F(ScannerWindow, ThePointerIsToldChannelAndLevel) {
    open(1.8f);
    choose(ScanSpacing::All);
    EXPECT_EQ(scanner.Graph1.tellCell(12, 8), "98.7 MHz: " + std::to_string(levelAt(9870)) + " dB");
    choose(ScanSpacing::Quarter);
    EXPECT_EQ(scanner.Graph1.tellCell(2, 2),
              "88.25 MHz: " + std::string(scanner.Graph1.dataAt(2, 2)) + " dB");
}

std::string atCell(const Form_BandSCanner& scanner, const char* mhz, int row, int column) {
    return std::string(mhz) + " MHz: " + std::string(scanner.Graph1.dataAt(row, column)) + " dB";
}

TEST_F(ScannerWindow, ThePointerIsToldTheChannelThatWasMeasuredNotTheLegend) {
    open(1.8f);
    choose(ScanSpacing::All);
    click(scanner.Command3D1);
    frames(11);
    // The sweep of all channels begins at column 3: 87.5 MHz stands under ".2".
    EXPECT_EQ(scanner.Graph1.tellCell(1, 3), atCell(scanner, "87.5", 1, 3));
    EXPECT_EQ(scanner.Graph1.tellCell(1, 1), "not measured") << "a cleared cell";
}

TEST_F(ScannerWindow, AfterAReopeningThePointerIsStillToldTheChannelThatWasMeasured) {
    struct Run {
        ScanSpacing spacing;
        const char* first;
        const char* second;
    };
    for (const Run& run :
         {Run{ScanSpacing::All, "87.5", "87.6"}, Run{ScanSpacing::Odd, "87.5", "87.7"},
          Run{ScanSpacing::Quarter, "87.5", "87.75"}, Run{ScanSpacing::Even, "87.4", "87.6"}}) {
        open(1.8f);
        choose(run.spacing);
        click(scanner.Command3D1);
        frames(11);
        click(scanner.CommandClose);
        ASSERT_FALSE(scanner.visible);
        open(1.8f);
        // The bars lie as those of the odd channels nevertheless.
        EXPECT_EQ(scanner.Graph1.tellCell(1, 3), atCell(scanner, run.first, 1, 3));
        EXPECT_EQ(scanner.Graph1.tellCell(1, 4), atCell(scanner, run.second, 1, 4));
        click(scanner.CommandClose);
    }
}

TEST_F(ScannerWindow, AFoundFileTellsItsChannelsAsFarAsItCan) {
    const auto fileOf = [](int count) {
        return lines(std::vector<std::string>(static_cast<std::size_t>(count), "44"));
    };
    struct Found {
        int lines;
        float version;
        const char* told;
    };
    for (const Found& found :
         {Found{205, 1.8f, "87.6 MHz: 44 dB"}, Found{82, 1.8f, "87.75 MHz: 44 dB"},
          Found{103, 1.8f, "channel not known: 44 dB"}, Found{103, 1.5f, "87.7 MHz: 44 dB"},
          Found{205, 1.5f, "channel not known: 44 dB"},
          Found{7, 1.8f, "channel not known: 44 dB"}}) {
        bench.write("scan.dat", fileOf(found.lines));
        open(found.version);
        EXPECT_EQ(scanner.Graph1.tellCell(1, 4), found.told) << found.lines;
        click(scanner.CommandClose);
    }
}

TEST_F(ScannerWindow, BeforeAScanAScreenReaderIsToldOfNone) {
    // Nothing; and a file whose channels are not known, as the one that the program brings.
    for (const int count : {0, 103}) {
        bench.write("scan.dat", lines(std::vector<std::string>(count, "44")));
        for (const auto& [language, words] :
             {std::pair{display::Language::English, "no scan since the start"},
              std::pair{display::Language::Spanish, "sin barrido desde el inicio"}}) {
            open(1.8f);
            scanner.language = language;
            EXPECT_EQ(scanner.Graph1.reading(), words) << count;
            click(scanner.CommandClose);
        }
    }
}

TEST_F(ScannerWindow, AScreenReaderIsToldTheStrongestChannel) {
    bench.write("scan.dat", "");
    open(1.8f);
    bench.driver.spectrum[982.f] = 97;
    choose(ScanSpacing::All);
    EXPECT_EQ(scanner.Graph1.reading(), "The strongest: 98.2 MHz: 97 dB");
}

TEST_F(ScannerWindow, ARunThatTheUnitRefusesTellsSoWithTheFrequencyUntilTheNextOne) {
    open(1.5f);
    bench.driver.superResults = {0, 0, 0, 1};
    click(scanner.Command3D1);
    EXPECT_EQ(scanner.Refused.caption, "The unit refused 88.1 MHz: the run ended there.");
    bench.driver.superResults.clear();
    run();
    EXPECT_EQ(scanner.Refused.caption, "");
    bench.driver.superResults = {1};
    choose(ScanSpacing::All);
    EXPECT_EQ(scanner.Refused.caption, "The unit refused 87 MHz: the run ended there.");
    bench.driver.superResults.clear();
    choose(ScanSpacing::Odd);
    EXPECT_EQ(scanner.Refused.caption, "");
}

TEST_F(ScannerWindow, ThePageIsDatedByItsKey) {
    open(1.8f);
    click(scanner.SSCommand1);
    EXPECT_EQ(page.Label2.caption, "Monday 4, May 2026");
}

TEST_F(ScannerWindow, APageThatWasUnloadedTakesOverTheScanAgain) {
    open(1.8f);
    choose(ScanSpacing::All);
    page.unload();
    bench.program.Form_PrintBandScan->show();
    expectLevels(tableFill("option", ScanSpacing::All));
    EXPECT_EQ(page.Graph1.columnCount(), 10);
    EXPECT_THAT(labels(page.Graph1), ElementsAre("87.0", "88.0", "107.0"));
    EXPECT_TRUE(page.legend.Label_Serie[9].visible);
}

TEST_F(ScannerWindow, DraggingTheStripMovesTheWindow) {
    open(1.8f);
    const float left = scanner.left;
    bench.hand.mouseDown(scanner.SSPanel1, {100, 100, true});
    bench.hand.mouseMove(scanner.SSPanel1, {150, 100, true});
    bench.desktop.settle();
    EXPECT_EQ(scanner.left, left + 50);
}

TEST_F(ScannerWindow, ClosingAnIdleWindowEnablesTheRackAndTunesNothing) {
    open(1.8f);
    bench.hand.close(scanner);
    bench.desktop.settle();
    EXPECT_FALSE(scanner.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
}

TEST_F(ScannerWindow, ClosingWhileAChoiceMeasuresEndsItAndReturnsTheUnit) {
    open(1.5f);
    int measured = 0;
    bench.driver.duringSuper = [&](float) {
        if (++measured == 10) bench.hand.close(scanner);
    };
    choose(ScanSpacing::All);
    EXPECT_EQ(measured, 10);
    EXPECT_FALSE(scanner.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(bench.driver.calls.back(), "HM_Normal(981, 0, 0, 0, 0)");
}

TEST_F(ScannerWindow, AUnitThatFailsUnderAChoiceEndsTheFillingAndIsReturnedAtTheClose) {
    open(1.5f);
    bench.driver.superResults = {0, 0, 7};
    choose(ScanSpacing::Even);
    EXPECT_EQ(callsOf("HM_Super"), 3);
    EXPECT_TRUE(scanner.Command3D1.enabled);
    click(scanner.CommandClose);
    EXPECT_FALSE(scanner.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(bench.driver.calls.back(), "HM_Normal(981, 0, 0, 0, 0)");
}

TEST_F(ScannerWindow, NoKeyStartsARunWhileAChoiceMeasures) {
    open(1.5f);
    int measured = 0;
    bench.driver.duringSuper = [&](float) {
        if (++measured != 10) return;
        bench.hand.click(scanner.Command3D1);
        bench.hand.enter(scanner);
        bench.hand.choose(scanner.Option_Pares);
    };
    choose(ScanSpacing::All);
    EXPECT_EQ(measured, 210);
    EXPECT_EQ(callsOf("HM_Parar"), 0);
    EXPECT_TRUE(scanner.Option_All.chosen);
    EXPECT_TRUE(scanner.Command3D1.enabled);
}

}  // namespace
}  // namespace hmonitor::test
