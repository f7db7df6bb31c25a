// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "base/figures.h"
#include "display/controls/plot_axis.h"
#include "history/query.h"

namespace hmonitor {

/// The axis on which these values of a figure are seen well: from round value to round value, with
/// the bounds of what is good where they are near. Without any value, the figure's range or what
/// lies about its bounds.
display::PlotAxis valueAxis(const figures::Figure& figure, std::span<const history::Band> shown,
                            std::span<const history::Band> beside);

}  // namespace hmonitor
