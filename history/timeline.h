// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "history/input.h"

namespace history {

/// The recorder's time: the wall clock, but it never goes back. When the wall clock was set by more
/// than two seconds, a new epoch begins, so that what is measured twice at the same time is kept
/// twice.
class Timeline {
 public:
    static constexpr std::int64_t kStepMs = 2000;

    /// `epoch` of the first moment; `lastMs`: the end of what was recorded before in it.
    explicit Timeline(int epoch = 0) : epoch_(epoch) {}

    struct At {
        std::int64_t ms = 0;         ///< since 1970, never decreasing within an epoch
        std::int64_t steppedMs = 0;  ///< how far the wall clock was set just now, else 0
    };
    At at(const Moment& moment);

    int epoch() const { return epoch_; }
    void beginEpoch(int epoch) { epoch_ = epoch; }

 private:
    int epoch_;
    bool begun_ = false;
    std::int64_t offset_ = 0;
    std::int64_t last_ = 0;
};

}  // namespace history
