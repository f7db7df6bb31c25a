// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/span_value.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <vector>

#include "history/kind_sum.h"

namespace history {

namespace {

constexpr std::uint32_t kWholeMs = 1000;

/// The value at a share of a sorted row: the smallest that so much of the row does not exceed.
float atRank(const std::vector<float>& sorted, double share) {
    const auto rank =
        static_cast<std::size_t>(std::ceil(share * static_cast<double>(sorted.size()) - 1e-9));
    return sorted[std::clamp<std::size_t>(rank, 1, sorted.size()) - 1];
}

}  // namespace

std::uint64_t SpanValue::toldMs() const {
    return std::accumulate(causes.begin(), causes.end(), std::uint64_t{knownMs});
}

double nearAxis(double degrees, double mean) {
    // As far away on either side, as values of whole steps often are: then it lies below, whatever
    // rounding made of the mean.
    constexpr double kOpposite = 1e-3;
    return degrees - 180 * std::floor((degrees - mean + 90 + kOpposite) / 180);
}

SpanValue spanOf(figures::Kind kind, std::span<const FigureSecond> seconds) {
    SpanValue span;
    KindSum sum(kind);
    std::vector<float> values;
    values.reserve(seconds.size());
    for (const FigureSecond& second : seconds) {
        const std::uint32_t known = std::min<std::uint32_t>(second.knownMs, kWholeMs);
        span.knownMs += known;
        if (known < kWholeMs) {
            span.causes[static_cast<std::size_t>(second.state)] += kWholeMs - known;
        }
        if (known == 0) continue;
        sum.add(static_cast<double>(second.value), known);
        values.push_back(second.value);
    }
    if (values.empty()) return span;
    const double mean = sum.mean();
    span.mean = static_cast<float>(mean);
    span.length = static_cast<float>(sum.length());
    if (kind == figures::Kind::Angle) {
        for (float& value : values) {
            value = static_cast<float>(nearAxis(static_cast<double>(value), mean));
        }
    }
    std::sort(values.begin(), values.end());
    span.lowest = values.front();
    span.highest = values.back();
    span.percentile1 = atRank(values, 0.01);
    span.percentile99 = atRank(values, 0.99);
    return span;
}

void joinSpan(figures::Kind kind, SpanValue& into, const SpanValue& other) {
    for (std::size_t i = 0; i < into.causes.size(); ++i) into.causes[i] += other.causes[i];
    if (other.knownMs == 0) return;
    if (into.knownMs == 0) {
        const Causes causes = into.causes;
        into = other;
        into.causes = causes;
        return;
    }
    KindSum sum(kind);
    sum.add(static_cast<double>(into.mean), into.knownMs, static_cast<double>(into.length));
    sum.add(static_cast<double>(other.mean), other.knownMs, static_cast<double>(other.length));
    const double mean = sum.mean();
    // An angle's bounds turn with its mean.
    const auto turn = [&](const SpanValue& span) {
        if (kind != figures::Kind::Angle) return 0.0;
        return nearAxis(static_cast<double>(span.mean), mean) - static_cast<double>(span.mean);
    };
    const auto mine = static_cast<float>(turn(into));
    const auto its = static_cast<float>(turn(other));
    into.lowest = std::min(into.lowest + mine, other.lowest + its);
    into.highest = std::max(into.highest + mine, other.highest + its);
    into.percentile1 = std::min(into.percentile1 + mine, other.percentile1 + its);
    into.percentile99 = std::max(into.percentile99 + mine, other.percentile99 + its);
    into.mean = static_cast<float>(mean);
    into.length = static_cast<float>(sum.length());
    into.knownMs += other.knownMs;
}

}  // namespace history
