// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace hmonitor::test {

/// A typed text and the results in both dialogs; "-" for none.
struct TypedRow {
    std::string typed;
    std::string record;         ///< the memory's content, or "wrong"
    std::string shown;          ///< the text in the memory editor
    std::string tuned;          ///< the rack's frequency then, in units of 100 kHz
    std::string keypadTuned;    ///< the rack's frequency after the keypad's enter
    std::string keypadHandsOn;  ///< the frequency that the keypad returns
};

/// Replaces %XX by the byte.
inline std::string decoded(const std::string& coded) {
    std::string bytes;
    for (std::size_t at = 0; at < coded.size(); ++at) {
        if (coded[at] != '%') {
            bytes += coded[at];
            continue;
        }
        bytes += static_cast<char>(std::stoi(coded.substr(at + 1, 2), nullptr, 16));
        at += 2;
    }
    return bytes;
}

inline std::vector<TypedRow> typedRows(const std::string& fileName) {
    std::ifstream file(std::string(HMONITOR_SOURCE_DIR "/tests/tuner/") + fileName);
    std::vector<TypedRow> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) continue;
        std::vector<std::string> cells(1);
        for (const char character : line) {
            if (character == '\t') {
                cells.emplace_back();
            } else {
                cells.back() += character;
            }
        }
        rows.push_back({decoded(cells.at(0)), cells.at(1), cells.at(2), cells.at(3), cells.at(4),
                        cells.at(5)});
    }
    return rows;
}

}  // namespace hmonitor::test
