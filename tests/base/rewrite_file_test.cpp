// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/rewrite_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <functional>
#include <random>
#include <thread>

#include "base/descriptor.h"
#include "base/leftovers.h"
#include "base/read_file.h"
#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace base {
namespace {

using hmonitor::test::AsNobody;
using hmonitor::test::TempFolder;

constexpr std::string_view kName = "hm-16.dat";
const std::string kOld = "1\r\n0\r\n0\r\n1\r\n0\r\n0\r\n0\r\n0\r\n";
const std::string kNew = "16\r\n-3.5\r\n0\r\n1\r\n0\r\n1\r\n1\r\n0\r\n";

struct Point {
    RewriteStep step;
    StepMoment moment;
    bool operator==(const Point&) const = default;
};

// Notes the steps, and lets one of them fail.
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

struct RewriteFile : testing::Test {
    TempFolder temp;
    Watcher watcher;

    int rewrite(std::string_view name, std::string_view bytes) {
        return rewriteFile(temp.path() / name, bytes, &watcher);
    }
    void SetUp() override { temp.write(kName, kOld); }
    mode_t modeOf(std::string_view name) const {
        struct stat status = {};
        ::stat((temp.path() / name).c_str(), &status);
        return status.st_mode & 07777;
    }
};

TEST_F(RewriteFile, ReplacesTheFileWhole) {
    EXPECT_FALSE(rewrite(kName, kNew));
    EXPECT_EQ(temp.read(kName), kNew);
    EXPECT_EQ(temp.names(), std::set<std::string>{std::string(kName)});
}

TEST_F(RewriteFile, MakesAFileThatWasNotThere) {
    EXPECT_FALSE(rewrite("1025.res", kNew));
    EXPECT_EQ(temp.read("1025.res"), kNew);
}

TEST_F(RewriteFile, WritesAnEmptyFileToo) {
    EXPECT_FALSE(rewrite(kName, ""));
    EXPECT_EQ(temp.read(kName), "");
}

TEST_F(RewriteFile, PassesEachStepInOrderFlushingBeforeTheRename) {
    rewrite(kName, kNew);
    EXPECT_EQ(watcher.seen, allPoints());
}

TEST_F(RewriteFile, KeepsThePermissions) {
    ASSERT_EQ(::chmod((temp.path() / kName).c_str(), 0640), 0);
    EXPECT_FALSE(rewrite(kName, kNew));
    EXPECT_EQ(modeOf(kName), 0640u);
}

TEST_F(RewriteFile, KeepsALinkAndReplacesWhatItLeadsTo) {
    TempFolder elsewhere;
    elsewhere.write("real.dat", kOld);
    std::filesystem::create_symlink(elsewhere.path() / "real.dat", temp.path() / "link.dat");
    EXPECT_FALSE(rewrite("link.dat", kNew));
    EXPECT_TRUE(std::filesystem::is_symlink(temp.path() / "link.dat"));
    EXPECT_EQ(elsewhere.read("real.dat"), kNew);
}

TEST_F(RewriteFile, AFaultAtAnyPointLeavesOneWholeFileAndNothingBeside) {
    for (const Point& point : allPoints()) {
        temp.write(kName, kOld);
        watcher.place = point;
        watcher.answer = [] { return EIO; };
        const int fault = rewrite(kName, kNew);
        SCOPED_TRACE(testing::Message() << int(point.step) << '/' << int(point.moment));
        EXPECT_EQ(temp.read(kName), isBehindRename(point) ? kNew : kOld);
        EXPECT_EQ(temp.names().size(), 1u);
        EXPECT_EQ(fault, isBehindRename(point) ? 0 : EIO);
    }
}

TEST_F(RewriteFile, AFaultWhileMakingANewFileLeavesNone) {
    watcher.place = Point{RewriteStep::Flush, StepMoment::Before};
    watcher.answer = [] { return ENOSPC; };
    EXPECT_EQ(rewrite("1025.res", kNew), ENOSPC);
    EXPECT_FALSE(temp.has("1025.res"));
}

TEST_F(RewriteFile, ADiskThatFillsUpInTheMiddleOfAWriteLeavesTheOldFile) {
    struct rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    struct rlimit small = before;
    small.rlim_cur = 10;
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const int fault = rewrite(kName, kNew);
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, handler);
    EXPECT_EQ(fault, EFBIG);
    EXPECT_EQ(temp.read(kName), kOld);
    EXPECT_EQ(temp.names().size(), 1u);
}

TEST_F(RewriteFile, AFolderThatCannotBeWrittenLeavesTheOldFile) {
    ASSERT_EQ(::chmod((temp.path() / kName).c_str(), 0666), 0);
    ASSERT_EQ(::chmod(temp.path().c_str(), 0555), 0);
    {
        const AsNobody nobody;
        EXPECT_EQ(rewrite(kName, kNew), EACCES);
    }
    ::chmod(temp.path().c_str(), 0755);
    EXPECT_EQ(temp.read(kName), kOld);
}

