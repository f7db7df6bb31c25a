// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> shownOrHidden(const std::vector<std::string>& journal) {
    std::vector<std::string> seen;
    for (const std::string& line : journal) {
        if (!line.starts_with("driver ")) seen.push_back(line);
    }
    return seen;
}

TEST(Splash, FixesBrandModelAndLanguageAtLoad) {
    RackBench bench;
    bench.showSplash();
    EXPECT_EQ(bench.program.words.gBrand, "Marvenia");
    EXPECT_EQ(bench.program.words.gModel, "TK-16");
    EXPECT_EQ(bench.program.words.gLanguage, "IN");
    EXPECT_EQ(bench.forms.formWaitLoad.ringIndex(), -1);
}

TEST(Splash, SpeaksSpanishForSpanishSystemsAlone) {
    for (const auto& [id, word] : {std::pair{0x0c0a, "ES"},
                                   {0x040a, "ES"},
                                   {0x080a, "ES"},
                                   {0x0416, "IN"},
                                   {0x0816, "IN"},
                                   {0x0409, "IN"}}) {
        RackBench bench(id);
        bench.showSplash();
        EXPECT_EQ(bench.program.words.gLanguage, word) << id;
    }
}

TEST(Splash, MarveniaTakesTheOtherLogoAndMovesIt) {
    RackBench bench;
    bench.showSplash();
    auto& splash = bench.forms.formWaitLoad;
    EXPECT_EQ(splash.Logo1.picture, splash.Logo2.picture.get());
    EXPECT_EQ(splash.Logo1.left, 440.f);
}

TEST(Splash, TeskelKeepsItsLogoWhereItStands) {
    RackBench bench(RackBench::kEnglish, Brand::Teskel);
    bench.showSplash();
    auto& splash = bench.forms.formWaitLoad;
    EXPECT_EQ(bench.program.words.gBrand, "Teskel");
    EXPECT_EQ(splash.Logo1.picture, "LogoTeskel");
    EXPECT_EQ(splash.Logo1.left, 620.f);
}

TEST(Splash, RingRisesEvery62MsAndWrapsFrom16To1) {
    RackBench bench;
    bench.showSplash();
    auto& splash = bench.forms.formWaitLoad;
    splash.Timer2.enabled = false;
    EXPECT_EQ(splash.Label1.caption, "Please wait,");
    bench.advance(61ms);
    EXPECT_EQ(splash.ringIndex(), -1);
    bench.advance(1ms);
    EXPECT_EQ(splash.ringIndex(), 0);
    bench.advance(62ms);
    EXPECT_EQ(splash.ringIndex(), 1);
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(splash.Shape1[i].colour, display::Colour{i == 0 ? 0xff0000u : 0x9c010du}) << i;
    }
    bench.advance(62ms * 15);
    EXPECT_EQ(splash.ringIndex(), 16);
    EXPECT_EQ(splash.Shape1[15].colour, display::Colour{0xff0000});
    bench.advance(62ms);
    EXPECT_EQ(splash.ringIndex(), 1);
    EXPECT_EQ(splash.Shape1[15].colour, display::Colour{0x9c010d});
}

TEST(Splash, OpensTheDriverOnceAfter100Ms) {
    RackBench bench;
    bench.showSplash();
    bench.advance(99ms);
    EXPECT_THAT(bench.driver.calls, IsEmpty());
    bench.advance(1ms);
    EXPECT_EQ(bench.program.words.gModel, "HMonitor");
    EXPECT_FALSE(bench.forms.formWaitLoad.loaded());
    EXPECT_FALSE(bench.forms.formWaitLoad.visible);
    bench.advance(1000ms);
    EXPECT_EQ(std::ranges::count(bench.driver.calls, "HM_Init"), 1);
}

TEST(Splash, TellsAWorkingFolderThatWasLaidAndIsReadLongEnough) {
    for (const int language : {RackBench::kEnglish, RackBench::kSpanish}) {
        RackBench bench(language);
        bench.program.FirstFolder.path = "/home/ana/.local/share/hmonitor";
        bench.showSplash();
        const auto& splash = bench.forms.formWaitLoad;
        const std::string mayBreak = "\u200b";
        const std::string path = "/" + mayBreak + "home/" + mayBreak + "ana/" + mayBreak +
                                 ".local/" + mayBreak + "share/" + mayBreak + "hmonitor";
        EXPECT_EQ(splash.Folder.caption, (language == RackBench::kSpanish ? "Sus archivos están en "
                                                                          : "Your files are in ") +
                                             path);
        EXPECT_TRUE(splash.Folder.visible);
        bench.advance(3900ms);
        EXPECT_TRUE(bench.driver.calls.empty());
        bench.advance(100ms);
        EXPECT_FALSE(bench.driver.calls.empty());
        EXPECT_FALSE(splash.loaded());
    }
}

