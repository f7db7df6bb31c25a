// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

#include "history/figure_second.h"

namespace history {

/// What one figure was in a longer span: a minute, an hour, a civil day. Everything is worked out
/// of the span's seconds, never of shorter spans, so that it can be worked out again from them.
struct SpanValue {
    float lowest = 0;
    float mean = 0;  ///< by the figure's kind (KindSum)
    float highest = 0;
    float percentile1 = 0;  ///< nearest rank over the seconds with any known time
    float percentile99 = 0;
    float length = 1;           ///< of an angle's mean vector
    std::uint32_t knownMs = 0;  ///< over 0: the values above count
    Causes causes{};

    /// Time that the span's seconds tell of, known or not; the rest of the span nobody recorded.
    std::uint64_t toldMs() const;
};

/// Sums up seconds. An angle's lowest, highest and percentiles are taken within 90 degrees of its
/// mean, so that they may lie below 0 or over 180: a narrow band about 0 stays narrow.
SpanValue spanOf(figures::Kind kind, std::span<const FigureSecond> seconds);

/// Sums up spans where one value for all of them is wanted. Percentiles become bounds.
void joinSpan(figures::Kind kind, SpanValue& into, const SpanValue& other);

/// `degrees` moved by whole turns of an axis (180) to within 90 of `mean`.
double nearAxis(double degrees, double mean);

}  // namespace history
