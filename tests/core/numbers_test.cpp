// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

TEST(TextToNumber, SkipsLeadingBlanksAndTakesTheLongestLeadingNumber) {
    EXPECT_EQ(valueOf("   875 MHz"), 875);
    EXPECT_EQ(valueOf("-3.5dB"), -3.5);
    EXPECT_EQ(valueOf("+2"), 2);
    EXPECT_EQ(valueOf("1.2.3"), 1.2);
    EXPECT_EQ(valueOf(".5"), 0.5);
    EXPECT_EQ(valueOf("5."), 5);
    EXPECT_EQ(valueOf("1 2"), 1);
}

TEST(TextToNumber, AnythingElseIsZero) {
    for (const char* text :
         {"", " ", "-", "+", ".", "-.", "xx", "cero", "si", "inf", "nan", "--5"}) {
        EXPECT_EQ(valueOf(text), 0) << text;
    }
}

TEST(TextToNumber, ATabIsNoBlank) {
    EXPECT_EQ(valueOf("\t5"), 0);
}

TEST(TextToNumber, KnowsNoExponentAndNoHexadecimal) {
    EXPECT_EQ(valueOf("1e5"), 1);
    EXPECT_EQ(valueOf("0x10"), 0);
}

TEST(TextToNumber, MinusZeroIsPlainZero) {
    EXPECT_FALSE(std::signbit(valueOf("-0.0")));
}

TEST(TextToNumber, WhatIsTooLargeStandsAtTheLargest) {
    EXPECT_EQ(valueOf(std::string(400, '9')), std::numeric_limits<double>::max());
    EXPECT_EQ(valueOf("-" + std::string(400, '9')), std::numeric_limits<double>::lowest());
    EXPECT_EQ(valueOf("0." + std::string(400, '0') + "1"), 0);
}

TEST(TextToNumber, StopsAtTheEndOfAViewIntoALongerText) {
    EXPECT_EQ(valueOf(std::string_view("98155").substr(0, 4)), 9815);
}

TEST(NumberToText, ShortRuleHasNoLeadingBlank) {
    EXPECT_EQ(shortText(5), "5");
    EXPECT_EQ(shortText(20.0), "20");
    EXPECT_EQ(shortText(-35), "-35");
    EXPECT_EQ(shortText(1025.5f), "1025.5");
    EXPECT_EQ(shortText(0.5), "0.5");
    EXPECT_EQ(shortText(-0.5f), "-0.5");
    EXPECT_EQ(shortText(0.0), "0");
    EXPECT_EQ(shortText(-0.0f), "0");
}

TEST(NumberToText, LongRuleHasABlankForZeroAndPositive) {
    EXPECT_EQ(longText(25), " 25");
    EXPECT_EQ(longText(0), " 0");
    EXPECT_EQ(longText(-1.5), "-1.5");
}

TEST(NumberToText, PrintRuleHasABlankBehindToo) {
    EXPECT_EQ(printText(8.9f), " 8.9 ");
    EXPECT_EQ(printText(-1), "-1 ");
}

TEST(NumberToText, AFloatIsRoundedToSevenDigitsNotToItsShortestText) {
    EXPECT_EQ(shortText(0.1f), "0.1");
    EXPECT_EQ(shortText(16777216.0f), "16777220");
    EXPECT_EQ(shortText(0.7f * 10), "7");
    EXPECT_EQ(shortText(98.75001f), "98.75001");
}

TEST(NumberToText, ADoubleHasFifteenDigits) {
    EXPECT_EQ(shortText(0.1 + 0.2), "0.3");
    EXPECT_EQ(shortText(28.999999999999996), "29");
    EXPECT_EQ(shortText(1.0 / 3), "0.333333333333333");
}

TEST(NumberToText, NoExponentBelowTenToTheFifteenth) {
    EXPECT_EQ(shortText(999999999999999.0), "999999999999999");
    EXPECT_EQ(shortText(1e15), "1E+15");
    EXPECT_EQ(shortText(999999999999999.5), "1000000000000000");  // rounded, but below 1E+15
    EXPECT_EQ(shortText(-1.25e20), "-1.25E+20");
    EXPECT_EQ(shortText(1e10f), "10000000000");
    EXPECT_EQ(shortText(1e-7), "0.0000001");
}

TEST(NumberToText, WhatIsNoNumberSaysSo) {
    EXPECT_EQ(shortText(std::nan("")), "nan");
    EXPECT_EQ(shortText(-std::numeric_limits<float>::infinity()), "-inf");
    EXPECT_EQ(mask("0.0", std::numeric_limits<double>::infinity()), "inf");
}

