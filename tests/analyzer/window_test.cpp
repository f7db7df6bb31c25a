// SPDX-License-Identifier: GPL-3.0-or-later
// The analyzer's window: what it shows, its sessions and its keys.
#include <gmock/gmock.h>

#include "analyzer/session_date.h"
#include "tests/analyzer/analyzer_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class AnalyzerWindow : public AnalyzerBench {};
class SpanishAnalyzer : public AnalyzerBench {
 protected:
    SpanishAnalyzer() : AnalyzerBench(RackBench::kSpanish) {}
};
class PortugueseAnalyzer : public AnalyzerBench {
 protected:
    PortugueseAnalyzer() : AnalyzerBench(RackBench::kPortuguese) {}
};

TEST_F(AnalyzerWindow, ItsDoorDisablesTheRackAndHaltsTheUnit) {
    bench.takeCalls();
    bench.hand.click(bench.formD.Image6);
    bench.desktop.settle();
    EXPECT_TRUE(form.visible);
    EXPECT_FALSE(rackEnabled());
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_getHardwareVersion"));
    EXPECT_EQ(form.HardwareVersion, 1.8f);
    EXPECT_EQ(form.StepKHz, 25);
    EXPECT_EQ(form.FrameBusy, 0);
    EXPECT_FALSE(form.Timer1.enabled);
    EXPECT_EQ(std::chrono::milliseconds(form.Timer1.interval), 500ms);
}

TEST_F(AnalyzerWindow, WithoutSessionsOffersANameAndShowsTheDefaults) {
    open();
    EXPECT_THAT(sessions(), ElementsAre("Sin Nombre.3Ds"));
    EXPECT_EQ(form.cboCurrentMeasurementFile.list.selected(), 0);
    EXPECT_EQ(measurement.CurrentSessionFile, "");
    EXPECT_EQ(form.MeasurementCommentField.caption, "Ingrese un comentario aquí");
    EXPECT_EQ(form.MeasurementAquisitonsField.caption, "0");
    EXPECT_EQ(form.MeasurementStartFreqField.caption, "88.0 MHz");
    EXPECT_EQ(form.MeasurementStopFreqField.caption, "108.0 MHz");
    // A new session shows 0 degrees until it was edited.
    EXPECT_EQ(form.MeasurementLatField.caption, "0°  0' 00.0''  S ");
    EXPECT_EQ(form.MeasurementLonField.caption, "0°  0' 00.0''  W ");
    EXPECT_EQ(form.MeasurementAltField.caption, "Not available");
    EXPECT_EQ(form.MeasurementTimeStampField.caption, "04/May/2026 - 12:00 Hs");
    EXPECT_TRUE(form.PictureZoom.visible);
    EXPECT_FALSE(form.Picture3d.visible);
    EXPECT_EQ(form.LabelMode.caption, "Spectral Zoom Analyzer");
    EXPECT_FALSE(bench.exists("Logs")) << "looking makes no folder";
}

TEST_F(AnalyzerWindow, OpensTheLastSessionOfTheList) {
    store("b.3Ds", 3, "of b");
    store("a.3Ds", 3, "of a");
    store("Zona.3Ds", 3, "of Zona");
    std::filesystem::create_directory(bench.scratch.path() / "Logs/zz.3Ds");
    open();
    EXPECT_THAT(sessions(), ElementsAre("a.3Ds", "b.3Ds", "Zona.3Ds"));
    EXPECT_EQ(form.cboCurrentMeasurementFile.list.text(), "Zona.3Ds");
    EXPECT_EQ(measurement.CurrentSessionFile, "Zona.3Ds");
    EXPECT_EQ(form.MeasurementCommentField.caption, "of Zona");
    EXPECT_EQ(form.MeasurementNameField.caption, "Zona");
    EXPECT_EQ(form.MeasurementTimeStampField.caption, "21/Nov/2026 - 18:00 Hs");
    EXPECT_EQ(counted(5, 35), 3);
}

TEST_F(AnalyzerWindow, OfMoreThanThreeSweepsOpensOnTheMap) {
    store("a.3Ds", 4);
    open();
    EXPECT_TRUE(form.Picture3d.visible);
    EXPECT_FALSE(form.PictureZoom.visible);
    EXPECT_EQ(form.LabelMode.caption, "3D Spectrum Analyzer");
    EXPECT_EQ(form.butSpecMode.caption, "Spectral zoom mode");
}

