// SPDX-License-Identifier: GPL-3.0-or-later
// The modes of a library, walked through the loader on the simulated unit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "tests/drivers/simulated_library.h"

namespace {

constexpr std::string_view kFast = "pace = 200\nseed = 16\n";

TEST(LibraryStates, BeforeInitEveryCallIsHarmless) {
    const SimulatedLibrary unit(kFast);
    float level = -7;
    EXPECT_EQ(unit.version(), 0);
    EXPECT_NE(unit->normal(985, 0, 0, 0, 0), 0);
    EXPECT_NE(unit->parar(), 0);
    EXPECT_NE(unit->reset(1), 0);
    EXPECT_NE(unit->super(985, &level), 0);
    EXPECT_NE(unit->startEspectro(875, 895, 100), 0);
    EXPECT_EQ(unit->tramaEspectroRecibida(), 0);
    EXPECT_NE(unit->getEspectro(985, &level), 0);
    EXPECT_EQ(level, -7);
    EXPECT_EQ(unit.response()[0], -77);
    EXPECT_EQ(unit.readings(), hm16::Readings{});
}

TEST(LibraryStates, AfterTerminateEveryCallIsHarmless) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    unit.tune(985);
    unit->terminate();
    EXPECT_EQ(unit.version(), 0);
    EXPECT_NE(unit->parar(), 0);
    EXPECT_NE(unit->normal(985, 0, 0, 0, 0), 0);
    EXPECT_EQ(unit.readings(), unit.readings());
    unit->terminate();
}

TEST(LibraryStates, InitOpensOnceAndTellsTheVersions) {
    const SimulatedLibrary unit("");
    EXPECT_EQ(unit->init(), 0);
    EXPECT_NE(unit->init(), 0);
    EXPECT_EQ(unit.version(), 1.8f);
    float driver = 0;
    unit->getDriverVersion(&driver);
    EXPECT_EQ(driver, 1.0f);
    EXPECT_EQ(unit->setSintoMode(0), 0);
}

TEST(LibraryStates, StopIsLegalTwiceInARowAndWhenNothingRuns) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    EXPECT_EQ(unit->parar(), 0);
    EXPECT_EQ(unit->parar(), 0);
    unit.tune(985);
    EXPECT_EQ(unit->parar(), 0);
    EXPECT_EQ(unit->parar(), 0);
}

TEST(LibraryStates, NormalShowsTheTunedStationWhenItReturns) {
    const SimulatedLibrary unit("");
    unit->init();
    unit.tune(985);
    EXPECT_NEAR(unit.readings().field, 88, 1);
    unit.tune(990);
    EXPECT_LT(unit.readings().field, 45);
    unit.tune(1025.5f);
    EXPECT_NEAR(unit.readings().field, 73, 1);
}

TEST(LibraryStates, NormalIsRefusedUntilStopped) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    unit.tune(985);
    EXPECT_NE(unit->normal(990, 0, 0, 0, 0), 0);
    EXPECT_NEAR(unit.readings().field, 88, 1);
    unit->parar();
    EXPECT_NE(unit->normal(std::nanf(""), 0, 0, 0, 0), 0);
    EXPECT_NE(unit->normal(-5, 0, 0, 0, 0), 0);
    EXPECT_EQ(unit->normal(990, 0, 0, 0, 0), 0);
}

TEST(LibraryStates, ReadingsMoveWhileMeasuringAndStandWhenStopped) {
    const SimulatedLibrary unit("");
    unit->init();
    unit.tune(985);
    const auto first = unit.readings();
    EXPECT_TRUE(SimulatedLibrary::eventually([&] { return unit.readings() != first; }));
    unit->parar();
    const auto last = unit.readings();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(unit.readings(), last);
}

TEST(LibraryStates, TheArgumentsOfNormalReachTheUnit) {
    const SimulatedLibrary unit("pace = 0.1\n");
    unit->init();
    unit->normal(985, 0, 0, 0, 0);
    const float peak = unit.readings().peakModulation;
    unit->parar();
    unit->normal(985, 1, 0, 0, 0);
    EXPECT_LT(unit.readings().peakModulation, peak * 0.85f);
    unit->parar();
    unit->normal(985, 0, 1, 0, 0);
    EXPECT_LT(unit.readings().levelSecond, unit.readings().levelFirst - 5);
}

TEST(LibraryStates, SuperMeasuresOneLevelInWholeDecibels) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    for (const float frequency : {870.0f, 985.0f, 985.25f, 1025.5f, 1082.0f}) {
        float level = -1;
        EXPECT_EQ(unit->super(frequency, &level), 0);
        EXPECT_EQ(level, std::round(level));
        EXPECT_GT(level, 18);
    }
    float level = -1;
    unit->super(985, &level);
    EXPECT_NEAR(level, 88, 1);
    EXPECT_EQ(unit->normal(985, 0, 0, 0, 0), 0) << "a single level leaves the unit idle";
}

