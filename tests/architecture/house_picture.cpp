// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/architecture/house_picture.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <vector>

namespace hmonitor::test {

namespace {

std::vector<std::string> split(const std::string& text, const char* separator) {
    const std::regex parts(separator);
    return {std::sregex_token_iterator(text.begin(), text.end(), parts, -1), {}};
}

}  // namespace

HousePicture::HousePicture(std::string_view page) {
    static const std::regex kBox(R"re(^\s*(\w+)\["(.*)"\]$)re");
    static const std::regex kArrows(R"(^\s*(\w+) --> (\w+(?: & \w+)*)$)");
    std::istringstream lines{std::string(page)};
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (inside && line == "```") break;
        if (line == "```mermaid") inside = true;
        if (!inside) continue;
        std::smatch match;
        if (std::regex_match(line, match, kBox)) {
            for (const std::string& path : split(match[2], "<br>")) boxes_[path] = match[1];
        } else if (std::regex_match(line, match, kArrows)) {
            for (const std::string& to : split(match[2], " & ")) arrows_.insert({match[1], to});
        }
    }
}

const HousePicture& HousePicture::ofArchitecturePage() {
    static const HousePicture picture = [] {
        std::ifstream page(std::string(HMONITOR_SOURCE_DIR) + "/docs/architecture.md");
        return HousePicture(std::string(std::istreambuf_iterator<char>(page), {}));
    }();
    return picture;
}

std::string HousePicture::boxOf(std::string_view file) const {
    std::string path(file);
    while (!path.empty()) {
        if (const auto found = boxes_.find(path); found != boxes_.end()) return found->second;
        const std::size_t slash = path.rfind('/');
        path.resize(slash == std::string::npos ? 0 : slash);
    }
    return {};
}

std::set<std::string> HousePicture::reachedFrom(const std::string& box) const {
    std::set<std::string> reached;
    std::vector<std::string> open{box};
    while (!open.empty()) {
        const std::string from = open.back();
        open.pop_back();
        for (const Arrow& arrow : arrows_) {
            if (arrow.from == from && reached.insert(arrow.to).second) open.push_back(arrow.to);
        }
    }
    return reached;
}

}  // namespace hmonitor::test
