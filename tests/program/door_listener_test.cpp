// SPDX-License-Identifier: GPL-3.0-or-later
// What the driver door tells its listeners: everything once and in its order, without any further
// call of the library.
#include "program/door_listener.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "program/frame_run.h"
#include "program/point_run.h"
#include "tests/program/program_bench.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using figures::State;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// Notes what it hears; with a journal of driver calls, between those calls.
struct NotedDoor final : DoorListener {
    explicit NotedDoor(std::vector<std::string>* journal = nullptr)
        : noted(journal ? *journal : own) {}
    void tuned(const Tuned& to) override {
        last = to;
        noted.push_back("tuned " + shortText(to.frequency).str() +
                        (to.detector == Detector::Peak ? " peak" : " average") +
                        (to.mode == AudioMode::LeftRight ? " L R" : " L+R L-R"));
    }
    void measured(const Measured& now) override {
        measurements.push_back(now);
        noted.push_back("measured");
    }
    void slotCame(const MeasuredSlot& slot) override {
        slots.push_back(slot);
        noted.push_back("slot " + wholeText(static_cast<std::int64_t>(slot.number)).str());
    }
    void halted(display::Time) override { noted.push_back("halted"); }
    void demoBegan(display::Time) override { noted.push_back("demo"); }
    void frameCame(const SweepFrame& frame) override {
        noted.push_back("frame " + shortText(frame.start).str() + " to " +
                        shortText(frame.stop).str() + " by " + wholeText(frame.stepKhz).str());
    }
    void levelRead(const MeasuredLevel& level) override {
        noted.push_back((level.from == MeasuredLevel::From::Point ? "point " : "swept ") +
                        shortText(level.frequency).str() + ": " + shortText(level.level).str());
    }

    std::vector<std::string> own;
    std::vector<std::string>& noted;
    std::vector<Measured> measurements;
    std::vector<MeasuredSlot> slots;
    Tuned last;
};

std::size_t placeOf(const char* key) {
    return static_cast<std::size_t>(figures::find(key) - figures::all().data());
}

State stateIn(const Measured& measured, const char* key) {
    return measured.states[placeOf(key)];
}

/// A slot in which every figure is known and the field is `field`.
MeasuredSlot slotOf(std::uint64_t number, float field) {
    MeasuredSlot slot{number, 0, 0, 50, {}, {}};
    slot.values[placeOf("field")] = field;
    return slot;
}

class ListenedDoor : public testing::Test {
 protected:
    ListenedDoor() { door.listeners().join(heard); }
    Measured ask() {
        door.HM_Data();
        return heard.measurements.back();
    }
    State stateOf(const char* key) { return stateIn(ask(), key); }

    ScriptedDriver unit;
    display::HeadlessDesktop desktop;
    DriverDoor door{unit, desktop};
    NotedDoor heard;
};

TEST_F(ListenedDoor, TellsATuningWithDetectorModeAndTime) {
    desktop.advance(40ms);
    door.HM_Normal(1025.5f, 1, 0, 0, 1);
    EXPECT_EQ(heard.last, (Tuned{1025.5f, Detector::Average, AudioMode::LeftRight, 40ms}));
    door.HM_Normal(875, 0, 1, 1, 0);
    EXPECT_EQ(heard.last, (Tuned{875, Detector::Peak, AudioMode::SumDifference, 40ms}));
    EXPECT_THAT(heard.noted, ElementsAre("tuned 1025.5 average L R", "tuned 875 peak L+R L-R"));
}

TEST_F(ListenedDoor, TellsEachAskingOnceWithAllThatIsKnownOfTheUnit) {
    door.HM_Normal(981, 0, 0, 0, 0);
    unit.readings.field = 61;
    unit.readings.rdsLevel = 4;
    float error = 0;
    float level = 0;
    desktop.advance(30ms);
    door.HM_Data();
    desktop.advance(30ms);
    door.HM_DataRDS(error, level);
    EXPECT_THAT(heard.noted, ElementsAre("tuned 981 peak L R", "measured", "measured"));
    EXPECT_EQ(heard.measurements[0].readings.field, 61);
    EXPECT_EQ(heard.measurements[0].readings.rdsLevel, 0) << "not asked yet";
    EXPECT_EQ(heard.measurements[0].at, 30ms);
    EXPECT_EQ(heard.measurements[1].readings, unit.readings);
    EXPECT_EQ(heard.measurements[1].at, 60ms);
}

