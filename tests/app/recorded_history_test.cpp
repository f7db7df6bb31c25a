// SPDX-License-Identifier: GPL-3.0-or-later
// The history beside a running rack, on the disk.
#include "app/recorded_history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <fstream>
#include <thread>

#include "history/query.h"
#include "panels/modulation/form1.h"
#include "tests/history/feed.h"
#include "tests/support/as_nobody.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using history::EventKind;
using Standing = history::StoreStatus::State;

std::int64_t nowSeconds() {
    return history::Moment::now().utcMs / 1000;
}

std::vector<EventKind> kindsIn(const std::filesystem::path& folder) {
    std::vector<EventKind> kinds;
    const std::int64_t now = nowSeconds();
    for (const history::Event& event : history::Query(folder).events(now - 100, now + 100)) {
        kinds.push_back(event.kind);
    }
    return kinds;
}

/// Waits until the recorder's thread has set or cleared the line in the rack's head.
bool waitForLine(RackBench& bench, bool stands) {
    for (int i = 0; i < 200; ++i) {
        bench.advance(2100ms);
        if (bench.form1.Trouble.visible == stands) return true;
        std::this_thread::sleep_for(50ms);
    }
    return false;
}

TEST(RecordedHistory, StandsInTheWorkingFolderFromTheFirstStartAndIsTheUsersAlone) {
    RackBench bench;
    const auto folder = bench.files.folder() / "history";
    {
        const RecordedHistory recorded(bench.program);
        bench.start();
    }
    struct ::stat status = {};
    ASSERT_EQ(::stat(folder.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0700u);
    const auto kinds = kindsIn(folder);
    EXPECT_THAT(kinds,
                testing::IsSupersetOf({EventKind::Start, EventKind::Tuned, EventKind::Stop}));
    EXPECT_EQ(history::daysIn(folder).size(), 1u);
    EXPECT_FALSE(bench.form1.Trouble.visible);
}

TEST(RecordedHistory, OfAFolderThatCannotBeMadeTheHeadTellsUntilItCan) {
    RackBench bench;
    bench.write("history", "in the way");
    const RecordedHistory recorded(bench.program);
    bench.start();
    ASSERT_TRUE(waitForLine(bench, true));
    EXPECT_EQ(bench.form1.Trouble.caption, "history cannot be stored");
    for (int i = 0; i < 20; ++i) {
        bench.advance(500ms);
        EXPECT_TRUE(bench.form1.Trouble.visible) << "it stands still";
    }
    bench.remove("history");
    EXPECT_TRUE(waitForLine(bench, false));
    EXPECT_TRUE(std::filesystem::is_directory(bench.files.folder() / "history"));
}

TEST(RecordedHistory, OfAFolderThatIsReadOnlyTheHeadTellsUntilItIsNot) {
    RackBench bench;
    const auto folder = bench.files.folder() / "history";
    std::filesystem::create_directory(folder);
    std::filesystem::permissions(bench.files.folder(), std::filesystem::perms::all);
    ASSERT_EQ(::chown(folder.c_str(), 0, 0), 0);
    std::filesystem::permissions(folder, std::filesystem::perms(0555));
    const AsNobody nobody;
    const RecordedHistory recorded(bench.program);
    bench.start();
    ASSERT_TRUE(waitForLine(bench, true));
    EXPECT_THAT(bench.form1.Trouble.caption.get(), testing::HasSubstr("cannot be stored"));
}

TEST(RecordedHistory, BesideAnotherRecorderLooksOn) {
    RackBench bench;
    const auto folder = bench.files.folder() / "history";
    history::Store first(history::test::Feed::settingsFor(folder, nullptr));
    first.open(nowSeconds());
    {
        const RecordedHistory recorded(bench.program);
        bench.start();
        bench.advance(3s);
    }
    EXPECT_THAT(kindsIn(folder), testing::IsEmpty());
}

TEST(RecordedHistory, OfADamagedFileTheHeadTellsForTenMinutesThatItWasSetAside) {
    RackBench bench;
    std::filesystem::create_directory(bench.files.folder() / "history");
    bench.write("history/index.sqlite", std::string(20000, 'x'));
    const RecordedHistory recorded(bench.program);
    bench.start();
    ASSERT_TRUE(waitForLine(bench, true));
    EXPECT_EQ(bench.form1.Trouble.caption, "index.sqlite was damaged and was set aside");
    bench.advance(9min);
    EXPECT_TRUE(bench.form1.Trouble.visible);
    bench.advance(2min);
    EXPECT_FALSE(bench.form1.Trouble.visible);
}

TEST(RecordedHistory, TellsWhyItRecordsNothingOrLess) {
    history::StoreStatus status;
    EXPECT_EQ(HistoryTroubles::noticeOf(status).english, "");
    status.setAside = "2026-05-04.hm16day";
    EXPECT_EQ(HistoryTroubles::noticeOf(status).english,
              "2026-05-04.hm16day was damaged and was set aside");
    EXPECT_EQ(HistoryTroubles::noticeOf(status).spanish,
              "2026-05-04.hm16day estaba dañado y se apartó");
    status.setAside.clear();
    status.thinning = true;
    EXPECT_EQ(HistoryTroubles::noticeOf(status).english,
              "Little room on the disk: the oldest seconds are removed");
    EXPECT_EQ(HistoryTroubles::noticeOf(status).spanish,
              "Queda poco disco: se borran los segundos más antiguos");
    status.state = Standing::Newer;
    status.file = "index.sqlite";
    EXPECT_EQ(HistoryTroubles::noticeOf(status).english,
              "index.sqlite is from a newer version: nothing is recorded");
    EXPECT_EQ(HistoryTroubles::noticeOf(status).spanish,
              "index.sqlite es de una versión más nueva: no se registra nada");
    status.state = Standing::Failing;
    status.systemError = ENOSPC;
    EXPECT_EQ(HistoryTroubles::noticeOf(status).english, "") << "as of every other file";
    status.systemError = EIO;
    EXPECT_EQ(HistoryTroubles::noticeOf(status).english, "index.sqlite cannot be stored");
    EXPECT_EQ(HistoryTroubles::noticeOf(status).spanish, "No se puede guardar index.sqlite");
    status.state = Standing::LookingOn;
    EXPECT_EQ(HistoryTroubles::noticeOf(status).english, "");
}

}  // namespace
}  // namespace hmonitor::test
