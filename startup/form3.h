// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program_form.h"

namespace hmonitor {

/// A plain panel under the first panel of the rack while the others come up.
class Form3 final : public ProgramForm {
 public:
    explicit Form3(Program& program);

    display::Panel Faceplate{*this, "Faceplate"};
    display::Label Label1{*this, "Label1"};

 protected:
    void layOut() override;
};

}  // namespace hmonitor
