// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/call_journal.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <ctime>

namespace hm16 {

namespace {

bool isReading(Call call) {
    switch (call) {
        case Call::Data:
        case Call::DataRds:
        case Call::TramaEspectroRecibida:
        case Call::GetEspectro:
        case Call::FiguresCount:
        case Call::FiguresDescribe:
        case Call::FiguresSlots:
        case Call::ListenState:
        case Call::AbsenceWhy:
            return true;
        default:
            return false;
    }
}

std::string argumentsOf(Call call, float number, const std::array<std::int32_t, 4>& wholes) {
    char text[96] = "";
    switch (call) {
        case Call::Normal:
            std::snprintf(text, sizeof text, "%g, %d, %d, %d, %d", static_cast<double>(number),
                          wholes[0], wholes[1], wholes[2], wholes[3]);
            break;
        case Call::Super:
        case Call::StartEspectro:
        case Call::GetEspectro:
            std::snprintf(text, sizeof text, "%g, …", static_cast<double>(number));
            break;
        case Call::Reset:
        case Call::SetClient:
        case Call::SetSintoMode:
            std::snprintf(text, sizeof text, "%d", wholes[0]);
            break;
        default:
            break;
    }
    return text;
}

std::string timeOfDay(std::chrono::system_clock::time_point time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    const auto parts = std::chrono::duration_cast<std::chrono::milliseconds>(
                           time.time_since_epoch() % std::chrono::seconds(1))
                           .count();
    std::tm local{};
    ::localtime_r(&seconds, &local);
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d.%03d", local.tm_hour, local.tm_min,
                  local.tm_sec, static_cast<int>(parts));
    return text;
}

}  // namespace

CallJournal::Entry* CallJournal::sameReading(Call call) {
    if (!isReading(call)) return nullptr;
    for (std::size_t back = 1; back <= std::min(count_, kEntries); ++back) {
        Entry& entry = entries_[(count_ - back) % kEntries];
        if (entry.call == call) return &entry;
        if (!isReading(entry.call)) return nullptr;
    }
    return nullptr;
}

void CallJournal::begin(const CallValues& values) {
    open_ = sameReading(values.call);
    if (open_ == nullptr) {
        open_ = &entries_[count_++ % kEntries];
        *open_ = Entry{};
        open_->call = values.call;
    }
    ++open_->times;
    open_->number = values.numbers[0];
    std::copy_n(values.wholes, open_->wholes.size(), open_->wholes.begin());
    open_->returned = false;
    open_->begun = Clock::now();
}

void CallJournal::end(const CallValues& values) {
    open_->returned = true;
    open_->result = values.result;
    open_->lasted = Clock::now() - open_->begun;
}

std::string CallJournal::line(const Entry& entry) {
    std::string text = timeOfDay(entry.begun) + "  " + nameOf(entry.call) + "(" +
                       argumentsOf(entry.call, entry.number, entry.wholes) + ")";
    if (entry.times > 1) text += ", call " + std::to_string(entry.times) + " of it";
    if (!entry.returned) return text + " did not return\n";
    char rest[64];
    std::snprintf(rest, sizeof rest, " = %d, %.3f ms\n", entry.result,
                  std::chrono::duration<double, std::milli>(entry.lasted).count());
    return text + rest;
}

std::string CallJournal::text() const {
    std::string text;
    for (std::size_t i = count_ - std::min(count_, kEntries); i < count_; ++i) {
        text += line(entries_[i % kEntries]);
    }
    return text;
}

}  // namespace hm16
