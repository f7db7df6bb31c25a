// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/steady_tone.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace hm16::receiver {
namespace {

constexpr double kLowestHz = 20;
constexpr double kHighestHz = 15000;
// Without any line the frequency is 0.
constexpr double kNothingDb = -300;

double sumAround(std::span<const double> power, std::size_t centre, std::size_t reach,
                 std::vector<bool>& taken) {
    const std::size_t from = centre > reach ? centre - reach : 0;
    const std::size_t to = std::min(power.size() - 1, centre + reach);
    double sum = 0;
    for (std::size_t k = from; k <= to; ++k) {
        if (!taken[k]) sum += power[k];
        taken[k] = true;
    }
    return sum;
}

// Mean floor of a bin to both sides of a line.
double floorBeside(std::span<const double> power, std::size_t centre, std::size_t reach) {
    double sum = 0;
    std::size_t bins = 0;
    for (std::size_t away = reach + 1; away <= 3 * reach; ++away) {
        if (centre >= away) sum += power[centre - away], ++bins;
        if (centre + away < power.size()) sum += power[centre + away], ++bins;
    }
    return bins > 0 ? sum / static_cast<double>(bins) : 0;
}

}  // namespace

double SteadyTone::dominanceDb() const {
    if (meanSquare <= 0) return kNothingDb;
    return 10 * std::log10(meanSquare / std::max(rest, 1e-30 * meanSquare));
}

SteadyTone findTone(std::span<const double> power, double binHz, std::size_t lobeBins) {
    SteadyTone tone;
    const auto first = static_cast<std::size_t>(std::ceil(kLowestHz / binHz));
    const auto last = std::min(power.size() - 1, static_cast<std::size_t>(kHighestHz / binHz));
    if (first + 1 >= last) return tone;
    const auto top = std::max_element(power.begin() + static_cast<std::ptrdiff_t>(first),
                                      power.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    const auto peak = static_cast<std::size_t>(top - power.begin());
    if (*top <= 0) return tone;
    // The line's place between the bins: the centre of gravity of its main lobe.
    double weight = 0;
    double moment = 0;
    const std::size_t from = peak > lobeBins ? peak - lobeBins : 0;
    for (std::size_t k = from; k <= std::min(power.size() - 1, peak + lobeBins); ++k) {
        weight += power[k];
        moment += power[k] * static_cast<double>(k);
    }
    const double place = moment / weight;
    tone.hz = place * binHz;
    std::vector<bool> taken(power.size(), false);
    tone.meanSquare = sumAround(power, peak, lobeBins, taken);
    for (int order = 2; order * tone.hz <= kHighestHz; ++order) {
        const auto centre = static_cast<std::size_t>(std::lround(order * place));
        if (centre + lobeBins >= power.size()) break;
        const double lobe = sumAround(power, centre, lobeBins, taken);
        const double floor =
            floorBeside(power, centre, lobeBins) * static_cast<double>(2 * lobeBins + 1);
        tone.harmonics += lobe - floor;
        tone.harmonicsInBand = true;
    }
    // The noise floor is subtracted per harmonic; over many harmonics its fluctuations average out.
    tone.harmonics = std::max(0.0, tone.harmonics);
    for (std::size_t k = first; k <= last; ++k)
        if (!taken[k]) tone.rest += power[k];
    return tone;
}

}  // namespace hm16::receiver
