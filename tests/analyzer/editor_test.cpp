// SPDX-License-Identifier: GPL-3.0-or-later
// The editor of sessions.
#include <gmock/gmock.h>

#include "analyzer/session_date.h"
#include "tests/analyzer/analyzer_bench.h"
#include "tests/analyzer/table_lines.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

class SessionEditor : public AnalyzerBench {
 protected:
    SessionEditor() {
        store("Evening.3Ds", 7, "Señal");
        open();
    }
    void edit() {
        click(form.picEditMeasurement);
        ASSERT_TRUE(editor.visible);
    }
    void add() {
        click(form.picAddMeasurement);
        ASSERT_TRUE(editor.visible);
    }
    void accept() { click(editor.PicOk2); }
    /// Opens the editor for a session at that place.
    void editAt(double latitude, double longitude, float altitude = 25) {
        measurement.SessionInfo.Latitude = latitude;
        measurement.SessionInfo.Longitude = longitude;
        measurement.SessionInfo.Altitude = altitude;
        edit();
    }
};
class SpanishEditor : public AnalyzerBench {
 protected:
    SpanishEditor() : AnalyzerBench(RackBench::kSpanish) { open(); }
};

TEST_F(SessionEditor, OfANewSessionHasTheDefaults) {
    add();
    EXPECT_EQ(editor.MeasurementNameField.text, "Sin Nombre");
    EXPECT_EQ(editor.MeasurementCommentField.text, "Ingrese un comentario aquí");
    EXPECT_EQ(editor.MeasurementTimeStampField.caption, "04/May/2026 - 12:00 Hs");
    EXPECT_EQ(editor.Combo_StartFreq.list.text(), "88.0");
    EXPECT_EQ(editor.Combo_StopFreq.list.text(), "108.0");
    for (const display::TextField* field :
         {&editor.LatDeg, &editor.LatMin, &editor.LonDeg, &editor.LonMin})
        EXPECT_EQ(field->text, "00");
    EXPECT_EQ(editor.LatSec.text, "00.0");
    EXPECT_EQ(editor.LonSec.text, "00.0");
    EXPECT_EQ(editor.ComboNS.list.selected(), 0);
    EXPECT_EQ(editor.ComboWE.list.selected(), 0);
    EXPECT_EQ(editor.Alt_Text.text, "0");
    EXPECT_EQ(editor.IsNewSession, -1);
    EXPECT_TRUE(editor.topmost);
    EXPECT_TRUE(editor.PicOk2.visible);
    EXPECT_FALSE(form.enabled) << "the analyzer waits";
}

TEST_F(SessionEditor, HasWholeFrequenciesFrom88To107AndFrom89To108) {
    add();
    EXPECT_EQ(editor.Combo_StartFreq.list.rows().size(), 20u);
    EXPECT_EQ(editor.Combo_StartFreq.list.rows().back(), "107.0");
    EXPECT_EQ(editor.Combo_StopFreq.list.rows().front(), "89.0");
    EXPECT_EQ(editor.Combo_StopFreq.list.rows().size(), 20u);
}

TEST_F(SessionEditor, OfTheCurrentSessionHasItsValues) {
    editAt(-34.60833333333333, 58.3725);
    EXPECT_EQ(editor.MeasurementNameField.text, "Evening");
    EXPECT_EQ(editor.MeasurementCommentField.text, "Señal");
    EXPECT_EQ(editor.LatDeg.text, "34");
    EXPECT_EQ(editor.LatMin.text, "36");
    EXPECT_EQ(editor.LatSec.text, "30.0");
    EXPECT_EQ(editor.ComboNS.list.text(), "S");
    EXPECT_EQ(editor.LonDeg.text, "58");
    EXPECT_EQ(editor.LonMin.text, "22");
    EXPECT_EQ(editor.LonSec.text, "21.0");
    EXPECT_EQ(editor.ComboWE.list.text(), "E");
    EXPECT_EQ(editor.Alt_Text.text, "25");
    EXPECT_EQ(editor.MeasurementTimeStampField.caption, "21/Nov/2026 - 18:00 Hs");
    EXPECT_EQ(editor.IsNewSession, 0);
}

