// SPDX-License-Identifier: GPL-3.0-or-later
// What the graphs cost on the Qt canvas: the drawing itself and one frame of it in pixels.
#include <benchmark/benchmark.h>

#include "bench/qt/drawing_screen.h"
#include "tests/spectrum/graphs.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

/// The band at 800 columns with all its bars on 1200 by 500 pixels: at most 3 ms.
void BandOf800BarsOnQt(benchmark::State& state) {
    RackBench bench;
    bench.start();
    display::PictureBox& box = bench.forms.formD1.Picture1;
    DrawingScreen screen(box, 1200, 500);
    int frame = 0;
    for (auto _ : state) {
        Class1 graph = bandGraph(box.drawing);
        graph.GraphInit();
        ++frame;
        for (int i = 1; i <= 800; ++i) {
            Int16 y = (i + frame) * 37 % 70;
            graph.GraphLine(i, y);
        }
        screen.frame();
    }
}
BENCHMARK(BandOf800BarsOnQt)->Unit(benchmark::kMillisecond);

/// The density map of the band, each of its 56,000 cells drawn, on the same place: at most 3 ms.
void MapOf56000CellsOnQt(benchmark::State& state) {
    RackBench bench;
    bench.start();
    display::PictureBox& box = bench.forms.formD1.Picture1;
    DrawingScreen screen(box, 1500, 600);
    box.drawing.scale(15, 0);
    int frame = 0;
    for (auto _ : state) {
        Class1 graph = smallBandGraph(box.drawing);
        graph.GraphInit();
        ++frame;
        for (int x = 1; x <= 800; ++x) {
            for (int y = 0; y < 70; ++y) graph.GraphPixel(x, y, (x * y + frame) % 0xffffff);
        }
        screen.frame();
    }
}
BENCHMARK(MapOf56000CellsOnQt)->Unit(benchmark::kMillisecond);

/// One redraw of the bandwidth curve: at most 2 ms.
void BandwidthRedrawOnQt(benchmark::State& state) {
    RackBench bench;
    bench.start();
    FormD1a& window = bench.forms.formD1a;
    window.show();
    DrawingScreen screen(window.Picture1);
    for (auto _ : state) {
        BandwidthCurve::Points points = BandwidthCurve::through({100, 90, 70, 45, 20, 10, 4, 0});
        window.GraphClean();
        for (int x = 0; x <= BandwidthCurve::kLastKhz; ++x) {
            window.GraphLine(x, points[static_cast<std::size_t>(x)]);
        }
        window.GraphRepaint();
        screen.frame();
    }
}
BENCHMARK(BandwidthRedrawOnQt)->Unit(benchmark::kMillisecond);

}  // namespace
