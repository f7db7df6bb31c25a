// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/dsp/filter_design.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace hm16::receiver {
namespace {

double kaiserBeta(double stopbandDb) {
    if (stopbandDb > 50) return 0.1102 * (stopbandDb - 8.7);
    if (stopbandDb > 21)
        return 0.5842 * std::pow(stopbandDb - 21, 0.4) + 0.07886 * (stopbandDb - 21);
    return 0;
}

}  // namespace

std::size_t tapsFor(double rateHz, double transitionHz, double stopbandDb) {
    const double width = 2 * std::numbers::pi * transitionHz / rateHz;
    const auto length = static_cast<std::size_t>(std::ceil((stopbandDb - 8) / (2.285 * width))) + 1;
    return std::max<std::size_t>(length | 1U, 3);
}

std::vector<double> designFilter(double rateHz, std::size_t taps,
                                 const std::function<double(double hz)>& gain, double stopbandDb) {
    // The inverse Fourier integral of the gain, on a grid fine enough that the response's tail
    // does not fold back into the taps.
    const std::size_t grid = std::max<std::size_t>(1024, 8 * taps);
    const std::size_t half = (taps - 1) / 2;
    std::vector<double> side(half + 1, 0.0);
    for (std::size_t k = 0; k < grid; ++k) {
        const double turn = (static_cast<double>(k) + 0.5) / static_cast<double>(2 * grid);
        const double weight = gain(turn * rateHz) / static_cast<double>(grid);
        if (weight == 0) continue;
        const double twice = 2 * std::cos(2 * std::numbers::pi * turn);
        double before = std::cos(2 * std::numbers::pi * turn);
        double now = 1;
        for (double& tap : side) {
            tap += weight * now;
            const double next = twice * now - before;
            before = now;
            now = next;
        }
    }
    const double beta = kaiserBeta(stopbandDb);
    std::vector<double> result(taps);
    for (std::size_t n = 0; n <= half; ++n) {
        const double place = half == 0 ? 0 : static_cast<double>(n) / static_cast<double>(half);
        const double window =
            std::cyl_bessel_i(0.0, beta * std::sqrt(std::max(0.0, 1 - place * place))) /
            std::cyl_bessel_i(0.0, beta);
        result[half + n] = side[n] * window;
        result[half - n] = side[n] * window;
    }
    return result;
}

std::vector<double> designLowPass(double rateHz, double passHz, double stopHz, double stopbandDb) {
    const double edge = (passHz + stopHz) / 2;
    const std::size_t taps = tapsFor(rateHz, stopHz - passHz, stopbandDb);
    std::vector<double> result = designFilter(
        rateHz, taps, [edge](double hz) { return hz < edge ? 1.0 : 0.0; }, stopbandDb);
    const double atZero = gainOf(result, rateHz, 0);
    for (double& tap : result) tap /= atZero;
    return result;
}

double gainOf(const std::vector<double>& taps, double rateHz, double hz) {
    const double centre = (static_cast<double>(taps.size()) - 1) / 2;
    double sum = 0;
    for (std::size_t n = 0; n < taps.size(); ++n)
        sum += taps[n] *
               std::cos(2 * std::numbers::pi * hz / rateHz * (static_cast<double>(n) - centre));
    return sum;
}

}  // namespace hm16::receiver