TEST_F(SessionEditor, APlaceThatIsNotAvailableStandsAt0) {
    editAt(-777, -777, -777);
    EXPECT_EQ(editor.LatDeg.text, "00");
    EXPECT_EQ(editor.ComboNS.list.selected(), 0);
    EXPECT_EQ(editor.Alt_Text.text, "0");
}

TEST_F(SessionEditor, FrequenciesBeyondItsListsStandAtTheirEnds) {
    const struct {
        float start, stop;
        const char *shownStart, *shownStop;
    } cases[] = {{87.5f, 88.5f, "88.0", "89.0"},
                 {91.9f, 92.9f, "91.0", "92.0"},
                 {200, 300, "107.0", "108.0"},
                 {-5, 0, "88.0", "89.0"}};
    for (const auto& each : cases) {
        measurement.SessionInfo.StartMHz = each.start;
        measurement.SessionInfo.StopMHz = each.stop;
        edit();
        EXPECT_EQ(editor.Combo_StartFreq.list.text(), each.shownStart) << each.start;
        EXPECT_EQ(editor.Combo_StopFreq.list.text(), each.shownStop) << each.stop;
        click(editor.PicCancel);
    }
}

TEST_F(SessionEditor, CancellingChangesNothing) {
    const std::string before = log("Evening.3Ds");
    edit();
    bench.hand.edit(editor.MeasurementNameField, "Other");
    bench.hand.edit(editor.MeasurementCommentField, "other");
    click(editor.PicCancel);
    EXPECT_FALSE(editor.loaded());
    EXPECT_TRUE(form.enabled);
    EXPECT_EQ(measurement.SessionInfo.Comment, "Señal");
    EXPECT_EQ(log("Evening.3Ds"), before);
    edit();
    bench.hand.escape(editor);
    bench.desktop.settle();
    EXPECT_FALSE(editor.visible) << "Escape cancels";
    edit();
    bench.hand.close(editor);
    bench.desktop.settle();
    EXPECT_FALSE(editor.visible);
    EXPECT_TRUE(form.enabled);
}

TEST_F(SessionEditor, WithoutANameNothingIsAccepted) {
    edit();
    for (const char* name : {"", "   "}) {
        bench.hand.edit(editor.MeasurementNameField, name);
        bench.desktop.settle();
        EXPECT_TRUE(editor.PicOk1.visible);
        EXPECT_FALSE(editor.PicOk2.visible);
        click(editor.PicOk1);
        editor.PicOk1.press();
        bench.hand.enter(editor);
        bench.desktop.settle();
        EXPECT_TRUE(editor.visible);
    }
    bench.hand.edit(editor.MeasurementNameField, " a ");
    bench.desktop.settle();
    EXPECT_FALSE(editor.PicOk1.visible);
    EXPECT_TRUE(editor.PicOk2.visible);
    bench.hand.enter(editor);
    bench.desktop.settle();
    EXPECT_FALSE(editor.visible) << "Enter accepts";
    EXPECT_EQ(measurement.CurrentSessionFile, "a.3Ds");
}

TEST_F(SessionEditor, WhatIsTypedIsKept) {
    edit();
    bench.hand.edit(editor.MeasurementCommentField, "Mañana, 3 € Ω");
    bench.hand.edit(editor.LatDeg, "34");
    bench.hand.edit(editor.LatMin, "36");
    bench.hand.edit(editor.LatSec, "30.0");
    bench.hand.select(editor.ComboNS, 1);
    bench.hand.edit(editor.LonDeg, "58");
    bench.hand.edit(editor.LonMin, "22");
    bench.hand.edit(editor.LonSec, "21.0");
    bench.hand.select(editor.ComboWE, 0);
    bench.hand.edit(editor.Alt_Text, "-12.5");
    bench.hand.select(editor.Combo_StartFreq, 3);
    bench.hand.select(editor.Combo_StopFreq, 0);
    bench.desktop.settle();
    accept();
    const SessionInfo info = storedInfo("Evening.3Ds");
    EXPECT_EQ(info.Version, 1);
    EXPECT_EQ(info.Comment, "Mañana, 3 € ?");
    EXPECT_NEAR(info.Latitude, -34.60833333333333, 1e-12);
    EXPECT_NEAR(info.Longitude, 58.3725, 1e-12);
    EXPECT_EQ(info.Altitude, -12.5f);
    EXPECT_EQ(info.StartMHz, 91);
    EXPECT_EQ(info.StopMHz, 89) << "nothing asks for a stop above the start";
    EXPECT_EQ(info.Acquisitions, 7);
    EXPECT_EQ(form.MeasurementLatField.caption, "34°  36' 30.0''  S ");
    EXPECT_EQ(form.MeasurementStartFreqField.caption, "91.0 MHz");
    EXPECT_EQ(measurement.ScanRunning, 0) << "an edited session does not begin to measure";
}

