// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>

#include "base/figures.h"

namespace hmonitor {

/// What a library says of each figure of the registry, in its order; nothing of a figure that it
/// does not know.
using SaidStates = std::array<std::optional<figures::State>, figures::kCount>;

}  // namespace hmonitor
