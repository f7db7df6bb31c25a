// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <memory>

#include "history/input.h"

namespace history {

/// Hands inputs from one thread to another. Neither waits for the other; neither allocates. What
/// comes while it is full is lost, and the next input that finds room says so.
class InputRing {
 public:
    /// A minute of a heartbeat of 30 ms and of slots of 50 ms, with some to spare.
    static constexpr std::size_t kRoom = 3600;

    explicit InputRing(std::size_t room = kRoom);

    /// For the one thread that puts in. False when it was lost.
    bool put(const Input& input) noexcept;
    /// For the one thread that takes out. False when there is nothing.
    bool take(Input& input) noexcept;

 private:
    std::unique_ptr<Input[]> inputs_;
    std::size_t room_;
    bool lost_ = false;
    std::atomic<std::size_t> put_{0};
    std::atomic<std::size_t> taken_{0};
};

}  // namespace history
