// SPDX-License-Identifier: GPL-3.0-or-later
// Cases for the thread sanitizer: readings are copied in one thread while another tunes, stops,
// sweeps and resets, and the unit's own thread measures.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/drivers/simulated_library.h"

namespace {

TEST(Threads, ReadingsAreWholeWhileAnotherThreadDrivesTheUnit) {
    const SimulatedLibrary unit("pace = 500\nclock = 2026-03-04 21:59:00\n");
    unit->init();
    unit.tune(985);
    std::atomic<bool> ready{false};
    std::atomic<bool> done{false};
    std::atomic<long> looks{0};
    std::atomic<long> odd{0};
    std::thread reader([&] {
        while (!done) {
            const auto r = unit.readings();
            // Only a station has separation, and only an empty frequency has that much noise: both
            // together would be parts of two sets.
            if (r.separationLeft > 0 && r.noiseLeft > -20) ++odd;
            ++looks;
            ready = true;
        }
    });
    ASSERT_TRUE(SimulatedLibrary::eventually([&] { return ready.load(); }));
    for (int round = 0; round < 60; ++round) {
        unit.tune(round % 2 == 0 ? 985 : 990, 0, round % 3 == 0, 1);
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
        unit->parar();
        unit->reset(1 + round % 3);
        float level = 0;
        EXPECT_EQ(unit->super(985, &level), 0);
        unit->startEspectro(975, 980, 0);
        EXPECT_TRUE(unit.frameComes());
        unit.swept(978);
        unit.response();
    }
    done = true;
    reader.join();
    EXPECT_EQ(odd, 0);
    EXPECT_GT(looks, 60);
}

// A level takes 50 ms here. If readings waited for the same lock, there would be at most one for
// each level.
TEST(Threads, ReadingsNeverWaitForAMeasurementOrAnIdleUnit) {
    const SimulatedLibrary unit("pace = 0.1\n");
    unit->init();
    for (int i = 0; i < 100; ++i) EXPECT_EQ(unit.readings(), unit.readings());
    unit.tune(985);
    unit->parar();
    std::atomic<bool> measuring{false};
    std::thread other([&] {
        float level = 0;
        measuring = true;
        for (int i = 0; i < 10; ++i) unit->super(985, &level);
        measuring = false;
    });
    ASSERT_TRUE(SimulatedLibrary::eventually([&] { return measuring.load(); }));
    long looks = 0;
    while (measuring) {
        EXPECT_GT(unit.readings().field, 80);
        ++looks;
        std::this_thread::yield();
    }
    other.join();
    EXPECT_GT(looks, 30);
}

TEST(Threads, TerminateEndsTheUnitsThreadWhateverItDoes) {
    for (int round = 0; round < 20; ++round) {
        const SimulatedLibrary unit("pace = 100\n");
        unit->init();
        if (round % 3 == 0) unit.tune(985);
        if (round % 3 == 1) unit->startEspectro(880, 1080, 25);
        EXPECT_EQ(unit->terminate(), 0);
        EXPECT_EQ(unit.version(), 0);
    }
}

}  // namespace
