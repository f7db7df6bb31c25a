// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analyses/chart_sheet.h"
#include "analyses/scan_legend.h"
#include "display/family.h"

namespace hmonitor {

/// The page of the band scan, with a copy of the window's chart, its scale and its legend.
class Form_PrintBandScan final : public ChartSheet {
 public:
    explicit Form_PrintBandScan(Program& program);

    /// Sets rows, columns and legend for a choice of channels.
    void showOption(const ScanOption& option);

    display::Label Label18{*this, "Label18"};  ///< heading
    /// The level scale, from the top.
    display::Family<display::Label, 8> Scale{*this, "Label#", 10};
    display::Label Label3{*this, "Label3"};  ///< its unit
    ScanLegend legend{*this};

 protected:
    void layOut() override;
    void onLoad() override;
};

}  // namespace hmonitor
