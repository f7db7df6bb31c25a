// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/day_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/performance/second_days.h"
#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {
namespace {

DayTables tablesOf(std::string_view bytes) {
    DayTables tables;
    tables.fill(bytes);
    return tables;
}

/// The nine fields of an hour, each in brackets.
std::string fieldsOf(const DayTables& tables, int hour) {
    std::string all;
    for (int n = 1; n <= DayTables::kFields; ++n) all += "[" + tables.field(hour, n) + "]";
    return all;
}

constexpr const char* kAbsent = "[0][0][0][0][0][0][0][0][0]";

int hoursOf(const DayTables& tables) {
    int hours = 0;
    for (int hour = 0; hour < DayTables::kHours; ++hour) hours += !tables.hourLine(hour).empty();
    return hours;
}

TEST(DayTables, HoldWhatTheSecondProgramReads) {
    for (const SecondDay& day : secondDays()) {
        const DayTables tables = tablesOf(day.bytes);
        const auto& wanted = day.of("fields");
        ASSERT_EQ(wanted.size(), 216u);
        for (int entry = 0; entry < 216; ++entry) {
            EXPECT_EQ(tables.field(entry / 9, entry % 9 + 1),
                      wanted[static_cast<std::size_t>(entry)])
                << day.day << " entry " << entry + 1;
        }
    }
}

TEST(DayTables, TakeHoursOfOneAndTwoDigits) {
    const DayTables tables = tablesOf(
        "7 1 2 3 4 5 6 7 8 9 \r\n08 9 8 7 6 5 4 3 2 1 \r\n"
        "23 11 12 13 14 15 16 17 18 19 \r\n");
    EXPECT_EQ(fieldsOf(tables, 7), "[1][2][3][4][5][6][7][8][9]");
    EXPECT_EQ(tables.hourLine(7), "07 1 2 3 4 5 6 7 8 9 ");
    EXPECT_EQ(fieldsOf(tables, 8), "[9][8][7][6][5][4][3][2][1]");
    EXPECT_EQ(fieldsOf(tables, 23), "[11][12][13][14][15][16][17][18][19]");
    EXPECT_EQ(fieldsOf(tables, 22), kAbsent);
}

TEST(DayTables, AnAloneStandingLetterAIsAbsent) {
    EXPECT_EQ(fieldsOf(tablesOf("3 A 1 A AA a A1 A A 9 \r\n"), 3), "[0][1][0][AA][a][A1][0][0][9]");
}

TEST(DayTables, TwoBlanksInARowAreAnEmptyField) {
    EXPECT_EQ(fieldsOf(tablesOf("3 1  3 4 5 6 7 8 9 \r\n"), 3), "[1][][3][4][5][6][7][8][9]");
    EXPECT_EQ(fieldsOf(tablesOf("3  2 3 4 5 6 7 8 9 \r\n"), 3), "[][2][3][4][5][6][7][8][9]");
}

TEST(DayTables, ALineWithFewerThanNineFieldsLeavesTheOthersEmpty) {
    const DayTables tables = tablesOf("2 1 2 3 4 5 6 7 8 9 \r\n3 1 2 \r\n4\r\n05\r\n6 1");
    EXPECT_EQ(fieldsOf(tables, 3), "[1][2][][][][][][][]");
    EXPECT_EQ(fieldsOf(tables, 4), "[][][][][][][][][]");
    EXPECT_EQ(fieldsOf(tables, 5), "[][][][][][][][][]");
    EXPECT_EQ(fieldsOf(tables, 6), "[1][][][][][][][][]");
}

TEST(DayTables, WhatStandsBehindCharacter103IsLost) {
    const std::string head = "03 1 2 3 4 5 6 7 8 ";
    const std::string ninth(103 - head.size(), '9');
    for (const std::string& line : {head + ninth, head + ninth + " ", head + ninth + "9"}) {
        const DayTables tables = tablesOf(line + "\r\n");
        EXPECT_EQ(tables.field(3, 9), ninth) << line.size();
        EXPECT_EQ(tables.hourLine(3).size(), 103u);
    }
    // With one digit the line is a character longer once it is aligned.
    const std::string aligned = "3" + head.substr(2) + ninth;
    EXPECT_EQ(tablesOf(aligned).field(3, 9), ninth);
    EXPECT_EQ(tablesOf(aligned + "9").field(3, 9), ninth);
}

TEST(DayTables, TheLaterOfTwoLinesOfAnHourStands) {
    EXPECT_EQ(fieldsOf(tablesOf("5 1 1 1 1 1 1 1 1 1 \r\n05 2 2 2 2 2 2 2 2 2 \r\n"), 5),
              "[2][2][2][2][2][2][2][2][2]");
}

TEST(DayTables, TakeBothLineEndsAndALastLineWithoutAny) {
    const DayTables tables = tablesOf("1 1 \n2 2 \r\n3 3");
    EXPECT_EQ(tables.field(1, 1), "1");
    EXPECT_EQ(tables.field(2, 1), "2");
    EXPECT_EQ(tables.field(3, 1), "3");
}

TEST(DayTables, ReadNoMoreThan24Lines) {
    for (const int count : {24, 25, 30}) {
        std::string bytes;
        for (int n = 0; n < count; ++n)
            bytes += std::to_string(n % 24) + " " + std::to_string(n) + " \r\n";
        const DayTables tables = tablesOf(bytes);
        for (int hour = 0; hour < 24; ++hour)
            EXPECT_EQ(tables.field(hour, 1), std::to_string(hour)) << count;
    }
}

TEST(DayTables, LinesWithoutAnHourArePassedOverButCount) {
    std::string bytes;
    for (const char* line : {"", "hello", " 5 1 ", "-1 2 ", "24 3 ", "99 4 ", "\t6 5 "})
        bytes += std::string(line) + "\r\n";
    EXPECT_EQ(hoursOf(tablesOf(bytes)), 0);
    EXPECT_EQ(hoursOf(tablesOf(bytes + "9 1 \r\n")), 1);
    for (int n = 0; n < 17; ++n) bytes += "25 1 \r\n";
    EXPECT_EQ(hoursOf(tablesOf(bytes + "9 1 \r\n")), 0) << "the 25th line";
}

TEST(DayTables, AnHourThatIsNoNumberToItsEndIsItsDigits) {
    const DayTables tables = tablesOf("2x 7 8 \r\n3. 9 \r\n123 4 5 \r\n");
    EXPECT_EQ(tables.field(2, 1), "7");
    EXPECT_EQ(tables.field(3, 1), "9");
    // Fields begin at character 4 whatever stands before it.
    EXPECT_EQ(fieldsOf(tables, 12), "[][4][5][][][][][][]");
}

TEST(DayTables, ANewDayLeavesNothingOfTheOldOne) {
    DayTables tables = tablesOf("5 1 2 3 4 5 6 7 8 9 \r\n");
    tables.fill("");
    EXPECT_EQ(fieldsOf(tables, 5), kAbsent);
    EXPECT_EQ(hoursOf(tables), 0);
}

TEST(DayTables, LettersOfTheCodePageAreShownAsSuch) {
    EXPECT_EQ(tablesOf("1 \xE9 \x80 \r\n").field(1, 1), "é");
    EXPECT_EQ(tablesOf("1 \xE9 \x80 \r\n").field(1, 2), "€");
}

TEST(DayTables, ALogCutAtAnyLengthReadsAsFarAsItGoes) {
    const std::string& whole = secondDays().front().bytes;
    const DayTables all = tablesOf(whole);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const DayTables cut = tablesOf(std::string_view(whole).substr(0, length));
        const auto ended =
            std::count(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length), '\n');
        // A line that is cut after its first digit counts for the hour of that digit.
        const bool oneDigit = length > 0 && (length == 1 || whole[length - 2] == '\n');
        const int digit = oneDigit ? whole[length - 1] - '0' : -1;
        for (int hour = 0; hour < 24; ++hour) {
            if (hour == digit) {
                EXPECT_EQ(cut.hourLine(hour), "0" + std::to_string(digit)) << length;
            } else if (hour < ended) {
                EXPECT_EQ(cut.hourLine(hour), all.hourLine(hour)) << length;
            } else if (hour > ended) {
                EXPECT_EQ(fieldsOf(cut, hour), kAbsent) << length;
            }
        }
    }
}

