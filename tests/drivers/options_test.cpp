// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hm16::simulated {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Options, AnEmptyFileIsTheUnitAsShipped) {
    Settings settings = Settings::parse("", "hm-16.ini");
    const Options options = readOptions(settings);
    EXPECT_EQ(options.version, 1.8f);
    EXPECT_EQ(options.seed, 16u);
    EXPECT_EQ(options.pace, 1);
    EXPECT_EQ(options.levelStep, 1);
    EXPECT_EQ(options.clock, std::nullopt);
    EXPECT_EQ(options.silentAfter, 0);
    EXPECT_EQ(options.superFailsAfter, 0);
    EXPECT_EQ(options.garbage, Garbage::None);
    EXPECT_EQ(options.responsePairs, 8);
    EXPECT_THAT(settings.faults(), IsEmpty());
}

TEST(Options, TakesEverySetting) {
    Settings settings = Settings::parse(
        "version = 2.0\nseed = 7\npace = 100\nlevel_step_db = 0.1\nclock = 2026-03-04 22:59:50\n"
        "silent_after = 2.5\nsuper_fails_after = 3\ngarbage = huge\ngarbage_every = 9\n"
        "response_pairs = 7\n",
        "hm-16.ini");
    const Options options = readOptions(settings);
    EXPECT_EQ(options.version, 2.0f);
    EXPECT_EQ(options.seed, 7u);
    EXPECT_EQ(options.pace, 100);
    EXPECT_EQ(options.levelStep, 0.1);
    EXPECT_EQ(options.clock, (LocalTime{2026, 3, 4, 22, 59, 50}));
    EXPECT_EQ(options.silentAfter, 2.5);
    EXPECT_EQ(options.superFailsAfter, 3);
    EXPECT_EQ(options.garbage, Garbage::Huge);
    EXPECT_EQ(options.garbageEvery, 9);
    EXPECT_EQ(options.responsePairs, 7);
    EXPECT_THAT(settings.faults(), IsEmpty());
}

TEST(Options, RefusesATimeThatNoClockShows) {
    for (const char* clock :
         {"2026-02-30 10:00:00", "2026-03-04 24:00:00", "tomorrow", "2026-03-04",
          "2026-03-04T10:00:00", "2026-03-0x 10:00:00", "9421-01-01 10:00:00", ""}) {
        Settings settings = Settings::parse(std::string("clock = ") + clock, "hm-16.ini");
        EXPECT_EQ(readOptions(settings).clock, std::nullopt);
        EXPECT_THAT(settings.faults(),
                    ElementsAre("hm-16.ini, line 1: clock is \"" + std::string(clock) +
                                "\", but must be now or a time such as 2026-03-04 22:59:50."));
    }
}

}  // namespace
}  // namespace hm16::simulated
