// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/day_log.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

Readings hourOnAir(float modulation) {
    Readings r;
    r.peakModulation = modulation;
    r.levelFirst = r.levelSecond = -6;
    r.stereoPhase = 45;
    return r;
}

LocalTime at(int hour, int minute, int second = 0) {
    return {2026, 3, 4, hour, minute, second};
}

TEST(DayLog, WritesAnHoursLineWhenTheNextHourBegins) {
    const TempFolder folder;
    DayLog log(folder.path());
    log.tune(985, at(9, 0));
    for (int minute = 1; minute < 60; ++minute) log.add(hourOnAir(90), 1, 60, at(9, minute));
    EXPECT_FALSE(folder.has("20260304.log"));
    log.add(hourOnAir(95), 1, 60, at(10, 0));
    EXPECT_EQ(folder.read("20260304.log"), "9 90 -6 -6 45 1 59 0 0 0 \r\n");
}

TEST(DayLog, WritesOneLineForEachHourInOrder) {
    const TempFolder folder;
    DayLog log(folder.path());
    log.tune(985, at(8, 30));
    for (int minute = 0; minute < 150; ++minute) {
        log.add(hourOnAir(90), 1, 60, at(8 + (30 + minute) / 60, (30 + minute) % 60));
    }
    log.close();
    EXPECT_EQ(folder.read("20260304.log"),
              "8 90 -6 -6 45 1 30 0 0 0 \r\n"
              "9 90 -6 -6 45 1 60 0 0 0 \r\n"
              "10 90 -6 -6 45 1 60 0 0 0 \r\n");
}

TEST(DayLog, BeginsANewFileAtMidnight) {
    const TempFolder folder;
    DayLog log(folder.path());
    log.tune(985, at(23, 58));
    log.add(hourOnAir(90), 1, 90, at(23, 59, 30));
    log.add(hourOnAir(80), 1, 60, {2026, 3, 5, 0, 0, 30});
    log.add(hourOnAir(80), 1, 60, {2026, 3, 5, 0, 1, 30});
    log.close();
    EXPECT_EQ(folder.read("20260304.log"), "23 90 -6 -6 45 1 1.5 0 0 0 \r\n");
    EXPECT_EQ(folder.read("20260305.log"), "0 80 -6 -6 45 1 2 0 0 0 \r\n");
}

TEST(DayLog, WritesAnUnfinishedHourWhenClosedIfAMinuteWasMeasured) {
    const TempFolder folder;
    DayLog log(folder.path());
    log.tune(985, at(9, 0));
    log.add(hourOnAir(90), 1, 59.9, at(9, 1));
    log.close();
    EXPECT_FALSE(folder.has("20260304.log"));
    log.add(hourOnAir(90), 1, 60, at(9, 3));
    log.close();
    EXPECT_EQ(folder.read("20260304.log"), "9 90 -6 -6 45 1 1 0 0 0 \r\n");
}

TEST(DayLog, AnotherStationGetsALineOfItsOwnHour) {
    const TempFolder folder;
    DayLog log(folder.path());
    log.tune(985, at(9, 0));
    log.add(hourOnAir(90), 1, 120, at(9, 2));
    log.tune(899, at(9, 2));
    log.add(hourOnAir(70), 1, 180, at(9, 5));
    EXPECT_EQ(folder.read("20260304.log"), "9 90 -6 -6 45 1 2 0 0 0 \r\n");
    log.close();
    EXPECT_EQ(folder.read("20260304.log"), "9 70 -6 -6 45 1 3 0 0 0 \r\n");
}

TEST(DayLog, TuningTheSameStationAgainGoesOnWithTheHour) {
    const TempFolder folder;
    DayLog log(folder.path());
    log.tune(985, at(9, 0));
    log.add(hourOnAir(90), 1, 120, at(9, 2));
    log.tune(985, at(9, 10));
    log.add(hourOnAir(70), 1, 120, at(9, 12));
    log.close();
    EXPECT_EQ(folder.read("20260304.log"), "9 90 -6 -6 45 1 4 0 0 0 \r\n");
}

TEST(DayLog, SaysWhatCannotBeWritten) {
    const std::filesystem::path folder = "/no/such/folder";
    DayLog log(folder);
    log.tune(985, at(9, 0));
    log.add(hourOnAir(90), 1, 120, at(9, 2));
    EXPECT_EQ(
        log.add(hourOnAir(90), 1, 1, at(10, 0)),
        (folder / "20260304.log").string() + " cannot be written: No such file or directory.");
}

TEST(DayLog, ALineThatCannotBeWrittenWaitsUntilItCan) {
    const TempFolder folder;
    const auto later = folder.path() / "later";
    DayLog log(later);
    log.tune(985, at(8, 0));
    log.add(hourOnAir(90), 1, 600, at(8, 10));
    EXPECT_NE(log.add(hourOnAir(80), 1, 600, at(9, 10)), std::nullopt);
    EXPECT_NE(log.add(hourOnAir(70), 1, 600, at(10, 10)), std::nullopt);
    std::filesystem::create_directory(later);
    EXPECT_EQ(log.add(hourOnAir(70), 1, 30, at(10, 11)), std::nullopt);
    EXPECT_FALSE(folder.has("later/20260304.log")) << "it was tried half a minute ago";
    EXPECT_EQ(log.add(hourOnAir(70), 1, 30, at(10, 12)), std::nullopt);
    EXPECT_EQ(folder.read("later/20260304.log"),
              "8 90 -6 -6 45 1 10 0 0 0 \r\n9 80 -6 -6 45 1 10 0 0 0 \r\n");
    log.close();
    EXPECT_TRUE(folder.read("later/20260304.log").ends_with("\r\n10 70 -6 -6 45 1 11 0 0 0 \r\n"));
}

