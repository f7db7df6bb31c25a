// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the simulated unit, and a unit with faults.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <sstream>
#include <vector>

#include "tests/drivers/simulated_library.h"

namespace {

using testing::HasSubstr;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

constexpr std::chrono::milliseconds kSeconds{60};

// Measures a station at least as long, until the unit has told something of the time after: on a
// busy machine its thread may have had no turn before.
void measureForSeconds(const SimulatedLibrary& unit, float frequency, int logFiles = 0) {
    unit.tune(frequency, 0, 0, logFiles);
    std::this_thread::sleep_for(kSeconds);
    const hm16::Readings before = unit.readings();
    EXPECT_TRUE(unit.eventually([&] { return unit.readings() != before; }));
    unit->parar();
}

void passOver(const SimulatedLibrary& unit, float frequency) {
    unit.tune(frequency);
    std::this_thread::sleep_for(kSeconds);
    unit->parar();
}

TEST(UnitFiles, TheResultsOfTheTunedFrequencyStandAfterTheStop) {
    const SimulatedLibrary unit("pace = 100\n");
    unit->init();
    measureForSeconds(unit, 985);
    const auto lines = linesOf(unit.folder().read("0985.dat"));
    ASSERT_EQ(lines.size(), 24u);
    for (const auto& line : lines) EXPECT_TRUE(line.ends_with('\r')) << line;
    EXPECT_EQ(lines[0], "985\r");
    EXPECT_NEAR(std::stod(lines[17]), -71, 1.5);
    EXPECT_NEAR(std::stod(lines[18]), -70.5, 1.5);
    EXPECT_NEAR(std::stod(lines[19]), 53, 2.5);
    EXPECT_NEAR(std::stod(lines[20]), 52, 2.5);
    EXPECT_NEAR(std::stod(lines[21]), 0.15, 0.04);
    EXPECT_NEAR(std::stod(lines[23]), 88, 1);
}

TEST(UnitFiles, AHalfStepHasAFileOfItsOwn) {
    const SimulatedLibrary unit("pace = 100\n");
    unit->init();
    measureForSeconds(unit, 1025.5f);
    EXPECT_TRUE(unit.folder().has("1025.5.dat"));
}

TEST(UnitFiles, BetweenStationsNoFileComesIntoBeing) {
    const SimulatedLibrary unit("pace = 100\n");
    unit->init();
    const std::size_t before = unit.folder().names().size();
    passOver(unit, 990);
    EXPECT_EQ(unit.folder().names().size(), before);
}

TEST(UnitFiles, PassingOverAStationLeavesNoFile) {
    const SimulatedLibrary unit("pace = 0.1\n");
    unit->init();
    passOver(unit, 985);
    EXPECT_FALSE(unit.folder().has("0985.dat"));
}

TEST(UnitFiles, ResultsGoOnFromTheFileThatStands) {
    const SimulatedLibrary unit("pace = 100\n");
    std::string file = "985\r\n20250101\r\n10:00\r\n1000\r\n";
    for (int i = 0; i < 13; ++i) file += "0\r\n";
    file += "-99\r\n-98\r\n90\r\n20\r\n0.01\r\n0\r\n0\r\n";
    unit.folder().write("0985.dat", file);
    unit->init();
    measureForSeconds(unit, 985);
    const auto lines = linesOf(unit.folder().read("0985.dat"));
    ASSERT_EQ(lines.size(), 24u);
    EXPECT_GT(std::stod(lines[3]), 1001);
    EXPECT_EQ(lines[17], "-99\r");
    EXPECT_EQ(lines[18], "-98\r");
    EXPECT_EQ(lines[19], "90\r");
    EXPECT_GT(std::stod(lines[20]), 45);
    EXPECT_EQ(lines[21], "0.01\r");
}

TEST(UnitFiles, ResetClearsItsResultsBeforeItReturns) {
    const SimulatedLibrary unit("pace = 100\n");
    unit->init();
    measureForSeconds(unit, 985);
    const auto before = linesOf(unit.folder().read("0985.dat"));
    EXPECT_EQ(unit->reset(1), 0);
    auto lines = linesOf(unit.folder().read("0985.dat"));
    ASSERT_EQ(lines.size(), 24u);
    EXPECT_EQ(lines[17], "xx\r");
    EXPECT_EQ(lines[18], "xx\r");
    EXPECT_EQ(lines[19], before[19]);
    EXPECT_EQ(lines[21], before[21]);
    EXPECT_EQ(unit->reset(2), 0);
    lines = linesOf(unit.folder().read("0985.dat"));
    EXPECT_EQ(lines[21], "0\r");
    EXPECT_EQ(lines[20], before[20]);
    EXPECT_EQ(unit->reset(3), 0);
    lines = linesOf(unit.folder().read("0985.dat"));
    EXPECT_EQ(lines[19], "0\r");
    EXPECT_EQ(lines[20], "0\r");
}

TEST(UnitFiles, ResetKnowsThreeCodesAndOnlyModeIdle) {
    const SimulatedLibrary unit("pace = 100\n");
    unit->init();
    unit.tune(985);
    EXPECT_NE(unit->reset(1), 0);
    unit->parar();
    EXPECT_NE(unit->reset(0), 0);
    EXPECT_NE(unit->reset(4), 0);
    EXPECT_EQ(unit->reset(3), 0);
}

TEST(UnitFiles, TheDaysLogGetsOneLineAnHourWhenAsked) {
    // At this pace an hour takes 1.2 seconds.
    const SimulatedLibrary unit("pace = 3000\nclock = 2026-03-04 21:45:00\n");
    unit->init();
    unit.tune(985, 0, 0, 1);
    ASSERT_TRUE(SimulatedLibrary::eventually(
        [&] { return linesOf(unit.folder().read("20260304.log")).size() >= 2; }));
    const auto lines = linesOf(unit.folder().read("20260304.log"));
    EXPECT_TRUE(lines[0].starts_with("21 ")) << lines[0];
    EXPECT_TRUE(lines[1].starts_with("22 ")) << lines[1];
    for (const auto& line : lines) {
        EXPECT_EQ(std::count(line.begin(), line.end(), ' '), 10) << line;
        EXPECT_TRUE(line.ends_with(" \r")) << line;
    }
    std::istringstream fields(lines[1]);
    double hour = 0, modulation = 0, first = 0, second = 0, phase = 0, power = 0, minutes = 0;
    fields >> hour >> modulation >> first >> second >> phase >> power >> minutes;
    // The highest of as many readings as the machine had time for.
    EXPECT_GT(modulation, 60);
    EXPECT_LT(modulation, 108);
    EXPECT_NEAR(first, -6, 4);
    EXPECT_NEAR(second, -6, 4);
    EXPECT_NEAR(phase, 45, 4);
    EXPECT_NEAR(power, 1, 0.1);
    EXPECT_NEAR(minutes, 60, 6);
}

TEST(UnitFiles, MidnightBeginsTheNextDaysLog) {
    const SimulatedLibrary unit("pace = 3000\nclock = 2026-12-31 23:45:00\n");
    unit->init();
    unit.tune(985, 0, 0, 1);
    ASSERT_TRUE(SimulatedLibrary::eventually([&] { return unit.folder().has("20270101.log"); }));
    EXPECT_TRUE(unit.folder().read("20261231.log").starts_with("23 "));
    EXPECT_TRUE(unit.folder().read("20270101.log").starts_with("0 "));
}

TEST(UnitFiles, NoLogIsKeptWhenItWasNotAskedFor) {
    const SimulatedLibrary unit("pace = 10000\nclock = 2026-03-04 21:59:00\n");
    unit->init();
    unit.tune(985);
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    unit->terminate();
    EXPECT_FALSE(unit.folder().has("20260304.log"));
}

TEST(UnitFiles, TerminateWritesTheUnfinishedHour) {
    const SimulatedLibrary unit("pace = 6000\nclock = 2026-03-04 21:01:00\n");
    unit->init();
    unit.tune(985, 0, 0, 1);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    unit->parar();
    EXPECT_FALSE(unit.folder().has("20260304.log"));
    unit->terminate();
    EXPECT_TRUE(unit.folder().read("20260304.log").starts_with("21 "));
}

TEST(UnitFaults, AWrongSettingIsOneSentenceAndNoUnit) {
    const SimulatedLibrary unit("pace = 1\nversion = new\n");
    testing::internal::CaptureStderr();
    unit->init();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              (unit.folder().path() / "hm-16.ini").string() +
                  ", line 2: version is \"new\", but must be a number from 0 to 9.9.\n");
    EXPECT_EQ(unit.version(), 0);
    EXPECT_NE(unit->normal(985, 0, 0, 0, 0), 0);
}

