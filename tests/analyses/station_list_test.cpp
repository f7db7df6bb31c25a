// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/station_list.h"

#include <gmock/gmock.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> rowsOf(const StationList& list) {
    std::vector<std::string> rows;
    for (const HeardStation& station : list.stations())
        rows.push_back(StationList::rowText(station));
    return rows;
}

class Stations : public testing::Test {
 protected:
    Stations() {
        list.name(MemoryBlock(memoryBlock(
            {{3, "UNO", "981"}, {5, "UNO BIS", "981"}, {7, "MEDIO", "10255"}, {9, "", "1000"}})));
        list.add(9810, 67);
        list.add(8750, 72);
        list.add(10255, 67);
        list.add(10000, 9);
    }
    StationList list;
};

TEST_F(Stations, StandInColumnsWithTheNamesOfTheirPresets) {
    list.sort(StationList::Order::Frequency);
    EXPECT_THAT(rowsOf(list), ElementsAre(" 87.5    72", " 98.1    67  UNO", "100.0     9",
                                          "102.55   67  MEDIO"));
}

TEST_F(Stations, TheStrongestIsFirstAndOfEqualOnesTheLowerFrequency) {
    list.sort(StationList::Order::Level);
    EXPECT_THAT(rowsOf(list), ElementsAre(" 87.5    72", " 98.1    67  UNO", "102.55   67  MEDIO",
                                          "100.0     9"));
}

TEST_F(Stations, AreTheFirstPresetOfTheirFrequency) {
    EXPECT_EQ(list.stations()[0].memory, 3);
    EXPECT_EQ(list.stations()[1].memory, 0);
    EXPECT_EQ(list.stations()[2].memory, 7);
    EXPECT_EQ(list.stations()[3].memory, 9) << "a preset without a name is one all the same";
}

TEST_F(Stations, AreFoundByTheirChannel) {
    EXPECT_EQ(list.rowOf(10255), 2);
    EXPECT_EQ(list.rowOf(10250), -1);
    list.clear();
    EXPECT_EQ(list.rowOf(10255), -1);
}

TEST(Tunable, AreTheChannelsThatTheBarOfTheRackReaches) {
    EXPECT_FALSE(isTunable(8740));
    EXPECT_TRUE(isTunable(8750));
    EXPECT_TRUE(isTunable(8775));
    EXPECT_FALSE(isTunable(8777));
    EXPECT_TRUE(isTunable(10800));
    EXPECT_FALSE(isTunable(10805));
    EXPECT_FALSE(isTunable(0));
}

}  // namespace
}  // namespace hmonitor::test
