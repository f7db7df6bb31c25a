// SPDX-License-Identifier: GPL-3.0-or-later
// Files of the unit that exist but cannot be read: reported, left as they are, and used again once
// they can be read.
#include <gtest/gtest.h>

#include "drivers/unit/day_log.h"
#include "drivers/unit/station_results.h"
#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

Readings onAir() {
    Readings r;
    r.peakModulation = 90;
    r.levelFirst = r.levelSecond = -6;
    r.stereoPhase = 45;
    r.noiseLeft = -66;
    return r;
}

TEST(UnreadableFile, OfADaysLogIsToldAndNotTakenForAnEmptyOne) {
    const TempFolder folder;
    const std::string day = "1 90 -6 -6 45 1 60 0 0 0 \r\n";
    const auto file = folder.path() / "20260304.log";
    folder.write("20260304.log", day);
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0777));
    // Writable for others, but not readable.
    std::filesystem::permissions(file, std::filesystem::perms(0222));
    const Readings readings = onAir();
    DayLog log(folder.path());
    log.tune(985, {2026, 3, 4, 23, 50, 0});
    {
        const hmonitor::test::AsNobody nobody;
        log.add(readings, 1, 300, {2026, 3, 4, 23, 55, 0});
        EXPECT_EQ(log.add(readings, 1, 300, {2026, 3, 5, 0, 5, 0}),
                  file.string() + " cannot be read: Permission denied.");
        EXPECT_NE(log.add(readings, 1, 3600, {2026, 3, 5, 1, 0, 0}), std::nullopt);
        EXPECT_TRUE(folder.has("20260305.log")) << "another day's log is written all the same";
    }
    EXPECT_EQ(folder.read("20260304.log"), day);
    std::filesystem::permissions(file, std::filesystem::perms(0666));
    EXPECT_EQ(log.close(), std::nullopt);
    EXPECT_EQ(folder.read("20260304.log"), day + "23 90 -6 -6 45 1 5 0 0 0 \r\n");
}

TEST(UnreadableFile, OfAStationsResultsIsToldKeptAndJoinedAsSoonAsItCan) {
    const TempFolder folder;
    const LocalTime now{2026, 3, 4, 9, 5, 7};
    StationResults earlier(887);
    Readings best = onAir();
    best.noiseLeft = -80;
    best.peakModulation = 140;
    earlier.add(best, 1000);
    ASSERT_EQ(earlier.write(folder.path(), now), std::nullopt);
    const auto file = folder.path() / "0887.dat";
    const std::string bytes = folder.read("0887.dat");
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0777));
    std::filesystem::permissions(file, std::filesystem::perms(0222));
    StationResults results(887);
    {
        const hmonitor::test::AsNobody nobody;
        results = StationResults::read(folder.path(), 887);
        results.add(onAir(), 20);
        EXPECT_EQ(results.write(folder.path(), now),
                  file.string() + " cannot be read: Permission denied.");
    }
    EXPECT_EQ(folder.read("0887.dat"), bytes);
    std::filesystem::permissions(file, std::filesystem::perms(0666));
    EXPECT_EQ(results.write(folder.path(), now), std::nullopt);
    const StationResults joined = StationResults::read(folder.path(), 887);
    EXPECT_EQ(joined.seconds(), 1020);
    EXPECT_EQ(joined.noiseLeft(), -80.0f);
    EXPECT_EQ(joined.highestModulation(), 140.0f);
    EXPECT_EQ(joined.last().peakModulation, 90.0f);
}

}  // namespace
}  // namespace hm16
