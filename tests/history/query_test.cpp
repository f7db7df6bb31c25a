// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/query.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/history/feed.h"

namespace history::test {
namespace {

struct QueryTest : testing::Test {
    Zone zone{"UTC"};
    TempFolder temp;
    std::filesystem::path folder = temp.path() / "history";
    std::int64_t begin = utc(2026, 5, 4, 12);

    std::vector<Band> bands(std::string_view key, std::int64_t from, std::int64_t to,
                            int columns) const {
        return Query(folder).bands({kStation, indexOf(key), from * 1000, to * 1000, columns});
    }
};

TEST_F(QueryTest, StepsAreNoLongerThanAColumn) {
    EXPECT_EQ(stepFor(0.01), Step::Second);
    EXPECT_EQ(stepFor(59.9), Step::Second);
    EXPECT_EQ(stepFor(60), Step::Minute);
    EXPECT_EQ(stepFor(3600), Step::Hour);
    EXPECT_EQ(stepFor(86400), Step::Day);
    EXPECT_EQ(stepFor(1e7), Step::Day);
}

TEST_F(QueryTest, TellsSinceWhenAStationIsThere) {
    EXPECT_FALSE(Query(folder).begin(kStation));
    {
        Feed feed(folder, begin + 30);
        feed.tune();
        feed.run(100);
        feed.stop();
    }
    EXPECT_EQ(Query(folder).begin(kStation), begin) << "the begin of its first minute";
    EXPECT_FALSE(Query(folder).begin(88000));
    std::filesystem::remove(folder / "index.sqlite");
    EXPECT_EQ(Query(folder).begin(kStation), utc(2026, 5, 4)) << "the begin of its first day";
    EXPECT_FALSE(Query(folder).begin(88000));
}

TEST_F(QueryTest, ADayIsNotSpreadOverTheHoursBeforeItsFirst) {
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(2 * 3600, 600);
        feed.stop();
    }
    {
        Feed next(folder, begin + 86400);
        next.tune();
        next.run(60);
        next.stop();
    }
    const auto some = bands("field", begin - 3600, begin + 3600, 120);
    EXPECT_EQ(some[10].knownMs, 0);
    EXPECT_EQ(some[10].cause, kNotRecorded);
    EXPECT_NEAR(some[70].knownMs, 60000, 1);
}

TEST_F(QueryTest, BandsHaveLowestMeanAndHighest) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(120);
    feed.stop();
    // The pilot rises from 9.00 to 9.59 in each minute.
    const auto one = bands("pilot_level", begin, begin + 120, 4);
    ASSERT_EQ(one.size(), 4u);
    EXPECT_FLOAT_EQ(one[1].lowest, 9.3f);
    EXPECT_FLOAT_EQ(one[1].highest, 9.59f);
    EXPECT_NEAR(one[1].mean, 9.445, 1e-4);
    EXPECT_NEAR(one[1].knownMs, 30000, 0.01);
    EXPECT_EQ(one[1].cause, State::Known);
    const auto minute = bands("pilot_level", begin, begin + 120, 2);
    EXPECT_FLOAT_EQ(minute[0].lowest, 9.f);
    EXPECT_NEAR(minute[0].mean, 9.295, 1e-4);
}

TEST_F(QueryTest, TimeThatNobodyRecordedIsTold) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(30);
    feed.stop();
    const auto some = bands("field", begin - 10, begin + 40, 5);
    EXPECT_EQ(some[0].cause, kNotRecorded);
    EXPECT_EQ(some[0].knownMs, 0);
    EXPECT_EQ(some[1].cause, State::Known);
    EXPECT_EQ(some[4].cause, kNotRecorded);
}

TEST_F(QueryTest, UnknownTimeHasItsCause) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(10);
    feed.take(Inputs::at(0, Input::What::Halted));
    feed.now += 20;
    feed.tune();
    feed.run(30);
    feed.stop();
    const auto some = bands("field", begin, begin + 60, 6);
    EXPECT_EQ(some[0].cause, State::Known);
    EXPECT_EQ(some[1].cause, State::UnitAway);
    EXPECT_EQ(some[1].knownMs, 0);
    EXPECT_EQ(some[4].cause, State::Known);
    EXPECT_EQ(bands("field", begin, begin + 60, 1)[0].cause, State::UnitAway);
    EXPECT_EQ(bands("level_sum", begin, begin + 60, 1)[0].cause, State::NotMeasured);
}

TEST_F(QueryTest, EachZoomTellsTheSameKnownTime) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(3 * 3600, 60);
    feed.stop();
    for (const int columns : {1, 2, 12, 180, 1200}) {
        double known = 0;
        double lowest = 1e9;
        double highest = 0;
        double mean = 0;
        for (const Band& band : bands("pilot_level", begin, begin + 3 * 3600, columns)) {
            known += band.knownMs;
            if (band.knownMs == 0) continue;
            lowest = std::min(lowest, static_cast<double>(band.lowest));
            highest = std::max(highest, static_cast<double>(band.highest));
            mean += static_cast<double>(band.mean) * band.knownMs;
        }
        EXPECT_NEAR(known, 3 * 3600 * 1000, 1) << columns;
        EXPECT_NEAR(lowest, 9, 1e-4) << columns;
        EXPECT_NEAR(highest, 9.59, 1e-4) << columns;
        EXPECT_NEAR(mean / known, 9.295, 1e-3) << columns;
    }
}

