// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/session_names.h"

#include <algorithm>

#include "core/code_page.h"
#include "core/numbers.h"

namespace hmonitor {

namespace {

constexpr std::string_view kMark = "3Ds";
constexpr std::string_view kTextMark = "spc";

std::string named(std::string_view name, int number) {
    std::string file(name);
    if (number > 0) file += " " + mask("(##0)", number).str();
    return file += kSessionEnding;
}

}  // namespace

bool isSessionName(std::string_view fileName) {
    if (fileName.size() < kSessionEnding.size()) return false;
    const auto ending = fileName.substr(fileName.size() - kSessionEnding.size());
    return foldedCase(ending) == foldedCase(kSessionEnding);
}

std::string sessionTitle(std::string_view fileName) {
    if (isSessionName(fileName)) fileName.remove_suffix(kSessionEnding.size());
    return std::string(fileName);
}

std::string sweepFileName(std::string_view sessionFile) {
    std::string file(sessionFile);
    if (isSessionName(file)) file.replace(file.size() - kMark.size(), kMark.size(), kTextMark);
    for (std::size_t at = 0; (at = file.find(kMark, at)) != std::string::npos;) {
        file.replace(at, kMark.size(), kTextMark);
        at += kTextMark.size();
    }
    return file;
}

std::string fileTitle(std::string_view typed) {
    std::string title(typed);
    std::ranges::replace_if(
        title,
        [](char c) { return std::string_view("/\\*?:><|").find(c) != std::string_view::npos; },
        '_');
    return title;
}

std::string uniqueSessionName(std::string_view name,
                              const std::function<bool(std::string_view)>& isTaken) {
    constexpr int kLast = 999;
    if (name.empty()) name = kNoName;
    int number = 0;
    while (number < kLast && isTaken(named(name, number))) ++number;
    return named(name, number);
}

int itemOfSession(const std::vector<std::string>& items, std::string_view current) {
    const std::string folded = foldedCase(current);
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (folded.find(foldedCase(items[i])) != std::string::npos) return static_cast<int>(i);
    }
    return static_cast<int>(items.size()) - 1;
}

}  // namespace hmonitor
