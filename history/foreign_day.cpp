// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/foreign_day.h"

#include <cstdint>
#include <system_error>
#include <utility>

#include <sqlite3.h>

namespace history {

namespace {

/// What a hostile file may cost at most: so many steps of SQLite's machine.
constexpr int kStepsBetween = 10000;
constexpr int kMostTurns = 20000;

int countTurns(void* turns) {
    return ++*static_cast<int*>(turns) > kMostTurns;
}

/// Runs what reads the file; a fault of it is an empty answer.
template <typename Answer, typename Read>
Answer readOr(Answer nothing, Read read) {
    try {
        return read();
    } catch (const DatabaseFault&) {
        return nothing;
    }
}

}  // namespace

ForeignDay::Opened ForeignDay::open(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return Refusal::NotReadable;
    const auto size = std::filesystem::file_size(file, error);
    if (error) return Refusal::NotReadable;
    if (size > kMostBytes) return Refusal::TooLarge;
    try {
        return check(std::make_unique<Database>(file, Access::Foreign));
    } catch (const DatabaseFault& fault) {
        return fault.isDamage() ? Refusal::NotADay : Refusal::NotReadable;
    }
}

ForeignDay::Opened ForeignDay::fromBytes(std::span<const std::uint8_t> bytes) {
    if (bytes.size() > kMostBytes) return Refusal::TooLarge;
    try {
        auto database = std::make_unique<Database>(bytes);
        return check(std::move(database));
    } catch (const DatabaseFault&) {
        return Refusal::NotADay;
    }
}

ForeignDay::Opened ForeignDay::check(std::unique_ptr<Database> database) {
    int turns = 0;
    sqlite3_progress_handler(database->handle(), kStepsBetween, countTurns, &turns);
    auto day = std::unique_ptr<ForeignDay>(new ForeignDay);
    Refusal refusal = Refusal::NotADay;
    try {
        const FileKind kind = kindOf(*database);
        if (kind == FileKind::Newer) return Refusal::Newer;
        if (kind != FileKind::Ours) return Refusal::NotADay;
        refusal = Refusal::Damaged;
        database->run("PRAGMA cell_size_check=ON");
        Statement sound(*database, "PRAGMA quick_check(1)");
        if (!sound.step() || sound.bytes(0) != "ok") return Refusal::Damaged;
        day->rows_ = std::make_unique<DayRows>(*database);
        // An index of the same family has no seconds.
        day->rows_->minutes(0, 0);
        day->rows_->stations();
        day->rows_->events(0, 0);
    } catch (const DatabaseFault&) {
        return refusal;
    }
    sqlite3_progress_handler(database->handle(), 0, nullptr, nullptr);
    day->database_ = std::move(database);
    return day;
}

std::vector<int> ForeignDay::stations() const {
    return readOr(std::vector<int>{}, [&] { return rows_->stations(); });
}

std::vector<Event> ForeignDay::events() const {
    return readOr(std::vector<Event>{},
                  [&] { return rows_->events(INT64_MIN / 2, INT64_MAX / 2); });
}

std::vector<MinuteKey> ForeignDay::minutes() const {
    return readOr(std::vector<MinuteKey>{},
                  [&] { return rows_->minutes(INT64_MIN / 2, INT64_MAX / 2); });
}

std::vector<Second> ForeignDay::minute(const MinuteKey& key) const {
    return readOr(std::vector<Second>{}, [&] { return rows_->minute(key); });
}

}  // namespace history