TEST_F(RewriteFile, AFileMadeReadOnlyStays) {
    ASSERT_EQ(::chmod((temp.path() / kName).c_str(), 0444), 0);
    ASSERT_EQ(::chmod(temp.path().c_str(), 0777), 0);
    {
        const AsNobody nobody;
        EXPECT_EQ(rewrite(kName, kNew), EACCES);
    }
    EXPECT_EQ(temp.read(kName), kOld);
}

// Runs `work` in a child process; returns that process.
pid_t inChild(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    work();
    ::_exit(0);
}

TEST_F(RewriteFile, ADeathAtAnyPointLeavesOneWholeFile) {
    for (const Point& point : allPoints()) {
        temp.write(kName, kOld);
        watcher.place = point;
        watcher.answer = []() -> int { ::_exit(7); };
        int status = 0;
        ::waitpid(inChild([&] { rewrite(kName, kNew); }), &status, 0);
        SCOPED_TRACE(testing::Message() << int(point.step) << '/' << int(point.moment));
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7);
        EXPECT_EQ(temp.read(kName), isBehindRename(point) ? kNew : kOld);
        removeLeftovers(temp.path());
        EXPECT_EQ(temp.names().size(), 1u);
    }
}

TEST_F(RewriteFile, LeavesAFileOfTheSameBytesAlone) {
    const auto file = temp.path() / kName;
    const auto longAgo = std::filesystem::last_write_time(file) - std::chrono::hours(1);
    std::filesystem::last_write_time(file, longAgo);
    EXPECT_EQ(rewrite(kName, kOld), 0);
    EXPECT_EQ(std::filesystem::last_write_time(file), longAgo);
    EXPECT_TRUE(watcher.seen.empty());

    std::string other = kOld;
    other.front() = '2';
    EXPECT_EQ(rewrite(kName, other), 0);
    EXPECT_GT(std::filesystem::last_write_time(file), longAgo);
    EXPECT_EQ(temp.read(kName), other);
}

TEST_F(RewriteFile, MakesAnEmptyFileThatWasNotThere) {
    EXPECT_EQ(rewrite("1025.res", ""), 0);
    EXPECT_TRUE(temp.has("1025.res"));
}

TEST_F(RewriteFile, RefusesAFolderAndAPipeByTheNameAndAFolderThatIsNotThere) {
    std::filesystem::create_directory(temp.path() / "0985.dat");
    ASSERT_EQ(::mkfifo((temp.path() / "pipe").c_str(), 0666), 0);
    EXPECT_EQ(rewrite("0985.dat", kNew), EISDIR);
    EXPECT_EQ(rewrite("pipe", kNew), EINVAL);
    EXPECT_EQ(rewrite("none/0985.dat", kNew), ENOENT);
    EXPECT_EQ(temp.names().size(), 3u);
}

TEST(NotWritten, NamesFileAndReason) {
    EXPECT_EQ(notWritten("0985.dat", ENOSPC),
              "0985.dat cannot be written: No space left on device");
}

TEST_F(RewriteFile, ALeftoverOfTheSameProcessNumberIsNoHindranceAndStaysWhole) {
    const std::string first = leftoverName(::getpid(), 0);
    temp.write(first, "left over");
    EXPECT_FALSE(rewrite(kName, kNew));
    EXPECT_EQ(temp.read(kName), kNew);
    EXPECT_EQ(temp.read(first), "left over");
    EXPECT_EQ(temp.names().size(), 2u);
}

TEST_F(RewriteFile, ALinkLaidUnderItsNameLeadsNowhere) {
    TempFolder elsewhere;
    elsewhere.write("precious", "kept");
    const std::string first = leftoverName(::getpid(), 0);
    const std::string second = leftoverName(::getpid(), 1);
    std::filesystem::create_symlink(elsewhere.path() / "precious", temp.path() / first);
    std::filesystem::create_symlink(elsewhere.path() / "not there", temp.path() / second);
    EXPECT_EQ(rewrite(kName, kNew), 0);
    EXPECT_EQ(temp.read(kName), kNew);
    EXPECT_EQ(elsewhere.read("precious"), "kept");
    EXPECT_EQ(elsewhere.names().size(), 1u);
    EXPECT_FALSE(std::filesystem::is_symlink(temp.path() / kName));
}

TEST_F(RewriteFile, EndsWhenAllItsNamesAreTaken) {
    for (int number = 0; number < kMostLeftovers; ++number) {
        temp.write(leftoverName(::getpid(), number), "");
    }
    EXPECT_EQ(rewrite(kName, kNew), EEXIST);
    EXPECT_EQ(temp.read(kName), kOld);
    EXPECT_EQ(temp.names().size(), kMostLeftovers + 1u);
}

