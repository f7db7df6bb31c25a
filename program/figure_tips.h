// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "base/figures.h"
#include "display/form.h"

namespace hmonitor {

/// The tool tip of a figure at one place of the rack: what it is, its unit and range there, and
/// which values are good.
std::string figureTip(const figures::Figure& figure, const figures::Place& place,
                      display::Language language);

/// Sets the tool tip of each control of the form that shows a figure, and of the well around it a
/// tip with all figures in it.
void tellFigures(display::Form& form);

}  // namespace hmonitor
