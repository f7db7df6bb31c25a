// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/history/feed.h"

namespace history::test {
namespace {

constexpr std::int64_t kBegin = 1'000'000'000;  // ms

Outputs outputs(float value) {
    Outputs outputs;
    outputs.fill(value);
    return outputs;
}

struct RecordingTest : testing::Test {
    Kept kept;
    Recording recording{kept};
    std::int64_t now = kBegin;

    void tuned(int khz = kStation, int mode = 0) { recording.take(Inputs::tuned(now, khz, mode)); }
    /// Readings every 30 ms, as of the heartbeat.
    void beats(std::int64_t ms, float value = 5) {
        for (const std::int64_t end = now + ms; now < end; now += 30) {
            recording.take(readings(now, value));
        }
    }
    Input readings(std::int64_t at, float value) const {
        return slept(Inputs::readings(at, outputs(value)));
    }
    Input slept(Input input) const {
        input.at.asleepMs = asleep;
        return input;
    }
    /// Slots of 50 ms with consecutive numbers.
    void slots(int count, float value = 5) {
        for (int i = 0; i < count; ++i) {
            now += 50;
            recording.take(slept(Inputs::slot(now, ++number, value)));
        }
    }
    void take(Input::What what) { recording.take(slept(Inputs::at(now, what))); }
    std::vector<EventKind> kinds() const {
        std::vector<EventKind> kinds;
        for (const Event& event : kept.events) kinds.push_back(event.kind);
        return kinds;
    }
    std::uint64_t number = 40;
    std::int64_t asleep = 0;  ///< how long the machine has slept
};

TEST_F(RecordingTest, BeforeTheFirstTuningNothingIsRecorded) {
    beats(3000);
    EXPECT_TRUE(kept.seconds.empty());
    EXPECT_TRUE(kept.events.empty());
}

TEST_F(RecordingTest, ReadingsBecomeSeconds) {
    tuned();
    beats(3000);
    EXPECT_EQ(kept.seconds.size(), 2u);
    EXPECT_EQ(kept.seconds[1].t, kBegin / 1000 + 1);
    EXPECT_EQ(kept.figure(1, "pilot_level").value, 5);
    EXPECT_EQ(kept.figure(1, "pilot_level").knownMs, 1000);
    EXPECT_EQ(kept.events.at(0).kind, EventKind::Tuned);
    EXPECT_EQ(kept.events.at(0).station, kStation);
    EXPECT_EQ(kept.events.at(0).text, "detector 0, mode 0");
}

TEST_F(RecordingTest, WhileAnAnalysisHasTheUnitItIsAway) {
    tuned();
    beats(1500);
    take(Input::What::Halted);
    now += 20000;
    take(Input::What::Busy);
    now += 5000;
    tuned();
    beats(1600);
    ASSERT_EQ(kept.seconds.size(), 29u);
    for (std::size_t i = 2; i < 26; ++i) {
        EXPECT_EQ(kept.figure(i, "field").state, State::UnitAway);
        EXPECT_EQ(kept.figure(i, "field").knownMs, 0);
    }
    EXPECT_EQ(kept.seconds.back().t, kBegin / 1000 + 27);
}

TEST_F(RecordingTest, TimePassesWhileTheUnitIsAwayThoughNobodyComes) {
    tuned();
    beats(1000);
    take(Input::What::Halted);
    now += 3000;
    take(Input::What::Tick);
    EXPECT_EQ(kept.seconds.size(), 4u);
}

TEST_F(RecordingTest, OfAStationOnlyItsReadingsTellNotTheClock) {
    tuned();
    beats(1000);
    now += 3000;
    take(Input::What::Tick);
    EXPECT_LE(kept.seconds.size(), 1u);
}

TEST_F(RecordingTest, AHeldThreadIsASlowMachineAndALongSilenceNobody) {
    tuned();
    beats(1000);
    now += 4000;
    beats(1000);
    EXPECT_EQ(kept.figure(3, "field").state, State::TooSlow);
    const std::size_t before = kept.seconds.size();
    now += 3600000;  // the machine slept
    beats(2100);
    EXPECT_LE(kept.seconds.size(), before + 4);
    EXPECT_EQ(kept.events.back().kind, EventKind::Held);
}

TEST_F(RecordingTest, WhatTheMachineSleptThroughNobodyRecordedAndAnEventSaysSo) {
    tuned();
    beats(1500);
    const std::size_t before = kept.seconds.size();
    now += 7200000;
    asleep = 7200000;
    beats(2600);
    ASSERT_GE(kept.seconds.size(), before + 3);
    EXPECT_EQ(kept.seconds[before].t, kBegin / 1000 + 1);
    EXPECT_EQ(kept.figure(before, "field").state, State::Gap) << "it slept in its middle";
    EXPECT_NEAR(kept.figure(before, "field").knownMs, 500, 60);
    EXPECT_EQ(kept.seconds[before + 1].t, kBegin / 1000 + 7201) << "no second in between";
    EXPECT_EQ(kept.figure(before + 1, "field").state, State::Gap) << "it woke in its middle";
    EXPECT_EQ(kept.figure(before + 2, "field").knownMs, 1000);
    ASSERT_EQ(kept.events.back().kind, EventKind::Asleep);
    EXPECT_EQ(kept.events.back().text.substr(0, 4), "7200");
}

TEST_F(RecordingTest, AShortSleepIsNoneOfTheUnitsEither) {
    tuned();
    beats(1000);
    now += 3000;
    asleep = 3000;
    beats(2000);
    EXPECT_EQ(kept.events.back().kind, EventKind::Asleep);
    for (const Second& second : kept.seconds) {
        EXPECT_NE(second.figures[indexOf("field")].state, State::TooSlow) << second.t;
    }
}

TEST_F(RecordingTest, AMachineThatSleptWithSlotsHasNeitherStaleNorSlowSeconds) {
    tuned();
    slots(20);
    const std::size_t before = kept.seconds.size();
    now += 3600000;
    asleep = 3600000;
    take(Input::What::Tick);
    recording.take(readings(now, 5));
    slots(60);
    EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned, EventKind::Asleep));
    EXPECT_LE(kept.seconds.size(), before + 4);
    EXPECT_EQ(kept.figure(kept.seconds.size() - 1, "field").knownMs, 1000);
}

