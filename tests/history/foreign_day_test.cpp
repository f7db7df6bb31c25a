// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/foreign_day.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>

#include "tests/history/feed.h"

namespace history::test {
namespace {

struct ForeignDays : testing::Test {
    Zone zone{"UTC"};
    TempFolder temp;
    std::int64_t begin = utc(2026, 5, 4, 12);
    std::filesystem::path file = temp.path() / "history" / "2026-05-04.hm16day";

    void SetUp() override {
        Feed feed(temp.path() / "history", begin);
        feed.tune();
        feed.run(150, 60);
        feed.stop();
    }
    void change(const std::string& sql) {
        Database database(file, Access::Write);
        sqlite3_db_config_off(database);
        database.run(sql);
        database.run("PRAGMA wal_checkpoint(TRUNCATE)");
    }
    /// Switches SQLite's guards off, since a stranger's program may have written without them.
    static void sqlite3_db_config_off(Database& database);
    ForeignDay::Refusal refusal() {
        const auto opened = ForeignDay::open(file);
        const auto* refused = std::get_if<ForeignDay::Refusal>(&opened);
        EXPECT_NE(refused, nullptr);
        return refused ? *refused : ForeignDay::Refusal::NotReadable;
    }
    std::unique_ptr<ForeignDay> day() {
        auto opened = ForeignDay::open(file);
        auto* opens = std::get_if<std::unique_ptr<ForeignDay>>(&opened);
        EXPECT_NE(opens, nullptr);
        return opens ? std::move(*opens) : nullptr;
    }
};

void ForeignDays::sqlite3_db_config_off(Database& database) {
    sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
}

TEST_F(ForeignDays, AreReadWholeAndNotChanged) {
    change("PRAGMA journal_mode=DELETE");
    const std::string before = temp.read("history/2026-05-04.hm16day");
    const auto opened = day();
    ASSERT_TRUE(opened);
    EXPECT_THAT(opened->stations(), testing::ElementsAre(kStation));
    ASSERT_EQ(opened->minutes().size(), 3u);
    const auto seconds = opened->minute(opened->minutes()[1]);
    ASSERT_EQ(seconds.size(), 60u);
    EXPECT_FLOAT_EQ(seconds[7].figures[indexOf("field")].value, 16.07f);
    EXPECT_EQ(opened->events().size(), 2u);
    EXPECT_TRUE(temp.read("history/2026-05-04.hm16day") == before);
    EXPECT_FALSE(temp.has("history/2026-05-04.hm16day-shm"));
}

TEST_F(ForeignDays, ThatAreStillWrittenOpenToo) {
    EXPECT_TRUE(day());
}

TEST_F(ForeignDays, OfAnotherKindAreRefused) {
    change("PRAGMA application_id=1");
    EXPECT_EQ(refusal(), ForeignDay::Refusal::NotADay);
    std::ofstream(file, std::ios::binary) << "a letter";
    EXPECT_EQ(refusal(), ForeignDay::Refusal::NotADay);
    std::filesystem::remove(file);
    EXPECT_EQ(refusal(), ForeignDay::Refusal::NotReadable);
    std::filesystem::create_directory(file);
    EXPECT_EQ(refusal(), ForeignDay::Refusal::NotReadable);
}

TEST_F(ForeignDays, OfANewerVersionAreRefused) {
    change("PRAGMA user_version=2");
    EXPECT_EQ(refusal(), ForeignDay::Refusal::Newer);
}

TEST_F(ForeignDays, TooLargeAreRefused) {
    std::filesystem::resize_file(file, ForeignDay::kMostBytes + 1);
    EXPECT_EQ(refusal(), ForeignDay::Refusal::TooLarge);
}

TEST_F(ForeignDays, WithAViewInPlaceOfATableAreRefused) {
    change("ALTER TABLE second RENAME TO hidden");
    change("CREATE VIEW second AS SELECT * FROM hidden");
    EXPECT_EQ(refusal(), ForeignDay::Refusal::Damaged);
}

TEST_F(ForeignDays, WithoutATableAreRefused) {
    change("DROP TABLE tail");
    EXPECT_EQ(refusal(), ForeignDay::Refusal::Damaged);
}

TEST_F(ForeignDays, WhoseBlockIsNotWhatItsRowSaysTellOfNothingThere) {
    change("UPDATE second SET n=59 WHERE minute=" + std::to_string(begin));
    change("UPDATE second SET data=x'01' WHERE minute=" + std::to_string(begin + 60));
    const auto opened = day();
    ASSERT_TRUE(opened);
    EXPECT_TRUE(opened->minute({kStation, begin, 0}).empty());
    EXPECT_TRUE(opened->minute({kStation, begin + 60, 0}).empty());
    EXPECT_FALSE(opened->minute({kStation, begin + 120, 0}).empty());
}

TEST_F(ForeignDays, CannotBeWrittenThroughWhatReadsThem) {
    Database database(file, Access::Foreign);
    EXPECT_THROW(database.run("DELETE FROM second"), DatabaseFault);
    EXPECT_THROW(database.run("ATTACH 'other' AS other"), DatabaseFault);
    EXPECT_THROW(database.run("SELECT load_extension('x')"), DatabaseFault);
}

TEST_F(ForeignDays, CutAtAnyPageAreRefusedOrReadAsFarAsTheyGo) {
    change("PRAGMA journal_mode=DELETE");
    const std::string whole = temp.read("history/2026-05-04.hm16day");
    for (std::size_t size = 0; size < whole.size(); size += 4096) {
        temp.write("history/2026-05-04.hm16day", whole.substr(0, size));
        const auto opened = ForeignDay::open(file);
        if (const auto* opens = std::get_if<std::unique_ptr<ForeignDay>>(&opened)) {
            for (const MinuteKey& key : (*opens)->minutes()) (*opens)->minute(key);
        }
        EXPECT_TRUE(size == 0 || std::holds_alternative<ForeignDay::Refusal>(opened)) << size;
    }
}

}  // namespace
}  // namespace history::test
