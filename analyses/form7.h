// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analyses/chart_sheet.h"
#include "display/family.h"

namespace hmonitor {

/// The page of the frequency response, with a copy of the window's chart.
class Form7 final : public ChartSheet {
 public:
    explicit Form7(Program& program);

    display::Label Label3{*this, "Label3"};  ///< heading
    display::Family<display::Label, 7> ScaleNumber{*this, "ScaleNumber"};
    display::Label ScaleUnit{*this, "ScaleUnit"};
    display::Label ToneUnit{*this, "ToneUnit"};

 protected:
    void layOut() override;
    void onLoad() override;
};

}  // namespace hmonitor
