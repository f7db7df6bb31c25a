// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/chart.h"
#include "display/controls/pictures.h"
#include "program/sheet_form.h"

namespace hmonitor {

/// A page whose picture is the twin of a window's chart, which that window fills.
class ChartSheet : public SheetForm {
 public:
    display::Picture Picture1{*this, "Picture1"};  ///< bordered on the screen, around the chart
    display::Chart Graph1{*this, "Graph1"};

 protected:
    using SheetForm::SheetForm;
    void dress(For what) override;

    /// The model's name behind the heading and, until the window that asks sets it, the date line.
    void nameModel(display::Label& heading);
    /// The chart with its border around it.
    void placeChart(const display::Box& box);
    /// A figure of the chart's scale, that far down in the sheet.
    void placeScale(display::Label& figure, float y, std::string_view words);
};

}  // namespace hmonitor
