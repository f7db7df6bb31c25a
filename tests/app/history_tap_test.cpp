// SPDX-License-Identifier: GPL-3.0-or-later
// What the recorder gets from a running rack, and what it makes of it.
#include "app/history_tap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "history/recorder.h"
#include "panels/modulation/form1.h"
#include "program/unit_lease.h"
#include "startup/form_modo_demo.h"
#include "tests/history/feed.h"
#include "tests/support/counted_heap.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using history::EventKind;
using history::State;
using history::test::indexOf;
using history::test::Kept;
using testing::ElementsAre;

constexpr std::int64_t kBegin = 1'790'000'000;  // seconds since 1970

std::int64_t msOf(const display::HeadlessDesktop& desktop) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(desktop.now()).count();
}

/// A unit with slots of 50 ms, in which the field is 70 and every other figure is not known.
struct SlottedUnit final : ScriptedDriver {
    const display::HeadlessDesktop* desktop = nullptr;
    std::uint64_t number = 0;
    bool stands = false;  ///< no further slots come

    bool hasSlots() override { return true; }
    std::optional<SaidStates> states() override {
        SaidStates newest;
        newest.fill(State::Known);
        return newest;
    }
    std::uint64_t ended() const { return static_cast<std::uint64_t>(msOf(*desktop)) / 50; }
    std::int32_t HM_Normal(float frequency, std::int32_t average, std::int32_t audioMode,
                           std::int32_t armed, std::int32_t logFiles) override {
        number = ended();
        return ScriptedDriver::HM_Normal(frequency, average, audioMode, armed, logFiles);
    }
    void readSlots(SlotTaker& taker) override {
        while (!stands && number < ended()) {
            MeasuredSlot slot{number++, 0, 0, 50, {}, {}};
            slot.utcNs = (kBegin * 1000 + static_cast<std::int64_t>(number) * 50) * 1'000'000;
            slot.states.fill(State::TooNoisy);
            slot.values[indexOf("field")] = 70;
            slot.states[indexOf("field")] = State::Known;
            taker.take(slot);
        }
    }
};

/// A rack whose tap feeds a recording without a disk, on the virtual clock.
struct TappedRack {
    explicit TappedRack(std::unique_ptr<ScriptedDriver> unit = std::make_unique<ScriptedDriver>())
        : bench(std::move(unit)) {
        bench.readings.field = 61;
        bench.readings.peakModulation = 80;
    }
    void start() {
        bench.start();
        bench.advance(2s);
    }
    /// Passes time with readings that change at each heartbeat.
    void live(std::chrono::milliseconds time) {
        for (std::chrono::milliseconds passed{0}; passed < time; passed += 30ms) {
            bench.readings.peakModulation = passed % 60ms == 0ms ? 80.f : 81.f;
            bench.beat();
        }
    }
    void halt() { bench.program.driver.HM_Parar(); }
    void tune() { bench.program.driver.HM_Normal(981, 0, 0, 0, 0); }
    history::Moment now() const {
        const std::int64_t ms = kBegin * 1000 + msOf(bench.desktop);
        return {ms, ms};
    }
    void tick() { recording.take(history::test::Inputs::at(now().utcMs, Input::What::Tick)); }
    std::vector<EventKind> kinds() const {
        std::vector<EventKind> kinds;
        for (const history::Event& event : kept.events) kinds.push_back(event.kind);
        return kinds;
    }
    const history::FigureSecond& last(const char* key) const {
        return kept.figure(kept.seconds.size() - 1, key);
    }

    using Input = history::Input;
    RackBench bench;
    Kept kept;
    history::Recording recording{kept};
    HistoryTap tap{bench.program, recording, [this] { return now(); }};
};

TEST(HistoryTap, HandsOnTheTunedStationAndEachFigureAsTheRackShowsIt) {
    TappedRack rack;
    rack.start();
    rack.live(3s);
    ASSERT_GE(rack.kept.seconds.size(), 4u);
    EXPECT_EQ(rack.kept.seconds.back().station, 98100);
    EXPECT_EQ(rack.last("field").value, 61);
    EXPECT_EQ(rack.last("field").knownMs, 1000);
    EXPECT_FLOAT_EQ(rack.last("deviation_peak").value, 81 * 0.75f);
    EXPECT_EQ(rack.last("level_sum").state, State::NotMeasured);
    EXPECT_EQ(rack.last("pilot_error").state, State::NoPilot);
    EXPECT_EQ(rack.kept.events.front().kind, EventKind::Tuned);
    EXPECT_EQ(rack.kept.events.front().text, "detector 0, mode 0");
}