TEST(LibraryStates, SuperTakesFiveMilliseconds) {
    const SimulatedLibrary unit("");
    unit->init();
    const auto start = std::chrono::steady_clock::now();
    float level = 0;
    for (int i = 0; i < 10; ++i) unit->super(985, &level);
    // A sleep never ends early; how late it ends depends on the machine.
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
}

TEST(LibraryStates, SuperBesideMeasuringLeavesMeasuringOn) {
    const SimulatedLibrary unit("");
    unit->init();
    unit.tune(985);
    float level = 0;
    EXPECT_EQ(unit->super(939, &level), 0);
    EXPECT_NEAR(level, 86, 2);
    const auto before = unit.readings();
    EXPECT_TRUE(SimulatedLibrary::eventually([&] { return unit.readings() != before; }));
}

TEST(LibraryStates, AStepThatTheBandwidthTableNeedsIsWholeAndFinerOnesAreForTheAsking) {
    const SimulatedLibrary unit("pace = 200\nlevel_step_db = 0\n");
    unit->init();
    bool fine = false;
    for (int i = 0; i < 50 && !fine; ++i) {
        float level = 0;
        unit->super(985, &level);
        fine = level != std::round(level);
    }
    EXPECT_TRUE(fine);
}

TEST(LibraryStates, SweepFramesComeUntilStopped) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    EXPECT_EQ(unit->startEspectro(975, 995, 100), 0);
    EXPECT_TRUE(unit.frameComes());
    EXPECT_TRUE(unit.frameComes());
    EXPECT_NEAR(unit.swept(985), 88, 1);
    EXPECT_EQ(unit.swept(985), std::round(unit.swept(985)));
    unit->parar();
    EXPECT_EQ(unit->tramaEspectroRecibida(), 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(unit->tramaEspectroRecibida(), 0);
}

TEST(LibraryStates, AFrameTakesTwoMillisecondsAPoint) {
    const SimulatedLibrary unit("");
    unit->init();
    const auto start = std::chrono::steady_clock::now();
    // 87.5 to 108 MHz by 250 kHz: 83 points.
    EXPECT_EQ(unit->startEspectro(875, 1080, 250), 0);
    ASSERT_TRUE(unit.frameComes());
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(166));
}

TEST(LibraryStates, SweptLevelsStayAfterTheStopAndOverTheNextSweep) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    EXPECT_EQ(unit.swept(985), 24) << "never covered: the noise floor";
    unit->startEspectro(975, 995, 100);
    ASSERT_TRUE(unit.frameComes());
    unit->parar();
    EXPECT_NEAR(unit.swept(985), 88, 1);
    unit->startEspectro(995, 1015, 100);
    EXPECT_NEAR(unit.swept(985), 88, 1);
    ASSERT_TRUE(unit.frameComes());
    unit->parar();
    EXPECT_NEAR(unit.swept(985), 88, 1);
    EXPECT_NEAR(unit.swept(1009), 76, 2);
    unit.tune(985);
    EXPECT_NEAR(unit.swept(1009), 76, 2);
    EXPECT_EQ(unit.swept(900), 24);
}

TEST(LibraryStates, AStepOf25GivesTheAnalyzerALevelAtEachOfIts801Points) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    EXPECT_EQ(unit->startEspectro(880, 1080, 25), 0);
    ASSERT_TRUE(unit.frameComes());
    ASSERT_TRUE(unit.frameComes()) << "frames go on coming";
    EXPECT_NEAR(unit.swept(985), 88, 1);
    EXPECT_GT(unit.swept(985), unit.swept(983.5f) + 20);
    // 1080.25 was not covered, 1080 was.
    EXPECT_EQ(unit.swept(1080.25f), 24);
    std::set<float> levels;
    for (int i = 0; i <= 800; ++i) levels.insert(unit.swept(880 + 0.25f * static_cast<float>(i)));
    EXPECT_GT(levels.size(), 30u);
    unit->parar();
    EXPECT_EQ(unit->tramaEspectroRecibida(), 0);
}

TEST(LibraryStates, AStepOfZeroIsTwentyFiveKilohertz) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    EXPECT_EQ(unit->startEspectro(985.25f, 986.5f, 0), 0);
    ASSERT_TRUE(unit.frameComes());
    unit->parar();
    std::set<float> levels;
    float last = 89;
    for (int i = 1; i <= 6; ++i) {
        const float level = unit.swept(985 + 0.25f * static_cast<float>(i));
        EXPECT_LE(level, last + 2);
        last = level;
        levels.insert(level);
    }
    EXPECT_GE(levels.size(), 4u) << "each 25 kHz has a level of its own";
    EXPECT_EQ(unit.swept(986.75f), 24);
}

