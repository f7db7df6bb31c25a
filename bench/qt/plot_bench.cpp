// SPDX-License-Identifier: GPL-3.0-or-later
// What one paint of a plot costs, 1200 pixels of curves: 86,400 points with holes, at most 5 ms at
// the median, and 1,000 for comparison.
#include <benchmark/benchmark.h>

#include <QImage>
#include <cmath>

#include "display/controls/plot.h"
#include "display/headless/headless_desktop.h"
#include "display/qt/painting/plot_painter.h"

namespace display::qt {
namespace {

class PlotForm final : public Form {
 public:
    explicit PlotForm(Desktop& desktop) : Form(desktop, "PlotForm") {}
    Plot Plot1{*this, "Plot1"};

 protected:
    void layOut() override {
        place(Plot1, {0, 0, 12900, 1800});
        Plot1.insets = Plot::Insets{600, 300, 300, 300};
        Plot1.y = PlotAxis{AxisKind::Linear, 0, 100};
    }
};

/// Bands with noise; each 900th point begins a hole of 20.
PlotSeries noise(int points) {
    PlotSeries series;
    series.each = 1;
    series.missing = 13;
    unsigned seed = 1;
    const auto drawn = [&seed] {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<float>(seed >> 8) / 16777216.f;
    };
    for (int i = 0; i < points; ++i) {
        const float y = 55 + 20 * std::sin(static_cast<float>(i) * 9 / static_cast<float>(points)) +
                        4 * drawn();
        series.points.push_back(i % 900 < 20
                                    ? PlotPoint::unknown(i, 8)
                                    : PlotPoint{double(i), y, y - 6 * drawn(), y + 6 * drawn(), 0});
    }
    return series;
}

void onePaint(benchmark::State& state) {
    HeadlessDesktop desktop;
    PlotForm form(desktop);
    form.load();
    const auto points = static_cast<int>(state.range(0));
    form.Plot1.series({noise(points)});
    form.Plot1.x = PlotAxis{AxisKind::Linear, 0, double(points)};
    form.Plot1.causes({{8, Colour{0x2080ff}}});
    QImage image(1290, 180, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter painter(&image);
        paintPlot(painter, form.Plot1, {QRectF(0, 0, 1290, 180), 0.1, 1});
    }
}
BENCHMARK(onePaint)
    ->Arg(1000)
    ->Arg(86400)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();

}  // namespace
}  // namespace display::qt
