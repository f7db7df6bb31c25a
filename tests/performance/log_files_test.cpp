// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/log_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LogFiles, AreThePlainFilesOfThatEndingInTheOrderOfTheirFoldedNames) {
    const TempFolder folder;
    for (const char* name : {"b.log", "A.LOG", "20260102.log", "20260101.log.old", "x.logs", "log",
                             ".hmonitor-7.rewrite", "c.Log"})
        folder.write(name, "");
    std::filesystem::create_directory(folder.path() / "20260101.log");
    EXPECT_THAT(logFiles(Files(folder.path())),
                ElementsAre("20260102.log", "A.LOG", "b.log", "c.Log"));
}

TEST(LogFiles, OfAFolderThatIsGoneAreNone) {
    EXPECT_THAT(logFiles(Files("/no/such/folder")), IsEmpty());
}

TEST(LogDays, AreTheNamesWithAValueInTheOrderOfIt) {
    EXPECT_THAT(logDays({"100.log", "12ab.log", "20260101.log", "9.LOG", "0.log", "abc.log", ".log",
                         "000.log"}),
                ElementsAre("9", "12ab", "100", "20260101"));
}

TEST(LogDays, OfOneValueStandInTheOrderOfTheirNames) {
    EXPECT_THAT(logDays({"12b.log", "12A.log", "12.log"}), ElementsAre("12", "12A", "12b"));
}

}  // namespace
}  // namespace hmonitor::test