TEST_F(RecordingTest, AMachineThatSleptWhileTheUnitWasAwayHasNoSecondsEither) {
    tuned();
    beats(1000);
    take(Input::What::Halted);
    now += 2000;
    take(Input::What::Tick);
    const std::size_t before = kept.seconds.size();
    now += 3600000;
    asleep = 3600000;
    take(Input::What::Tick);
    EXPECT_LE(kept.seconds.size(), before + 2);
    EXPECT_EQ(kept.events.back().kind, EventKind::Asleep);
}

TEST_F(RecordingTest, WithSlotsThatWaitedAProgramThatStoodStillMissesNothing) {
    tuned();
    slots(20);
    const std::int64_t held = now;
    now += 20000;
    for (int i = 1; i <= 400; ++i) {
        Input input = Inputs::slot(now, ++number, 8);
        input.slotUtcMs = held + i * 50;
        recording.take(input);
    }
    recording.take(readings(now, 5));
    slots(20);
    EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned));
    ASSERT_GE(kept.seconds.size(), 21u);
    for (std::size_t i = 1; i < 21; ++i) EXPECT_EQ(kept.figure(i, "field").knownMs, 1000) << i;
}

TEST_F(RecordingTest, WithSlotsAProgramThatStoodStillWithItsUnitRecordedNothing) {
    tuned();
    slots(20);
    const std::size_t before = kept.seconds.size();
    now += 20000;
    recording.take(readings(now, 5));
    slots(40);
    EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned, EventKind::Held));
    EXPECT_LE(kept.seconds.size(), before + 4);
}

TEST_F(RecordingTest, ACallThatLastsOnIsAUnitThatIsLostUntilItMeasuresAgain) {
    for (const bool slotted : {false, true}) {
        kept = {};
        tuned();
        slotted ? slots(20) : beats(1000);
        now += 5000;
        take(Input::What::Silent);
        for (int i = 0; i < 40; ++i, now += 500) take(Input::What::Tick);
        EXPECT_GE(kept.seconds.back().t, now / 1000 - 2) << "it is told while it lasts";
        number = 0;  // started anew
        slotted ? slots(41) : beats(2100);
        EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned, EventKind::UnitLost,
                                                  EventKind::UnitFound));
        int stale = 0;
        for (std::size_t i = 0; i < kept.seconds.size(); ++i) {
            const FigureSecond& field = kept.figure(i, "field");
            EXPECT_NE(field.state, State::TooSlow) << i;
            EXPECT_NE(field.state, State::Gap) << i;
            stale += field.state == State::Stale;
        }
        EXPECT_GE(stale, 24) << slotted;
        EXPECT_EQ(kept.figure(kept.seconds.size() - 1, "field").knownMs, 1000);
    }
}

