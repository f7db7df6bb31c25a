// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

std::vector<std::string> captions(const Form_D& form) {
    return {form.Label_SpectrumAnalyzer.caption.get(), form.Label_bandScanner.caption.get(),
            form.Label_FrequencyResponse.caption.get(), form.Label_OnAirPerformance.caption.get()};
}

/// The number of bars in the thumbnail: filled boxes in the trace colour.
int bars(const Form_D& form) {
    int count = 0;
    for (const display::Mark& mark : form.PictureGraph1.drawing.marks())
        count += mark.kind == display::Mark::Kind::Filled && mark.colour.bgr == 16754077;
    return count;
}

std::vector<bool> enabledPanels(const RackBench& bench) {
    std::vector<bool> enabled;
    for (const display::Form* panel : bench.program.rack) enabled.push_back(panel->enabled);
    return enabled;
}

TEST(AnalysesPanel, IsEnglishOnAnEnglishSystem) {
    RackBench bench;
    bench.start();
    EXPECT_THAT(captions(bench.formD), ElementsAre("Spectrum analyzer", "Band scanner",
                                                   "Frequency response", "On-Air performance"));
}

TEST(AnalysesPanel, IsSpanishOnSpanishAndPortugueseSystems) {
    for (const int language : {RackBench::kSpanish, RackBench::kPortuguese}) {
        RackBench bench(language);
        bench.start();
        EXPECT_THAT(captions(bench.formD),
                    ElementsAre("Analizador de espectro", "Scanner de banda",
                                "Respuesta a frecuencia", "Performance On-Air"));
    }
}

TEST(AnalysesPanel, ItsLoadMeasuresTheFirstSpectrumInTheMiddleOfTheStart) {
    RackBench bench;
    bench.driver.noteData = true;
    bench.start();
    std::vector<std::string> wanted{
        "HM_Init",  "HM_getHardwareVersion",      "HM_Data", "HM_Parar", "HM_getHardwareVersion",
        "HM_Parar", "HM_Normal(875, 0, 0, 0, 0)", "HM_Parar"};
    for (int i = 0; i < 17; ++i)
        wanted.push_back("HM_Super(" + shortText(873 + 0.25 * i).str() + ")");
    wanted.insert(wanted.end(), {"HM_Parar", "HM_Normal(875, 0, 0, 0, 0)", "HM_setSintoMode(0)",
                                 "HM_Parar", "HM_Normal(981, 0, 0, 0, 0)"});
    // Readings that the panels ask for after each tuning do not count.
    std::vector<std::string> calls = bench.takeCalls();
    bool first = true;
    std::erase_if(calls, [&first](const std::string& call) {
        if (call != "HM_Data") return false;
        return !std::exchange(first, false);
    });
    EXPECT_EQ(calls, wanted);
}

TEST(AnalysesPanel, AMissingScanFileEndsTheProgramWithItsName) {
    RackBench bench;
    bench.remove("scan.dat");
    bench.desktop.answerEveryBox = true;
    bench.start();
    ASSERT_THAT(bench.desktop.boxes, SizeIs(1));
    EXPECT_EQ(bench.desktop.boxes[0].text, "File not found: scan.dat");
    EXPECT_TRUE(bench.desktop.ended());
}

TEST(AnalysesPanel, DoorsShowTheirPressedPictureDisableTheRackAndOpen) {
    struct Door {
        display::Picture Form_D::*key;
        const char* form;
    };
    const Door doors[] = {{&Form_D::Image1, "FormD1a"},
                          {&Form_D::Image2, "Form_BandSCanner"},
                          {&Form_D::Image3, "Form_Dd3"}};
    for (const Door& door : doors) {
        RackBench bench;
        bench.start();
        display::Picture& key = bench.formD.*door.key;
        EXPECT_EQ(key.picture, "OpenN");
        bench.hand.press(key);
        bench.desktop.settle();
        EXPECT_EQ(key.picture, "OpenA");
        EXPECT_THAT(enabledPanels(bench), Each(true));
        bench.hand.release(key);
        bench.desktop.settle();
        EXPECT_EQ(key.picture, "OpenN") << door.form;
        EXPECT_THAT(enabledPanels(bench), Each(false)) << door.form;
        EXPECT_TRUE(bench.desktop.find(door.form)->visible) << door.form;
    }
}

