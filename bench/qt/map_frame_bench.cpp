// SPDX-License-Identifier: GPL-3.0-or-later
// The frame that shows the analyzer's density map with all its 56,000 cells on 1600 by 600 pixels:
// at most 6 ms.
#include <benchmark/benchmark.h>

#include "analyzer/analyzer_graphs.h"
#include "bench/qt/drawing_screen.h"
#include "spectrum/class1.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

void mapFrame(benchmark::State& state) {
    static constexpr DensityColors kColors = buildPalette();
    RackBench bench;
    bench.start();
    display::PictureBox& box = bench.forms.formSpectrumAnalizer.Picture3d;
    DrawingScreen screen(box, 1600, 600);
    // 800 columns on 16000 twips.
    box.drawing.scale(19, 0);
    Density density;
    for (int x = 0; x < Density::kColumns; ++x) {
        for (int row = 0; row < Density::kRows; ++row) density.set(x, row, 1 + (x * row) % 1200);
    }
    for (auto _ : state) {
        state.PauseTiming();
        Class1 graph = densityGraph(box.drawing, 25);
        graph.GraphInit();
        for (int x = 0; x < 800; ++x) {
            for (int row = 0; row < 70; ++row) {
                const auto entry = static_cast<std::size_t>(densityEntry(density.at(x, row), 5280));
                graph.GraphPixel(x + 1, 69 - row, static_cast<std::int32_t>(kColors[entry].bgr));
            }
        }
        state.ResumeTiming();
        screen.frame();
    }
}
BENCHMARK(mapFrame)->Unit(benchmark::kMillisecond);

}  // namespace
