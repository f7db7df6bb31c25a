// SPDX-License-Identifier: GPL-3.0-or-later
// What docs/formats.md says of the on-air log is what its reader does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/text_lines.h"
#include "performance/day_tables.h"
#include "tests/core/formats_page.h"

namespace hmonitor::test {
namespace {

TEST(LogFormat, TheExampleReadsAsThePageSays) {
    DayTables tables;
    tables.fill(joinLines(FormatsPage().example("20260304.log")));
    EXPECT_EQ(tables.field(7, 1), "101.2");
    EXPECT_EQ(tables.field(7, 5), "1.004");
    EXPECT_EQ(tables.field(8, 1), "98");
    EXPECT_EQ(tables.field(8, 2), "0");
    EXPECT_EQ(tables.field(8, 3), "0");
    EXPECT_EQ(tables.field(23, 9), "2");
    EXPECT_EQ(tables.field(0, 1), "0");
    EXPECT_TRUE(tables.hourLine(0).empty());
}

TEST(LogFormat, TheTableIsWhatTheReaderDoes) {
    int checked = 0;
    for (const auto& row : FormatsPage().rows("On-air log")) {
        if (row[0].size() == 1) continue;  // the table of the fields
        DayTables tables;
        tables.fill(unescaped(row[0]));
        int hours = 0;
        for (int hour = 0; hour < DayTables::kHours; ++hour)
            hours += !tables.hourLine(hour).empty();
        EXPECT_EQ(std::to_string(hours), row[1]) << row[0];
        ++checked;
    }
    EXPECT_EQ(checked, 5);
}

}  // namespace
}  // namespace hmonitor::test
