// SPDX-License-Identifier: GPL-3.0-or-later
// What one tick of the live panels costs after a tuning, without a screen.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

#include "tests/support/counted_heap.h"
#include "tests/support/rack_bench.h"
#include "tests/support/random_readings.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

constexpr int kTicks = 1000;

/// The median of 1000 ticks as the measured time, and all their allocations as a counter.
void measureTicks(benchmark::State& state, RackBench& bench, const std::function<void()>& tick) {
    if (CountedHeap::now().taken == 0) {
        state.SkipWithError("allocations are not counted");
        return;
    }
    RandomReadings random;
    std::vector<double> seconds(kTicks);
    long allocated = 0;
    for (auto _ : state) {
        allocated = 0;
        for (double& second : seconds) {
            random.put(bench.driver.readings);
            const long before = CountedHeap::now().taken;
            const auto start = std::chrono::steady_clock::now();
            tick();
            const auto end = std::chrono::steady_clock::now();
            allocated += CountedHeap::now().taken - before;
            second = std::chrono::duration<double>(end - start).count();
        }
        std::ranges::nth_element(seconds, seconds.begin() + kTicks / 2);
        state.SetIterationTime(seconds[kTicks / 2]);
    }
    state.counters["allocations"] = static_cast<double>(allocated);
    if (allocated != 0) state.SkipWithError("a tick took memory from the heap");
}

void HeartbeatTick(benchmark::State& state) {
    RackBench bench;
    bench.start();
    bench.formB.cambfre();
    measureTicks(state, bench, bench.formB.Timer2.onTick);
}
BENCHMARK(HeartbeatTick)->UseManualTime()->Iterations(20)->Unit(benchmark::kMicrosecond);

void ReadoutsTick(benchmark::State& state) {
    RackBench bench;
    bench.start();
    bench.formB.cambfre();
    bench.form1.Timer4.onTick();  // the first one reads the settings
    measureTicks(state, bench, bench.form1.Timer4.onTick);
}
BENCHMARK(ReadoutsTick)->UseManualTime()->Iterations(20)->Unit(benchmark::kMicrosecond);

}  // namespace
