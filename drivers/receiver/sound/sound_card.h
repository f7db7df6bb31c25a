// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "drivers/receiver/chain/sound_resampler.h"

namespace hm16::receiver {

// The way to a sound card, through the system's library, which is looked up at run time. Used by
// one thread, which it may hold up.
class SoundCard {
 public:
    virtual ~SoundCard() = default;

    // Plays this after what was played before; waits until there is room. False if the card has
    // gone.
    virtual bool play(std::span<const StereoSample> sound) = 0;

    // Samples that were handed over but not heard yet.
    virtual std::size_t waiting() = 0;

    // The system's default card for stereo sound of 48 kHz; null, without a message, if there is
    // none.
    static std::unique_ptr<SoundCard> open();
};

}  // namespace hm16::receiver
