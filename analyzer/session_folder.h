// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/files.h"

namespace hmonitor {

/// The folder "Logs" in the working folder, which holds sessions and their last sweeps. It is
/// created when the first file is written.
class SessionFolder {
 public:
    /// `working` must outlive this. The watcher is called during rewrites.
    explicit SessionFolder(const Files& working, base::RewriteWatcher* watcher = nullptr);

    /// The sessions, in the byte order of their folded names; equal ones by their bytes.
    std::vector<std::string> list() const;
    bool exists(std::string_view fileName) const { return files().exists(fileName); }

    /// A free file name for a session, see uniqueSessionName. `asIfGone` counts as free.
    std::string uniqueName(std::string_view name, std::string_view asIfGone = {}) const;
    /// Whether uniqueName can find a free name.
    bool hasFreeName(std::string_view name, std::string_view asIfGone = {}) const;

    FileResult<std::string> read(std::string_view fileName) const { return files().read(fileName); }
    /// Replaces the file, and creates the folder if it is missing.
    std::optional<FileFault> write(std::string_view fileName, std::string_view bytes) const;
    std::optional<FileFault> remove(std::string_view fileName) const {
        return files().remove(fileName);
    }
    /// Renames a file, replacing one that has the new name. A failure is ignored.
    void rename(std::string_view from, std::string_view to) const;

 private:
    Files files() const;
    std::string folderName() const;

    const Files* working_;
    base::RewriteWatcher* watcher_;
};

}  // namespace hmonitor
