// SPDX-License-Identifier: GPL-3.0-or-later
// The time of a stored result is that of the clock on the wall when it was measured.
#include <gtest/gtest.h>

#include <filesystem>

#include "program/station_line.h"
#include "tests/history/zone.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

TEST(ResultTimes, OfSummerAndOfWinterAreWhatTheClockReadThen) {
    using history::test::utc;
    const history::test::Zone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    RackBench bench;
    bench.start();
    bench.write("0981.res", "0\r\n");
    const auto headOfFileFrom = [&](std::int64_t t) {
        const std::chrono::sys_seconds at{std::chrono::seconds(t)};
        std::filesystem::last_write_time(bench.files.folder() / "0981.res",
                                         std::chrono::file_clock::from_sys(at));
        return stationHead(bench.program, writtenAt(bench.program, "0981.res"));
    };
    EXPECT_EQ(headOfFileFrom(utc(2025, 12, 31, 23, 5)), "RADIO UNO 98.1 MHz · 2026-01-01 00:05");
    EXPECT_EQ(headOfFileFrom(utc(2025, 6, 30, 23, 5)), "RADIO UNO 98.1 MHz · 2025-07-01 01:05");
}

}  // namespace hmonitor::test