TEST_F(RecordingTest, AUnitThatIsAwayStaysSoWhileItsCallLastsOn) {
    tuned();
    beats(1000);
    take(Input::What::Halted);
    take(Input::What::Silent);
    now += 3000;
    take(Input::What::Tick);
    EXPECT_EQ(kept.seconds.back().figures[indexOf("field")].state, State::UnitAway);
}

TEST_F(RecordingTest, ATuningDoesNotFindAUnitThatIsLost) {
    tuned();
    beats(1000);
    take(Input::What::Silent);
    now += 3000;
    tuned();
    EXPECT_EQ(kept.events.back().kind, EventKind::Tuned);
    beats(300);
    EXPECT_EQ(kept.events.back().kind, EventKind::UnitFound);
}

TEST_F(RecordingTest, InputsThatWereLostAreASlowMachine) {
    tuned();
    beats(1000);
    now += 30000;
    Input input = Inputs::readings(now, outputs(5));
    input.lostBefore = 1;
    recording.take(input);
    beats(1500);
    EXPECT_EQ(kept.figure(20, "field").state, State::TooSlow);
}

TEST_F(RecordingTest, StaleReadingsAreStaleAndTheUnitIsLostAndFound) {
    tuned();
    beats(1000);
    Input input = Inputs::readings(now, outputs(5));
    input.flag = true;
    input.state.fill(State::Stale);
    for (int i = 0; i < 70; ++i, now += 30) {
        input.at = {now, now};
        recording.take(input);
    }
    beats(1000);
    EXPECT_EQ(kept.figure(2, "field").state, State::Stale);
    EXPECT_THAT(kinds(),
                testing::ElementsAre(EventKind::Tuned, EventKind::UnitLost, EventKind::UnitFound));
}

TEST_F(RecordingTest, SlotsTellOfThemselvesAndReadingsCountNoMore) {
    tuned();
    slots(10, 7);
    recording.take(Inputs::readings(now, outputs(99)));
    slots(40, 7);
    EXPECT_EQ(kept.figure(1, "pilot_level").value, 7);
    EXPECT_EQ(kept.figure(1, "deviation_peak").value, 7);
    EXPECT_EQ(kept.figure(1, "field").knownMs, 1000);
}

TEST_F(RecordingTest, AJumpOfTheSlotsNumberIsAGap) {
    tuned();
    slots(20);
    now += 500;
    number += 10;
    slots(30);
    EXPECT_EQ(kept.figure(1, "field").knownMs, 500);
    EXPECT_EQ(kept.figure(1, "field").state, State::Gap);
    EXPECT_EQ(kept.events.back().kind, EventKind::Gap);
    EXPECT_EQ(kept.events.back().text, "10 slots");
}

TEST_F(RecordingTest, SlotsThatStandStillForThreeSecondsAreStale) {
    tuned();
    slots(20);
    for (int i = 0; i < 200; ++i, now += 30) recording.take(Inputs::readings(now, outputs(5)));
    EXPECT_EQ(kept.figure(2, "field").state, State::Stale);
    EXPECT_EQ(kept.events.back().kind, EventKind::UnitLost);
    slots(20);
    EXPECT_EQ(kept.events.back().kind, EventKind::UnitFound);
}

TEST_F(RecordingTest, SlotsBetweenTwoTuningsAreNoGapAndTheTimeUntilTheFirstOneSettles) {
    tuned();
    slots(40);
    take(Input::What::Halted);
    now += 400;
    number += 8;
    tuned();
    now += 300;
    number += 6;
    slots(40);
    EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned, EventKind::Tuned));
    ASSERT_GE(kept.seconds.size(), 4u);
    const FigureSecond& between = kept.figure(3, "field");
    EXPECT_EQ(kept.seconds[3].t, kBegin / 1000 + 2);
    EXPECT_EQ(between.knownMs, 300) << "the slots behind the second tuning";
    EXPECT_EQ(between.state, State::UnitAway) << "400 ms, and 300 ms of settling";
}

TEST_F(RecordingTest, WithSlotsTooEachSecondWithTheUnitAwayIsTold) {
    tuned();
    slots(20);
    take(Input::What::Halted);
    now += 2500;
    tuned();
    slots(20);
    ASSERT_GE(kept.seconds.size(), 4u);
    EXPECT_EQ(kept.seconds[1].t, kBegin / 1000 + 1);
    EXPECT_EQ(kept.figure(1, "field").state, State::UnitAway);
    EXPECT_EQ(kept.seconds[2].t, kBegin / 1000 + 2);
    EXPECT_EQ(kept.figure(2, "field").state, State::UnitAway);
}

