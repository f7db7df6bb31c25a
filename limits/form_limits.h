// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/limits_file.h"
#include "display/controls/lists.h"
#include "display/controls/text_field.h"
#include "display/family.h"
#include "limits/limit_entry.h"
#include "program/program_form.h"

namespace hmonitor {

/// The window that edits the limits of the figures. While it is open, the rack is disabled.
class FormLimits final : public ProgramForm {
 public:
    explicit FormLimits(Program& program);

    void closeRequested() override { KeyCancel.press(); }

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label RulesCaption{*this, "RulesCaption"};
    display::ListBox Rules{*this, "Rules"};
    display::Key KeyNew{*this, "KeyNew"};
    display::Key KeyDelete{*this, "KeyDelete"};
    display::Key KeyUsual{*this, "KeyUsual"};  ///< restores the default rules

    // The chosen rule.
    display::Label FigureCaption{*this, "FigureCaption"};
    display::ComboBox FigureBox{*this, "FigureBox"};
    display::Label KindCaption{*this, "KindCaption"};
    display::ComboBox KindBox{*this, "KindBox"};  ///< in the order of LimitKind
    display::Label LowestCaption{*this, "LowestCaption"};
    display::TextField Lowest{*this, "Lowest"};
    display::Label HighestCaption{*this, "HighestCaption"};
    display::TextField Highest{*this, "Highest"};
    display::Family<display::Label, 2> BoundUnit{*this, "BoundUnit"};
    display::Label HoldsCaption{*this, "HoldsCaption"};
    display::TextField Holds{*this, "Holds"};
    display::Label ReleaseCaption{*this, "ReleaseCaption"};
    display::TextField Release{*this, "Release"};
    display::Family<display::Label, 2> SecondsUnit{*this, "SecondsUnit"};
    display::Label SeverityCaption{*this, "SeverityCaption"};
    display::Panel Severity{*this, "Severity"};
    display::Option Warning{*this, "Warning"};
    display::Option Alarm{*this, "Alarm"};

    display::Label Note{*this, "Note"};  ///< the fault of the entry
    display::Key KeyAccept{*this, "KeyAccept"};
    display::Key KeyCancel{*this, "KeyCancel"};

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void layOutList();
    void layOutRule();
    void layOutKeys();
    void bindFields();

    LimitRule* chosen();
    /// Fills the list again; the fields stay.
    void list(int select);
    void choose(int row);
    void showRule();
    void showEntry(const LimitEntry& entry);
    void enableFields();
    LimitEntry entered() const;
    void takeEntry();
    void takeOtherBounds();
    void say(const display::Words& words);

    void addRule();
    void deleteRule();
    void accept();
    void close();

    LimitsFile limits_;
    bool filling_ = false;  ///< the program is filling the fields
    bool faulty_ = false;   ///< the entry is no valid rule
};

}  // namespace hmonitor
