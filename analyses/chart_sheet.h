// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/chart.h"
#include "display/controls/pictures.h"
#include "program/sheet_form.h"

namespace hmonitor {

/// A page with a copy of a window's chart, which that window fills.
class ChartSheet : public SheetForm {
 public:
    display::Picture Picture1{*this, "Picture1"};  ///< bordered on the screen, around the chart
    display::Chart Graph1{*this, "Graph1"};

 protected:
    using SheetForm::SheetForm;
    void dress(For what) override;

    /// Adds the model's name to the heading and shows today's date, until the window that opens the
    /// page sets another.
    void nameModel(display::Label& heading);
    /// Lays out the chart with its border.
    void placeChart(const display::Box& box);
    /// Lays out a figure of the chart's scale, at that distance from the top of the sheet.
    void placeScale(display::Label& figure, float y, std::string_view words);
};

}  // namespace hmonitor
