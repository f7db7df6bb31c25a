// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <span>
#include <system_error>
#include <vector>

#include "history/store.h"

namespace history {

namespace {

constexpr std::size_t kMostUnsummed = 120;  // what is dropped is made at the next start
constexpr int kRepairedDays = 2;

std::int64_t hourOf(std::int64_t t) {
    return t - ((t % kHour) + kHour) % kHour;
}

}  // namespace

Span Store::minuteSpan(const ClosedMinute& minute) const {
    Span span;
    span.t = minute.key.minute;
    span.seconds = kMinute;
    span.station = minute.key.station;
    span.epoch = minute.key.epoch;
    std::vector<FigureSecond> column(minute.seconds.size());
    const auto registry = figures::all();
    for (std::size_t i = 0; i < figureCount(); ++i) {
        for (std::size_t s = 0; s < column.size(); ++s) column[s] = minute.seconds[s].figures[i];
        span.figures[i] = spanOf(registry[i].kind, column);
    }
    return span;
}

/// The hour and the day of a minute are to be summed up once they are over.
void Store::noteSpans(const MinuteKey& key) {
    const std::int64_t hour = hourOf(key.minute);
    pendingSpans_.insert({key.station, kHour, hour, hour + kHour, key.epoch});
    const DayBounds day = boundsOfDay(key.minute);
    pendingSpans_.insert({key.station, kDayStep, day.begin, day.end, key.epoch});
}

/// Out of the seconds of one day's file, or of two where an hour lies over a midnight.
Span Store::spanOfKey(const SpanKey& key) {
    Span span;
    span.t = key.begin;
    span.seconds = key.end - key.begin;
    span.station = key.station;
    span.epoch = key.epoch;
    const std::set<CivilDay> days{CivilDay::of(key.begin), CivilDay::of(key.end - 1)};
    std::vector<FigureSecond> column;
    column.reserve(static_cast<std::size_t>(span.seconds));
    const auto registry = figures::all();
    std::vector<std::unique_ptr<Database>> others;
    std::vector<std::unique_ptr<DayRows>> rows;
    for (const CivilDay& day : days) {
        std::error_code unknown;
        const auto there = std::filesystem::status(pathOf(day), unknown).type();
        if (there == std::filesystem::file_type::not_found) continue;
        others.push_back(std::make_unique<Database>(pathOf(day), Access::Read, settings_.vfs));
        others.back()->keepLittle();
        rows.push_back(std::make_unique<DayRows>(*others.back()));
    }
    for (std::size_t i = 0; i < figureCount(); ++i) {
        column.clear();
        for (const auto& day : rows) {
            // One at a time: a day of all of them would take much memory.
            day->seconds(key.station, key.begin, key.end, std::span(&i, 1),
                         [&](std::int64_t, int epoch, std::size_t, const FigureSecond& second) {
                             if (epoch == key.epoch) column.push_back(second);
                         });
        }
        span.figures[i] = spanOf(registry[i].kind, column);
    }
    return span;
}

void Store::writeSpans(std::int64_t now) {
    if (!index_) return;
    const auto path = settings_.folder / kIndexName;
    if (!unsummed_.empty() || !unindexed_.empty()) {
        const bool written = guarded(path, now, [&] {
            std::vector<IndexFile::StepSpan> spans;
            for (const ClosedMinute& minute : unsummed_) {
                if (!minute.seconds.empty()) spans.push_back({kMinute, minuteSpan(minute)});
            }
            index_->keep(spans, unindexed_);
        });
        if (written || unsummed_.size() > kMostUnsummed) {
            unsummed_.clear();
            unindexed_.clear();
        }
        if (!written) return;
    }
    for (auto key = pendingSpans_.begin(); key != pendingSpans_.end();) {
        const bool isOpen = std::ranges::any_of(openMinutes_, [&](const MinuteKey& minute) {
            return minute.station == key->station && minute.epoch == key->epoch &&
                   minute.minute >= key->begin && minute.minute < key->end;
        });
        if (key->end > now || isOpen) {
            ++key;
            continue;
        }
        IndexFile::StepSpan span{key->step, {}};
        // What cannot be read is the day's fault, what cannot be written the index's.
        if (!guarded(pathOf(CivilDay::of(key->begin)), now, [&] { span.span = spanOfKey(*key); }) ||
            !guarded(path, now, [&] { index_->keep(std::span(&span, 1), {}); })) {
            return;
        }
        key = pendingSpans_.erase(key);
    }
    if (!isRemaking_) return;
    isRemaking_ = !guarded(path, now, [&] { index_->tellAllDays(); });
}

/// What a run that was ended left: seconds that are not packed, minutes, hours, days and events
/// that the index does not have; all days where it was not made to its end. False to be tried
/// again.
bool Store::repair(std::int64_t now) {
    const bool isRead = guarded(settings_.folder / kIndexName, now, [&] {
        told_ = {index_->lastEpoch(), INT64_MIN};
        isRemaking_ = !index_->hasAllDays();
    });
    if (!isRead) return false;
    const std::vector<CivilDay> all = days();
    const std::size_t last =
        isRemaking_ ? all.size() : std::min<std::size_t>(all.size(), kRepairedDays);
    std::set<CivilDay> some{CivilDay::of(now), CivilDay::of(now - kDayStep)};
    some.insert(all.end() - static_cast<std::ptrdiff_t>(last), all.end());
    for (const CivilDay& day : some) {
        if (!std::ranges::binary_search(all, day)) continue;
        if (!repairDay(day, now)) isRemaking_ = false;
        if (!index_) return false;
        if (status_.state == StoreStatus::State::Newer) break;
    }
    return true;
}

/// What is wrong with the index is no fault of the day's.
bool Store::repairDay(const CivilDay& day, std::int64_t now) {
    const auto file = pathOf(day);
    const auto index = settings_.folder / kIndexName;
    std::vector<MinuteKey> minutes;
    std::vector<Event> events;
    const auto readDay = [&] {
        DayFile& open = openDay(day);
        const std::vector<MinuteKey> left = open.openMinutes();
        if (!left.empty()) open.keep({}, {}, left);
        openMinutes_.clear();
        told_ = std::max(told_, open.rows().lastTold());
        minutes = open.rows().minutes(INT64_MIN / 2, INT64_MAX / 2);
        events = open.rows().events(INT64_MIN / 2, INT64_MAX / 2);
    };
    if (!guarded(file, now, readDay)) return false;
    if (!guarded(index, now, [&] { minutes = withoutSpans(minutes); })) return false;
    std::vector<IndexFile::StepSpan> spans;
    const auto sumUp = [&] {
        for (const MinuteKey& key : minutes) {
            spans.push_back({kMinute, minuteSpan({key, openDay(day).rows().minute(key)})});
        }
    };
    if (!guarded(file, now, sumUp)) return false;
    const auto keepAll = [&] {
        if (!spans.empty()) index_->keep(spans, {});
        index_->keepMissing(events);
    };
    if (!guarded(index, now, keepAll)) return false;
    if (day != CivilDay::of(now)) finishDay();
    return true;
}

/// Those of which the index has no span. Their hours and days are to be summed up where it lacks
/// these.
std::vector<MinuteKey> Store::withoutSpans(const std::vector<MinuteKey>& minutes) {
    std::vector<MinuteKey> missing;
    for (const MinuteKey& key : minutes) {
        const std::int64_t hour = hourOf(key.minute);
        const DayBounds day = boundsOfDay(key.minute);
        if (!index_->rows().has(key.station, kMinute, key.minute, key.epoch)) {
            missing.push_back(key);
        }
        if (!index_->rows().has(key.station, kHour, hour, key.epoch)) {
            pendingSpans_.insert({key.station, kHour, hour, hour + kHour, key.epoch});
        }
        if (!index_->rows().has(key.station, kDayStep, day.begin, key.epoch)) {
            pendingSpans_.insert({key.station, kDayStep, day.begin, day.end, key.epoch});
        }
    }
    return missing;
}

}  // namespace history
