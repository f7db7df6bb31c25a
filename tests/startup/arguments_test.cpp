// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/arguments.h"

#include <gtest/gtest.h>

#include <vector>

namespace hmonitor {
namespace {

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
}

TEST(ArgumentsOfTheProgram, ThatAreNoneAreTold) {
    EXPECT_EQ(read({"rack"}).fault, "there is no option rack; usage: hmonitor [--folder PATH]");
    for (const auto& words :
         std::vector<std::vector<const char*>>{{"--folder"}, {"--folder="}, {"--folder", ""}}) {
        EXPECT_EQ(read(words).fault, "--folder lacks its path; usage: hmonitor [--folder PATH]");
        EXPECT_EQ(read(words).folder, std::nullopt);
    }
}

}  // namespace
}  // namespace hmonitor