TEST_F(RewriteFile, ManyThreadsInOneFolderNeverMeet) {
    std::vector<std::thread> threads;
    std::atomic<int> faults = 0;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            const auto own = temp.path() / std::string(1, static_cast<char>('a' + thread));
            for (int round = 0; round < 50; ++round) {
                const std::string bytes(1000, static_cast<char>('0' + round));
                faults += rewriteFile(own, bytes) != 0 || readFile(own).bytes != bytes;
                removeLeftovers(temp.path());
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(faults, 0);
    EXPECT_EQ(temp.names(), (std::set<std::string>{"a", "b", "c", "d", std::string(kName)}));
}

TEST_F(RewriteFile, ThreeHundredKillsAlwaysLeaveAWholeOldOrNewFile) {
    const std::string small = kOld;
    const std::string large(60000, 'x');
    std::mt19937 random(300);
    std::uniform_int_distribution<int> microseconds(0, 2500);
    const auto file = temp.path() / kName;
    int killedInTheMiddle = 0;
    for (int kill = 0; kill < 300; ++kill) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = inChild([&] {
            [[maybe_unused]] const ssize_t told = ::write(ready[1], "r", 1);
            for (;;) {
                rewriteFile(file, large);
                rewriteFile(file, small);
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
        removeLeftovers(temp.path());
        ASSERT_EQ(temp.names().size(), 1u);
    }
    EXPECT_GT(killedInTheMiddle, 0) << "no kill hit a rewrite, so the test showed nothing";
}

TEST(Leftovers, AnOpenFileIsStillNamedUntilItsNameIsGoneOrAnothers) {
    TempFolder temp;
    const auto path = temp.path() / leftoverName(1, 0);
    const auto open = [&] {
        return Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
    };
    const Descriptor first = open();
    EXPECT_TRUE(isStillNamed(first.get(), path));

    std::filesystem::rename(path, temp.path() / "a");
    EXPECT_FALSE(isStillNamed(first.get(), path));
    const Descriptor next = open();
    EXPECT_FALSE(isStillNamed(first.get(), path)) << "the next writer's file has its name";
    EXPECT_TRUE(isStillNamed(next.get(), path));

    std::filesystem::remove(path);
    EXPECT_FALSE(isStillNamed(next.get(), path));
    std::filesystem::create_symlink(temp.path() / "a", path);
    EXPECT_FALSE(isStillNamed(first.get(), path)) << "a link is not the file";
}

TEST(Leftovers, MatchNoPatternOfTheProgramsFiles) {
    const std::string name = leftoverName(1234, 56);
    EXPECT_EQ(name, ".hmonitor-1234-56.rewrite");
    EXPECT_TRUE(isLeftover(name));
    for (const char* ending : {".dat", ".res", ".spc", ".log", ".3Ds", ".hm", ".ini"}) {
        EXPECT_FALSE(name.ends_with(ending));
    }
    for (const char* own : {"hm-16.dat", "Hm-res.dat", "normal.hm", "halden.dat", "1025.res",
                            "20260101.log", "a.3Ds", ".hmonitor-notes", "x.rewrite"}) {
        EXPECT_FALSE(isLeftover(own)) << own;
    }
}

TEST(Leftovers, GoAndNothingElseGoes) {
    TempFolder temp;
    temp.write(".hmonitor-1-0.rewrite", "torn");
    temp.write(".hmonitor-22222-3.rewrite", "torn");
    temp.write(leftoverName(::getpid(), 0), "torn by one that had our number");
    temp.write("hm-16.dat", kOld);
    temp.write(".hidden", "mine");
    removeLeftovers(temp.path());
    EXPECT_EQ(temp.names(), (std::set<std::string>{"hm-16.dat", ".hidden"}));
}

TEST(Leftovers, BearAFolderThatIsNotThere) {
    removeLeftovers("/no/such/folder");
    EXPECT_FALSE(std::filesystem::exists("/no/such/folder"));
}

TEST_F(RewriteFile, WhatIsBeingWrittenIsNoLeftover) {
    std::size_t kept = 0;
    for (const Point& point : allPoints()) {
        temp.write(kName, kOld);
        watcher.place = point;
        watcher.answer = [&] {
            const std::size_t before = temp.names().size();
            ::waitpid(inChild([&] { removeLeftovers(temp.path()); }), nullptr, 0);
            EXPECT_EQ(temp.names().size(), before);
            kept += before - 1;
            return 0;
        };
        EXPECT_EQ(rewrite(kName, kNew), 0);
        EXPECT_EQ(temp.read(kName), kNew);
    }
    // From the end of Open to the beginning of Rename.
    EXPECT_EQ(kept, 8u);
}

TEST(ReadFile, GivesTheWholeFile) {
    TempFolder temp;
    const std::string large(100000, 'x');
    temp.write("large", large);
    temp.write("empty", "");
    EXPECT_EQ(readFile(temp.path() / "large").bytes, large);
    EXPECT_TRUE(readFile(temp.path() / "empty"));
    EXPECT_EQ(readFile(temp.path() / "empty").bytes, "");
}

TEST(ReadFile, SaysWhyThereIsNone) {
    TempFolder temp;
    ASSERT_EQ(::mkfifo((temp.path() / "pipe").c_str(), 0666), 0);
    EXPECT_EQ(readFile(temp.path() / "none").reason, ENOENT);
    EXPECT_EQ(readFile(temp.path()).reason, EISDIR);
    EXPECT_EQ(readFile(temp.path() / "pipe").reason, EINVAL);
    EXPECT_EQ(readFile(temp.path() / "pipe").bytes, "");
}

}  // namespace
}  // namespace base
