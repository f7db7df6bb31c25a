// SPDX-License-Identifier: GPL-3.0-or-later
// Sessions and their folder where names may differ in case alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analyzer/session_folder.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

struct SessionCase : testing::Test {
    TempFolder temp;
    Files working{temp.path()};
    SessionFolder folder{working};

    void makeLogs(const char* name = "Logs") {
        std::filesystem::create_directory(temp.path() / name);
    }
};

TEST_F(SessionCase, ListsSessionsInTheOrderOfTheirFoldedNames) {
    makeLogs();
    for (const char* name : {"b.3Ds", "A.3Ds", "Zorro.3Ds", "ñandu.3Ds", "Ñandu.3Ds", "a.3DS"})
        temp.write(std::string("Logs/") + name, "");
    temp.write("Logs/b.spc", "");
    temp.write("Logs/3Ds", "");
    std::filesystem::create_directory(temp.path() / "Logs/x.3Ds");
    EXPECT_THAT(folder.list(),
                ElementsAre("A.3Ds", "a.3DS", "b.3Ds", "Zorro.3Ds", "Ñandu.3Ds", "ñandu.3Ds"));
}

TEST_F(SessionCase, IsFoundWhateverItsCase) {
    makeLogs("LOGS");
    EXPECT_FALSE(folder.write("a.3Ds", "bytes"));
    EXPECT_EQ(temp.read("LOGS/a.3Ds"), "bytes");
    EXPECT_FALSE(temp.has("Logs"));
}

}  // namespace
}  // namespace hmonitor::test
