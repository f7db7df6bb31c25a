// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/recorder.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>

namespace history {

namespace {

constexpr auto kSleep = std::chrono::milliseconds(500);

}  // namespace

Recorder::Recorder(StoreSettings settings, std::function<Moment()> clock)
    : settings_(std::move(settings)), clock_(std::move(clock)) {}

Recorder::~Recorder() {
    stop();
}

void Recorder::start() {
    if (thread_.joinable()) return;
    stopping_ = false;
    thread_ = std::thread([this] { run(); });
}

void Recorder::stop() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_one();
    thread_.join();
}

StoreStatus Recorder::status() const {
    const std::lock_guard lock(mutex_);
    return status_;
}

void Recorder::drain() {
    for (Input input; ring_.take(input);) recording_->take(input);
    Input tick;
    tick.at = clock_();
    recording_->take(tick);
}

/// With the mutex held.
void Recorder::tell() {
    if (status_ == store_->status()) return;
    status_ = store_->status();
    ++statusNumber_;
}

void Recorder::run() {
    Moment now = clock_();
    store_ = std::make_unique<Store>(settings_);
    store_->open(now.utcMs / 1000);
    recording_ = std::make_unique<Recording>(*store_, store_->epochFor(now.utcMs / 1000));
    store_->keep(Event{now.utcMs / 1000, 0, EventKind::Start, ""});
    std::int64_t committed = now.steadyMs;
    for (bool stopping = false; !stopping;) {
        {
            std::unique_lock lock(mutex_);
            tell();
            wake_.wait_for(lock, kSleep, [&] { return stopping_; });
            stopping = stopping_;
        }
        drain();
        now = clock_();
        if (!stopping && now.steadyMs - committed < kCommitMs) continue;
        if (stopping) {
            Input stop;
            stop.what = Input::What::Stop;
            stop.at = now;
            recording_->take(stop);
        }
        store_->commit(now.utcMs / 1000);
        committed = now.steadyMs;
    }
    const std::lock_guard lock(mutex_);
    tell();
    store_.reset();
}

}  // namespace history
