// SPDX-License-Identifier: GPL-3.0-or-later
// What moves in every frame of the live rack, as it is painted at twice the usual size.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <array>
#include <memory>

#include "display/qt/painting/painted.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

constexpr qreal kPixelsPerTwip = 0.1145, kRatio = 2;

QImage screen() {
    QImage image(2732, 1536, QImage::Format_RGB32);
    image.setDevicePixelRatio(kRatio);
    image.fill(Qt::black);
    return image;
}

/// The trail of the stereo phase: six needles that all move.
void SixNeedles(benchmark::State& state) {
    RackBench bench;
    bench.start();
    Form_B& panel = bench.forms.formB;
    const std::array lines = {&panel.Line1, &panel.Line2, &panel.Line3,
                              &panel.Line4, &panel.Line5, &panel.Line6};
    std::array<std::unique_ptr<display::qt::Painted>, 6> painted;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        painted[i] = display::qt::paintedLine(*lines[i]);
    }
    const display::qt::Scale scale(kPixelsPerTwip, kRatio);
    QImage image = screen();
    QPainter painter(&image);
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            display::Line& line = *lines[i];
            const auto sway = static_cast<float>((turn * 37 + static_cast<int>(i) * 91) % 400);
            line.to(line.x1 - 200 + sway, line.y2);
            painted[i]->prepare(scale);
            painted[i]->paint(painter);
        }
    }
}
BENCHMARK(SixNeedles)->Unit(benchmark::kMicrosecond);

/// A readout that shows another figure each time.
void ChangingReadout(benchmark::State& state) {
    RackBench bench;
    bench.start();
    display::Label& readout = bench.forms.formB.Label_PhaseVector;
    const auto painted = display::qt::paintedLabel(readout);
    const display::qt::Scale scale(kPixelsPerTwip, kRatio);
    QImage image = screen();
    QPainter painter(&image);
    const std::array figures = {"32.08", "31.92", "47.13", "18.55", "69.40"};
    std::size_t turn = 0;
    for (auto _ : state) {
        readout.caption = figures[++turn % figures.size()];
        painted->prepare(scale);
        painted->paint(painter);
    }
}
BENCHMARK(ChangingReadout)->Unit(benchmark::kMicrosecond);

}  // namespace
