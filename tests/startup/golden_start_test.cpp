// SPDX-License-Identifier: GPL-3.0-or-later
// The whole start of the program: each call of the driver and each window, in their order and with
// their time, from the splash to the first tick of the slow readouts.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

const std::string kGolden = HMONITOR_SOURCE_DIR "/tests/startup/golden/";

std::vector<std::string> golden(const std::string& name) {
    std::ifstream file(kGolden + name);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with('#')) lines.push_back(line);
    }
    return lines;
}

/// Passes 200 ms and notes what happened, with the time before it. Equal calls in a row are noted
/// once, with their number.
std::vector<std::string> journalOfStart(RackBench& bench) {
    std::vector<std::string> lines;
    std::size_t seen = 0;
    bench.driver.noteData = true;
    bench.showSplash();
    for (int passed = 0; passed <= 200; passed += 10) {
        if (passed > 0) bench.advance(10ms);
        const auto& journal = bench.desktop.journal;
        if (seen < journal.size()) lines.push_back("at " + std::to_string(passed) + " ms");
        while (seen < journal.size()) {
            std::size_t behind = seen + 1;
            while (behind < journal.size() && journal[behind] == journal[seen]) ++behind;
            const std::size_t times = behind - seen;
            lines.push_back("  " + journal[seen] +
                            (times > 1 ? " x " + std::to_string(times) : std::string()));
            seen = behind;
        }
    }
    return lines;
}

/// If they differ, the actual journal is written beside the test program.
void expectGolden(const std::vector<std::string>& journal, const std::string& name) {
    EXPECT_EQ(journal, golden(name));
    if (!testing::Test::HasFailure()) return;
    std::ofstream now(name);
    for (const std::string& line : journal) now << line << '\n';
}

TEST(GoldenStart, WithAUnitRunsToTheLiveRack) {
    RackBench bench;
    expectGolden(journalOfStart(bench), "start_with_unit.txt");
    EXPECT_FALSE(bench.desktop.ended());
}

TEST(GoldenStart, WithoutAUnitRunsOverTheOfferToTheDemoRack) {
    RackBench bench;
    bench.driver.hardwareVersion = 0;
    bench.desktop.modalScripts["FormModoDemo"] = [&bench](display::Form&) {
        bench.hand.click(bench.forms.formModoDemo.Command1);
    };
    expectGolden(journalOfStart(bench), "start_in_demo_mode.txt");
    EXPECT_FALSE(bench.desktop.ended());
}

TEST(GoldenStart, RefusedEndsAtTheOffer) {
    RackBench bench;
    bench.driver.hardwareVersion = 0;
    bench.desktop.modalScripts["FormModoDemo"] = [&bench](display::Form&) {
        bench.hand.click(bench.forms.formModoDemo.Command2);
    };
    expectGolden(journalOfStart(bench), "start_refused.txt");
    EXPECT_TRUE(bench.desktop.ended());
}

TEST(GoldenStart, AQuestionThatNoScriptAnswersFailsTheTest) {
    RackBench bench;
    bench.driver.hardwareVersion = 0;
    EXPECT_THROW(bench.start(), display::Unscripted);
}

}  // namespace
}  // namespace hmonitor::test
