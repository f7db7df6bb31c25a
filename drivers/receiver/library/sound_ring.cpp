// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/sound_ring.h"

#include <algorithm>
#include <bit>

namespace hm16::receiver {

static_assert(sizeof(StereoSample) == sizeof(std::uint64_t));

// Readers learn from `started_` what may be written over while they copy.
void SoundRing::write(std::span<const StereoSample> sound) {
    const std::uint64_t from = written_.load(std::memory_order_relaxed);
    started_.store(from + sound.size(), std::memory_order_seq_cst);
    for (std::size_t n = 0; n < sound.size(); ++n)
        samples_[(from + n) % kLength].store(std::bit_cast<std::uint64_t>(sound[n]),
                                             std::memory_order_release);
    written_.store(from + sound.size(), std::memory_order_release);
}

std::size_t SoundRing::read(std::uint64_t& place, std::span<StereoSample> into) const {
    for (;;) {
        const std::uint64_t end = written_.load(std::memory_order_acquire);
        const std::uint64_t oldest = end > kLength ? end - kLength : 0;
        // A place of the future is one of an earlier ring.
        const std::uint64_t from = std::clamp(place, oldest, end);
        const auto count =
            static_cast<std::size_t>(std::min<std::uint64_t>(end - from, into.size()));
        for (std::size_t n = 0; n < count; ++n)
            into[n] = std::bit_cast<StereoSample>(
                samples_[(from + n) % kLength].load(std::memory_order_acquire));
        const std::uint64_t started = started_.load(std::memory_order_seq_cst);
        if (started > from + kLength) continue;  // written over meanwhile
        place = from + count;
        return count;
    }
}

}  // namespace hm16::receiver
