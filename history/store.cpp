// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/store.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "core/numbers.h"

namespace history {

namespace {

constexpr std::int64_t kTidyEvery = 3600;
constexpr std::size_t kMostEvents = 1000;

}  // namespace

Store::Store(StoreSettings settings) : settings_(std::move(settings)) {}

Store::~Store() = default;

void Store::open(std::int64_t now) {
    if (!bringUp(now)) return;
    tidy(now);
}

/// False while the folder cannot be used; then it is tried again with each commit.
bool Store::bringUp(std::int64_t now) {
    if (!lock_ && !openFolder()) return false;
    // Once more where a damaged index was set aside.
    for (int tries = 0; tries < 2 && !isUp_; ++tries) {
        if (!index_) openIndex(now);
        isUp_ = index_ && repair(now);
        if (status_.state != StoreStatus::State::Recording) break;
    }
    return isUp_ && status_.state != StoreStatus::State::Newer;
}

int Store::epochFor(std::int64_t now) const {
    // Not for the second in which the last run ended: both parts of it are joined.
    return told_.end > now + 1 ? told_.epoch + 1 : told_.epoch;
}

void Store::keep(const Second& second) {
    waiting_.push_back(second);
    dropWaiting();
}

void Store::keep(const Event& event) {
    waitingEvents_.push_back(event);
    while (waitingEvents_.size() > kMostEvents) waitingEvents_.pop_front();
}

void Store::dropWaiting() {
    while (waiting_.size() > kMostWaiting) {
        waiting_.pop_front();
        ++lost_;
        ++status_.lostSeconds;
    }
}

void Store::commit(std::int64_t now) {
    using Standing = StoreStatus::State;
    if (status_.state == Standing::LookingOn || status_.state == Standing::Newer) {
        waiting_.clear();
        waitingEvents_.clear();
        return;
    }
    leaveWhatWasRemoved();
    if (!bringUp(now)) return;
    while (writeGroup(now)) {
    }
    if (status_.state == Standing::Newer) return;
    writeSpans(now);
    if (now >= nextTidy_) tidy(now);
}

/// Writes what waits of one day. False when nothing waits any more, or it could not be written.
bool Store::writeGroup(std::int64_t now) {
    const bool onlyOver = waiting_.empty() && waitingEvents_.empty();
    const bool firstIsEvent = !waitingEvents_.empty() &&
                              (waiting_.empty() || waitingEvents_.front().t < waiting_.front().t);
    const std::int64_t t = onlyOver       ? now
                           : firstIsEvent ? waitingEvents_.front().t
                                          : waiting_.front().t;
    const CivilDay day = onlyOver && day_ ? dayOpen_ : CivilDay::of(t);
    if (onlyOver && (!day_ || openMinutes_.empty())) return false;

    const auto isOfDay = [&](const auto& one) { return CivilDay::of(one.t) == day; };
    const auto seconds = std::ranges::find_if_not(waiting_, isOfDay) - waiting_.begin();
    const auto events = std::ranges::find_if_not(waitingEvents_, isOfDay) - waitingEvents_.begin();
    const std::vector<Second> some(waiting_.begin(), waiting_.begin() + seconds);
    std::vector<Event> told(waitingEvents_.begin(), waitingEvents_.begin() + events);
    if (lost_ > 0) {
        told.push_back({t, 0, EventKind::Lost, hmonitor::wholeText(lost_).str() + " s"});
    }
    std::set<MinuteKey> keys = day_ && dayOpen_ == day ? openMinutes_ : std::set<MinuteKey>{};
    for (const Second& second : some) keys.insert(MinuteKey::of(second));
    const bool isLast = seconds == static_cast<std::ptrdiff_t>(waiting_.size());
    std::optional<MinuteKey> newest;
    if (!some.empty() && isLast) newest = MinuteKey::of(some.back());
    std::vector<MinuteKey> over;
    for (const MinuteKey& key : keys) {
        const bool isOpen = newest ? key == *newest : some.empty();
        if (!isOpen || key.minute + kMinute <= now) over.push_back(key);
    }
    if (onlyOver && over.empty()) return false;

    const bool written = guarded(pathOf(day), now, [&] {
        std::vector<ClosedMinute> closed = openDay(day).keep(some, told, over);
        for (const MinuteKey& key : over) keys.erase(key);
        openMinutes_ = std::move(keys);
        waiting_.erase(waiting_.begin(), waiting_.begin() + seconds);
        waitingEvents_.erase(waitingEvents_.begin(), waitingEvents_.begin() + events);
        lost_ = 0;
        for (ClosedMinute& minute : closed) {
            noteSpans(minute.key);
            unsummed_.push_back(std::move(minute));
        }
        unindexed_.insert(unindexed_.end(), told.begin(), told.end());
        status_.state = StoreStatus::State::Recording;
        status_.file.clear();
        status_.reason.clear();
        status_.systemError = 0;
    });
    return written && !(waiting_.empty() && waitingEvents_.empty());
}

void Store::tidy(std::int64_t now) {
    nextTidy_ = now + kTidyEvery;
    if (!lock_ || status_.state == StoreStatus::State::LookingOn) return;
    status_.thinning = thinOut(settings_.folder, settings_.retention, now, index_.get());
}

}  // namespace history
