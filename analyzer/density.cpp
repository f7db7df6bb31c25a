// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/density.h"

#include <algorithm>

namespace hmonitor {

void Density::clearShown() {
    for (int row = 0; row < kRows - 1; ++row) {
        const auto from = cells_.begin() + row * kColumns;
        std::fill(from, from + (kColumns - 1), 0.0);
    }
}

void Density::clear() {
    std::ranges::fill(cells_, 0.0);
}

}  // namespace hmonitor