TEST_F(ListenedDoor, TellsFramesAndLevelsThatWereMeasuredAlone) {
    float level = 0;
    unit.superLevels = {41, std::numeric_limits<float>::quiet_NaN(), 43};
    unit.superResults = {0, 0, 5};
    for (const float frequency : {900.f, 901.f, 902.f}) door.HM_Super(frequency, level);
    door.HM_StartEspectro(880, 1080, 25);
    unit.frames = {0, 1};
    door.HM_TramaEspectroRecibida();
    door.HM_TramaEspectroRecibida();
    unit.spectrum[901] = 52;
    unit.spectrum[902] = std::numeric_limits<float>::infinity();
    door.HM_GetEspectro(901, level);
    door.HM_GetEspectro(902, level);
    door.HM_Parar();
    EXPECT_THAT(heard.noted,
                ElementsAre("point 900: 41", "frame 880 to 1080 by 25", "swept 901: 52", "halted"));
}

TEST_F(ListenedDoor, TellsAPointBeforeWhatComesThroughBehindIt) {
    desktop.onPass = [this] { door.HM_Data(); };
    float level = 0;
    door.HM_Super(900, level);
    EXPECT_THAT(heard.noted, ElementsAre("point 900: 30", "measured"));
}

TEST_F(ListenedDoor, TellsAllItsListenersInTheOrderInWhichTheyCame) {
    std::vector<std::string> journal;
    NotedDoor first(&journal);
    NotedDoor second(&journal);
    door.listeners().leave(heard);
    door.listeners().join(first);
    door.listeners().join(second);
    unit.slots = {slotOf(7, 60)};
    unit.frames = {1};
    float level = 0;
    door.HM_DemoMode();
    door.HM_Normal(981, 0, 0, 0, 0);
    door.HM_Data();
    door.HM_Super(900, level);
    door.HM_TramaEspectroRecibida();
    door.HM_Parar();
    EXPECT_THAT(journal,
                ElementsAre("demo", "demo", "tuned 981 peak L R", "tuned 981 peak L R", "slot 7",
                            "slot 7", "measured", "measured", "point 900: 30", "point 900: 30",
                            "frame 0 to 0 by 0", "frame 0 to 0 by 0", "halted", "halted"));
    journal.clear();
    door.listeners().leave(first);
    door.HM_Parar();
    EXPECT_THAT(journal, ElementsAre("halted")) << "the one that stayed";
}

TEST_F(ListenedDoor, TellsThatADemoBegan) {
    door.HM_DemoMode();
    EXPECT_THAT(heard.noted, ElementsAre("demo"));
}

TEST_F(ListenedDoor, TellsEachSlotOnceBeforeTheReadingsItCameWith) {
    door.HM_Normal(981, 0, 0, 0, 0);
    unit.slots = {slotOf(4, 60), slotOf(5, 61)};
    float error = 0;
    float level = 0;
    door.HM_Data();
    door.HM_DataRDS(error, level);
    unit.slots = {slotOf(6, 62)};
    door.HM_DataRDS(error, level);
    EXPECT_THAT(heard.noted, ElementsAre("tuned 981 peak L R", "slot 4", "slot 5", "measured",
                                         "measured", "slot 6", "measured"));
    EXPECT_EQ(heard.slots[1].values[placeOf("field")], 61);
    EXPECT_EQ(heard.slots[1].states[placeOf("field")], State::Known);
}

TEST_F(ListenedDoor, ASlotsValueThatCannotBeIsOutOfRange) {
    door.HM_Normal(981, 0, 0, 0, 0);
    const float highest = figures::find("field")->range.highest;
    unit.slots = {slotOf(0, highest), slotOf(1, highest + 1),
                  slotOf(2, std::numeric_limits<float>::quiet_NaN())};
    MeasuredSlot unknown = slotOf(3, highest + 1);
    unknown.states[placeOf("field")] = State::NoCarrier;
    unit.slots.push_back(unknown);
    door.HM_Data();
    std::vector<State> states;
    for (const MeasuredSlot& slot : heard.slots) states.push_back(slot.states[placeOf("field")]);
    EXPECT_THAT(states,
                ElementsAre(State::Known, State::OutOfRange, State::OutOfRange, State::NoCarrier));
    EXPECT_EQ(heard.slots[1].states[placeOf("pilot_level")], State::Known);
}

