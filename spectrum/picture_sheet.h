// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/controls/pictures.h"
#include "program/sheet_form.h"

namespace hmonitor {

/// A page with a copy of a window's graph, made when the window opens it.
class PictureSheet : public SheetForm {
 public:
    display::Label Label7{*this, "Label7"};           ///< heading, with the model's name
    display::PictureBox Picture1{*this, "Picture1"};  ///< the graph

 protected:
    PictureSheet(Program& itsProgram, std::string itsName);
    void onLoad() override;
    void dress(For what) override;
};

}  // namespace hmonitor
