// SPDX-License-Identifier: GPL-3.0-or-later
// What differs on Windows: the user's folder, names, the lock of another process.
#include <gtest/gtest.h>
#include <windows.h>

#include "core/files.h"
#include "core/folder_lock.h"
#include "core/working_folder.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

struct OnWindows : testing::Test {
    test::TempFolder installed;
    test::TempFolder home;
};

TEST_F(OnWindows, TheProgramsFolderIsWorkedInWhereItCanBeWritten) {
    EXPECT_EQ(workingFolder({}, installed.path()), installed.path());
    EXPECT_EQ(workingFolder(home.path() / "rack", installed.path()), home.path() / "rack");
}

TEST_F(OnWindows, TheUsersFolderIsWorkedInWhereTheProgramsIsNone) {
    ASSERT_EQ(::_wputenv_s(L"LOCALAPPDATA", home.path().c_str()), 0);
    EXPECT_EQ(workingFolder({}, installed.path() / "not there"), home.path() / "hmonitor");
    ASSERT_EQ(::_wputenv_s(L"LOCALAPPDATA", L"not absolute"), 0);
    EXPECT_EQ(workingFolder({}, installed.path() / "not there"), installed.path() / "not there");
}

TEST_F(OnWindows, FirstContentsAreLaidOnce) {
    installed.write("hm-16.dat", "first");
    installed.write("halden.dat", "presets");
    installed.write("hm-16.dll", "library");
    const auto folder = home.path() / "data" / "hmonitor";
    EXPECT_EQ(layFirstContents(folder, installed.path()), Laying::First);
    EXPECT_EQ(layFirstContents(folder, installed.path()), Laying::None);
    EXPECT_EQ(home.read("data/hmonitor/halden.dat"), "presets");
    EXPECT_FALSE(home.has("data/hmonitor/hm-16.dll"));
    EXPECT_TRUE(home.has("data/hmonitor/Logs"));
}

TEST_F(OnWindows, ANameIsBare) {
    const Files files(home.path());
    home.write("a", "x");
    EXPECT_EQ(*files.read("A"), "x");
    for (const char* name :
         {"", ".", "..", "../a", "..\\a", ".\\a", "C:a", "a:stream", "\\\\?\\a"}) {
        EXPECT_FALSE(files.exists(name)) << name;
        EXPECT_TRUE(files.rewrite(name, "x").has_value()) << name;
    }
    for (const char* name : {"a.", "a ", "a*", "?", "a<", "a>", "a|", "\"a\"", "a\n", "\xff"}) {
        EXPECT_FALSE(files.exists(name)) << name;
        EXPECT_EQ(files.rewrite(name, "x")->sentence,
                  std::string(name) + " cannot be written: Invalid argument");
    }
    EXPECT_EQ(home.names(), std::set<std::string>{"a"});
}

TEST_F(OnWindows, ADeviceIsNoFile) {
    const Files files(home.path());
    for (const char* name : {"CON", "con.3Ds", "nul", "NUL.dat", "Aux .3Ds", "prn.a.b", "com1.3Ds",
                             "LPT9", "conin$", "CONOUT$"}) {
        EXPECT_FALSE(files.exists(name)) << name;
        EXPECT_TRUE(files.rewrite(name, "x").has_value()) << name;
    }
    for (const char* name : {"Concert.3Ds", "com.dat", "com10.dat", "null", "lpta"})
        EXPECT_FALSE(files.rewrite(name, "x").has_value()) << name;
    EXPECT_EQ(home.names().size(), 5u);
}

TEST_F(OnWindows, AFileHasTheNameThatTheFolderHas) {
    home.write(L"SESI\u00d3N.3ds", "x");
    const Files files(home.path());
    EXPECT_EQ(files.find("sesi\u00f3n.3Ds"), "SESI\u00d3N.3ds");
    EXPECT_FALSE(files.exists("sesion.3Ds"));
    EXPECT_FALSE(files.rewrite("sesi\u00f3n.3Ds", "new"));
    EXPECT_EQ(home.names(), std::set<std::string>{"SESI\u00d3N.3ds"});
    EXPECT_EQ(*files.read("SESI\u00d3N.3DS"), "new");
}

TEST_F(OnWindows, LettersOutsideTheCodePageStay) {
    home.write(L"\u03a9\u0416 \U0001F4FB.3ds", "x");
    const Files files(home.path());
    const std::string name = "\u03a9\u0416 \U0001F4FB.3ds";
    EXPECT_EQ(files.find("\u03a9\u0416 \U0001F4FB.3DS"), name);
    EXPECT_EQ(*files.read(name), "x");
    EXPECT_FALSE(files.rewrite(name, "new"));
    EXPECT_EQ(home.names(), std::set<std::string>{name});
    EXPECT_EQ(*files.read(name), "new");
}

TEST_F(OnWindows, AFileIsRemovedAndAFolderIsNot) {
    const Files files(home.path());
    home.write("a", "x");
    std::filesystem::create_directory(home.path() / "b");
    EXPECT_FALSE(files.remove("a").has_value());
    EXPECT_FALSE(files.remove("a").has_value()) << "what is not there need not go";
    EXPECT_TRUE(files.remove("b").has_value());
    EXPECT_EQ(home.names(), std::set<std::string>{"b"});
}

TEST_F(OnWindows, AFolderIsLockedByWhicheverPathItIsReached) {
    const FolderLock first(home.path());
    EXPECT_FALSE(first.isTakenByAnother());
    EXPECT_TRUE(FolderLock(home.path() / "." / "").isTakenByAnother());
    EXPECT_FALSE(FolderLock(installed.path()).isTakenByAnother());
    // The folder can still be used.
    home.write("a", "x");
    EXPECT_EQ(home.read("a"), "x");
}

}  // namespace
}  // namespace hmonitor
