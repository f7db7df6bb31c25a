// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "drivers/receiver/survey/survey.h"

namespace hm16::receiver {

inline constexpr std::size_t kPresets = 16;

// The block of a rack's sixteen memories, with these stations in the first ones and the others
// empty. The block's head and everything after the memories stay.
std::string withPresets(std::string block, std::span<const FoundStation> stations);

}  // namespace hm16::receiver
