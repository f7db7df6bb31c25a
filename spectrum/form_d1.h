// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "core/int16.h"
#include "display/controls/pictures.h"
#include "program/program_form.h"
#include "program/unit_lease.h"
#include "spectrum/channel_table.h"

namespace hmonitor {

/// Shows a channel spectrum as bars and as a table: the stored one of the tuned frequency when it
/// is loaded, then the points of a run as they come.
class Form_D1 final : public ProgramForm {
 public:
    explicit Form_D1(Program& program);

    /// Draws the empty table: a row for each column, with its offset in kHz.
    void EscalaClean(Int16 columns, Int16 step);
    /// Prints the value of row i (from 1), dB without sign.
    void printValue(int i, std::string_view value);

    /// While a run goes on the window cannot be closed.
    void beginRun();
    enum class RunEnd { Whole, Broken };
    void endRun(RunEnd end);
    /// One line that says at which frequency, in units of 100 kHz, the unit refused to go on.
    void tellRefused(float tenths);
    /// The lease of the runs that are shown here. After a run that broke off, closing the window
    /// returns the unit.
    UnitLease lease{program, *this};

    /// The run at the start had a result: the window is shown when the rack is complete.
    void awaitRack() { awaitsRack_ = true; }
    /// The rack is complete: shows the window beside it if it waited for that and the screen has
    /// room; otherwise it stays hidden until its key opens it.
    void rackStands();

    void closeRequested() override { Command3D2.press(); }

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};  ///< the handle of the window
    display::Label Label1{*this, "Label1"};
    display::Label Refused{*this, "Refused"};  ///< at which point the unit refused
    display::Label Station{*this, "Station"};
    display::Panel Sheet1{*this, "Sheet1"};
    display::PictureBox Picture1{*this, "Picture1"};  ///< bars
    display::Panel Sheet2{*this, "Sheet2"};
    display::PictureBox Picture2{*this, "Picture2"};  ///< values
    display::Key Command3D1{*this, "Command3D1"};     ///< asks for a new run
    display::Key Command3D2{*this, "Command3D2"};     ///< closes, unless a run goes on
    display::Key SSCommand1{*this, "SSCommand1"};     ///< printed page
    display::Key SSCommand2{*this, "SSCommand2"};     ///< modulation bandwidth

    display::Timer Timer1{*this, "Timer1"};

 protected:
    void layOut() override;
    void onLoad() override;
    void onUnload() override;

 private:
    void showStored();
    void printRow(int i, float x, std::string_view text);
    void openBandwidth();
    void openPage();

    bool running_ = false;
    bool awaitsRack_ = false;
    ShownSpectrum shown_;
};

}  // namespace hmonitor
