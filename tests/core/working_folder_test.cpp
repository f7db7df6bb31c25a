// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/working_folder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

using test::AsNobody;
using test::TempFolder;

/// An environment variable, restored at the end.
class Variable {
 public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* before = ::getenv(name)) before_ = before;
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~Variable() { before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_); }

 private:
    const char* name_;
    std::optional<std::string> before_;
};

struct WorkingFolderTest : testing::Test {
    /// Makes the program's folder writable for root alone.
    WorkingFolderTest() {
        for (const char* name :
             {"hm-16.dat", "normal.hm", "Hm-res.dat", "scan.dat", "halden.dat", "20260301.log"})
            installed.write(name, std::string("first ") + name);
        for (const char* name : {"hmonitor", "hm-16.so", "hm16-probe", "hm-16.ini", "hm-16.hlp"})
            installed.write(name, "the program's own");
    }
    TempFolder installed;
    TempFolder home;
};

TEST_F(WorkingFolderTest, IsTheOneThatWasAskedFor) {
    EXPECT_EQ(workingFolder(home.path() / "rack", installed.path()), home.path() / "rack");
    EXPECT_EQ(workingFolder("rack", installed.path()), std::filesystem::current_path() / "rack");
}

TEST_F(WorkingFolderTest, IsTheProgramsOwnWhereThatCanBeWritten) {
    EXPECT_EQ(workingFolder({}, installed.path()), installed.path());
    EXPECT_EQ(layFirstContents(installed.path(), installed.path()), Laying::None);
    EXPECT_FALSE(installed.has("Logs")) << "nothing is laid over itself";
}

TEST_F(WorkingFolderTest, IsTheUsersWhereTheProgramsOwnCannotBeWritten) {
    const Variable userHome("HOME", home.path().c_str());
    std::filesystem::permissions(installed.path(), std::filesystem::perms(0555));
    const AsNobody nobody;
    {
        const Variable data("XDG_DATA_HOME", "/somewhere/data");
        EXPECT_EQ(workingFolder({}, installed.path()), "/somewhere/data/hmonitor");
    }
    for (const char* none : {static_cast<const char*>(nullptr), "", "not/absolute"}) {
        const Variable data("XDG_DATA_HOME", none);
        EXPECT_EQ(workingFolder({}, installed.path()), home.path() / ".local/share/hmonitor");
    }
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable homeless("HOME", nullptr);
    EXPECT_EQ(workingFolder({}, installed.path()), installed.path());
}

TEST_F(WorkingFolderTest, IsLaidOnceWithWhatLiesBesideTheProgram) {
    const auto folder = home.path() / "data/hmonitor";
    EXPECT_EQ(layFirstContents(folder, installed.path()), Laying::First);
    EXPECT_EQ(layFirstContents(folder, installed.path()), Laying::None);
    const std::set<std::string> laid = [&] {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            names.insert(entry.path().filename().string());
        return names;
    }();
    EXPECT_EQ(laid, (std::set<std::string>{"20260301.log", "Hm-res.dat", "Logs", "halden.dat",
                                           "hm-16.dat", "normal.hm", "scan.dat"}));
    EXPECT_EQ(home.read("data/hmonitor/normal.hm"), "first normal.hm");
    EXPECT_TRUE(std::filesystem::is_directory(folder / "Logs"));
}

TEST_F(WorkingFolderTest, KeepsWhatIsThereInAnyCase) {
    home.write("HM-16.DAT", "the user's");
    EXPECT_EQ(layFirstContents(home.path(), installed.path()), Laying::None);
    EXPECT_EQ(home.read("HM-16.DAT"), "the user's");
    EXPECT_FALSE(home.has("hm-16.dat"));
    EXPECT_EQ(home.read("scan.dat"), "first scan.dat");
}

TEST_F(WorkingFolderTest, ThatCannotBeMadeIsLaidNothingIn) {
    home.write("data", "a file");
    EXPECT_EQ(layFirstContents(home.path() / "data/hmonitor", installed.path()), Laying::None);
    EXPECT_EQ(home.read("data"), "a file");
}

}  // namespace
}  // namespace hmonitor