TEST_F(AnalyzerWindow, OfThreeSweepsOpensOnTheBars) {
    store("a.3Ds", 3);
    open();
    EXPECT_FALSE(form.Picture3d.visible);
    EXPECT_EQ(form.butSpecMode.caption, "3D spectrum mode");
}

TEST_F(AnalyzerWindow, EnglishCaptions) {
    open();
    EXPECT_EQ(form.FrameInfo.caption, "Mesaurements information");
    EXPECT_EQ(form.MeasurementNameLabel.caption, "Name:");
    EXPECT_EQ(form.MeasurementCommentLabel.caption, "Comment:");
    EXPECT_EQ(form.MeasurementStartFreqLabel.caption, "Start frequency:");
    EXPECT_EQ(form.MeasurementStopFreqLabel.caption, "End frequency:");
    EXPECT_EQ(form.MeasurementAquisitonsLabel.caption, "Number of samples:");
    EXPECT_EQ(form.MeasurementTimeStampLabel.caption, "Date:");
    EXPECT_EQ(form.MeasurementLatLabel.caption, "Latitude:");
    EXPECT_EQ(form.MeasurementLonLabel.caption, "Longitude:");
    EXPECT_EQ(form.MeasurementAltLabel.caption, "Altitude:");
    EXPECT_EQ(form.FrameStatus.caption, "Status");
    EXPECT_EQ(form.Frame_Probabilidad.caption, "Probability");
    EXPECT_EQ(form.Label_Alta.caption, "High");
    EXPECT_EQ(form.Label_Baja.caption, "Low");
    EXPECT_EQ(form.SSCommand1.caption, "Print mode");
}

TEST_F(SpanishAnalyzer, KeepsTheTextsOfTheForm) {
    open();
    EXPECT_EQ(form.butSpecMode.caption, "Modo espectro 3D");
    click(form.butSpecMode);
    EXPECT_EQ(form.butSpecMode.caption, "Modo espectro zoom");
    EXPECT_EQ(form.LabelMode.caption, "3D Spectrum Analyzer");
    EXPECT_EQ(form.SSCommand1.caption, "Modo impresion");
    EXPECT_EQ(form.Label_Alta.caption, "Alta");
    EXPECT_EQ(form.MeasurementAltField.caption, "No disponible");
    EXPECT_EQ(form.MeasurementTimeStampField.caption, "04/may/2026 - 12:00 Hs");
}

TEST_F(PortugueseAnalyzer, KeepsThemToo) {
    open();
    EXPECT_EQ(form.butSpecMode.caption, "Modo espectro 3D");
    EXPECT_EQ(form.MeasurementAltField.caption, "No disponible");
}

TEST_F(AnalyzerWindow, TheModeKeyExchangesTheViewsAndDrawsNothing) {
    store("a.3Ds", 1);
    open();
    const auto newest = [](const display::PictureBox& box) {
        return box.drawing.marks().back().number;
    };
    const auto map = newest(form.Picture3d), bars = newest(form.PictureZoom);
    click(form.butSpecMode);
    EXPECT_TRUE(form.Picture3d.visible);
    EXPECT_FALSE(form.PictureZoom.visible);
    EXPECT_EQ(form.LabelMode.caption, "3D Spectrum Analyzer");
    click(form.butSpecMode);
    EXPECT_FALSE(form.Picture3d.visible);
    EXPECT_TRUE(form.PictureZoom.visible);
    EXPECT_EQ(form.LabelMode.caption, "Spectral Zoom Analyzer");
    EXPECT_TRUE(form.butSpecMode.enabled);
    EXPECT_EQ(bench.desktop.pointerShape, display::PointerShape::Arrow);
    EXPECT_EQ(newest(form.Picture3d), map);
    EXPECT_EQ(newest(form.PictureZoom), bars);
}

TEST_F(AnalyzerWindow, TheDetailKeysStretchTheBarsWithinTheirBounds) {
    open();
    form.PictureZoom.width = 19999.f;
    click(form.btnDetail_Higher);
    EXPECT_FLOAT_EQ(form.PictureZoom.width, 29998.5f);
    click(form.btnDetail_Higher);
    EXPECT_FLOAT_EQ(form.PictureZoom.width, 29998.5f);
    click(form.btnDetail_Lower);
    EXPECT_FLOAT_EQ(form.PictureZoom.width, 19999.f);
    form.PictureZoom.width = 20000.f;
    click(form.btnDetail_Higher);
    EXPECT_FLOAT_EQ(form.PictureZoom.width, 20000.f);
    form.PictureZoom.width = 15000.f;
    click(form.btnDetail_Lower);
    EXPECT_FLOAT_EQ(form.PictureZoom.width, 15000.f);
    form.PictureZoom.width = 15001.f;
    click(form.btnDetail_Lower);
    EXPECT_FLOAT_EQ(form.PictureZoom.width, 15001 / 1.5f);
}

