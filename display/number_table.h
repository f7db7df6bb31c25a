// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace display {

/// The numbers that a drawing shows. Cells are text as it goes to a file: numbers with a point in
/// every locale, empty where there is no value. UTF-8.
struct NumberTable {
    struct Column {
        std::string name;
        std::string unit;  ///< empty for a mere count
    };
    std::string title;    ///< what the drawing shows: "Band Scanner"
    std::string station;  ///< whose numbers they are: "RADIO UNO 98.1 MHz 2026-05-04"
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;  ///< a cell for each column
};

/// The table as comma-separated values. One head line: a field for each column, "Level (dBuV)",
/// and the station as the last one; that one has an empty cell in each row, so that all lines have
/// as many fields. Lines end in carriage return and line feed, a field with a comma, a quote, a
/// line end or a blank at an end stands in quotes.
std::string csvText(const NumberTable& table);

/// Whose file it is and what it shows, as a file name without its ending: "RADIO UNO 98.1 MHz
/// 2026-05-04 Band Scanner". What a file system may refuse is "_".
std::string fileStem(std::string_view station, std::string_view title);

}  // namespace display
