// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "history/query.h"
#include "tests/history/feed.h"

namespace history::test {
namespace {

struct StoreTest : testing::Test {
    Zone zone{"UTC"};
    TempFolder temp;
    std::filesystem::path folder = temp.path() / "history";
    std::int64_t begin = utc(2026, 5, 4, 12);

    std::int64_t inDay(const std::string& day, const std::string& sql) {
        Database database(folder / (day + ".hm16day"), Access::Read);
        return database.number(sql);
    }
    std::int64_t inIndex(const std::string& sql) {
        Database database(folder / "index.sqlite", Access::Read);
        return database.number(sql);
    }
    std::vector<Band> seconds(std::int64_t from, int count, std::string_view key = "field") {
        return Query(folder).bands(
            {kStation, indexOf(key), from * 1000, (from + count) * 1000, count});
    }
    int knownSeconds(std::int64_t from, int count) {
        int known = 0;
        for (const Band& band : seconds(from, count)) known += band.knownMs == 1000;
        return known;
    }
};

TEST_F(StoreTest, MakesAFolderThatIsTheUsersAlone) {
    Feed feed(folder, begin);
    struct stat status = {};
    ::stat(folder.c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST_F(StoreTest, EachCommitAddsARowASecondAndTheClosedMinuteBecomesOneBlock) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(50);
    EXPECT_EQ(inDay("2026-05-04", "SELECT count(*) FROM tail"), 49);
    EXPECT_EQ(inDay("2026-05-04", "SELECT count(*) FROM second"), 0);
    feed.run(20);
    EXPECT_EQ(inDay("2026-05-04", "SELECT count(*) FROM tail"), 9);
    EXPECT_EQ(inDay("2026-05-04", "SELECT count(*) FROM second"), 1);
    EXPECT_EQ(inDay("2026-05-04", "SELECT n FROM second"), 60);
    EXPECT_EQ(inDay("2026-05-04", "SELECT length(data)>100 FROM second"), 1);
    EXPECT_EQ(inIndex("SELECT count(*) FROM span WHERE step=60"), 1);
    EXPECT_EQ(knownSeconds(begin, 69), 69);
}

TEST_F(StoreTest, FilesSayWhatTheyAre) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(10);
    EXPECT_EQ(inDay("2026-05-04", "PRAGMA application_id"), 0x484D3136);
    EXPECT_EQ(inDay("2026-05-04", "PRAGMA user_version"), 1);
    EXPECT_EQ(inIndex("PRAGMA application_id"), 0x484D3136);
    EXPECT_EQ(inIndex("PRAGMA user_version"), 1);
    EXPECT_EQ(inDay("2026-05-04", "SELECT count(*) FROM figure"),
              static_cast<std::int64_t>(figures::all().size()));
    Database database(folder / "2026-05-04.hm16day", Access::Read);
    Statement mode(database, "PRAGMA journal_mode");
    ASSERT_TRUE(mode.step());
    EXPECT_EQ(mode.bytes(0), "wal");
}

TEST_F(StoreTest, IsFlushedWithEachCommitUnlessToldOtherwise) {
    Database database(temp.path() / "full.hm16day", Access::Write);
    prepareDay(database, Flush::Full);
    EXPECT_EQ(database.number("PRAGMA synchronous"), 2);
}

TEST_F(StoreTest, EachDayHasAFileAndTheOneThatIsOverHasNoJournal) {
    begin = utc(2026, 5, 4, 23, 58);
    Feed feed(folder, begin);
    feed.tune();
    feed.run(240);
    EXPECT_EQ(inDay("2026-05-04", "SELECT sum(n) FROM second"), 120);
    EXPECT_EQ(inDay("2026-05-04", "SELECT count(*) FROM tail"), 0);
    EXPECT_FALSE(std::filesystem::exists(folder / "2026-05-04.hm16day-wal"));
    EXPECT_GT(inDay("2026-05-05", "SELECT sum(n) FROM second"), 0);
    EXPECT_EQ(knownSeconds(begin, 239), 239);
    EXPECT_EQ(inIndex("SELECT count(*) FROM span WHERE step=86400"), 1);
    EXPECT_EQ(inIndex("SELECT count(*) FROM span WHERE step=3600"), 1);
}

TEST_F(StoreTest, DaysAreThoseOfTheMachinesZone) {
    const Zone madrid("Europe/Madrid");
    begin = utc(2026, 3, 28, 22, 59);
    Feed feed(folder, begin);
    feed.tune();
    feed.run(120);
    EXPECT_EQ(inDay("2026-03-28", "SELECT max(minute)+60 FROM second"), utc(2026, 3, 28, 23));
    EXPECT_TRUE(std::filesystem::exists(folder / "2026-03-29.hm16day"));
    feed.now = utc(2026, 3, 29, 22, 0, 5);
    feed.tune();
    feed.run(70);
    Database database(folder / "index.sqlite", Access::Read);
    Statement row(database, "SELECT t,data FROM span WHERE step=86400 ORDER BY t DESC");
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.number(0), utc(2026, 3, 28, 23));
    EXPECT_EQ(SpanBlock::open(row.bytes(1))->seconds(), 23 * 3600);
}

TEST_F(StoreTest, ARunGoesOnWhereTheLastOneWasEnded) {
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(95);  // then killed
    }
    Feed feed(folder, begin + 100);
    feed.tune();
    feed.run(50);
    EXPECT_EQ(feed.recording.epoch(), 0);
    EXPECT_EQ(knownSeconds(begin, 150), 94 + 49);
    EXPECT_EQ(
        inDay("2026-05-04", "SELECT n FROM second WHERE minute=" + std::to_string(begin + 60)),
        34 + 20);
}

