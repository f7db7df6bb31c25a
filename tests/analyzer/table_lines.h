// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace hmonitor::test {

/// The words of each line of analyzer_tables.txt that begins with `kind`, without that word.
inline std::vector<std::vector<std::string>> tableLines(const std::string& kind) {
    std::ifstream table(HMONITOR_SOURCE_DIR "/tests/analyzer/analyzer_tables.txt");
    std::vector<std::vector<std::string>> found;
    for (std::string line; std::getline(table, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word != kind) continue;
        found.emplace_back();
        while (words >> word) found.back().push_back(word);
    }
    if (found.empty()) throw std::runtime_error("no table of " + kind);
    return found;
}

}  // namespace hmonitor::test