TEST_F(AnalyzerWindow, TheDetailKeysHaveTheirTipsAndShortcuts) {
    open();
    EXPECT_STREQ(form.btnDetail_Higher.tip.english,
                 "Open Higher Definiton Map of this area (Ctrl-X)");
    EXPECT_STREQ(form.btnDetail_Lower.tip.english,
                 "Open Lower Definiton Map of this area (Ctrl-Z)");
    const float first = form.PictureZoom.width;
    bench.hand.shortcut(form, "Ctrl+X");
    bench.desktop.settle();
    EXPECT_FLOAT_EQ(form.PictureZoom.width, first * 1.5f);
    bench.hand.shortcut(form, "Ctrl+Z");
    bench.desktop.settle();
    EXPECT_FLOAT_EQ(form.PictureZoom.width, first);
}

TEST_F(AnalyzerWindow, EachWidthOfTheBarsHoldsTheWholeBand) {
    // The width of a column is rounded: at none of the three widths may bars be cut off at the
    // right.
    open();
    const auto rightmost = [&] {
        form.ShowSpectrum_SpectralZoom("none");
        float right = 0;
        for (const display::Mark& mark : form.PictureZoom.drawing.marks()) {
            if (mark.colour == display::Colour{49152}) right = std::max(right, mark.x2);
        }
        return right;
    };
    for (int width = 0; width < 3; ++width) {
        EXPECT_LE(rightmost(), form.PictureZoom.drawing.outerWidth());
        EXPECT_GT(rightmost(), form.PictureZoom.drawing.outerWidth() * 0.97f);
        click(width == 0 ? form.btnDetail_Lower : form.btnDetail_Higher);
        if (width == 1) click(form.btnDetail_Higher);
    }
}

TEST_F(AnalyzerWindow, TheScrollBarMovesBothPicturesEachByItsOwnFormula) {
    open();
    form.HScroll1.range(0, 11, 2);
    form.Panel3D1.width = 10000.f;
    form.PictureZoom.width = 20000.f;
    form.HScroll1.value = 5;
    EXPECT_FLOAT_EQ(form.PictureZoom.left, 120 - 10000.f / 10 * 5);
    EXPECT_FLOAT_EQ(form.Picture3d.left, 120 - 4700.f / 11 * 5);
    form.HScroll1.value = 0;
    EXPECT_FLOAT_EQ(form.PictureZoom.left, 120);
    EXPECT_FLOAT_EQ(form.Picture3d.left, 120);
}

TEST_F(AnalyzerWindow, AtItsEndTheScrollBarShowsTheEndOfTheBand) {
    open();
    EXPECT_GE(form.HScroll1.maximum, 2);
    form.HScroll1.value = form.HScroll1.maximum;
    EXPECT_LE(form.PictureZoom.left + form.PictureZoom.width, form.Panel3D1.width);
}

TEST_F(AnalyzerWindow, ChoosingASessionLoadsAndShowsIt) {
    store("a.3Ds", 9, "of a");
    store("b.3Ds", 2, "of b");
    open();
    click(form.butSpecMode);
    choose("a.3Ds");
    EXPECT_EQ(form.MeasurementCommentField.caption, "of a");
    EXPECT_EQ(form.MeasurementAquisitonsField.caption, "9");
    EXPECT_TRUE(form.Picture3d.visible);
    // With fewer than four sweeps the bars are shown.
    choose("b.3Ds");
    EXPECT_EQ(measurement.CurrentSessionFile, "b.3Ds");
    EXPECT_FALSE(form.Picture3d.visible);
    EXPECT_TRUE(form.PictureZoom.visible);
    EXPECT_EQ(form.butSpecMode.caption, "3D spectrum mode");
    EXPECT_EQ(form.LabelMode.caption, "Spectral Zoom Analyzer");
    // With many sweeps the view stays.
    choose("a.3Ds");
    EXPECT_TRUE(form.PictureZoom.visible);
}

TEST_F(AnalyzerWindow, ChoosingTheSameSessionLoadsItAgain) {
    store("a.3Ds", 2, "before");
    open();
    store("a.3Ds", 2, "after");
    choose("a.3Ds");
    EXPECT_EQ(form.MeasurementCommentField.caption, "after");
}

