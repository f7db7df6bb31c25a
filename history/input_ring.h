// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <memory>

#include "history/input.h"

namespace history {

/// Passes inputs from one thread to another. Neither thread waits for the other or allocates.
/// Inputs that come while the ring is full are lost, and the next one that fits says so.
class InputRing {
 public:
    /// Room for a minute of heartbeats of 30 ms and of slots of 50 ms.
    static constexpr std::size_t kRoom = 3600;

    explicit InputRing(std::size_t room = kRoom);

    /// Called by the writing thread only. False if the input was lost.
    bool put(const Input& input) noexcept;
    /// Called by the reading thread only. False if there is no input.
    bool take(Input& input) noexcept;

 private:
    std::unique_ptr<Input[]> inputs_;
    std::size_t room_;
    bool lost_ = false;
    std::atomic<std::size_t> put_{0};
    std::atomic<std::size_t> taken_{0};
};

}  // namespace history
