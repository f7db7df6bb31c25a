// SPDX-License-Identifier: GPL-3.0-or-later
// What the history costs a heartbeat: the driver door alone, and with the tap that hands on
// readings or slots. The difference is the tap's.
#include <benchmark/benchmark.h>

#include <memory>

#include "app/history_tap.h"
#include "history/input_ring.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;

/// The ring as the recorder has it, emptied by the same thread.
struct Ring final : history::InputSink {
    void take(const history::Input& input) override {
        if (!ring.put(input)) ring.take(out);
    }
    history::InputRing ring{16};
    history::Input out;
};

struct Nobody final : DoorListener {};

void heartbeat(benchmark::State& state, bool tapped, bool slotted) {
    RackBench bench;
    Ring ring;
    Nobody nobody;
    std::unique_ptr<HistoryTap> tap;
    // States are worked out for any listener: what is left is the tap's own.
    if (tapped) {
        tap = std::make_unique<HistoryTap>(bench.program, ring);
    } else {
        bench.program.driver.listeners().join(nobody);
    }
    bench.program.driver.HM_Normal(981, 0, 0, 0, 0);
    bench.driver.slotted = slotted;
    bench.driver.slots.reserve(1);
    MeasuredSlot slot;
    for (auto _ : state) {
        bench.readings.peakModulation += 0.001f;
        if (bench.readings.peakModulation > 100) bench.readings.peakModulation = 60;
        if (slotted) {
            ++slot.number;
            bench.driver.slots.push_back(slot);
        }
        benchmark::DoNotOptimize(bench.program.driver.HM_Data());
    }
    if (!tapped) bench.program.driver.listeners().leave(nobody);
}

void Door(benchmark::State& state) {
    heartbeat(state, false, false);
}
void DoorAndTap(benchmark::State& state) {
    heartbeat(state, true, false);
}
void DoorOfSlots(benchmark::State& state) {
    heartbeat(state, false, true);
}
void DoorOfSlotsAndTap(benchmark::State& state) {
    heartbeat(state, true, true);
}

BENCHMARK(Door);
BENCHMARK(DoorAndTap);
BENCHMARK(DoorOfSlots);
BENCHMARK(DoorOfSlotsAndTap);

}  // namespace
