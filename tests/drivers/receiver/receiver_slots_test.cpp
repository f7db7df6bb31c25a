// SPDX-License-Identifier: GPL-3.0-or-later
// Every figure of every slot, through the receiver's library as the program loads it.
#include <gtest/gtest.h>

#include <vector>

#include "drivers/hm16_more.h"
#include "drivers/receiver/library/slot_of.h"
#include "drivers/unit/slot_figures.h"
#include "tests/drivers/receiver/playback.h"

namespace hm16::receiver {
namespace {

float valueIn(const HM16_Slot& slot, std::string_view key) {
    return slot.value[placeOfFigure(key)];
}
int stateIn(const HM16_Slot& slot, std::string_view key) {
    return slot.state[placeOfFigure(key)];
}

TEST(SlotOf, EachFigureHasItsStateAndItsUnit) {
    StationSlot slot;
    slot.states = allFigures(FigureState::Known);
    slot.figures.peakHz = 60e3;
    slot.figures.levelLeftDb = -6;
    slot.figures.levelSumDb = -9;
    slot.figures.carrierHz = -250;
    slot.figures.fieldDb = 63.4;
    slot.states.distortion = FigureState::NotMeasured;
    slot.states.noise = FigureState::Settling;
    slot.states.separationRight = FigureState::NoPilot;
    const HM16_Slot told = slotOf(slot, 0);
    EXPECT_FLOAT_EQ(valueIn(told, "deviation_peak"), 60);
    EXPECT_EQ(valueIn(told, "level_left"), -6);
    EXPECT_EQ(valueIn(told, "level_sum"), -9);
    EXPECT_FLOAT_EQ(valueIn(told, "carrier_error"), -250);
    EXPECT_FLOAT_EQ(valueIn(told, "field"), 63.4F);
    EXPECT_EQ(stateIn(told, "deviation_peak"), HM16_KNOWN);
    EXPECT_EQ(stateIn(told, "distortion"), HM16_NOT_MEASURED);
    EXPECT_EQ(stateIn(told, "noise_right"), HM16_SETTLING);
    EXPECT_EQ(stateIn(told, "separation_right"), HM16_NO_PILOT);
    EXPECT_EQ(stateIn(told, "separation_left"), HM16_KNOWN);
    EXPECT_EQ(told.lengthMs, 50u);
}

const HM16_FiguresV1& figuresOf(const ReceiverLibrary& receiver) {
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(receiver.library().extra(HM16_EXTENSION_NAME));
    return *static_cast<const HM16_FiguresV1*>(extension(HM16_FIGURES));
}

std::vector<HM16_Slot> slotsOf(const ReceiverLibrary& receiver, std::uint64_t from) {
    std::vector<HM16_Slot> slots(600);
    std::uint64_t next = 0;
    const auto count =
        figuresOf(receiver).slots(0, from, slots.data(), sizeof(HM16_Slot), 600, &next);
    slots.resize(static_cast<std::size_t>(std::max(count, 0)));
    return slots;
}

TEST(ReceiverSlots, ComeEvery50MsOfTheSignalWithWhatTheReadingsShow) {
    const Playback run("a.cs16", kBare);
    run.record("a.cs16");
    run.start();
    EXPECT_EQ(figuresOf(*run).count(), 20);
    EXPECT_TRUE(run->step(40));
    const auto slots = slotsOf(*run, 0);
    ASSERT_GE(slots.size(), 38u);
    for (std::size_t n = 0; n < slots.size(); ++n) {
        EXPECT_EQ(slots[n].number, n);
        if (n == 0) continue;
        EXPECT_NEAR(static_cast<double>(slots[n].signalNs - slots[n - 1].signalNs), 50e6, 1e6);
        EXPECT_NEAR(static_cast<double>(slots[n].utcNs - slots[n - 1].utcNs), 50e6, 1e6);
    }
    const HM16_Slot& last = slots.back();
    const Readings now = run->readings();
    EXPECT_EQ(stateIn(last, "pilot_level"), HM16_KNOWN);
    EXPECT_FLOAT_EQ(valueIn(last, "pilot_level"), now.pilotLevel);
    EXPECT_FLOAT_EQ(valueIn(last, "deviation_peak"), 0.75F * now.peakModulation);
    EXPECT_NE(stateIn(slots.front(), "noise_left"), HM16_KNOWN);  // takes a second
}

TEST(ReceiverSlots, GoOnCountingOverATuningAndKnowOnlyTheFieldWithoutAStation) {
    const Playback run("a.cs16", kBare);
    run.record("a.cs16");
    run.start();
    run->step(10);
    const auto before = slotsOf(*run, 0);
    ASSERT_FALSE(before.empty());
    run->tune(983);
    run->step(10);
    const auto after = slotsOf(*run, before.back().number + 1);
    ASSERT_FALSE(after.empty());
    EXPECT_EQ(after.front().number, before.back().number + 1);
    EXPECT_NE(stateIn(after.back(), "deviation_peak"), HM16_KNOWN);
    EXPECT_EQ(stateIn(after.back(), "field"), HM16_KNOWN);
}

}  // namespace
}  // namespace hm16::receiver
