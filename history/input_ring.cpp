// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/input_ring.h"

namespace history {

InputRing::InputRing(std::size_t room) : inputs_(std::make_unique<Input[]>(room)), room_(room) {}

bool InputRing::put(const Input& input) noexcept {
    const std::size_t at = put_.load(std::memory_order_relaxed);
    if (at - taken_.load(std::memory_order_acquire) >= room_) {
        lost_ = true;
        return false;
    }
    Input& place = inputs_[at % room_];
    place = input;
    place.lostBefore = lost_ ? 1 : 0;
    lost_ = false;
    put_.store(at + 1, std::memory_order_release);
    return true;
}

bool InputRing::take(Input& input) noexcept {
    const std::size_t at = taken_.load(std::memory_order_relaxed);
    if (at == put_.load(std::memory_order_acquire)) return false;
    input = inputs_[at % room_];
    taken_.store(at + 1, std::memory_order_release);
    return true;
}

}  // namespace history
