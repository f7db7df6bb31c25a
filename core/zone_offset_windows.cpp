// SPDX-License-Identifier: GPL-3.0-or-later
// The Windows version of zone_offset.cpp.
#include <time.h>

#include "core/zone_offset.h"

namespace hmonitor {

int zoneOffset(std::int64_t t) {
    const ::__time64_t time = t;
    ::tm parts = {};
    ::_localtime64_s(&parts, &time);
    return static_cast<int>(::_mkgmtime64(&parts) - t);
}

}  // namespace hmonitor
