// SPDX-License-Identifier: GPL-3.0-or-later
// The queries of docs/history.md, run as they are printed there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/history/feed.h"

namespace history::test {
namespace {

std::vector<std::string> pageQueries() {
    std::ifstream page(HMONITOR_SOURCE_DIR "/docs/history.md");
    std::vector<std::string> queries;
    bool inside = false;
    for (std::string line; std::getline(page, line);) {
        if (line == "```sql") {
            inside = true;
            queries.emplace_back();
        } else if (line == "```") {
            inside = false;
        } else if (inside) {
            queries.back() += line + "\n";
        }
    }
    return queries;
}

struct HistoryPage : testing::Test {
    Zone zone{"UTC"};
    TempFolder temp;
    std::int64_t begin = utc(2026, 5, 4, 12);

    void SetUp() override {
        Feed feed(temp.path() / "history", begin);
        feed.tune();
        feed.run(90);
        feed.now += 20;
        feed.tune(90000);
        feed.run(130);
        feed.stop();
        feed.store.commit(feed.now + 60);
    }
    std::vector<std::string> answer(const std::string& name, std::size_t query, int columns) {
        Database database(temp.path() / "history" / name, Access::Read);
        Statement rows(database, pageQueries().at(query));
        std::vector<std::string> lines;
        while (rows.step()) {
            std::string line;
            for (int i = 0; i < columns; ++i) line += std::string(rows.bytes(i)) + "|";
            lines.push_back(line);
        }
        return lines;
    }
};

TEST_F(HistoryPage, TellsWhichStationsWereMeasuredForHowLong) {
    ASSERT_EQ(pageQueries().size(), 3u);
    EXPECT_THAT(answer("2026-05-04.hm16day", 0, 4),
                testing::ElementsAre("90000|2|2026-05-04 12:01:00|2026-05-04 12:03:00|",
                                     "98500|1|2026-05-04 12:00:00|2026-05-04 12:01:00|"));
}

TEST_F(HistoryPage, TellsInWhichMinutesSomethingIsMissing) {
    const auto missing = answer("2026-05-04.hm16day", 1, 3);
    ASSERT_EQ(missing.size(), 2u);
    EXPECT_EQ(missing[0].substr(0, 26), "2026-05-04 12:01:00|90000|");
    EXPECT_EQ(missing[1].substr(0, 26), "2026-05-04 12:01:00|98500|");
}

TEST_F(HistoryPage, TellsWhatHappened) {
    const std::vector<std::string> events{"2026-05-04 12:00:00|98500|tuned|detector 0, mode 0|",
                                          "2026-05-04 12:01:50|98500|stood still|20.5 s|",
                                          "2026-05-04 12:01:50|90000|tuned|detector 0, mode 0|",
                                          "2026-05-04 12:04:00|90000|stop||"};
    EXPECT_EQ(answer("2026-05-04.hm16day", 2, 4), events);
    EXPECT_EQ(answer("index.sqlite", 2, 4), events);
}

}  // namespace
}  // namespace history::test
