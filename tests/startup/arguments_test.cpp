// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace hmonitor {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

Arguments read(std::vector<const char*> words) {
    words.insert(words.begin(), "hmonitor");
    return readArguments(static_cast<int>(words.size()), words.data());
}

TEST(ArgumentsOfTheProgram, NameTheWorkingFolder) {
    EXPECT_EQ(read({}).folder, std::nullopt);
    EXPECT_EQ(read({"--folder", "/a b"}).folder, "/a b");
    EXPECT_EQ(read({"--folder=rack"}).folder, "rack");
    EXPECT_EQ(read({"--folder", "one", "--folder", "two"}).folder, "two");
    EXPECT_EQ(read({"--folder", "/a"}).fault, "");
    EXPECT_EQ(read({"--folder", "/a"}).answer, "");
}

TEST(ArgumentsOfTheProgram, ThatAreNoneAreTold) {
    EXPECT_THAT(read({"rack"}).fault, AllOf(HasSubstr("rack"), EndsWith("; --help tells more.")));
    EXPECT_THAT(read({"--folders", "a"}).fault, HasSubstr("--folders"));
    for (const auto& words :
         std::vector<std::vector<const char*>>{{"--folder"}, {"--folder="}, {"--folder", ""}}) {
        EXPECT_THAT(read(words).fault, HasSubstr("--folder"));
        EXPECT_EQ(read(words).folder, std::nullopt);
    }
}

TEST(ArgumentsOfTheProgram, AskForHelpAndVersion) {
    for (const char* word : {"--help", "-h"}) {
        EXPECT_THAT(read({word}).answer, AllOf(HasSubstr("--folder PATH"), HasSubstr("--version"),
                                               HasSubstr("hmonitor [OPTIONS]")));
        EXPECT_EQ(read({word}).fault, "");
    }
    EXPECT_EQ(read({"--version"}).answer, "hmonitor " HMONITOR_VERSION "\n");
}

TEST(ArgumentsOfTheProgram, AnswerBesideTheToolkitsOwnWords) {
    EXPECT_THAT(read({"-platform", "xcb", "--version"}).answer, StartsWith("hmonitor "));
    EXPECT_THAT(read({"-style", "fusion", "--help"}).answer, HasSubstr("--folder"));
}

}  // namespace
}  // namespace hmonitor
