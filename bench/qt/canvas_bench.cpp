// SPDX-License-Identifier: GPL-3.0-or-later
// What the graphs cost on the Qt canvas: the drawing itself and one frame of it in pixels.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "display/qt/painting/painted.h"
#include "tests/spectrum/graphs.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

constexpr qreal kPixelsPerTwip = 0.1;

/// The band at 800 columns with all its bars on 1200 by 500 pixels: at most 3 ms.
void BandOf800BarsOnQt(benchmark::State& state) {
    RackBench bench;
    bench.start();
    display::PictureBox& box = bench.forms.formD1.Picture1;
    box.left = 0.f;
    box.top = 0.f;
    box.width = 12000.f;
    box.height = 5000.f;
    const auto painted = display::qt::paintedDrawing(box);
    const display::qt::Scale scale(kPixelsPerTwip, 1);
    QImage screen(1200, 500, QImage::Format_RGB32);
    int frame = 0;
    for (auto _ : state) {
        Class1 graph = bandGraph(box.drawing);
        graph.GraphInit();
        ++frame;
        for (int i = 1; i <= 800; ++i) {
            Int16 y = (i + frame) * 37 % 70;
            graph.GraphLine(i, y);
        }
        painted->prepare(scale);
        QPainter painter(&screen);
        painted->paint(painter);
    }
}
BENCHMARK(BandOf800BarsOnQt)->Unit(benchmark::kMillisecond);

/// The density map of the band, each of its 56,000 cells drawn, on the same place: at most 3 ms.
void MapOf56000CellsOnQt(benchmark::State& state) {
    RackBench bench;
    bench.start();
    display::PictureBox& box = bench.forms.formD1.Picture1;
    box.left = 0.f;
    box.top = 0.f;
    box.width = 15000.f;
    box.height = 6000.f;
    box.drawing.scale(15, 0);
    const auto painted = display::qt::paintedDrawing(box);
    const display::qt::Scale scale(kPixelsPerTwip, 1);
    QImage screen(1500, 600, QImage::Format_RGB32);
    int frame = 0;
    for (auto _ : state) {
        Class1 graph = smallBandGraph(box.drawing);
        graph.GraphInit();
        ++frame;
        for (int x = 1; x <= 800; ++x) {
            for (int y = 0; y < 70; ++y) graph.GraphPixel(x, y, (x * y + frame) % 0xffffff);
        }
        painted->prepare(scale);
        QPainter painter(&screen);
        painted->paint(painter);
    }
}
BENCHMARK(MapOf56000CellsOnQt)->Unit(benchmark::kMillisecond);

/// One redraw of the bandwidth curve: at most 2 ms.
void BandwidthRedrawOnQt(benchmark::State& state) {
    RackBench bench;
    bench.start();
    FormD1a& window = bench.forms.formD1a;
    window.show();
    const auto painted = display::qt::paintedDrawing(window.Picture1);
    const display::qt::Scale scale(kPixelsPerTwip, 1);
    QImage screen(1200, 800, QImage::Format_RGB32);
    for (auto _ : state) {
        BandwidthCurve::Points points = BandwidthCurve::through({100, 90, 70, 45, 20, 10, 4, 0});
        window.GraphClean();
        for (int x = 0; x <= BandwidthCurve::kLastKhz; ++x) {
            window.GraphLine(x, points[static_cast<std::size_t>(x)]);
        }
        window.GraphRepaint();
        painted->prepare(scale);
        QPainter painter(&screen);
        painted->paint(painter);
    }
}
BENCHMARK(BandwidthRedrawOnQt)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
