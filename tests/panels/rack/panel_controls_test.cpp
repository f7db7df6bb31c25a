// SPDX-License-Identifier: GPL-3.0-or-later
// The controls that the panels' logic drives, by their run-time names, and their state after
// loading.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using display::Colour;

/// Expects controls of a kind with numbered names on a form.
template <class Kind>
void expectNumbered(const display::Form& form, const std::string& stem, int first, int last) {
    for (int number = first; number <= last; ++number) {
        const std::string name = stem + std::to_string(number);
        EXPECT_NE(dynamic_cast<Kind*>(form.find(name)), nullptr) << form.name() << "." << name;
    }
}

template <class Kind>
void expectNamed(const display::Form& form, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        EXPECT_NE(dynamic_cast<Kind*>(form.find(name)), nullptr) << form.name() << "." << name;
    }
}

/// The panels loaded as the program's start finds them, nothing tuned yet.
class Panels : public testing::Test {
 protected:
    void SetUp() override {
        bench.formB.load();
        bench.formC.load();
    }
    RackBench bench{RackBench::kSpanish};
};

TEST_F(Panels, OfTheModulationHaveTheirControls) {
    expectNamed<display::Label>(
        bench.form1,
        {"Label10", "Label_FMod_Porcentaje", "Label_FMod", "Label_PicosPorMinuto",
         "Label_FieldIntensity", "Label_CarrierDeviation", "Label_OVER", "Label_Bad_CarrierDev",
         "Label_Multipath", "multygood", "multybad", "Label_NivelDeModulacion",
         "Label_NivelModulacionFrecuencia", "Label_PeakPerMinute", "Label_IntensidadDeCampo",
         "Label_DesviacionDePortadora"});
    expectNamed<display::Picture>(
        bench.form1, {"Picture1", "Picture2", "Picture3", "Image_Average", "Image6", "Image7",
                      "Image9", "Image_Power", "SSbAMmode", "multypath(0)", "multypath(4)"});
    expectNamed<display::Line>(bench.form1, {"Line1"});
    for (const char* name : {"Timer1", "Timer4", "Timer5"}) {
        EXPECT_NE(bench.form1.findTimer(name), nullptr) << name;
    }
}

TEST_F(Panels, OfTheAudioHaveTheirControls) {
    for (const char* family : {"LineAudL(", "LineAudR("}) {
        for (int i = 0; i <= 61; ++i) {
            const std::string name = family + std::to_string(i) + ")";
            EXPECT_NE(dynamic_cast<display::Line*>(bench.formB.find(name)), nullptr) << name;
        }
    }
    expectNumbered<display::Line>(bench.formB, "Line", 1, 6);
    expectNumbered<display::Line>(bench.formB, "Line", 22, 28);
    expectNumbered<display::Line>(bench.formB, "Line", 30, 43);
    expectNumbered<display::Line>(bench.formB, "Line", 45, 46);
    expectNumbered<display::Line>(bench.formB, "Line", 120, 121);
    expectNumbered<display::Line>(bench.formB, "Line", 124, 137);
    expectNamed<display::Line>(bench.formB, {"LinePo"});
    expectNamed<display::Label>(bench.formB,
                                {"PromL", "PromR", "Label_PhaseVector", "Label_MemoryNumber",
                                 "Label_FrecRadio", "Label_RadioName", "Label_AudioLevel",
                                 "Label_StereoPhaseVector", "Label_AudioProcessingRelativePower"});
    expectNamed<display::ScrollBar>(bench.formB, {"HScroll1"});
    expectNumbered<display::Key>(bench.formB, "SSCommand", 1, 2);
    expectNumbered<display::Picture>(bench.formB, "Image", 1, 4);
    for (const char* name : {"Timer2", "Timer3"}) {
        EXPECT_NE(bench.formB.findTimer(name), nullptr) << name;
    }
}

TEST_F(Panels, OfTheQualityHaveTheirControlsAndNoTimer) {
    for (const auto& [first, last] :
         {std::pair{1, 28}, {36, 44}, {61, 88}, {91, 137}, {139, 145}, {147, 148}}) {
        expectNumbered<display::Line>(bench.formC, "Line", first, last);
    }
    expectNamed<display::Label>(
        bench.formC,
        {"Label_ErrorFrecuencia19Khz", "Label_NivelPiloto", "Label_PisoDeRuido",
         "Label_DistorsionArmonica", "Label_SeparacionDeCanales", "Label_57KhzError",
         "Label_NivelRDS", "Label_19K_FrecError", "Label_PilotLevel", "Label_LeftNoise",
         "Label_RightNoise", "Label_HarmonicDistortion", "Label_ChannelSep_Left",
         "Label_ChannelSep_Right", "Label_57K_FrecError", "Label_RDSLevel"});
    expectNamed<display::Picture>(bench.formC, {"Image_Reset1", "Image2", "Image3"});
    EXPECT_TRUE(bench.formC.timers().empty());
}

