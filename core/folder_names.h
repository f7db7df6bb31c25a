// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace hmonitor {

/// The names in a folder without regard to case: read once, then kept up to date by what the system
/// tells of the folder, or read again where it tells nothing and the folder has changed. A working
/// folder may hold a hundred thousand files, and each tuning asks for some that are not there.
class FolderNames {
 public:
    explicit FolderNames(std::filesystem::path folder) : folder_(std::move(folder)) {}
    ~FolderNames();
    FolderNames(const FolderNames&) = delete;
    FolderNames& operator=(const FolderNames&) = delete;

    /// The first name in byte order that differs from this one in case alone, or none.
    std::optional<std::string> find(std::string_view name);

    /// How often the whole folder was read.
    int readings() const { return readings_; }

 private:
    void bringUpToDate();
    void readAll();
    void watch();
    /// Takes over what the system has told; answers false when it cannot be relied on.
    bool takeChanges();
    void add(std::string name);
    void remove(const std::string& name);

    std::filesystem::path folder_;
    std::unordered_map<std::string, std::vector<std::string>> names_;  ///< by folded name
    std::filesystem::file_time_type changed_{};
    bool isRead_ = false;
    /// The folder changed so shortly before it was read that a later change may bear the same time.
    bool isYoung_ = false;
    int watch_ = -1;
    int readings_ = 0;
};

}  // namespace hmonitor