TEST_F(ListenedDoor, ReadsNoSlotsWhileTheUnitDoesSomethingElse) {
    unit.slots = {slotOf(0, 60)};
    door.HM_Data();
    door.HM_Normal(981, 0, 0, 0, 0);
    door.HM_Parar();
    door.HM_Data();
    EXPECT_THAT(heard.slots, IsEmpty());
    EXPECT_EQ(unit.slots.size(), 1u);
}

TEST_F(ListenedDoor, BeforeTheFirstSlotOfATuningEveryFigureIsSettling) {
    unit.readings.field = 61;
    unit.slotted = true;
    door.HM_Normal(981, 0, 0, 0, 0);
    EXPECT_EQ(stateOf("field"), State::Settling);
    EXPECT_EQ(stateOf("level_sum"), State::NotMeasured) << "not in this audio mode";
    unit.said.emplace().fill(State::Known);
    EXPECT_EQ(stateOf("field"), State::Known);
}

TEST_F(ListenedDoor, TellsNobodyOnceItsListenerHasLeft) {
    door.listeners().leave(heard);
    float level = 0;
    door.HM_Normal(981, 0, 0, 0, 0);
    door.HM_Data();
    door.HM_Super(900, level);
    door.HM_Parar();
    EXPECT_THAT(heard.noted, IsEmpty());
}

TEST_F(ListenedDoor, NothingIsMeasuredBeforeTheFirstTuningAndTheUnitIsAwayOnceItHalts) {
    EXPECT_THAT(ask().states, Each(State::NotMeasured));
    door.HM_Parar();
    EXPECT_THAT(ask().states, Each(State::NotMeasured));
    door.HM_Normal(981, 0, 0, 0, 0);
    EXPECT_THAT(ask().states, Contains(State::Known));
    door.HM_Parar();
    EXPECT_THAT(ask().states, Each(State::UnitAway));
    door.HM_Normal(981, 0, 0, 0, 0);
    EXPECT_THAT(ask().states, Contains(State::Known));
}

TEST_F(ListenedDoor, ALevelBelongsToTheFigureOfItsAudioMode) {
    door.HM_Normal(981, 0, 0, 0, 0);
    EXPECT_EQ(stateOf("level_left"), State::Known);
    EXPECT_EQ(stateOf("level_sum"), State::NotMeasured);
    door.HM_Normal(981, 0, 1, 0, 0);
    EXPECT_EQ(stateOf("level_left"), State::NotMeasured);
    EXPECT_EQ(stateOf("level_sum"), State::Known);
    EXPECT_EQ(stateOf("field"), State::NotMeasured) << "0: nothing measured";
}

TEST_F(ListenedDoor, WhatTheDoorDropsIsOutOfRangeUntilAReadingComes) {
    door.HM_Normal(981, 0, 0, 0, 0);
    unit.readings.field = 61;
    EXPECT_EQ(stateOf("field"), State::Known);
    unit.readings.field = std::numeric_limits<float>::quiet_NaN();
    const Measured dropped = ask();
    EXPECT_EQ(stateIn(dropped, "field"), State::OutOfRange);
    EXPECT_EQ(dropped.readings.field, 61);
    EXPECT_EQ(stateIn(dropped, "stereo_phase"), State::Known);
    unit.readings.field = 62;
    EXPECT_EQ(stateOf("field"), State::Known);
}

TEST_F(ListenedDoor, ReadingsThatStandStillAreStaleByTheRuleOfTheSign) {
    door.HM_Normal(981, 0, 0, 0, 0);
    unit.readings.field = 61;
    unit.readings.peakModulation = 80;
    ask();
    desktop.advance(2999ms);
    EXPECT_EQ(stateOf("field"), State::Known);
    desktop.advance(1ms);
    EXPECT_EQ(door.staleSeconds(), 3);
    EXPECT_EQ(stateOf("field"), State::Stale);
    EXPECT_EQ(stateOf("pilot_error"), State::NoPilot) << "why it was not known before";
    unit.readings.field = 61.5f;
    EXPECT_EQ(stateOf("field"), State::Known);
}

