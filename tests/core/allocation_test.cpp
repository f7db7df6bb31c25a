// SPDX-License-Identifier: GPL-3.0-or-later
// A program of its own, because it counts every allocation.
#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/station_state.h"
#include "tests/support/counted_heap.h"

namespace hmonitor {
namespace {

using test::CountedHeap;

TEST(Allocations, AreCounted) {
    const long before = CountedHeap::now().taken;
    delete new StationState;
    EXPECT_GT(CountedHeap::now().taken, before);
}

TEST(Numbers, FormatParseAndRoundWithoutTheHeap) {
    StationState state;
    double sum = 0;
    const long before = CountedHeap::now().taken;
    for (int i = -500; i < 500; ++i) {
        const float reading = static_cast<float>(i) * 0.37f;
        state.PowerText = shortText(reading);
        state.CurrentFreq = longText(1025.5 + i);
        state.TuneTag = printText(i);
        state.RadioName = mask("0.0", reading);
        state.FloorThd = mask("#00.0 MHz", static_cast<double>(reading));
        state.ModSettle = "5";
        state.MemoryFreq = frequencyFileName(875.5 + i, ".dat");
        sum += valueOf(state.PowerText) + toWhole(reading) + floorWhole(reading) + valueOf("1e5");
    }
    EXPECT_EQ(CountedHeap::now().taken, before);
    EXPECT_NE(sum, 0);
    EXPECT_EQ(state.RadioName, "184.6");
}

TEST(Numbers, TheLongestTextsStayOffTheHeapToo) {
    const long before = CountedHeap::now().taken;
    const SmallText longest = shortText(-1.23456789012345e-14);
    const SmallText largest = shortText(-1.7976931348623157e308);
    const double parsed = valueOf("0.3000000000000000444089209850062616169452667236328125000001");
    EXPECT_EQ(CountedHeap::now().taken, before);
    EXPECT_EQ(longest, "-0.0000000000000123456789012345");
    EXPECT_EQ(largest, "-1.79769313486232E+308");
    EXPECT_EQ(parsed, 0.3000000000000000444);
}

}  // namespace
}  // namespace hmonitor
