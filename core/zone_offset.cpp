// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/zone_offset.h"

#include <time.h>

namespace hmonitor {

int zoneOffset(std::int64_t t) {
    const auto time = static_cast<::time_t>(t);
    ::tm parts = {};
    ::localtime_r(&time, &parts);
    return static_cast<int>(parts.tm_gmtoff);
}

}  // namespace hmonitor
