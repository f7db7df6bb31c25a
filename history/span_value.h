// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

#include "history/figure_second.h"

namespace history {

/// The value of one figure in a longer span: a minute, an hour, a civil day. It is always
/// calculated from the span's seconds, never from shorter spans, so that the result can be
/// verified.
struct SpanValue {
    float lowest = 0;
    float mean = 0;  ///< by the figure's kind (KindSum)
    float highest = 0;
    float percentile1 = 0;  ///< nearest rank over all seconds with any known time
    float percentile99 = 0;
    float length = 1;           ///< of an angle's mean vector
    std::uint32_t knownMs = 0;  ///< over 0: the values above are valid
    Causes causes{};

    /// The time that the span's seconds cover, known or not; during the rest nobody recorded.
    std::uint64_t toldMs() const;
};

/// Sums up seconds. An angle's lowest, highest and percentiles are taken within 90 degrees of its
/// mean, so they may be below 0 or over 180: a narrow band about 0 stays narrow.
SpanValue spanOf(figures::Kind kind, std::span<const FigureSecond> seconds);

/// Sums up spans into one value. The percentiles are then only bounds.
void joinSpan(figures::Kind kind, SpanValue& into, const SpanValue& other);

/// `degrees`, moved by half turns (180) until it is within 90 of `mean`.
double nearAxis(double degrees, double mean);

}  // namespace history