TEST(DayLog, AFullDiskOfMonthsKeepsTheNewestMonthOfHours) {
    const TempFolder folder;
    const auto later = folder.path() / "later";
    DayLog log(later);
    log.tune(985, {2026, 1, 1, 0, 0, 0});
    for (int hour = 0; hour < 90 * 24; ++hour) {
        const LocalTime now = localTimeAt(momentOf({2026, 1, 1, hour, 30, 0}));
        log.add(hourOnAir(90), 1, 3600, now);
    }
    std::filesystem::create_directory(later);
    log.close();
    EXPECT_FALSE(folder.has("later/20260228.log"));
    EXPECT_EQ(std::ranges::count(folder.read("later/20260303.log"), '\n'), 24);
    EXPECT_EQ(std::ranges::count(folder.read("later/20260331.log"), '\n'), 24);
}

TEST(DayLog, TheHourThatIsTwiceInAutumnIsOneLine) {
    const TempFolder folder;
    DayLog log(folder.path());
    log.tune(985, {2026, 10, 25, 2, 0, 0});
    for (int minute = 1; minute <= 120; ++minute)
        log.add(hourOnAir(90), 1, 60, {2026, 10, 25, 2, (minute - 1) % 60, 59});
    log.add(hourOnAir(80), 1, 60, {2026, 10, 25, 3, 1, 0});
    log.close();
    EXPECT_EQ(folder.read("20261025.log"),
              "2 90 -6 -6 45 1 120 0 0 0 \r\n3 80 -6 -6 45 1 1 0 0 0 \r\n");
}

TEST(DayLog, AClockSetBackADayLeavesBothDaysWhatWasMeasuredForLonger) {
    const TempFolder folder;
    folder.write("20260303.log", "9 60 -6 -6 45 1 60 0 0 0 \r\n");
    DayLog log(folder.path());
    log.tune(985, at(9, 0));
    log.add(hourOnAir(90), 1, 1800, at(9, 30));
    log.add(hourOnAir(80), 1, 1800, {2026, 3, 3, 9, 59, 0});
    log.add(hourOnAir(70), 1, 1800, {2026, 3, 3, 10, 30, 0});
    log.close();
    EXPECT_EQ(folder.read("20260304.log"), "9 90 -6 -6 45 1 30 0 0 0 \r\n");
    EXPECT_EQ(folder.read("20260303.log"),
              "9 60 -6 -6 45 1 60 0 0 0 \r\n10 70 -6 -6 45 1 30 0 0 0 \r\n");
}

TEST(WithHourLine, AnHourMeasuredForLongerStands) {
    const std::string log = "9 90 -6 -6 45 1 50 0 0 0 \r\n";
    EXPECT_EQ(withHourLine(log, "9 70 -6 -6 45 1 10 0 0 0 "), log);
    EXPECT_EQ(withHourLine(log, "9 70 -6 -6 45 1 50 0 0 0 "), "9 70 -6 -6 45 1 50 0 0 0 \r\n");
}

TEST(WithHourLine, PutsHoursInOrderAndTakesBothFormsOfAnHour) {
    EXPECT_EQ(
        withHourLine("11 1 1 1 1 1 1 1 1 1 \n02 2 2 2 2 2 2 2 2 2 \r\n", "9 3 3 3 3 3 3 3 3 3 "),
        "02 2 2 2 2 2 2 2 2 2 \r\n9 3 3 3 3 3 3 3 3 3 \r\n11 1 1 1 1 1 1 1 1 1 \r\n");
}

TEST(WithHourLine, DropsWhatIsNoLineOfAnHour) {
    EXPECT_EQ(
        withHourLine("\r\nhello\r\n24 1 \r\n-1 2 \r\n100 3 \r\n5\r\n", "5 3 3 3 3 3 3 3 3 3 "),
        "5 3 3 3 3 3 3 3 3 3 \r\n");
}

TEST(WithHourLine, NeverHoldsMoreThanTwentyFourLines) {
    std::string log;
    for (int hour = 0; hour < 30; ++hour) {
        log = withHourLine(log, std::to_string(hour) + " 1 1 1 1 1 1 1 1 1 ");
    }
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 24);
}

TEST(WithHourLine, KeepsTheOtherHoursOfALogCutAtEveryLength) {
    const std::string log = "1 90 -6 -6 45 1 50 0 0 0 \r\n2 80 -6 -6 45 1 50 0 0 0 \r\n";
    for (std::size_t length = 0; length <= log.size(); ++length) {
        const std::string text = withHourLine(log.substr(0, length), "3 1 1 1 1 1 60 1 1 1 ");
        EXPECT_TRUE(text.ends_with("3 1 1 1 1 1 60 1 1 1 \r\n")) << length;
        EXPECT_EQ(text.starts_with("1 90 -6 -6 45 1 50 0 0 0 \r\n"), length >= 25) << length;
    }
}

}  // namespace
}  // namespace hm16
