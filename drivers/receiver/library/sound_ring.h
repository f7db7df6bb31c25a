// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "drivers/receiver/chain/sound_resampler.h"

namespace hm16::receiver {

// The last second of the tuned station's sound, at 48,000 samples a second, passed from the
// measuring thread to listeners such as a sound card's thread, which may never wait. One writer,
// any number of readers with a position each, no locks. The writer never waits either: a reader
// that is more than a second late loses what was overwritten.
class SoundRing {
 public:
    SoundRing() : samples_(kLength) {}

    void write(std::span<const StereoSample> sound);

    // Copies the samples from `place` on, as many as fit into `into` and have arrived; returns how
    // many, and moves `place` after them. If `place` was overwritten, it first moves to the oldest
    // sample.
    std::size_t read(std::uint64_t& place, std::span<StereoSample> into) const;

    // The position after the newest sample, where a new listener begins.
    std::uint64_t newest() const { return written_.load(std::memory_order_acquire); }

 private:
    static constexpr std::size_t kLength = 48000;

    std::vector<std::atomic<std::uint64_t>> samples_;  // both channels' bits
    std::atomic<std::uint64_t> started_{0};            // end of what is being written
    std::atomic<std::uint64_t> written_{0};            // end of what can be read
};

}  // namespace hm16::receiver
