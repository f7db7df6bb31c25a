// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "base/figures.h"
#include "display/form.h"

namespace hmonitor {

/// What a tool tip says of a figure at one place of the rack: what it is, its unit and range there,
/// and what is good.
std::string figureTip(const figures::Figure& figure, const figures::Place& place,
                      display::Language language);

/// Gives each control of the form that shows a figure its tool tip, and the well around it one of
/// all that stands in it.
void tellFigures(display::Form& form);

}  // namespace hmonitor
