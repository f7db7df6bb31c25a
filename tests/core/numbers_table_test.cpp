// SPDX-License-Identifier: GPL-3.0-or-later
// Every row of numbers_table.txt, which numbers_table.py works out on its own.
#include <gtest/gtest.h>

#include <bit>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "core/numbers.h"

namespace hmonitor {
namespace {

using Row = std::vector<std::string>;

std::vector<Row> tableRows(const std::string& kind) {
    std::ifstream file(HMONITOR_SOURCE_DIR "/tests/core/numbers_table.txt");
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        Row row;
        for (std::size_t at = 0; at <= line.size();) {
            const std::size_t tab = std::min(line.find('\t', at), line.size());
            row.push_back(line.substr(at, tab - at));
            at = tab + 1;
        }
        if (row.at(0) == kind) rows.push_back(row);
    }
    return rows;
}

float floatOf(const std::string& bits) {
    return std::bit_cast<float>(static_cast<std::uint32_t>(std::stoul(bits, nullptr, 16)));
}

double doubleOf(const std::string& bits) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(std::stoull(bits, nullptr, 16)));
}

TEST(NumbersTable, FloatsShowUpToSevenSignificantDigits) {
    const auto rows = tableRows("float32");
    ASSERT_EQ(rows.size(), 800u);
    for (const Row& row : rows) EXPECT_EQ(shortText(floatOf(row.at(1))), row.at(2)) << row.at(1);
}

TEST(NumbersTable, DoublesShowUpToFifteenSignificantDigits) {
    const auto rows = tableRows("float64");
    ASSERT_EQ(rows.size(), 1000u);
    for (const Row& row : rows) EXPECT_EQ(shortText(doubleOf(row.at(1))), row.at(2)) << row.at(1);
}

TEST(NumbersTable, MasksOfFloatsRoundTheDecimalTextHalvesAway) {
    const auto rows = tableRows("mask32");
    ASSERT_EQ(rows.size(), 1600u);
    for (const Row& row : rows) {
        EXPECT_EQ(mask(row.at(2), floatOf(row.at(1))), row.at(3)) << row.at(1) << ' ' << row.at(2);
    }
}

TEST(NumbersTable, MasksOfDoublesRoundTheDecimalTextHalvesAway) {
    const auto rows = tableRows("mask64");
    ASSERT_EQ(rows.size(), 1000u);
    for (const Row& row : rows) {
        EXPECT_EQ(mask(row.at(2), doubleOf(row.at(1))), row.at(3)) << row.at(1) << ' ' << row.at(2);
    }
}

TEST(NumbersTable, TextsGiveTheNumberThatTheyBeginWith) {
    const auto rows = tableRows("value");
    ASSERT_GT(rows.size(), 400u);
    for (const Row& row : rows) {
        std::string text = row.at(1);
        if (const auto at = text.find("\\t"); at != std::string::npos) text.replace(at, 2, "\t");
        EXPECT_EQ(std::bit_cast<std::uint64_t>(valueOf(text)),
                  std::bit_cast<std::uint64_t>(doubleOf(row.at(2))))
            << '"' << text << "\" gives " << valueOf(text);
    }
}

TEST(NumbersTable, WholeNumbersByTheThreeDirections) {
    const auto rows = tableRows("whole");
    ASSERT_GT(rows.size(), 120u);
    for (const Row& row : rows) {
        const double value = doubleOf(row.at(1));
        EXPECT_EQ(toWhole(value), std::stol(row.at(2))) << value;
        EXPECT_EQ(floorWhole(value), std::stol(row.at(3))) << value;
        EXPECT_EQ(wholeTowardZero(value), std::stol(row.at(4))) << value;
    }
}

}  // namespace
}  // namespace hmonitor
