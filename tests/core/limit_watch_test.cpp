// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/limit_watch.h"

#include <gtest/gtest.h>

#include <array>

#include "core/limits_file.h"

namespace hmonitor {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

const figures::Figure& figureOf(const char* key) {
    return *figures::find(key);
}

/// Readings every 100 ms.
struct LimitTicks : testing::Test {
    /// A rule of the pilot's level: 8 to 10 percent, told after 3 s, over after 2 s.
    LimitTicks() {
        LimitRule rule;
        rule.name = "pilot";
        rule.figure = &figureOf("pilot_level");
        rule.good = {8, 10};
        rule.holdsFor = 3;
        rule.release = 2;
        watch.watch({rule});
        states.fill(figures::State::Known);
    }
    /// Keeps the level for that time.
    void stand(float level, milliseconds time) {
        readings.pilotLevel = level;
        for (milliseconds gone{0}; gone < time; gone += kTick) {
            watch.take(readings, states, now);
            now += kTick;
        }
    }
    void pilotIs(figures::State state) {
        states[static_cast<std::size_t>(&figureOf("pilot_level") - figures::all().data())] = state;
    }
    bool on() const { return watch.of(figureOf("pilot_level")).has_value(); }

    static constexpr milliseconds kTick{100};
    LimitWatch watch;
    figures::Readings readings;
    std::array<figures::State, figures::kCount> states{};
    milliseconds now{5000};
};

TEST_F(LimitTicks, ARuleThatHeldForItsTimeIsOn) {
    stand(9, seconds(10));
    EXPECT_FALSE(on());
    stand(10.1f, seconds(3));
    EXPECT_FALSE(on());
    stand(10.1f, kTick);
    EXPECT_TRUE(on());
}

TEST_F(LimitTicks, TheBoundsAreGoodValues) {
    stand(8, seconds(10));
    stand(10, seconds(10));
    EXPECT_FALSE(on());
    stand(7.99f, seconds(4));
    EXPECT_TRUE(on());
}

TEST_F(LimitTicks, OneGoodReadingBeginsTheTimeAnew) {
    stand(7, milliseconds(2900));
    stand(9, kTick);
    stand(7, milliseconds(3000));
    EXPECT_FALSE(on());
    stand(7, kTick);
    EXPECT_TRUE(on());
}

TEST_F(LimitTicks, GoesOffOnceTheFigureWasGoodForTheRelease) {
    stand(7, seconds(4));
    stand(9, milliseconds(1900));
    stand(7, kTick);
    stand(9, milliseconds(2000));
    EXPECT_TRUE(on());
    stand(9, kTick);
    EXPECT_FALSE(on());
}

TEST_F(LimitTicks, AnUnknownFigureNeverTriggers) {
    for (int state = 1; state <= 12; ++state) {
        pilotIs(static_cast<figures::State>(state));
        stand(2, seconds(10));
        EXPECT_FALSE(on()) << state;
    }
}

TEST_F(LimitTicks, AnUnknownFigureNeverReleases) {
    stand(2, seconds(4));
    for (int state = 1; state <= 12; ++state) {
        pilotIs(static_cast<figures::State>(state));
        stand(9, seconds(10));
        EXPECT_TRUE(on()) << state;
    }
    pilotIs(figures::State::Known);
    stand(9, milliseconds(2100));
    EXPECT_FALSE(on());
}

TEST_F(LimitTicks, AStationWithoutAPilotBreaksNoRuleOfThePilot) {
    stand(0, seconds(10));
    EXPECT_FALSE(on());
    stand(0.3f, seconds(10));
    EXPECT_FALSE(on());
    stand(0.31f, seconds(3));
    EXPECT_FALSE(on()) << "the time begins with the pilot";
    stand(0.31f, kTick);
    EXPECT_TRUE(on());
    stand(0, seconds(10));
    EXPECT_TRUE(on()) << "and nothing is over because it goes away";
}

TEST_F(LimitTicks, AStationWithoutRdsBreaksNoRuleOfRds) {
    LimitRule rule;
    rule.figure = &figureOf("rds_level");
    rule.good.lowest = 1.3f;
    rule.holdsFor = 0;
    watch.watch({rule});
    readings.rdsLevel = 0.3f;
    watch.take(readings, states, now);
    EXPECT_FALSE(watch.of(*rule.figure));
    readings.rdsLevel = 0.4f;
    watch.take(readings, states, now);
    EXPECT_TRUE(watch.of(*rule.figure));
}

TEST_F(LimitTicks, WhatIsUnknownBreaksTheTime) {
    stand(2, milliseconds(2900));
    pilotIs(figures::State::Stale);
    stand(2, kTick);
    pilotIs(figures::State::Known);
    stand(2, milliseconds(3000));
    EXPECT_FALSE(on());
    stand(2, kTick);
    EXPECT_TRUE(on());
}

TEST_F(LimitTicks, ReadingsThatStayAwayBreakTheTime) {
    stand(2, milliseconds(2900));
    now += seconds(60);
    stand(2, milliseconds(3000));
    EXPECT_FALSE(on());
    stand(2, kTick);
    EXPECT_TRUE(on());
    // What is on stays on.
    now += seconds(60);
    stand(9, milliseconds(2000));
    EXPECT_TRUE(on());
}

TEST_F(LimitTicks, SaysOnWhichSideTheFigureIs) {
    stand(2, seconds(4));
    EXPECT_EQ(watch.of(figureOf("pilot_level"))->side, LimitAlarm::Side::Low);
    stand(12, kTick);
    EXPECT_EQ(watch.of(figureOf("pilot_level"))->side, LimitAlarm::Side::High);
}

TEST_F(LimitTicks, WithoutATimeOneReadingIsEnough) {
    LimitRule rule;
    rule.figure = &figureOf("deviation_peak");
    rule.good.highest = 77;
    rule.holdsFor = 0;
    rule.release = 0;
    watch.watch({rule});
    // 77 kHz are 102.67 percent.
    readings.peakModulation = 102.6f;
    watch.take(readings, states, now);
    EXPECT_FALSE(watch.of(*rule.figure));
    readings.peakModulation = 102.7f;
    watch.take(readings, states, now);
    EXPECT_TRUE(watch.of(*rule.figure));
    readings.peakModulation = 90;
    watch.take(readings, states, now);
    EXPECT_FALSE(watch.of(*rule.figure));
}

TEST_F(LimitTicks, TheWorstOfTwoRulesIsTold) {
    LimitRule warning = watch.rules().front(), alarm = warning;
    warning.name = "warning", alarm.name = "alarm";
    warning.holdsFor = alarm.holdsFor = 0;
    alarm.good = {4, 14};
    alarm.severity = LimitSeverity::Alarm;
    watch.watch({warning, alarm});
    stand(6, kTick);
    EXPECT_EQ(watch.of(figureOf("pilot_level"))->severity, LimitSeverity::Warning);
    stand(3, kTick);
    const auto told = watch.of(figureOf("pilot_level"));
    EXPECT_EQ(told->severity, LimitSeverity::Alarm);
    EXPECT_EQ(told->rule->name, "alarm");
}

TEST_F(LimitTicks, AnotherStationBeginsWithNothingOn) {
    stand(2, seconds(4));
    watch.forget();
    EXPECT_FALSE(on());
    stand(2, milliseconds(3000));
    EXPECT_FALSE(on());
    stand(2, kTick);
    EXPECT_TRUE(on());
}

TEST_F(LimitTicks, AnInterruptionKeepsWhatIsOnAndBeginsTheTimesAnew) {
    stand(2, milliseconds(2900));
    watch.interrupt();
    stand(2, milliseconds(3000));
    EXPECT_FALSE(on());
    stand(2, kTick);
    watch.interrupt();
    EXPECT_TRUE(on());
}

TEST_F(LimitTicks, OtherFiguresAreNotTouched) {
    stand(2, seconds(4));
    for (const figures::Figure& figure : figures::all()) {
        EXPECT_EQ(watch.of(figure).has_value(), &figure == &figureOf("pilot_level"));
    }
}

}  // namespace
}  // namespace hmonitor
