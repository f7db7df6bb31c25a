// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/figure_second.h"

#include <algorithm>
#include <cmath>

namespace history {

std::size_t figureCount() {
    return std::min(figures::all().size(), kMostFigures);
}

double stepOf(const figures::Figure& figure) {
    constexpr double kFinest = 1e6;
    return std::floor(static_cast<double>(figure.step) * kFinest + 0.5) / kFinest;
}

void joinSecond(Second& into, const Second& other) {
    for (std::size_t i = 0; i < kMostFigures; ++i) {
        if (other.figures[i].knownMs > into.figures[i].knownMs) into.figures[i] = other.figures[i];
    }
}

}  // namespace history
