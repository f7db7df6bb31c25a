// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/driver_door.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <span>
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
    float readBack(figures::Output output, float said) {
        unit.readings.*output = said;
        return door.HM_Data().*output;
    }
    /// All that HM_Data gives.
    static constexpr std::span kOfData{figures::kOutputs.data(), figures::kDataOutputs};

    test::ScriptedDriver unit;
    display::HeadlessDesktop desktop;
    DriverDoor door{unit, desktop};
};

TEST_F(Door, DropsWhatIsNoReadingAndTheLastGoodValueStands) {
    float good = 3.5f;
    for (const figures::Output output : kOfData) {
        ++good;
        EXPECT_EQ(readBack(output, good), good);
        for (const float bad : {kNan, -kNan, kInfinity, -kInfinity, 1e38f, -1e38f}) {
            EXPECT_EQ(readBack(output, bad), good) << bad;
        }
        EXPECT_EQ(readBack(output, -good), -good);
    }
}

TEST_F(Door, GivesNothingWhereNoGoodValueCameYet) {
    for (const figures::Output output : kOfData) EXPECT_EQ(readBack(output, kNan), 0.f);
}

TEST_F(Door, OneBadReadingLeavesTheOthersFresh) {
    readBack(&Readings::pilotLevel, 10);
    unit.readings.pilotLevel = kNan;
    unit.readings.noiseLeft = -61;
    const Readings readings = door.HM_Data();
    EXPECT_EQ(readings.pilotLevel, 10.f);
    EXPECT_EQ(readings.noiseLeft, -61.f);
}

TEST_F(Door, EachOutputHasItsLimitOnEitherSide) {
    for (const figures::Output output : kOfData) {
        const float limit = output == &Readings::peakModulation ? 1000.f
                            : output == &Readings::pilotError   ? 20000.f
                                                                : 10000.f;
        EXPECT_EQ(DriverDoor::limitOf(output), limit);
        for (const float sign : {1.f, -1.f}) {
            const float beyond = sign * std::nextafter(limit, kInfinity);
            EXPECT_EQ(readBack(output, 7), 7.f);
            EXPECT_EQ(readBack(output, beyond), 7.f) << beyond;
            EXPECT_EQ(readBack(output, sign * limit), sign * limit);
        }
    }
}

TEST_F(Door, LetsTheEndMarkOfAResponseRunPass) {
    EXPECT_EQ(readBack(&Readings::pilotError, 11583), 11583.f);
    EXPECT_EQ(readBack(&Readings::pilotLevel, 18), 18.f);
}

TEST_F(Door, RdsFiguresStandWhereTheUnitGivesNone) {
    float error = 0;
    float level = 0;
    const auto ask = [&](float saidError, float saidLevel) {
        unit.readings.rdsError = saidError;
        unit.readings.rdsLevel = saidLevel;
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
    for (const float bad :
         {kNan, kInfinity, -kInfinity, 1e38f, 1000.5f, 1001.f, -0.1f, -1.8f, -1000.f}) {
        unit.hardwareVersion = bad;
        door.HM_getHardwareVersion(version);
        EXPECT_EQ(version, 0.f) << bad;
    }
    unit.hardwareVersion = 1000;
    door.HM_getHardwareVersion(version);
    EXPECT_EQ(version, 1000.f);
}

TEST_F(Door, TunesOnlyWhereTheBarReachesAndWithSwitchesThatAreOnOrOff) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    const auto tuned = [&](float frequency, std::int32_t average, std::int32_t audioMode,
                           std::int32_t response, std::int32_t logFiles) {
        unit.calls.clear();
        door.HM_Normal(frequency, average, audioMode, response, logFiles);
        return unit.calls.at(0);
    };
    EXPECT_EQ(tuned(875, 0, 1, 0, 1), "HM_Normal(875, 0, 1, 0, 1)");
    EXPECT_EQ(tuned(1081.5f, 1, 0, 1, 0), "HM_Normal(1081.5, 1, 0, 1, 0)");
    EXPECT_EQ(tuned(874.5f, 2, 3, 7, 42), "HM_Normal(875, 1, 1, 1, 1)");
    EXPECT_EQ(tuned(1082, -1, -2, -3, -4), "HM_Normal(1081.5, 0, 0, 0, 0)");
    EXPECT_EQ(tuned(-1e30f, kMost, kLeast, kMost, kLeast), "HM_Normal(875, 1, 0, 1, 0)");
    EXPECT_EQ(tuned(kInfinity, kLeast, kMost, kLeast, kMost), "HM_Normal(1081.5, 0, 1, 0, 1)");
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
