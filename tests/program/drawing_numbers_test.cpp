// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers that each drawing of the program offers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text_lines.h"
#include "display/number_table.h"
#include "tests/analyses/scanner_bench.h"
#include "tests/analyzer/analyzer_bench.h"
#include "tests/core/formats_page.h"
#include "tests/performance/log_bench.h"
#include "tests/spectrum/spectrum_bench.h"

namespace hmonitor::test {

using display::NumberTable;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using Row = std::vector<std::string>;

/// The first line of a table's file.
std::string headOf(const NumberTable& table) {
    const std::string text = csvText(table);
    return text.substr(0, text.find('\r'));
}

TEST(DrawingNumbers, EveryChartAndPictureBoxTellsThem) {
    RackBench bench;
    bench.start();
    int drawings = 0;
    for (display::Form* form : bench.desktop.forms()) {
        form->load();
        for (const display::Control* control : form->controls()) {
            const bool draws = dynamic_cast<const display::Chart*>(control) ||
                               dynamic_cast<const display::PictureBox*>(control);
            if (!draws) continue;
            ++drawings;
            ASSERT_TRUE(control->numbers) << form->name() << "." << control->name();
            const NumberTable table = control->numbers();
            EXPECT_FALSE(table.title.empty()) << form->name() << "." << control->name();
            EXPECT_FALSE(table.station.empty()) << form->name() << "." << control->name();
            EXPECT_GE(table.columns.size(), 2u) << form->name() << "." << control->name();
            for (const Row& row : table.rows) EXPECT_EQ(row.size(), table.columns.size());
        }
    }
    EXPECT_GE(drawings, 15);
}

TEST(NumbersFile, TheExampleOfTheFormatsPageIsWhatIsWritten) {
    NumberTable table;
    table.station = "RADIO UNO 98.1 MHz 2026-05-04";
    table.columns = {{"Frequency", "MHz"}, {"Level", "dBuV"}};
    table.rows = {{"87.5", "31"}, {"87.75", "-3"}, {"102.55", "64"}};
    EXPECT_EQ(csvText(table), joinLines(FormatsPage().example("Save.csv")));
}

TEST(NumbersFile, TheColumnsOfTheFormatsPageAreThoseOfTheDrawings) {
    RackBench bench;
    bench.start();
    for (display::Form* form : bench.desktop.forms()) form->load();
    const Forms& forms = bench.forms;
    const std::map<std::string, const display::Control*> drawings = {
        {"band scan", &forms.formBandSCanner.Graph1},
        {"frequency response", &forms.formDd3.Graph1},
        {"channel spectrum", &forms.formD1.Picture1},
        {"modulation bandwidth", &forms.formD1a.Picture1},
        {"density map", &forms.formSpectrumAnalizer.Picture3d},
        {"last sweep", &forms.formSpectrumAnalizer.PictureZoom}};
    std::size_t seen = 0;
    for (const auto& row : FormatsPage().rows("Numbers of a drawing")) {
        const auto drawing = drawings.find(row.at(0));
        if (drawing == drawings.end()) continue;
        ++seen;
        std::string columns;
        for (const NumberTable::Column& column : drawing->second->numbers().columns) {
            if (!columns.empty()) columns += ", ";
            columns += column.name;
            if (!column.unit.empty()) columns += " (" + column.unit + ")";
        }
        EXPECT_EQ(columns, row.at(1)) << row.at(0);
    }
    EXPECT_EQ(seen, drawings.size());
}

class ScanNumbers : public ScannerBench {};

TEST_F(ScanNumbers, AreTheChannelsAndTheirLevelsInTheirOrder) {
    open(1.8f);
    choose(ScanSpacing::Quarter);
    const NumberTable table = scanner.Graph1.numbers();
    EXPECT_EQ(headOf(table), "Frequency (MHz),Level (dBuV),RADIO UNO 98.1 MHz 2026-05-04");
    EXPECT_EQ(table.title, "Band Scanner");
    ASSERT_THAT(table.rows, SizeIs(82));
    EXPECT_EQ(table.rows[0], (Row{"87.5", std::to_string(levelAt(8750))}));
    EXPECT_EQ(table.rows[1], (Row{"87.75", std::to_string(levelAt(8775))}));
    EXPECT_EQ(table.rows.back(), (Row{"107.75", std::to_string(levelAt(10775))}));
    EXPECT_EQ(page.Graph1.numbers().rows, table.rows) << "the page tells the same";
}

TEST_F(ScanNumbers, OfAStoredScanWhoseChannelsAreNotKnownHaveNoFrequency) {
    bench.write("scan.dat", "44\r\n51\r\n");
    open(1.8f);
    EXPECT_THAT(scanner.Graph1.numbers().rows, ElementsAre(Row{"", "44"}, Row{"", "51"}));
}

TEST(ResponseNumbers, AreTheMeasuredTonesInDb) {
    RackBench bench(RackBench::kSpanish);
    bench.write("0981.res", lines({"-30", "-12", "-5", "0", "0", "1", "15", "20", "15000", "12000",
                                   "8000", "4000", "1000", "400", "125", "30"}));
    bench.write("Hm-res.dat", lines({"0", "0", "0"}));
    bench.start();
    for (const display::Chart* chart : {&bench.forms.formDd3.Graph1, &bench.forms.form7.Graph1}) {
        const NumberTable table = chart->numbers();
        EXPECT_EQ(headOf(table), "Tono (Hz),Nivel (dB),RADIO UNO 98.1 MHz 2026-05-04");
        EXPECT_THAT(table.rows, ElementsAre(Row{"30", "2"}, Row{"125", "1.5"}, Row{"400", "0.1"},
                                            Row{"1000", "0"}, Row{"4000", "0"}, Row{"8000", "-0.5"},
                                            Row{"12000", "-1.2"}, Row{"15000", "-3"}));
    }
}

TEST(ResponseNumbers, OfAStationWithoutAMeasurementAreNone) {
    RackBench bench;
    bench.start();
    EXPECT_THAT(bench.forms.formDd3.Graph1.numbers().rows, IsEmpty());
}

TEST(SpectrumNumbers, AreOffsetsAndLevelsUnderTheCarrier) {
    SpectrumBench bench;
    bench.write("0979.spc", lines({"3", "50", "97.8", "12", "0", "7", ""}));
    bench.shows.unload();
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    bench.formD.spect();
    for (const display::PictureBox* box :
         {&bench.shows.Picture1, &bench.shows.Picture2, &bench.formD.PictureGraph1}) {
        const NumberTable table = box->numbers();
        EXPECT_EQ(headOf(table), "Offset (kHz),Level (dB),RADIO UNO 97.9 MHz 2026-05-04");
        EXPECT_THAT(table.rows, ElementsAre(Row{"-50", "-12"}, Row{"0", "0"}, Row{"50", "-7"}))
            << box->name();
    }
}

TEST(SpectrumNumbers, OfThePageAreThoseOfTheMomentWhenItOpened) {
    SpectrumBench bench;
    bench.write("0979.spc", lines({"3", "50", "97.8", "12", "0", "7", ""}));
    bench.shows.unload();
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    bench.hand.click(bench.shows.SSCommand1);
    bench.desktop.settle();
    const Form6& page = bench.forms.form6;
    ASSERT_TRUE(page.visible);
    bench.driver.superLevel = 58.4f;
    bench.runSpan(0);
    for (const display::PictureBox* box : {&page.Picture1, &page.Picture1B}) {
        EXPECT_THAT(box->numbers().rows,
                    ElementsAre(Row{"-50", "-12"}, Row{"0", "0"}, Row{"50", "-7"}));
    }
    EXPECT_THAT(bench.shows.Picture1.numbers().rows, SizeIs(17));
}

TEST(SpectrumNumbers, OfARunAreWhatItMeasured) {
    SpectrumBench bench;
    bench.driver.superLevel = 58.4f;
    bench.runSpan(0);
    const auto rows = bench.shows.Picture1.numbers().rows;
    ASSERT_THAT(rows, SizeIs(17));
    EXPECT_EQ(rows.front(), (Row{"-200", "-12"}));
    EXPECT_EQ(rows[8], (Row{"0", "0"}));
    EXPECT_EQ(rows.back(), (Row{"200", "-12"}));
}

TEST(SpectrumNumbers, WithoutAFileThereAreNone) {
    SpectrumBench bench;
    bench.shows.unload();
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    EXPECT_THAT(bench.shows.Picture1.numbers().rows, IsEmpty());
}

TEST(BandwidthNumbers, AreThePeaksThatTheCurveGoesThrough) {
    SpectrumBench bench;
    bench.openBandwidth();
    EXPECT_THAT(bench.width.Picture1.numbers().rows, IsEmpty()) << "nothing is drawn yet";
    bench.driver.superLevel = 64;  // 6 dB under the carrier: 50 percent
    bench.hand.click(bench.width.Command3D1);
    bench.advance(std::chrono::milliseconds(200));
    const NumberTable table = bench.width.Picture1.numbers();
    EXPECT_EQ(headOf(table), "Offset (kHz),Modulation (%),RADIO UNO 97.9 MHz 2026-05-04");
    EXPECT_THAT(table.rows,
                ElementsAre(Row{"0", "100"}, Row{"25", "50"}, Row{"50", "50"}, Row{"75", "50"},
                            Row{"100", "50"}, Row{"125", "50"}, Row{"150", "50"}));
}

TEST(BandwidthNumbers, OfTheTestPatternAreItsCorners) {
    SpectrumBench bench;
    bench.openBandwidth();
    bench.hand.click(bench.width.Command1);
    bench.desktop.settle();
    const auto rows = bench.width.Picture1.numbers().rows;
    ASSERT_THAT(rows, SizeIs(7));
    EXPECT_EQ(rows[3], (Row{"75", "40"}));
    EXPECT_EQ(rows[6], (Row{"150", "80"}));
}

TEST(LogNumbers, AreTheHoursOfTheChosenDay) {
    LogBench bench;
    bench.open();
    const NumberTable modulation = bench.charts.Graph[0].numbers();
    EXPECT_EQ(headOf(modulation), "Hour (h),Modulation (%),RADIO UNO 98.1 MHz 20260304");
    ASSERT_THAT(modulation.rows, SizeIs(24));
    EXPECT_EQ(modulation.rows[7], (Row{"7", "20"}));
    EXPECT_EQ(modulation.rows[9], (Row{"9", ""})) << "an hour without a line is no 0";
    EXPECT_EQ(modulation.rows[8], (Row{"8", "0"})) << "an absent figure is what the chart shows";
    const NumberTable levels = bench.charts.Graph[2].numbers();
    EXPECT_EQ(headOf(levels),
              "Hour (h),Left Level (dB),Right Level (dB),RADIO UNO 98.1 MHz 20260304");
    EXPECT_EQ(levels.rows[7], (Row{"7", "-12", "7"}));
    const NumberTable counts = bench.charts.Graph[5].numbers();
    EXPECT_EQ(headOf(counts), "Hour (h),Inverted Phase,3 s Silences,RADIO UNO 98.1 MHz 20260304");
    EXPECT_EQ(counts.rows[7], (Row{"7", "12", "11"}));
    bench.choose("20260303");
    EXPECT_EQ(bench.charts.Graph[3].numbers().rows[5], (Row{"5", "9"}));
}

class AnalyzerNumbers : public AnalyzerBench {};

TEST_F(AnalyzerNumbers, OfTheMapAreTheCellsThatWereSeen) {
    store("Evening.3Ds", 4);
    open();
    const NumberTable table = form.Picture3d.numbers();
    EXPECT_EQ(headOf(table),
              "Frequency (MHz),Level (dBuV),Sweeps,Share of the sweeps (%),"
              "RADIO UNO 98.1 MHz 2026-05-04");
    EXPECT_EQ(table.title, "3D Spectrum Analyzer Evening");
    ASSERT_THAT(table.rows, SizeIs(800));
    EXPECT_EQ(table.rows[0], (Row{"88", "30", "4", "100.00"}));
    EXPECT_EQ(table.rows[61], (Row{"89.525", "31", "4", "100.00"}));
    EXPECT_EQ(table.rows[799], (Row{"107.975", "49", "4", "100.00"}));
}

TEST_F(AnalyzerNumbers, OfTheBarsAreTheStoredSweep) {
    store("Evening.3Ds", 1);
    bench.write("Logs/Evening.spc", "40\r\n 25\r\n87.975\r\n30\r\n31\r\n64\r\n\r\n");
    open();
    const NumberTable table = form.PictureZoom.numbers();
    EXPECT_EQ(headOf(table), "Frequency (MHz),Level (dBuV),RADIO UNO 98.1 MHz 2026-05-04");
    EXPECT_THAT(table.rows, ElementsAre(Row{"88", "30"}, Row{"88.025", "31"}, Row{"88.05", "64"}));
}

TEST_F(AnalyzerNumbers, OfASpectrumThatIsMadeUpAreNone) {
    store("Evening.3Ds", 1);
    open();
    EXPECT_THAT(form.PictureZoom.numbers().rows, IsEmpty());
}

TEST_F(AnalyzerNumbers, AreTrueToTheirFrequencyWhereverTheSweepBegan) {
    store("Evening.3Ds", 1);
    bench.write("Logs/Evening.spc", "800\r\n 25\r\n99.975\r\n77\r\n\r\n");
    open();
    EXPECT_THAT(form.PictureZoom.numbers().rows, ElementsAre(Row{"100", "77"}))
        << "the axis of the stored view always begins at 88";
}

}  // namespace hmonitor::test
