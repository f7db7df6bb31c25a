// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

#include "base/number_in_text.h"

namespace base {
namespace {

TEST(DecimalText, CutsTrailingZerosAndNeverGivesMinusZero) {
    EXPECT_EQ(decimalText(1025.5, 2), "1025.5");
    EXPECT_EQ(decimalText(985, 2), "985");
    EXPECT_EQ(decimalText(0.5, 3), "0.5");
    EXPECT_EQ(decimalText(-0.04, 1), "0");
    EXPECT_EQ(decimalText(-0.06, 1), "-0.1");
    EXPECT_EQ(decimalText(100, 0), "100");
    EXPECT_EQ(decimalText(1e9, 1), "1000000000");
}

TEST(DecimalText, GivesZeroForWhatIsNoNumber) {
    EXPECT_EQ(decimalText(std::nan(""), 2), "0");
    EXPECT_EQ(decimalText(std::numeric_limits<double>::infinity(), 2), "0");
}

TEST(DecimalText, WritesTheLargestNumberWithoutAnExponent) {
    const std::string text = decimalText(std::numeric_limits<double>::max(), 2);
    EXPECT_EQ(text.size(), 309u);
    EXPECT_EQ(text.find('e'), std::string::npos);
}

TEST(DecimalText, KeepsItsPointInEveryLocale) {
    std::setlocale(LC_ALL, "es_ES.UTF-8");
    EXPECT_EQ(decimalText(1.5, 1), "1.5");
    std::setlocale(LC_ALL, "C");
}

TEST(NumberIn, TakesSignDigitsAndOnePoint) {
    EXPECT_EQ(numberIn(" -3.5\r\n"), -3.5);
    EXPECT_EQ(numberIn("+7"), 7);
    EXPECT_EQ(numberIn(".5"), 0.5);
}

TEST(NumberIn, RefusesAnythingElse) {
    for (const char* text :
         {"", " ", "xx", "1e3", "0x10", "inf", "nan", "1.2.3", "1,5", "+-1", "-", "5 dB", "."}) {
        EXPECT_EQ(numberIn(text), std::nullopt) << text;
    }
}

TEST(ScaledNumber, TakesAPowerOfTenOrALetter) {
    EXPECT_EQ(scaledNumberIn("1.2e6"), 1.2e6);
    EXPECT_EQ(scaledNumberIn(" 2.4M "), 2.4e6);
    EXPECT_EQ(scaledNumberIn("2048k"), 2048e3);
    EXPECT_EQ(scaledNumberIn("98.2"), 98.2);
    EXPECT_EQ(scaledNumberIn("1G"), 1e9);
}

TEST(ScaledNumber, AnythingElseIsNone) {
    for (const char* text :
         {"", "M", "e6", "2e", "2e-3", "2e66", "2 M", "2MM", "2.4X", "0x2", "k2"})
        EXPECT_EQ(scaledNumberIn(text), std::nullopt) << text;
}

TEST(FrequencyKey, HasAZeroInFrontUnderAThousand) {
    EXPECT_EQ(frequencyKey(875), "0875");
    EXPECT_EQ(frequencyKey(875.5), "0875.5");
    EXPECT_EQ(frequencyKey(999.5), "0999.5");
    EXPECT_EQ(frequencyKey(1000), "1000");
    EXPECT_EQ(frequencyKey(1025.5f), "1025.5");
}

}  // namespace
}  // namespace base
