// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>

namespace hm16::receiver {

// How often the last minute exceeded 100 percent: slots over 75 kHz, of which adjacent ones count
// once.
class PeaksPerMinute {
 public:
    void add(double peakHz);
    int count() const { return static_cast<int>(starts_.size()); }

 private:
    std::uint64_t slot_ = 0;
    bool over_ = false;
    std::deque<std::uint64_t> starts_;
};

}  // namespace hm16::receiver
