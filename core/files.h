// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/rewrite_steps.h"
#include "core/file_result.h"
#include "core/file_troubles.h"
#include "core/folder_names.h"

namespace hmonitor {

/// The files of one folder, by bare name (UTF-8). Names are found without regard to case: the
/// exact one first, else the first in byte order, and a rewrite keeps the name that was found.
/// Contents are bytes.
class Files {
 public:
    explicit Files(std::filesystem::path folder, base::RewriteWatcher* watcher = nullptr);

    const std::filesystem::path& folder() const { return folder_; }

    /// The name as the folder has it, or none.
    std::optional<std::string> find(std::string_view name) const;
    bool exists(std::string_view name) const { return find(name).has_value(); }

    /// The whole file. The fault's sentence is "File not found: NAME" or
    /// "NAME cannot be read: REASON".
    FileResult<std::string> read(std::string_view name) const;

    /// The first `count` lines, which must be there: else "NAME: line N is missing".
    FileResult<std::vector<std::string>> readLines(std::string_view name, int count) const;

    /// Puts `bytes` in the file's place, or makes the file. At any moment the old file or the new
    /// one stands there whole, and the file's permissions stay. On a fault
    /// ("NAME cannot be written: REASON") the old file stands.
    std::optional<FileFault> rewrite(std::string_view name, std::string_view bytes) const;

    /// Deletes the file if it is there.
    std::optional<FileFault> remove(std::string_view name) const;

    /// Deletes what a rewrite left beside its file when a program died in the middle.
    void removeLeftovers() const;

    /// A folder in this one, which shares its troubles, and its watcher unless one is given.
    Files below(std::string_view name, base::RewriteWatcher* watcher = nullptr) const;

    /// What could not be written or read and still cannot.
    FileTroubles& troubles() const { return *troubles_; }

 private:
    std::filesystem::path folder_;
    base::RewriteWatcher* watcher_;
    /// Of the folder, for the names that it does not have as they are asked for.
    std::shared_ptr<FolderNames> names_;
    std::shared_ptr<FileTroubles> troubles_;
};

}  // namespace hmonitor