TEST(DayTables, BinaryRubbishAndAMegabyteInALineAreRead) {
    std::string rubbish;
    for (int i = 0; i < 5000; ++i) rubbish += static_cast<char>(i * 7919 % 256);
    const DayTables rubbed = tablesOf(rubbish);
    for (int hour = 0; hour < 24; ++hour) {
        EXPECT_LE(rubbed.hourLine(hour).size(), 103u);
        for (int n = 1; n <= 9; ++n) EXPECT_LE(rubbed.field(hour, n).size(), 300u);
    }
    const DayTables tables = tablesOf("5 1 " + std::string(1 << 20, '2') + " 3\r\n6 7 \r\n");
    EXPECT_EQ(tables.field(5, 2).size(), 98u);
    EXPECT_EQ(tables.field(6, 1), "7");
}

TEST(DayTables, AFileThatIsMissingIsADayWithoutLinesAndIsNotLeftBehind) {
    const TempFolder folder;
    const Files files(folder.path());
    DayTables tables = tablesOf("5 1 2 3 4 5 6 7 8 9 \r\n");
    tables.read(files, "20260101");
    EXPECT_EQ(hoursOf(tables), 0);
    EXPECT_FALSE(folder.has("20260101.log"));
}

TEST(DayTables, AFolderByThatNameAndAFileThatCannotBeReadAreDaysWithoutLines) {
    const TempFolder folder;
    const Files files(folder.path());
    std::filesystem::create_directory(folder.path() / "20260101.log");
    folder.write("20260102.log", "5 1 2 \r\n");
    setRights(folder.path() / "20260102.log", 0);
    setRights(folder.path(), 0755);
    DayTables tables = tablesOf("5 1 2 3 4 5 6 7 8 9 \r\n");
    tables.read(files, "20260101");
    EXPECT_EQ(hoursOf(tables), 0);
    tables.fill("5 1 2 3 4 5 6 7 8 9 \r\n");
    const AsNobody nobody;
    tables.read(files, "20260102");
    EXPECT_EQ(hoursOf(tables), 0);
}

TEST(DayTables, AFileThatGrewSinceIsReadAnew) {
    const TempFolder folder;
    const Files files(folder.path());
    folder.write("20260101.LOG", "0 1 \r\n1 2");
    DayTables tables;
    tables.read(files, "20260101");
    EXPECT_EQ(tables.field(1, 1), "2");
    folder.write("20260101.LOG", "0 1 \r\n1 25 \r\n2 3 \r\n");
    tables.read(files, "20260101");
    EXPECT_EQ(tables.field(1, 1), "25");
    EXPECT_EQ(tables.field(2, 1), "3");
}

}  // namespace
}  // namespace hmonitor::test
