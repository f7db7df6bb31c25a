// SPDX-License-Identifier: GPL-3.0-or-later
// Our own units on frequencies without a station: their readings never count as stale.
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "drivers/simulated/figures.h"
#include "drivers/simulated/station.h"
#include "program/still_readings.h"
#ifdef HM16_RECEIVER
#include "tests/drivers/receiver/receiver_library.h"
#endif

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

TEST(StillUnits, TheSimulatedOneNeverOnAnEmptyFrequencyForAMinute) {
    int empty = 0;
    for (const double frequency : {876.0, 901.5, 965.0, 1003.0, 1080.0}) {
        if (hm16::simulated::stationAt(frequency) != nullptr) continue;
        ++empty;
        StillReadings still;
        still.begin(0s);
        hm16::Tuning tuning;
        tuning.frequency = frequency;
        for (display::Time at = 0s; at <= 60s; at += 30ms) {
            const double seconds = std::chrono::duration<double>(at).count();
            still.take(hm16::simulated::figuresAt(16, tuning, seconds, 1), at);
            ASSERT_EQ(still.staleSeconds(at), 0) << frequency << " after " << seconds;
        }
    }
    EXPECT_GE(empty, 3);
}

#ifdef HM16_RECEIVER
// The field of the noise is 40.0 dB there, and in whole decibels it does not change.
TEST(StillUnits, TheReceiverNeverOnAnEmptyFrequencyForAMinute) {
    ReceiverLibrary receiver(
        "source = synthetic\nscene = silence\npace = fast\nrate_hz = 300000\n"
        "centre_mhz = 98.5\ndbuv_at_full_scale = 100.5\n");
    ASSERT_EQ(receiver.init(), "");
    receiver.tune(985);
    StillReadings still;
    still.begin(0s);
    Readings now;
    display::Time changed = 0s;
    display::Time longestStill = 0s;
    for (display::Time at = 0s; at <= 60s; at += 50ms) {
        ASSERT_TRUE(receiver.step(1));
        const Readings before = std::exchange(now, receiver.readings());
        if (!(now == before)) changed = at;
        longestStill = std::max(longestStill, at - changed);
        still.take(now, at);
        ASSERT_EQ(still.staleSeconds(at), 0);
    }
    EXPECT_GT(longestStill, 10 * StillReadings::kStale);
    // The noise has a field, and nothing else.
    EXPECT_GT(now.field, 0);
    EXPECT_EQ(now.pilotLevel, 0);
    EXPECT_EQ(now.peakModulation, 0);
}
#endif

}  // namespace
}  // namespace hmonitor::test
