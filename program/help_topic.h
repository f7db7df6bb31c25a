// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/form.h"

namespace hmonitor {

/// What help is asked on: the key of the figure that the control shows, or that stands in the
/// control's well; else the name of the form.
std::string helpTopicOf(const display::Form& form, const display::Control* control);

}  // namespace hmonitor
