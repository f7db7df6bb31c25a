// SPDX-License-Identifier: GPL-3.0-or-later
// The frame that shows the analyzer's density map with all its 56,000 cells on 1600 by 600 pixels:
// at most 6 ms.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "analyzer/analyzer_graphs.h"
#include "display/qt/painting/painted.h"
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
    box.left = 0.f;
    box.top = 0.f;
    box.width = 16000.f;
    box.height = 6000.f;
    // 800 columns on 16000 twips.
    box.drawing.scale(19, 0);
    Density density;
    for (int x = 0; x < Density::kColumns; ++x) {
        for (int row = 0; row < Density::kRows; ++row) density.set(x, row, 1 + (x * row) % 1200);
    }
    const auto painted = display::qt::paintedDrawing(box);
    const display::qt::Scale scale(0.1, 1);
    QImage screen(1600, 600, QImage::Format_RGB32);
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
        painted->prepare(scale);
        QPainter painter(&screen);
        painted->paint(painter);
    }
}
BENCHMARK(mapFrame)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
