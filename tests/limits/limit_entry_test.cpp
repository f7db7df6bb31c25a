// SPDX-License-Identifier: GPL-3.0-or-later
#include "limits/limit_entry.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/limits_file.h"

namespace hmonitor {
namespace {

LimitRule pilotRule() {
    LimitRule rule;
    rule.name = "pilot";
    rule.figure = figures::find("pilot_level");
    rule.good = {8, 10};
    rule.lines = {"[pilot]", "figure = pilot_level", "outside = 8 10"};
    return rule;
}

TEST(LimitEntryTest, AnEntryMakesTheRuleThatItShows) {
    for (const LimitRule& rule : LimitsFile::usual().rules) {
        EXPECT_STREQ(faultOf(entryOf(rule)).english, "");
        EXPECT_TRUE(sameRule(ruleOf(entryOf(rule), rule), rule)) << rule.name;
    }
}

TEST(LimitEntryTest, ARuleThatStaysTheSameKeepsItsLines) {
    const LimitRule rule = pilotRule();
    EXPECT_EQ(ruleOf(entryOf(rule), rule).lines, rule.lines);
    LimitEntry entry = entryOf(rule);
    entry.lowest = "7.5";
    EXPECT_TRUE(ruleOf(entry, rule).lines.empty());
    EXPECT_EQ(ruleOf(entry, rule).good.lowest, 7.5f);
}

TEST(LimitEntryTest, TheKindSaysWhichBoundCounts) {
    LimitEntry entry = entryOf(pilotRule());
    EXPECT_EQ(entry.kind, LimitKind::Outside);
    entry.kind = LimitKind::Above;
    EXPECT_TRUE(std::isinf(ruleOf(entry, pilotRule()).good.lowest));
    EXPECT_EQ(ruleOf(entry, pilotRule()).good.highest, 10);
    entry.kind = LimitKind::Below;
    EXPECT_EQ(ruleOf(entry, pilotRule()).good.lowest, 8);
    EXPECT_TRUE(std::isinf(ruleOf(entry, pilotRule()).good.highest));
    // A bound that the kind does not use may be anything.
    entry.highest = "x";
    EXPECT_STREQ(faultOf(entry).english, "");
}

TEST(LimitEntryTest, SaysWhatIsWrong) {
    const auto wrong = [](auto change) {
        LimitEntry entry = entryOf(pilotRule());
        change(entry);
        return std::string(faultOf(entry).english);
    };
    const std::string number = "A limit is a number within the figure's range";
    EXPECT_EQ(wrong([](LimitEntry& entry) { entry.lowest = ""; }), number);
    EXPECT_EQ(wrong([](LimitEntry& entry) { entry.highest = "ten"; }), number);
    EXPECT_EQ(wrong([](LimitEntry& entry) { entry.highest = "20.1"; }), number);
    EXPECT_EQ(wrong([](LimitEntry& entry) { entry.lowest = "-0.1"; }), number);
    EXPECT_EQ(wrong([](LimitEntry& entry) { entry.lowest = "11"; }),
              "The lower limit is above the upper one");
    const std::string times = "Times are seconds, 0 to 3600";
    EXPECT_EQ(wrong([](LimitEntry& entry) { entry.holdsFor = ""; }), times);
    EXPECT_EQ(wrong([](LimitEntry& entry) { entry.release = "3601"; }), times);
    EXPECT_EQ(wrong([](LimitEntry& entry) { entry.release = "-1"; }), times);
}

TEST(LimitEntryTest, AnotherFigureIsOfferedItsGoodValues) {
    LimitEntry entry = entryOf(pilotRule());
    entry.figure = figures::find("separation_left");
    entry.lowest = "500";
    offerBounds(entry);
    EXPECT_EQ(entry.lowest, "40");
    // The figure has no upper bound, so the end of the range is offered, unless the present entry
    // fits.
    EXPECT_EQ(entry.highest, "10");
    entry.highest = "";
    offerBounds(entry);
    EXPECT_EQ(entry.highest, "110");
    entry.kind = LimitKind::Below;
    offerBounds(entry);
    EXPECT_EQ(entry.highest, "");
}

}  // namespace
}  // namespace hmonitor