TEST(HistoryTap, MakesNoneOfTheCalls) {
    const auto callsOf = [](bool tapped) {
        RackBench bench;
        Kept kept;
        history::Recording recording(kept);
        std::optional<HistoryTap> tap;
        if (tapped) tap.emplace(bench.program, recording);
        bench.driver.noteData = true;
        bench.start();
        bench.advance(3s);
        return bench.takeCalls();
    };
    EXPECT_EQ(callsOf(true), callsOf(false));
}

TEST(HistoryTap, OfALibraryWithSlotsItsSlotsAreRecorded) {
    auto unit = std::make_unique<SlottedUnit>();
    SlottedUnit& slotted = *unit;
    TappedRack rack(std::move(unit));
    slotted.desktop = &rack.bench.desktop;
    rack.start();
    rack.live(5s);
    EXPECT_EQ(rack.last("field").value, 70) << "and not the 61 of the readings";
    EXPECT_EQ(rack.last("field").knownMs, 1000);
    EXPECT_EQ(rack.last("deviation_peak").state, State::TooNoisy);
    EXPECT_THAT(rack.kinds(), testing::Each(EventKind::Tuned));
    for (std::size_t i = 1; i < rack.kept.seconds.size(); ++i) {
        EXPECT_EQ(rack.kept.figure(i, "field").knownMs, 1000) << i;
    }
}

TEST(HistoryTap, AnAnalysisIsTimeWithTheUnitAwayAndNoLossOfSlots) {
    auto unit = std::make_unique<SlottedUnit>();
    SlottedUnit& slotted = *unit;
    TappedRack rack(std::move(unit));
    slotted.desktop = &rack.bench.desktop;
    rack.start();
    rack.live(1s);
    rack.kept.events.clear();
    rack.kept.seconds.clear();
    rack.halt();
    float level = 0;
    for (int i = 0; i < 40; ++i) {
        rack.bench.program.driver.HM_Super(900, level);
        rack.bench.advance(100ms);
    }
    rack.tune();
    rack.live(2s);
    EXPECT_THAT(rack.kinds(), ElementsAre(EventKind::Away, EventKind::Tuned));
    ASSERT_GE(rack.kept.seconds.size(), 5u);
    EXPECT_EQ(rack.kept.figure(2, "field").state, State::UnitAway);
    EXPECT_EQ(rack.kept.figure(2, "field").knownMs, 0);
    EXPECT_EQ(rack.last("field").knownMs, 1000);
    std::int64_t t = rack.kept.seconds.front().t;
    for (const history::Second& second : rack.kept.seconds) {
        EXPECT_LE(second.t - t, 1) << "no second is missing";
        t = second.t;
    }
}

TEST(HistoryTap, SlotsThatComeNoMoreAreAUnitThatIsLostUntilTheyComeAgain) {
    auto unit = std::make_unique<SlottedUnit>();
    SlottedUnit& slotted = *unit;
    TappedRack rack(std::move(unit));
    slotted.desktop = &rack.bench.desktop;
    rack.start();
    rack.kept.events.clear();
    slotted.stands = true;
    rack.live(5s);
    EXPECT_THAT(rack.kinds(), ElementsAre(EventKind::UnitLost));
    EXPECT_EQ(rack.last("field").state, State::Stale);
    slotted.stands = false;
    slotted.number = slotted.ended();
    rack.live(2s);
    EXPECT_THAT(rack.kinds(),
                ElementsAre(EventKind::UnitLost, EventKind::Gap, EventKind::UnitFound));
}

TEST(HistoryTap, ReadingsThatStandStillAreAUnitThatIsLostUntilTheyMove) {
    TappedRack rack;
    rack.start();
    rack.kept.events.clear();
    rack.bench.advance(5s);
    EXPECT_THAT(rack.kinds(), ElementsAre(EventKind::UnitLost));
    EXPECT_EQ(rack.last("field").state, State::Stale);
    rack.live(2s);
    EXPECT_THAT(rack.kinds(), ElementsAre(EventKind::UnitLost, EventKind::UnitFound));
    EXPECT_EQ(rack.last("field").state, State::Known);
}

TEST(HistoryTap, TheDemoIsNeverRecordedAndItsEventSaysThatItRan) {
    TappedRack rack;
    RackBench& bench = rack.bench;
    bench.driver.hardwareVersion = 0;
    bench.desktop.modalScripts["FormModoDemo"] = [&bench](display::Form&) {
        bench.hand.click(bench.forms.formModoDemo.Command1);
    };
    rack.start();
    rack.live(5s);
    rack.tick();
    EXPECT_EQ(rack.bench.state.DemoMode, "si");
    EXPECT_TRUE(rack.kept.seconds.empty());
    EXPECT_THAT(rack.kinds(), ElementsAre(EventKind::Demo));
    EXPECT_EQ(rack.kept.events.front().text, "begins");
}