TEST_F(ListenedDoor, WhatTheLibrarySaysOfAFigureGoesBeforeTheRule) {
    door.HM_Normal(981, 0, 0, 0, 0);
    unit.said.emplace();
    unit.said->at(placeOf("field")) = State::Settling;
    unit.said->at(placeOf("noise_left")) = State::Known;
    unit.said->at(placeOf("level_sum")) = State::Known;
    unit.said->at(placeOf("multipath")) = State::Known;
    unit.readings.field = 61;
    unit.readings.multipath = 9999;
    EXPECT_EQ(stateOf("field"), State::Settling);
    EXPECT_EQ(stateOf("noise_left"), State::Known) << "0 is a figure of its own here";
    EXPECT_EQ(stateOf("noise_right"), State::NotMeasured) << "nothing is said of it";
    // A reading that cannot hold the figure makes it unknown, whatever the library says.
    EXPECT_EQ(stateOf("level_sum"), State::NotMeasured);
    EXPECT_EQ(stateOf("multipath"), State::OutOfRange);
    door.HM_Parar();
    EXPECT_EQ(stateOf("noise_left"), State::UnitAway);
}

class ListenedRun : public testing::Test {
 protected:
    ListenedRun() {
        bench.tuner.tuneByBar();
        EXPECT_TRUE(lease.take());
        bench.program.driver.listeners().join(heard);
        bench.take();
    }
    ProgramBench bench;
    NotedDoor heard{&bench.desktop.journal};
    UnitLease lease{bench.program, bench.window};
};

/// A run of two points at two frequencies.
struct TwoLevels final : LevelSink {
    int first() const override { return 0; }
    int last() const override { return 1; }
    float frequency(int index) const override { return 900 + static_cast<float>(index); }
    void take(int, float) override {}
};

TEST_F(ListenedRun, OfALentUnitIsToldStepByStep) {
    TwoLevels sink;
    PointRun run(bench.program, lease, {});
    bench.driver.superLevels = {50, 51};
    lease.tuneFor(AudioMode::SumDifference);
    bench.program.driver.HM_Parar();
    run.measure(sink);
    lease.giveBack(UnitLease::Back::LeftRight);
    EXPECT_THAT(bench.take(),
                ElementsAre("mode L+R and L-R", "clocks stand", "driver HM_Parar", "halted",
                            "driver HM_Normal(981, 0, 1, 0, 0)", "tuned 981 peak L+R L-R",
                            "clocks run", "show tuned", "show figures", "driver HM_Parar", "halted",
                            "driver HM_Super(900)", "point 900: 50", "driver HM_Super(901)",
                            "point 901: 51", "mode L and R", "clocks stand", "driver HM_Parar",
                            "halted", "driver HM_Normal(981, 0, 0, 0, 0)", "tuned 981 peak L R",
                            "clocks run", "show tuned", "show figures"));
}

TEST_F(ListenedRun, ByFramesIsToldFrameByFrame) {
    TwoLevels sink;
    FrameRun run(bench.program, bench.window.Clock, sink);
    bench.driver.frames = {0, 1};
    bench.driver.spectrum = {{900, 60}, {901, 61}};
    run.start(875, 1080, 100);
    run.look();
    run.look();
    EXPECT_THAT(bench.take(),
                ElementsAre("driver HM_StartEspectro(875, 1080, 100)", "frame 875 to 1080 by 100",
                            "swept 900: 60", "swept 901: 61"));
}

TEST(ListenedRack, HearsTheTunedStationWithEveryHeartbeatAndChangesNoCall) {
    RackBench silent;
    silent.driver.noteData = true;
    silent.start();
    silent.advance(1000ms);

    RackBench bench;
    NotedDoor heard;
    bench.driver.noteData = true;
    bench.program.driver.listeners().join(heard);
    bench.start();
    bench.advance(1000ms);
    EXPECT_EQ(bench.takeCalls(), silent.takeCalls());

    const auto tunings = std::ranges::count(heard.noted, "tuned 981 peak L R");
    EXPECT_GE(tunings, 1);
    // The gaps are never longer than a slot of the unit.
    display::Time last = heard.measurements.front().at;
    for (const Measured& measured : heard.measurements) {
        EXPECT_LE(measured.at - last, 50ms);
        last = measured.at;
    }
    EXPECT_EQ(static_cast<int>(heard.measurements.size()),
              bench.driver.dataCalls + bench.driver.rdsCalls);
}

}  // namespace
}  // namespace hmonitor::test
