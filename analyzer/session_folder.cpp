// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/session_folder.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "analyzer/session_names.h"
#include "base/utf8_path.h"
#include "core/code_page.h"

namespace hmonitor {

namespace {

constexpr std::string_view kFolder = "Logs";

/// The folded names of all entries of a folder, read once for many look-ups.
std::set<std::string> foldedNames(const std::filesystem::path& folder) {
    std::set<std::string> names;
    std::error_code none;
    for (std::filesystem::directory_iterator at(folder, none), end; !none && at != end;
         at.increment(none)) {
        names.insert(foldedCase(base::utf8Of(at->path().filename())));
    }
    return names;
}

}  // namespace

SessionFolder::SessionFolder(const Files& working, base::RewriteWatcher* watcher)
    : working_(&working), watcher_(watcher) {}

std::string SessionFolder::folderName() const {
    return working_->find(kFolder).value_or(std::string(kFolder));
}

Files SessionFolder::files() const {
    return working_->below(folderName(), watcher_);
}

std::vector<std::string> SessionFolder::list() const {
    struct Named {
        std::string folded, name;
        auto operator<=>(const Named&) const = default;
    };
    std::vector<Named> found;
    std::error_code none;
    for (std::filesystem::directory_iterator at(files().folder(), none), end; !none && at != end;
         at.increment(none)) {
        std::string name = base::utf8Of(at->path().filename());
        std::error_code unknown;
        if (!isSessionName(name) || at->is_directory(unknown)) continue;
        std::string folded = foldedCase(name);
        found.push_back({std::move(folded), std::move(name)});
    }
    std::ranges::sort(found);
    std::vector<std::string> names;
    names.reserve(found.size());
    for (Named& session : found) names.push_back(std::move(session.name));
    return names;
}

std::string SessionFolder::uniqueName(std::string_view name, std::string_view asIfGone) const {
    std::set<std::string> taken = foldedNames(files().folder());
    if (!asIfGone.empty()) taken.erase(foldedCase(asIfGone));
    return uniqueSessionName(
        name, [&](std::string_view file) { return taken.contains(foldedCase(file)); });
}

bool SessionFolder::hasFreeName(std::string_view name, std::string_view asIfGone) const {
    const std::string free = uniqueName(name, asIfGone);
    return !exists(free) || foldedCase(free) == foldedCase(asIfGone);
}

void SessionFolder::rename(std::string_view from, std::string_view to) const {
    const Files folder = files();
    const auto found = folder.find(from);
    (void)folder.remove(to);
    if (!found) return;
    std::error_code none;
    std::filesystem::rename(folder.folder() / *found, folder.folder() / to, none);
}

std::optional<FileFault> SessionFolder::write(std::string_view fileName,
                                              std::string_view bytes) const {
    const Files folder = files();
    std::error_code reason;
    std::filesystem::create_directory(folder.folder(), reason);
    if (reason) {
        return FileFault{FileFaultKind::NotWritten,
                         folderName() + " cannot be made: " + reason.message(),
                         working_->troubles().failed(folder.folder(), reason.value(), 0)};
    }
    return folder.rewrite(fileName, bytes);
}

}  // namespace hmonitor