TEST_F(SessionEditor, PlacesGoThroughItThereAndBack) {
    const auto table = tableLines("place");
    for (std::size_t i = 0; i + 1 < table.size(); i += 2) {
        const double latitude = std::stod(table[i][0]), longitude = std::stod(table[i + 1][0]);
        editAt(latitude, longitude);
        accept();
        EXPECT_NEAR(measurement.SessionInfo.Latitude, latitude, 0.05 / 3600);
        EXPECT_NEAR(measurement.SessionInfo.Longitude, longitude, 0.05 / 3600);
    }
}

TEST_F(SessionEditor, APlaceOf0Is_NotAvailable) {
    editAt(-777, -777, -777);
    bench.hand.select(editor.ComboNS, 1);
    accept();
    EXPECT_EQ(measurement.SessionInfo.Latitude, -777);
    EXPECT_EQ(measurement.SessionInfo.Longitude, -777);
    EXPECT_EQ(measurement.SessionInfo.Altitude, -777);
    EXPECT_EQ(form.MeasurementLatField.caption, "Not available");
    edit();
    bench.hand.edit(editor.Alt_Text, "700");
    accept();
    EXPECT_EQ(measurement.SessionInfo.Latitude, -777);
    EXPECT_EQ(measurement.SessionInfo.Altitude, 700) << "a height of its own stays";
    edit();
    bench.hand.edit(editor.LonSec, "0.1");
    bench.hand.edit(editor.Alt_Text, "0");
    accept();
    EXPECT_EQ(measurement.SessionInfo.Latitude, 0) << "one of the two is enough";
    EXPECT_GT(measurement.SessionInfo.Longitude, 0);
    EXPECT_EQ(measurement.SessionInfo.Altitude, 0);
}

TEST_F(SessionEditor, RenamingTakesTheSessionAndItsSweepAlong) {
    bench.write("Logs/Evening.spc", "sweep");
    bench.write("Logs/Night.spc", "an orphan");
    edit();
    bench.hand.edit(editor.MeasurementNameField, "Night");
    accept();
    EXPECT_THAT(sessions(), ElementsAre("Night.3Ds"));
    EXPECT_FALSE(hasLog("Evening.3Ds"));
    EXPECT_FALSE(hasLog("Evening.spc"));
    EXPECT_EQ(log("Night.spc"), "sweep");
    EXPECT_EQ(storedInfo("Night.3Ds").Acquisitions, 7);
    EXPECT_EQ(form.cboCurrentMeasurementFile.list.text(), "Night.3Ds");
    EXPECT_EQ(form.MeasurementNameField.caption, "Night");
}

TEST_F(SessionEditor, RenamingToATakenNameTakesTheNextNumber) {
    store("Night.3Ds", 1, "other");
    edit();
    bench.hand.edit(editor.MeasurementNameField, "Night");
    accept();
    EXPECT_THAT(sessions(), ElementsAre("Night (1).3Ds", "Night.3Ds"));
    EXPECT_EQ(measurement.CurrentSessionFile, "Night (1).3Ds");
    EXPECT_EQ(storedInfo("Night.3Ds").Comment, "other");
}