TEST_F(StoreTest, ATimeThatWasToldAlreadyBeginsAnEpochAndNothingIsOverwritten) {
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(120);
    }
    Feed feed(folder, begin - 30);  // the clock was set back while the program was away
    EXPECT_EQ(feed.recording.epoch(), 1);
    feed.series = [](std::int64_t) {
        Outputs outputs;
        outputs.fill(50);
        return outputs;
    };
    feed.tune();
    feed.run(120);
    const auto both = seconds(begin, 1);
    EXPECT_EQ(both[0].knownMs, 2000);
    EXPECT_EQ(both[0].lowest, 16);
    EXPECT_EQ(both[0].highest, 50);
    EXPECT_EQ(inDay("2026-05-04", "SELECT count(DISTINCT epoch) FROM second"), 2);
}

TEST_F(StoreTest, AClockSetForwardAndBackLeavesEverySecond) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(70);
    feed.stepped = 86400;
    feed.run(70);
    feed.stepped = -3600;
    feed.run(70);
    feed.stop();
    // The second in which the clock was set is only partly known.
    EXPECT_EQ(knownSeconds(begin, 70), 69);
    EXPECT_GE(knownSeconds(begin + 86400 + 70, 70), 69);
    EXPECT_GE(knownSeconds(begin - 3600 + 140, 70), 69);
    EXPECT_EQ(inDay("2026-05-04", "SELECT max(epoch) FROM second"), 2);
    EXPECT_EQ(inDay("2026-05-05", "SELECT max(epoch) FROM second"), 1);
    EXPECT_EQ(inIndex("SELECT count(*) FROM event WHERE kind=7"), 2);
}

TEST_F(StoreTest, TwoStationsOfOneMinuteHaveEachItsBlock) {
    Feed feed(folder, begin);
    feed.tune(kStation);
    feed.run(20);
    feed.tune(90000);
    feed.run(20);
    feed.tune(kStation);
    feed.run(40);
    EXPECT_EQ(inDay("2026-05-04", "SELECT n FROM second WHERE station=98500"), 40);
    EXPECT_EQ(inDay("2026-05-04", "SELECT n FROM second WHERE station=90000"), 20);
    EXPECT_THAT(Query(folder).stations(), testing::ElementsAre(90000, 98500));
}

TEST_F(StoreTest, AnIndexThatIsLostIsMadeAnewFromTheDays) {
    begin = utc(2026, 5, 4, 22, 58);
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(3900, 60);  // across a full hour and a midnight
        feed.stop();
    }
    const auto indexRows = [this] {
        std::vector<std::string> rows;
        Database database(folder / "index.sqlite", Access::Read);
        Statement all(database, "SELECT step,t,data FROM span ORDER BY station,step,t,epoch");
        while (all.step()) {
            rows.push_back(std::to_string(all.number(0)) + " " + std::to_string(all.number(1)) +
                           std::string(all.bytes(2)));
        }
        Statement events(database, "SELECT t,kind FROM event ORDER BY t,kind");
        while (events.step()) rows.push_back(std::to_string(events.number(0)));
        return rows;
    };
    const auto before = indexRows();
    EXPECT_GT(before.size(), 65u);
    for (const char* name : {"index.sqlite", "index.sqlite-wal", "index.sqlite-shm"}) {
        std::filesystem::remove(folder / name);
    }
    {
        Store store(Feed::settingsFor(folder, nullptr));
        store.open(begin + 3900);
        store.commit(begin + 3900);
    }
    EXPECT_EQ(indexRows(), before);
}

TEST_F(StoreTest, AnIndexWhoseMakingAnewWasCutShortIsMadeToItsEnd) {
    constexpr std::int64_t kBetween = 4 * 86400;
    recordDaysApart(folder, begin, 4, kBetween);
    std::filesystem::remove(folder / "index.sqlite");
    const std::int64_t later = begin + 4 * kBetween;
    {
        Store ended(Feed::settingsFor(folder, nullptr));
        ended.open(later);
    }
    Store store(Feed::settingsFor(folder, nullptr));
    store.open(later);
    store.commit(later);
    EXPECT_EQ(inIndex("SELECT count(*) FROM span WHERE step=60"), 8);
    EXPECT_EQ(inIndex("SELECT count(*) FROM span WHERE step=3600"), 4);
    EXPECT_EQ(inIndex("SELECT count(*) FROM span WHERE step=86400"), 4);
}

TEST_F(StoreTest, MinutesThatTheIndexMissesAreMadeAtTheNextStart) {
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(200);
    }
    {
        Database database(folder / "index.sqlite", Access::Write);
        database.run("DELETE FROM span WHERE t>" + std::to_string(begin));
        database.run("DELETE FROM event");
    }
    Store store(Feed::settingsFor(folder, nullptr));
    store.open(begin + 200);
    EXPECT_EQ(inIndex("SELECT count(*) FROM span WHERE step=60"), 4);
    EXPECT_EQ(inIndex("SELECT count(*) FROM event"), 1);
}

TEST_F(StoreTest, ASecondRecorderLooksOn) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(30);
    const auto link = temp.path() / "other";
    std::filesystem::create_directory_symlink(folder, link);
    Feed second(link, begin);
    EXPECT_EQ(second.store.status().state, StoreStatus::State::LookingOn);
    second.tune(90000);
    second.run(30);
    EXPECT_EQ(inDay("2026-05-04", "SELECT count(*) FROM tail WHERE station=90000"), 0);
    EXPECT_GE(Query(link).bands({kStation, 0, begin * 1000, (begin + 20) * 1000, 1})[0].knownMs,
              20000);
}

}  // namespace
}  // namespace history::test
