// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stored_frequency.h"

#include <cmath>

#include "core/numbers.h"

namespace hmonitor {

StoredFrequency parseStoredFrequency(std::string_view text) {
    constexpr double kSmallestHalfStep = 8755;  // 87.55 MHz
    const double value = valueOf(text);
    if (value < kSmallestHalfStep) return {value, HalfStep::No};
    return {std::floor(value / 10), HalfStep::Yes};
}

SmallText storedFrequencyText(const StoredFrequency& frequency) {
    SmallText text = shortText(frequency.frequency);
    return frequency.half == HalfStep::Yes ? text.append('5') : text;
}

}  // namespace hmonitor
