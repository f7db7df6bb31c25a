// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analyses/scan_option.h"
#include "display/chart.h"
#include "display/controls/labels.h"
#include "display/controls/shapes.h"
#include "display/family.h"

namespace hmonitor {

/// What the band chart is drawn on: light colours on the screen, dark ones on paper.
enum class ScanGround { Screen, Paper };

/// The legend of the band chart: a stroke and a word for each of its ten columns. The window and
/// the page have one each.
class ScanLegend {
 public:
    explicit ScanLegend(display::Form& form)
        : Label_Serie(form, "Label_Serie#", 1),
          Line(form, "Line#", 1),
          Line_Fuxia(form, "Line_Fuxia") {}

    static constexpr std::size_t kColumns = 10;

    /// The stroke of column 1 to 10, counted from 0. The fifth has a name of its own.
    display::Line& stroke(std::size_t column);

    /// Words and visibility under an option.
    void show(const ScanOption& option);
    /// The upper five columns stand with all channels alone.
    void hideUpper();

    /// Strokes and bars in the colours of the ground.
    void colour(display::Chart& chart, ScanGround ground);

    display::Family<display::Label, kColumns> Label_Serie;
    display::Family<display::Line, kColumns - 1> Line;
    display::Line Line_Fuxia;

 private:
    void showUpper(bool visible);
};

}  // namespace hmonitor
