// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/slot_peak.h"

#include <algorithm>
#include <cmath>

#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/dsp/kernels.h"
#include "drivers/receiver/figures/noise_rise.h"

namespace hm16::receiver {
namespace {

// In units of the multiplex's rate: what it holds lies below, its images above.
constexpr double kFlat = 0.4;
constexpr double kStop = 0.6;

// Samples that are looked at together; what lies between them is left out where they are so low
// that it cannot matter.
constexpr std::size_t kStretch = 64;
constexpr double kMatters = 0.75;

}  // namespace

SlotPeak::SlotPeak() {
    const std::vector<double> all = designLowPass(kPoints, kFlat, kStop);
    const auto centre = static_cast<long>(all.size() / 2);
    for (std::size_t part = 0; part < kPoints; ++part) {
        for (std::size_t k = 0; k < kTaps; ++k) {
            // Tap kTaps / 2 - 1 stands on the sample before the point.
            const long away = static_cast<long>(kPoints * k) -
                              static_cast<long>(kPoints * (kTaps / 2 - 1) + part);
            const long at = centre + away;
            if (at >= 0 && at < static_cast<long>(all.size()))
                taps_[part][k] = static_cast<float>(kPoints * all[static_cast<std::size_t>(at)]);
        }
    }
}

void SlotPeak::take(std::span<const float> slot) {
    // The filter's length less one, so that no point between two slots is missed.
    const std::size_t kept = std::min(samples_.size(), kTaps - 1);
    samples_.erase(samples_.begin(), samples_.end() - static_cast<std::ptrdiff_t>(kept));
    samples_.insert(samples_.end(), slot.begin(), slot.end());
}

std::size_t SlotPeak::intervals() const {
    return samples_.size() < kTaps ? 0 : samples_.size() - (kTaps - 1);
}

double SlotPeak::magnitudeAt(std::size_t point, double carrierHz) const {
    const float* from = samples_.data() + point / kPoints;
    const auto& taps = taps_[point % kPoints];
    double sum = 0;
    for (std::size_t k = 0; k < kTaps; ++k) sum += static_cast<double>(from[k]) * taps[k];
    return std::fabs(sum - carrierHz);
}

// Height of the parabola through a point and its neighbours.
double SlotPeak::vertexAt(std::size_t point, double carrierHz) const {
    const double now = magnitudeAt(point, carrierHz);
    if (point == 0 || point + 1 >= intervals() * kPoints) return now;
    const double before = magnitudeAt(point - 1, carrierHz);
    const double after = magnitudeAt(point + 1, carrierHz);
    const double bend = before - 2 * now + after;
    if (bend >= 0 || now < before || now < after) return now;
    const double slope = (after - before) / 2;
    return now - slope * slope / (2 * bend);
}

std::span<float> SlotPeak::addPoints(std::size_t from, std::size_t count) {
    const std::size_t before = dense_.size();
    dense_.resize(before + kPoints * count);
    const auto points = std::span(dense_).subspan(before);
    std::copy_n(plain() + from, count, points.begin());
    for (std::size_t part = 1; part < kPoints; ++part)
        filterReal(samples_.data() + from, taps_[part].data(), kTaps, 1, count,
                   points.data() + part * count);
    return points;
}

double SlotPeak::peakFrom(double carrierHz, double noiseHz) {
    const auto carrier = static_cast<float>(carrierHz);
    const std::size_t count = intervals();
    const auto lengthAt = [=](std::size_t from) { return std::min(kStretch, count - from); };
    stretches_.clear();
    for (std::size_t from = 0; from < count; from += kStretch)
        stretches_.push_back(farthest(plain() + from, lengthAt(from), carrier));
    if (stretches_.empty()) return 0;
    const float highest = *std::max_element(stretches_.begin(), stretches_.end());
    const double matters = kMatters * (highest - NoiseRise::kDepth * noiseHz);
    dense_.clear();
    float top = 0;
    std::size_t topPoint = 0;
    for (std::size_t from = 0; from < count; from += kStretch) {
        if (stretches_[from / kStretch] < matters) continue;
        const std::size_t length = lengthAt(from);
        const auto points = addPoints(from, length);
        for (float& hz : points) hz = std::fabs(hz - carrier);
        const float here = farthest(points.data(), points.size(), 0);
        if (here <= top) continue;
        top = here;
        const auto at = static_cast<std::size_t>(std::find(points.begin(), points.end(), here) -
                                                 points.begin());
        topPoint = kPoints * (from + at % length) + at / length;
    }
    const double peak = vertexAt(topPoint, carrierHz);
    if (noiseHz <= 0) return peak;
    NoiseRise rise(top, noiseHz);
    rise.add(dense_);
    return std::max(0.0, peak - rise.hz());
}

}  // namespace hm16::receiver
