// SPDX-License-Identifier: GPL-3.0-or-later
// Beside which units the three days of logs are laid.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

/// What lay_rack puts for a unit into a folder with these files.
TempFolder& laid(TempFolder& folder, const std::string& unit) {
    const std::string tree = HMONITOR_SOURCE_DIR;
    const TempFolder build;
    for (const char* file : {"app/hmonitor", "drivers/simulated/hm-16.so", "receiver/hm-16.so",
                             "drivers/probe/hm16-probe", "drivers/host/hm16-host"}) {
        std::filesystem::create_directories((build.path() / file).parent_path());
        build.write(file, "");
    }
    const std::string command = "bash -euc '. \"" + tree + "/scripts/lay_rack.sh\"; lay_rack \"" +
                                tree + "\" \"" + build.path().string() + "\" \"" +
                                folder.path().string() + "\" " + unit + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return folder;
}

TEST(FirstLogs, AreLaidBesideTheSimulatedUnitAlone) {
    TempFolder simulated, receiver;
    laid(simulated, "simulated");
    laid(receiver, "receiver");
    for (const char* day : {"20260301.log", "20260302.log", "20260303.log"}) {
        EXPECT_TRUE(simulated.has(day)) << day;
        EXPECT_FALSE(receiver.has(day)) << day;
    }
}

TEST(FirstLogs, AreNotLaidWhereLogsAre) {
    TempFolder folder;
    folder.write("20251231.LOG", "0 1 \r\n");
    laid(folder, "simulated");
    EXPECT_FALSE(folder.has("20260303.log"));
    EXPECT_EQ(folder.read("20251231.LOG"), "0 1 \r\n");
}

}  // namespace
}  // namespace hm16