TEST(LibraryStates, ASweepThatMakesNoSenseIsRefused) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    EXPECT_NE(unit->startEspectro(995, 975, 100), 0);
    EXPECT_NE(unit->startEspectro(975, 995, -100), 0);
    EXPECT_NE(unit->startEspectro(975, 995, 10), 0);
    EXPECT_NE(unit->startEspectro(std::nanf(""), 995, 100), 0);
    EXPECT_EQ(unit->startEspectro(975, 995, 250), 0);
    float level = -7;
    EXPECT_NE(unit->super(985, &level), 0) << "a sweep has the receiver";
    EXPECT_NE(unit->normal(985, 0, 0, 0, 0), 0);
    EXPECT_EQ(level, -7);
}

TEST(LibraryStates, OnlyUnitsOfTheSweepVersionsDeliverFrames) {
    for (const char* version : {"1.5", "1.69", "2.0"}) {
        const SimulatedLibrary unit("pace = 200\nversion = " + std::string(version) + "\n");
        unit->init();
        EXPECT_NE(unit->startEspectro(975, 995, 100), 0) << version;
        float level = 0;
        EXPECT_EQ(unit->super(985, &level), 0) << version;
    }
    for (const char* version : {"1.7", "1.8", "1.99"}) {
        const SimulatedLibrary unit("pace = 200\nversion = " + std::string(version) + "\n");
        unit->init();
        EXPECT_EQ(unit->startEspectro(975, 995, 100), 0) << version;
    }
}

TEST(LibraryStates, AResponseRunEndsWithItsMarkAndEightPairsInAnOrderOfTheirOwn) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    unit.tune(985, 0, 1);
    EXPECT_FALSE(showsEndMark(unit.readings()));
    ASSERT_TRUE(SimulatedLibrary::eventually([&] { return showsEndMark(unit.readings()); }));
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_TRUE(showsEndMark(unit.readings())) << "the mark stands until the unit is stopped";
    unit->parar();
    const auto pairs = unit.response();
    std::multiset<int> frequencies;
    for (std::size_t i = 0; i < 16; i += 2) frequencies.insert(pairs[i]);
    EXPECT_EQ(frequencies, (std::multiset<int>{30, 125, 400, 1000, 4000, 8000, 12000, 15000}));
    EXPECT_EQ(pairs[0], 1000);
    unit.tune(985);
    EXPECT_FALSE(showsEndMark(unit.readings()));
}

TEST(LibraryStates, AResponseRunThatIsStoppedEarlyHasFewerResults) {
    const SimulatedLibrary unit("pace = 1\n");
    unit->init();
    unit.tune(985, 0, 1);
    unit->parar();
    const auto pairs = unit.response();
    for (std::size_t i = 0; i < 16; i += 2) EXPECT_EQ(pairs[i], 0);
}

TEST(LibraryStates, TheResponseIsNotGivenWhileMeasuring) {
    const SimulatedLibrary unit(kFast);
    unit->init();
    unit.tune(985);
    EXPECT_EQ(unit.response()[0], -77);
    unit->parar();
    EXPECT_EQ(unit.response()[0], 0) << "there was no run yet";
}

TEST(LibraryStates, TheEndMarkNeverComesWithoutAnArmedRun) {
    const SimulatedLibrary unit("pace = 1000\n");
    unit->init();
    unit.tune(985);
    for (int i = 0; i < 100; ++i) {
        ASSERT_FALSE(showsEndMark(unit.readings()));
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

TEST(LibraryStates, AfterDemoEveryCallStillReturns) {
    const SimulatedLibrary unit("version = 0\n");
    unit->init();
    EXPECT_EQ(unit.version(), 0);
    EXPECT_EQ(unit->demoMode(), 0);
    EXPECT_EQ(unit->demoMode(), 0);
    EXPECT_EQ(unit->parar(), 0);
    float level = -7;
    EXPECT_NE(unit->super(985, &level), 0);
    EXPECT_NE(unit->getEspectro(985, &level), 0);
    EXPECT_EQ(level, -7);
    EXPECT_NE(unit->reset(1), 0);
    EXPECT_NE(unit->normal(985, 0, 0, 0, 0), 0);
    EXPECT_NE(unit->startEspectro(975, 995, 100), 0);
    EXPECT_EQ(unit->tramaEspectroRecibida(), 0);
    EXPECT_EQ(unit.readings(), hm16::Readings{});
    EXPECT_EQ(unit.version(), 0);
}

TEST(LibraryStates, ALibraryBearsToBeLeftWithoutTerminate) {
    auto unit = std::make_unique<SimulatedLibrary>(kFast);
    EXPECT_EXIT(
        {
            (*unit)->init();
            unit->tune(985);
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
