// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/frm_edit_measurement.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "analyzer/frm_spectrum_analizer.h"
#include "analyzer/place_text.h"
#include "analyzer/session_date.h"
#include "analyzer/session_names.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/make_form.h"
#include "program/report_fault.h"

namespace hmonitor {

namespace {

constexpr int kFirstStart = 88;
constexpr int kFirstStop = 89;

/// The text without blanks at its ends.
std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

void choose(display::ComboBox& box, int row) {
    const int last = static_cast<int>(box.list.rows().size()) - 1;
    box.select(std::clamp(row, 0, last));
}

/// The position of a whole frequency in the list; the first one for a text that is no number.
int positionOf(float mhz, int first) {
    return wholeTowardZero(static_cast<double>(mhz)) - first;
}

}  // namespace

frmEditMeasurement::frmEditMeasurement(Program& itsProgram)
    : ProgramForm(itsProgram, "frmEditMeasurement") {
    MeasurementNameField.onChange = [this] { showAcceptable(); };
    // The disabled key does nothing.
    PicOk1.onClick = [] {};
    PicOk2.onClick = [this] { accept(); };
    PicCancel.onClick = [this] { unload(); };
}

frmSpectrumAnalizer& frmEditMeasurement::analyzer() const {
    return *program.frmSpectrumAnalizer;
}

void frmEditMeasurement::onLoad() {
    for (int mhz = kFirstStart; mhz < kFirstStart + 20; ++mhz) {
        Combo_StartFreq.list.add(mask("#00.0", mhz));
        Combo_StopFreq.list.add(mask("#00.0", mhz + 1));
    }
    for (const char* side : {"N", "S"}) ComboNS.list.add(side);
    for (const char* side : {"E", "W"}) ComboWE.list.add(side);
}

void frmEditMeasurement::onUnload() {
    if (program.frmSpectrumAnalizer.filled()) program.frmSpectrumAnalizer.peek().enabled = true;
}

void frmEditMeasurement::DisplayForm(Int16 isNew) {
    load();
    IsNewSession = isNew;
    for (display::TextField* field : {&LatDeg, &LatMin, &LonDeg, &LonMin}) field->text = "00";
    LatSec.text = mask("00.0", 0);
    LonSec.text = mask("00.0", 0);
    ComboNS.select(0);
    ComboWE.select(0);
    Alt_Text.text = "0";
    if (isNew == 0) {
        fillFrom(analyzer().measurement.SessionInfo);
    } else {
        fillNew();
    }
    showAcceptable();
    analyzer().enabled = false;
    show();
    topmost = true;
}

void frmEditMeasurement::fillFrom(const SessionInfo& info) {
    struct Side {
        double place;
        display::TextField &degrees, &minutes, &seconds;
        display::ComboBox& hemisphere;
    };
    const Side sides[] = {{info.Latitude, LatDeg, LatMin, LatSec, ComboNS},
                          {info.Longitude, LonDeg, LonMin, LonSec, ComboWE}};
    MeasurementNameField.text = sessionTitle(analyzer().measurement.CurrentSessionFile);
    MeasurementCommentField.text = info.Comment;
    for (const Side& side : sides) {
        if (side.place == double{kNotAvailable}) continue;
        const PlaceFields fields = PlaceFields::of(side.place);
        side.degrees.text = fields.degrees;
        side.minutes.text = fields.minutes;
        side.seconds.text = fields.seconds;
        side.hemisphere.select(fields.side == Hemisphere::SouthOrWest ? 1 : 0);
    }
    if (info.Altitude != kNotAvailable) Alt_Text.text = mask("####0", info.Altitude);
    choose(Combo_StartFreq, positionOf(info.StartMHz, kFirstStart));
    choose(Combo_StopFreq, positionOf(info.StopMHz, kFirstStop));
    MeasurementTimeStampField.caption = createdText(desktop(), info.Created);
}

void frmEditMeasurement::fillNew() {
    constexpr int kWholeBand = 19;
    MeasurementNameField.text = kNoName;
    MeasurementCommentField.text = "Ingrese un comentario aquí";
    MeasurementTimeStampField.caption = createdText(desktop(), serialDate(desktop().today()));
    Combo_StartFreq.select(0);
    Combo_StopFreq.select(kWholeBand);
}

void frmEditMeasurement::showAcceptable() {
    const bool named = !trimmed(MeasurementNameField.text).empty();
    PicOk1.visible = !named;
    PicOk2.visible = named;
}

bool frmEditMeasurement::nameIsFree(const std::string& title, std::string_view asIfGone) {
    if (analyzer().folder.hasFreeName(title, asIfGone)) return true;
    desktop().messageBox(
        {caption.get(),
         std::string(wordsIn(language, {"Ya existen 1000 sesiones de nombre '",
                                        "There are 1000 sessions already named '"})) +
             title + "'.",
         display::BoxIcon::Information});
    return false;
}

void frmEditMeasurement::accept() {
    frmSpectrumAnalizer& its = analyzer();
    const std::string title = fileTitle(trimmed(MeasurementNameField.text));
    MeasurementNameField.text = title;
    const bool isNew = IsNewSession != 0;
    if (isNew ? !begin(title) : !keepEdited(title)) return;
    its.ShowSessionInfo();
    unload();
    // The scan may hold the thread, so the editor is closed before it begins.
    if (isNew) its.butStart_Click();
}

void frmEditMeasurement::takeFields(SessionInfo& info) {
    const auto side = [](const display::ComboBox& box) {
        return box.list.selected() == 1 ? Hemisphere::SouthOrWest : Hemisphere::NorthOrEast;
    };
    info.Version = 1;
    info.Comment = MeasurementCommentField.text.get();
    info.Latitude = PlaceFields{SmallText(LatDeg.text.get()), SmallText(LatMin.text.get()),
                                SmallText(LatSec.text.get()), side(ComboNS)}
                        .place();
    info.Longitude = PlaceFields{SmallText(LonDeg.text.get()), SmallText(LonMin.text.get()),
                                 SmallText(LonSec.text.get()), side(ComboWE)}
                         .place();
    if (info.Latitude == 0 && info.Longitude == 0) {
        info.Latitude = double{kNotAvailable};
        info.Longitude = double{kNotAvailable};
    }
    const auto altitude = static_cast<float>(valueOf(Alt_Text.text));
    const bool nowhere = info.Latitude == double{kNotAvailable} && altitude == 0;
    info.Altitude = nowhere ? kNotAvailable : altitude;
    info.StartMHz = static_cast<float>(Combo_StartFreq.list.selected() + kFirstStart);
    info.StopMHz = static_cast<float>(Combo_StopFreq.list.selected() + kFirstStop);
}

/// The session is stored under its new name: now its last sweep is moved, and the old file deleted.
/// Names that differ only in case are one file, which keeps its spelling.
void frmEditMeasurement::dropBefore(const std::string& before, const std::string& after) {
    if (foldedCase(before) == foldedCase(after)) return;
    const SessionFolder& folder = analyzer().folder;
    folder.rename(sweepFileName(before), sweepFileName(after));
    (void)folder.remove(before);
}

bool frmEditMeasurement::keepEdited(const std::string& title) {
    frmSpectrumAnalizer& its = analyzer();
    Measurement& measurement = its.measurement;
    const std::string before = measurement.CurrentSessionFile;
    const bool renamed = title + std::string(kSessionEnding) != before && !before.empty();
    if (renamed && !nameIsFree(title, before)) return false;
    takeFields(measurement.SessionInfo);
    if (renamed) measurement.CurrentSessionFile = its.folder.uniqueName(title, before);
    const std::string& after = measurement.CurrentSessionFile;
    // The new file is written before the old one is deleted, so nothing is lost if the program ends
    // in between.
    const auto fault = measurement.SaveSession(its.folder, after);
    warn(desktop(), fault);
    if (renamed && fault) {
        measurement.CurrentSessionFile = before;
    } else if (renamed) {
        dropBefore(before, after);
    }
    its.ListSessions();
    its.SelectCurrentSession();
    its.showCondition();
    return true;
}

bool frmEditMeasurement::begin(const std::string& title) {
    frmSpectrumAnalizer& its = analyzer();
    Measurement& measurement = its.measurement;
    if (!nameIsFree(title, {})) return false;
    takeFields(measurement.SessionInfo);
    measurement.SessionInfo.Created = serialDate(desktop().today());
    its.ClearDensity();
    measurement.CurrentSessionFile = its.UniqueSessionName(title);
    warn(desktop(), measurement.SaveSession(its.folder, measurement.CurrentSessionFile));
    its.ListSessions();
    its.SelectCurrentSession();
    its.showCondition();
    return true;
}

template MadeForm makeForm(Program&, Slot<frmEditMeasurement>&);

}  // namespace hmonitor
