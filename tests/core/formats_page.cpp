// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/core/formats_page.h"

#include <fstream>
#include <stdexcept>

namespace hmonitor::test {

namespace {

std::string trimmed(std::string cell) {
    const auto first = cell.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    cell = cell.substr(first, cell.find_last_not_of(' ') - first + 1);
    const bool isCode = cell.size() >= 2 && cell.front() == '`' && cell.back() == '`';
    return isCode ? cell.substr(1, cell.size() - 2) : cell;
}

std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    for (std::size_t at = 1; at < line.size();) {
        const std::size_t bar = std::min(line.find('|', at), line.size());
        cells.push_back(trimmed(line.substr(at, bar - at)));
        at = bar + 1;
    }
    return cells;
}

}  // namespace

FormatsPage::FormatsPage() {
    const std::string fence = "```";
    std::ifstream page(HMONITOR_SOURCE_DIR "/docs/formats.md");
    std::string heading;
    std::vector<std::string>* block = nullptr;
    std::vector<std::string> ignored;
    bool isBehindRule = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with(fence)) {
            const std::string start = fence + "example ";
            block = block                     ? nullptr
                    : line.starts_with(start) ? &examples_[line.substr(start.size())]
                                              : &ignored;
        } else if (block) {
            block->push_back(line);
        } else if (line.starts_with("## ")) {
            heading = line.substr(3);
        } else if (line.starts_with("|---")) {
            isBehindRule = true;
        } else if (!line.starts_with("|")) {
            isBehindRule = false;
        } else if (isBehindRule) {
            rows_[heading].push_back(cellsOf(line));
        }
    }
}

const std::vector<std::string>& FormatsPage::example(const std::string& name) const {
    return examples_.at(name);
}

std::vector<std::vector<std::string>> FormatsPage::rows(const std::string& heading) const {
    for (const auto& [title, rows] : rows_) {
        if (title.starts_with(heading)) return rows;
    }
    throw std::out_of_range("no table under " + heading);
}

std::string unescaped(const std::string& cell) {
    std::string bytes;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        const bool isEscape = cell[i] == '\\' && i + 1 < cell.size();
        bytes += !isEscape ? cell[i] : cell[++i] == 'r' ? '\r' : '\n';
    }
    return bytes;
}

}  // namespace hmonitor::test
