// SPDX-License-Identifier: GPL-3.0-or-later
// What the band scanner itself costs, without a screen.
#include <benchmark/benchmark.h>

#include "analyses/form_band_scanner.h"
#include "analyses/form_print_band_scan.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

/// The 205 cells of a whole sweep of all channels into the chart and its twin. At most 0.1 ms.
void allCellsOfASweep(benchmark::State& state) {
    RackBench bench;
    bench.start();
    bench.program.Form_BandSCanner->show();
    display::Chart& window = bench.forms.formBandSCanner.Graph1;
    display::Chart& page = bench.forms.formPrintBandScan.Graph1;
    const ScanChannels channels = sweptChannels(ScanSpacing::All, kBandStop);
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        ScanWalk walk(2, 10);
        for (int i = 0; i < channels.count(); ++i) {
            const ScanCell cell = walk.next();
            for (display::Chart* chart : {&window, &page}) {
                chart->row = cell.row;
                chart->column = cell.column;
                chart->data(shortText(30 + (i + turn) % 61));
            }
        }
    }
    state.counters["cells"] = channels.count();
}
BENCHMARK(allCellsOfASweep)->Unit(benchmark::kMicrosecond);

/// The tick that takes the last frame of a sweep of all channels: reads, draws, stores the scan and
/// returns the unit. At most 10 ms with one paint.
void lastFrameOfASweep(benchmark::State& state) {
    RackBench bench;
    bench.start();
    auto& scanner = bench.forms.formBandSCanner;
    bench.hand.click(bench.formD.Image2);
    bench.hand.choose(scanner.Option_All);
    bench.desktop.settle();
    for (auto _ : state) {
        state.PauseTiming();
        bench.hand.click(scanner.Command3D1);
        bench.desktop.settle();
        for (int i = 0; i < 10; ++i) {
            bench.driver.frames.push_back(1);
            scanner.Timer1.onTick();
        }
        bench.driver.frames.push_back(1);
        state.ResumeTiming();
        scanner.Timer1.onTick();
        if (scanner.Timer1.enabled) state.SkipWithError("the sweep has not ended");
    }
}
BENCHMARK(lastFrameOfASweep)->Unit(benchmark::kMicrosecond)->Iterations(200);

}  // namespace
}  // namespace hmonitor::test
