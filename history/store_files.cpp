// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "history/store.h"

namespace history {

namespace {

bool isMissing(const std::filesystem::path& path) {
    std::error_code unknown;
    const auto is = std::filesystem::status(path, unknown).type();
    return is == std::filesystem::file_type::not_found;
}

}  // namespace

std::filesystem::path Store::pathOf(const CivilDay& day) const {
    return settings_.folder / (day.text() + std::string(kDayEnding));
}

std::vector<CivilDay> Store::days() const {
    return daysIn(settings_.folder);
}

void Store::fail(const std::string& file, const std::string& reason, int systemError) {
    status_.state = StoreStatus::State::Failing;
    status_.file = file;
    status_.reason = reason;
    status_.systemError = systemError;
}

bool Store::openFolder() {
    std::error_code error;
    std::filesystem::create_directories(settings_.folder, error);
    if (error) {
        fail(settings_.folder.filename().string(), error.message(), error.value());
        return false;
    }
    // The user's alone: when somebody was on the air, and when not, is nobody else's business.
    ::chmod(settings_.folder.c_str(), S_IRWXU);
    auto lock = std::make_unique<hmonitor::FolderLock>(settings_.folder);
    if (lock->isTakenByAnother()) {
        status_.state = StoreStatus::State::LookingOn;
        return false;
    }
    lock_ = std::move(lock);
    return true;
}

/// Somebody may remove a file, or the folder, that is being written: SQLite would go on in what has
/// no name any more.
void Store::leaveWhatWasRemoved() {
    if (!lock_) return;
    if (day_ && isMissing(pathOf(dayOpen_))) closeDay();
    if (index_ && isMissing(settings_.folder / kIndexName)) leaveIndex();
    if (isMissing(settings_.folder)) lock_.reset();
}

/// It is made anew from the days, which also have what it was to get next.
void Store::leaveIndex() {
    index_.reset();
    isUp_ = false;
    unsummed_.clear();
    unindexed_.clear();
}

void Store::openIndex(std::int64_t now) {
    const auto path = settings_.folder / kIndexName;
    guarded(path, now,
            [&] { index_ = std::make_unique<IndexFile>(path, settings_.flush, settings_.vfs); });
}

DayFile& Store::openDay(const CivilDay& day) {
    if (day_ && dayOpen_ == day) return *day_;
    if (day_) finishDay();
    day_ = std::make_unique<DayFile>(pathOf(day), settings_.flush, settings_.vfs);
    dayOpen_ = day;
    const auto left = day_->openMinutes();
    openMinutes_ = {left.begin(), left.end()};
    return *day_;
}

/// The day is over, or the clock was set: then the file is opened again.
void Store::finishDay() {
    try {
        day_->finish();
    } catch (const DatabaseFault&) {
        // Somebody reads it just now. It keeps its journal until it is opened the next time.
    }
    closeDay();
}

void Store::closeDay() {
    day_.reset();
    openMinutes_.clear();
}

void Store::setAside(const std::filesystem::path& path, std::int64_t now) {
    const std::string name = path.filename().string();
    if (name == kIndexName) leaveIndex();
    for (int number = 1; number < 1000; ++number) {
        const std::string aside =
            path.stem().string() + "." + hmonitor::wholeText(number).str() + ".damaged";
        const auto target = settings_.folder / aside;
        std::error_code error;
        const auto there = std::filesystem::symlink_status(target, error).type();
        if (there != std::filesystem::file_type::not_found) continue;
        std::filesystem::rename(path, target, error);
        if (error) return fail(name, error.message(), error.value());
        // What SQLite keeps beside a file belongs to it.
        for (const char* beside : {"-wal", "-journal"}) {
            std::error_code none;
            std::filesystem::rename(path.string() + beside, target.string() + beside, none);
        }
        std::error_code none;
        std::filesystem::remove(path.string() + "-shm", none);
        status_.setAside = name;
        keep(Event{now, 0, EventKind::Damaged, name});
        return;
    }
    fail(name, "set aside too often", EIO);
}

}  // namespace history