TEST_F(Panels, OfTheAudioComeUpWithTheirStartValues) {
    Form_B& panel = bench.formB;
    EXPECT_EQ(panel.Pi, 4 * std::atan(1.0));
    EXPECT_EQ(panel.TunedFreq, 875);
    EXPECT_EQ(panel.MemoryNumber, 1);
    EXPECT_EQ(panel.MemoryState, "cero");
    EXPECT_EQ(panel.RadioName, "");
    EXPECT_EQ(panel.OffMemory, 0);
    EXPECT_EQ(panel.ManualTune, 0);
    EXPECT_EQ(panel.PanelStarted, 0);
    EXPECT_EQ(panel.ResponseSeen, 0);
    EXPECT_EQ(panel.ButtonTune, "");
    EXPECT_EQ(panel.DemoTick, 0);
    EXPECT_EQ(panel.WindowTicks, 0);
    EXPECT_EQ(panel.SegmentOnColour, Colour{0x2f2fff});
    EXPECT_EQ(panel.WindowMaxL.windowMax, 0);
    EXPECT_EQ(panel.WindowMaxR.windowMax, 0);
    EXPECT_EQ(panel.phaseHold.PhaseShown, 0);
    EXPECT_EQ(panel.power.PowerShown, 0);
    EXPECT_EQ(panel.power.PowerTicks, 0);
    EXPECT_EQ(panel.PowerDigit, 0);
    EXPECT_EQ(panel.PowerPlace, 0);
    EXPECT_EQ(bench.form1.PowerHold, 115);
    EXPECT_EQ(bench.state.HalfStep, "0");
    EXPECT_FALSE(panel.Timer2.enabled);
    EXPECT_FALSE(panel.Timer3.enabled);
    EXPECT_EQ(panel.Image1.picture, "LyRN");
    EXPECT_EQ(panel.Image2.picture, "LRN");
    EXPECT_EQ(panel.Image3.picture, "SetN");
    EXPECT_EQ(panel.Image4.picture, "RemoteN");
    EXPECT_EQ(panel.HScroll1.minimum, 0);
    EXPECT_EQ(panel.HScroll1.maximum, 206);
    EXPECT_EQ(panel.HScroll1.pageStep, 10);
}

TEST_F(Panels, OfTheAudioHaveOneElementABarUntilTheFirstTuning) {
    for (auto* family : {&bench.formB.LineAudL, &bench.formB.LineAudR}) {
        for (std::size_t i = 0; i < 62; ++i) {
            EXPECT_EQ((*family)[i].visible, i == 0) << i;
            EXPECT_EQ((*family)[i].x1, 5) << i;
        }
    }
}

TEST_F(Panels, OfTheAudioHaveTheirNeedlesWhereTheyTurn) {
    Form_B& panel = bench.formB;
    EXPECT_EQ(panel.LinePo.x1, 1350);
    EXPECT_EQ(panel.LinePo.y1, 2315);
    EXPECT_EQ(panel.LinePo.colour, Colour{0x0000ff});
    EXPECT_EQ(panel.LinePo.thickness, 3);
    for (const display::Line* line :
         {&panel.Line1, &panel.Line2, &panel.Line3, &panel.Line4, &panel.Line5, &panel.Line6}) {
        EXPECT_EQ(line->x1, 1320) << line->name();
        EXPECT_EQ(line->y1, 1080) << line->name();
    }
}

TEST_F(Panels, OfTheQualityComeUpDarkWithReleasedKeys) {
    Form_C& panel = bench.formC;
    EXPECT_EQ(panel.SegmentGreen, Colour{0x00ff00});
    EXPECT_EQ(panel.RdsLevel, 0);
    EXPECT_EQ(panel.Error57, 0);
    for (const display::Picture* key : {&panel.Image_Reset1, &panel.Image2, &panel.Image3}) {
        EXPECT_EQ(key->picture, "ResN") << key->name();
    }
    for (SegmentDigit* digit : {&panel.error19[0], &panel.pilot[1], &panel.noise[3],
                                &panel.separation[3], &panel.distortion[2]}) {
        for (int i = 0; i < 7; ++i) EXPECT_EQ(digit->segment(i).colour, Colour{0x1d1c20});
        EXPECT_FALSE(digit->figure().has_value());
    }
}

