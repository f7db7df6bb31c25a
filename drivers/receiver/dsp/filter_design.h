// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

namespace hm16::receiver {

// The stop-band attenuation of the chain's filters: what is left of a rejected signal is below the
// smallest step of every figure.
inline constexpr double kStopbandDb = 80;

// Length (odd) of a Kaiser-windowed filter with a transition of `transitionHz` at `rateHz`.
std::size_t tapsFor(double rateHz, double transitionHz, double stopbandDb = kStopbandDb);

// Linear-phase filter whose gain is `gain(hz)`, from 0 to half the rate. A step in the gain becomes
// a slope as wide as the length requires, half of it on each side of the step.
std::vector<double> designFilter(double rateHz, std::size_t taps,
                                 const std::function<double(double hz)>& gain,
                                 double stopbandDb = kStopbandDb);

// Low-pass, flat to `passHz`, down from `stopHz` on.
std::vector<double> designLowPass(double rateHz, double passHz, double stopHz,
                                  double stopbandDb = kStopbandDb);

// Gain of a linear-phase filter at a frequency.
double gainOf(const std::vector<double>& taps, double rateHz, double hz);

}  // namespace hm16::receiver
