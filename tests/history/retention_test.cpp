// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/retention.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/history/feed.h"

namespace history::test {
namespace {

using testing::ElementsAre;

struct RetentionTest : testing::Test {
    Zone zone{"UTC"};
    TempFolder temp;
    std::int64_t now = utc(2026, 6, 15, 12);
    std::uint64_t free = 5'000'000'000;
    Retention retention;

    RetentionTest() {
        retention.freeBytes = [this](const auto&) { return free; };
    }
    void file(const std::string& name, std::size_t size = 1000) {
        temp.write(name, std::string(size, 'x'));
    }
    bool thin() { return thinOut(temp.path(), retention, now, nullptr); }
};

TEST_F(RetentionTest, SecondsStayForThirtyFiveDays) {
    for (const char* day : {"2026-05-10", "2026-05-11", "2026-06-15"}) {
        file(std::string(day) + ".hm16day");
    }
    file("2026-05-10.1.damaged");
    file("2026-05-10.hm16day-wal");
    file("notes.txt");
    EXPECT_FALSE(thin());
    EXPECT_THAT(temp.names(), ElementsAre("2026-05-11.hm16day", "2026-06-15.hm16day", "notes.txt"));
}

TEST_F(RetentionTest, WhatWasSetAsideGoesWithItsDayThoughNothingElseIsLeftOfIt) {
    file("2026-05-10.1.damaged");
    file("2026-05-10.1.damaged-wal");
    file("2026-05-11.1.damaged");
    file("2026-05-09.txt");
    thin();
    EXPECT_THAT(temp.names(), ElementsAre("2026-05-09.txt", "2026-05-11.1.damaged"));
    file("2026-06-15.hm16day");
    retention.budgetBytes = 2000;
    thin();
    EXPECT_THAT(temp.names(), ElementsAre("2026-05-09.txt", "2026-06-15.hm16day"));
}

TEST_F(RetentionTest, AnIndexThatWasSetAsideGoesAfterThirtyFiveDays) {
    const auto written = [&](const char* name, int days) {
        file(name);
        const auto at = std::chrono::sys_seconds(std::chrono::seconds(now - days * 86400));
        std::filesystem::last_write_time(temp.path() / name, std::chrono::file_clock::from_sys(at));
    };
    written("index.1.damaged", 36);
    written("index.1.damaged-wal", 36);
    written("index.2.damaged", 34);
    written("index.sqlite", 36);
    thin();
    EXPECT_THAT(temp.names(), ElementsAre("index.2.damaged", "index.sqlite"));
}

TEST_F(RetentionTest, ABudgetIsObeyedBeforeADateAndTodayStays) {
    retention.budgetBytes = 2500;
    for (const char* day : {"2026-06-12", "2026-06-13", "2026-06-14", "2026-06-15"}) {
        file(std::string(day) + ".hm16day");
    }
    thin();
    EXPECT_THAT(temp.names(), ElementsAre("2026-06-14.hm16day", "2026-06-15.hm16day"));
    retention.budgetBytes = 1;
    thin();
    EXPECT_THAT(temp.names(), ElementsAre("2026-06-15.hm16day"));
}

TEST_F(RetentionTest, WithLittleRoomOnTheDiskOldSecondsGoAndItSaysSo) {
    for (const char* day : {"2026-06-12", "2026-06-13", "2026-06-14", "2026-06-15"}) {
        file(std::string(day) + ".hm16day");
    }
    free = 999'999'999;
    EXPECT_TRUE(thin());
    EXPECT_THAT(temp.names(), ElementsAre("2026-06-14.hm16day", "2026-06-15.hm16day"));
}

TEST_F(RetentionTest, RoomThatIsEnoughEndsTheThinning) {
    for (const char* day : {"2026-06-10", "2026-06-11", "2026-06-12"}) {
        file(std::string(day) + ".hm16day");
    }
    retention.freeBytes = [this](const auto&) {
        return temp.has("2026-06-10.hm16day") ? 1ull : 2'000'000'000ull;
    };
    EXPECT_FALSE(thin());
    EXPECT_THAT(temp.names(), ElementsAre("2026-06-11.hm16day", "2026-06-12.hm16day"));
}

TEST_F(RetentionTest, MinutesStayForTwoYearsHoursForEver) {
    const auto path = temp.path() / "index.sqlite";
    IndexFile index(path, Flush::Off, nullptr);
    std::vector<IndexFile::StepSpan> spans;
    for (const std::int64_t day : {0, 729, 731}) {
        for (const std::int64_t step : {kMinute, kHour, kDayStep}) {
            Span span;
            span.t = now - day * 86400;
            span.seconds = step;
            span.station = kStation;
            spans.push_back({step, span});
        }
    }
    index.keep(spans, {});
    thinOut(temp.path(), retention, now, &index);
    EXPECT_EQ(index.rows().first(kStation, kMinute), now - 729 * 86400);
    EXPECT_EQ(index.rows().first(kStation, kHour), now - 731 * 86400);
    EXPECT_EQ(index.rows().first(kStation, kDayStep), now - 731 * 86400);
    retention.budgetBytes = 1;
    thinOut(temp.path(), retention, now, &index);
    EXPECT_EQ(index.rows().first(kStation, kMinute), now);
    EXPECT_EQ(index.rows().first(kStation, kHour), now - 731 * 86400);
}

}  // namespace
}  // namespace history::test
