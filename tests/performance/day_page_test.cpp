// SPDX-License-Identifier: GPL-3.0-or-later
// The printed page of a day, coordinate by coordinate.
#include "performance/day_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "performance/day_series.h"
#include "performance/report_page.h"
#include "tests/performance/second_days.h"
#include "tests/support/page_recorder.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::SizeIs;
using testing::UnorderedElementsAre;

DayPage plainPage() {
    DayPage page;
    page.stationName = "FARO FM  ";
    page.memoryFreq = "1025.5";
    page.day = "20260304";
    page.logo = "InkMarvenia";
    page.logoWidth = 2500;
    page.logoHeight = 400;
    return page;
}

std::vector<std::string> linesOf(const DayPage& page, std::string_view log = "") {
    DayTables tables;
    tables.fill(log);
    return recorded(composeDayPage(page, tables));
}

/// The last polyline of a series: only that one has all its points.
std::vector<std::string> wholeCurves(std::string_view log) {
    const auto drawn = beginning(linesOf(plainPage(), log), "polyline ");
    std::vector<std::string> curves;
    for (std::size_t i = 23; i < drawn.size(); i += 24) {
        const std::size_t end = drawn[i].find('"', 10);
        curves.push_back(drawn[i].substr(10, end - 10));
    }
    return curves;
}

TEST(DayPage, BeginsWithItsMarginsItsLogoAndItsHeading) {
    const auto lines = linesOf(plainPage());
    ASSERT_GT(lines.size(), 3u);
    EXPECT_EQ(lines[0], "page 720 720 720 720");
    EXPECT_EQ(lines[1], "picture \"InkMarvenia\" 550 -360 3050 40");
    EXPECT_EQ(
        lines[2],
        "text \" On-Air Performance Log:   FARO FM    102.55 mhz   20260304\" 5300 500 size 8 "
        "black");
    EXPECT_THAT(beginning(lines, "page"), SizeIs(1));
}

TEST(DayPage, ItsHeadingGivesFrequencyAndDayAsNumbers) {
    DayPage page = plainPage();
    page.memoryFreq = "979";
    page.day = "12ab";
    EXPECT_THAT(linesOf(page),
                Contains("text \" On-Air Performance Log:   FARO FM    97.9 mhz   12\" "
                         "5300 500 size 8 black"));
}

TEST(DayPage, HasFourBandsWithTheirLines) {
    const auto lines = linesOf(plainPage());
    EXPECT_THAT(beginning(lines, "rectangle"),
                ElementsAre("rectangle 550 900 10200 4000 width 12 black",
                            "rectangle 550 4800 10200 6800 width 12 black",
                            "rectangle 550 7600 10200 9600 width 12 black",
                            "rectangle 550 10400 10200 12400 width 12 black"));
    std::vector<std::string> grid;
    const std::pair<int, int> bands[] = {{900, 4000}, {4800, 6800}, {7600, 9600}, {10400, 12400}};
    for (const auto& [top, bottom] : bands) {
        for (int i = 1; i <= 22; ++i) {
            const std::string x = std::to_string(550 + 421 * i);
            grid.push_back("line " + x + " " + std::to_string(top) + " " + x + " " +
                           std::to_string(bottom));
        }
    }
    for (const int y : {1530, 2160, 2790, 3420, 5800, 8600, 11067, 11734})
        grid.push_back("line 550 " + std::to_string(y) + " 10200 " + std::to_string(y));
    for (std::string& line : grid) line += " width 8 b0b0b0";
    EXPECT_THAT(beginning(lines, "line "), testing::UnorderedElementsAreArray(grid));
}

TEST(DayPage, HasItsCaptionsInTheColoursOfTheirCurves) {
    EXPECT_THAT(linesOf(plainPage()),
                IsSupersetOf({"text \"Modulation\" 600 400 size 16 bold red",
                              "text \"RF Power\" 8500 400 size 16 bold blue",
                              "text \"Overmodulation/Min\" 600 4300 size 16 bold red",
                              "text \"Stereo Phase\" 7900 4300 size 16 bold blue",
                              "text \"3 Sec. Silence\" 600 7100 size 16 bold red",
                              "text \"Inverted Phase\" 7600 7100 size 16 bold blue",
                              "text \"Left Level\" 600 9900 size 16 bold red",
                              "text \"Right Level\" 8100 9900 size 16 bold blue"}));
}

