// SPDX-License-Identifier: GPL-3.0-or-later
// The day's logs around the edges of the year: both changes of the clock, at midnight and by half
// an hour too, the leap day, and the new year. Each hour that the local clock shows has one line
// with everything that was measured in it.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include "drivers/unit/day_log.h"
#include "tests/history/zone.h"
#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

// The rules themselves, so that the machine needs no list of zones.
constexpr const char* kSpain = "CET-1CEST,M3.5.0,M10.5.0/3";
// The rules of 2018, with a change at midnight.
constexpr const char* kBrazilThen = "<-03>3<-02>,M11.1.0/0,M2.3.0/0";
constexpr const char* kLordHowe = "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0";

/// The minutes in each hour's line of a day.
std::map<int, double> minutesOf(const TempFolder& folder, const std::string& day) {
    std::map<int, double> minutes;
    std::istringstream log(folder.read(day + ".log"));
    for (std::string line; std::getline(log, line);) {
        std::istringstream fields(line);
        double hour = -1, field = 0;
        fields >> hour;
        for (int i = 1; i <= 6; ++i) fields >> field;
        EXPECT_FALSE(minutes.contains(static_cast<int>(hour))) << day << " " << line;
        minutes[static_cast<int>(hour)] = field;
    }
    return minutes;
}

struct Edge {
    const char* name;
    const char* zone;
    LocalTime from;             ///< the midnight before the three days
    std::map<int, double> odd;  ///< hours of the second day of other than 60 minutes; 0: no line
    std::array<const char*, 3> days;
};

std::ostream& operator<<(std::ostream& out, const Edge& edge) {
    return out << edge.name;
}

class YearEdges : public testing::TestWithParam<Edge> {};

TEST_P(YearEdges, EachHourHasALineWithAllThatWasMeasured) {
    const Edge& edge = GetParam();
    const history::test::Zone zone(edge.zone);
    const TempFolder folder;
    Readings readings;
    readings.levelFirst = readings.levelSecond = -6;
    const auto begin = momentOf(edge.from);
    const auto end = momentOf({edge.from.year, edge.from.month, edge.from.day + 3, 0, 0, 0});
    {
        DayLog log(folder.path());
        log.tune(985, localTimeAt(begin));
        constexpr std::chrono::seconds kStep{10};
        for (auto now = begin + kStep; now <= end; now += kStep) {
            // A step counts for the hour in which it began.
            const auto fault = log.add(readings, 1, kStep.count(), localTimeAt(now - kStep));
            ASSERT_EQ(fault, std::nullopt);
        }
        ASSERT_EQ(log.close(), std::nullopt);
    }
    EXPECT_EQ(folder.names().size(), 3u);
    for (std::size_t day = 0; day < edge.days.size(); ++day) {
        std::map<int, double> expected;
        for (int hour = 0; hour < 24; ++hour) expected[hour] = 60;
        if (day == 1) {
            for (const auto& [hour, minutes] : edge.odd) expected[hour] = minutes;
            std::erase_if(expected, [](const auto& hour) { return hour.second == 0; });
        }
        EXPECT_EQ(minutesOf(folder, edge.days[day]), expected) << edge.days[day];
    }
}

INSTANTIATE_TEST_SUITE_P(
    Each, YearEdges,
    testing::Values(
        Edge{"Spring", kSpain, {2026, 3, 28}, {{2, 0}}, {"20260328", "20260329", "20260330"}},
        Edge{"Autumn", kSpain, {2026, 10, 24}, {{2, 120}}, {"20261024", "20261025", "20261026"}},

        Edge{"SpringAtMidnight",
             kBrazilThen,
             {2018, 11, 3},
             {{0, 0}},
             {"20181103", "20181104", "20181105"}},
        Edge{"AutumnAtMidnight",
             kBrazilThen,
             {2018, 2, 16},
             {{23, 120}},
             {"20180216", "20180217", "20180218"}},
        Edge{"SpringByHalfAnHour",
             kLordHowe,
             {2026, 10, 3},
             {{2, 30}},
             {"20261003", "20261004", "20261005"}},
        Edge{"AutumnByHalfAnHour",
             kLordHowe,
             {2026, 4, 4},
             {{1, 90}},
             {"20260404", "20260405", "20260406"}},
        Edge{"LeapDay", kSpain, {2028, 2, 28}, {}, {"20280228", "20280229", "20280301"}},
        Edge{"NoLeapDay", kSpain, {2027, 2, 27}, {}, {"20270227", "20270228", "20270301"}},
        Edge{"NewYear", "<-03>3", {2026, 12, 30}, {}, {"20261230", "20261231", "20270101"}}),
    [](const auto& edge) { return std::string(edge.param.name); });

}  // namespace
}  // namespace hm16
