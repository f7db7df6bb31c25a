// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/timeline.h"

#include <algorithm>
#include <cstdint>

namespace history {

Timeline::At Timeline::at(const Moment& moment) {
    const std::int64_t offset = moment.utcMs - moment.steadyMs;
    const std::int64_t moved = begun_ ? offset - offset_ : 0;
    // Followed while it is small: clocks are slewed all day.
    offset_ = offset;
    if (moved > kStepMs || moved < -kStepMs) {
        ++epoch_;
        last_ = moment.utcMs;
        return {last_, moved};
    }
    last_ = begun_ ? std::max(last_, moment.utcMs) : moment.utcMs;
    begun_ = true;
    return {last_, 0};
}

}  // namespace history
