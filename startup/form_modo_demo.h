// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/int16.h"
#include "program/program_form.h"

namespace hmonitor {

/// Offers to go on without a unit. Shown modally; the caller reads the answer when it is closed.
class FormModoDemo final : public ProgramForm {
 public:
    static constexpr int kDemo = -1;
    static constexpr int kExit = 0;

    explicit FormModoDemo(Program& program);

    int answer() const { return answer_; }
    void closeRequested() override { Command2.press(); }

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label Label1{*this, "Label1"};    ///< the Spanish words
    display::Label Label2{*this, "Label2"};    ///< the English words
    display::Label Reason{*this, "Reason"};    ///< why there is no driver library or no unit
    display::Key Command1{*this, "Command1"};  ///< demo mode
    display::Key Command2{*this, "Command2"};  ///< exit

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void tellLibraryFault();

    Int16 answer_ = kExit;
};

}  // namespace hmonitor
