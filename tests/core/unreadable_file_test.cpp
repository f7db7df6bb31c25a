// SPDX-License-Identifier: GPL-3.0-or-later
// A right to read that is taken away and given back.
#include <gtest/gtest.h>

#include "core/file_troubles.h"
#include "core/files.h"
#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

using test::AsNobody;
using test::TempFolder;
using Why = FileTroubles::Why;

TEST(UnreadableFile, IsATroubleUntilItCanBeRead) {
    TempFolder temp;
    temp.write("scan.dat", "bytes");
    test::setRights(temp.path(), 0755);
    test::setRights(temp.path() / "scan.dat", 0);
    const Files files(temp.path());
    {
        const AsNobody nobody;
        EXPECT_EQ(files.read("scan.dat").fault().sentence,
                  "scan.dat cannot be read: Permission denied");
        files.troubles().lookAgain();
        ASSERT_TRUE(files.troubles().any());
        EXPECT_EQ(files.troubles().why(), Why::Unreadable);
        EXPECT_EQ(files.troubles().file(), temp.path() / "scan.dat");
    }
    test::setRights(temp.path() / "scan.dat", 0644);
    files.troubles().lookAgain();
    EXPECT_FALSE(files.troubles().any());
    EXPECT_FALSE(files.read("missing.dat"));
    EXPECT_FALSE(files.troubles().any()) << "one that is not there is no trouble";
}

}  // namespace
}  // namespace hmonitor
