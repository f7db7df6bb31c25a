// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "drivers/receiver/chain/sound_resampler.h"

namespace hm16::receiver {

// Where sound goes out: the system's own way to a sound card, looked for when the program runs.
// Used by one thread, which it may hold up.
class SoundCard {
 public:
    virtual ~SoundCard() = default;

    // Plays the sound behind what was played before; waits until there is room for it. False when
    // the card has gone.
    virtual bool play(std::span<const StereoSample> sound) = 0;

    // Samples that were handed over and are not heard yet.
    virtual std::size_t waiting() = 0;

    // The system's default card for stereo sound of 48 kHz; null where there is none, without a
    // word.
    static std::unique_ptr<SoundCard> open();
};

}  // namespace hm16::receiver
