// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analyses/scan_legend.h"
#include "core/program_form.h"
#include "display/chart.h"

namespace hmonitor {

/// The page of the band scan: the twin of the window's chart with its legend, and its date line.
class Form_PrintBandScan final : public ProgramForm {
 public:
    explicit Form_PrintBandScan(Program& program);

    /// Rows, columns and legend under a choice of channels.
    void showOption(const ScanOption& option);

    display::Panel Sheet{*this, "Sheet"};
    display::Label Label2{*this, "Label2"};  ///< the date
    display::Chart Graph1{*this, "Graph1"};
    ScanLegend legend{*this};

 protected:
    void layOut() override;
    void onLoad() override;
};

}  // namespace hmonitor
