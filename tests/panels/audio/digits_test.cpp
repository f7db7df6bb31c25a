// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "display/headless/headless_desktop.h"
#include "tests/panels/audio/shown_digit.h"

namespace hmonitor::test {
namespace {

constexpr display::Colour kLit{0x2f2fff};
constexpr display::Colour kDark{0x1d1c20};

class Sheet final : public display::Form {
 public:
    explicit Sheet(display::Desktop& desktop) : Form(desktop, "Sheet") {}

 protected:
    void layOut() override {}
};

class Digit : public testing::Test {
 protected:
    display::HeadlessDesktop desktop;
    Sheet form{desktop};
    SegmentDigit digit{form, "Line", upFrom(22)};
};

TEST_F(Digit, LightsTheSegmentsOfEachFigureAndDarkensTheOthers) {
    const char* const segments[] = {"012346", "34",     "02456", "23456",   "1345",
                                    "12356",  "012356", "1346",  "0123456", "123456"};
    for (int figure = 0; figure <= 9; ++figure) {
        digit.show(figure, kLit, kDark);
        EXPECT_EQ(litSegments(digit, kLit, kDark), segments[figure]) << figure;
    }
}

TEST_F(Digit, SevenLightsTheUpperLeftSegmentToo) {
    digit.show(7, kLit, kDark);
    EXPECT_EQ(digit.segment(1).colour, kLit);
}

TEST_F(Digit, NumbersThatAreNoFigureLeaveThePlaceAsItWas) {
    digit.show(4, kLit, kDark);
    digit.show(10, kLit, kDark);
    EXPECT_EQ(litSegments(digit, kLit, kDark), "1345");
    digit.show(-1, kLit, kDark);
    EXPECT_EQ(litSegments(digit, kLit, kDark), "1345");
}

TEST_F(Digit, BlankDarkensAllSegments) {
    digit.show(8, kLit, kDark);
    digit.blank(kDark);
    EXPECT_EQ(litSegments(digit, kLit, kDark), "");
}

TEST_F(Digit, LinesAreNumberedUpwardsOrBackwards) {
    EXPECT_EQ(upFrom(30), (std::array<int, 7>{30, 31, 32, 33, 34, 35, 36}));
    EXPECT_EQ(downFrom(43), (std::array<int, 7>{43, 42, 41, 40, 39, 38, 37}));
    EXPECT_EQ(digit.segment(0).name(), "Line22");
    EXPECT_EQ(digit.segment(6).name(), "Line28");
}

TEST_F(Digit, CharactersThatAreNoFigureCountAsZero) {
    EXPECT_EQ(digitOf('7'), 7);
    EXPECT_EQ(digitOf('-'), 0);
    EXPECT_EQ(digitOf(':'), 0);
}

}  // namespace
}  // namespace hmonitor::test
