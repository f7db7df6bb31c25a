// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "drivers/receiver/chain/sound_resampler.h"

namespace hm16::receiver {

// The clocks of a signal and of a sound card never agree. The number of samples that wait between
// them is kept as it was at first, by playing up to two thousandths slower or faster, which nobody
// hears. As long as it stays there, the sound passes unchanged to the last bit.
class SoundPace {
 public:
    // The samples that wait between both, before the next ones are taken.
    void look(std::size_t waiting);

    // Appends the sound at the pace of the card.
    void process(std::span<const StereoSample> sound, std::vector<StereoSample>& out);

    // Sound samples for each one of the card: 1, 1.002 or 0.998.
    double step() const { return step_; }

 private:
    double mean_ = 0;
    double target_ = 0;
    std::size_t looks_ = 0;
    double step_ = 1;
    double place_ = 0;  // of the next sample, counted from the last one of the previous stretch
    StereoSample last_;
    bool begun_ = false;
};

}  // namespace hm16::receiver
