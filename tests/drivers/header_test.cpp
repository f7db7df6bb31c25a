// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <type_traits>

#include "drivers/hm16.h"
#include "drivers/hm16_report.h"

extern "C" int32_t countSeenByC(void);

namespace {

// The table's types are those of the declared functions.
static_assert(std::is_same_v<decltype(&HM_Init), HM16_Plain>);
static_assert(std::is_same_v<decltype(&HM_Terminate), HM16_Plain>);
static_assert(std::is_same_v<decltype(&HM_DemoMode), HM16_Plain>);
static_assert(std::is_same_v<decltype(&HM_Directorio), HM16_Folder>);
static_assert(std::is_same_v<decltype(&HM_Normal), HM16_Tune>);
static_assert(std::is_same_v<decltype(&HM_Parar), HM16_Plain>);
static_assert(std::is_same_v<decltype(&HM_Reset), HM16_Whole>);
static_assert(std::is_same_v<decltype(&HM_Data), HM16_Readings>);
static_assert(std::is_same_v<decltype(&HM_DataRDS), HM16_TwoFloats>);
static_assert(std::is_same_v<decltype(&HM_Super), HM16_LevelAt>);
static_assert(std::is_same_v<decltype(&HM_StartEspectro), HM16_Sweep>);
static_assert(std::is_same_v<decltype(&HM_TramaEspectroRecibida), HM16_Plain>);
static_assert(std::is_same_v<decltype(&HM_GetEspectro), HM16_LevelAt>);
static_assert(std::is_same_v<decltype(&HM_setClient), HM16_Whole>);
static_assert(std::is_same_v<decltype(&HM_RespFrecuencia), HM16_Response>);
static_assert(std::is_same_v<decltype(&HM_setSintoMode), HM16_Whole>);
static_assert(std::is_same_v<decltype(&HM_getSintoMode), HM16_WholeOut>);
static_assert(std::is_same_v<decltype(&HM_getHardwareVersion), HM16_FloatOut>);
static_assert(std::is_same_v<decltype(&HM_getDriverVersion), HM16_FloatOut>);
static_assert(std::is_same_v<decltype(&HM16_ReceiverReport), HM16_ReportFunction>);

TEST(Header, CAndCppSeeNineteenFunctions) {
    EXPECT_EQ(countSeenByC(), 19);
    EXPECT_EQ(sizeof(HM16_Functions) / sizeof(HM16_Plain), 19u);
}

}  // namespace
