// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/form.h"

namespace hmonitor::test {

/// Every property of every control, a line a control: "Key1 left=1200 ... caption=&Scan".
std::vector<std::string> recorded(const display::Form& form);

/// Changes every property that is a number, a switch, a colour or a text.
void upset(const display::Form& form);

}  // namespace hmonitor::test
