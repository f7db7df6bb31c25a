// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include "drivers/receiver/figures/steady_tone.h"

namespace hm16::receiver {

// A frequency response run: the station sends eight test tones one after the other; the receiver
// finds them in the audio and keeps their levels.
class ResponseTones {
 public:
    static constexpr std::array<int, 8> kTones{30, 125, 400, 1000, 4000, 8000, 12000, 15000};

    struct Result {
        int hz = 0;          // 0: no result
        int tenthsOfDb = 0;  // relative to the tone of 1 kHz, or to the first tone if there is none
    };

    // Takes one look at the audio, four of which make a second.
    void look(const SteadyTone& tone);

    // True if all tones came and the last one was heard for a second or has ended, or if none has
    // come for three seconds.
    bool ended() const { return ended_; }

    // The tones found, in the order in which they came.
    std::array<Result, 8> results() const;

 private:
    struct Found {
        int hz;
        double db;
    };

    std::array<std::optional<Found>, kTones.size()> found_;
    std::size_t count_ = 0;
    std::size_t looksWithout_ = 0;
    std::size_t looksAtLast_ = 0;
    bool ended_ = false;
};

}  // namespace hm16::receiver
