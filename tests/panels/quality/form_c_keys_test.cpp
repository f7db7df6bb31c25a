// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/panels/quality/quality_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ResetKeys : public Quality {
 protected:
    void store(const std::string& noise, const std::string& separation,
               const std::string& distortion) {
        std::vector<std::string> results(22, "0");
        results[17] = results[18] = noise;
        results[19] = results[20] = separation;
        results[21] = distortion;
        bench.write("0981.dat", lines(results));
    }
    /// Sets every floor to a value that no reset sets.
    void setFloors() {
        bench.state.FloorNoiseL = bench.state.FloorNoiseR = "-11";
        bench.state.FloorSepL = bench.state.FloorSepR = "22";
        bench.state.FloorThd = "33";
    }
};

TEST_F(ResetKeys, ShowTheirPicturesAndActWhenTheyComeUp) {
    for (display::Picture* key :
         {&bench.formC.Image_Reset1, &bench.formC.Image2, &bench.formC.Image3}) {
        EXPECT_EQ(key->picture, "ResN");
        bench.press(*key);
        EXPECT_EQ(key->picture, "ResA");
        EXPECT_THAT(bench.takeCalls(), IsEmpty());
        bench.release(*key);
        EXPECT_EQ(key->picture, "ResN");
        EXPECT_EQ(bench.takeCalls().size(), 5u);
    }
}

TEST_F(ResetKeys, StopResetStopAndTuneAgain) {
    const std::pair<display::Picture*, const char*> keys[] = {
        {&bench.formC.Image_Reset1, "HM_Reset(1)"},
        {&bench.formC.Image2, "HM_Reset(2)"},
        {&bench.formC.Image3, "HM_Reset(3)"}};
    for (const auto& [key, reset] : keys) {
        bench.click(*key);
        EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", reset, "HM_Parar", "HM_Parar",
                                                   "HM_Normal(981, 0, 0, 0, 0)"));
    }
}

TEST_F(ResetKeys, TheClearedValuesComeBackFromTheResultsFile) {
    store("-66.5", "58.9", "0.27");
    setFloors();
    bench.click(bench.formC.Image_Reset1);
    EXPECT_EQ(bench.state.FloorNoiseL, "-66.5");
    EXPECT_EQ(bench.state.FloorSepR, "58");
    EXPECT_EQ(bench.state.FloorThd, "27");
}

/// The tuning ends the program at its first file, so the fields are as the key cleared them.
TEST_F(ResetKeys, ClearTheirOwnFieldsBeforeTheTuning) {
    const std::pair<display::Picture*, std::vector<std::string>> keys[] = {
        {&bench.formC.Image_Reset1, {"xx", "xx", "22", "22", "33"}},
        {&bench.formC.Image2, {"-11", "-11", "22", "22", "0"}},
        {&bench.formC.Image3, {"-11", "-11", "0", "0", "33"}}};
    for (const auto& [key, cleared] : keys) {
        RackBench torn;
        torn.start();
        torn.remove("Hm-res.dat");  // the first file that the tuning reads
        torn.desktop.boxAnswers = {"ok"};
        torn.state.FloorNoiseL = torn.state.FloorNoiseR = "-11";
        torn.state.FloorSepL = torn.state.FloorSepR = "22";
        torn.state.FloorThd = "33";
        auto* same = dynamic_cast<display::Picture*>(torn.formC.find(key->name()));
        torn.hand.click(*same);
        torn.desktop.settle();
        EXPECT_EQ((std::vector{torn.state.FloorNoiseL.str(), torn.state.FloorNoiseR.str(),
                               torn.state.FloorSepL.str(), torn.state.FloorSepR.str(),
                               torn.state.FloorThd.str()}),
                  cleared);
    }
}

TEST_F(ResetKeys, AfterANoiseResetTheDigitsShowThePlainReadingUntilAFloorIsStored) {
    bench.readings.noiseLeft = bench.readings.noiseRight = -72.4f;
    bench.state.FloorNoiseL = bench.state.FloorNoiseR = "-60";
    bench.formC.Command11();
    EXPECT_EQ(noise(), "6060");
    bench.click(bench.formC.Image_Reset1);
    bench.formC.Command11();
    EXPECT_EQ(noise(), "7272");
    store("-70", "0", "0");
    bench.formB.cambfre();
    bench.formC.Command11();
    EXPECT_EQ(noise(), "7070");
}

TEST_F(ResetKeys, InDemoModeTellTheUnitButDoNotTuneIt) {
    bench.state.DemoMode = "si";
    setFloors();
    bench.click(bench.formC.Image_Reset1);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Reset(1)", "HM_Parar"));
    EXPECT_EQ(bench.state.FloorNoiseL, "xx");
    EXPECT_EQ(bench.state.FloorNoiseR, "xx");
}

TEST(QualityTitles, FollowTheLanguageOfTheSystem) {
    const std::vector<std::string> english = {
        "19Khz Freq. Error",  "Pilot Level",       "Noise level", "Harmonic distortion",
        "Channel Separation", "57Khz Freq. Error", "RDS level"};
    const std::vector<std::string> spanish = {
        "Error Frec. 19Khz",     "Nivel tono piloto", "Piso de ruido", "Distorsion armonica",
        "Separacion de canales", "Error Frec. 57Khz", "Nivel RDS"};
    for (const auto& [id, titles] : {std::pair{RackBench::kEnglish, english},
                                     {0x040c, english},
                                     {RackBench::kSpanish, spanish},
                                     {RackBench::kPortuguese, spanish}}) {
        RackBench bench(id);
        bench.start();
        const Form_C& panel = bench.formC;
        EXPECT_EQ(panel.Label_ErrorFrecuencia19Khz.caption, titles[0]);
        EXPECT_EQ(panel.Label_NivelPiloto.caption, titles[1]);
        EXPECT_EQ(panel.Label_PisoDeRuido.caption, titles[2]);
        EXPECT_EQ(panel.Label_DistorsionArmonica.caption, titles[3]);
        EXPECT_EQ(panel.Label_SeparacionDeCanales.caption, titles[4]);
        EXPECT_EQ(panel.Label_57KhzError.caption, titles[5]);
        EXPECT_EQ(panel.Label_NivelRDS.caption, titles[6]);
    }
}

}  // namespace
}  // namespace hmonitor::test
