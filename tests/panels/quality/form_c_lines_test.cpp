// SPDX-License-Identifier: GPL-3.0-or-later
// Which line elements are lit, by their numbers: at some places they are numbered backwards.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "tests/panels/quality/quality_bench.h"

namespace hmonitor::test {
namespace {

class Lines : public Quality {
 protected:
    /// Draws every figure at a place and compares the colours of its seven lines, segments 0 to 6.
    void expectLines(const std::function<void(int, int)>& draw, int place,
                     const std::vector<int>& numbers, display::Colour lit) {
        for (int digit = 0; digit < 10; ++digit) {
            draw(place, digit);
            const std::string_view segments = kFigureSegments.at(static_cast<std::size_t>(digit));
            for (std::size_t i = 0; i < 7; ++i) {
                const std::string name = "Line" + std::to_string(numbers[i]);
                auto* line = dynamic_cast<display::Line*>(bench.formC.find(name));
                ASSERT_NE(line, nullptr) << name;
                EXPECT_EQ(line->colour,
                          segments.find(static_cast<char>('0' + i)) != segments.npos ? lit : kUnlit)
                    << name << " of " << digit;
            }
        }
    }
};

TEST_F(Lines, OfTheSeparation) {
    const auto draw = [this](int place, int digit) { bench.formC.Command2(place, digit); };
    expectLines(draw, 1, {1, 2, 3, 4, 5, 6, 7}, kRed);
    expectLines(draw, 2, {14, 13, 12, 11, 10, 9, 8}, kRed);
    expectLines(draw, 3, {15, 16, 17, 18, 19, 20, 21}, kRed);
    expectLines(draw, 4, {28, 27, 26, 25, 24, 23, 22}, kRed);
}

TEST_F(Lines, OfThePilotError) {
    const auto draw = [this](int place, int digit) { bench.formC.Command3(place, digit); };
    expectLines(draw, 1, {36, 37, 38, 39, 40, 41, 42}, kGreen);
    expectLines(draw, 2, {43, 44, 112, 113, 114, 115, 116}, kGreen);
    expectLines(draw, 3, {139, 140, 141, 142, 143, 144, 145}, kGreen);
    bench.formC.Command3(22);
    EXPECT_EQ(figures(bench.formC.error19, kGreen), " 99");
    bench.formC.Command3(33);
    EXPECT_EQ(figures(bench.formC.error19, kGreen), "  9");
}

TEST_F(Lines, OfThePilotLevel) {
    const auto draw = [this](int place, int digit) { bench.formC.Command5(place, digit); };
    expectLines(draw, 1, {117, 118, 119, 120, 121, 122, 123}, kGreen);
    expectLines(draw, 2, {124, 125, 126, 127, 128, 129, 130}, kGreen);
    expectLines(draw, 3, {131, 132, 133, 134, 135, 136, 137}, kGreen);
    bench.formC.Command5(11);
    EXPECT_EQ(pilot(), " 99");
    bench.formC.Command5(22);
    EXPECT_EQ(pilot(), "  9");
}

TEST_F(Lines, OfTheNoise) {
    const auto draw = [this](int place, int digit) { bench.formC.Command10(place, digit); };
    expectLines(draw, 1, {61, 62, 63, 64, 65, 66, 67}, kRed);
    expectLines(draw, 2, {74, 73, 72, 71, 70, 69, 68}, kRed);
    expectLines(draw, 3, {88, 87, 86, 85, 84, 83, 82}, kRed);
    expectLines(draw, 4, {75, 76, 77, 78, 79, 80, 81}, kRed);
}

TEST_F(Lines, OfTheDistortion) {
    const auto draw = [this](int place, int digit) { bench.formC.Command12(place, digit); };
    expectLines(draw, 1, {104, 103, 102, 101, 100, 99, 98}, kRed);
    expectLines(draw, 2, {91, 92, 93, 94, 95, 96, 97}, kRed);
    expectLines(draw, 3, {111, 110, 109, 108, 107, 106, 105}, kRed);
}

}  // namespace
}  // namespace hmonitor::test
