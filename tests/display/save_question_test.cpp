// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/save_question.h"

#include <gtest/gtest.h>

namespace display::test {
namespace {

const std::vector<SaveQuestion::Kind> kKinds = {{"Picture", "png"}, {"Numbers", "csv"}};

TEST(SaveQuestion, TheEndingSaysTheKindWhateverItsCase) {
    EXPECT_EQ(kindOf("/a/b.csv", kKinds), &kKinds[1]);
    EXPECT_EQ(kindOf("B.PNG", kKinds), &kKinds[0]);
    EXPECT_EQ(kindOf("scan 98.1.Csv", kKinds), &kKinds[1]);
}

TEST(SaveQuestion, ANameWithoutOneOfTheEndingsHasNoKind) {
    for (const char* path :
         {"b", "b.bmp", "b.png.", "/folder.csv/b", ".csv", "/a/.png", "98.1", ""})
        EXPECT_EQ(kindOf(path, kKinds), nullptr) << path;
}

TEST(SaveQuestion, SuchANameGetsTheChosenKindsEnding) {
    EXPECT_EQ(withEnding("/a/98.1 MHz", kKinds, kKinds[1]), "/a/98.1 MHz.csv");
    EXPECT_EQ(withEnding("b.bmp", kKinds, kKinds[0]), "b.bmp.png");
    EXPECT_EQ(withEnding("b.CSV", kKinds, kKinds[0]), "b.CSV");
}

}  // namespace
}  // namespace display::test
