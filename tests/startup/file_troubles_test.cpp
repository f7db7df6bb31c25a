// SPDX-License-Identifier: GPL-3.0-or-later
// A folder that cannot be written: one line in the rack's head as long as that lasts, and one box,
// at the user's first act that failed and not at the start.
#include <gtest/gtest.h>

#include "tests/support/as_nobody.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

/// Makes the working folder read-only while this object exists, also for root.
class ReadOnly {
 public:
    explicit ReadOnly(RackBench& bench) : folder_(bench.scratch.path()) {
        setRights(folder_, 0555);
        nobody_.emplace();
    }
    ~ReadOnly() {
        nobody_.reset();
        setRights(folder_, 0755);
    }

 private:
    std::filesystem::path folder_;
    std::optional<AsNobody> nobody_;
};

TEST(FileTroublesOfTheRack, AreALineFromTheStartAndNoBoxUntilAnActOfTheUserFails) {
    for (const int language : {RackBench::kEnglish, RackBench::kSpanish}) {
        RackBench bench(language);
        // With this mode the start writes (it falls back to L and R), and it measures a spectrum.
        bench.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "1", "0"}));
        const ReadOnly readOnly(bench);
        bench.start();
        bench.advance(300ms);
        EXPECT_TRUE(bench.desktop.boxes.empty());
        EXPECT_TRUE(bench.form1.Trouble.visible);
        EXPECT_TRUE(bench.form1.Trouble.caption.get().ends_with(
            language == RackBench::kSpanish ? ": es de solo lectura" : ": it is read-only"));
        bench.desktop.boxAnswers = {"ok"};
        bench.press(bench.form1.Image_Average);
        ASSERT_EQ(bench.desktop.boxes.size(), 1u);
        EXPECT_TRUE(bench.desktop.boxes[0].text.starts_with(language == RackBench::kSpanish
                                                                ? "hm-16.dat no se puede escribir: "
                                                                : "hm-16.dat cannot be written: "));
        // No second box, neither for another file nor at the power key.
        bench.press(bench.form1.Image6);
        bench.click(bench.formD.Image5);
        bench.advance(5000ms);
        EXPECT_TRUE(bench.form1.Trouble.visible);
        EXPECT_TRUE(bench.formB.Timer2.enabled);
        bench.click(bench.form1.Image_Power);
        EXPECT_EQ(bench.desktop.boxes.size(), 1u);
        EXPECT_TRUE(bench.desktop.ended());
    }
}

TEST(FileTroublesOfTheRack, GoWhenTheFolderCanBeWrittenAgainAndAreToldAnew) {
    RackBench bench;
    bench.start();
    bench.advance(300ms);
    EXPECT_FALSE(bench.form1.Trouble.visible);
    EXPECT_EQ(bench.form1.Trouble.caption, "");
    bench.desktop.boxAnswers = {"ok", "ok"};
    for (std::size_t times = 1; times <= 2; ++times) {
        {
            const ReadOnly readOnly(bench);
            bench.press(times == 1 ? bench.form1.Image_Average : bench.form1.Image6);
            bench.advance(200ms);
            EXPECT_TRUE(bench.form1.Trouble.visible);
            EXPECT_EQ(bench.form1.Trouble.caption, "hm-16.dat cannot be stored: it is read-only");
            EXPECT_EQ(bench.desktop.boxes.size(), times);
        }
        bench.advance(2200ms);
        EXPECT_FALSE(bench.form1.Trouble.visible);
    }
}

TEST(FileTroublesOfTheRack, ASecondStartWritesNothing) {
    RackBench bench;
    bench.start();
    bench.advance(1000ms);
    const auto settings = bench.scratch.path() / "hm-16.dat";
    const auto before = std::filesystem::last_write_time(settings);
    const auto names = bench.scratch.names();
    std::filesystem::last_write_time(settings, before - std::chrono::hours(1));
    Files files(bench.scratch.path());
    display::HeadlessDesktop desktop;
    ScriptedDriver driver;
    Program program(desktop, driver, files);
    Forms forms(program);
    desktop.seedRandom(1);
    forms.formWaitLoad.show();
    desktop.advance(2000ms);
    EXPECT_TRUE(forms.formB.Timer2.enabled);
    EXPECT_EQ(std::filesystem::last_write_time(settings), before - std::chrono::hours(1));
    EXPECT_EQ(bench.scratch.names(), names);
}

}  // namespace
}  // namespace hmonitor::test
