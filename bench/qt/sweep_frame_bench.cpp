// SPDX-License-Identifier: GPL-3.0-or-later
// The tick that takes the last frame of a sweep of all channels, with one paint of its window on
// the real desktop: at most 10 ms.
#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include "display/qt/windows/form_view.h"
#include "tests/display/qt/paint_count.h"
#include "tests/display/qt/program_screen.h"

namespace hmonitor::test {
namespace {

/// The window of the band scanner with all channels, on a unit that sweeps.
struct Screen : ProgramScreen {
    Screen() {
        forms.formBandSCanner.show();
        forms.formBandSCanner.Option_All.choose();
    }
};

void lastFrameWithItsPaint(benchmark::State& state) {
    Screen screen;
    Form_BandSCanner& scanner = screen.forms.formBandSCanner;
    display::qt::FormView& view = *screen.desktop.viewOf(scanner);
    const auto charts = display::qt::chartPaintsOf(view);
    const auto& paints = charts.at(0);
    int turn = 0;
    for (auto _ : state) {
        state.PauseTiming();
        // Other levels each time, so that every bar is drawn anew.
        ++turn;
        for (int tenths = 870; tenths <= 1080; ++tenths) {
            screen.driver.spectrum[static_cast<float>(tenths)] =
                static_cast<float>(30 + (tenths * 7 + turn) % 61);
        }
        scanner.Command3D1.press();
        for (int i = 0; i < 10; ++i) {
            screen.driver.frames.push_back(1);
            scanner.Timer1.onTick();
        }
        view.sync();
        QCoreApplication::processEvents();
        screen.driver.frames.push_back(1);
        screen.driver.calls.clear();
        const int before = paints->count;
        state.ResumeTiming();
        scanner.Timer1.onTick();
        view.sync();
        QCoreApplication::processEvents();
        if (paints->count != before + 1) state.SkipWithError("not one paint");
        if (scanner.Timer1.enabled) state.SkipWithError("the sweep has not ended");
    }
}
BENCHMARK(lastFrameWithItsPaint)->Unit(benchmark::kMillisecond)->Iterations(100);

}  // namespace
}  // namespace hmonitor::test