TEST(AnalysesPanel, AReleaseOutsideTheKeyOpensNothing) {
    RackBench bench;
    bench.start();
    bench.hand.press(bench.formD.Image2);
    bench.hand.cancel(bench.formD.Image2);
    bench.desktop.settle();
    EXPECT_EQ(bench.formD.Image2.picture, "OpenN");
    EXPECT_THAT(enabledPanels(bench), Each(true));
    EXPECT_FALSE(bench.forms.formBandSCanner.loaded());
}

TEST(AnalysesPanel, TheLogKeyHasPicturesOfItsOwn) {
    RackBench bench;
    bench.start();
    EXPECT_EQ(bench.formD.Image4.picture, "LogN");
    bench.hand.press(bench.formD.Image4);
    bench.desktop.settle();
    EXPECT_EQ(bench.formD.Image4.picture, "LogA");
    bench.hand.release(bench.formD.Image4);
    bench.desktop.settle();
    EXPECT_EQ(bench.formD.Image4.picture, "LogN");
}

TEST(AnalysesPanel, TheZoomKeySaysItsTip) {
    RackBench bench;
    bench.start();
    EXPECT_STREQ(bench.formD.Image6.tip.english, "'Spectral Zoom' Analyzer");
    EXPECT_STREQ(bench.formD.Image6.tip.spanish, "'Spectral Zoom' Analyzer");
}

TEST(AnalysesPanel, ADoubleClickOnTheThumbnailOpensTheChannelSpectrum) {
    RackBench bench;
    bench.readings.field = 70;
    bench.start();
    bench.forms.formD1.closeRequested();
    EXPECT_FALSE(bench.forms.formD1.visible);
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    EXPECT_TRUE(bench.forms.formD1.visible);
    EXPECT_THAT(enabledPanels(bench), Each(false));
}

TEST(AnalysesPanel, ADoorClosesWhatTheStartLeftOpenOfTheSpectrum) {
    display::Picture Form_D::*const doors[] = {&Form_D::Image1, &Form_D::Image2, &Form_D::Image3};
    for (const auto door : doors) {
        RackBench bench;
        bench.readings.field = 70;
        bench.start();
        ASSERT_TRUE(bench.forms.formD1.visible);
        bench.hand.click(bench.formD.*door);
        bench.desktop.settle();
        EXPECT_FALSE(bench.forms.formD1.loaded());
        EXPECT_THAT(enabledPanels(bench), Each(false));
    }
}

TEST(AnalysesPanel, ADoorClosesTheQuestionForANewSpectrumToo) {
    RackBench bench;
    bench.readings.field = 70;
    bench.start();
    bench.hand.click(bench.forms.formD1.Command3D1);
    bench.desktop.settle();
    ASSERT_TRUE(bench.forms.formNewSpectro.visible);
    bench.hand.click(bench.formD.Image2);
    bench.desktop.settle();
    EXPECT_FALSE(bench.forms.formNewSpectro.loaded());
    EXPECT_FALSE(bench.forms.formD1.loaded());
    EXPECT_TRUE(bench.forms.formBandSCanner.visible);
    EXPECT_THAT(enabledPanels(bench), Each(false));
}

TEST(AnalysesPanel, WaitsWhileTheBandwidthThatTheSpectrumOpenedHasTheUnit) {
    RackBench bench;
    bench.readings.field = 70;
    bench.start();
    EXPECT_THAT(enabledPanels(bench), Each(true));
    bench.hand.click(bench.forms.formD1.SSCommand2);
    bench.desktop.settle();
    EXPECT_THAT(enabledPanels(bench), Each(false));
    bench.hand.click(bench.formD.Image2);
    bench.desktop.settle();
    EXPECT_FALSE(bench.forms.formBandSCanner.visible);
    bench.hand.close(bench.forms.formD1a);
    bench.desktop.settle();
    EXPECT_THAT(enabledPanels(bench), Each(true));
}

