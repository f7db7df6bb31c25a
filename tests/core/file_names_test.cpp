// SPDX-License-Identifier: GPL-3.0-or-later
// Names where two may differ in case alone; on Windows working_folder_on_windows_test.cpp.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/files.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

struct FileNames : testing::Test {
    test::TempFolder temp;
    Files files{temp.path()};
};

TEST_F(FileNames, FindsTheExactNameFirst) {
    temp.write("HM-16.DAT", "upper");
    temp.write("hm-16.dat", "lower");
    EXPECT_EQ(*files.read("hm-16.dat"), "lower");
    EXPECT_EQ(*files.read("HM-16.DAT"), "upper");
}

TEST_F(FileNames, FindsAnotherCaseFirstInByteOrder) {
    temp.write("Hm-Res.dat", "second");
    temp.write("HM-RES.DAT", "first");
    EXPECT_EQ(files.find("hm-res.dat"), "HM-RES.DAT");
    EXPECT_EQ(*files.read("hm-res.dat"), "first");
}

TEST_F(FileNames, FindsAccentedNamesWithoutRegardToCase) {
    temp.write("SESI\u00d3N.3ds", "x");
    EXPECT_EQ(files.find("sesi\u00f3n.3Ds"), "SESI\u00d3N.3ds");
    EXPECT_FALSE(files.exists("sesion.3Ds"));
}

TEST_F(FileNames, ANameIsBare) {
    temp.write("a", "x");
    for (const char* name : {"", ".", "..", "../x", "./a", "/etc/passwd"}) {
        EXPECT_FALSE(files.exists(name)) << name;
        EXPECT_TRUE(files.rewrite(name, "x").has_value()) << name;
    }
    EXPECT_FALSE(files.exists(std::string_view("a\0b", 3)));
}

TEST_F(FileNames, APipeByTheNameDoesNotHoldTheProgram) {
    ASSERT_EQ(::mkfifo((temp.path() / "normal.hm").c_str(), 0600), 0);
    const auto result = files.read("normal.hm");
    ASSERT_FALSE(result);
    EXPECT_EQ(result.fault().kind, FileFaultKind::Unreadable);
}

}  // namespace
}  // namespace hmonitor
