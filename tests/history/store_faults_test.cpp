// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <fstream>

#include "history/query.h"
#include "tests/history/feed.h"
#include "tests/history/watched_disk.h"

namespace history::test {
namespace {

using State_ = StoreStatus::State;

struct StoreFaults : testing::Test {
    Zone zone{"UTC"};
    TempFolder temp;
    std::filesystem::path folder = temp.path() / "history";
    std::int64_t begin = utc(2026, 5, 4, 12);

    int knownSeconds(std::int64_t from, int count) {
        int known = 0;
        for (const Band& band : Query(folder).bands(
                 {kStation, indexOf("field"), from * 1000, (from + count) * 1000, count})) {
            known += band.knownMs == 1000;
        }
        return known;
    }
    bool has(const std::string& name) { return std::filesystem::exists(folder / name); }
    void spoil(const std::string& name, std::streamoff at, std::size_t size) {
        std::fstream file(folder / name, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(at);
        file << std::string(size, '\xA5');
    }
};

TEST_F(StoreFaults, ADiskThatIsFullAtAnyWriteLosesNothingOnceThereIsRoom) {
    int writes = 0;
    int failing = -1;
    WatchedDisk disk([&](const DiskStep& step) {
        if (step.what != DiskStep::What::Write) return SQLITE_OK;
        // From one write on the disk is full, for ten seconds of commits.
        return ++writes > failing && failing >= 0 ? SQLITE_FULL : SQLITE_OK;
    });
    const auto run = [&](int from, const std::filesystem::path& in) {
        writes = 0;
        failing = from;
        Feed feed(in, begin, WatchedDisk::kName);
        feed.tune();
        feed.run(65);
        const bool failed = feed.store.status().state == State_::Failing;
        failing = -1;
        feed.run(70);
        feed.stop();
        EXPECT_EQ(feed.store.status().state, State_::Recording) << from;
        EXPECT_EQ(feed.store.status().lostSeconds, 0) << from;
        return failed;
    };
    run(-1, folder / "whole");
    const int all = writes;
    ASSERT_GT(all, 60);
    int failed = 0;
    // scripts/history_crashes has it full at each.
    const int step = std::getenv("HMONITOR_HISTORY_CRASHES") ? 1 : 1 + all / 40;
    for (int from = 0; from < all; from += step) {
        folder = temp.path() / ("full" + std::to_string(from));
        failed += run(from, folder);
        EXPECT_EQ(knownSeconds(begin, 135), 135) << from;
    }
    EXPECT_GT(failed, 10);
}

TEST_F(StoreFaults, ADiskThatIsFullForLongLosesTheOldestSecondsAndTellsSo) {
    bool isFull = false;
    WatchedDisk disk([&](const DiskStep& step) {
        return isFull && step.what == DiskStep::What::Write ? SQLITE_FULL : SQLITE_OK;
    });
    Feed feed(folder, begin, WatchedDisk::kName);
    feed.tune();
    feed.run(60);
    isFull = true;
    feed.run(900);
    EXPECT_EQ(feed.store.status().state, State_::Failing);
    EXPECT_EQ(feed.store.status().file, "2026-05-04.hm16day");
    EXPECT_NE(feed.store.status().reason, "");
    EXPECT_NEAR(static_cast<double>(feed.store.status().lostSeconds), 300, 6);
    isFull = false;
    feed.run(60);
    feed.stop();
    EXPECT_NEAR(knownSeconds(begin, 1020), 720, 6);
    EXPECT_EQ(feed.store.status().state, State_::Recording);
    bool told = false;
    for (const Event& event : Query(folder).events(begin, begin + 2000)) {
        told |= event.kind == EventKind::Lost;
    }
    EXPECT_TRUE(told);
}

TEST_F(StoreFaults, AFolderThatIsReadOnlyWaitsUntilItIsNot) {
    std::filesystem::create_directories(folder);
    std::filesystem::permissions(temp.path(), std::filesystem::perms::all);
    int failing = 0;
    WatchedDisk disk([&](const DiskStep& step) {
        return failing && step.what == DiskStep::What::Open ? SQLITE_READONLY : SQLITE_OK;
    });
    failing = 1;
    Feed feed(folder, begin, WatchedDisk::kName);
    EXPECT_EQ(feed.store.status().state, State_::Failing);
    feed.tune();
    feed.run(40);
    failing = 0;
    feed.run(30);
    EXPECT_EQ(feed.store.status().state, State_::Recording);
    EXPECT_EQ(knownSeconds(begin, 69), 69);
}

TEST_F(StoreFaults, AFolderThatCannotBeMadeIsToldAndNothingEnds) {
    temp.write("history", "a file stands in its place");
    Feed feed(folder, begin);
    EXPECT_EQ(feed.store.status().state, State_::Failing);
    EXPECT_EQ(feed.store.status().file, "history");
    feed.tune();
    feed.run(30);
}

TEST_F(StoreFaults, ADayThatIsDamagedInTheMiddleIsSetAsideAndANewOneBegun) {
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(1200, 60);
        feed.stop();
    }
    std::int64_t rooted = 0;
    {
        Database day(folder / "2026-05-04.hm16day", Access::Write);
        rooted = day.number("SELECT rootpage FROM sqlite_schema WHERE name='second'");
        day.run("PRAGMA journal_mode=DELETE");
    }
    spoil("2026-05-04.hm16day", (rooted - 1) * 4096, 4096);
    Feed feed(folder, begin + 1200);
    feed.tune();
    feed.run(130);
    EXPECT_TRUE(has("2026-05-04.1.damaged"));
    EXPECT_EQ(feed.store.status().setAside, "2026-05-04.hm16day");
    EXPECT_EQ(feed.store.status().state, State_::Recording);
    EXPECT_EQ(knownSeconds(begin + 1200, 129), 129);
    // Its minutes are in the index.
    const auto minutes =
        Query(folder).bands({kStation, indexOf("field"), begin * 1000, (begin + 1200) * 1000, 20});
    for (const Band& band : minutes) EXPECT_EQ(band.knownMs, 60000);
    bool told = false;
    for (const Event& event : Query(folder).events(begin, begin + 2000)) {
        told |= event.kind == EventKind::Damaged && event.text == "2026-05-04.hm16day";
    }
    EXPECT_TRUE(told);
}

TEST_F(StoreFaults, ADayThatIsRemovedWhileItIsWrittenIsBegunAnew) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(60);
    for (const char* beside : {"", "-wal", "-shm"}) {
        std::filesystem::remove(folder / (std::string("2026-05-04.hm16day") + beside));
    }
    feed.run(60);
    EXPECT_EQ(feed.store.status().state, State_::Recording);
    EXPECT_EQ(knownSeconds(begin + 60, 59), 59);
}

TEST_F(StoreFaults, AFolderThatIsRemovedWhileItIsWrittenIsMadeAnew) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(60);
    std::filesystem::remove_all(folder);
    feed.run(120);
    EXPECT_EQ(feed.store.status().state, State_::Recording);
    EXPECT_EQ(knownSeconds(begin + 60, 119), 119);
    Database index(folder / "index.sqlite", Access::Read);
    EXPECT_GE(index.number("SELECT count(*) FROM span WHERE step=60"), 1);
    Feed second(folder, begin + 180);
    EXPECT_EQ(second.store.status().state, State_::LookingOn) << "the new one is locked too";
}