TEST_F(SessionEditor, RenamingInItsCaseAloneLosesNothing) {
    bench.write("Logs/Evening.spc", "sweep");
    edit();
    bench.hand.edit(editor.MeasurementNameField, "EVENING");
    accept();
    ASSERT_EQ(sessions().size(), 1u);
    EXPECT_EQ(storedInfo("Evening.3Ds").Acquisitions, 7);
    EXPECT_EQ(log("Evening.spc"), "sweep");
}

TEST_F(SessionEditor, ARenameThatCannotBeSavedKeepsTheOldFile) {
    edit();
    bench.hand.edit(editor.MeasurementNameField, std::string(300, 'n'));
    bench.desktop.answerEveryBox = true;
    accept();
    EXPECT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(storedInfo("Evening.3Ds").Acquisitions, 7);
    EXPECT_EQ(measurement.CurrentSessionFile, "Evening.3Ds");
}

TEST_F(SessionEditor, ForbiddenCharactersBecomeUnderlines) {
    edit();
    bench.hand.edit(editor.MeasurementNameField, " /\\*?:><| ");
    accept();
    EXPECT_EQ(measurement.CurrentSessionFile, "________.3Ds");
    EXPECT_TRUE(hasLog("________.3Ds"));
}

TEST_F(SessionEditor, ANewSessionIsSavedAndMeasured) {
    measurement.SpectralDensity.set(800, 3, 4);
    measurement.SpectralDensity.set(3, 70, 4);
    bench.desktop.date = {2026, 10, 25, 0, 2, 30, 0};
    add();
    bench.hand.edit(editor.MeasurementNameField, "New");
    bench.takeCalls();
    accept();
    EXPECT_FALSE(editor.loaded());
    EXPECT_TRUE(form.enabled);
    EXPECT_EQ(measurement.ScanRunning, -1);
    EXPECT_EQ(callsOf("HM_StartEspectro(880, 1080, 25)"), 1);
    const SessionInfo info = storedInfo("New.3Ds");
    EXPECT_EQ(info.Acquisitions, 0);
    EXPECT_EQ(info.Created, serialDate(bench.desktop.date));
    EXPECT_EQ(form.MeasurementAquisitonsField.caption, "0");
    EXPECT_EQ(form.cboCurrentMeasurementFile.list.text(), "New.3Ds");
    // What no view shows stays.
    EXPECT_EQ(measurement.SpectralDensity.at(800, 3), 4);
    EXPECT_EQ(measurement.SpectralDensity.at(3, 70), 4);
    EXPECT_EQ(measurement.SpectralDensity.at(5, 5), 0);
    EXPECT_TRUE(hasLog("Evening.3Ds"));
}

TEST_F(SessionEditor, ANewSessionOfATakenNameTakesTheNextNumber) {
    add();
    bench.hand.edit(editor.MeasurementNameField, "Evening");
    accept();
    EXPECT_EQ(measurement.CurrentSessionFile, "Evening (1).3Ds");
}

TEST_F(SessionEditor, OnAUnitWithoutSweepsItIsGoneBeforeTheScanHoldsTheThread) {
    bench.hand.close(form);
    bench.desktop.settle();
    open(1.5f);
    add();
    int points = 0;
    bench.driver.duringSuper = [&](float) {
        if (++points == 1) {
            EXPECT_FALSE(editor.visible);
            EXPECT_TRUE(form.enabled);
            bench.hand.click(form.butPause_BW);
        }
    };
    accept();
    EXPECT_EQ(points, 1);
}

TEST_F(SessionEditor, With1000NamesTakenItSaysSoAndDoesNothing) {
    for (int i = 0; i < 1000; ++i) {
        bench.write("Logs/Full" + (i > 0 ? " (" + std::to_string(i) + ")" : std::string()) + ".3Ds",
                    "");
    }
    const std::string before = log("Evening.3Ds");
    bench.desktop.answerEveryBox = true;
    edit();
    bench.hand.edit(editor.MeasurementNameField, "Full");
    accept();
    EXPECT_TRUE(editor.visible);
    EXPECT_EQ(measurement.CurrentSessionFile, "Evening.3Ds");
    EXPECT_EQ(log("Evening.3Ds"), before);
    click(editor.PicCancel);
    add();
    bench.hand.edit(editor.MeasurementNameField, "Full");
    accept();
    ASSERT_EQ(bench.desktop.boxes.size(), 2u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "There are 1000 sessions already named 'Full'.");
    EXPECT_EQ(log("Full (999).3Ds"), "") << "the last name is not overwritten";
    EXPECT_EQ(measurement.ScanRunning, 0);
}

