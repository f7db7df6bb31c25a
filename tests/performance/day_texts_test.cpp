// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of the six lists and of the report.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "performance/day_lists.h"
#include "performance/day_report.h"
#include "tests/performance/second_days.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::string lineOf(std::string_view bytes, int list, int hour) {
    DayTables tables;
    tables.fill(bytes);
    return listLine(tables, kDayLists[list - 1], hour);
}

/// The lines of the report's first table and of its second, without their heads.
std::vector<std::string> firstTable(const std::vector<std::string>& report) {
    std::vector<std::string> lines;
    for (std::size_t i = 4; i < report.size() && report[i] != "\t\t" + std::string(82, '-'); ++i)
        lines.push_back(report[i]);
    return lines;
}
std::vector<std::string> secondTable(const std::vector<std::string>& report) {
    const auto first = firstTable(report).size();
    return {report.begin() + static_cast<std::ptrdiff_t>(4 + first + 2), report.end()};
}

std::string logOf(int lines) {
    std::string bytes;
    for (int n = 0; n < lines; ++n) {
        const std::string text = std::to_string(n);
        bytes +=
            std::to_string(n % 24) + " 1" + text + " 2 3 4" + text + " 5 6 7" + text + " 8 9 \r\n";
    }
    return bytes;
}

TEST(DayLists, AreWhatTheSecondProgramWrites) {
    for (const SecondDay& day : secondDays()) {
        DayTables tables;
        tables.fill(day.bytes);
        int number = 0;
        for (const DayList& list : kDayLists) {
            const auto& wanted = day.of("list" + std::to_string(++number));
            for (int hour = 0; hour < 24; ++hour) {
                EXPECT_EQ(listLine(tables, list, hour), wanted[static_cast<std::size_t>(hour)])
                    << day.day << " list " << number;
            }
        }
    }
}

TEST(DayLists, ShowValuesAsTheyStandAndAnAbsentHourAsZero) {
    EXPECT_EQ(lineOf("5 1234.5 2 3 4 5 6 7 8 9 \r\n", 1, 5), "05             1234.5");
    EXPECT_EQ(lineOf("5 1234.5 2 3 4 5 6 7 8 9 \r\n", 1, 6), "06             0");
    EXPECT_EQ(lineOf("5 1234.5 2 3 4 5 6 7 8 9 \r\n", 4, 5), "05      4");
}

TEST(DayLists, TheSecondValueStandsInOneColumnUntilTheFirstIsTooLong) {
    EXPECT_EQ(lineOf("5 1 -6.1 -7 \r\n", 3, 5), "05      -6.1     -7");
    EXPECT_EQ(lineOf("5 1 -12.75 -7 \r\n", 3, 5), "05      -12.75   -7");
    EXPECT_EQ(lineOf("5 1 123456789 -7 \r\n", 3, 5), "05      123456789-7");
    EXPECT_EQ(lineOf("5 1 1234567890 -7 \r\n", 3, 5), "05      1234567890-7");
    EXPECT_EQ(lineOf("5 1 \xE9\xE9 -7 \r\n", 3, 5), "05      éé       -7") << "letters, not bytes";
}

TEST(DayReport, IsWhatTheSecondProgramPrints) {
    for (const SecondDay& day : secondDays()) {
        for (const std::string brand : {"Marvenia", "Teskel"})
            EXPECT_EQ(dayReport(day.bytes, day.day, brand), day.of("report " + brand)) << day.day;
    }
}

TEST(DayReport, BearsTheHeadOfItsBrand) {
    EXPECT_EQ(dayReport("", "20260304", "Marvenia")[1],
              "\t\t* MARVENIA  HM-36 Halden Monitor Report Date: 20260304 *");
    EXPECT_EQ(dayReport("", "20260304", "Teskel")[1],
              "\t\t * TESKEL  TK-16 Halden Monitor Report Date: 20260304 *");
}

