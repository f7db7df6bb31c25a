// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/pictures.h"
#include "display/controls/text_field.h"
#include "display/family.h"
#include "program/program_form.h"

namespace hmonitor {

/// A keypad for typing a frequency without a point in units of 100 kHz. While it is open the rack
/// is disabled; it tunes by moving the tuning bar.
class Form_bTuner final : public ProgramForm {
 public:
    explicit Form_bTuner(Program& program);

    void activated() override;
    void closeRequested() override;

    display::Panel Faceplate{*this, "Faceplate"};  ///< the window is moved by it
    display::Label Label1{*this, "Label1"};
    display::Panel EntryWell{*this, "EntryWell"};
    display::Picture Ring{*this, "Ring"};      ///< marks digits that cannot be tuned
    display::TextField Text1{*this, "Text1"};  ///< the digits typed so far
    display::Label Hint{*this, "Hint"};        ///< a hint at the possible digits
    display::Family<display::Key, 9, 1> digits{*this, "SSCommand#"};  ///< 1 to 9
    display::Key SSCommand11{*this, "SSCommand11"};                   ///< clears the digits
    display::Key SSCommand13{*this, "SSCommand13"};                   ///< 0
    display::Key SSCommand10{*this, "SSCommand10"};                   ///< tunes
    display::Key SSCommand12{*this, "SSCommand12"};                   ///< closes

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void append(char digit);
    void enter();
    void tune();
    void close();
};

}  // namespace hmonitor
