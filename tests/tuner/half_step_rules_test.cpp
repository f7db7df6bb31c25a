// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of typed frequencies, compared with a table that typed_frequencies.py calculates, and
// with another one that has its derivations written beside it.
#include <gtest/gtest.h>

#include "core/memory_block.h"
#include "core/numbers.h"
#include "tests/tuner/typed_table.h"
#include "tuner/half_step_text.h"
#include "tuner/keypad_entry.h"
#include "tuner/memory_entry.h"

namespace hmonitor {
namespace {

using test::TypedRow;
using test::typedRows;

std::string recordOf(const std::string& typed) {
    const auto text = recordFrequency(typed);
    return text ? text->str().substr(0, MemoryBlock::kFrequencySize) : "wrong";
}

std::string handedOn(const std::string& typed) {
    const auto entry = keypadFrequency(typed);
    return entry ? shortText(entry->frequency).str() : "-";
}

std::string shownOf(const std::string& record) {
    return record == "wrong" ? "-" : megahertzText(parseStoredFrequency(record)).str();
}

void checkRules(const std::vector<TypedRow>& rows) {
    for (const TypedRow& row : rows) {
        SCOPED_TRACE("typed: \"" + row.typed + "\"");
        EXPECT_EQ(recordOf(row.typed), row.record);
        EXPECT_EQ(shownOf(row.record), row.shown);
        EXPECT_EQ(handedOn(row.typed), row.keypadHandsOn);
    }
}

TEST(HalfStepRules, AgreeWithTheSecondCalculation) {
    const auto rows = typedRows("typed_frequencies.txt");
    ASSERT_GE(rows.size(), 500u);
    checkRules(rows);
}

TEST(HalfStepRules, AgreeWithTheDerivationsWorkedOutByHand) {
    const auto rows = typedRows("typed_frequencies_by_hand.txt");
    ASSERT_GE(rows.size(), 30u);
    checkRules(rows);
}

TEST(HalfStepRules, BothTablesAgreeWhereTheyMeet) {
    const auto rows = typedRows("typed_frequencies.txt");
    int met = 0;
    for (const TypedRow& byHand : typedRows("typed_frequencies_by_hand.txt")) {
        for (const TypedRow& row : rows) {
            if (row.typed != byHand.typed) continue;
            ++met;
            EXPECT_EQ(row.record, byHand.record) << row.typed;
            EXPECT_EQ(row.shown, byHand.shown) << row.typed;
            EXPECT_EQ(row.tuned, byHand.tuned) << row.typed;
            EXPECT_EQ(row.keypadTuned, byHand.keypadTuned) << row.typed;
            EXPECT_EQ(row.keypadHandsOn, byHand.keypadHandsOn) << row.typed;
        }
    }
    EXPECT_GE(met, 25);
}

TEST(HalfStepRules, EveryFrequencyOfTheBandGoesInAndComesOutInAllFourSpellings) {
    for (int tenths = 875; tenths <= 1080; ++tenths) {
        const std::string whole = std::to_string(tenths / 10);
        const std::string tenth = std::to_string(tenths % 10);
        const std::string plain = std::to_string(tenths);
        const std::string half = plain + "5";
        EXPECT_EQ(recordOf(whole + "." + tenth), plain);
        EXPECT_EQ(recordOf(plain), plain);
        EXPECT_EQ(recordOf(whole + "." + tenth + "5"), half);
        EXPECT_EQ(recordOf(half), half);
        EXPECT_EQ(shownOf(plain), whole + "." + tenth);
        EXPECT_EQ(shownOf(half), whole + "." + tenth + "5");
        EXPECT_EQ(keypadFrequency(plain), (StoredFrequency{double(tenths), HalfStep::No}));
        EXPECT_EQ(keypadFrequency(half), (StoredFrequency{double(tenths), HalfStep::Yes}));
    }
}

TEST(HalfStepRules, FourDigitsAskForTheHalfStepOnlyOver8700) {
    EXPECT_EQ(splitDigits("8695").half, HalfStep::No);
    EXPECT_EQ(splitDigits("8705").half, HalfStep::Yes);
    EXPECT_EQ(splitDigits("8705").text, "870");
    EXPECT_EQ(splitDigits("1075").half, HalfStep::No);
    EXPECT_EQ(splitDigits("9810").half, HalfStep::No);
    EXPECT_EQ(splitDigits("875").half, HalfStep::No);
    EXPECT_EQ(splitDigits("102555").half, HalfStep::No);
}

TEST(HalfStepRules, OnlyTheSecondPlaceBehindThePointAsksForTheHalfStep) {
    EXPECT_EQ(splitMegahertz("98.15").text, "98.1");
    EXPECT_EQ(splitMegahertz("98.15").half, HalfStep::Yes);
    EXPECT_EQ(splitMegahertz("98.5").half, HalfStep::No);
    EXPECT_EQ(splitMegahertz("98.125").half, HalfStep::No);
    EXPECT_EQ(splitMegahertz("9815").half, HalfStep::No);
    EXPECT_EQ(splitMegahertz("98.150").text, "98.15");
}

}  // namespace
}  // namespace hmonitor