TEST_F(StoreFaults, ABlockThatIsDamagedIsAGapAndTheOthersStand) {
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(300, 60);
        feed.stop();
    }
    {
        Database day(folder / "2026-05-04.hm16day", Access::Write);
        day.run("UPDATE second SET crc=crc+1 WHERE minute=" + std::to_string(begin + 60));
    }
    EXPECT_EQ(knownSeconds(begin, 300), 240);
    const auto bands = Query(folder).bands(
        {kStation, indexOf("field"), (begin + 60) * 1000, (begin + 120) * 1000, 60});
    for (const Band& band : bands) EXPECT_EQ(band.cause, State::Gap);
}

TEST_F(StoreFaults, AnIndexThatIsDamagedIsSetAsideAndMadeAnew) {
    {
        Feed feed(folder, begin);
        feed.tune();
        feed.run(300, 60);
        feed.stop();
    }
    std::ofstream(folder / "index.sqlite", std::ios::binary) << std::string(20000, 'x');
    Feed feed(folder, begin + 300);
    EXPECT_EQ(feed.store.status().setAside, "index.sqlite");
    EXPECT_TRUE(has("index.1.damaged"));
    const auto minutes =
        Query(folder).bands({kStation, indexOf("field"), begin * 1000, (begin + 300) * 1000, 5});
    for (const Band& band : minutes) EXPECT_EQ(band.knownMs, 60000);
}

