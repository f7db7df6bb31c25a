// SPDX-License-Identifier: GPL-3.0-or-later
// The three days of logs that are installed beside the simulated unit.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace hm16 {
namespace {

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

}  // namespace
}  // namespace hm16
