// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/unit_absence.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace hmonitor {
namespace {

TEST(UnitAbsence, IsOneLineOfTextWhateverALibraryWrites) {
    HM16_AbsenceInfo said{};
    said.cause = HM16_BAD_RADIO;
    std::strcpy(said.what, "driver=\xf0\x9f");
    std::strcpy(said.words, "a\nb\x1b[2J\xc2\x85 \xff\xc3\xb1");
    const UnitAbsence absence = unitAbsence(said);
    EXPECT_EQ(absence.cause, UnitAbsence::Cause::BadRadio);
    EXPECT_THAT(absence.what, testing::MatchesRegex("driver= +"));
    EXPECT_EQ(absence.words, "a b [2J   ñ");
}

TEST(UnitAbsence, IsCutWhereTheOfferHasNoRoom) {
    HM16_AbsenceInfo said{};
    // Without a zero at its end.
    std::memset(said.words, 'x', sizeof said.words);
    EXPECT_EQ(unitAbsence(said).words, std::string(240, 'x') + "…");
}

TEST(UnitAbsence, OfAnUnheardOfCauseIsNone) {
    HM16_AbsenceInfo said{};
    said.cause = 99;
    EXPECT_EQ(unitAbsence(said).cause, UnitAbsence::Cause::NotTold);
}

}  // namespace
}  // namespace hmonitor
