// SPDX-License-Identifier: GPL-3.0-or-later
// What a tuning does after the call that tunes the unit, in its order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/panels/audio/shown_digit.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

class TuningOrder : public testing::Test {
 protected:
    void SetUp() override {
        bench.start();
        bench.takeCalls();
        bench.driver.noteData = true;
    }
    RackBench bench;
};

TEST_F(TuningOrder, ReadsTheUnitForFieldPilotErrorPilotLevelAndMultipath) {
    bench.formB.cambfre();
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(981, 0, 0, 0, 0)", "HM_Data",
                                               "HM_Data", "HM_Data", "HM_Data"));
}

TEST_F(TuningOrder, BringsFieldAndPilotUpToDateWithoutWaitingForATimer) {
    constexpr display::Colour kGreen{0x00ff00};
    constexpr display::Colour kDarkPicture{0x1d1c20};
    bench.readings.field = 52;
    bench.readings.pilotError = 1.26f;
    bench.readings.pilotLevel = 9.5f;
    const int samples = bench.form1.meter.MultipathCount;
    bench.formB.cambfre();
    EXPECT_EQ(bench.form1.FieldTenths, 520);
    EXPECT_EQ(shownFigure(bench.formC.error19[1], kGreen, kDarkPicture), "1");
    EXPECT_EQ(shownFigure(bench.formC.error19[2], kGreen, kDarkPicture), "2");
    EXPECT_EQ(shownFigure(bench.formC.pilot[1], kGreen, kDarkPicture), "9");
    EXPECT_EQ(bench.form1.meter.MultipathCount, samples + 1);
    EXPECT_EQ(bench.formC.Label_PilotLevel.caption, "") << "labels wait for their tick";
}

TEST_F(TuningOrder, AReturnToTheSameFrequencyIsNoHandOnTheBar) {
    bench.formB.MemoryState = "";
    bench.formB.cambfre();
    EXPECT_EQ(bench.formB.OffMemory, 0);
    EXPECT_EQ(bench.formB.MemoryState, "");
    EXPECT_EQ(bench.formB.Label_RadioName.caption, "RADIO UNO");
}

TEST(FirstSelection, IsTakenFromTheStoredPresetOnce) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"3", "0", "0", "1", "0", "0", "0", "0"}));
    bench.start();
    EXPECT_EQ(bench.state.FirstSelect, "00");
    bench.state.MemoryNumber = "16";
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.formB.MemoryNumber, 16) << "from 3 to the next that is stored";
}

TEST(FirstSelection, IsLeftAloneByThePreviousKey) {
    RackBench bench;
    bench.start();
    bench.state.FirstSelect = "1";
    bench.state.MemoryNumber = "3";
    bench.click(bench.formB.SSCommand2);
    EXPECT_EQ(bench.state.FirstSelect, "1");
    EXPECT_EQ(bench.formB.MemoryNumber, 16) << "from 1 backwards";
}

}  // namespace
}  // namespace hmonitor::test
