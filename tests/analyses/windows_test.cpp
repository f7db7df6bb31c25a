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
    // The chart of the band is wider than its view: the bar moves it.
    EXPECT_THAT(faultsOf(bench.forms.formBandSCanner),
                ElementsAre("Form_BandSCanner.Graph1 reaches out of ChartView"));
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
