// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace display {

/// The numbers that a drawing shows. Cells are text as written to a file: with a decimal point in
/// every locale, empty where there is no value. UTF-8.
struct NumberTable {
    struct Column {
        std::string name;
        std::string unit;  ///< empty for a mere count
    };
    std::string title;    ///< what the drawing shows: "Band Scanner"
    std::string station;  ///< station, frequency and date: "RADIO UNO 98.1 MHz 2026-05-04"
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;  ///< a cell for each column

    /// Where a value stands on its drawing, in the drawing's own coordinates: row (a bar: its
    /// middle) and value of a chart, units of the scale of a picture box.
    struct Spot {
        std::size_t row = 0;     ///< of the table
        std::size_t column = 0;  ///< of the value
        double x = 0;
        double y = 0;
    };
    /// By these a reader's marks find the numbers; empty where the drawing does not tell.
    std::vector<Spot> spots = {};
};

/// The table as comma-separated values. The head line has a field for each column, "Level (dBuV)",
/// and the station as its last field; rows have an empty last field, so that all lines have equally
/// many. Lines end in carriage return and line feed. A field with a comma, a quote, a line end, or
/// a blank at either end is quoted.
std::string csvText(const NumberTable& table);

/// What one spot says: "98.1 MHz: 67 dBµV"; behind several columns of values, which one:
/// "7 h: Left Level -6.1 dB". A table of a map says all values of the row.
std::string spotText(const NumberTable& table, const NumberTable::Spot& spot);
/// From one spot to another, as both stand in the table, without a rounding: "+0.4 MHz: -12 dB".
std::string differenceText(const NumberTable& table, const NumberTable::Spot& from,
                           const NumberTable::Spot& to);

/// A file name without its ending, made of station, date and drawing: "RADIO UNO 98.1 MHz
/// 2026-05-04 Band Scanner". Characters that a file system may refuse become "_".
std::string fileStem(std::string_view station, std::string_view title);

}  // namespace display
