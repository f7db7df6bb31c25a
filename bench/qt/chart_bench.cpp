// SPDX-License-Identifier: GPL-3.0-or-later
// What one replot of the band chart costs on the screen's own widget, 1100 by 500 pixels: at most
// 8 ms at the median.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>

#include "analyses/form_band_scanner.h"
#include "core/numbers.h"
#include "display/qt/widgets/chart_view.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

void oneReplot(benchmark::State& state) {
    RackBench bench;
    bench.start();
    bench.program.Form_BandSCanner->load();
    auto& scanner = bench.forms.formBandSCanner;
    scanner.Option_All.choose();
    display::qt::ChartView view(bench.hand, scanner.Graph1, nullptr);
    view.resize(1100, 500);
    view.show();
    QCoreApplication::processEvents();
    QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        for (int row = 1; row <= 21; ++row) {
            for (int column = 1; column <= 10; ++column) {
                scanner.Graph1.row = row;
                scanner.Graph1.column = column;
                scanner.Graph1.data(shortText(30 + (row * 7 + column * 3 + turn) % 61));
            }
        }
        view.sync();
        QCoreApplication::processEvents();
        view.render(&image);
    }
}
BENCHMARK(oneReplot)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();

}  // namespace
}  // namespace hmonitor::test
