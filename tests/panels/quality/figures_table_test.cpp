// SPDX-License-Identifier: GPL-3.0-or-later
// Every row of digits_table.txt, which digits_table.py works out on its own.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>

#include "panels/quality/quality_figures.h"

namespace hmonitor {
namespace {

std::string shown(const ThreePlaces& digits) {
    std::string text;
    for (const int digit : digits.places) {
        text += digit == ThreePlaces::kBlank ? "." : std::to_string(digit);
    }
    return text;
}

/// Calls check(reading, rest of the row) for each row of a kind; gives their number.
template <class Check>
int eachRow(const std::string& kind, Check check) {
    std::ifstream file(HMONITOR_SOURCE_DIR "/tests/panels/quality/digits_table.txt");
    int rows = 0;
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        std::string of, bits;
        fields >> of >> bits;
        if (of != kind) continue;
        ++rows;
        check(std::bit_cast<float>(static_cast<std::uint32_t>(std::stoul(bits, nullptr, 16))),
              fields);
    }
    return rows;
}

TEST(QualityTable, EveryTenthOfThePilotErrorShowsItsDigits) {
    const int rows = eachRow("error", [](float reading, std::istream& row) {
        std::string sign, digits;
        row >> sign >> digits;
        const PilotErrorFigure figure = pilotErrorFigure(reading);
        EXPECT_EQ(figure.negative, sign == "-") << reading;
        EXPECT_TRUE(figure.digits.changes) << reading;
        EXPECT_EQ(shown(figure.digits), digits) << reading;
    });
    EXPECT_EQ(rows, 1999);
}

TEST(QualityTable, EveryTenthOfThePilotLevelShowsItsDigits) {
    const int rows = eachRow("pilot", [](float reading, std::istream& row) {
        std::string digits;
        row >> digits;
        EXPECT_EQ(shown(pilotLevelDigits(reading)), digits) << reading;
    });
    EXPECT_EQ(rows, 1000);
}

TEST(QualityTable, EveryHundredthOfTheDistortionShowsItsDigits) {
    const int rows = eachRow("distortion", [](float reading, std::istream& row) {
        std::string digits;
        row >> digits;
        EXPECT_EQ(shown(distortionDigits(distortionFigure(reading, "0"))), digits) << reading;
    });
    EXPECT_EQ(rows, 1000);
}

}  // namespace
}  // namespace hmonitor
