// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/folder_names.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

using test::TempFolder;

TEST(FolderNames, ReadsAFolderThatWasRemovedAndMadeAgain) {
    TempFolder temp;
    const auto folder = temp.path() / "Logs";
    FolderNames names(folder);
    EXPECT_EQ(names.find("a"), std::nullopt);
    std::filesystem::create_directory(folder);
    temp.write("Logs/A", "");
    EXPECT_EQ(names.find("a"), "A");
    std::filesystem::remove_all(folder);
    EXPECT_EQ(names.find("a"), std::nullopt);
    std::filesystem::create_directory(folder);
    temp.write("Logs/B", "");
    EXPECT_EQ(names.find("a"), std::nullopt);
    EXPECT_EQ(names.find("b"), "B");
}

TEST(FolderNames, FollowsAFolderThatTakesTheNameOfAnother) {
    TempFolder temp;
    std::filesystem::create_directory(temp.path() / "one");
    std::filesystem::create_directory(temp.path() / "two");
    temp.write("one/First", "");
    temp.write("two/Second", "");
    FolderNames names(temp.path() / "one");
    EXPECT_EQ(names.find("first"), "First");
    std::filesystem::rename(temp.path() / "one", temp.path() / "three");
    std::filesystem::rename(temp.path() / "two", temp.path() / "one");
    EXPECT_EQ(names.find("first"), std::nullopt);
    EXPECT_EQ(names.find("second"), "Second");
}

TEST(FolderNames, LosesNothingOfMoreChangesThanTheSystemTells) {
    TempFolder temp;
    FolderNames names(temp.path());
    EXPECT_EQ(names.find("x"), std::nullopt);
    // The system queues 16384 changes; a rename is two.
    temp.write("First", "");
    for (int i = 0; i < 9001; ++i) {
        const bool there = i % 2 == 0;
        std::filesystem::rename(temp.path() / (there ? "First" : "Second"),
                                temp.path() / (there ? "Second" : "First"));
    }
    temp.write("Third", "");
    EXPECT_EQ(names.find("second"), "Second");
    EXPECT_EQ(names.find("third"), "Third");
    EXPECT_EQ(names.find("first"), std::nullopt);
}

}  // namespace
}  // namespace hmonitor
