// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/shapes.h"

#include <algorithm>

namespace display {

Box Line::boxInContainer() const {
    const auto [first, last] = std::minmax(x1.get(), x2.get());
    const auto [upper, lower] = std::minmax(y1.get(), y2.get());
    return {first, upper, last - first, lower - upper};
}

}  // namespace display
