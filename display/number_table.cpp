// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/number_table.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <system_error>

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

/// Units in a file are plain letters; a reader sees the field's own sign.
std::string_view shownUnit(std::string_view unit) {
    if (unit == "dBuV") return "dBµV";
    if (unit == "deg") return "°";
    return unit;
}

/// Two levels above a fixed one differ by plain decibels.
std::string_view differenceUnit(std::string_view unit) {
    return unit == "dBuV" ? "dB" : shownUnit(unit);
}

std::string_view cellOf(const NumberTable& table, std::size_t row, std::size_t column) {
    if (row >= table.rows.size() || column >= table.rows[row].size()) return {};
    return table.rows[row][column];
}

void addUnit(std::string& text, std::string_view unit) {
    if (unit.empty()) return;
    if (unit != "°") text += ' ';
    text += unit;
}

std::string withUnit(std::string_view cell, std::string_view unit) {
    std::string text(cell.empty() ? "-" : cell);
    if (!cell.empty()) addUnit(text, unit);
    return text;
}

/// A number of a table, exactly as it stands there.
struct Decimal {
    std::int64_t digits = 0;  ///< without the point
    int places = 0;           ///< behind the point
};

std::optional<Decimal> decimalOf(std::string_view cell) {
    constexpr std::size_t kMostDigits = 15;
    const std::size_t point = std::min(cell.find('.'), cell.size());
    std::string digits(cell.substr(0, point));
    Decimal number;
    if (point < cell.size()) {
        digits += cell.substr(point + 1);
        number.places = static_cast<int>(cell.size() - point - 1);
    }
    if (digits.size() > kMostDigits) return std::nullopt;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number.digits);
    if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
    return number;
}

/// False where that many places leave no room for the digits before them.
bool widen(Decimal& number, int places) {
    // Half of it, so that a difference of two fits.
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() / 2;
    for (; number.places < places; ++number.places) {
        if (number.digits > kMost / 10 || number.digits < -kMost / 10) return false;
        number.digits *= 10;
    }
    return true;
}

std::string signedText(const Decimal& number) {
    std::string text;
    char digits[24];
    const std::int64_t size = number.digits < 0 ? -number.digits : number.digits;
    const auto written = std::to_chars(std::begin(digits), std::end(digits), size);
    text.assign(std::begin(digits), written.ptr);
    const auto places = static_cast<std::size_t>(number.places);
    if (text.size() <= places) text.insert(0, places + 1 - text.size(), '0');
    if (places > 0) text.insert(text.size() - places, 1, '.');
    if (number.digits == 0) return text;
    return (number.digits < 0 ? '-' : '+') + text;
}

/// Empty where one of the two is no number, or where they are too far apart for one text.
std::string differenceOf(std::string_view from, std::string_view to) {
    auto first = decimalOf(from);
    auto second = decimalOf(to);
    if (!first || !second) return {};
    const int places = std::max(first->places, second->places);
    if (!widen(*first, places) || !widen(*second, places)) return {};
    return signedText({second->digits - first->digits, places});
}

}  // namespace

std::string spotText(const NumberTable& table, const NumberTable::Spot& spot) {
    if (table.columns.empty()) return {};
    std::string text = withUnit(cellOf(table, spot.row, 0), shownUnit(table.columns[0].unit));
    const bool all = spot.column == 0;
    const bool named = table.columns.size() > 2;
    const char* between = ": ";
    for (std::size_t column = 1; column < table.columns.size(); ++column) {
        if (!all && column != spot.column) continue;
        text += between;
        between = ", ";
        if (named) text += table.columns[column].name + " ";
        text += withUnit(cellOf(table, spot.row, column), shownUnit(table.columns[column].unit));
    }
    return text;
}

std::string differenceText(const NumberTable& table, const NumberTable::Spot& from,
                           const NumberTable::Spot& to) {
    if (table.columns.size() < 2) return {};
    const std::size_t value = std::max<std::size_t>(to.column, 1);
    const std::size_t before = std::max<std::size_t>(from.column, 1);
    if (value >= table.columns.size() || before >= table.columns.size()) return {};
    std::string text = withUnit(differenceOf(cellOf(table, from.row, 0), cellOf(table, to.row, 0)),
                                differenceUnit(table.columns[0].unit));
    // Modulation less power is nothing.
    if (table.columns[before].unit != table.columns[value].unit) return text;
    return text + ": " +
           withUnit(differenceOf(cellOf(table, from.row, before), cellOf(table, to.row, value)),
                    differenceUnit(table.columns[value].unit));
}

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
