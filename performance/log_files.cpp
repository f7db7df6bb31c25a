// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/log_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/utf8_path.h"
#include "core/code_page.h"
#include "core/numbers.h"

namespace hmonitor {

namespace {

constexpr std::string_view kEnding = ".log";

/// By the first, then by the second; both cheaper to make once than at each comparison.
template <class Key>
std::vector<std::string> inOrder(std::vector<std::pair<Key, std::string>> keyed) {
    std::ranges::sort(keyed);
    std::vector<std::string> names;
    names.reserve(keyed.size());
    for (auto& [key, name] : keyed) names.push_back(std::move(name));
    return names;
}

}  // namespace

std::vector<std::string> logFiles(const Files& files) {
    std::vector<std::pair<std::string, std::string>> found;
    std::error_code fault;
    for (std::filesystem::directory_iterator at(files.folder(), fault), end; !fault && at != end;
         at.increment(fault)) {
        std::string name = base::utf8Of(at->path().filename());
        std::string folded = foldedCase(name);
        std::error_code unknown;
        if (folded.ends_with(kEnding) && at->is_regular_file(unknown))
            found.emplace_back(std::move(folded), std::move(name));
    }
    return inOrder(std::move(found));
}

std::vector<std::string> logDays(const std::vector<std::string>& fileNames) {
    std::vector<std::pair<std::pair<double, std::string>, std::string>> days;
    for (const std::string& name : fileNames) {
        std::string day = name.substr(0, name.size() - kEnding.size());
        const double value = valueOf(day);
        if (value != 0) days.emplace_back(std::pair(value, foldedCase(day)), std::move(day));
    }
    return inOrder(std::move(days));
}

}  // namespace hmonitor
