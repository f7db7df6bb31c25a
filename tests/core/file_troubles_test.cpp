// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_troubles.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>

#include "core/files.h"
#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

using test::AsNobody;
using test::TempFolder;
using Why = FileTroubles::Why;

/// More than any disk has.
constexpr std::uintmax_t kTooMuch = std::uintmax_t{1} << 60;

TEST(FileTroubles, StandWhileTheFolderIsReadOnly) {
    TempFolder temp;
    test::setRights(temp.path(), 0555);
    const AsNobody nobody;
    FileTroubles troubles;
    EXPECT_FALSE(troubles.any());
    const auto told = troubles.failed(temp.path() / "scan.dat", EACCES, 10);
    EXPECT_FALSE(*told);
    *told = true;
    troubles.lookAgain();
    ASSERT_TRUE(troubles.any());
    EXPECT_EQ(troubles.why(), Why::ReadOnly);
    EXPECT_EQ(troubles.file(), temp.path() / "scan.dat");
    EXPECT_TRUE(*troubles.failed(temp.path() / "hm-16.dat", EACCES, 10)) << "told of already";
}

TEST(FileTroubles, GoWithTheirReasonAndAreToldOfAgain) {
    TempFolder temp;
    FileTroubles troubles;
    *troubles.failed(temp.path() / "scan.dat", EROFS, 10) = true;
    EXPECT_TRUE(troubles.any());
    troubles.lookAgain();
    EXPECT_FALSE(troubles.any());
    EXPECT_FALSE(*troubles.failed(temp.path() / "scan.dat", EROFS, 10));
}

TEST(FileTroubles, OfAFullDiskStandUntilThereIsRoomForTheFile) {
    TempFolder temp;
    FileTroubles troubles;
    (void)troubles.failed(temp.path() / "a.3Ds", ENOSPC, kTooMuch);
    (void)troubles.failed(temp.path() / "scan.dat", ENOSPC, 100);
    troubles.lookAgain();
    ASSERT_TRUE(troubles.any());
    EXPECT_EQ(troubles.why(), Why::DiskFull);
    EXPECT_EQ(troubles.file(), temp.path() / "a.3Ds");
}

TEST(FileTroubles, OfAFileThatIsAFolderStandUntilItIsGone) {
    TempFolder temp;
    std::filesystem::create_directory(temp.path() / "scan.dat");
    FileTroubles troubles;
    (void)troubles.failed(temp.path() / "scan.dat", EISDIR, 100);
    troubles.lookAgain();
    EXPECT_TRUE(troubles.any());
    EXPECT_EQ(troubles.why(), Why::Other);
    std::filesystem::remove(temp.path() / "scan.dat");
    troubles.lookAgain();
    EXPECT_FALSE(troubles.any());
}

TEST(FileTroubles, OfTwoReasonsAreToldOneByOne) {
    TempFolder temp;
    FileTroubles troubles;
    *troubles.failed(temp.path() / "a", ENOSPC, kTooMuch) = true;
    EXPECT_FALSE(*troubles.failed(temp.path() / "b", EACCES, 1));
}

TEST(FileTroubles, AreSeenInAFolderBeforeAnybodyWrites) {
    TempFolder temp;
    FileTroubles troubles;
    troubles.lookAt(temp.path());
    EXPECT_FALSE(troubles.any());
    test::setRights(temp.path(), 0555);
    const AsNobody nobody;
    troubles.lookAt(temp.path());
    ASSERT_TRUE(troubles.any());
    EXPECT_EQ(troubles.why(), Why::ReadOnly);
    troubles.lookAgain();
    EXPECT_TRUE(troubles.any());
}

TEST(FileTroubles, OfWritingOutlastAReadAndGoWithAWrite) {
    TempFolder temp;
    temp.write("scan.dat", "bytes");
    const Files files(temp.path());
    *files.troubles().failed(temp.path() / "scan.dat", ENOSPC, kTooMuch) = true;
    EXPECT_TRUE(files.read("scan.dat"));
    EXPECT_TRUE(files.troubles().any());
    EXPECT_EQ(files.rewrite("scan.dat", "others"), std::nullopt);
    EXPECT_FALSE(files.troubles().any());
    EXPECT_FALSE(*files.troubles().failed(temp.path() / "scan.dat", ENOSPC, kTooMuch));
}

TEST(FileTroubles, AreNotedByARewriteThatFails) {
    TempFolder temp;
    std::filesystem::create_directory(temp.path() / "scan.dat");
    const Files files(temp.path());
    const auto fault = files.rewrite("SCAN.DAT", "bytes");
    ASSERT_TRUE(fault);
    ASSERT_TRUE(fault->told);
    EXPECT_FALSE(*fault->told);
    EXPECT_EQ(files.troubles().file(), temp.path() / "scan.dat");
    *fault->told = true;
    EXPECT_TRUE(*files.rewrite("scan.dat", "bytes")->told);
    // Files of a subfolder share the troubles.
    std::filesystem::create_directories(temp.path() / "Logs" / "a.3Ds");
    EXPECT_TRUE(*files.below("Logs").rewrite("a.3Ds", "bytes")->told);
    EXPECT_FALSE(files.rewrite("hm-16.dat", "bytes").has_value());
    EXPECT_TRUE(files.troubles().any()) << "one that is written helps no other";
}

}  // namespace
}  // namespace hmonitor
