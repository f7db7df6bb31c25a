// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/form.h"

namespace hmonitor::test {

/// What is wrong with a loaded form, one sentence a fault that names form and control: names that
/// stand twice, controls not placed exactly once or outside their parent, keys that overlap, keys
/// without a handler, keys without an accessible name in either language.
std::vector<std::string> faultsOf(const display::Form& form);

}  // namespace hmonitor::test
