// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <span>
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
        if (!std::filesystem::exists(pathOf(day))) continue;
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
}

/// What a run that was ended left: seconds that are not packed, minutes, hours, days and events
/// that the index does not have. All days of it where the index is new.
void Store::repair(std::int64_t now) {
    const std::vector<CivilDay> all = days();
    const bool isNew = index_->database().number("SELECT count(*) FROM station") == 0;
    std::set<CivilDay> some{CivilDay::of(now), CivilDay::of(now - kDayStep)};
    const std::size_t last = isNew ? all.size() : std::min<std::size_t>(all.size(), kRepairedDays);
    some.insert(all.end() - static_cast<std::ptrdiff_t>(last), all.end());
    told_ = {index_->lastEpoch(), INT64_MIN};
    for (const CivilDay& day : some) {
        if (!std::ranges::binary_search(all, day)) continue;
        repairDay(day, now, day == CivilDay::of(now));
        if (!index_ || status_.state == StoreStatus::State::Newer) return;
    }
}

void Store::repairDay(const CivilDay& day, std::int64_t now, bool isToday) {
    guarded(pathOf(day), now, [&] {
        DayFile& file = openDay(day);
        const std::vector<MinuteKey> left = file.openMinutes();
        if (!left.empty()) file.keep({}, {}, left);
        openMinutes_.clear();
        told_ = std::max(told_, file.rows().lastTold());
        tellMissing(file.rows());
        if (!isToday) finishDay();
    });
}

void Store::tellMissing(DayRows& rows) {
    std::vector<IndexFile::StepSpan> spans;
    for (const MinuteKey& key : rows.minutes(INT64_MIN / 2, INT64_MAX / 2)) {
        const std::int64_t hour = hourOf(key.minute);
        const DayBounds day = boundsOfDay(key.minute);
        if (!index_->rows().has(key.station, kMinute, key.minute, key.epoch)) {
            spans.push_back({kMinute, minuteSpan({key, rows.minute(key)})});
        }
        if (!index_->rows().has(key.station, kHour, hour, key.epoch)) {
            pendingSpans_.insert({key.station, kHour, hour, hour + kHour, key.epoch});
        }
        if (!index_->rows().has(key.station, kDayStep, day.begin, key.epoch)) {
            pendingSpans_.insert({key.station, kDayStep, day.begin, day.end, key.epoch});
        }
    }
    if (!spans.empty()) index_->keep(spans, {});
    index_->keepMissing(rows.events(INT64_MIN / 2, INT64_MAX / 2));
}

}  // namespace history