/// The values in the table of the channel spectrum, without its offsets.
std::vector<std::string> valuesShown(RackBench& bench) {
    std::vector<std::string> values;
    for (const display::Mark& mark : bench.forms.formD1.Picture2.drawing.marks())
        if (mark.kind == display::Mark::Kind::Print && mark.x1 == 500) values.push_back(mark.text);
    return values;
}

TEST(AnalysesPanel, TheThumbnailOpensTheStationThatIsTunedNow) {
    RackBench bench;
    bench.readings.field = 70;
    bench.start();
    bench.write("0981.spc", lines({"3", "25", "98.0", "40", "0", "33", ""}));
    // Once while it is still open from the start, and once hidden by the bandwidth window, which
    // was closed since.
    for (const bool hidden : {false, true}) {
        if (hidden) {
            bench.hand.click(bench.forms.formD1.SSCommand2);
            bench.hand.close(bench.forms.formD1a);
            bench.desktop.settle();
            ASSERT_FALSE(bench.forms.formD1.visible);
            bench.write("0981.spc", lines({"1", "25", "98.0", "7", ""}));
        }
        bench.hand.doubleClick(bench.formD.PictureGraph1);
        bench.desktop.settle();
        EXPECT_TRUE(bench.forms.formD1.visible);
        EXPECT_THAT(enabledPanels(bench), Each(false));
        EXPECT_EQ(valuesShown(bench), hidden ? std::vector<std::string>({"-7"})
                                             : std::vector<std::string>({"-40", "0", "-33"}));
    }
}

TEST(Thumbnail, ShowsTheStoredSpectrumOfTheTunedFrequency) {
    RackBench bench;
    bench.start();
    bench.write("0981.spc", lines({"3", "25", "98.0", "40", "0", "60", ""}));
    bench.formB.cambfre();
    EXPECT_EQ(bars(bench.formD), 3);
}

TEST(Thumbnail, IsEmptyWithoutAFile) {
    RackBench bench;
    bench.start();
    bench.write("0981.spc", lines({"3", "25", "98.0", "40", "0", "60", ""}));
    bench.formD.spect();
    bench.formB.TunedFreq = 982;
    bench.formD.spect();
    EXPECT_EQ(bars(bench.formD), 0);
}

TEST(Thumbnail, LooksForAZeroBeforeFrequenciesUnderAThousand) {
    RackBench bench;
    bench.start();
    const std::pair<double, const char*> names[] = {
        {875, "0875.spc"}, {875.5, "0875.5.spc"}, {1025.5, "1025.5.spc"}, {1000, "1000.spc"}};
    for (const auto& [frequency, name] : names) {
        bench.write(name, lines({"2", "25", "1", "10", "20", ""}));
        bench.formB.TunedFreq = frequency;
        bench.formD.spect();
        EXPECT_EQ(bars(bench.formD), 2) << name;
        bench.remove(name);
    }
}

TEST(Thumbnail, DrawsWhatIsThereOfATornFile) {
    RackBench bench;
    bench.start();
    bench.write("0981.spc", "17\r\n25\r\n97.85\r\n40\r\n30");
    bench.formD.spect();
    EXPECT_EQ(bars(bench.formD), 2);
}

TEST(Thumbnail, IsEmptyWhereTheCountIsNone) {
    RackBench bench;
    bench.start();
    for (const char* count : {"0", "-1", "abc", ""}) {
        bench.write("0981.spc", lines({count, "25", "98.0", "40", "0", "60", ""}));
        bench.formD.spect();
        EXPECT_EQ(bars(bench.formD), 0) << count;
    }
}

