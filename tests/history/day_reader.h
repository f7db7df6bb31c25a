// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace history::test {

/// The output of scripts/history_day.py as rows of fields, the head first. The script shares no
/// code with the store.
using Row = std::vector<std::string>;

inline std::vector<Row> readDay(const std::filesystem::path& file, const std::string& options) {
    const std::string command = "/usr/bin/python3 " HMONITOR_SOURCE_DIR "/scripts/history_day.py " +
                                options + " " + file.string();
    FILE* pipe = ::popen(command.c_str(), "r");
    std::string text;
    char some[65536];
    for (std::size_t n; (n = std::fread(some, 1, sizeof some, pipe)) > 0;) text.append(some, n);
    EXPECT_EQ(::pclose(pipe), 0) << command;
    std::vector<Row> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        // No field is quoted.
        Row row;
        std::istringstream fields(line + ",");
        for (std::string field; std::getline(fields, field, ',');) row.push_back(field);
        rows.push_back(row);
    }
    return rows;
}

inline std::size_t columnOf(const Row& head, const std::string& begins) {
    for (std::size_t i = 0; i < head.size(); ++i) {
        if (head[i].starts_with(begins)) return i;
    }
    return head.size();
}

}  // namespace history::test
