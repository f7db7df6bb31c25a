// SPDX-License-Identifier: GPL-3.0-or-later
// The program dies at any step of writing, and the disk stops after any prefix of its writes. A
// short seeded part here; scripts/history_crashes runs a thousand of each.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <random>

#include "history/query.h"
#include "tests/history/feed.h"
#include "tests/history/watched_disk.h"

namespace history::test {
namespace {

constexpr int kRun = 150;  // seconds; crosses two minutes, an hour and a midnight

int crashes() {
    const char* wanted = std::getenv("HMONITOR_HISTORY_CRASHES");
    return wanted ? std::atoi(wanted) : 25;
}

struct Crashes : testing::Test {
    Zone zone{"UTC"};
    TempFolder temp;
    std::int64_t begin = utc(2026, 5, 4, 23, 58, 30);

    void record(const std::filesystem::path& folder, const std::function<void(Feed&)>& onCommit) {
        Feed feed(folder, begin, WatchedDisk::kName);
        feed.onCommit = [&] { onCommit(feed); };
        feed.tune();
        feed.run(kRun);
        feed.stop();
    }

    /// Expects every second up to `acknowledged`, that every file opens, and that the next run
    /// continues.
    void expectWhole(const std::filesystem::path& folder, std::int64_t acknowledged,
                     const std::string& where) {
        const std::int64_t next = begin + kRun + 10;
        {
            Feed feed(folder, next);
            ASSERT_EQ(feed.store.status().state, StoreStatus::State::Recording) << where;
            EXPECT_EQ(feed.store.status().setAside, "") << where;
            feed.tune();
            feed.run(10);
            feed.stop();
        }
        const auto bands = Query(folder).bands(
            {kStation, indexOf("field"), begin * 1000, (next + 10) * 1000, kRun + 20});
        int known = 0;
        for (std::int64_t t = begin; t < acknowledged; ++t) {
            const Band& band = bands[static_cast<std::size_t>(t - begin)];
            known += band.knownMs == 1000 && std::abs(band.mean - Feed::rising(t)[15]) < 0.006f;
        }
        EXPECT_EQ(known, acknowledged - begin) << where;
        EXPECT_EQ(bands[kRun + 15].knownMs, 1000) << where;
    }
};

TEST_F(Crashes, KilledAtAnyStepOfTheDiskNothingAcknowledgedIsLost) {
    int steps = 0;
    {
        WatchedDisk disk([&](const DiskStep&) { return ++steps, SQLITE_OK; });
        record(temp.path() / "whole", [](Feed&) {});
    }
    ASSERT_GT(steps, 200);
    std::mt19937 random(16);
    for (int i = 0; i < crashes(); ++i) {
        const int last = static_cast<int>(random() % static_cast<unsigned>(steps)) + 1;
        const auto folder = temp.path() / ("killed" + std::to_string(i));
        int acks[2] = {};
        ASSERT_EQ(::pipe(acks), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            int step = 0;
            WatchedDisk disk([&](const DiskStep&) {
                if (++step == last) ::_exit(0);
                return SQLITE_OK;
            });
            record(folder, [&](Feed& feed) {
                const std::int64_t told = feed.now;
                if (::write(acks[1], &told, sizeof told) < 0) ::_exit(1);
            });
            ::_exit(0);
        }
        ::close(acks[1]);
        std::int64_t acknowledged = begin;
        for (std::int64_t told = 0; ::read(acks[0], &told, sizeof told) > 0;) acknowledged = told;
        ::close(acks[0]);
        ::waitpid(child, nullptr, 0);
        // The last acknowledged second may still have been open.
        expectWhole(folder, std::max(begin, acknowledged - 1), "step " + std::to_string(last));
        std::filesystem::remove_all(folder);
    }
}

/// The files on the disk after so many steps; the last write may be cut in half.
class Image {
 public:
    void take(const DiskStep& step, bool half) {
        std::string& file = files_[std::filesystem::path(step.path).filename().string()];
        switch (step.what) {
            case DiskStep::What::Write: {
                const auto at = static_cast<std::size_t>(step.offset);
                const std::string bytes =
                    half ? step.bytes.substr(0, step.bytes.size() / 2) : step.bytes;
                if (file.size() < at + bytes.size()) file.resize(at + bytes.size());
                file.replace(at, bytes.size(), bytes);
                break;
            }
            case DiskStep::What::Truncate:
                file.resize(static_cast<std::size_t>(step.offset));
                break;
            case DiskStep::What::Delete:
                files_.erase(std::filesystem::path(step.path).filename().string());
                break;
            default:
                break;
        }
    }
    void lay(const std::filesystem::path& folder) const {
        std::filesystem::create_directories(folder);
        for (const auto& [name, bytes] : files_) {
            if (name.empty() || name.ends_with("-shm")) continue;
            std::ofstream(folder / name, std::ios::binary) << bytes;
        }
    }

 private:
    std::map<std::string, std::string> files_;
};

TEST_F(Crashes, CutAtAnyPrefixOfItsWritesTheDiskHasEveryAcknowledgedSecond) {
    std::vector<DiskStep> steps;
    std::vector<std::pair<std::size_t, std::int64_t>> acks;  // steps before it, second
    {
        WatchedDisk disk([&](const DiskStep& step) { return steps.push_back(step), SQLITE_OK; });
        record(temp.path() / "whole",
               [&](Feed& feed) { acks.emplace_back(steps.size(), feed.now); });
    }
    std::mt19937 random(11);
    for (int i = 0; i < crashes(); ++i) {
        const std::size_t cut = random() % steps.size() + 1;
        const bool half = random() % 2;
        Image image;
        for (std::size_t s = 0; s < cut; ++s) image.take(steps[s], half && s + 1 == cut);
        const auto folder = temp.path() / ("cut" + std::to_string(i));
        image.lay(folder);
        std::int64_t acknowledged = begin;
        const std::size_t whole = half ? cut - 1 : cut;
        for (const auto& [before, told] : acks) {
            if (before <= whole) acknowledged = told;
        }
        expectWhole(folder, std::max(begin, acknowledged - 1), "prefix " + std::to_string(cut));
        std::filesystem::remove_all(folder);
    }
}

}  // namespace
}  // namespace history::test
