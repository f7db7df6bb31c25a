// SPDX-License-Identifier: GPL-3.0-or-later
// What a working folder full of files costs: the start of the whole program, and a step of the
// memories, which asks for files that are not there. Without a screen.
#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>

#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor::test;

std::unique_ptr<RackBench> benchIn(long others) {
    auto bench = std::make_unique<RackBench>();
    for (long i = 0; i < others; ++i) {
        std::ofstream(bench->scratch.path() / ("recording " + std::to_string(i) + ".txt"));
    }
    return bench;
}

void startOfTheProgram(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto bench = benchIn(state.range(0));
        state.ResumeTiming();
        bench->files.removeLeftovers();
        bench->start();
        state.PauseTiming();
        bench.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(startOfTheProgram)->Arg(10)->Arg(100000)->Iterations(3)->Unit(benchmark::kMillisecond);

void stepOfTheMemories(benchmark::State& state) {
    const auto bench = benchIn(state.range(0));
    bench->start();
    for (auto _ : state) bench->click(bench->formB.SSCommand1);
}
BENCHMARK(stepOfTheMemories)->Arg(10)->Arg(100000)->Iterations(300)->Unit(benchmark::kMillisecond);

}  // namespace
