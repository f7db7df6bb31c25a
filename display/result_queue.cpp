// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/result_queue.h"

#include <algorithm>
#include <utility>

namespace display {

void ResultQueue::post(Time due, std::function<void()> take) {
    const auto behind = std::ranges::upper_bound(results_, due, {}, &Result::due);
    results_.insert(behind, {due, std::move(take)});
}

std::optional<Time> ResultQueue::nextDue() const {
    if (results_.empty()) return std::nullopt;
    return results_.front().due;
}

void ResultQueue::run(Time until) {
    while (!results_.empty() && results_.front().due <= until) {
        const std::function<void()> take = std::move(results_.front().take);
        results_.erase(results_.begin());
        take();
    }
}

}  // namespace display
