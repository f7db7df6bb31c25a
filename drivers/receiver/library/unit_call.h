// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <mutex>

#include "drivers/receiver/library/receiver_unit.h"

namespace hm16::receiver {

// A call from the program, which has exclusive use of the unit while this object exists. While the
// unit's thread keeps up with a radio it holds the mutex nearly all the time and would win it again
// and again; so it lets waiting calls go first.
class ReceiverUnit::Call {
 public:
    explicit Call(const ReceiverUnit& unit) : unit_(unit) {
        ++unit_.callers_;
        lock_ = std::unique_lock(unit_.mutex_);
        --unit_.callers_;
    }
    ~Call() {
        lock_.unlock();
        unit_.wake_.notify_all();
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

 private:
    const ReceiverUnit& unit_;
    std::unique_lock<std::mutex> lock_;
};

}  // namespace hm16::receiver
