// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "analyzer/session_info.h"
#include "core/int16.h"
#include "display/controls/lists.h"
#include "display/controls/text_field.h"
#include "program/program_form.h"

namespace hmonitor {

class frmSpectrumAnalizer;

/// Makes a new session of the analyzer or changes the current one: its name, comment, place and the
/// frequencies that are measured.
class frmEditMeasurement final : public ProgramForm {
 public:
    explicit frmEditMeasurement(Program& program);

    /// Fills the form and shows it above all others: -1 for a new session, 0 for the current one.
    void DisplayForm(Int16 isNew);
    void closeRequested() override { PicCancel.press(); }

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label FrameMeasurementID{*this, "FrameMeasurementID"};
    display::Label MeasurementNameLabel{*this, "MeasurementNameLabel"};
    display::TextField MeasurementNameField{*this, "MeasurementNameField"};
    display::Label MeasurementCommentLabel{*this, "MeasurementCommentLabel"};
    display::TextField MeasurementCommentField{*this, "MeasurementCommentField"};
    display::Label MeasurementTimeStampLabel{*this, "MeasurementTimeStampLabel"};
    display::Label MeasurementTimeStampField{*this, "MeasurementTimeStampField"};
    display::Label FrameFreq{*this, "FrameFreq"};
    display::Label StartStopLabel{*this, "StartStopLabel"};
    display::ComboBox Combo_StartFreq{*this, "Combo_StartFreq"};
    display::Label StartStopDivLabel{*this, "StartStopDivLabel"};
    display::ComboBox Combo_StopFreq{*this, "Combo_StopFreq"};
    display::Label StartStopUnit{*this, "StartStopUnit"};
    display::Label FrameLocalization{*this, "FrameLocalization"};
    display::Label MeasurementLatLabel{*this, "MeasurementLatLabel"};
    display::TextField LatDeg{*this, "LatDeg"};
    display::TextField LatMin{*this, "LatMin"};
    display::TextField LatSec{*this, "LatSec"};
    display::ComboBox ComboNS{*this, "ComboNS"};
    display::Label MeasurementLonLabel{*this, "MeasurementLonLabel"};
    display::TextField LonDeg{*this, "LonDeg"};
    display::TextField LonMin{*this, "LonMin"};
    display::TextField LonSec{*this, "LonSec"};
    display::ComboBox ComboWE{*this, "ComboWE"};
    display::Label PlaceMarks[6]{{*this, "LatDegMark"}, {*this, "LatMinMark"},
                                 {*this, "LatSecMark"}, {*this, "LonDegMark"},
                                 {*this, "LonMinMark"}, {*this, "LonSecMark"}};
    display::Label MeasurementAltLabel{*this, "MeasurementAltLabel"};
    display::TextField Alt_Text{*this, "Alt_Text"};
    display::Label AltUnit{*this, "AltUnit"};
    display::Key PicOk1{*this, "PicOk(1)"};  ///< greyed: without a name nothing is accepted
    display::Key PicOk2{*this, "PicOk(2)"};
    display::Key PicCancel{*this, "PicCancel"};

    Int16 IsNewSession;  ///< -1 for a new session, 0 for editing

 protected:
    void layOut() override;
    void onLoad() override;
    void onUnload() override;

 private:
    void layOutIdentity();
    void layOutFrequencies();
    void layOutPlace();
    void layOutKeys();
    void fillFrom(const SessionInfo& info);
    void fillNew();
    void showAcceptable();
    void accept();
    void takeFields(SessionInfo& info);
    bool keepEdited(const std::string& title);
    void dropBefore(const std::string& before, const std::string& after);
    bool begin(const std::string& title);
    bool nameIsFree(const std::string& title, std::string_view asIfGone);
    frmSpectrumAnalizer& analyzer() const;
};

}  // namespace hmonitor
