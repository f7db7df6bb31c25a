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
            recording.take(Inputs::readings(now, outputs(value)));
        }
    }
    /// Slots of 50 ms with consecutive numbers.
    void slots(int count, float value = 5) {
        for (int i = 0; i < count; ++i) {
            now += 50;
            recording.take(Inputs::slot(now, ++number, value));
        }
    }
    void take(Input::What what) { recording.take(Inputs::at(now, what)); }
    std::vector<EventKind> kinds() const {
        std::vector<EventKind> kinds;
        for (const Event& event : kept.events) kinds.push_back(event.kind);
        return kinds;
    }
    std::uint64_t number = 40;
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
    EXPECT_EQ(kept.events.back().kind, EventKind::Gap);
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