TEST_F(StoreFaults, AnIndexThatIsDamagedWhileItIsWrittenIsMadeAnewToo) {
    Feed feed(folder, begin);
    feed.tune();
    feed.run(130);
    {
        Database index(folder / "index.sqlite", Access::Write);
        index.run("DROP TABLE span");
    }
    feed.run(130);
    feed.stop();
    EXPECT_EQ(feed.store.status().setAside, "index.sqlite");
    const auto minutes =
        Query(folder).bands({kStation, indexOf("field"), begin * 1000, (begin + 240) * 1000, 4});
    for (const Band& band : minutes) EXPECT_EQ(band.knownMs, 60000);
}

TEST_F(StoreFaults, AnIndexThatIsDamagedInTheMiddleIsMadeAnewAtOnceAndCostsNoDay) {
    for (const char* table : {"span", "station", "event"}) {
        folder = temp.path() / table;
        const std::int64_t between = 4 * 86400;
        recordDaysApart(folder, begin, 3, between);
        std::int64_t rooted = 0;
        {
            Database index(folder / "index.sqlite", Access::Write);
            rooted = index.number("SELECT rootpage FROM sqlite_schema WHERE name='" +
                                  std::string(table) + "'");
            index.run("PRAGMA journal_mode=DELETE");
        }
        spoil("index.sqlite", (rooted - 1) * 4096, 4096);
        Feed feed(folder, begin + 2 * between + 240);
        EXPECT_GT(feed.store.epochFor(begin + 2 * between), 0) << table << ": told already";
        feed.tune();
        feed.run(130);
        feed.stop();
        EXPECT_EQ(feed.store.status().setAside, "index.sqlite") << table;
        EXPECT_EQ(daysIn(folder).size(), 3u) << table;
        Database index(folder / "index.sqlite", Access::Read);
        EXPECT_EQ(index.number("SELECT count(*) FROM span WHERE step=60"), 8) << table;
        EXPECT_EQ(index.number("SELECT count(*) FROM span WHERE step=86400"), 2) << table;
        EXPECT_EQ(index.number("SELECT count(*)-(SELECT count(*) FROM (SELECT DISTINCT * FROM "
                               "event)) FROM event"),
                  0)
            << table << ": no event twice";
    }
}

TEST_F(StoreFaults, ADayThatCannotBeLookedForDelaysItsHourAndEndsNothing) {
    begin = utc(2026, 5, 4, 12, 59);
    Feed feed(folder, begin);
    feed.tune();
    feed.run(30);
    const auto day = folder / "2026-05-04.hm16day";
    std::filesystem::rename(day, folder / "kept");
    std::filesystem::create_symlink(day.filename(), day);
    feed.run(60);
    EXPECT_EQ(feed.store.status().state, State_::Failing);
    std::filesystem::remove(day);
    std::filesystem::rename(folder / "kept", day);
    feed.run(60);
    EXPECT_EQ(feed.store.status().state, State_::Recording);
    Database index(folder / "index.sqlite", Access::Read);
    EXPECT_EQ(index.number("SELECT count(*) FROM span WHERE step=3600"), 1);
}

TEST_F(StoreFaults, AFileFromANewerVersionIsLeftAsItIs) {
    for (const char* name : {"2026-05-04.hm16day", "index.sqlite"}) {
        folder = temp.path() / name;
        {
            Feed feed(folder, begin);
            feed.tune();
            feed.run(30);
            feed.stop();
        }
        {
            Database file(folder / name, Access::Write);
            file.run("PRAGMA user_version=2");
            file.run("PRAGMA journal_mode=DELETE");
        }
        std::ifstream in(folder / name, std::ios::binary);
        const std::string before((std::istreambuf_iterator<char>(in)), {});
        Feed feed(folder, begin + 30);
        EXPECT_EQ(feed.store.status().state, State_::Newer) << name;
        EXPECT_EQ(feed.store.status().file, name);
        feed.tune();
        feed.run(30);
        feed.stop();
        std::ifstream again(folder / name, std::ios::binary);
        const std::string after((std::istreambuf_iterator<char>(again)), {});
        EXPECT_TRUE(before == after) << name;
    }
}

}  // namespace
}  // namespace history::test
