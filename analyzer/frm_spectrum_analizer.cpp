// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/frm_spectrum_analizer.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analyzer/analyzer_words.h"
#include "analyzer/frm_edit_measurement.h"
#include "analyzer/place_text.h"
#include "analyzer/session_date.h"
#include "analyzer/session_names.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/make_form.h"
#include "program/rack_place.h"
#include "program/report_fault.h"
#include "program/unit_generation.h"
#include "spectrum/class1.h"

namespace hmonitor {

namespace {

/// Sessions with this many sweeps open on the map: with fewer, every cell seen would be black.
constexpr int kEnoughForMap = 4;

}  // namespace

frmSpectrumAnalizer::frmSpectrumAnalizer(Program& itsProgram)
    : ProgramForm(itsProgram, "frmSpectrumAnalizer"), folder(itsProgram.files) {
    bindKeys();
}

frmSpectrumAnalizer::~frmSpectrumAnalizer() = default;

void frmSpectrumAnalizer::bindKeys() {
    cboCurrentMeasurementFile.onClick = [this] { chooseSession(); };
    picAddMeasurement.onClick = [this] { addSession(); };
    picEditMeasurement.onClick = [this] { editSession(); };
    picDelMeasurement.onClick = [this] { deleteSession(); };
    butSpecMode.onClick = [this] { butSpecMode_Click(); };
    btnDetail_Higher.onClick = [this] {
        if (PictureZoom.width < 20000) changeWidth(1.5f);
    };
    btnDetail_Lower.onClick = [this] {
        if (PictureZoom.width > 15000) changeWidth(1 / 1.5f);
    };
    HScroll1.onChange = [this] { scrollPictures(); };
    for (display::Picture* key : {&butStart, &butStart_BW})
        key->onClick = [this] { butStart_Click(); };
    for (display::Picture* key : {&butPause, &butPause_BW})
        key->onClick = [this] { butPause_Click(); };
    SSCommand1.onClick = [this] { openPage(); };
    Picture3d.numbers = [this] { return numbersOfMap(); };
    PictureZoom.numbers = [this] { return numbersOfBars(); };
    Timer1.onTick = [this] {
        blink();
        frames_.look();
    };
}

void frmSpectrumAnalizer::onLoad() {
    placeOverRack(*this, program);
    lease_.take();
    loadRoutine();
}

void frmSpectrumAnalizer::loadRoutine() {
    butSpecMode.caption = mode3D();
    measurement.NewSessionDefaults(serialDate(desktop().today()));
    ShowSessionInfo();
    ListSessions();
    measurement.CurrentSessionFile.clear();
    SelectCurrentSession();
    LoadSession(cboCurrentMeasurementFile.list.text());
    ShowSpectrum_3D();
    ShowSpectrum_SpectralZoom(sweepFileName(measurement.CurrentSessionFile));
    showZoomView();
    if (measurement.SessionInfo.Acquisitions >= kEnoughForMap) butSpecMode.press();
    FrameBusy = 0;
    StepKHz = kScanStepKhz;
    driver.HM_Parar();
    driver.HM_getHardwareVersion(HardwareVersion);
    showRunning(Running::No);
    showCondition();
}

void frmSpectrumAnalizer::ListSessions() {
    display::ListModel& list = cboCurrentMeasurementFile.list;
    list.clear();
    const std::vector<std::string> sessions = folder.list();
    if (sessions.empty()) list.add(std::string(kNoName) + std::string(kSessionEnding));
    for (const std::string& session : sessions) list.add(session);
}

void frmSpectrumAnalizer::SelectCurrentSession() {
    display::ComboBox& box = cboCurrentMeasurementFile;
    // This selection must not load a session.
    box.enabled = false;
    box.select(itemOfSession(box.list.rows(), measurement.CurrentSessionFile));
    box.enabled = true;
}

bool frmSpectrumAnalizer::LoadSession(std::string_view fileName) {
    const std::string wanted(fileName);
    if (!measurement.LoadSession(folder, wanted)) return false;
    unsaved_ = unsavedText_ = false;
    ShowSessionInfo();
    return true;
}

void frmSpectrumAnalizer::SaveSession(std::string_view fileName) {
    const std::string wanted(fileName);
    const auto fault = measurement.SaveSession(folder, wanted);
    unsaved_ = fault.has_value();
    tellOnce(fault);
    showCondition();
}

void frmSpectrumAnalizer::ClearDensity() {
    measurement.SessionInfo.Acquisitions = 0;
    showCount();
    measurement.SpectralDensity.clearShown();
}

void frmSpectrumAnalizer::tellOnce(const std::optional<FileFault>& fault) {
    if (!fault || toldFault_) return;
    toldFault_ = measurement.ScanRunning != 0;
    warn(desktop(), fault);
}

void frmSpectrumAnalizer::chooseSession() {
    if (!cboCurrentMeasurementFile.enabled) return;
    if (measurement.ScanRunning != 0) {
        desktop().messageBox(analyzer_words::kStopFirstToChoose);
        SelectCurrentSession();
        return;
    }
    if (!LoadSession(cboCurrentMeasurementFile.list.text())) {
        SelectCurrentSession();
        return;
    }
    showCondition();
    ShowSpectrum_3D();
    ShowSpectrum_SpectralZoom(sweepFileName(measurement.CurrentSessionFile));
    if (measurement.SessionInfo.Acquisitions < kEnoughForMap) {
        butSpecMode.caption = mode3D();
        showZoomView();
    }
}

void frmSpectrumAnalizer::addSession() {
    if (measurement.ScanRunning != 0) {
        desktop().messageBox(analyzer_words::kStopFirstToBegin);
        return;
    }
    program.frmEditMeasurement->DisplayForm(-1);
}

void frmSpectrumAnalizer::editSession() {
    if (measurement.ScanRunning != 0) {
        desktop().messageBox(analyzer_words::kStopFirstToBegin);
        return;
    }
    program.frmEditMeasurement->DisplayForm(0);
}

void frmSpectrumAnalizer::deleteSession() {
    if (measurement.CurrentSessionFile.empty()) return;
    if (desktop().ask(analyzer_words::deleteQuestion(measurement.CurrentSessionFile)) ==
        display::BoxAnswer::Cancel)
        return;
    // A running scan would write the files again, so it is ended before they are deleted.
    if (measurement.ScanRunning != 0) butPause_Click();
    unsaved_ = unsavedText_ = false;
    (void)folder.remove(measurement.CurrentSessionFile);
    (void)folder.remove(sweepFileName(measurement.CurrentSessionFile));
    loadRoutine();
}

void frmSpectrumAnalizer::ShowSessionInfo() {
    SessionInfo& info = measurement.SessionInfo;
    if (info.Version != 1) {
        for (display::Label* field :
             {&MeasurementCommentField, &MeasurementStartFreqField, &MeasurementStopFreqField,
              &MeasurementAquisitonsField, &MeasurementTimeStampField, &MeasurementLatField,
              &MeasurementLonField, &MeasurementAltField})
            field->caption = "";
        return;
    }
    const std::string_view missing = wordsIn(language, {"No disponible", "Not available"});
    MeasurementCommentField.caption = info.Comment;
    showCount();
    MeasurementLatField.caption = latitudeText(info.Latitude, missing);
    MeasurementLonField.caption = longitudeText(info.Longitude, missing);
    MeasurementAltField.caption = altitudeText(info.Altitude, missing);
    MeasurementStartFreqField.caption = mask("#00.0 MHz", info.StartMHz);
    MeasurementStopFreqField.caption = mask("#00.0 MHz", info.StopMHz);
    if (info.Created == 0) info.Created = serialDate(desktop().today());
    MeasurementTimeStampField.caption = createdText(desktop(), info.Created);
}

void frmSpectrumAnalizer::showCount() {
    MeasurementAquisitonsField.caption = mask("####0", measurement.SessionInfo.Acquisitions);
}

void frmSpectrumAnalizer::showCondition() {
    MeasurementNameField.caption = sessionTitle(measurement.CurrentSessionFile);
    Label_Damaged.visible = measurement.damaged;
    Label_NotCounted.visible = !givesFrames(HardwareVersion) && !inDemoMode();
    const std::string unit =
        std::string(wordsIn(language, {"unidad ", "unit "})) + mask("0.0", HardwareVersion).str() +
        std::string(wordsIn(language, {"   barrido ", "   sweep "})) +
        wholeText(kScanStepKhz).str() +
        std::string(
            wordsIn(language, {" kHz   corrección de campo ", " kHz   field correction "})) +
        mask("0.0", fieldCorrection()).str() + " dB";
    Label_Unit.caption = unit;
}

template MadeForm makeForm(Program&, Slot<frmSpectrumAnalizer>&);

}  // namespace hmonitor