TEST(UnitFaults, AFileThatCannotBeWrittenIsSaidOnceAndMeasuringGoesOn) {
    const SimulatedLibrary unit("pace = 100\n");
    std::filesystem::create_directory(unit.folder().path() / "0985.dat");
    unit.folder().write("0985.dat/inside", "x");
    unit->init();
    testing::internal::CaptureStderr();
    measureForSeconds(unit, 985);
    measureForSeconds(unit, 985);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "hm-16: " + (unit.folder().path() / "0985.dat").string() +
                  " cannot be written: Is a directory.\n");
    EXPECT_NEAR(unit.readings().field, 88, 1);
}

TEST(UnitFaults, LeftOversOfRewritesGoAtTheStart) {
    const SimulatedLibrary unit("");
    unit.folder().write(".hmonitor-999999999-0.rewrite", "torn");
    unit->init();
    EXPECT_FALSE(unit.folder().has(".hmonitor-999999999-0.rewrite"));
}

TEST(UnitFaults, AUnitThatFellSilentStandsStillAndFails) {
    const SimulatedLibrary unit("silent_after = 0.2\n");
    unit->init();
    unit.tune(985);
    std::this_thread::sleep_for(std::chrono::milliseconds(260));
    const auto last = unit.readings();
    EXPECT_GT(last.field, 80);
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(unit.readings(), last);
    unit.tune(990);
    EXPECT_EQ(unit.readings(), last);
    unit->parar();
    float level = -7;
    EXPECT_NE(unit->super(985, &level), 0);
    EXPECT_EQ(level, -7);
    EXPECT_EQ(unit->startEspectro(975, 980, 100), 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
    EXPECT_EQ(unit->tramaEspectroRecibida(), 0);
    EXPECT_EQ(unit.swept(978), 24);
}

TEST(UnitFaults, SingleLevelsFailAfterTheNumberAskedFor) {
    const SimulatedLibrary unit("pace = 100\nsuper_fails_after = 3\n");
    unit->init();
    float level = 0;
    for (int i = 0; i < 3; ++i) EXPECT_EQ(unit->super(985, &level), 0);
    EXPECT_NE(unit->super(985, &level), 0);
    EXPECT_NE(unit->super(985, &level), 0);
}

TEST(UnitFaults, AResponseRunCanLackResults) {
    const SimulatedLibrary unit("pace = 200\nresponse_pairs = 7\n");
    unit->init();
    unit.tune(985, 0, 1);
    ASSERT_TRUE(SimulatedLibrary::eventually([&] { return showsEndMark(unit.readings()); }));
    unit->parar();
    const auto pairs = unit.response();
    EXPECT_NE(pairs[12], 0);
    EXPECT_EQ(pairs[14], 0);
    EXPECT_EQ(pairs[15], 0);
}

bool garbageShows(const std::string& kind, const std::function<bool(float)>& isGarbage) {
    const SimulatedLibrary unit("garbage = " + kind + "\ngarbage_every = 1\n");
    unit->init();
    unit.tune(985);
    return isGarbage(unit.readings().field);
}

TEST(UnitFaults, GarbageOfEachKindShowsInTheReadings) {
    EXPECT_TRUE(garbageShows("nan", [](float f) { return std::isnan(f); }));
    EXPECT_TRUE(garbageShows("infinity", [](float f) { return std::isinf(f); }));
    EXPECT_TRUE(garbageShows("huge", [](float f) { return std::abs(f) == 1e38f; }));
    EXPECT_TRUE(garbageShows("random", [](float f) { return f > 0 && (f < 80 || f > 95); }));
    EXPECT_TRUE(garbageShows("none", [](float f) { return f > 80 && f < 95; }));
}

TEST(UnitFaults, GarbageLeavesTheStoredResultsAlone) {
    const SimulatedLibrary unit("pace = 100\ngarbage = nan\ngarbage_every = 1\n");
    unit->init();
    measureForSeconds(unit, 985);
    const std::string file = unit.folder().read("0985.dat");
    EXPECT_THAT(file, testing::Not(HasSubstr("nan")));
    EXPECT_NEAR(std::stod(linesOf(file).at(17)), -71, 1.5);
}

}  // namespace
