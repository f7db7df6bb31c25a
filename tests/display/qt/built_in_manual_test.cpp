// SPDX-License-Identifier: GPL-3.0-or-later
// Where the manual's first page is looked for: a user's working folder may have none of its own.
#include "app/built_in_manual.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hmonitor::test {

TEST(BuiltInManual, ItsFirstPageIsTheWorkingFoldersElseTheProgramsOwn) {
    TempFolder working, own;
    const Files files(working.path());
    const Book::Read read = builtInManual(files, own.path());
    EXPECT_EQ(read("hm-16.hlp"), "");
    own.write("hm-16.hlp", "the program's");
    EXPECT_EQ(read("hm-16.hlp"), "the program's");
    working.write("hm-16.hlp", "the user's");
    EXPECT_EQ(read("hm-16.hlp"), "the user's");
}

}  // namespace hmonitor::test
