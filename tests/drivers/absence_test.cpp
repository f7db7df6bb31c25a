// SPDX-License-Identifier: GPL-3.0-or-later
// What a library says of a unit that does not answer.
#include "drivers/unit/absence.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

#include "drivers/hm16_more.h"
#include "tests/drivers/simulated_library.h"

namespace {

using testing::HasSubstr;

const HM16_AbsenceV1& absenceOf(const LoadedLibrary& unit) {
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(unit.library().extra(HM16_EXTENSION_NAME));
    return *static_cast<const HM16_AbsenceV1*>(extension(HM16_ABSENCE));
}

HM16_AbsenceInfo toldBy(const HM16_AbsenceV1& absence) {
    HM16_AbsenceInfo info{};
    info.size = sizeof info;
    EXPECT_EQ(absence.why(&info), 0);
    EXPECT_EQ(info.size, sizeof info);
    return info;
}

TEST(Absence, AWrongSettingIsTheCause) {
    const SimulatedLibrary unit("pace = quick\n");
    testing::internal::CaptureStderr();
    unit->init();
    testing::internal::GetCapturedStderr();
    const HM16_AbsenceInfo info = toldBy(absenceOf(unit));
    EXPECT_EQ(info.cause, HM16_BAD_SETTING);
    EXPECT_STREQ(info.what, "hm-16.ini");
    EXPECT_THAT(info.words, HasSubstr("line 1: pace"));
}

TEST(Absence, AUnitThatAnswersHasNone) {
    const SimulatedLibrary unit("");
    EXPECT_EQ(toldBy(absenceOf(unit)).cause, HM16_NOT_TOLD);
    unit->init();
    EXPECT_EQ(toldBy(absenceOf(unit)).cause, HM16_NOT_TOLD);
}

TEST(Absence, TheNextOpeningForgetsIt) {
    const SimulatedLibrary unit("pace = quick\n");
    testing::internal::CaptureStderr();
    unit->init();
    testing::internal::GetCapturedStderr();
    unit->terminate();
    unit.folder().write("hm-16.ini", "pace = 1\n");
    unit->init();
    const HM16_AbsenceInfo info = toldBy(absenceOf(unit));
    EXPECT_EQ(info.cause, HM16_NOT_TOLD);
    EXPECT_STREQ(info.words, "");
}

TEST(Absence, NoMoreIsFilledThanTheCallerHasRoomFor) {
    hm16::tellAbsence(HM16_NO_RADIO, "driver=x", "gone");
    const HM16_AbsenceV1& absence = hm16::absenceExtension();
    HM16_AbsenceInfo info;
    std::memset(&info, 'x', sizeof info);
    info.size = offsetof(HM16_AbsenceInfo, words);
    EXPECT_EQ(absence.why(&info), 0);
    EXPECT_EQ(info.size, offsetof(HM16_AbsenceInfo, words));
    EXPECT_STREQ(info.what, "driver=x");
    EXPECT_EQ(info.words[0], 'x');
    EXPECT_EQ(absence.why(nullptr), 1);
    info.size = 0;
    EXPECT_EQ(absence.why(&info), 1);
    hm16::forgetAbsence();
}

TEST(Absence, ALongTextIsCutBetweenTwoCharacters) {
    std::string words(766, 'a');
    words += "ñ and more";  // its second byte would have been the last
    hm16::tellAbsence(HM16_BAD_RADIO, "\x1b", words);
    const HM16_AbsenceInfo info = toldBy(hm16::absenceExtension());
    EXPECT_EQ(std::string(info.words), std::string(766, 'a'));
    EXPECT_STREQ(info.what, "\\x1b");
    hm16::forgetAbsence();
}

}  // namespace
