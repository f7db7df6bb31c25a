// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/driver_door.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "display/headless/headless_desktop.h"
#include "tests/support/scripted_driver.h"

namespace hmonitor {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

class Door : public testing::Test {
 protected:
    float readBack(int output, float said) {
        unit.readings.output(output) = said;
        return door.HM_Data().output(output);
    }

    test::ScriptedDriver unit;
    display::HeadlessDesktop desktop;
    DriverDoor door{unit, desktop};
};

TEST_F(Door, DropsWhatIsNoReadingAndTheLastGoodValueStands) {
    for (int output = 1; output <= 16; ++output) {
        const float good = 3.5f + static_cast<float>(output);
        EXPECT_EQ(readBack(output, good), good) << output;
        for (const float bad : {kNan, -kNan, kInfinity, -kInfinity, 1e38f, -1e38f}) {
            EXPECT_EQ(readBack(output, bad), good) << output << " said " << bad;
        }
        EXPECT_EQ(readBack(output, -good), -good) << output;
    }
}

TEST_F(Door, GivesNothingWhereNoGoodValueCameYet) {
    for (int output = 1; output <= 16; ++output) EXPECT_EQ(readBack(output, kNan), 0.f) << output;
}

TEST_F(Door, OneBadReadingLeavesTheOthersFresh) {
    readBack(7, 10);
    unit.readings.output(7) = kNan;
    unit.readings.output(8) = -61;
    const Readings readings = door.HM_Data();
    EXPECT_EQ(readings.output(7), 10.f);
    EXPECT_EQ(readings.output(8), -61.f);
}

TEST_F(Door, EachOutputHasItsLimitOnEitherSide) {
    for (int output = 1; output <= 16; ++output) {
        const float limit = output == 1 ? 1000.f : output == 6 ? 20000.f : 10000.f;
        EXPECT_EQ(DriverDoor::limitOf(output), limit) << output;
        for (const float sign : {1.f, -1.f}) {
            const float beyond = sign * std::nextafter(limit, kInfinity);
            EXPECT_EQ(readBack(output, 7), 7.f);
            EXPECT_EQ(readBack(output, beyond), 7.f) << output;
            EXPECT_EQ(readBack(output, sign * limit), sign * limit) << output;
        }
    }
}

TEST_F(Door, LetsTheEndMarkOfAResponseRunPass) {
    EXPECT_EQ(readBack(6, 11583), 11583.f);
    EXPECT_EQ(readBack(7, 18), 18.f);
}

TEST_F(Door, RdsFiguresStandWhereTheUnitGivesNone) {
    float error = 0;
    float level = 0;
    const auto ask = [&](float saidError, float saidLevel) {
        unit.rdsError = saidError;
        unit.rdsLevel = saidLevel;
        door.HM_DataRDS(error, level);
        return std::pair(error, level);
    };
    EXPECT_EQ(ask(-1.5f, 4.5f), std::pair(-1.5f, 4.5f));
    EXPECT_EQ(ask(kNan, kInfinity), std::pair(-1.5f, 4.5f));
    EXPECT_EQ(ask(1e38f, -1e38f), std::pair(-1.5f, 4.5f));
    EXPECT_EQ(ask(10000, -10000), std::pair(10000.f, -10000.f));
    EXPECT_EQ(ask(10001, -10001), std::pair(10000.f, -10000.f));
    EXPECT_EQ(ask(0, 0), std::pair(0.f, 0.f));
}

TEST_F(Door, ALevelThatIsNoneLeavesTheCallersOwn) {
    for (const float bad : {kNan, kInfinity, -kInfinity, 1e38f, 10001.f, -10001.f}) {
        float point = 41;
        unit.superLevel = bad;
        door.HM_Super(981, point);
        EXPECT_EQ(point, 41.f) << bad;
        float frame = 42;
        unit.spectrum[981] = bad;
        door.HM_GetEspectro(981, frame);
        EXPECT_EQ(frame, 42.f) << bad;
    }
    float level = 0;
    unit.superLevel = 57;
    door.HM_Super(981, level);
    EXPECT_EQ(level, 57.f);
    unit.spectrum[981] = 58;
    door.HM_GetEspectro(981, level);
    EXPECT_EQ(level, 58.f);
}

TEST_F(Door, EventsPassOnceAfterEachPointAlone) {
    std::vector<int> passesSeen;
    unit.duringSuper = [&](float) { passesSeen.push_back(desktop.passes); };
    float level = 0;
    door.HM_Super(873, level);
    EXPECT_EQ(desktop.passes, 1);
    door.HM_Super(874, level);
    EXPECT_EQ(desktop.passes, 2);
    EXPECT_EQ(passesSeen, (std::vector{0, 1}));

    float error = 0;
    door.HM_Data();
    door.HM_DataRDS(error, level);
    door.HM_GetEspectro(873, level);
    door.HM_TramaEspectroRecibida();
    door.HM_Normal(873, 0, 0, 0, 0);
    door.HM_Parar();
    EXPECT_EQ(desktop.passes, 2);
}

TEST_F(Door, GivesTheUnitsOwnAnswersBack) {
    float level = 0;
    unit.superResults = {7, -3};
    EXPECT_EQ(door.HM_Super(873, level), 7);
    EXPECT_EQ(door.HM_Super(873, level), -3);
    unit.frames = {2};
    EXPECT_EQ(door.HM_TramaEspectroRecibida(), 2);
}

TEST_F(Door, AVersionThatIsNoneCountsAsNoUnit) {
    float version = 5;
    unit.hardwareVersion = 1.8f;
    door.HM_getHardwareVersion(version);
    EXPECT_EQ(version, 1.8f);
    for (const float bad : {kNan, kInfinity, 1e38f, 10001.f}) {
        unit.hardwareVersion = bad;
        door.HM_getHardwareVersion(version);
        EXPECT_EQ(version, 0.f) << bad;
    }
}

TEST_F(Door, ADriverVersionThatIsNoneLeavesTheCallersOwn) {
    float version = 1.8f;
    unit.driverVersion = kNan;
    door.HM_getDriverVersion(version);
    EXPECT_EQ(version, 1.8f);
    unit.driverVersion = 4.2f;
    door.HM_getDriverVersion(version);
    EXPECT_EQ(version, 4.2f);
}

}  // namespace
}  // namespace hmonitor
