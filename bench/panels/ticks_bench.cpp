// SPDX-License-Identifier: GPL-3.0-or-later
// What one tick of the live panels costs after a tuning, without a screen.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <new>
#include <random>
#include <vector>

#include "tests/support/rack_bench.h"

namespace {
std::atomic<long> allocations{0};
}

void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size ? size : 1)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

constexpr int kTicks = 1000;

/// Readings anywhere in the ranges that the panels are built for.
class RandomReadings {
 public:
    void put(Readings& readings) {
        for (int output = 1; output <= 16; ++output) readings.output(output) = between(0, 100);
        readings.output(4) = between(-10, 100);
        readings.output(6) = between(-99, 99);
        readings.output(8) = between(-90, 0);
        readings.output(9) = between(-90, 0);
        readings.output(12) = between(0, 10);
    }

 private:
    float between(float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(generator_);
    }
    std::mt19937 generator_{1};
};

/// The median of 1000 ticks as the measured time, and all their allocations as a counter.
void measureTicks(benchmark::State& state, RackBench& bench, const std::function<void()>& tick) {
    if (allocations == 0) {
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
            const long before = allocations;
            const auto start = std::chrono::steady_clock::now();
            tick();
            const auto end = std::chrono::steady_clock::now();
            allocated += allocations - before;
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
