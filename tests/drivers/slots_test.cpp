// SPDX-License-Identifier: GPL-3.0-or-later
// What the simulated unit offers beyond the nineteen functions, through the loaded library.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "drivers/hm16_more.h"
#include "drivers/unit/slot_figures.h"
#include "tests/drivers/simulated_library.h"

namespace {

using hm16::placeOfFigure;

class SimulatedSlots : public SimulatedLibrary {
 public:
    explicit SimulatedSlots(std::string_view settings = "pace = 20\n")
        : SimulatedLibrary(settings) {}

    const HM16_FiguresV1& figures() const {
        const auto extension =
            reinterpret_cast<HM16_ExtensionFunction>(library().extra(HM16_EXTENSION_NAME));
        return *static_cast<const HM16_FiguresV1*>(extension(HM16_FIGURES));
    }
    // All slots from a number on.
    std::vector<HM16_Slot> slots(std::uint64_t from, std::uint64_t& next) const {
        std::vector<HM16_Slot> out(600);
        const auto came = figures().slots(0, from, out.data(), sizeof(HM16_Slot), 600, &next);
        out.resize(static_cast<std::size_t>(came));
        return out;
    }
    // Slots of a frequency, at least `count`.
    std::vector<HM16_Slot> measured(float frequency, std::size_t count) const {
        std::uint64_t before = 0, next = 0;
        slots(0, before);
        tune(frequency);
        std::vector<HM16_Slot> found;
        eventually([&] {
            found = slots(before, next);
            return found.size() >= count;
        });
        return found;
    }
};

int stateOf(const HM16_Slot& slot, std::string_view key) {
    return slot.state[placeOfFigure(key)];
}

TEST(SimulatedFigures, AreThereFromTheLoadAndTellFiguresOnceAUnitAnswers) {
    const SimulatedSlots unit;
    EXPECT_EQ(unit.figures().size, sizeof(HM16_FiguresV1));
    EXPECT_EQ(unit.figures().count(), 0);
    HM16_Slot slot{};
    std::uint64_t next = 0;
    EXPECT_EQ(unit.figures().slots(0, 0, &slot, sizeof slot, 1, &next), -1);
    unit->init();
    EXPECT_EQ(unit.figures().count(), 20);
    EXPECT_EQ(unit.figures().slots(0, 0, &slot, sizeof slot, 1, &next), 0);
    EXPECT_EQ(unit.figures().slots(1, 0, &slot, sizeof slot, 1, &next), -1);
    unit->terminate();
    EXPECT_EQ(unit.figures().count(), 0);
}

TEST(SimulatedFigures, AnUnknownExtensionIsNone) {
    const SimulatedSlots unit;
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(unit.library().extra(HM16_EXTENSION_NAME));
    EXPECT_EQ(extension("hm16.figures.2"), nullptr);
    EXPECT_EQ(extension("hm16.listen.1"), nullptr);
    EXPECT_EQ(extension(""), nullptr);
    EXPECT_EQ(extension(nullptr), nullptr);
}

TEST(SimulatedFigures, DescribeFillsAsMuchAsTheCallerHasRoomFor) {
    const SimulatedSlots unit;
    unit->init();
    HM16_FigureInfo info{};
    info.size = sizeof info;
    EXPECT_EQ(unit.figures().describe(0, &info), 0);
    EXPECT_STREQ(info.key, "deviation_peak");
    EXPECT_EQ(info.size, sizeof info);
    EXPECT_EQ(unit.figures().describe(-1, &info), 1);
    EXPECT_EQ(unit.figures().describe(20, &info), 1);
    EXPECT_EQ(unit.figures().describe(0, nullptr), 1);
    HM16_FigureInfo older{};
    older.size = 32;  // room for the key only
    older.highest = 7;
    EXPECT_EQ(unit.figures().describe(0, &older), 0);
    EXPECT_STREQ(older.key, "deviation_peak");
    EXPECT_EQ(older.size, 32u);
    EXPECT_EQ(older.highest, 7);
    older.size = 0;
    EXPECT_EQ(unit.figures().describe(0, &older), 1);
}

TEST(SimulatedFigures, SlotsOfAStationComeEvery50MsWithoutALoss) {
    // Forty slots at once are made up for: the unit's thread may be half a second late.
    const SimulatedSlots unit("pace = 4\n");
    unit->init();
    const auto slots = unit.measured(985, 40);
    ASSERT_GE(slots.size(), 40u);
    for (std::size_t n = 0; n < slots.size(); ++n) {
        EXPECT_EQ(slots[n].number, slots[0].number + n);
        EXPECT_EQ(slots[n].lengthMs, 50u);
        EXPECT_EQ(slots[n].station, 0);
        EXPECT_NEAR(static_cast<double>(slots[n].signalNs - slots[0].signalNs),
                    static_cast<double>(n) * 50e6, 1e3);
        EXPECT_EQ(slots[n].utcNs - slots[0].utcNs, slots[n].signalNs - slots[0].signalNs);
        for (int figure = 0; figure < 20; ++figure) EXPECT_EQ(slots[n].state[figure], HM16_KNOWN);
    }
    EXPECT_GT(slots[0].utcNs, 1700000000LL * 1000000000LL);
    const float peak = slots[0].value[0];
    EXPECT_GT(peak, 30);
    EXPECT_LT(peak, 100);
}

TEST(SimulatedFigures, BetweenStationsOnlyTheFieldIsKnown) {
    const SimulatedSlots unit;
    unit->init();
    const auto slots = unit.measured(876, 2);
    ASSERT_GE(slots.size(), 2u);
    EXPECT_EQ(stateOf(slots[0], "field"), HM16_KNOWN);
    EXPECT_EQ(stateOf(slots[0], "deviation_peak"), HM16_NO_CARRIER);
    EXPECT_EQ(stateOf(slots[0], "rds_level"), HM16_NO_CARRIER);
}

TEST(SimulatedFigures, AMonoStationHasNoFiguresOfStereoAndOneWithoutRdsNoError) {
    const SimulatedSlots unit;
    unit->init();
    const auto slots = unit.measured(913, 2);
    ASSERT_GE(slots.size(), 2u);
    EXPECT_EQ(stateOf(slots[0], "pilot_error"), HM16_NO_PILOT);
    EXPECT_EQ(stateOf(slots[0], "separation_left"), HM16_NO_PILOT);
    EXPECT_EQ(stateOf(slots[0], "rds_error"), HM16_NO_CARRIER);
    EXPECT_EQ(stateOf(slots[0], "pilot_level"), HM16_KNOWN);
    EXPECT_EQ(slots[0].value[placeOfFigure("pilot_level")], 0);
    EXPECT_EQ(stateOf(slots[0], "distortion"), HM16_KNOWN);
}

TEST(SimulatedFigures, NothingComesWhileTheUnitIsIdleOrSilent) {
    const SimulatedSlots unit("pace = 20\nsilent_after = 10\n");
    unit->init();
    unit.measured(985, 5);
    EXPECT_TRUE(unit.eventually([&] {
        std::uint64_t before = 0, after = 0;
        unit.slots(0, before);
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        return unit.slots(before, after).empty() && before == after;
    }));
}

TEST(SimulatedFigures, AtAPaceBeyondLifeLostSlotsShowAsAJump) {
    const SimulatedSlots unit("pace = 10000\n");
    unit->init();
    const auto slots = unit.measured(985, 100);
    ASSERT_GE(slots.size(), 100u);
    EXPECT_GT(slots.back().number, slots.front().number + slots.size());
}

}  // namespace
