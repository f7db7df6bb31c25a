// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <random>

#include "core/files.h"
#include "core/rewrite_file.h"
#include "tests/core/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

using test::AsNobody;
using test::TempFolder;

constexpr std::string_view kName = "hm-16.dat";
const std::string kOld = "1\r\n0\r\n0\r\n1\r\n0\r\n0\r\n0\r\n0\r\n";
const std::string kNew = "16\r\n-3.5\r\n0\r\n1\r\n0\r\n1\r\n1\r\n0\r\n";

struct Point {
    RewriteStep step;
    StepMoment moment;
    bool operator==(const Point&) const = default;
};

// Keeps what happened, and answers at one point.
struct Watcher : RewriteWatcher {
    std::vector<Point> seen;
    std::optional<Point> place;
    std::function<int()> answer;

    int at(RewriteStep step, StepMoment moment) override {
        seen.push_back({step, moment});
        return place == Point{step, moment} ? answer() : 0;
    }
};

std::vector<Point> allPoints() {
    std::vector<Point> points;
    for (RewriteStep step : {RewriteStep::Open, RewriteStep::Write, RewriteStep::Flush,
                             RewriteStep::Close, RewriteStep::Rename, RewriteStep::FlushFolder}) {
        points.push_back({step, StepMoment::Before});
        points.push_back({step, StepMoment::After});
    }
    return points;
}

bool isBehindRename(const Point& point) {
    return point == Point{RewriteStep::Rename, StepMoment::After} ||
           point.step == RewriteStep::FlushFolder;
}

struct RewriteTest : testing::Test {
    TempFolder temp;
    Watcher watcher;
    Files files{temp.path(), &watcher};

    void SetUp() override { temp.write(kName, kOld); }
    mode_t modeOf(std::string_view name) const {
        struct stat status = {};
        ::stat((temp.path() / name).c_str(), &status);
        return status.st_mode & 07777;
    }
};

TEST_F(RewriteTest, ReplacesTheFileWhole) {
    EXPECT_FALSE(files.rewrite(kName, kNew));
    EXPECT_EQ(temp.read(kName), kNew);
    EXPECT_EQ(temp.names(), std::set<std::string>{std::string(kName)});
}

TEST_F(RewriteTest, MakesAFileThatWasNotThere) {
    EXPECT_FALSE(files.rewrite("1025.res", kNew));
    EXPECT_EQ(temp.read("1025.res"), kNew);
}

TEST_F(RewriteTest, WritesAnEmptyFileToo) {
    EXPECT_FALSE(files.rewrite(kName, ""));
    EXPECT_EQ(temp.read(kName), "");
}

TEST_F(RewriteTest, PassesEachStepInOrderFlushingBeforeTheRename) {
    files.rewrite(kName, kNew);
    EXPECT_EQ(watcher.seen, allPoints());
}

TEST_F(RewriteTest, KeepsTheNameThatWasFound) {
    temp.write("HM-RES.DAT", kOld);
    EXPECT_FALSE(files.rewrite("Hm-res.dat", kNew));
    EXPECT_EQ(temp.read("HM-RES.DAT"), kNew);
    EXPECT_FALSE(temp.names().contains("Hm-res.dat"));
}

TEST_F(RewriteTest, KeepsThePermissions) {
    ASSERT_EQ(::chmod((temp.path() / kName).c_str(), 0640), 0);
    EXPECT_FALSE(files.rewrite(kName, kNew));
    EXPECT_EQ(modeOf(kName), 0640u);
}

TEST_F(RewriteTest, KeepsALinkAndReplacesWhatItLeadsTo) {
    TempFolder elsewhere;
    elsewhere.write("real.dat", kOld);
    std::filesystem::create_symlink(elsewhere.path() / "real.dat", temp.path() / "link.dat");
    EXPECT_FALSE(files.rewrite("link.dat", kNew));
    EXPECT_TRUE(std::filesystem::is_symlink(temp.path() / "link.dat"));
    EXPECT_EQ(elsewhere.read("real.dat"), kNew);
}

TEST_F(RewriteTest, AFaultAtAnyPointLeavesOneWholeFileAndNothingBeside) {
    for (const Point& point : allPoints()) {
        temp.write(kName, kOld);
        watcher.place = point;
        watcher.answer = [] { return EIO; };
        const auto fault = files.rewrite(kName, kNew);
        SCOPED_TRACE(testing::Message() << int(point.step) << '/' << int(point.moment));
        EXPECT_EQ(temp.read(kName), isBehindRename(point) ? kNew : kOld);
        EXPECT_EQ(temp.names().size(), 1u);
        EXPECT_EQ(fault.has_value(), !isBehindRename(point));
        if (!fault) continue;
        EXPECT_EQ(fault->kind, FileFaultKind::NotWritten);
        EXPECT_EQ(fault->sentence, "hm-16.dat cannot be written: Input/output error");
    }
}

TEST_F(RewriteTest, AFaultWhileMakingANewFileLeavesNone) {
    watcher.place = Point{RewriteStep::Flush, StepMoment::Before};
    watcher.answer = [] { return ENOSPC; };
    EXPECT_EQ(files.rewrite("1025.res", kNew)->sentence,
              "1025.res cannot be written: No space left on device");
    EXPECT_FALSE(files.exists("1025.res"));
}

