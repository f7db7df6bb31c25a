// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/lists.h"
#include "display/controls/text_field.h"
#include "program/program_form.h"
#include "spectrum/channel_spectrum_file.h"
#include "spectrum/channel_sweep.h"

namespace hmonitor {

/// Asks for the span of a channel spectrum and measures it point by point; Form_D1 shows the points
/// as they are measured.
class Form_NewSpectro final : public ProgramForm {
 public:
    explicit Form_NewSpectro(Program& program);

    void closeRequested() override { Command3D2.press(); }

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};  ///< the handle of the window
    display::Label Heading{*this, "Heading"};
    display::Label Refused{*this, "Refused"};  ///< why no run began
    display::Label Label3{*this, "Label3"};
    display::Panel Frame1{*this, "Frame1"};
    display::Label FrameCaption{*this, "FrameCaption"};
    display::ComboBox Combo1{*this, "Combo1"};  ///< span
    display::Label Label1{*this, "Label1"};
    display::TextField Text_Step{*this, "Text_Step"};  ///< kHz
    display::Label Label2{*this, "Label2"};
    display::Key Command3D1{*this, "Command3D1"};  ///< runs
    display::Key Command3D2{*this, "Command3D2"};  ///< back to the last spectrum

    SmallText SpanKHz;  ///< half of the span, from the chosen item

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void takeSpan();
    void run();
    void measure(const ChannelSweep& sweep, float carrier);
};

}  // namespace hmonitor
