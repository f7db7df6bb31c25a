// SPDX-License-Identifier: GPL-3.0-or-later
// The disk is full at each write in turn, each file is unreadable in turn, the clock is set back:
// a clear word, nothing lost, and measuring goes on.
#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <map>
#include <sstream>

#include "display/controls/text_field.h"
#include "tests/acts/rack_in_order.h"
#include "tests/support/as_nobody.h"

namespace hmonitor::test {
namespace {

namespace fs = std::filesystem;
/// The contents of all files below the working folder, by their relative paths.
std::map<std::string, std::string> contents(const RackBench& bench) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(bench.scratch.path())) {
        if (!entry.is_regular_file()) continue;
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        files[fs::relative(entry.path(), bench.scratch.path()).string()] = std::move(bytes).str();
    }
    return files;
}

void presets(RunBench& bench) {
    Form_bSetMemories& editor = bench.forms.formSetMemories;
    bench.click(bench.formB.Image3);
    bench.click(editor.presets[3]);
    bench.edit(editor.Text1, "101.3");
    bench.edit(editor.Text2, "OTRA");
    bench.click(editor.SSCommand20);
    bench.edit(editor.label_dbCorrection, "-2.5");
    bench.click(editor.SSCommand17);
    bench.wait(100);
}

struct Writer {
    const char* name;
    void (*go)(RunBench&);
};

/// Everything that stores something, with the files that it writes.
const std::vector<Writer>& writers() {
    static const std::vector<Writer> all = [] {
        std::vector<Writer> list{{"Presets", presets}};
        for (const RunKind& run : runKinds()) list.push_back({run.name, run.go});
        return list;
    }();
    return all;
}

void goAndClose(RunBench& bench, const Writer& writer) {
    writer.go(bench);
    EXPECT_EQ(closeAll(bench), "");
    EXPECT_EQ(faultOf(bench), "");
}

class DiskFaults : public testing::TestWithParam<std::tuple<std::size_t, std::size_t>> {
 protected:
    const Writer& writer = writers()[std::get<0>(GetParam())];
    const UnitKind& unit = kUnitKinds[std::get<1>(GetParam())];

    /// The folder's contents after the action was done twice, and the number of rewrite steps of
    /// the first time.
    struct Healthy {
        std::map<std::string, std::string> files;
        int steps = 0;
    };
    Healthy healthy() {
        RunBench bench(unit);
        Healthy is;
        bench.disk.told = [&is](base::RewriteStep, base::StepMoment moment) {
            is.steps += moment == base::StepMoment::Before ? 1 : 0;
            return 0;
        };
        goAndClose(bench, writer);
        bench.disk.told = nullptr;
        goAndClose(bench, writer);
        is.files = contents(bench);
        return is;
    }
};

TEST_P(DiskFaults, ADiskThatIsFullAtEachWriteInTurnIsToldAndLosesNothing) {
    const Healthy expected = healthy();
    for (int at = 0; at < expected.steps; ++at) {
        SCOPED_TRACE(testing::Message() << writer.name << ", " << unit.name << ", step " << at);
        RunBench bench(unit);
        const auto before = contents(bench);
        int step = 0;
        bool matters = false;
        bench.disk.told = [&](base::RewriteStep what, base::StepMoment moment) {
            if (moment != base::StepMoment::Before || step++ != at) return 0;
            // When the folder is flushed, the new file is already in place.
            matters = what != base::RewriteStep::FlushFolder;
            return ENOSPC;
        };
        goAndClose(bench, writer);
        std::size_t told = 0;
        for (const display::MessageBox& box : bench.desktop.boxes) {
            if (box.text.ends_with(" cannot be written: No space left on device")) ++told;
        }
        EXPECT_EQ(told, matters ? 1u : 0u);
        const auto broken = contents(bench);
        for (const auto& [name, bytes] : broken)
            EXPECT_FALSE(name.starts_with(".hmonitor-")) << name;
        for (const auto& [name, bytes] : before)
            EXPECT_TRUE(broken.contains(name)) << name << " is gone";
        bench.disk.told = nullptr;
        goAndClose(bench, writer);
        EXPECT_EQ(contents(bench), expected.files);
        if (HasFailure()) return;
    }
}

TEST_P(DiskFaults, ADiskThatStaysFullIsToldInTheRacksHeadAndNothingIsTouched) {
    RunBench bench(unit);
    const auto before = contents(bench);
    bench.disk.told = [](base::RewriteStep, base::StepMoment) { return ENOSPC; };
    goAndClose(bench, writer);
    EXPECT_EQ(contents(bench), before);
}

