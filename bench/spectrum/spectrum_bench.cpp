// SPDX-License-Identifier: GPL-3.0-or-later
// What the graphs and the runs cost without a screen.
#include <benchmark/benchmark.h>

#include "tests/spectrum/graphs.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

/// The band at 800 columns with all its bars: at most 2 ms.
void BandOf800Bars(benchmark::State& state) {
    RackBench bench;
    bench.start();
    display::PictureBox& box = bench.forms.formD1.Picture1;
    box.width = 12000.f;
    box.height = 5000.f;
    for (auto _ : state) {
        Class1 graph = bandGraph(box.drawing);
        graph.GraphInit();
        for (int i = 1; i <= 800; ++i) {
            Int16 y = i * 37 % 70;
            graph.GraphLine(i, y);
        }
    }
}
BENCHMARK(BandOf800Bars)->Unit(benchmark::kMillisecond);

/// One curve of the modulation bandwidth: at most 1 ms.
void BandwidthCurveRedraw(benchmark::State& state) {
    RackBench bench;
    bench.driver.hardwareVersion = 1.5f;
    bench.start();
    FormD1a& window = bench.forms.formD1a;
    window.show();
    std::array<float, 8> peaks{100, 90, 70, 45, 20, 10, 4, 0};
    for (auto _ : state) {
        BandwidthCurve::Points points = BandwidthCurve::through(peaks);
        window.GraphClean();
        for (int x = 0; x <= BandwidthCurve::kLastKhz; ++x) {
            window.GraphLine(x, points[static_cast<std::size_t>(x)]);
        }
        window.GraphRepaint();
    }
}
BENCHMARK(BandwidthCurveRedraw)->Unit(benchmark::kMillisecond);

/// A channel spectrum of 33 points on a unit that answers at once, from the key to the file: at
/// most 0.1 ms a point of our own work.
void ChannelSpectrumOf33Points(benchmark::State& state) {
    RackBench bench;
    bench.start();
    for (auto _ : state) {
        bench.program.Form_NewSpectro->Combo1.select(5);
        bench.program.Form_NewSpectro->Command3D1.press();
        state.PauseTiming();
        bench.driver.calls.clear();
        bench.desktop.journal.clear();
        state.ResumeTiming();
    }
    state.counters["ms_per_point"] =
        benchmark::Counter(33e-3 * static_cast<double>(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(ChannelSpectrumOf33Points)->Unit(benchmark::kMillisecond);

}  // namespace
