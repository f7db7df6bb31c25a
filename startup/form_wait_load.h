// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/pictures.h"
#include "display/family.h"
#include "program/program_form.h"

namespace hmonitor {

/// The splash screen, the first form of the program: decides brand, language and model, opens the
/// driver and shows the rack.
class Form_WaitLoad final : public ProgramForm {
 public:
    explicit Form_WaitLoad(Program& program);

    static constexpr int kShapes = 16;

    display::Panel Faceplate{*this, "Faceplate"};
    display::CheckBox Check1{*this, "Check1"};  ///< the brand that the program was built for
    display::Picture Logo1{*this, "Logo1"};
    display::Picture Logo2{*this, "Logo2"};
    display::Label Label1{*this, "Label1"};
    display::Label Folder{*this, "Folder"};  ///< the working folder, the first time
    display::Family<display::Shape, kShapes> Shape1{*this, "Shape1"};

    display::Timer Timer1{*this, "Timer1"};  ///< turns the ring
    display::Timer Timer2{*this, "Timer2"};  ///< opens the driver, once

    int ringIndex() const { return ring_; }

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void tellFirstFolder();
    void turnRing();
    void openDriver();

    int ring_ = -1;  ///< 1 to 16 names the lit shape
};

}  // namespace hmonitor