TEST(HistoryTap, AChangeOfTheFieldCorrectionIsAnEventAndCounts) {
    TappedRack rack;
    rack.start();
    rack.kept.events.clear();
    rack.bench.state.DbCorrection10 = "-35";
    rack.live(3s);
    ASSERT_THAT(rack.kinds(), ElementsAre(EventKind::FieldCorrection));
    EXPECT_EQ(rack.kept.events[0].text, "-3.5 dB");
    EXPECT_EQ(rack.last("field").value, 57.5f);
    EXPECT_EQ(rack.bench.form1.Label_FieldIntensity.caption, "57.5");
}

TEST(HistoryTap, AllocatesNothingWhileItListens) {
    RackBench bench;
    history::Recorder recorder{history::StoreSettings{}};  // only its ring; nobody reads it
    const HistoryTap tap(bench.program, recorder);
    DriverDoor& door = bench.program.driver;
    door.HM_Normal(981, 0, 0, 0, 0);
    bench.driver.slotted = true;
    MeasuredSlot slot;
    const std::vector<MeasuredSlot> slots(50, slot);
    float level = 0;
    const auto listen = [&] {
        const long before = CountedHeap::now().taken;
        for (int i = 0; i < 50; ++i) {
            bench.readings.peakModulation = static_cast<float>(60 + i % 7);
            door.HM_Data();
            door.listeners().slotCame(slots[static_cast<std::size_t>(i)]);
            door.listeners().levelRead({900, level, MeasuredLevel::From::Point, {}});
        }
        door.listeners().tuned({});
        door.listeners().halted({});
        return CountedHeap::now().taken - before;
    };
    EXPECT_EQ(listen(), 0);
}

/// Counts the inputs by kind.
struct CountedInputs final : history::InputSink {
    void take(const history::Input& input) override { ++of[static_cast<std::size_t>(input.what)]; }
    int count(history::Input::What what) const { return of[static_cast<std::size_t>(what)]; }
    std::array<int, 16> of{};
};

TEST(HistoryTap, OfAUnitThatIsAThousandTimesFasterNothingFillsTheRing) {
    auto unit = std::make_unique<SlottedUnit>();
    SlottedUnit& slotted = *unit;
    RackBench bench(std::move(unit));
    slotted.desktop = &bench.desktop;
    CountedInputs counted;
    const HistoryTap tap(bench.program, counted, [&bench] {
        return history::Moment{msOf(bench.desktop), msOf(bench.desktop)};
    });
    bench.start();
    bench.advance(31s);
    const int before = counted.count(history::Input::What::Slot);
    int looks = 0;
    for (; looks < 2000; ++looks) {
        // As many as a library keeps came since the last heartbeat.
        slotted.number = slotted.ended() - 600;
        bench.beat();
    }
    const int slots = counted.count(history::Input::What::Slot) - before;
    EXPECT_LE(slots, 700 + 4 * 20 * 61) << "of a million";
    EXPECT_GE(slots, 20 * 60);
}

TEST(HistoryTap, ABoxThatSaysThatTheUnitDoesNotAnswerIsAUnitThatIsLost) {
    TappedRack rack;
    rack.start();
    rack.live(2s);
    rack.bench.program.driver.listeners().silent(rack.bench.desktop.now());
    for (int i = 0; i < 10; ++i) {
        rack.bench.desktop.advance(0ms);
        rack.recording.take(
            history::test::Inputs::at(rack.now().utcMs + i * 500, history::Input::What::Tick));
    }
    EXPECT_EQ(rack.kinds().back(), EventKind::UnitLost);
    EXPECT_EQ(rack.last("field").state, State::Stale);
}

TEST(HistoryTap, FillsAMinutesRoomWithNoMoreThanAMinute) {
    RackBench bench;
    CountedInputs counted;
    const auto clock = [&bench] {
        return history::Moment{msOf(bench.desktop), msOf(bench.desktop)};
    };
    const HistoryTap tap(bench.program, counted, clock);
    bench.start();
    const int before = counted.count(history::Input::What::Readings);
    for (int i = 0; i < 2000; ++i) {
        bench.readings.peakModulation = static_cast<float>(60 + i % 7);
        bench.beat();
    }
    // A minute of heartbeats and of 20 slots a second fits into the ring.
    const int readings = counted.count(history::Input::What::Readings) - before;
    EXPECT_GE(readings, 2000);
    EXPECT_LE(readings + 20 * 60, static_cast<int>(history::InputRing::kRoom));
    // Points, which come as fast as a unit measures them, give no input each.
    float level = 0;
    for (int i = 0; i < 1000; ++i) bench.program.driver.HM_Super(900, level);
    EXPECT_LE(counted.count(history::Input::What::Busy), 1);
}

}  // namespace
}  // namespace hmonitor::test
