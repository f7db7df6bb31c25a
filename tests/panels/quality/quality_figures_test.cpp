// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/quality/quality_figures.h"

#include <gtest/gtest.h>

namespace hmonitor {
namespace {

constexpr int kDark = ThreePlaces::kBlank;
using Places = std::array<int, 3>;

TEST(PilotError, CutsTheFractionOfItsTenths) {
    const PilotErrorFigure figure = pilotErrorFigure(1.26f);
    EXPECT_FALSE(figure.negative);
    EXPECT_EQ(figure.text, "12.6");
    EXPECT_EQ(figure.digits.places, (Places{kDark, 1, 2}));
    EXPECT_EQ(pilotErrorFigure(1.29f).digits.places, (Places{kDark, 1, 2}));
    EXPECT_EQ(pilotErrorFigure(0.99f).digits.places, (Places{kDark, kDark, 9}));
    EXPECT_EQ(pilotErrorFigure(9.99f).digits.places, (Places{kDark, 9, 9}));
}

TEST(PilotError, OfNothingIsAPlusAndOneNought) {
    for (const float nothing : {0.f, -0.f}) {
        const PilotErrorFigure figure = pilotErrorFigure(nothing);
        EXPECT_FALSE(figure.negative);
        EXPECT_EQ(figure.digits.places, (Places{kDark, kDark, 0}));
    }
}

TEST(PilotError, JustBelowNothingIsAMinus) {
    EXPECT_TRUE(pilotErrorFigure(-0.01f).negative);
    EXPECT_EQ(pilotErrorFigure(-0.01f).digits.places, (Places{kDark, kDark, 0}));
}

TEST(PilotError, GainsADigitAtTenAndAtAHundredTenths) {
    EXPECT_EQ(pilotErrorFigure(0.9f).digits.places, (Places{kDark, kDark, 9}));
    EXPECT_EQ(pilotErrorFigure(1.f).digits.places, (Places{kDark, 1, 0}));
    EXPECT_EQ(pilotErrorFigure(9.9f).digits.places, (Places{kDark, 9, 9}));
    EXPECT_EQ(pilotErrorFigure(10.f).digits.places, (Places{1, 0, 0}));
}

TEST(PilotError, StopsAt999Upwards) {
    for (const float large : {99.9f, 100.f, 1000.f, 11583.f}) {
        const PilotErrorFigure figure = pilotErrorFigure(large);
        EXPECT_TRUE(figure.digits.changes) << large;
        EXPECT_EQ(figure.digits.places, (Places{9, 9, 9})) << large;
    }
}

TEST(PilotError, LeavesTheDigitsAloneFarBelowNothing) {
    EXPECT_TRUE(pilotErrorFigure(-99.9f).digits.changes);
    EXPECT_TRUE(pilotErrorFigure(-99.95f).digits.changes);
    for (const float large : {-100.f, -123.4f, -1000.f, -20000.f}) {
        const PilotErrorFigure figure = pilotErrorFigure(large);
        EXPECT_TRUE(figure.negative) << large;
        EXPECT_FALSE(figure.digits.changes) << large;
    }
}

TEST(PilotLevel, CutsTheFractionTowardsZeroOfEitherSign) {
    EXPECT_EQ(pilotLevelDigits(9.99f).places, (Places{kDark, 9, 9}));
    EXPECT_EQ(pilotLevelDigits(-9.99f).places, (Places{kDark, 9, 9}));
    EXPECT_EQ(pilotLevelDigits(0.f).places, (Places{kDark, kDark, 0}));
    EXPECT_EQ(pilotLevelDigits(-0.09f).places, (Places{kDark, kDark, 0}));
    EXPECT_EQ(pilotLevelDigits(0.7f).places, (Places{kDark, kDark, 7}));
    EXPECT_EQ(pilotLevelDigits(10.f).places, (Places{1, 0, 0}));
}

TEST(PilotLevel, ShowsTheFirstThreeFiguresOfAHundredAndMore) {
    EXPECT_EQ(pilotLevelDigits(123.4f).places, (Places{1, 2, 3}));
}

TEST(Noise, NeverShowsBetterThanTheStoredFloor) {
    EXPECT_EQ(noiseFigure(-72.4f, "-70"), 70);
    EXPECT_EQ(noiseFigure(-65.9f, "-70"), 65);
    EXPECT_EQ(noiseFigure(-70.f, "-70"), 70);
}

TEST(Noise, IsFreeOfAFloorWhereNoneIsStored) {
    EXPECT_EQ(noiseFigure(-72.4f, "xx"), 72);
    EXPECT_EQ(noiseFigure(-72.4f, "0"), 72);
    EXPECT_EQ(noiseFigure(0.f, "xx"), 0);
    EXPECT_EQ(noiseFigure(0.f, "0"), 0);
}

TEST(Noise, OfNothingTakesTheStoredValue) {
    EXPECT_EQ(noiseFigure(0.f, "-61.7"), 61);
    EXPECT_EQ(noiseFigure(0.f, "55"), 55);
}

TEST(Noise, ANoughtWrittenOtherwiseIsAFloor) {
    EXPECT_EQ(noiseFigure(-72.4f, "0.0"), 0);
    EXPECT_EQ(noiseFigure(-72.4f, ""), 0);
}

TEST(Noise, StopsAt99) {
    EXPECT_EQ(noiseFigure(-99.9f, "xx"), 99);
    EXPECT_EQ(noiseFigure(-100.f, "xx"), 99);
    EXPECT_EQ(noiseFigure(-10000.f, "-120"), 99);
    EXPECT_EQ(noiseFigure(10000.f, "xx"), 99);
}

TEST(Separation, NeverFallsBelowTheStoredResult) {
    EXPECT_EQ(separationFigure(60.f, "65"), 65);
    EXPECT_EQ(separationFigure(65.9f, "65"), 65);
    EXPECT_EQ(separationFigure(66.f, "65"), 66);
    EXPECT_EQ(separationFigure(40.7f, "0"), 40);
    EXPECT_EQ(separationFigure(0.9f, "0"), 0);
}

TEST(Separation, StopsAt99) {
    EXPECT_EQ(separationFigure(99.9f, "0"), 99);
    EXPECT_EQ(separationFigure(250.f, "65"), 99);
}

TEST(Separation, BelowNothingIsNothing) {
    EXPECT_EQ(separationFigure(-0.5f, "0"), 0);
    EXPECT_EQ(separationFigure(-30.f, "12"), 12);
}

TEST(Distortion, OfFiveHundredthsIsThreeDigits) {
    EXPECT_EQ(distortionFigure(0.05f, "0"), 5);
    EXPECT_EQ(distortionDigits(5).places, (Places{0, 0, 5}));
}

TEST(Distortion, GainsADigitAtTenAndAtAHundred) {
    EXPECT_EQ(distortionDigits(0).places, (Places{0, 0, 0}));
    EXPECT_EQ(distortionDigits(9.99).places, (Places{0, 0, 9}));
    EXPECT_EQ(distortionDigits(10).places, (Places{0, 1, 0}));
    EXPECT_EQ(distortionDigits(99.9).places, (Places{0, 9, 9}));
    EXPECT_EQ(distortionDigits(100).places, (Places{1, 0, 0}));
    EXPECT_EQ(distortionDigits(127).places, (Places{1, 2, 7}));
}

TEST(Distortion, NeverFallsBelowTheStoredResult) {
    EXPECT_EQ(distortionFigure(0.05f, "12"), 12);
    EXPECT_EQ(distortionFigure(0.12f, "12"), 12);
    EXPECT_EQ(distortionFigure(0.13f, "12"), 13);
    EXPECT_EQ(distortionFigure(-1.f, "0"), 0);
}

TEST(Distortion, CutsWhatLiesBehindItsHundredths) {
    EXPECT_EQ(distortionDigits(distortionFigure(1.239f, "0")).places, (Places{1, 2, 3}));
    EXPECT_EQ(distortionDigits(distortionFigure(0.0999f, "0")).places, (Places{0, 0, 9}));
}

TEST(SignedTenths, HasAPlusAboveNothingAlone) {
    EXPECT_EQ(signedTenths(1.26f), "+1.3");
    EXPECT_EQ(signedTenths(0.04f), "+0.0");
    EXPECT_EQ(signedTenths(0.f), "0.0");
    EXPECT_EQ(signedTenths(-0.04f), "0.0");
    EXPECT_EQ(signedTenths(-1.26f), "-1.3");
}

}  // namespace
}  // namespace hmonitor
