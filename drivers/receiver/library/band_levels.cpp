// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/band_levels.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {

BandLevels::BandLevels(double rateHz, double centreHz)
    : rateHz_(rateHz),
      centreHz_(centreHz),
      spectrum_(Spectrum::Input::Complex, kLength, kLength),
      below_(kLength + 1, 0.0) {}

void BandLevels::measure(std::span<const Sample> stretch) {
    std::vector<double> sum(kLength, 0.0);
    std::size_t looks = 0;
    // Half overlapping: every sample counts nearly alike in spite of the window.
    for (std::size_t from = 0; from + kLength <= stretch.size(); from += kLength / 2) {
        const auto power = spectrum_.power(stretch.subspan(from, kLength));
        for (std::size_t k = 0; k < kLength; ++k) sum[k] += power[k];
        ++looks;
    }
    below_[0] = 0;
    for (std::size_t k = 0; k < kLength; ++k) {
        const double power = looks > 0 ? sum[(k + kLength / 2) % kLength] : 0;
        below_[k + 1] = below_[k] + power / static_cast<double>(std::max<std::size_t>(looks, 1));
    }
}

bool BandLevels::covers(double hz, double widthHz) const {
    return std::fabs(hz - centreHz_) + widthHz / 2 <= rateHz_ / 2;
}

double BandLevels::cumulative(double bins) const {
    const double place = std::clamp(bins, 0.0, static_cast<double>(kLength) - 1e-9);
    const auto whole = static_cast<std::size_t>(place);
    return below_[whole] + (below_[whole + 1] - below_[whole]) * (place - std::floor(place));
}

double BandLevels::powerAt(double hz, double widthHz) const {
    if (!covers(hz, widthHz)) return 0;
    const double binHz = rateHz_ / static_cast<double>(kLength);
    const double centre = (hz - centreHz_) / binHz + static_cast<double>(kLength) / 2 + 0.5;
    const double half = widthHz / binHz / 2;
    return cumulative(centre + half) - cumulative(centre - half);
}

}  // namespace hm16::receiver