TEST(DayPage, HasItsScales) {
    const auto lines = linesOf(plainPage());
    const std::string hours =
        "text \"0    1    2     3    4    5    6    7    8    9   10   11  12   13  14   15  16  "
        "17  "
        "18  19  20  21  22  23\" 550 ";
    EXPECT_THAT(beginning(lines, hours),
                ElementsAre(hours + "4000 size 12 black", hours + "6800 size 12 black",
                            hours + "9600 size 12 black", hours + "12400 size 12 black"));
    const std::string turned = " turned 900 size 12 black";
    EXPECT_THAT(
        lines,
        IsSupersetOf({"text \"25   50     75    100     125    150\" 200 4000" + turned,
                      "text \"0     1       2        3       4        5\" 10300 4000" + turned,
                      "text \"0         150         300\" 200 6800" + turned,
                      "text \"0          90         180\" 10300 6800" + turned,
                      "text \"0           5           10\" 200 9600" + turned,
                      "text \"-10   -5       0       5\" 200 12400" + turned}));
    int turnedTexts = 0;
    for (const std::string& line : lines) turnedTexts += line.ends_with(turned);
    EXPECT_EQ(turnedTexts, 6);
}

TEST(DayPage, ItsCurvesAreWhatTheSecondProgramWorksOut) {
    const char* const words[] = {"modulation", "second level",   "first level", "phase",
                                 "power",      "overmodulation", "inverted",    "silence"};
    for (const SecondDay& day : secondDays()) {
        const auto curves = wholeCurves(day.bytes);
        ASSERT_THAT(curves, SizeIs(8)) << day.day;
        for (std::size_t i = 0; i < 8; ++i)
            EXPECT_EQ(curves[i], day.of(std::string("curve ") + words[i])[0])
                << day.day << " " << words[i];
    }
}

TEST(DayPage, ACurveIsDrawnAfterEachOfItsPoints) {
    const auto drawn = beginning(linesOf(plainPage(), "0 50 1 2 3 4 5 6 7 8 \r\n"), "polyline ");
    ASSERT_THAT(drawn, SizeIs(8 * 24));
    EXPECT_EQ(drawn[0], "polyline \"550 3380 \" width 70 red");
    EXPECT_EQ(drawn[1], "polyline \"550 3380 971 4000 \" width 70 red");
    const char* const pens[] = {" width 70 red",  " width 50 blue", " width 70 red",
                                " width 50 blue", " width 50 blue", " width 70 red",
                                " width 50 blue", " width 70 red"};
    for (std::size_t series = 0; series < 8; ++series) {
        for (std::size_t point = 0; point < 24; ++point) {
            const std::string& line = drawn[series * 24 + point];
            EXPECT_THAT(line, EndsWith(pens[series]));
            EXPECT_EQ(std::count(line.begin(), line.end(), ' ') - 4,
                      static_cast<std::ptrdiff_t>(2 * (point + 1)));
        }
    }
}

TEST(DayPage, ClipsWhatLiesBeyondTheRange) {
    const auto y = [](std::size_t series, const char* field) {
        return kDaySeries[series].pageY(field);
    };
    EXPECT_EQ(y(0, "20"), 4000);
    EXPECT_EQ(y(0, "25"), 4000);
    EXPECT_EQ(y(0, "150"), 900);
    EXPECT_EQ(y(0, "151"), 900);
    EXPECT_EQ(y(1, "-12"), 12400);
    EXPECT_EQ(y(1, "-10"), 12400);
    // Above 5 dB a level is drawn outside the frame, up to 10 dB.
    EXPECT_EQ(y(1, "5"), 10399);
    EXPECT_EQ(y(1, "10"), 9732);
    EXPECT_EQ(y(1, "30"), 9732);
    EXPECT_EQ(y(3, "180"), 4802);
    EXPECT_EQ(y(3, "200"), 4802);
    EXPECT_EQ(y(4, "6"), 900);
    EXPECT_EQ(y(5, "400"), 4790);
    EXPECT_EQ(y(6, "11"), 7600);
    EXPECT_EQ(y(7, "-1"), 9600);
    // Halves are rounded to the even unit.
    EXPECT_EQ(y(7, "0.0025"), 9600);
    EXPECT_EQ(y(7, "0.0075"), 9598);
}

TEST(DayPage, AnHourWithoutALineLiesAtTheLowEnd) {
    const auto curves = wholeCurves("1 A A A A A A A A A \r\n");
    EXPECT_THAT(curves[0], testing::StartsWith("550 4000 971 4000 1392 4000 "));
    // A missing figure in a line counts as 0 dB, a missing line as the -10 mark.
    EXPECT_THAT(curves[1], testing::StartsWith("550 12400 971 11066 1392 12400 "));
    EXPECT_THAT(curves[4], testing::StartsWith("550 4000 971 4000 "));
}

