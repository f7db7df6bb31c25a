// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "tests/panels/quality/quality_bench.h"

namespace hmonitor::test {
namespace {

TEST_F(Quality, RefreshesTenTimesASecondWithFiveReadingsOfItsOwn) {
    bench.readings.pilotError = -0.55f;
    bench.readings.pilotLevel = 10;
    bench.readings.noiseLeft = -61;
    bench.readings.noiseRight = -61;
    const int before = bench.driver.dataCalls;
    const int rdsBefore = bench.driver.rdsCalls;
    bench.formC.Command4();
    bench.formC.Command6();
    bench.formC.Command11();
    bench.formC.Command13();
    bench.formC.Command1();
    EXPECT_EQ(bench.driver.dataCalls - before, 5);
    EXPECT_EQ(bench.driver.rdsCalls - rdsBefore, 1);

    bench.readings.noiseLeft = -52;
    bench.advance(std::chrono::milliseconds(100));
    EXPECT_EQ(noise(), "5261");
    // The labels are written last, so the digit of the error does not change this one.
    EXPECT_EQ(bench.formC.Label_19K_FrecError.caption, "-0.6");
}

TEST_F(Quality, LabelsShowTheReadingsAsTheyAre) {
    bench.readings.pilotError = 1.26f;
    bench.readings.pilotLevel = 9.55f;
    bench.readings.noiseLeft = -72.44f;
    bench.readings.noiseRight = -71.46f;
    bench.readings.separationLeft = 60;
    bench.readings.separationRight = 41.25f;
    bench.readings.distortion = 0.056f;
    bench.readings.rdsError = -0.75f;
    bench.readings.rdsLevel = 4.44f;
    bench.state.FloorNoiseL = "-70";
    bench.state.FloorSepL = "65";
    bench.state.FloorThd = "40";
    bench.formC.Command1();
    EXPECT_EQ(bench.formC.Label_19K_FrecError.caption, "+1.3");
    EXPECT_EQ(bench.formC.Label_PilotLevel.caption, "9.6");
    EXPECT_EQ(bench.formC.Label_LeftNoise.caption, "-72.4");
    EXPECT_EQ(bench.formC.Label_RightNoise.caption, "-71.5");
    EXPECT_EQ(bench.formC.Label_ChannelSep_Left.caption, "60.0");
    EXPECT_EQ(bench.formC.Label_ChannelSep_Right.caption, "41.3");
    EXPECT_EQ(bench.formC.Label_HarmonicDistortion.caption, "0.06");
    EXPECT_EQ(bench.formC.Label_57K_FrecError.caption, "-0.8");
    EXPECT_EQ(bench.formC.Label_RDSLevel.caption, "4.4");
}

TEST_F(Quality, WithoutAPilotItsErrorMeansNothing) {
    bench.readings.pilotError = 1.5f;
    for (const float none : {0.3f, 0.f, -5.f}) {
        bench.readings.pilotLevel = none;
        bench.formC.Command1();
        EXPECT_EQ(bench.formC.Label_19K_FrecError.caption, "----") << none;
    }
    bench.readings.pilotLevel = 0.31f;
    bench.formC.Command1();
    EXPECT_EQ(bench.formC.Label_19K_FrecError.caption, "+1.5");
}

TEST_F(Quality, WithoutRdsItsErrorMeansNothing) {
    bench.readings.rdsError = 2.5f;
    bench.readings.rdsLevel = 0.3f;
    bench.formC.Command1();
    EXPECT_EQ(bench.formC.Label_57K_FrecError.caption, "----");
    EXPECT_EQ(bench.formC.Label_RDSLevel.caption, "0.3");
    bench.readings.rdsLevel = 0.31f;
    bench.formC.Command1();
    EXPECT_EQ(bench.formC.Label_57K_FrecError.caption, "+2.5");
    EXPECT_EQ(bench.formC.RdsLevel, 0.31f);
    EXPECT_EQ(bench.formC.Error57, 2.5f);
}

TEST_F(Quality, SeparationDigitsStandOnTheStoredResult) {
    bench.readings.separationLeft = 60;
    bench.readings.separationRight = 48.9f;
    bench.state.FloorSepL = "65";
    bench.state.FloorSepR = "0";
    bench.formC.Command1();
    EXPECT_EQ(separation(), "6548");
    EXPECT_EQ(bench.formC.Label_ChannelSep_Left.caption, "60.0");
}

TEST_F(Quality, NoiseDigitsStandOnTheStoredFloor) {
    bench.readings.noiseLeft = -72.4f;
    bench.readings.noiseRight = -72.4f;
    bench.state.FloorNoiseL = "-70";
    bench.state.FloorNoiseR = "xx";
    bench.formC.Command11();
    EXPECT_EQ(noise(), "7072");
}

TEST_F(Quality, DistortionAlwaysHasThreeDigits) {
    bench.readings.distortion = 0.05f;
    bench.formC.Command13();
    EXPECT_EQ(distortion(), "005");
    bench.state.FloorThd = "230";
    bench.formC.Command13();
    EXPECT_EQ(distortion(), "230");
}

TEST_F(Quality, PilotErrorShowsItsSignAndDarkensUnusedPlaces) {
    bench.readings.pilotError = -12.34f;
    bench.formC.Command4();
    EXPECT_EQ(error19(), "-123");
    bench.readings.pilotError = 1.26f;
    bench.formC.Command4();
    EXPECT_EQ(error19(), "+ 12");
    bench.readings.pilotError = 0;
    bench.formC.Command4();
    EXPECT_EQ(error19(), "+  0");
}

TEST_F(Quality, PilotErrorOfOneDigitStandsInTheLabelUntilItIsWrittenAgain) {
    bench.readings.pilotError = -0.55f;
    bench.readings.pilotLevel = 10;
    bench.formC.Command1();
    EXPECT_EQ(bench.formC.Label_19K_FrecError.caption, "-0.6");
    bench.formC.Command4();
    EXPECT_EQ(bench.formC.Label_19K_FrecError.caption, "5");
    bench.formC.Command1();
    EXPECT_EQ(bench.formC.Label_19K_FrecError.caption, "-0.6");
    bench.readings.pilotError = 1.5f;
    bench.formC.Command4();
    EXPECT_EQ(bench.formC.Label_19K_FrecError.caption, "-0.6");
}

TEST_F(Quality, PilotErrorFarBelowChangesTheSignAlone) {
    bench.readings.pilotError = 45.6f;
    bench.formC.Command4();
    bench.readings.pilotError = -100;
    bench.formC.Command4();
    EXPECT_EQ(error19(), "-456");
}

TEST_F(Quality, PilotLevelDarkensUnusedPlaces) {
    for (const auto& [level, digits] :
         {std::pair{12.39f, "123"}, {9.99f, " 99"}, {0.75f, "  7"}, {10.f, "100"}}) {
        bench.readings.pilotLevel = level;
        bench.formC.Command6();
        EXPECT_EQ(pilot(), digits) << level;
    }
}

TEST_F(Quality, WhileArmedTheDigitsStandOnTheValuesOfTheMomentOfArming) {
    bench.write("Hm-res.dat", lines({"1", "1.26", " 9.5 "}));
    bench.readings.pilotError = 50;
    bench.readings.pilotLevel = 70;
    bench.state.ResponseState = "si";
    bench.state.ResponseAuto = "si";
    bench.formC.Command4();
    bench.formC.Command6();
    EXPECT_EQ(bench.state.ResponseState, "sisi");
    EXPECT_EQ(error19(), "+ 12");
    EXPECT_EQ(pilot(), " 95");

    // The file is only read when the run is armed.
    bench.write("Hm-res.dat", lines({"1", "33.3", "44.4"}));
    bench.formC.Command4();
    bench.formC.Command6();
    EXPECT_EQ(error19(), "+ 12");
    EXPECT_EQ(pilot(), " 95");

    bench.state.ResponseAuto = "";
    bench.formC.Command4();
    bench.formC.Command6();
    EXPECT_EQ(error19(), "+500");
    EXPECT_EQ(pilot(), "700");
    EXPECT_EQ(bench.formC.FrozenError19, 50.f);
    EXPECT_EQ(bench.formC.FrozenPilot, 70.f);
}

TEST_F(Quality, DemoModeShowsItsOwnFigures) {
    bench.state.DemoMode = "si";
    bench.state.ResponseState = "si";
    for (int output = 6; output <= 12; ++output) bench.output(output) = 33;
    for (SmallText* floor : {&bench.state.FloorSepL, &bench.state.FloorSepR}) *floor = "65";
    bench.state.FloorThd = "500";
    bench.formC.FrozenError19 = 7;
    bench.formC.Command4();
    bench.formC.Command6();
    bench.formC.Command11();
    bench.formC.Command13();
    bench.formC.Command1();
    EXPECT_EQ(error19(), "+  5");
    EXPECT_EQ(pilot(), "100");
    EXPECT_EQ(noise(), "7072");
    EXPECT_EQ(distortion(), "127");
    EXPECT_EQ(separation(), "4545");
    EXPECT_EQ(bench.formC.Label_PilotLevel.caption, "33.0");
    EXPECT_EQ(bench.state.ResponseState, "si");
    EXPECT_EQ(bench.formC.FrozenError19, 7.f);
}

}  // namespace
}  // namespace hmonitor::test