TEST(Thumbnail, DrawsNoMoreBarsThanStandThereWhateverTheCount) {
    RackBench bench;
    bench.start();
    for (const auto& [count, drawn] :
         {std::pair{"1", 1}, {"26", 3}, {"99", 3}, {"801", 3}, {"40000", 3}}) {
        bench.write("0981.spc",
                    lines({count, "25", "98.0", "40", "-60000", "99999", ""}) + "7\r\n8\r\n");
        bench.formD.spect();
        EXPECT_EQ(bars(bench.formD), drawn) << count;
    }
}

TEST(Thumbnail, AnHourOfTuningsDoesNotGrowTheDrawing) {
    RackBench bench;
    bench.start();
    std::vector<std::string> full{"33", "50", "97.25"};
    for (int i = 0; i < 33; ++i) full.push_back(std::to_string(i));
    full.emplace_back();
    bench.write("0981.spc", lines(full));
    bench.formD.spect();
    const std::size_t once = bench.formD.PictureGraph1.drawing.marks().size();
    for (int i = 0; i < 3600; ++i) bench.formD.spect();
    EXPECT_EQ(bench.formD.PictureGraph1.drawing.marks().size(), once);
}

TEST(OnAirFigures, StandUnderTheirWords) {
    RackBench bench;
    bench.start();
    EXPECT_EQ(bench.formD.Label_RadiatedPower.caption, "Radiated Power:");
    EXPECT_EQ(bench.formD.Label_MaxModulation.caption, "Max. Modulation:");
    EXPECT_EQ(bench.formD.Label_3secSilence.caption, "3 sec. silence:");
    EXPECT_EQ(bench.formD.Label_InvertedPhase.caption, "Inverted phase:");
}

TEST(OnAirFigures, AnEditOfAFieldGoesBackWithinAMinute) {
    RackBench bench;
    bench.start();
    EXPECT_EQ(bench.formD.Text1.text, "1.000");
    EXPECT_EQ(bench.formD.Text2.text, "100");
    EXPECT_EQ(bench.formD.Text3.text, "2");
    EXPECT_EQ(bench.formD.Text4.text, "90");
    bench.formD.Text2.text = "55";
    bench.advance(60s);
    EXPECT_EQ(bench.formD.Text2.text, "100");
}

TEST(AnalysesPanel, ItsFourFiguresAreLockedForAHandAndTheirTipNamesTheFile) {
    RackBench bench;
    bench.start();
    Form_D& panel = bench.formD;
    for (display::TextField* field : {&panel.Text1, &panel.Text2, &panel.Text3, &panel.Text4}) {
        EXPECT_TRUE(field->locked) << field->name();
        const std::string before = field->text.get();
        bench.type(*field, "7");
        bench.edit(*field, "12");
        EXPECT_EQ(field->text, before) << field->name();
        EXPECT_THAT(std::string(field->tip.english), testing::HasSubstr("normal.hm"));
        EXPECT_THAT(std::string(field->tip.spanish), testing::HasSubstr("normal.hm"));
    }
    // An edit of the file still reaches them.
    bench.write("normal.hm", lines({"99", "0", "0", "0", "2.500", "0", "0", "3", "45"}));
    bench.advance(std::chrono::seconds(60));
    EXPECT_EQ(panel.Text1.text, "2.500");
    EXPECT_EQ(panel.Text4.text, "45");
}

TEST(AnalysesPanel, TheResponseSwitchHasItsCaptionBesideIt) {
    for (const int language : {RackBench::kSpanish, RackBench::kEnglish}) {
        RackBench bench(language);
        bench.start();
        const display::Label& caption = bench.formD.Label_ResponseSwitch;
        const display::Picture& key = bench.formD.Image5;
        EXPECT_EQ(caption.caption,
                  language == RackBench::kSpanish ? "Armar la respuesta" : "Arm the response");
        EXPECT_GT(caption.left, key.left + key.width);
        EXPECT_LT(caption.left, key.left + key.width + 200);
        EXPECT_NEAR(caption.top + caption.height / 2, key.top + key.height / 2, 20);
    }
}

}  // namespace
}  // namespace hmonitor::test
