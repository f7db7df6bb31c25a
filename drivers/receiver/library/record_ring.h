// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <span>

namespace hm16::receiver {

// The last records of a kind, passed from the measuring thread to any number of readers, each with
// its own position. Records have a rising `number`. The lock is held only for copying.
template <typename Record>
class RecordRing {
 public:
    explicit RecordRing(std::size_t most) : most_(most) {}

    void add(const Record& record) {
        const std::lock_guard lock(mutex_);
        records_.push_back(record);
        if (records_.size() > most_) records_.pop_front();
    }

    // Copies the records from number `from` on, oldest first, as many as fit into `out`, and
    // returns how many. `next` is set to the number to ask for next.
    std::size_t copy(std::uint64_t from, std::span<Record> out, std::uint64_t& next) const {
        const std::lock_guard lock(mutex_);
        const auto first = std::lower_bound(
            records_.begin(), records_.end(), from,
            [](const Record& record, std::uint64_t number) { return record.number < number; });
        const auto waiting = static_cast<std::size_t>(records_.end() - first);
        const std::size_t count = std::min(waiting, out.size());
        std::copy_n(first, count, out.begin());
        next = count > 0 ? out[count - 1].number + 1 : from;
        return count;
    }

 private:
    const std::size_t most_;
    mutable std::mutex mutex_;
    std::deque<Record> records_;
};

}  // namespace hm16::receiver
