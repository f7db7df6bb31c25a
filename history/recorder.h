// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "history/input_ring.h"
#include "history/store.h"

namespace history {

/// Records inputs on a thread of its own. Callers never wait, neither for the disk nor for a lock.
class Recorder final : public InputSink {
 public:
    /// Together with an unfinished second and half a second of sleep, less than five seconds are
    /// lost when the machine crashes.
    static constexpr std::int64_t kCommitMs = 3500;

    explicit Recorder(StoreSettings settings, std::function<Moment()> clock = &Moment::now);
    /// Writes everything that is left.
    ~Recorder() override;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    void start();
    /// Ends the recording and writes everything that is left.
    void stop();

    /// From one thread only. False if a minute of inputs is waiting already: then it is lost, which
    /// is recorded later.
    bool put(const Input& input) noexcept { return ring_.put(input); }
    void take(const Input& input) override { put(input); }

    StoreStatus status() const;
    /// Changes whenever `status` would return something else. Cheap to call.
    unsigned statusNumber() const noexcept { return statusNumber_.load(); }

 private:
    void run();
    void drain();
    void tell();

    StoreSettings settings_;
    std::function<Moment()> clock_;
    InputRing ring_;
    std::unique_ptr<Store> store_;
    std::unique_ptr<Recording> recording_;
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    bool stopping_ = false;
    StoreStatus status_;
    std::atomic<unsigned> statusNumber_{0};
    std::thread thread_;
};

}  // namespace history