INSTANTIATE_TEST_SUITE_P(EachWriter, DiskFaults,
                         testing::Combine(testing::Range<std::size_t>(0, writers().size()),
                                          testing::Range<std::size_t>(0, 2)),
                         [](const auto& cell) {
                             return std::string(writers()[std::get<0>(cell.param)].name) +
                                    kUnitKinds[std::get<1>(cell.param)].name;
                         });

/// A file that the program may not read while this object exists. Other users may write in the
/// folder.
class Unreadable {
 public:
    Unreadable(RunBench& bench, const std::string& name) : file_(bench.scratch.path() / name) {
        fs::permissions(bench.scratch.path(), fs::perms(0777));
        for (const auto& entry : fs::recursive_directory_iterator(bench.scratch.path()))
            fs::permissions(entry.path(), fs::perms(entry.is_directory() ? 0777 : 0666));
        fs::permissions(file_, fs::perms(0222));
        nobody_.emplace();
    }
    ~Unreadable() {
        nobody_.reset();
        fs::permissions(file_, fs::perms(0666));
    }

 private:
    fs::path file_;
    std::optional<AsNobody> nobody_;
};

TEST(UnreadableFiles, WithoutWhichThereIsNoMeasuringEndTheProgramWithASentence) {
    for (const std::string name : {"hm-16.dat", "halden.dat", "Hm-res.dat", "scan.dat"}) {
        RunBench bench(kUnitKinds[1]);
        bench.desktop.boxes.clear();
        const std::string bytes = bench.read(name);
        {
            const Unreadable file(bench, name);
            for (const Writer& writer : writers()) {
                if (!bench.desktop.ended()) writer.go(bench);
                (void)closeAll(bench);
            }
        }
        EXPECT_TRUE(bench.desktop.ended()) << name;
        ASSERT_FALSE(bench.desktop.boxes.empty()) << name;
        EXPECT_EQ(bench.desktop.boxes.back().text, name + " cannot be read: Permission denied");
        EXPECT_EQ(bench.read(name), bytes) << name;
    }
}

TEST(UnreadableFiles, OfAStationAreToldInTheRacksHeadAndMeasuringGoesOn) {
    struct Case {
        const char* name;
        const char* bytes;
        void (*use)(RunBench&);
    };
    const auto openSpectrum = [](RunBench& bench) {
        bench.hand.doubleClick(bench.formD.PictureGraph1);
        bench.settle();
    };
    const auto retune = [](RunBench& bench) { bench.click(bench.form1.Image_Average); };
    const auto openLog = [](RunBench& bench) { bench.click(bench.formD.Image4); };
    const auto openSessions = [](RunBench& bench) { bench.click(bench.formD.Image6); };
    for (const Case& its : {Case{"0981.dat", "981\r\n", retune},
                            Case{"0981.spc", "1\r\n25\r\n98\r\n55\r\n\r\n", openSpectrum},
                            Case{"0981.res", "1\r\n", retune},
                            Case{"20260504.log", "9 90 -6 -6 45 1 60 0 0 0 \r\n", openLog},
                            Case{"Logs/Short.3Ds", nullptr, openSessions}}) {
        SCOPED_TRACE(its.name);
        RunBench bench(kUnitKinds[1]);
        if (its.bytes) bench.write(its.name, its.bytes);
        const std::string bytes = bench.read(its.name);
        const std::string last = fs::path(its.name).filename().string();
        {
            const Unreadable file(bench, its.name);
            its.use(bench);
            EXPECT_EQ(closeAll(bench), "");
            bench.wait(300);
            EXPECT_TRUE(bench.form1.Trouble.visible);
            EXPECT_EQ(bench.form1.Trouble.caption.get(), last + " cannot be read");
            EXPECT_EQ(faultOf(bench), "");
        }
        EXPECT_EQ(bench.read(its.name), bytes);
        bench.wait(2500);
        EXPECT_FALSE(bench.form1.Trouble.visible);
    }
}

TEST(ClockSetBack, ADayChangesNoMeasuring) {
    for (const RunKind& run : runKinds()) {
        SCOPED_TRACE(run.name);
        RunBench bench(kUnitKinds[1]);
        bench.wait(61000);
        const int before = bench.called.dataCalls;
        --bench.desktop.date.day;
        run.go(bench);
        EXPECT_EQ(closeAll(bench), "");
        bench.wait(61000);
        EXPECT_GT(bench.called.dataCalls, before + 1000);
        EXPECT_EQ(faultOf(bench), "");
    }
}

}  // namespace
}  // namespace hmonitor::test
