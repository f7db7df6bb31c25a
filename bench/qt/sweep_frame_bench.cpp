// SPDX-License-Identifier: GPL-3.0-or-later
// The tick that takes the last frame of a sweep of all channels, with one paint of its window on
// the real desktop: at most 10 ms.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>

#include "display/qt/windows/form_view.h"
#include "display/qt/windows/qt_desktop.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

/// The program without its start: its forms on the real desktop over a scripted unit that sweeps.
struct Screen {
    Screen() {
        scratch.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
        scratch.write("normal.hm", lines({"100", "0", "0", "0", "1.000", "0", "0", "2", "90"}));
        scratch.write("Hm-res.dat", lines({"0", "0", "0"}));
        scratch.write("scan.dat", "");
        scratch.write("halden.dat", memoryBlock({{1, "RADIO UNO", "979"}}));
        desktop.rack({&forms.form1, &forms.formB, &forms.formC, &forms.formD, &forms.form3});
        forms.formBandSCanner.show();
        forms.formBandSCanner.Option_All.choose();
    }

    int argc = 0;
    TempFolder scratch;
    display::qt::QtDesktop desktop{argc, nullptr};
    ScriptedDriver driver;
    Files files{scratch.path()};
    Program program{desktop, driver, files};
    Forms forms{program};
};

/// Counts the paints of a widget.
class Paints final : public QObject {
 public:
    explicit Paints(QWidget* watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return QObject::eventFilter(watched, event);
    }
    int count = 0;
};

QWidget* plotOf(const display::qt::FormView& view) {
    for (QWidget* widget : view.window()->findChildren<QWidget*>())
        if (widget->inherits("QCustomPlot")) return widget;
    return nullptr;
}

void lastFrameWithItsPaint(benchmark::State& state) {
    Screen screen;
    Form_BandSCanner& scanner = screen.forms.formBandSCanner;
    display::qt::FormView& view = *screen.desktop.viewOf(scanner);
    Paints paints(plotOf(view));
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
        const int before = paints.count;
        state.ResumeTiming();
        scanner.Timer1.onTick();
        view.sync();
        QCoreApplication::processEvents();
        if (paints.count != before + 1) state.SkipWithError("not one paint");
        if (scanner.Timer1.enabled) state.SkipWithError("the sweep has not ended");
    }
}
BENCHMARK(lastFrameWithItsPaint)->Unit(benchmark::kMillisecond)->Iterations(100);

}  // namespace
}  // namespace hmonitor::test

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
