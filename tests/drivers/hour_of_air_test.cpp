// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/hour_of_air.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <sstream>

#include "drivers/simulated/figures.h"
#include "drivers/unit/day_log.h"
#include "tests/support/temp_folder.h"

namespace hm16::simulated {
namespace {

using hmonitor::test::TempFolder;

constexpr std::uint64_t kWeekSeed = 16;
constexpr double kWeekFrequency = 985;

const Station& station() {
    return *stationAt(kWeekFrequency);
}

LocalTime at(int day, int hour, int second = 0) {
    return {2026, 3, day, hour, second / 60, second % 60};
}

// The nine fields of each hour of a week, as the unit writes them at a pace of a thousand: it reads
// the station every ten seconds of its time.
std::vector<std::vector<double>> week() {
    const TempFolder folder;
    DayLog log(folder.path());
    Tuning tuning;
    tuning.frequency = kWeekFrequency;
    log.tune(kWeekFrequency, at(1, 0));
    double time = 0;
    for (int hour = 0; hour < 7 * 24; ++hour) {
        for (int second = 0; second < 3600; second += 10, time += 10) {
            const LocalTime now = at(1 + hour / 24, hour % 24, second);
            Readings readings = figuresAt(kWeekSeed, tuning, time, 1);
            liveThrough(readings, kWeekSeed, station(), now);
            log.add(readings, hourOfAir(kWeekSeed, station(), now).power, 10, now);
        }
    }
    log.close();
    std::vector<std::vector<double>> hours;
    for (int day = 1; day <= 7; ++day) {
        std::istringstream lines(folder.read("2026030" + std::to_string(day) + ".log"));
        for (std::string line; std::getline(lines, line);) {
            std::istringstream fields(line);
            std::vector<double> values(10);
            for (double& value : values) fields >> value;
            EXPECT_TRUE(fields) << line;
            hours.push_back(values);
        }
    }
    return hours;
}

TEST(HourOfAir, AWeekOfLogsIsWholeAndLiesInTheShownRanges) {
    const auto hours = week();
    ASSERT_EQ(hours.size(), 7u * 24);
    for (std::size_t i = 0; i < hours.size(); ++i) {
        const auto& hour = hours[i];
        EXPECT_EQ(hour[0], static_cast<double>(i % 24));
        EXPECT_GT(hour[1], 70);
        EXPECT_LT(hour[1], 115);
        for (const int level : {2, 3}) {
            EXPECT_GT(hour[static_cast<std::size_t>(level)], -10);
            EXPECT_LT(hour[static_cast<std::size_t>(level)], 5);
        }
        EXPECT_NEAR(hour[4], 45, 6);
        EXPECT_NEAR(hour[5], 1, 0.1);
        EXPECT_NEAR(hour[6], 60, 0.2);
        EXPECT_GE(hour[7], 0);
        EXPECT_LT(hour[7], 120);
        EXPECT_LE(hour[8], 10);
        EXPECT_LE(hour[9], 10);
    }
}

TEST(HourOfAir, NightsAreQuieterThanDays) {
    double night = 0, day = 0;
    for (const auto& hour : week()) {
        if (hour[0] >= 1 && hour[0] <= 4) night += hour[1] / 28;
        if (hour[0] >= 9 && hour[0] <= 12) day += hour[1] / 28;
    }
    EXPECT_GT(day - night, 10);
}

TEST(HourOfAir, MishapsComeNowAndThen) {
    int silent = 0, inverted = 0, calm = 0;
    for (const auto& hour : week()) {
        silent += hour[8] > 0;
        inverted += hour[9] > 0;
        calm += hour[8] == 0 && hour[9] == 0;
    }
    EXPECT_GT(silent, 20);
    EXPECT_LT(silent, 80);
    EXPECT_GT(inverted, 3);
    EXPECT_LT(inverted, 40);
    EXPECT_GT(calm, 80);
}

TEST(HourOfAir, EachMishapIsHeardAsOne) {
    const auto hours = week();
    for (std::size_t i = 0; i < hours.size(); ++i) {
        const HourOfAir air = hourOfAir(kWeekSeed, station(),
                                        at(1 + static_cast<int>(i) / 24, static_cast<int>(i) % 24));
        EXPECT_EQ(hours[i][8], air.silences) << i;
        EXPECT_EQ(hours[i][9], air.inversions) << i;
    }
}

TEST(HourOfAir, NoDayIsLikeAnother) {
    std::set<std::vector<double>> days;
    for (int day = 1; day <= 7; ++day) {
        std::vector<double> drives;
        for (int hour = 0; hour < 24; ++hour)
            drives.push_back(hourOfAir(kWeekSeed, station(), at(day, hour)).drive);
        days.insert(drives);
    }
    EXPECT_EQ(days.size(), 7u);
}

TEST(HourOfAir, TheSameSeedLivesTheSameDaysAgain) {
    EXPECT_EQ(hourOfAir(kWeekSeed, station(), at(3, 9)).drive,
              hourOfAir(kWeekSeed, station(), at(3, 9)).drive);
    EXPECT_NE(hourOfAir(kWeekSeed, station(), at(3, 9)).drive,
              hourOfAir(7, station(), at(3, 9)).drive);
}

TEST(HourOfAir, LeavesTheFieldInWholeDb) {
    Tuning tuning;
    tuning.frequency = kWeekFrequency;
    Readings readings = figuresAt(kWeekSeed, tuning, 5, 1);
    const float field = readings.field;
    liveThrough(readings, kWeekSeed, station(), at(1, 3));
    EXPECT_EQ(readings.field, field);
}

}  // namespace
}  // namespace hm16::simulated
