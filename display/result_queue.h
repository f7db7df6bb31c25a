// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "display/timer.h"

namespace display {

/// What threads have worked out, until the program's thread takes it: by due time, then in the
/// order of coming. Used on that thread alone.
class ResultQueue {
 public:
    void post(Time due, std::function<void()> take);
    /// When the next one is due; nothing if none waits.
    std::optional<Time> nextDue() const;
    /// Takes everything that is due then; also what comes due while one is taken.
    void run(Time until);

 private:
    struct Result {
        Time due;
        std::function<void()> take;
    };
    std::vector<Result> results_;  ///< the next one first
};

}  // namespace display
