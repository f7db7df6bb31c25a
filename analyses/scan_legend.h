// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analyses/scan_option.h"
#include "display/chart.h"
#include "display/controls/labels.h"
#include "display/controls/shapes.h"
#include "display/family.h"

namespace hmonitor {

/// The background of the band chart: light colours for the screen, dark ones for paper.
enum class ScanGround { Screen, Paper };

/// The legend of the band chart: a line and a text for each of its ten columns. The window and the
/// page have one each.
class ScanLegend {
 public:
    explicit ScanLegend(display::Form& form)
        : Label_Serie(form, "Label_Serie#", 1),
          Line(form, "Line#", 1),
          Line_Fuxia(form, "Line_Fuxia") {}

    static constexpr std::size_t kColumns = 10;

    /// The line of a column, counted from 0. The fifth has a name of its own.
    display::Line& stroke(std::size_t column);

    /// Sets texts and visibility for an option.
    void show(const ScanOption& option);
    /// The upper five columns are visible only with all channels.
    void hideUpper();

    /// Sets the colours of lines and bars for the background.
    void colour(display::Chart& chart, ScanGround ground);

    display::Family<display::Label, kColumns> Label_Serie;
    display::Family<display::Line, kColumns - 1> Line;
    display::Line Line_Fuxia;

 private:
    void showUpper(bool visible);
};

}  // namespace hmonitor