TEST_F(SessionEditor, WithoutACurrentSessionSavesNoFile) {
    measurement.CurrentSessionFile.clear();
    edit();
    bench.hand.edit(editor.MeasurementNameField, "Some");
    accept();
    EXPECT_FALSE(hasLog("Some.3Ds"));
    EXPECT_FALSE(editor.visible);
}

TEST_F(SessionEditor, TheNameHasItsEndingTakenOffInAnyCase) {
    measurement.CurrentSessionFile = "a3Ds.3DS";
    edit();
    EXPECT_EQ(editor.MeasurementNameField.text, "a3Ds");
}

TEST_F(SessionEditor, ALongCommentIsCutAt65535Bytes) {
    std::string comment;
    for (int i = 0; i < 66000; ++i) comment += "ñ";
    edit();
    bench.hand.edit(editor.MeasurementCommentField, comment);
    accept();
    EXPECT_EQ(storedInfo("Evening.3Ds").Comment.size(), 2 * 65535u);
}

TEST_F(SessionEditor, EnglishCaptions) {
    edit();
    EXPECT_EQ(editor.caption, "Spectral Mesaurement information");
    EXPECT_EQ(editor.FrameMeasurementID.caption, "Mesaurements information");
    EXPECT_EQ(editor.MeasurementNameLabel.caption, "Name:");
    EXPECT_EQ(editor.MeasurementCommentLabel.caption, "Comment:");
    EXPECT_EQ(editor.MeasurementTimeStampLabel.caption, "Creation date:");
    EXPECT_EQ(editor.FrameFreq.caption, "Frequency range to analyze:");
    EXPECT_EQ(editor.StartStopLabel.caption, "Scan frequencies from:");
    EXPECT_EQ(editor.StartStopDivLabel.caption, "To:");
    EXPECT_EQ(editor.FrameLocalization.caption, "Location:");
    EXPECT_EQ(editor.MeasurementLatLabel.caption, "Latitude:");
    EXPECT_EQ(editor.MeasurementLonLabel.caption, "Longitude:");
    EXPECT_EQ(editor.MeasurementAltLabel.caption, "Altitude:");
}

TEST_F(SpanishEditor, KeepsTheTextsOfTheForm) {
    click(form.picAddMeasurement);
    EXPECT_EQ(editor.caption, "Información de Medición Espectral");
    EXPECT_EQ(editor.FrameMeasurementID.caption, "Informacion de las Mediciones");
    EXPECT_EQ(editor.MeasurementNameLabel.caption, "Nombre Medición");
    EXPECT_EQ(editor.MeasurementCommentLabel.caption, "Comentario");
    EXPECT_EQ(editor.MeasurementTimeStampLabel.caption, "Fecha Creación");
    EXPECT_EQ(editor.FrameFreq.caption, "Intervalo de Frecuencias a Analizar");
    EXPECT_EQ(editor.StartStopLabel.caption, "Relevar frecuencias desde");
    EXPECT_EQ(editor.StartStopDivLabel.caption, "hasta");
    EXPECT_EQ(editor.FrameLocalization.caption, "Localización del Instrumental");
    EXPECT_EQ(editor.MeasurementLatLabel.caption, "Latitud");
    EXPECT_EQ(editor.MeasurementLonLabel.caption, "Longitud");
    EXPECT_EQ(editor.MeasurementAltLabel.caption, "Altitud");
    EXPECT_EQ(editor.AltUnit.caption, "mts");
    EXPECT_EQ(editor.PicOk2.caption, "Aceptar");
    EXPECT_EQ(editor.PicCancel.caption, "Cancelar");
}

}  // namespace
}  // namespace hmonitor::test
