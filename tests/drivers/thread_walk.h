// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>

#include "drivers/hm16_more.h"
#include "tests/drivers/loaded_library.h"

// One life of a library for the thread sanitizer: calls in any order, drawn by a seed, while the
// library's own thread measures and another one copies readings all the time.
class ThreadWalk {
 public:
    ThreadWalk(const LoadedLibrary& unit, unsigned seed) : unit_(unit), random_(seed) {
        const auto extension =
            reinterpret_cast<HM16_ExtensionFunction>(unit.library().extra(HM16_EXTENSION_NAME));
        figures_ = static_cast<const HM16_FiguresV1*>(extension(HM16_FIGURES));
    }

    // The unit stands when this returns, so that it can be ended.
    void go(int calls) {
        unit_->init();
        std::atomic<bool> done{false};
        std::atomic<long> odd{0};
        std::thread reader([&] {
            while (!done) {
                const auto readings = unit_.readings();
                if (!std::isfinite(readings.peakModulation) || !std::isfinite(readings.field))
                    ++odd;
                std::this_thread::yield();
            }
        });
        for (int call = 0; call < calls; ++call) step();
        done = true;
        reader.join();
        EXPECT_EQ(odd, 0);
    }

 private:
    int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    float frequency() { return 875 + static_cast<float>(pick(411)) * 0.5F; }

    void step() {
        float out = 0;
        switch (pick(12)) {
            case 0:
                unit_.tune(985, pick(2), pick(2), pick(2));
                break;
            case 1:
                unit_->normal(frequency(), pick(2), pick(2), pick(2), pick(2));
                break;
            case 2:
                unit_->parar();
                break;
            case 3:
                unit_->reset(1 + pick(3));
                break;
            case 4:
                unit_->super(frequency(), &out);
                EXPECT_TRUE(std::isfinite(out));
                break;
            case 5:
                unit_->startEspectro(975, 980 + static_cast<float>(pick(100)), pick(2) * 25);
                break;
            case 6:
                unit_->tramaEspectroRecibida();
                break;
            case 7:
                unit_->getEspectro(frequency(), &out);
                EXPECT_TRUE(std::isfinite(out));
                break;
            case 8:
                unit_.response();
                break;
            case 9:
                unit_.version();
                break;
            case 10:
                slots();
                break;
            default:
                std::this_thread::sleep_for(std::chrono::milliseconds(pick(20)));
        }
    }

    void slots() {
        if (!figures_) return;
        std::array<HM16_Slot, 32> taken;
        figures_->slots(0, next_, taken.data(), sizeof(HM16_Slot), 32, &next_);
    }

    const LoadedLibrary& unit_;
    std::mt19937 random_;
    const HM16_FiguresV1* figures_ = nullptr;
    std::uint64_t next_ = 0;
};

// Life by life: two of them, or until HMONITOR_THREADS_SECONDS are over, from HMONITOR_THREADS_SEED
// on. `unit` makes the library of a seed.
template <class MakeUnit>
void walkBesideItsThread(const char* name, MakeUnit makeUnit) {
    const auto given = [](const char* setting, unsigned otherwise) {
        const char* text = std::getenv(setting);
        return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : otherwise;
    };
    constexpr int kCalls = 100;
    const unsigned first = given("HMONITOR_THREADS_SEED", 1);
    const std::chrono::seconds wanted(given("HMONITOR_THREADS_SECONDS", 0));
    const auto begin = std::chrono::steady_clock::now();
    unsigned seed = first;
    do {
        const auto unit = makeUnit(seed);
        ThreadWalk(*unit, seed).go(kCalls);
        ++seed;
    } while (!testing::Test::HasFailure() &&
             (seed < first + 2 || std::chrono::steady_clock::now() - begin < wanted));
    if (wanted.count() > 0)
        std::printf("%s: %u calls, next seed %u\n", name, (seed - first) * kCalls, seed);
}