TEST(NumberToText, WholeNumbersOfEveryWidth) {
    EXPECT_EQ(shortText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(shortText(std::int16_t{-7}), "-7");
    EXPECT_EQ(shortText(std::uint8_t{200}), "200");
}

TEST(Mask, ZeroIsADigitAlwaysShown) {
    EXPECT_EQ(mask("0.0", 0.04f), "0.0");
    EXPECT_EQ(mask("0.00", 102.55), "102.55");
    EXPECT_EQ(mask("00.00", 4.5f), "04.50");
    EXPECT_EQ(mask("#00.0", 88.0f), "88.0");
    EXPECT_EQ(mask("#00.0", 102.55), "102.6");
    EXPECT_EQ(mask("#00", 5), "05");
    EXPECT_EQ(mask("####0", 123456), "123456");
    EXPECT_EQ(mask("####0", 0), "0");
}

TEST(Mask, HalvesGoAwayFromZeroOnTheDecimalText) {
    EXPECT_EQ(mask("0.0", 0.25f), "0.3");
    EXPECT_EQ(mask("0.0", -0.25f), "-0.3");
    EXPECT_EQ(mask("0.00", 2.675), "2.68");
    EXPECT_EQ(mask("0.00", 1.005), "1.01");
    EXPECT_EQ(mask("0.0", 69.45f), "69.5");
    EXPECT_EQ(mask("0.0", 9.95f), "10.0");
    EXPECT_EQ(mask("#00", 0.5), "01");
}

TEST(Mask, NeverShowsMinusZero) {
    EXPECT_EQ(mask("0.0", -0.04f), "0.0");
    EXPECT_EQ(mask("0.0", -0.05f), "-0.1");
    EXPECT_EQ(mask("####0", -0.4), "0");
}

TEST(Mask, TextAroundItStays) {
    EXPECT_EQ(mask("####0 mts", -777.0f), "-777 mts");
    EXPECT_EQ(mask("#00.0 MHz", 108.0f), "108.0 MHz");
    EXPECT_EQ(mask("(##0)", 1), "(1)");
}

TEST(ToWhole, HalvesGoToTheEvenNumber) {
    EXPECT_EQ(toWhole(0.5), 0);
    EXPECT_EQ(toWhole(1.5), 2);
    EXPECT_EQ(toWhole(2.5), 2);
    EXPECT_EQ(toWhole(-0.5), 0);
    EXPECT_EQ(toWhole(-1.5), -2);
    EXPECT_EQ(toWhole(2.51), 3);
}

TEST(ToWhole, SaturatesAndTakesNotANumberAsZero) {
    EXPECT_EQ(toWhole(1e12), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(floorWhole(-1e300), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(wholeTowardZero(std::nan("")), 0);
}

TEST(WholePart, GoesDownOrTowardZero) {
    EXPECT_EQ(floorWhole(-1.5), -2);
    EXPECT_EQ(wholeTowardZero(-1.5), -1);
    EXPECT_EQ(floorWhole(0.7f * 10), 7);
}

TEST(SixteenBits, SumsStayAtTheEnds) {
    Int16 figure = 32767;
    figure += 1;
    EXPECT_EQ(figure, 32767);
    figure = -32768;
    --figure;
    EXPECT_EQ(figure, -32768);
    figure = 300;
    figure *= 300;
    EXPECT_EQ(figure, 32767);
    figure = 40000LL;
    EXPECT_EQ(figure, 32767);
    figure = 5;
    figure -= 2;
    EXPECT_EQ(++figure, 4);
}

TEST(LoopStep, IsAtLeastOne) {
    EXPECT_EQ(loopStep(0), 1);
    EXPECT_EQ(loopStep(-4), 1);
    EXPECT_EQ(loopStep(0.5), 1);
    EXPECT_EQ(loopStep(1.5), 2);
    EXPECT_EQ(loopStep(1e9), 32767);
}

TEST(DemoFigure, IsTheFloorOfTheWholeQuotient) {
    EXPECT_EQ(demoFigure(0.5, 60, 0, 50), 40);
    EXPECT_EQ(demoFigure(0.999, 24, 1, 40), 32);  // (23.976 + 41) / 2 = 32.488
    EXPECT_EQ(demoFigure(0, 24, -45, 40), -3);    // -2.5 goes down
}

TEST(DemoPhase, RoundsOnlyTheRandomShareDown) {
    EXPECT_FLOAT_EQ(demoPhase(0.5, 45), 47.5f);
    EXPECT_FLOAT_EQ(demoPhase(0.999, 0.5f), 47.25f);  // (89 + 0.5 + 5) / 2
}

TEST(FrequencyFileName, IsTheKeyWithAnEnding) {
    EXPECT_EQ(frequencyFileName(1025.5, ".dat"), "1025.5.dat");
    EXPECT_EQ(frequencyFileName(985, ".res"), "0985.res");
}

// Sets a locale with a decimal comma for a test; creates one if the system has none.
class DecimalComma {
 public:
    DecimalComma() {
        for (const char* spanish : {"es_ES.UTF-8", "Spanish_Spain"})
            if (std::setlocale(LC_ALL, spanish)) return;
        const std::string made = (temp_.path() / "es_ES.UTF-8").string();
        const std::string command = "localedef -i es_ES -f UTF-8 " + made + " 2>/dev/null";
        ::setenv("LOCPATH", temp_.path().string().c_str(), 1);
        if (std::system(command.c_str()) == 0) std::setlocale(LC_ALL, "es_ES.UTF-8");
    }
    ~DecimalComma() {
        std::setlocale(LC_ALL, "C");
        ::unsetenv("LOCPATH");
    }
    bool isThere() const { return std::localeconv()->decimal_point[0] == ','; }

 private:
    test::TempFolder temp_;
};

TEST(Numbers, AreTheSameInALocaleWithADecimalComma) {
    const DecimalComma comma;
    if (!comma.isThere()) GTEST_SKIP() << "needs the locale es_ES or its source (package locales)";
    EXPECT_EQ(shortText(1.5), "1.5");
    EXPECT_EQ(shortText(1234567.0f), "1234567");
    EXPECT_EQ(mask("0.00", 1.5f), "1.50");
    EXPECT_EQ(valueOf("1.5"), 1.5);
    EXPECT_EQ(valueOf("1,5"), 1);
}

TEST(SmallTextTest, HoldsThirtyOneBytesAndCutsAtAWholeCharacter) {
    EXPECT_EQ(SmallText(std::string(40, 'a')).size(), 31u);
    const SmallText cut(std::string(30, 'a') + "\u00f1");
    EXPECT_EQ(cut, std::string(30, 'a'));
    EXPECT_EQ(SmallText("ab").append('c').append("de"), "abcde");
}

}  // namespace
}  // namespace hmonitor
