// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/controls/lists.h"
#include "display/controls/text_field.h"
#include "program/program_form.h"
#include "program/unit_lease.h"

namespace hmonitor {

class frmSpectrumAnalizer;

/// One run over 10 MHz around 98 MHz into the analyzer's session. Nothing in the program opens it.
class frmSpectrumAnalizerSpan final : public ProgramForm {
 public:
    explicit frmSpectrumAnalizerSpan(Program& program);

    /// Does nothing during a run, which the analyzer's pause keys end.
    void closeRequested() override {
        if (!measuring_) Command3D2.press();
    }

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label Label3{*this, "Label3"};
    display::Panel Frame1{*this, "Frame1"};
    display::Label FrameCaption{*this, "FrameCaption"};
    display::ComboBox Combo1{*this, "Combo1"};
    display::Label Label1{*this, "Label1"};
    display::TextField Text2{*this, "Text2"};  ///< kHz
    display::Label Label2{*this, "Label2"};
    display::Key Command3D1{*this, "Command3D1"};
    display::Key Command3D2{*this, "Command3D2"};

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void takeStep();
    void run();
    void tellLeastStep();
    void measure(double step);
    std::string measurePoints(double step, int count, double first);

    class Points;

    UnitLease lease_{program, *this};
    double bandwidth_ = 0;  ///< kHz
    bool measuring_ = false;
};

}  // namespace hmonitor
