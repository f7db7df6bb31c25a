// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/pilot_track.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace hm16::receiver {
namespace {

constexpr double kKeptSeconds = 1.0;
constexpr std::size_t kFewestPoints = 8;
constexpr double kSteadyCoherence = 0.7;
// Points this close to a splice contain both sides and are left out.
constexpr double kBlurredSeconds = 0.007;
// Length on each side from which the phase jump at a splice is estimated.
constexpr double kJoinSeconds = 0.02;
constexpr double kJumpRadians = 0.1;
constexpr double kTwoPi = 2 * std::numbers::pi;

}  // namespace

double PilotLine::errorHz() const {
    return slope / kTwoPi;
}

bool PilotLine::steady() const {
    return coherence > kSteadyCoherence;
}

void PilotTrack::add(double seconds, std::complex<float> point) {
    double phase = std::arg(point);
    if (!points_.empty()) {
        const double before = points_.back().phase;
        phase += kTwoPi * std::round((before - phase) / kTwoPi);
    }
    points_.push_back({seconds, point, phase});
    while (points_.front().seconds < seconds - kKeptSeconds) points_.pop_front();
    if (!splices_.empty() && seconds > splices_.front() + kBlurredSeconds + kJoinSeconds) {
        join(splices_.front());
        splices_.pop_front();
    }
}

void PilotTrack::join(double seconds) {
    const PilotLine before = fit(seconds - kKeptSeconds, seconds - kBlurredSeconds);
    const PilotLine behind = fit(seconds + kBlurredSeconds, seconds + kKeptSeconds);
    if (!before.steady() || !behind.steady()) return;
    // Up to whole turns between the two sides.
    const double apart = behind.phase - before.phaseAt(behind.time);
    const double jump = apart - kTwoPi * std::round(apart / kTwoPi);
    if (std::fabs(jump) < kJumpRadians) return;
    std::erase_if(points_,
                  [=](const Point& p) { return std::fabs(p.seconds - seconds) < kBlurredSeconds; });
    for (Point& p : points_) {
        if (p.seconds > seconds) break;
        p.phase += apart;
        p.value *= static_cast<std::complex<float>>(std::polar(1.0, jump));
    }
}

PilotLine PilotTrack::fit(double from, double to) const {
    const auto first = std::lower_bound(points_.begin(), points_.end(), from,
                                        [](const Point& p, double t) { return p.seconds < t; });
    const auto last = std::upper_bound(first, points_.end(), to,
                                       [](double t, const Point& p) { return t < p.seconds; });
    const auto count = static_cast<std::size_t>(last - first);
    PilotLine line;
    if (count < kFewestPoints) return line;
    double meanTime = 0;
    double meanPhase = 0;
    for (auto p = first; p != last; ++p) {
        meanTime += p->seconds;
        meanPhase += p->phase;
    }
    meanTime /= static_cast<double>(count);
    meanPhase /= static_cast<double>(count);
    double across = 0;
    double spread = 0;
    for (auto p = first; p != last; ++p) {
        const double t = p->seconds - meanTime;
        across += t * (p->phase - meanPhase);
        spread += t * t;
    }
    line.time = meanTime;
    line.phase = meanPhase;
    line.slope = across / spread;
    std::complex<double> along = 0;
    double power = 0;
    for (auto p = first; p != last; ++p) {
        const std::complex<double> value(p->value);
        along += value * std::polar(1.0, -line.phaseAt(p->seconds));
        power += std::norm(value);
    }
    line.amplitude = along.real() / static_cast<double>(count);
    if (power > 0 && line.amplitude > 0)
        line.coherence = line.amplitude * line.amplitude * static_cast<double>(count) / power;
    return line;
}

}  // namespace hm16::receiver
