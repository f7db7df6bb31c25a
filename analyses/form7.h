// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/program_form.h"
#include "display/chart.h"

namespace hmonitor {

/// The page of the frequency response: the twin of the window's chart, and its date line.
class Form7 final : public ProgramForm {
 public:
    explicit Form7(Program& program);

    display::Panel Sheet{*this, "Sheet"};
    display::Label Label2{*this, "Label2"};  ///< station, frequency and date
    display::Chart Graph1{*this, "Graph1"};

 protected:
    void layOut() override;
    void onLoad() override;
};

}  // namespace hmonitor
