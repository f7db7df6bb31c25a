// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/station_state.h"

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "program/program_words.h"

namespace hmonitor {
namespace {

TEST(StationStateTest, TextStartsEmptyAndNumbersStartAtZero) {
    const StationState state;
    EXPECT_TRUE(state.FirstSelect.empty());
    EXPECT_TRUE(state.DemoMode.empty());
    EXPECT_TRUE(state.RadioName.empty());
    EXPECT_EQ(state.DemoPeak, 0);
    EXPECT_EQ(state.ModBar, 0);
}

TEST(StationStateTest, AnEmptyMemberCountsAsZero) {
    EXPECT_EQ(valueOf(StationState{}.ModSettle), 0);
}

TEST(StationStateTest, ACorrectionBecomesTenthsOfADecibel) {
    StationState state;
    state.DbCorrection10 = shortText(valueOf("-3.5") * 10);
    EXPECT_EQ(state.DbCorrection10, "-35");
    state.DbCorrection10 = shortText(valueOf("2") * 10);
    EXPECT_EQ(state.DbCorrection10, "20");
}

TEST(StationStateTest, AStationNameOfNineLettersFitsWhateverTheyAre) {
    StationState state;
    state.StationName = "\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac\u20ac";
    EXPECT_EQ(state.StationName.size(), 27u);
}

TEST(ProgramWordsTest, TheStationInUseIsTheFirst) {
    EXPECT_EQ(ProgramWords{}.gStation, 0);
    EXPECT_EQ(ProgramWords{}.gHardwareVersion, 0);
}

}  // namespace
}  // namespace hmonitor