TEST_F(AnalyzerWindow, ChoosingASessionThatIsGonePutsTheChoiceBack) {
    store("a.3Ds", 2, "of a");
    store("b.3Ds", 2, "of b");
    open();
    bench.remove("Logs/a.3Ds");
    choose("a.3Ds");
    EXPECT_EQ(form.cboCurrentMeasurementFile.list.text(), "b.3Ds");
    EXPECT_EQ(form.MeasurementCommentField.caption, "of b");
}

TEST_F(AnalyzerWindow, ADamagedSessionSaysSoAndIsNotWrittenBack) {
    store("a.3Ds", 2, "of a");
    const std::string whole = log("a.3Ds");
    bench.write("Logs/a.3Ds", whole.substr(0, 5000));
    store("b.3Ds", 2);
    open();
    EXPECT_FALSE(form.Label_Damaged.visible);
    choose("a.3Ds");
    EXPECT_TRUE(form.Label_Damaged.visible);
    EXPECT_EQ(form.Label_Damaged.caption, "The file is damaged.");
    EXPECT_EQ(form.MeasurementCommentField.caption, "of a") << "what can be read is read";
    EXPECT_EQ(log("a.3Ds"), whole.substr(0, 5000));
    click(form.butStart_BW);
    frames(1);
    EXPECT_FALSE(form.Label_Damaged.visible);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 3);
}

TEST_F(SpanishAnalyzer, ADamagedSessionSaysSoInSpanish) {
    store("a.3Ds", 2);
    bench.write("Logs/a.3Ds", "");
    open();
    EXPECT_TRUE(form.Label_Damaged.visible);
    EXPECT_EQ(form.Label_Damaged.caption, "El archivo está dañado.");
}

TEST_F(AnalyzerWindow, AnotherVersionBlanksTheFields) {
    store("a.3Ds", 2);
    std::string bytes = log("a.3Ds");
    bytes[0] = 2;
    bench.write("Logs/a.3Ds", bytes);
    open();
    for (const display::Label* field :
         {&form.MeasurementCommentField, &form.MeasurementAquisitonsField,
          &form.MeasurementStartFreqField, &form.MeasurementStopFreqField,
          &form.MeasurementTimeStampField, &form.MeasurementLatField, &form.MeasurementLonField,
          &form.MeasurementAltField})
        EXPECT_TRUE(field->caption.empty()) << field->name();
    EXPECT_TRUE(form.Label_Damaged.visible);
}

TEST_F(AnalyzerWindow, ASessionWithoutADateIsCreatedNow) {
    store("a.3Ds", 2);
    std::string bytes = log("a.3Ds");
    const std::size_t created = 5 + std::string("stored").size();
    bytes.replace(created, 8, std::string(8, '\0'));
    bench.write("Logs/a.3Ds", bytes);
    open();
    EXPECT_EQ(form.MeasurementTimeStampField.caption, "04/May/2026 - 12:00 Hs");
    EXPECT_EQ(measurement.SessionInfo.Created, serialDate(bench.desktop.today()));
}

TEST_F(AnalyzerWindow, DeletingAsksAndTakesTheNextSession) {
    store("a.3Ds", 2, "of a");
    store("b.3Ds", 9, "of b");
    bench.write("Logs/b.spc", "800\r\n 25\r\n87.975\r\n\r\n");
    open();
    bench.desktop.boxAnswers = {"OK"};
    click(form.picDelMeasurement);
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].title, "ATENCION!");
    EXPECT_EQ(bench.desktop.boxes[0].text,
              "Está seguro que desea borrar la sesión de mediciones 'b.3Ds' con todas las "
              "mediciones que ella incluye?");
    EXPECT_FALSE(hasLog("b.3Ds"));
    EXPECT_FALSE(hasLog("b.spc"));
    EXPECT_THAT(sessions(), ElementsAre("a.3Ds"));
    EXPECT_EQ(form.MeasurementCommentField.caption, "of a");
    EXPECT_TRUE(form.PictureZoom.visible) << "the view is chosen anew";
}

TEST_F(AnalyzerWindow, DeletingThatIsCancelledChangesNothing) {
    store("a.3Ds", 2);
    open();
    bench.desktop.boxAnswers = {"Cancel"};
    click(form.picDelMeasurement);
    EXPECT_TRUE(hasLog("a.3Ds"));
    EXPECT_EQ(measurement.CurrentSessionFile, "a.3Ds");
}