TEST(PanelCaptions, OfTheAudioFollowTheLanguageOfTheSystem) {
    for (const int id :
         {RackBench::kSpanish, RackBench::kPortuguese, RackBench::kEnglish, 0x040c}) {
        const bool spanish = id == RackBench::kSpanish || id == RackBench::kPortuguese;
        RackBench bench(id);
        bench.start();
        const Form_B& panel = bench.formB;
        EXPECT_EQ(panel.Label_AudioLevel.caption, spanish ? "Nivel de audio" : "Audio level");
        EXPECT_EQ(panel.Label_StereoPhaseVector.caption,
                  spanish ? "Vector de fase estereo" : "Stereo phase vector");
        EXPECT_EQ(panel.Label_AudioProcessingRelativePower.caption,
                  spanish ? "Potencia relativa del procesador de audio"
                          : "Audio processing relative power");
    }
}

/// Every figure of the rack has an accessible name in both languages, unique on its panel, and its
/// accessible value is what it shows.
TEST(PanelReadings, HaveNamesInBothLanguages) {
    RackBench bench;
    bench.start();
    for (display::Form* form : std::initializer_list<display::Form*>{&bench.form1, &bench.formB,
                                                                     &bench.formC, &bench.formD}) {
        std::vector<std::string> spanish, english;
        for (display::Control* control : form->controls()) {
            const auto* label = dynamic_cast<display::Label*>(control);
            if (!control->reading && !(label && label->readout)) continue;
            EXPECT_STRNE(control->says.spanish, "") << form->name() << "." << control->name();
            EXPECT_STRNE(control->says.english, "") << form->name() << "." << control->name();
            spanish.push_back(control->says.spanish);
            english.push_back(control->says.english);
        }
        for (auto* names : {&spanish, &english}) {
            std::ranges::sort(*names);
            EXPECT_EQ(std::ranges::adjacent_find(*names), names->end()) << form->name();
        }
    }
}

TEST(PanelReadings, SayWhatIsPainted) {
    RackBench bench;
    const float said[] = {80,  -10, -12, 100,   7.3f, -12.34f, 0.7f, -60,
                          -61, 40,  41,  1.27f, 12,   60,      12,   7};
    for (int i = 1; i <= 16; ++i) bench.output(i) = said[i - 1];
    bench.start();
    bench.advance(std::chrono::milliseconds(1000));
    EXPECT_EQ(bench.form1.BarWell.reading(), "80.0");
    EXPECT_EQ(bench.form1.MultipathWell.reading(), "3");
    EXPECT_EQ(bench.form1.multygood.reading(), "lit");
    EXPECT_EQ(bench.formB.PowerDigits.reading(), "73");
    EXPECT_EQ(bench.formB.PhaseDigits.reading(), "100");
    EXPECT_EQ(bench.formB.MemoryWell.reading(), "1");
    EXPECT_EQ(bench.formC.Error19Digits.reading(), "-12.3");
    EXPECT_EQ(bench.formC.PilotDigits.reading(), "0.7");
    EXPECT_EQ(bench.formC.NoiseDigits.reading(), "60 / 61");
    EXPECT_EQ(bench.formC.DistortionDigits.reading(), "1.27");
    EXPECT_EQ(bench.formC.SeparationDigits.reading(), "40 / 41");
    bench.readings.multipath = 20;
    bench.readings.pilotError = 1.26f;
    bench.readings.relativePower = 10.4f;
    bench.hand.scroll(bench.formB.HScroll1, 1);
    bench.advance(std::chrono::milliseconds(700));
    EXPECT_EQ(bench.form1.multygood.reading(), "dark");
    EXPECT_EQ(bench.formC.Error19Digits.reading(), "+1.2");
    EXPECT_EQ(bench.formB.PowerDigits.reading(), "74") << "the tens place that a 10 leaves";
    EXPECT_EQ(bench.formB.MemoryWell.reading(), "");
    bench.hand.click(bench.formB.SSCommand2);
    bench.click(bench.formB.SSCommand2);
    EXPECT_EQ(bench.formB.MemoryWell.reading(), "16");
}

}  // namespace
}  // namespace hmonitor::test
