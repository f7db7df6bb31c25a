// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/scripted_driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ScriptedDriver, NotesAllSixteenCallsWithWhatGoesIn) {
    ScriptedDriver driver;
    driver.noteData = true;
    driver.noteFrames = true;
    Readings readings;
    ResponsePairs pairs;
    float a = 2.5f;
    float b = 0.75f;
    driver.HM_Init();
    driver.HM_DemoMode();
    driver.HM_Normal(1025.5f, 1, 0, 1, 0);
    driver.HM_Parar();
    driver.HM_Reset(3);
    driver.HM_Data(readings);
    driver.HM_DataRDS(a, b);
    driver.HM_Super(981.5f, a);
    driver.HM_StartEspectro(875, 1080, 100);
    driver.HM_TramaEspectroRecibida();
    driver.HM_GetEspectro(998.5f, a);
    driver.HM_RespFrecuencia(pairs);
    driver.HM_setSintoMode(0);
    driver.HM_getHardwareVersion(a);
    a = 1.75f;
    driver.HM_getDriverVersion(a);
    driver.HM_Terminate();
    EXPECT_THAT(driver.calls,
                ElementsAre("HM_Init", "HM_DemoMode", "HM_Normal(1025.5, 1, 0, 1, 0)", "HM_Parar",
                            "HM_Reset(3)", "HM_Data", "HM_DataRDS(0.75)", "HM_Super(981.5)",
                            "HM_StartEspectro(875, 1080, 100)", "HM_TramaEspectroRecibida",
                            "HM_GetEspectro(998.5)", "HM_RespFrecuencia", "HM_setSintoMode(0)",
                            "HM_getHardwareVersion", "HM_getDriverVersion(1.75)", "HM_Terminate"));
}

TEST(ScriptedDriver, CountsWhatComesTooOftenAndNotesItOnlyWhenAsked) {
    ScriptedDriver driver;
    Readings readings;
    float a = 0;
    float b = 0;
    driver.HM_Data(readings);
    driver.HM_DataRDS(a, b);
    for (int i = 0; i < 2; ++i) driver.HM_TramaEspectroRecibida();
    for (int i = 0; i < 3; ++i) driver.HM_GetEspectro(875, a);
    EXPECT_THAT(driver.calls, IsEmpty());
    EXPECT_EQ(driver.dataCalls, 1);
    EXPECT_EQ(driver.rdsCalls, 1);
    EXPECT_EQ(driver.frameCalls, 2);
    EXPECT_EQ(driver.spectrumCalls, 3);
}

TEST(ScriptedDriver, TakesLevelsByFrequencyAndElsewhereInTurn) {
    ScriptedDriver driver;
    driver.superSpectrum = {{981, 71}, {981.5f, 44}};
    driver.superLevels = {50};
    driver.superLevel = 31;
    driver.spectrum = {{981, 60}};
    const auto single = [&](float frequency) {
        float level = 0;
        driver.HM_Super(frequency, level);
        return level;
    };
    EXPECT_EQ(single(981.5f), 44);
    EXPECT_EQ(single(970), 50);
    EXPECT_EQ(single(981), 71);
    EXPECT_EQ(single(970), 31);
    float level = 0;
    driver.HM_GetEspectro(981, level);
    EXPECT_EQ(level, 60);
    driver.HM_GetEspectro(982, level);
    EXPECT_EQ(level, driver.floorLevel);
}

}  // namespace
}  // namespace hmonitor::test
