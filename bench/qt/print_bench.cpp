// SPDX-License-Identifier: GPL-3.0-or-later
// From a print key to the whole job: the rack at most 300 ms, the page with the density map at most
// 500 ms. The printer is a file, so what a print server takes to answer is not in it.
#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "analyzer/session_bytes.h"
#include "tests/display/qt/paper_desktop.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

display::qt::PaperDesktop& printer() {
    static int argc = 0;
    static const QTemporaryDir folder;
    static display::qt::PaperDesktop desktop(argc, folder.filePath("job.pdf"));
    return desktop;
}

void expectPrinted(benchmark::State& state, const std::string& fault) {
    if (!fault.empty()) state.SkipWithError(fault.c_str());
}

void rackOnPaper(benchmark::State& state) {
    RackBench bench;
    bench.start();
    bench.beat(10);
    for (auto _ : state)
        expectPrinted(
            state, printer().printImage({&bench.form1, &bench.formB, &bench.formC, &bench.formD}));
}
BENCHMARK(rackOnPaper)->Unit(benchmark::kMillisecond);

/// The page of a session in which every level was seen at every frequency: all cells of the map are
/// drawn.
void mapOnPaper(benchmark::State& state) {
    RackBench bench;
    SessionInfo info = newSessionInfo(46347.75);
    info.Acquisitions = 5280;
    Density density;
    for (int x = 0; x < Density::kColumns; ++x) {
        for (int row = 0; row < Density::kRows; ++row) density.set(x, row, 1 + (x * row) % 1200);
    }
    std::filesystem::create_directory(bench.scratch.path() / "Logs");
    bench.write("Logs/full.3Ds", sessionBytes(info, density));
    bench.desktop.seedRandom(1);
    bench.start();
    bench.click(bench.formD.Image6);
    display::Panel& sheet = bench.forms.form6.Sheet;
    for (auto _ : state) {
        // Fills the page as the analyzer's key does.
        bench.click(bench.forms.formSpectrumAnalizer.SSCommand1);
        expectPrinted(state, printer().printSheet(sheet));
    }
    if (!bench.forms.formSpectrumAnalizer.Picture3d.visible) state.SkipWithError("no map is shown");
}
BENCHMARK(mapOnPaper)->Unit(benchmark::kMillisecond);

/// The 800 bars of a sweep.
void barsOnPaper(benchmark::State& state) {
    RackBench bench;
    bench.desktop.seedRandom(1);
    bench.start();
    bench.click(bench.formD.Image6);
    for (auto _ : state) {
        bench.click(bench.forms.formSpectrumAnalizer.SSCommand1);
        expectPrinted(state, printer().printSheet(bench.forms.form6.Sheet));
    }
}
BENCHMARK(barsOnPaper)->Unit(benchmark::kMillisecond);

}  // namespace
