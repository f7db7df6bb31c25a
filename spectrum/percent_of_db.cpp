// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/percent_of_db.h"

#include <array>
#include <cstddef>

namespace hmonitor {

float percentOfDb(float below) {
    constexpr std::array<float, 21> kWhole = {100, 90, 80, 70, 63, 56, 50, 45, 40, 35, 32,
                                              28,  25, 22, 20, 18, 16, 14, 13, 11, 10};
    for (std::size_t db = 0; db < kWhole.size(); ++db) {
        if (below == static_cast<float>(db)) return kWhole[db];
    }
    if (below >= 21 && below <= 25) return 7;
    if (below >= 26 && below <= 30) return 4;
    return 0;
}

}  // namespace hmonitor
