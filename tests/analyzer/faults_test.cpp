// SPDX-License-Identifier: GPL-3.0-or-later
// Faults around a session: kills, full disks, files that others change.
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "tests/analyzer/analyzer_bench.h"
#include "tests/support/as_nobody.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

class AnalyzerFaults : public AnalyzerBench {
 protected:
    AnalyzerFaults() {
        store("a.3Ds", 2, "of a");
        open();
        bench.desktop.answerEveryBox = true;
    }
    void start() { click(form.butStart_BW); }
    /// Limits how large this process's files can grow, in bytes.
    void limitFiles(rlim_t bytes) {
        struct rlimit limit = {};
        ::getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
};

TEST_F(AnalyzerFaults, AFullDiskIsToldOnceAndTheScanGoesOn) {
    start();
    const std::string before = log("a.3Ds");
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    limitFiles(10000);
    frames(3);
    limitFiles(RLIM_INFINITY);
    ::signal(SIGXFSZ, handler);
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "a.3Ds cannot be written: File too large");
    EXPECT_EQ(log("a.3Ds"), before);
    EXPECT_EQ(measurement.ScanRunning, -1);
    EXPECT_EQ(form.FrameBusy, 0);
    EXPECT_TRUE(hasLog("a.spc")) << "the sweep is small enough";
    frames(1);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 6) << "nothing of it is lost";
    // The next scan reports it again.
    click(form.butPause_BW);
    start();
    ::signal(SIGXFSZ, SIG_IGN);
    limitFiles(100);
    frames(2);
    limitFiles(RLIM_INFINITY);
    ::signal(SIGXFSZ, handler);
    EXPECT_EQ(bench.desktop.boxes.size(), 2u);
}

TEST_F(AnalyzerFaults, ASweepTextThatCannotBeWrittenLeavesTheSessionSaved) {
    std::filesystem::create_directory(bench.scratch.path() / "Logs/a.spc");
    start();
    frames(2);
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "a.spc cannot be written: Is a directory");
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 4);
}

TEST_F(AnalyzerFaults, AReadOnlyFolderIsToldOnceAndTheScanGoesOn) {
    const auto logs = bench.scratch.path() / "Logs";
    start();
    // Without the administrator's rights the test can then read the folder, but not write in it.
    ::chmod(bench.scratch.path().c_str(), 0755);
    ::chmod(logs.c_str(), 0555);
    {
        const AsNobody nobody;
        frames(3);
    }
    ::chmod(logs.c_str(), 0755);
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_NE(bench.desktop.boxes[0].text.find("cannot be written: Permission denied"),
              std::string::npos);
    EXPECT_EQ(measurement.ScanRunning, -1);
    frames(1);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 6);
}

TEST_F(AnalyzerFaults, AFolderThatCannotBeMadeIsTold) {
    std::filesystem::remove_all(bench.scratch.path() / "Logs");
    bench.write("Logs", "a file by that name");
    start();
    frames(2);
    EXPECT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(measurement.SessionInfo.Acquisitions, 4);
}

TEST_F(AnalyzerFaults, ASessionDeletedInTheMiddleOfAScanIsWrittenAgain) {
    start();
    frames(1);
    bench.remove("Logs/a.3Ds");
    bench.remove("Logs/a.spc");
    frames(1);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 4);
    EXPECT_TRUE(hasLog("a.spc"));
    std::filesystem::remove_all(bench.scratch.path() / "Logs");
    frames(1);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 5) << "the folder is made again";
}

TEST_F(AnalyzerFaults, ASessionReplacedInTheMiddleOfAScanIsReplacedByWhatIsInMemory) {
    start();
    frames(1);
    bench.write("Logs/a.3Ds", "torn");
    frames(1);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 4);
    EXPECT_EQ(storedInfo("a.3Ds").Comment, "of a");
}

TEST_F(AnalyzerFaults, ADeleteThatFailsShowsTheSessionAgain) {
    const auto logs = bench.scratch.path() / "Logs";
    // Without the administrator's rights the test can then read the folder, but not write in it.
    ::chmod(bench.scratch.path().c_str(), 0755);
    ::chmod(logs.c_str(), 0555);
    {
        const AsNobody nobody;
        click(form.picDelMeasurement);
    }
    ::chmod(logs.c_str(), 0755);
    EXPECT_EQ(bench.desktop.boxes.size(), 1u) << "the question, and no word of the fault";
    EXPECT_EQ(measurement.CurrentSessionFile, "a.3Ds");
}

TEST_F(AnalyzerFaults, AClockSetBackChangesNoScanAndNoStoredDate) {
    start();
    frames(1);
    bench.desktop.date = {2001, 1, 1, 1, 0, 0, 0};
    frames(1);
    EXPECT_EQ(storedInfo("a.3Ds").Acquisitions, 4);
    EXPECT_EQ(storedInfo("a.3Ds").Created, 46347.75);
    click(form.butPause_BW);
    click(form.picAddMeasurement);
    EXPECT_EQ(editor.MeasurementTimeStampField.caption, "01/Jan/2001 - 00:00 Hs");
    click(editor.PicOk2);
    EXPECT_EQ(storedInfo("Sin Nombre.3Ds").Created, 36892);
}

TEST_F(AnalyzerFaults, ThreeHundredKillsAlwaysLeaveAWholeSession) {
    const Files working(bench.scratch.path());
    const SessionFolder folder(working);
    // Two states that cannot be mixed unnoticed: every cell tells to which one it belongs.
    const auto bytesOf = [](int sweeps) {
        SessionInfo info = newSessionInfo(1);
        info.Acquisitions = sweeps;
        info.Comment = std::string(static_cast<std::size_t>(sweeps), 'c');
        Density density;
        for (double& cell : density.cells()) cell = sweeps;
        return sessionBytes(info, density);
    };
    const std::string one = bytesOf(1), two = bytesOf(2000);
    std::mt19937 random(300);
    std::uniform_int_distribution<int> microseconds(0, 4000);
    int killedInTheMiddle = 0;
    for (int kill = 0; kill < 300; ++kill) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            [[maybe_unused]] const ssize_t told = ::write(ready[1], "r", 1);
            for (;;) {
                (void)folder.write("k.3Ds", two);
                (void)folder.write("k.3Ds", one);
            }
        }
        char byte;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        ::usleep(static_cast<useconds_t>(microseconds(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(ready[0]);
        ::close(ready[1]);
        if (hasLog("k.3Ds")) {
            const std::string bytes = log("k.3Ds");
            ASSERT_TRUE(bytes == one || bytes == two) << "kill " << kill;
        }
        const auto names = folder.list();
        for (const auto& entry :
             std::filesystem::directory_iterator(bench.scratch.path() / "Logs")) {
            if (entry.path().filename().string().starts_with(".hmonitor-")) ++killedInTheMiddle;
        }
        EXPECT_LE(names.size(), 2u) << "what a kill leaves is no session";
        Files(bench.scratch.path() / "Logs").removeLeftovers();
    }
    EXPECT_GT(killedInTheMiddle, 0) << "no kill hit a rewrite, so the test showed nothing";
}

}  // namespace
}  // namespace hmonitor::test
