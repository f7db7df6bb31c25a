// SPDX-License-Identifier: GPL-3.0-or-later
// What a sweep of the analyzer costs without a screen.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "analyzer/analyzer_graphs.h"
#include "analyzer/session_bytes.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

enum class View { Bars, Map };

/// A disk that is never reached: the rewrite is refused before its first step.
struct NoDisk : base::RewriteWatcher {
    int at(base::RewriteStep, base::StepMoment) override { return 28; }
};

/// The analyzer over a session of 500 sweeps in which levels spread as they do on the air.
class Bench {
 public:
    explicit Bench(View view) {
        bench.desktop.answerEveryBox = true;
        bench.start();
        std::filesystem::create_directory(bench.scratch.path() / "Logs");
        SessionInfo info = newSessionInfo(46347.75);
        info.Acquisitions = 500;
        Density density;
        for (int x = 0; x < Density::kColumns; ++x) {
            for (int row = 0; row < Density::kRows; ++row) density.set(x, row, (x * row) % 40);
        }
        bench.write("Logs/a.3Ds", sessionBytes(info, density));
        form.show();
        if ((view == View::Map) != form.Picture3d.visible) form.butSpecMode.press();
        form.butStart_Click();
        for (int i = 0; i <= 800; ++i)
            bench.driver.spectrum[880 + static_cast<float>(i) / 4] =
                static_cast<float>(33 + i * 7 % 60);
    }
    void sweep() {
        bench.driver.frames.push_back(1);
        form.Timer1.onTick();
        bench.driver.calls.clear();
        bench.desktop.journal.clear();
        bench.desktop.boxes.clear();
    }
    RackBench bench;
    frmSpectrumAnalizer& form{bench.forms.formSpectrumAnalizer};
};

/// One sweep of 801 points from the tick to the end of its write: own work without the disk at most
/// 5 ms in either view.
template <View Shown>
void SweepWithoutTheDisk(benchmark::State& state) {
    Bench bench(Shown);
    NoDisk none;
    bench.form.folder = SessionFolder(bench.bench.files, &none);
    for (auto _ : state) bench.sweep();
}
BENCHMARK_TEMPLATE(SweepWithoutTheDisk, View::Bars)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(SweepWithoutTheDisk, View::Map)->Unit(benchmark::kMillisecond);

/// The same with both files on the disk.
template <View Shown>
void SweepWithTheDisk(benchmark::State& state) {
    Bench bench(Shown);
    for (auto _ : state) bench.sweep();
}
BENCHMARK_TEMPLATE(SweepWithTheDisk, View::Bars)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_TEMPLATE(SweepWithTheDisk, View::Map)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The density map, all 56,000 cells there: at most 4 ms.
void MapOf56000Cells(benchmark::State& state) {
    Bench bench(View::Map);
    for (double& cell : bench.form.measurement.SpectralDensity.cells()) cell = 30;
    for (auto _ : state) bench.form.ShowSpectrum_3D();
}
BENCHMARK(MapOf56000Cells)->Unit(benchmark::kMillisecond);

/// A folder of 5,000 sessions opened: at most 50 ms.
void FolderOf5000Sessions(benchmark::State& state) {
    Bench bench(View::Bars);
    for (int i = 0; i < 5000; ++i)
        bench.bench.write("Logs/Session " + std::to_string(i) + ".3Ds", "");
    for (auto _ : state) {
        bench.form.ListSessions();
        bench.form.SelectCurrentSession();
    }
    if (bench.form.cboCurrentMeasurementFile.list.rows().size() != 5001)
        state.SkipWithError("not all sessions");
}
BENCHMARK(FolderOf5000Sessions)->Unit(benchmark::kMillisecond);

}  // namespace