TEST(Splash, SaysNothingOfAFolderThatWasThere) {
    RackBench bench;
    bench.showSplash();
    EXPECT_FALSE(bench.forms.formWaitLoad.Folder.visible);
    EXPECT_EQ(bench.forms.formWaitLoad.Folder.caption, "");
}

TEST(Start, ShowsTheFormsInTheirOrder) {
    RackBench bench;
    bench.start();
    const auto seen = shownOrHidden(bench.desktop.journal);
    const std::vector<std::string> wanted = {
        "show Form_WaitLoad", "show Form1", "show Form3",  "show Form_C",
        "show Form_D",        "hide Form3", "show Form_B", "hide Form_WaitLoad"};
    std::vector<std::string> rack;
    for (const std::string& line : seen) {
        if (std::ranges::find(wanted, line) != wanted.end()) rack.push_back(line);
    }
    EXPECT_EQ(rack, wanted);
}

TEST(Start, StacksThePanelsUnderOneAnotherAndLeavesTheirLeftAlone) {
    RackBench bench;
    bench.form1.load();
    bench.form1.left = 1000.f;
    bench.form1.top = 500.f;
    bench.formB.load();
    bench.formB.left = 777.f;
    bench.start();
    EXPECT_EQ(bench.formB.top, 500 + bench.form1.height);
    EXPECT_EQ(bench.formC.top, bench.formB.top + bench.formB.height);
    EXPECT_EQ(bench.formD.top, bench.formC.top + bench.formC.height);
    EXPECT_EQ(bench.formB.left, 777.f);
}

TEST(Start, PutsTheWaitPanelDirectlyUnderTheFirst) {
    RackBench bench;
    bool checked = false;
    bench.driver.duringNormal = [&] {
        if (bench.formB.PanelStarted != 0 || !bench.forms.form3.visible) return;
        checked = true;
        EXPECT_EQ(bench.forms.form3.top, bench.form1.top + bench.form1.height);
        EXPECT_EQ(bench.forms.form3.Label1.caption, "Please, Wait Loading...");
    };
    bench.start();
    EXPECT_TRUE(checked);
    EXPECT_FALSE(bench.forms.form3.loaded());
}

TEST(Start, SetsTheStateAsThePanelsExpectIt) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"3", "-3.5", "0", "1", "0", "0", "0", "0"}));
    bench.start();
    EXPECT_EQ(bench.state.Band, "FM");
    EXPECT_EQ(bench.state.HardwareVersion, "1.8");
    EXPECT_FLOAT_EQ(bench.program.words.gHardwareVersion, 1.8f);
    EXPECT_EQ(bench.state.DbCorrection10, "-35");
    EXPECT_EQ(bench.state.ResponseState, "0");
    EXPECT_EQ(bench.state.DemoMode, "");
    EXPECT_EQ(bench.state.MemoryNumber, "3");
    EXPECT_EQ(bench.state.FirstSelect, "00");
    EXPECT_EQ(bench.desktop.helpFile, "hm-16.hlp");
    EXPECT_EQ(bench.form1.PowerHold, 115);
    EXPECT_DOUBLE_EQ(bench.form1.Pi, 3.14159265358979323846);
    EXPECT_EQ(bench.form1.RetuneOnMode, 1);
    EXPECT_EQ(bench.form1.RackPhase, 2);
    EXPECT_FALSE(bench.form1.Label_Bad_CarrierDev.visible);
}

TEST(Start, LoadingThePanelPutsItsHoldsBack) {
    RackBench bench;
    bench.form1.held.take(120);
    bench.form1.held.take(80);
    bench.form1.PowerHold = 20;
    bench.form1.RetuneOnMode = 0;
    bench.state.ModBar = 99;
    bench.state.ResponseState = "sisi";
    bool looked = false;
    bench.driver.duringNormal = [&] {
        if (!bench.form1.visible || looked) return;
        looked = true;
        EXPECT_EQ(bench.form1.held.PeakHoldValue, 0);
        EXPECT_EQ(bench.form1.held.PeakHoldCount, 0);
        EXPECT_EQ(bench.form1.PowerHold, 115);
        EXPECT_EQ(bench.form1.RetuneOnMode, 1);
        EXPECT_EQ(bench.state.ModBar, 0);
        EXPECT_EQ(bench.state.ResponseState, "0");
    };
    bench.start();
    EXPECT_TRUE(looked);
}

TEST(Start, CorrectionOf2IsTwentyTenths) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"1", "2", "0", "1", "0", "0", "0", "0"}));
    bench.start();
    EXPECT_EQ(bench.state.DbCorrection10, "20");
}

TEST(Start, KeysComeUpReleased) {
    RackBench bench;
    bench.start();
    EXPECT_EQ(bench.form1.Image_Average.picture, "msN");
    EXPECT_EQ(bench.form1.Image6.picture, "PeakN");
    EXPECT_EQ(bench.form1.Image7.picture, "MinN");
    EXPECT_EQ(bench.form1.Image9.picture, "MinN");
    EXPECT_EQ(bench.form1.Image_Power.picture, "PowerN");
}

