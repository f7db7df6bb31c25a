// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/receiver/figures/audio_power.h"

namespace hm16::receiver {

// Direction of the principal axis of the figure that L and R draw: 0 R alone, 45 mono, 90 L alone,
// 135 out of phase. In silence the last direction stands.
class StereoAxis {
 public:
    void add(const AudioPower& power);
    double degrees() const { return degrees_; }

 private:
    double degrees_ = 45;
};

}  // namespace hm16::receiver
