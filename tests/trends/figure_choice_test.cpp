// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/figure_choice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/history/feed.h"

namespace hmonitor::test {
namespace {

using history::test::indexOf;
using testing::ElementsAre;

TEST(FigureChoices, BeginWithPeakFieldAndPilot) {
    const FigureChoice choice;
    EXPECT_THAT(choice.shown(),
                ElementsAre(indexOf("deviation_peak"), indexOf("field"), indexOf("pilot_level")));
    for (std::size_t i = 0; i < FigureChoice::kSets; ++i) EXPECT_FALSE(choice.set(i).empty()) << i;
}

TEST(FigureChoices, AreFourAtMostInTheOrderOfTheirChoosing) {
    FigureChoice choice;
    choice.choose(indexOf("field"), false);
    choice.choose(indexOf("multipath"), true);
    choice.choose(indexOf("field"), true);
    EXPECT_TRUE(choice.full());
    choice.choose(indexOf("rds_level"), true);
    choice.choose(indexOf("field"), true);
    EXPECT_THAT(choice.shown(), ElementsAre(indexOf("deviation_peak"), indexOf("pilot_level"),
                                            indexOf("multipath"), indexOf("field")));
    choice.choose(figures::kCount, false);
    EXPECT_EQ(choice.shown().size(), 4u);
}

TEST(FigureChoices, ASetIsKeptAndRecalled) {
    FigureChoice choice;
    choice.choose(indexOf("field"), false);
    choice.keep(2);
    choice.recall(0);
    EXPECT_TRUE(choice.isShown(indexOf("field")));
    choice.recall(2);
    EXPECT_FALSE(choice.isShown(indexOf("field")));
}

TEST(FigureChoices, AreTheSameAfterTheirFile) {
    FigureChoice choice;
    choice.choose(indexOf("multipath"), true);
    choice.keep(3);
    choice.choose(indexOf("deviation_peak"), false);
    FigureChoice read;
    read.read(choice.text());
    EXPECT_EQ(read.shown(), choice.shown());
    for (std::size_t i = 0; i < FigureChoice::kSets; ++i) EXPECT_EQ(read.set(i), choice.set(i));
}

TEST(FigureChoices, OfAStrangeFileIsTakenWhatIsUnderstood) {
    FigureChoice choice;
    choice.read(
        "shown  field nothing field pilot_level\nset\nset \nset rds_level\nrubbish\n"
        "set a b c\nset field\nset field\nset field\n");
    EXPECT_THAT(choice.shown(), ElementsAre(indexOf("field"), indexOf("pilot_level")));
    EXPECT_TRUE(choice.set(0).empty());
    EXPECT_THAT(choice.set(1), ElementsAre(indexOf("rds_level")));
    EXPECT_THAT(choice.set(3), ElementsAre(indexOf("field")));
    choice.read("shown deviation_peak level_left level_right stereo_phase relative_power");
    EXPECT_EQ(choice.shown().size(), 4u);
}

}  // namespace
}  // namespace hmonitor::test
