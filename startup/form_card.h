// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/controls/pictures.h"
#include "display/family.h"
#include "program/program_form.h"

namespace hmonitor {

/// The card over the rack at the first start: what the keys do, where help is, where the files are.
/// It goes for good by a click anywhere on it; the rack goes on under it.
class FormCard final : public ProgramForm {
 public:
    explicit FormCard(Program& program);

    void closeRequested() override { KeyRead.press(); }

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label Heading{*this, "Heading"};
    display::Family<display::Label, 3> Line{*this, "Line"};
    display::Key KeyRead{*this, "KeyRead"};
    display::Picture Rim{*this, "Rim"};

 protected:
    void layOut() override;

 private:
    std::string folderText() const;
};

}  // namespace hmonitor
