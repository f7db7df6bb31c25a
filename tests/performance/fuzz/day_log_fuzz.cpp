// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the log of a day: its tables, its lists and its report.
#include <algorithm>
#include <cstdint>
#include <string>

#include "core/code_page.h"
#include "performance/day_lists.h"
#include "performance/day_report.h"
#include "tests/fuzz/check.h"

namespace {

using namespace hmonitor;

void checkTables(const std::string& bytes) {
    DayTables tables;
    tables.fill(bytes);
    for (int hour = 0; hour < DayTables::kHours; ++hour) {
        const std::string& line = tables.hourLine(hour);
        FUZZ_CHECK(line.size() <= 103);
        FUZZ_CHECK(line.empty() || (line[0] >= '0' && line[0] <= '9'));
        const std::string label = hourLabel(hour);
        std::size_t all = 0;
        for (int n = 1; n <= DayTables::kFields; ++n) {
            const std::string& field = tables.field(hour, n);
            FUZZ_CHECK(field != "A");
            FUZZ_CHECK(!line.empty() || field == "0");
            FUZZ_CHECK(field.find('\n') == std::string::npos);
            // An absent figure was one letter too.
            all += codePageFromUtf8(field).size() + 1;
        }
        FUZZ_CHECK(line.empty() || all <= 101 + 8);
        for (const DayList& list : kDayLists)
            FUZZ_CHECK(listLine(tables, list, hour).starts_with(label));
    }
    DayTables again;
    again.fill("5 1 1 1 1 1 1 1 1 1 \r\n");
    again.fill(bytes);
    for (int entry = 0; entry < 216; ++entry)
        FUZZ_CHECK(again.field(entry / 9, entry % 9 + 1) == tables.field(entry / 9, entry % 9 + 1));
}

void checkReport(const std::string& bytes) {
    const auto report = dayReport(bytes, "20260304", "Teskel");
    const auto feeds = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    const std::size_t there = feeds + (!bytes.empty() && bytes.back() != '\n' ? 1 : 0);
    const std::size_t read = std::min<std::size_t>(there, 24);
    FUZZ_CHECK(report.size() == 6 + read + std::min<std::size_t>(read, 12));
    for (const std::string& line : report) {
        FUZZ_CHECK(line.starts_with("\t\t"));
        FUZZ_CHECK(line.find('\n') == std::string::npos);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    checkTables(bytes);
    checkReport(bytes);
    return 0;
}