TEST(DayPage, WithoutResultsItHasNeitherFootNorComment) {
    DayPage page = plainPage();
    page.comment = "a comment";
    for (const std::string& line : linesOf(page)) {
        EXPECT_EQ(line.find("a comment"), std::string::npos);
        EXPECT_EQ(line.find("Field Intensity"), std::string::npos);
    }
}

std::string resultsFile(int lines) {
    std::string bytes;
    for (int n = 1; n <= lines; ++n) bytes += "value " + std::to_string(n) + "\r\n";
    return bytes;
}

std::vector<std::string> footOf(int lines) {
    const TempFolder folder;
    folder.write("1025.5.dat", resultsFile(lines));
    DayPage page = plainPage();
    page.results = ResultsFile::readNamed(Files(folder.path()), "1025.5.dat");
    page.comment = "a comment";
    std::vector<std::string> foot;
    for (const std::string& line : linesOf(page)) {
        if (line.find(" size 10 black") != std::string::npos) foot.push_back(line);
    }
    return foot;
}

TEST(DayPage, ItsFootGivesTheResultsAsTheyStand) {
    EXPECT_THAT(
        footOf(24),
        UnorderedElementsAre("text \"Field Intensity: value 24\" 1500 12700 size 10 black",
                             "text \"19Khz Error: value 16\" 7500 12700 size 10 black",
                             "text \"Pilot Level: value 17\" 1500 12900 size 10 black",
                             "text \"Carrier Deviation: value 23\" 7500 12900 size 10 black",
                             "text \"Noise L: value 18\" 1500 13100 size 10 black",
                             "text \"Noise R: value 19\" 7500 13100 size 10 black",
                             "text \"Channel Separation L-R: value 20\" 1500 13300 size 10 black",
                             "text \"Channel Separation R-L: value 21\" 7500 13300 size 10 black",
                             "text \"Harmonic Distortion: value 22\" 7500 13500 size 10 black",
                             "text \"a comment\" 1500 13700 size 10 black"));
}

TEST(DayPage, OfAShortResultsFileWhatIsMissingIsEmpty) {
    const auto foot = footOf(18);
    EXPECT_THAT(foot, SizeIs(10));
    EXPECT_THAT(foot, Contains("text \"Noise L: value 18\" 1500 13100 size 10 black"));
    EXPECT_THAT(foot, Contains("text \"Noise R: \" 7500 13100 size 10 black"));
    EXPECT_THAT(foot, Contains("text \"Field Intensity: \" 1500 12700 size 10 black"));
    EXPECT_THAT(foot, Contains("text \"a comment\" 1500 13700 size 10 black"));
}

TEST(ReportPage, TabStopsStandEveryEightCharacters) {
    EXPECT_EQ(tabsExpanded("\t\ta"), std::string(16, ' ') + "a");
    EXPECT_EQ(tabsExpanded("12345678\tb"), "12345678        b");
    EXPECT_EQ(tabsExpanded("1234567\tb"), "1234567 b");
    EXPECT_EQ(tabsExpanded("é\tb"), "é       b") << "a letter of two bytes is one character";
}

TEST(ReportPage, TakesTheLargestSizeAtWhichItsLongestLineFits) {
    const std::vector<std::string> lines{"\t\t" + std::string(82, '-'), "short"};
    for (const display::Paper& paper : {display::kA4, display::kLetter}) {
        const auto document = composeReportPage(lines, paper, 14);
        ASSERT_THAT(document.pages(), SizeIs(1));
        const auto& marks = document.pages()[0].marks;
        ASSERT_THAT(marks, SizeIs(2));
        const float points = marks[0].font.points;
        EXPECT_LT(points, 14);
        EXPECT_NEAR(98 * display::fixedAdvance(points), paper.width - 1440, 1);
        EXPECT_EQ(marks[1].font.points, points);
        EXPECT_EQ(marks[1].from.y, display::lineHeight(points));
        EXPECT_EQ(marks[0].font.pitch, display::Pitch::Fixed);
    }
}

TEST(ReportPage, IsNoLargerThanItWasAskedFor) {
    const auto document = composeReportPage({"short"}, display::kA4, 14);
    EXPECT_EQ(document.pages()[0].marks[0].font.points, 14);
    EXPECT_THAT(composeReportPage({}, display::kA4, 14).pages()[0].marks, IsEmpty());
}

}  // namespace
}  // namespace hmonitor::test
