// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/number_table.h"

#include <algorithm>

namespace display {

namespace {

bool wantsQuotes(std::string_view field) {
    if (field.empty()) return false;
    return field.find_first_of(",\"\r\n") != std::string_view::npos || field.front() == ' ' ||
           field.back() == ' ';
}

void addField(std::string& line, std::string_view field) {
    if (!wantsQuotes(field)) {
        line += field;
        return;
    }
    line += '"';
    for (const char c : field) {
        if (c == '"') line += '"';
        line += c;
    }
    line += '"';
}

std::string headOf(const NumberTable::Column& column) {
    return column.unit.empty() ? column.name : column.name + " (" + column.unit + ")";
}

}  // namespace

std::string csvText(const NumberTable& table) {
    constexpr std::string_view kLineEnd = "\r\n";
    std::string text;
    for (const NumberTable::Column& column : table.columns) {
        addField(text, headOf(column));
        text += ',';
    }
    addField(text, table.station);
    text += kLineEnd;
    for (const std::vector<std::string>& row : table.rows) {
        for (const std::string& cell : row) {
            addField(text, cell);
            text += ',';
        }
        text += kLineEnd;
    }
    return text;
}

std::string fileStem(std::string_view station, std::string_view title) {
    std::string stem(station);
    if (!stem.empty() && !title.empty()) stem += ' ';
    stem += title;
    std::ranges::replace_if(
        stem,
        [](char c) {
            const auto code = static_cast<unsigned char>(c);
            return code < ' ' || std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos;
        },
        '_');
    // A file name that begins with a point is hidden; some systems cut a point or a blank at its
    // end.
    while (!stem.empty() && (stem.back() == '.' || stem.back() == ' ')) stem.pop_back();
    const std::size_t first = std::min(stem.find_first_not_of(". "), stem.size());
    stem.erase(0, first);
    return stem.empty() ? "HMonitor" : stem;
}

}  // namespace display