TEST_F(QueryTest, WhatIsNotSummedUpYetIsReadFromFinerRows) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(3700);  // an hour, a minute and some seconds, and still recording
    const auto days = bands("field", begin - 86400 * 50, begin + 86400 * 50, 100);
    double known = 0;
    for (const Band& band : days) known += band.knownMs;
    EXPECT_NEAR(known, 3699 * 1000, 10);
}

TEST_F(QueryTest, WhereSecondsAreGoneMinutesAnswerAndThenHours) {
    begin = utc(2026, 5, 3, 22);
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(3 * 3600, 60);
        feed.stop();
    }
    std::filesystem::remove(folder / "2026-05-03.hm16day");
    const auto some = bands("pilot_level", begin, begin + 3600, 3600);
    EXPECT_NEAR(some[1800].knownMs, 1000, 1);
    EXPECT_FLOAT_EQ(some[1800].lowest, 9);
    EXPECT_FLOAT_EQ(some[1800].highest, 9.59f);
    {
        Database index(folder / "index.sqlite", Access::Write);
        index.run("DELETE FROM span WHERE step=60 AND t<" + std::to_string(begin + 7200));
    }
    const auto hours = bands("pilot_level", begin, begin + 3600, 60);
    EXPECT_NEAR(hours[30].knownMs, 60000, 10);
    EXPECT_NEAR(hours[30].mean, 9.295, 1e-3);
}

TEST_F(QueryTest, FiguresAskedTogetherAreAsEachAlone) {
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(300, 60);
        feed.stop();
    }
    AskedTogether asked{kStation, {}, (begin - 60) * 1000, (begin + 300) * 1000, 0};
    for (std::size_t i = figureCount(); i > 0; --i) asked.figures.push_back(i - 1);
    for (const int columns : {360, 6}) {
        asked.columns = columns;
        const auto together = Query(folder).bands(asked);
        ASSERT_EQ(together.size(), figureCount());
        for (std::size_t i = 0; i < together.size(); ++i) {
            const auto alone = Query(folder).bands(
                {kStation, asked.figures[i], asked.fromMs, asked.toMs, columns});
            ASSERT_EQ(together[i].size(), alone.size());
            for (std::size_t c = 0; c < alone.size(); ++c) {
                EXPECT_EQ(together[i][c].mean, alone[c].mean) << i << " " << c;
                EXPECT_EQ(together[i][c].highest, alone[c].highest) << i << " " << c;
                EXPECT_EQ(together[i][c].knownMs, alone[c].knownMs) << i << " " << c;
                EXPECT_EQ(together[i][c].cause, alone[c].cause) << i << " " << c;
            }
        }
    }
    asked.figures = {0, figureCount()};
    EXPECT_TRUE(Query(folder).bands(asked).at(0).empty()) << "no such figure";
}

TEST_F(QueryTest, AngleBandsGoByTheDoubledAngle) {
    Feed feed(folder, begin);
    feed.series = [](std::int64_t t) {
        Outputs outputs{};
        outputs[5] = t % 2 ? 179 : 3;
        return outputs;
    };
    feed.tune();
    feed.run(3600, 60);
    feed.stop();
    for (const int columns : {1, 60, 120}) {
        const Band band = bands("stereo_phase", begin, begin + 3600, columns)[0];
        EXPECT_NEAR(band.mean, 1, 0.01) << columns;
        EXPECT_NEAR(band.lowest, -1, 0.01) << columns;
        EXPECT_NEAR(band.highest, 3, 0.01) << columns;
    }
}

TEST_F(QueryTest, TheMarkHasEveryFigure) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(90);
    const auto second = Query(folder).at(kStation, begin + 65);
    ASSERT_TRUE(second[indexOf("field")]);
    EXPECT_EQ(second[indexOf("field")]->step, Step::Second);
    EXPECT_FLOAT_EQ(second[indexOf("field")]->value.mean, 16.05f);
    EXPECT_EQ(second[indexOf("level_sum")]->value.knownMs, 0u);
    EXPECT_FALSE(Query(folder).at(kStation, begin - 5)[0]);
    EXPECT_FALSE(Query(folder).at(90000, begin + 65)[0]);
    feed.stop();
    std::filesystem::remove(folder / "2026-05-04.hm16day");
    EXPECT_EQ(Query(folder).at(kStation, begin + 5)[indexOf("field")]->step, Step::Minute);
}

TEST_F(QueryTest, EventsStandInTheOrderOfTime) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(10);
    feed.tune(90000);
    feed.run(10);
    feed.stop();
    const auto events = Query(folder).events(begin, begin + 3600);
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[1].station, 90000);
    EXPECT_EQ(events[2].kind, EventKind::Stop);
    EXPECT_TRUE(Query(folder).events(begin + 1, begin + 2).empty());
}

TEST_F(QueryTest, ADayThatCannotBeLookedForIsAHole) {
    std::filesystem::create_directories(folder);
    std::filesystem::create_symlink("2026-05-04.hm16day", folder / "2026-05-04.hm16day");
    const auto some = bands("field", begin, begin + 10, 10);
    EXPECT_EQ(some.at(0).knownMs, 0);
    EXPECT_EQ(some.at(0).cause, kNotRecorded);
}

TEST_F(QueryTest, AFolderWithoutHistoryTellsNothing) {
    EXPECT_TRUE(Query(folder).stations().empty());
    EXPECT_TRUE(Query(folder).events(0, begin).empty());
    EXPECT_EQ(bands("field", begin, begin + 10, 2)[0].cause, kNotRecorded);
    EXPECT_TRUE(bands("field", begin, begin, 2).empty());
    EXPECT_TRUE(bands("field", begin, begin + 10, 0).empty());
}

}  // namespace
}  // namespace history::test