TEST_F(AnalyzerWindow, DeletingWithoutASessionAsksNothing) {
    open();
    click(form.picDelMeasurement);
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST_F(AnalyzerWindow, DeletingTheLastSessionShowsTheDefaults) {
    store("a.3Ds", 9);
    open();
    bench.desktop.boxAnswers = {"OK"};
    click(form.picDelMeasurement);
    EXPECT_THAT(sessions(), ElementsAre("Sin Nombre.3Ds"));
    EXPECT_EQ(measurement.CurrentSessionFile, "");
    EXPECT_EQ(form.MeasurementAquisitonsField.caption, "0");
    for (const double cell : measurement.SpectralDensity.cells()) ASSERT_EQ(cell, 0);
}

TEST_F(AnalyzerWindow, ClosingEnablesTheRackAndTunesTheStation) {
    open();
    bench.hand.close(form);
    bench.desktop.settle();
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(rackEnabled());
    EXPECT_EQ(callsOf("HM_Normal(981"), 1);
    EXPECT_EQ(bench.desktop.pointerShape, display::PointerShape::Arrow);
}

TEST_F(AnalyzerWindow, ItsLegendHasTheColoursOfTheTable) {
    open();
    const DensityColors colors = buildPalette();
    const struct {
        const char* words;
        double share;
    } shares[] = {
        {"0.02 %", 0.0002}, {"0.1 %", 0.001}, {"1 %", 0.01}, {"5 %", 0.05}, {"24 %", 0.24}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(form.SwatchShare[i].caption, shares[i].words);
        const auto entry = static_cast<std::size_t>(std::lround(shares[i].share * 5280));
        EXPECT_EQ(form.Swatch[i].colour.get(), colors[entry]) << shares[i].words;
        EXPECT_EQ(form.Ramp[i].fadesFrom.get(), colors[256 * i]);
        EXPECT_EQ(form.Ramp[i].colour.get(), colors[256 * i + 255]);
    }
}

TEST_F(AnalyzerWindow, ItsScaleStandsBesideTheRowsOfBothPictures) {
    open();
    const auto rowOf = [](const display::PictureBox& box, float top, float pitch, int row) {
        return box.boxOnForm().top + (top + pitch * static_cast<float>(row)) * box.drawing.unit();
    };
    for (std::size_t i = 0; i < form.levels.size(); ++i) {
        const display::Label& label = form.levels[i];
        const float middle = label.top + label.height / 2;
        EXPECT_NEAR(middle, rowOf(form.PictureZoom, 400, 59, 10 * static_cast<int>(i)), 1);
        EXPECT_NEAR(middle, rowOf(form.Picture3d, 24, 5, 10 * static_cast<int>(i)), 1);
    }
    EXPECT_EQ(form.find("Label100"), &form.levels[0]);
    EXPECT_EQ(form.find("Label030"), &form.levels[7]);
}

TEST_F(AnalyzerWindow, SaysThatAUnitWithoutSweepsDoesNotSaveItsCount) {
    open(1.5f);
    EXPECT_TRUE(form.Label_NotCounted.visible);
    EXPECT_NE(form.Label_NotCounted.caption.get().find("not saved"), std::string::npos);
    bench.hand.close(form);
    bench.desktop.settle();
    open(1.8f);
    EXPECT_FALSE(form.Label_NotCounted.visible);
    EXPECT_EQ(form.Label_Unit.caption, "unit 1.8   sweep 25 kHz   field correction 0.0 dB");
}

TEST_F(AnalyzerWindow, TheMadeUpSpectrumHasAPeakEach100Steps) {
    open();
    bench.desktop.randoms.assign(800, 0.5);
    form.ShowSpectrum_SpectralZoom("");
    std::vector<float> tops;
    for (const display::Mark& mark : form.PictureZoom.drawing.marks()) {
        if (mark.colour == display::Colour{49152}) tops.push_back(mark.y1);
    }
    ASSERT_EQ(tops.size(), 800u);
    const auto topOf = [](int level) { return 400.f + 59 * static_cast<float>(100 - level); };
    for (int i = 1; i <= 800; ++i) {
        const int along = i % 100;
        const int peak = along <= 10 ? (5 - std::abs(along - 5)) * 10 : 0;
        // With random numbers of a half the noise is 33 dB.
        ASSERT_EQ(tops[static_cast<std::size_t>(i - 1)], topOf(33 + peak)) << i;
    }
    EXPECT_TRUE(bench.desktop.randoms.empty());
}

}  // namespace
}  // namespace hmonitor::test
