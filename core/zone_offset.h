// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace hmonitor {

/// How far the clock of the machine's zone is ahead of UTC at `t` (seconds since 1970), in seconds.
int zoneOffset(std::int64_t t);

}  // namespace hmonitor
