// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/folder_names.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <system_error>
#include <utility>

#include "base/utf8_path.h"
#include "core/code_page.h"

#if defined(__linux__)
#include <sys/inotify.h>
#include <unistd.h>

#include <cstring>
#endif

namespace hmonitor {

namespace {

/// Coarser than the times of any file system that a rack lies on but those of memory cards.
constexpr std::chrono::seconds kCoarsestTime{2};

std::optional<std::filesystem::file_time_type> timeOf(const std::filesystem::path& folder) {
    std::error_code none;
    const auto time = std::filesystem::last_write_time(folder, none);
    return none ? std::nullopt : std::optional(time);
}

}  // namespace

FolderNames::~FolderNames() {
#if defined(__linux__)
    if (watch_ >= 0) ::close(watch_);
#endif
}

std::optional<std::string> FolderNames::find(std::string_view name) {
    bringUpToDate();
    const auto found = names_.find(foldedCase(name));
    if (found == names_.end()) return std::nullopt;
    return *std::ranges::min_element(found->second);
}

void FolderNames::bringUpToDate() {
    const auto changed = timeOf(folder_);
    if (isRead_ && takeChanges()) {
        if (changed) changed_ = *changed;
        return;
    }
    if (isRead_ && changed == changed_ && !isYoung_) return;
    readAll();
}

void FolderNames::readAll() {
    ++readings_;
    names_.clear();
    // Watched before it is read: what comes in between is told, and added once more.
    watch();
    const auto changed = timeOf(folder_);
    isRead_ = changed.has_value();
    changed_ = changed.value_or(std::filesystem::file_time_type{});
    isYoung_ = std::filesystem::file_time_type::clock::now() - changed_ < kCoarsestTime;
    std::error_code none;
    for (std::filesystem::directory_iterator at(folder_, none), end; !none && at != end;
         at.increment(none)) {
        add(base::utf8Of(at->path().filename()));
    }
}

void FolderNames::add(std::string name) {
    std::vector<std::string>& same = names_[foldedCase(name)];
    if (std::ranges::find(same, name) == same.end()) same.push_back(std::move(name));
}

void FolderNames::remove(const std::string& name) {
    const auto found = names_.find(foldedCase(name));
    if (found == names_.end()) return;
    std::erase(found->second, name);
    if (found->second.empty()) names_.erase(found);
}

#if defined(__linux__)

void FolderNames::watch() {
    if (watch_ >= 0) ::close(watch_);
    watch_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    constexpr std::uint32_t kChanges = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                       IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    if (watch_ < 0 || ::inotify_add_watch(watch_, folder_.c_str(), kChanges) >= 0) return;
    ::close(watch_);
    watch_ = -1;
}

bool FolderNames::takeChanges() {
    if (watch_ < 0) return false;
    alignas(inotify_event) std::array<char, 16384> told;
    bool isTold = false;
    for (;;) {
        const ssize_t count = ::read(watch_, told.data(), told.size());
        if (count <= 0) break;
        for (ssize_t at = 0; at < count;) {
            inotify_event event;
            std::memcpy(&event, told.data() + at, sizeof event);
            const char* name = told.data() + at + sizeof event;
            at += static_cast<ssize_t>(sizeof event + event.len);
            // Too much to be told, or the folder itself went away.
            constexpr std::uint32_t kLost =
                IN_Q_OVERFLOW | IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT;
            if (event.mask & kLost) {
                isRead_ = false;
                return false;
            }
            if (event.len == 0) continue;
            isTold = true;
            if (event.mask & (IN_CREATE | IN_MOVED_TO)) add(name);
            if (event.mask & (IN_DELETE | IN_MOVED_FROM)) remove(name);
        }
    }
    // What another machine does to a shared folder nobody tells: then its time has changed alone.
    return isTold || timeOf(folder_) == changed_;
}

#else

void FolderNames::watch() {}

bool FolderNames::takeChanges() {
    return false;
}

#endif

}  // namespace hmonitor
