// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/channel_sweep.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"

namespace hmonitor {

double ChannelSweep::steps() const {
    // Counts that would be rounded down, which loses the high edge, are raised to the next whole
    // number.
    constexpr std::array<double, 10> kGoUp = {3.5,  5.5,  6.5,  7.5,  9.5,
                                              10.5, 11.5, 13.5, 17.5, 19.5};
    const double count = 2 * halfSpan / step;
    return std::ranges::find(kGoUp, count) != kGoUp.end() ? count + 0.5 : count;
}

Int16 ChannelSweep::points() const {
    return toWhole(steps() + 1);
}

double ChannelSweep::beforeFirst() const {
    constexpr double kKhzPerUnit = 100;
    return carrier - halfSpan / kKhzPerUnit - step / kKhzPerUnit;
}

double ChannelSweep::beforeFirstMhz() const {
    return beforeFirst() / 10;
}

float ChannelSweep::frequency(int i) const {
    return static_cast<float>((beforeFirstMhz() + i * step / 1000) * 10);
}

bool ChannelSweep::isCentre(int i) const {
    return i == steps() / 2 + 1;
}

Int16 dbAgainstCarrier(float level, float carrier) {
    return std::min(toWhole(level - carrier), 0);
}

}  // namespace hmonitor
