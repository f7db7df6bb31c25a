// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/architecture/form_walk.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(AnalysesWindows, StandAsTheyShould) {
    RackBench bench;
    bench.start();
    bench.program.Form_Dd3->show();
    bench.program.Form_BandSCanner->show();
    EXPECT_THAT(faultsOf(bench.formD), IsEmpty());
    EXPECT_THAT(faultsOf(bench.forms.formDd3), IsEmpty());
    EXPECT_THAT(faultsOf(bench.forms.form7), IsEmpty());
    EXPECT_THAT(faultsOf(bench.forms.formPrintBandScan), IsEmpty());
    // The band's chart is wider than the view: the scroll bar moves it.
    EXPECT_THAT(faultsOf(bench.forms.formBandSCanner),
                ElementsAre("Form_BandSCanner.Graph1 reaches out of ChartView"));
}

TEST(AnalysesWindows, TheScannersControlsStandWithTheirWordsAndStartValues) {
    RackBench bench;
    bench.start();
    Form_BandSCanner& scanner = *bench.program.Form_BandSCanner;
    EXPECT_EQ(scanner.caption, "Band Scanner");
    EXPECT_EQ(scanner.Label9.caption, "Band Scanner");
    EXPECT_EQ(scanner.Label_Channels.caption, "Channels:");
    const char* const scale[] = {"100", "90", "80", "70", "60", "50", "40", "30"};
    for (std::size_t i = 0; i < 8; ++i) {
        const std::string name = "Label" + std::to_string(i + 1);
        EXPECT_EQ(scanner.find(name), &scanner.Scale[i]) << name;
        EXPECT_EQ(scanner.Scale[i].caption, scale[i]);
    }
    EXPECT_EQ(scanner.Label12.caption, "dB");
    EXPECT_EQ(scanner.Option_All.caption, "All");
    EXPECT_EQ(scanner.Option_Pares.caption, "Even");
    EXPECT_EQ(scanner.Option_Impares.caption, "Odd");
    EXPECT_EQ(scanner.Option_250Khz.caption, "250 Khz");
    EXPECT_EQ(scanner.Command3D1.caption, "&New run");
    EXPECT_EQ(scanner.CommandClose.caption, "&Cancel");
    EXPECT_EQ(scanner.SSCommand1.caption, "Print Mode");
    EXPECT_EQ(scanner.HScroll1.value, 0);
    EXPECT_EQ(std::chrono::milliseconds(scanner.Timer1.interval), std::chrono::milliseconds(250));
    EXPECT_FALSE(scanner.Timer1.enabled);
}

TEST(AnalysesWindows, TheResponsesControlsStandWithTheirWords) {
    RackBench bench;
    bench.start();
    const Form_Dd3& window = *bench.program.Form_Dd3;
    EXPECT_EQ(window.caption, "Frecuency response");
    EXPECT_EQ(window.Label1.caption, "Frecuency Response");
    EXPECT_EQ(window.Command3D2.caption, "Ok");
    EXPECT_EQ(window.SSCommand1.caption, "Print Form");
}

TEST(AnalysesWindows, TheChartEndsWithItsViewAtTheBarsEnd) {
    RackBench bench;
    bench.start();
    auto& scanner = *bench.program.Form_BandSCanner;
    scanner.HScroll1.value = 11;
    EXPECT_EQ(scanner.HScroll1.value, 11);
    EXPECT_EQ(scanner.Graph1.left + scanner.Graph1.width, scanner.ChartView.width);
    scanner.HScroll1.value = 12;
    EXPECT_EQ(scanner.HScroll1.value, 11);
}

TEST(AnalysesWindows, EachRowIsNineHundredAndTwentyWide) {
    RackBench bench;
    bench.start();
    const display::Chart& chart = bench.program.Form_BandSCanner->Graph1;
    const display::Chart::Insets insets = chart.insets;
    EXPECT_EQ((chart.width - insets.left - insets.right) / static_cast<float>(chart.rowCount()),
              920);
}

}  // namespace
}  // namespace hmonitor::test
