// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/spoilt_samples.h"

#include <algorithm>

namespace hm16::receiver {
namespace {

// Gaps longer than this are not bridged by interpolation: the multiplex has no relation across
// them.
constexpr std::uint64_t kBridged = 128;

// Spans closer together than this are merged.
constexpr std::uint64_t kClose = 64;

// At the ends of a long gap the signal fades to and from the carrier over this many samples, since
// a step would ring in the filters.
constexpr std::uint64_t kRamp = 64;

}  // namespace

void SpoiltSamples::add(std::uint64_t from, std::uint64_t to) {
    Span added{from, to, {}};
    for (auto span = spans_.begin(); span != spans_.end();) {
        if (span->to + kClose < added.from || added.to + kClose < span->from) {
            ++span;
            continue;
        }
        if (span->from <= added.from) added.before = span->before;
        added.from = std::min(added.from, span->from);
        added.to = std::max(added.to, span->to);
        span = spans_.erase(span);
    }
    const auto behind = std::find_if(spans_.begin(), spans_.end(),
                                     [&](const Span& span) { return span.from > added.from; });
    spans_.insert(behind, added);
}

void SpoiltSamples::mend(std::uint64_t first, std::size_t count, std::span<float> frequency,
                         float carrierHz) {
    const std::uint64_t end = first + count;
    for (Span& span : spans_) {
        if (span.to <= first || span.from >= end) continue;
        const std::uint64_t from = std::max(span.from, first);
        if (!span.before) span.before = from > first ? frequency[from - first - 1] : carrierHz;
        // Beyond the length of the ramp the distance does not matter.
        const bool known = span.to - first < frequency.size();
        const float after = known ? frequency[span.to - first] : carrierHz;
        const std::uint64_t length = span.to - span.from;
        const std::uint64_t ramp = length > kBridged ? kRamp : length + 1;
        const float middleBefore = length > kBridged ? carrierHz : after;
        for (std::uint64_t place = from; place < std::min(span.to, end); ++place) {
            const std::uint64_t in = place - span.from + 1;
            const std::uint64_t left = span.to - place;
            const float along = static_cast<float>(std::min(in, ramp)) / static_cast<float>(ramp);
            float hz = *span.before + (middleBefore - *span.before) * along;
            if (length > kBridged && left < kRamp)
                hz = after +
                     (carrierHz - after) * static_cast<float>(left) / static_cast<float>(kRamp);
            frequency[place - first] = hz;
        }
    }
}

void SpoiltSamples::eachClean(std::uint64_t first, std::size_t count,
                              const std::function<void(std::size_t, std::size_t)>& call) const {
    std::uint64_t from = first;
    const std::uint64_t end = first + count;
    for (const Span& span : spans_) {
        if (span.to <= from || span.from >= end) continue;
        if (span.from > from) call(from - first, span.from - first);
        from = std::max(from, span.to);
    }
    if (from < end) call(from - first, count);
}

std::uint64_t SpoiltSamples::besideBridges(std::uint64_t place) const {
    for (const Span& span : spans_)
        if (span.from < place && place < span.to && span.to - span.from <= kBridged)
            return span.from;
    return place;
}

bool SpoiltSamples::touches(std::uint64_t from, std::uint64_t to) const {
    return touchesLonger(from, to, 0);
}

bool SpoiltSamples::touchesLonger(std::uint64_t from, std::uint64_t to,
                                  std::uint64_t length) const {
    return std::any_of(spans_.begin(), spans_.end(), [=](const Span& span) {
        return span.to >= from && span.from < to && span.to - span.from >= length;
    });
}

void SpoiltSamples::forget(std::uint64_t place) {
    while (!spans_.empty() && spans_.front().to < place) spans_.pop_front();
}

}  // namespace hm16::receiver
