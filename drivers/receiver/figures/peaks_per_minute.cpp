// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/peaks_per_minute.h"

namespace hm16::receiver {
namespace {

constexpr double kFullDeviationHz = 75e3;
constexpr std::uint64_t kSlotsPerMinute = 1200;

}  // namespace

void PeaksPerMinute::add(double peakHz) {
    ++slot_;
    const bool over = peakHz > kFullDeviationHz;
    if (over && !over_) starts_.push_back(slot_);
    over_ = over;
    while (!starts_.empty() && starts_.front() + kSlotsPerMinute <= slot_) starts_.pop_front();
}

}  // namespace hm16::receiver