TEST(DayReport, OfAFileThatIsGoneOrEmptyIsItsHeads) {
    EXPECT_THAT(dayReport("", "1", "Marvenia"),
                ElementsAre("\t\t" + std::string(69, '*'),
                            "\t\t* MARVENIA  HM-36 Halden Monitor Report Date: 1 *",
                            "\t\t" + std::string(69, '*'),
                            "\t\ths|Modulation  Power     Left & Right   Silence  Reverse",
                            "\t\t" + std::string(82, '-'),
                            "\t\ths|   Overmod   Stereo Phase    hs|Overmod   Stereo Phase"));
}

TEST(DayReport, ReadsNoMoreThan24LinesInEachTable) {
    for (const int lines : {24, 25, 30}) {
        const auto report = dayReport(logOf(lines), "1", "Marvenia");
        EXPECT_THAT(firstTable(report), SizeIs(24)) << lines;
        EXPECT_THAT(secondTable(report), SizeIs(12)) << lines;
        EXPECT_EQ(secondTable(report)[11], "\t\t11|\t711\t    411\t\t23|        723\t  423");
    }
}

TEST(DayReport, HasTwoBlocksSideBySideOnceThereAreMoreThanTwelveLines) {
    EXPECT_EQ(secondTable(dayReport(logOf(11), "1", ""))[10], "\t\t10|\t710\t    410");
    EXPECT_THAT(secondTable(dayReport(logOf(11), "1", "")), SizeIs(11));
    EXPECT_THAT(secondTable(dayReport(logOf(12), "1", "")), SizeIs(12));
    EXPECT_EQ(secondTable(dayReport(logOf(12), "1", ""))[0], "\t\t0|\t70\t    40");
    const auto thirteen = secondTable(dayReport(logOf(13), "1", ""));
    EXPECT_THAT(thirteen, SizeIs(12));
    EXPECT_EQ(thirteen[0], "\t\t0|\t70\t    40\t\t12|        712\t  412");
    EXPECT_EQ(thirteen[1], "\t\t1|\t71\t    41");
}

TEST(DayReport, ShortensValuesToFourCharacters) {
    EXPECT_EQ(shortened("100.5"), "100");
    EXPECT_EQ(shortened("12.34"), "12.3");
    EXPECT_EQ(shortened("1234"), "1234");
    EXPECT_EQ(shortened("12.3"), "12.3");
    EXPECT_EQ(shortened("-10.5"), "-10");
    EXPECT_EQ(shortened("A"), "A");
    EXPECT_EQ(shortened(""), "");
    EXPECT_EQ(shortened("123."), "123");
}

TEST(DayReport, PrintsAnAbsentFigureAsItStandsAndWhatIsNotThereEmpty) {
    const auto table = firstTable(dayReport("5 A 2 3 4 A 6 7 8 9 \r\n6 1 2\r\n", "1", ""));
    EXPECT_EQ(table[0], "\t\t5|\tA\tA\t  2 3\t  8\t    9");
    EXPECT_EQ(table[1], "\t\t6|\t1\t\t  2 \t  \t    ");
}

TEST(DayReport, SeeksFieldsBehindTheHoursText) {
    const auto table =
        firstTable(dayReport("05 1 2 3 4 5 6 7 8 9 \r\n5 1 2 3 4 5 6 7 8 9 \r\n"
                             "hello 1 2\r\n\r\n",
                             "1", ""));
    EXPECT_EQ(table[0], "\t\t05|\t1\t5\t  2 3\t  8\t    9");
    EXPECT_EQ(table[1], "\t\t5|\t1\t5\t  2 3\t  8\t    9");
    EXPECT_EQ(table[2], "\t\t|\thell\t\t  1 2\t  \t    ") << "an odd hour is none";
    EXPECT_EQ(table[3], "\t\t|\t\t\t   \t  \t    ");
}

}  // namespace
}  // namespace hmonitor::test