TEST_F(RewriteTest, ADiskThatFillsUpInTheMiddleOfAWriteLeavesTheOldFile) {
    struct rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    struct rlimit small = before;
    small.rlim_cur = 10;
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto fault = files.rewrite(kName, kNew);
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, handler);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->sentence, "hm-16.dat cannot be written: File too large");
    EXPECT_EQ(temp.read(kName), kOld);
    EXPECT_EQ(temp.names().size(), 1u);
}

TEST_F(RewriteTest, AFolderThatCannotBeWrittenLeavesTheOldFile) {
    ASSERT_EQ(::chmod((temp.path() / kName).c_str(), 0666), 0);
    ASSERT_EQ(::chmod(temp.path().c_str(), 0555), 0);
    {
        const AsNobody nobody;
        EXPECT_EQ(files.rewrite(kName, kNew)->sentence,
                  "hm-16.dat cannot be written: Permission denied");
    }
    ::chmod(temp.path().c_str(), 0755);
    EXPECT_EQ(temp.read(kName), kOld);
}

TEST_F(RewriteTest, AFileMadeReadOnlyStays) {
    ASSERT_EQ(::chmod((temp.path() / kName).c_str(), 0444), 0);
    ASSERT_EQ(::chmod(temp.path().c_str(), 0777), 0);
    {
        const AsNobody nobody;
        EXPECT_EQ(files.rewrite(kName, kNew)->sentence,
                  "hm-16.dat cannot be written: Permission denied");
    }
    EXPECT_EQ(temp.read(kName), kOld);
}

// Runs `work` in a process of its own; gives that process.
pid_t inChild(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    work();
    ::_exit(0);
}

TEST_F(RewriteTest, ADeathAtAnyPointLeavesOneWholeFile) {
    for (const Point& point : allPoints()) {
        temp.write(kName, kOld);
        watcher.place = point;
        watcher.answer = []() -> int { ::_exit(7); };
        int status = 0;
        ::waitpid(inChild([&] { files.rewrite(kName, kNew); }), &status, 0);
        SCOPED_TRACE(testing::Message() << int(point.step) << '/' << int(point.moment));
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7);
        EXPECT_EQ(temp.read(kName), isBehindRename(point) ? kNew : kOld);
        files.removeLeftovers();
        EXPECT_EQ(temp.names().size(), 1u);
    }
}

TEST_F(RewriteTest, ALeftoverOfTheSameProcessNumberIsNoHindrance) {
    temp.write(".hmonitor-" + std::to_string(::getpid()) + ".rewrite", "left over");
    EXPECT_FALSE(files.rewrite(kName, kNew));
    EXPECT_EQ(temp.read(kName), kNew);
    EXPECT_EQ(temp.names().size(), 1u);
}

TEST_F(RewriteTest, ThreeHundredKillsAlwaysLeaveAWholeOldOrNewFile) {
    const std::string small = kOld;
    const std::string large(60000, 'x');
    std::mt19937 random(300);
    std::uniform_int_distribution<int> microseconds(0, 2500);
    const Files plain(temp.path());
    int killedInTheMiddle = 0;
    for (int kill = 0; kill < 300; ++kill) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = inChild([&] {
            [[maybe_unused]] const ssize_t told = ::write(ready[1], "r", 1);
            for (;;) {
                plain.rewrite(kName, large);
                plain.rewrite(kName, small);
            }
        });
        char byte;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        ::usleep(static_cast<useconds_t>(microseconds(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(ready[0]);
        ::close(ready[1]);
        const std::string bytes = temp.read(kName);
        ASSERT_TRUE(bytes == small || bytes == large) << "kill " << kill << ": " << bytes.size();
        if (temp.names().size() > 1) ++killedInTheMiddle;
        plain.removeLeftovers();
        ASSERT_EQ(temp.names().size(), 1u);
    }
    EXPECT_GT(killedInTheMiddle, 0) << "no kill hit a rewrite, so the test showed nothing";
}

TEST(Leftovers, MatchNoPatternOfTheProgramsFiles) {
    const std::string name = ".hmonitor-1234.rewrite";
    EXPECT_TRUE(isRewriteLeftover(name));
    for (const char* ending : {".dat", ".res", ".spc", ".log", ".3Ds", ".hm", ".ini"}) {
        EXPECT_FALSE(name.ends_with(ending));
    }
    for (const char* own : {"hm-16.dat", "Hm-res.dat", "normal.hm", "halden.dat", "1025.res",
                            "20260101.log", "a.3Ds", ".hmonitor-notes", "x.rewrite"}) {
        EXPECT_FALSE(isRewriteLeftover(own)) << own;
    }
}

TEST(Leftovers, GoAtStartAndNothingElseGoes) {
    TempFolder temp;
    temp.write(".hmonitor-1.rewrite", "torn");
    temp.write(".hmonitor-22222.rewrite", "torn");
    temp.write("hm-16.dat", kOld);
    temp.write(".hidden", "mine");
    Files(temp.path()).removeLeftovers();
    EXPECT_EQ(temp.names(), (std::set<std::string>{"hm-16.dat", ".hidden"}));
}

}  // namespace
}  // namespace hmonitor
