// SPDX-License-Identifier: GPL-3.0-or-later
// The three days of logs that are installed beside the simulated unit.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

const std::string kTree = HMONITOR_SOURCE_DIR;

std::string bytesOf(const std::string& day) {
    std::ifstream in(kTree + "/drivers/simulated/logs/" + day + ".log", std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// The fields of each line, the hour first.
std::vector<std::vector<std::string>> linesOf(const std::string& day) {
    std::vector<std::vector<std::string>> lines;
    std::istringstream in(bytesOf(day));
    for (std::string line; std::getline(in, line);) {
        EXPECT_TRUE(line.ends_with(" \r")) << day << ": " << line;
        std::istringstream words(line);
        lines.emplace_back(std::istream_iterator<std::string>(words),
                           std::istream_iterator<std::string>());
        EXPECT_EQ(lines.back().size(), 10u) << day << ": " << line;
    }
    return lines;
}

/// What lay_rack puts for a unit into a folder with these files.
TempFolder& laid(TempFolder& folder, const std::string& unit) {
    const TempFolder build;
    for (const char* file : {"app/hmonitor", "drivers/simulated/hm-16.so", "receiver/hm-16.so",
                             "drivers/probe/hm16-probe", "drivers/host/hm16-host"}) {
        std::filesystem::create_directories((build.path() / file).parent_path());
        build.write(file, "");
    }
    const std::string command = "bash -euc '. \"" + kTree + "/scripts/lay_rack.sh\"; lay_rack \"" +
                                kTree + "\" \"" + build.path().string() + "\" \"" +
                                folder.path().string() + "\" " + unit + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return folder;
}

TEST(FirstLogs, OneIsAWholeDay) {
    const auto lines = linesOf("20260303");
    ASSERT_EQ(lines.size(), 24u);
    for (std::size_t hour = 0; hour < 24; ++hour) EXPECT_EQ(lines[hour][0], std::to_string(hour));
}

TEST(FirstLogs, OneHasHoursMissingAndOneWithoutFigures) {
    const auto lines = linesOf("20260301");
    EXPECT_LT(lines.size(), 24u);
    EXPECT_GT(lines.size(), 12u);
    EXPECT_TRUE(std::ranges::any_of(lines, [](const auto& line) { return line[1] == "A"; }));
}

TEST(FirstLogs, OneHasValuesBeyondTheRanges) {
    const auto lines = linesOf("20260302");
    struct Range {
        std::size_t field;
        double lowest, highest;
    };
    for (const Range& range :
         {Range{1, 25, 150}, Range{2, -10, 5}, Range{3, -10, 5}, Range{4, 0, 180}, Range{5, 0, 5},
          Range{7, 0, 300}, Range{8, 0, 10}, Range{9, 0, 10}}) {
        EXPECT_TRUE(std::ranges::any_of(lines, [&](const auto& line) {
            const double value = std::stod(line[range.field]);
            return value < range.lowest || value > range.highest;
        })) << range.field;
    }
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