TEST(Start, FillsTheOnAirFigures) {
    RackBench bench;
    bench.write("normal.hm", lines({"120.9", "b", "c", "d", "1.2345678", "f", "g", "-2.5", "90x"}));
    bench.start();
    EXPECT_EQ(bench.formD.Text1.text, "1.234");
    EXPECT_EQ(bench.formD.Text2.text, "120");
    EXPECT_EQ(bench.formD.Text4.text, "90");
}

TEST(Start, AsksForTheTunerModeOnlyWhileNothingWasSelected) {
    RackBench bench;
    bench.state.FirstSelect = "00";
    bench.start();
    EXPECT_THAT(bench.driver.calls, Not(Contains("HM_setSintoMode(0)")));
}

TEST(Start, PanelsAreSpanishForSpanishAndPortuguese) {
    for (const int id : {RackBench::kSpanish, RackBench::kPortuguese}) {
        RackBench bench(id);
        bench.start();
        EXPECT_EQ(bench.form1.Label_NivelDeModulacion.caption, "Porcentaje de modulacion [%]");
        EXPECT_EQ(bench.form1.Label_NivelModulacionFrecuencia.caption, "F-Mod [KHz]");
        EXPECT_EQ(bench.form1.Label_PeakPerMinute.caption, "Picos por Minuto");
        EXPECT_EQ(bench.form1.Label_IntensidadDeCampo.caption, "Intensidad de campo [dB/uV]");
        EXPECT_EQ(bench.form1.Label_DesviacionDePortadora.caption, "Desviacion de portadora [KHz]");
        EXPECT_EQ(bench.formB.Label_AudioLevel.caption, "Nivel de audio");
        EXPECT_EQ(bench.formB.Label_StereoPhaseVector.caption, "Vector de fase estereo");
        EXPECT_EQ(bench.formB.Label_AudioProcessingRelativePower.caption,
                  "Potencia relativa del procesador de audio");
    }
}

TEST(Start, PanelsAreEnglishOtherwise) {
    RackBench bench(0x040c);
    bench.start();
    EXPECT_EQ(bench.form1.Label_NivelDeModulacion.caption, "Modulation level [%]");
    EXPECT_EQ(bench.form1.Label_NivelModulacionFrecuencia.caption, "F-Mod [KHz]");
    EXPECT_EQ(bench.form1.Label_PeakPerMinute.caption, "Peaks per Minute");
    EXPECT_EQ(bench.form1.Label_IntensidadDeCampo.caption, "Field intensity [db/uV]");
    EXPECT_EQ(bench.form1.Label_DesviacionDePortadora.caption, "Carrier deviation [KHz]");
    EXPECT_EQ(bench.formB.Label_AudioLevel.caption, "Audio level");
    EXPECT_EQ(bench.formB.Label_StereoPhaseVector.caption, "Stereo phase vector");
    EXPECT_EQ(bench.formB.Label_AudioProcessingRelativePower.caption,
              "Audio processing relative power");
}

TEST(Start, TheOtherBrandsWordShowsForTheOtherBrandAlone) {
    RackBench marvenia;
    marvenia.start();
    EXPECT_FALSE(marvenia.form1.Label1.visible);
    RackBench teskel(RackBench::kEnglish, Brand::Teskel);
    teskel.start();
    EXPECT_TRUE(teskel.form1.Label1.visible);
    EXPECT_EQ(teskel.form1.Label1.caption, "Teskel");
}

TEST(Start, Preset17HealsToOneAndSixteenStays) {
    RackBench bench;
    bench.write("hm-16.dat", lines({"17", "0", "0", "1", "0", "0", "0", "0"}));
    bench.start();
    EXPECT_EQ(bench.state.MemoryNumber, "1");
    bench.advance(100ms);  // the first slow tick reads the file again
    EXPECT_EQ(bench.state.MemoryNumber, "1");
    bench.click(bench.form1.Image_Power);
    EXPECT_THAT(bench.read("hm-16.dat"), testing::StartsWith("1\r\n0\r\n"));

    RackBench sixteen;
    sixteen.write("hm-16.dat", lines({"16", "0", "0", "1", "0", "0", "0", "0"}));
    sixteen.start();
    EXPECT_EQ(sixteen.state.MemoryNumber, "16");
}

TEST(Start, NoTimerTicksBeforeTheFirstTuningIsDone) {
    RackBench bench;
    int beatsDuringStart = -1;
    bench.driver.duringNormal = [&] {
        bench.desktop.elapse(5s);
        bench.desktop.letEventsThrough();
        beatsDuringStart = bench.state.DemoPeak > 0 ? 1 : 0;
    };
    bench.readings.peakModulation = 80;
    bench.start();
    EXPECT_EQ(beatsDuringStart, 0);
    EXPECT_EQ(bench.formB.PanelStarted, 1);
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 80);
}

}  // namespace
}  // namespace hmonitor::test
