// SPDX-License-Identifier: GPL-3.0-or-later
// A program of its own, because it counts every allocation: the ticks of the live panels take no
// memory from the heap.
#include <gtest/gtest.h>

#include <functional>

#include "tests/panels/modulation/demo_start.h"
#include "tests/support/counted_heap.h"
#include "tests/support/random_readings.h"

namespace hmonitor::test {
namespace {

constexpr int kTicks = 1000;

/// Blocks taken by a thousand ticks with random readings.
long takenBy(RackBench& bench, const std::function<void()>& tick) {
    RandomReadings random;
    long taken = 0;
    for (int i = 0; i < kTicks; ++i) {
        random.put(bench.driver.readings);
        bench.readings.rdsError = bench.readings.pilotError;
        bench.readings.rdsLevel = bench.readings.pilotLevel;
        const long before = CountedHeap::now().taken;
        tick();
        taken += CountedHeap::now().taken - before;
    }
    return taken;
}

class Heap : public testing::Test {
 protected:
    void expectFreeTicks() {
        bench.formB.cambfre();
        EXPECT_EQ(takenBy(bench, bench.formB.Timer2.onTick), 0) << "heartbeat";
        EXPECT_EQ(takenBy(bench, bench.formB.Timer3.onTick), 0) << "fall of the marks";
        EXPECT_EQ(takenBy(bench, bench.form1.Timer1.onTick), 0) << "fall of the peak, power";
        bench.form1.Timer4.onTick();  // the first one reads the settings
        EXPECT_EQ(takenBy(bench, bench.form1.Timer4.onTick), 0) << "readouts, quality panel";
    }
    RackBench bench;
};

TEST_F(Heap, IsCounted) {
    const CountedHeap before = CountedHeap::now();
    auto* block = new long[100];
    const CountedHeap taken = CountedHeap::now();
    delete[] block;
    const CountedHeap given = CountedHeap::now();
    EXPECT_EQ(taken.taken, before.taken + 1);
    EXPECT_EQ(taken.live, before.live + 1);
    EXPECT_GE(taken.bytes, before.bytes + 800);
    EXPECT_EQ(given.live, before.live);
    EXPECT_EQ(given.bytes, before.bytes);
}

TEST_F(Heap, IsNotTouchedByAnyTickOfTheLivePanels) {
    bench.start();
    expectFreeTicks();
}

TEST_F(Heap, IsNotTouchedInDemoModeEither) {
    startInDemoMode(bench);
    expectFreeTicks();
}

TEST_F(Heap, IsNotTouchedByReadingsOutOfEveryRange) {
    bench.start();
    bench.formB.cambfre();
    bench.form1.Timer4.onTick();
    long taken = 0;
    for (const float said : {1e4f, -1e4f, 1000.f, -999.9f, 1e38f}) {
        for (int output = 1; output <= 16; ++output) bench.output(output) = said;
        bench.readings.rdsError = bench.readings.rdsLevel = said;
        for (int i = 0; i < 100; ++i) {
            const long before = CountedHeap::now().taken;
            bench.formB.Timer2.onTick();
            bench.form1.Timer1.onTick();
            bench.form1.Timer4.onTick();
            taken += CountedHeap::now().taken - before;
        }
    }
    EXPECT_EQ(taken, 0);
}

}  // namespace
}  // namespace hmonitor::test