TEST_F(RecordingTest, AUnitThatIsTakenIsAnEventAndATuningsShortHaltIsNone) {
    tuned();
    beats(1000);
    take(Input::What::Halted);
    now += 200;
    tuned();
    beats(1000);
    EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned, EventKind::Tuned));
    const std::int64_t halted = now;
    take(Input::What::Halted);
    for (int i = 0; i < 10; ++i, now += 500) take(Input::What::Tick);
    EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned, EventKind::Tuned, EventKind::Away));
    EXPECT_EQ(kept.events.back().t, halted / 1000);
}

TEST_F(RecordingTest, LateSlotsStandWhereTheyWereMeasured) {
    tuned();
    slots(20);
    const std::int64_t held = now;
    now += 2500;  // the program's thread was held, the library went on
    for (int i = 1; i <= 50; ++i) {
        Input input = Inputs::slot(now, ++number, 8);
        input.slotUtcMs = held + i * 50;
        recording.take(input);
    }
    EXPECT_EQ(kept.figure(2, "field").value, 8);
    EXPECT_EQ(kept.figure(2, "field").knownMs, 1000);
}

TEST_F(RecordingTest, ASlotsOwnTimeIsNotBelievedFarFromItsComing) {
    tuned();
    slots(20);
    now += 50;
    Input input = Inputs::slot(now, ++number, 8);
    input.slotUtcMs = 5000;
    recording.take(input);
    slots(20);
    EXPECT_EQ(kept.seconds.at(1).t, kBegin / 1000 + 1);
    EXPECT_EQ(kept.figure(1, "field").knownMs, 1000);
}

TEST_F(RecordingTest, DemoIsNeverRecordedAndSaysThatItRan) {
    tuned();
    beats(1000);
    Input demo = Inputs::at(now, Input::What::Demo);
    demo.flag = true;
    recording.take(demo);
    const std::size_t before = kept.seconds.size();
    beats(5000, 77);
    slots(100, 77);
    tuned();
    EXPECT_EQ(kept.seconds.size(), before);
    EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned, EventKind::Demo));
}

TEST_F(RecordingTest, AChangeOfTheFieldCorrectionIsAnEvent) {
    tuned();
    Input correction = Inputs::at(now, Input::What::FieldCorrection);
    correction.value[0] = -3.5f;
    recording.take(correction);
    recording.take(correction);
    beats(2100, 60);
    EXPECT_EQ(kept.figure(1, "field").value, 56.5f);
    EXPECT_THAT(kinds(), testing::ElementsAre(EventKind::Tuned, EventKind::FieldCorrection));
    EXPECT_EQ(kept.events[1].text, "-3.5 dB");
}

TEST_F(RecordingTest, TwoStationsInOneSecondHaveEachItsPart) {
    tuned();
    beats(1410);
    tuned(90000);
    beats(2000);
    ASSERT_GE(kept.seconds.size(), 3u);
    EXPECT_EQ(kept.seconds[1].station, kStation);
    EXPECT_EQ(kept.seconds[2].station, 90000);
    EXPECT_EQ(kept.seconds[1].t, kept.seconds[2].t);
    EXPECT_EQ(kept.figure(1, "field").state, State::UnitAway);
    EXPECT_EQ(kept.figure(1, "field").knownMs, 410);
}

TEST_F(RecordingTest, AClockThatIsSetBackBeginsAnEpoch) {
    tuned();
    beats(2010);
    const std::int64_t steady = now;
    for (int i = 0; i < 70; ++i) {
        Input input = Inputs::readings(0, outputs(6));
        input.at = {now - 3600000 + i * 30, steady + i * 30};
        recording.take(input);
    }
    EXPECT_EQ(kept.seconds.back().epoch, 1);
    EXPECT_EQ(kept.seconds.back().t, kBegin / 1000 - 3600 + 3);
    EXPECT_EQ(kept.events.back().kind, EventKind::ClockStepped);
    EXPECT_EQ(kept.events.back().text, "-3600 s");
}

TEST_F(RecordingTest, TheEndWritesTheSecondThatIsNotOver) {
    tuned();
    beats(1500);
    take(Input::What::Stop);
    EXPECT_EQ(kept.seconds.size(), 2u);
    EXPECT_EQ(kept.events.back().kind, EventKind::Stop);
    beats(3000);
    EXPECT_EQ(kept.seconds.size(), 2u);
}

}  // namespace
}  // namespace history::test
