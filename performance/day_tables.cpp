// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/day_tables.h"

#include <algorithm>

#include "core/code_page.h"
#include "core/numbers.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

/// Of an aligned line, what follows the hour and its blank, and no more than that.
constexpr std::size_t kFieldsAt = 3;
constexpr std::size_t kFieldRoom = 100;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t entryOf(int hour, int number) {
    return static_cast<std::size_t>(hour * DayTables::kFields + number - 1);
}

}  // namespace

void DayTables::read(const Files& files, std::string_view day) {
    const auto bytes = files.read(std::string(day) + ".log");
    fill(bytes ? std::string_view(*bytes) : std::string_view());
}

void DayTables::fill(std::string_view bytes) {
    hourLines_.fill({});
    TextLines text(bytes);
    for (int n = 0; n < kHours; ++n) {
        const auto line = text.next();
        if (!line) break;
        takeLine(*line);
    }
    for (int hour = 0; hour < kHours; ++hour) {
        const HourFields fields = fieldsOf(hour);
        for (int number = 1; number <= kFields; ++number) {
            const std::string& field = fields[static_cast<std::size_t>(number - 1)];
            fields_[entryOf(hour, number)] = field == "A" ? "0" : utf8FromCodePage(field);
        }
    }
}

void DayTables::takeLine(std::string_view line) {
    if (line.empty() || !isDigit(line[0])) return;
    const bool oneDigit = line.size() < 2 || line[1] == ' ';
    const double hour = valueOf(line.substr(0, oneDigit ? 1 : 2));
    if (hour >= kHours) return;
    std::string& kept = hourLines_[static_cast<std::size_t>(hour)];
    // What lies behind the room of the fields is never read.
    kept = (oneDigit ? "0" : "") + std::string(line.substr(0, kFieldsAt + kFieldRoom));
    kept.resize(std::min(kept.size(), kFieldsAt + kFieldRoom));
}

DayTables::HourFields DayTables::fieldsOf(int hour) const {
    HourFields fields;
    const std::string& line = hourLine(hour);
    if (line.empty()) {
        fields.fill("A");
        return fields;
    }
    std::string text = line.size() > kFieldsAt ? line.substr(kFieldsAt) : std::string();
    // Behind a short line stand blanks, so that its last field has an end.
    text.resize(kFieldRoom, ' ');
    std::size_t field = 0;
    for (const char c : text) {
        if (c != ' ') {
            fields[field] += c;
        } else if (++field == fields.size()) {
            break;
        }
    }
    return fields;
}

const std::string& DayTables::hourLine(int hour) const {
    return hourLines_[static_cast<std::size_t>(hour)];
}

const std::string& DayTables::field(int hour, int number) const {
    return fields_[entryOf(hour, number)];
}

}  // namespace hmonitor
