// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "base/leftovers.h"
#include "base/read_file.h"
#include "base/remove_file.h"
#include "base/rewrite_file.h"
#include "base/utf8_path.h"
#include "core/file_name.h"
#include "core/numbers.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

FileFault missing(std::string_view name) {
    return {FileFaultKind::Missing, "File not found: " + std::string(name)};
}

FileFault unreadable(std::string_view name, int reason) {
    return {FileFaultKind::Unreadable, base::notRead(name, reason)};
}

}  // namespace

Files::Files(std::filesystem::path folder, base::RewriteWatcher* watcher)
    : folder_(std::move(folder)),
      watcher_(watcher),
      names_(std::make_shared<FolderNames>(folder_)),
      troubles_(std::make_shared<FileTroubles>()) {}

Files Files::below(std::string_view name, base::RewriteWatcher* watcher) const {
    Files files(folder_ / base::pathOf(name), watcher ? watcher : watcher_);
    files.troubles_ = troubles_;
    return files;
}

std::optional<std::string> Files::find(std::string_view name) const {
    if (!isBareName(name)) return std::nullopt;
    if (auto there = nameThere(folder_, name)) return there;
    return names_->find(name);
}

FileResult<std::string> Files::read(std::string_view name) const {
    const auto found = find(name);
    if (!found) return missing(name);
    const auto file = folder_ / base::pathOf(*found);
    auto read = base::readFile(file);
    if (read.reason == ENOENT) return missing(name);
    if (!read) {
        troubles_->unreadable(file);
        return unreadable(name, read.reason);
    }
    troubles_->read(file);
    return std::move(read.bytes);
}

FileResult<std::vector<std::string>> Files::readLines(std::string_view name, int count) const {
    const auto bytes = read(name);
    if (!bytes) return bytes.fault();
    TextLines text(*bytes);
    std::vector<std::string> lines;
    for (int n = 1; n <= count; ++n) {
        const auto line = text.next();
        if (!line) {
            return FileFault{FileFaultKind::TooShort,
                             std::string(name) + ": line " + wholeText(n).str() + " is missing"};
        }
        lines.emplace_back(*line);
    }
    return lines;
}

std::optional<FileFault> Files::rewrite(std::string_view name, std::string_view bytes) const {
    const bool isBare = isBareName(name);
    const auto file = folder_ / base::pathOf(isBare ? find(name).value_or(std::string(name)) : "");
    const int reason = isBare ? base::rewriteFile(file, bytes, watcher_) : EINVAL;
    if (!reason) {
        troubles_->written(file);
        return std::nullopt;
    }
    return FileFault{FileFaultKind::NotWritten, base::notWritten(name, reason),
                     troubles_->failed(file, reason, bytes.size())};
}

std::optional<FileFault> Files::remove(std::string_view name) const {
    const auto found = find(name);
    if (!found) return std::nullopt;
    const int reason = base::removeFile(folder_ / base::pathOf(*found));
    if (reason == 0 || reason == ENOENT) return std::nullopt;
    return FileFault{FileFaultKind::NotWritten, std::string(name) + " cannot be deleted: " +
                                                    std::generic_category().message(reason)};
}

void Files::removeLeftovers() const {
    base::removeLeftovers(folder_);
}

}  // namespace hmonitor
