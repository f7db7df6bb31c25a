// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/slot_ring.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "drivers/unit/slot_figures.h"

namespace hm16 {
namespace {

HM16_Slot slotWith(float peak) {
    HM16_Slot slot{};
    slot.lengthMs = 50;
    slot.value[0] = peak;
    return slot;
}

std::int32_t copyFrom(const SlotRing& ring, std::uint64_t from, std::span<HM16_Slot> out,
                      std::uint64_t& next) {
    return ring.copy(from, out.data(), sizeof(HM16_Slot), static_cast<std::int32_t>(out.size()),
                     &next);
}

TEST(SlotRing, NumbersSlotsAndGivesThemOnce) {
    SlotRing ring;
    for (int n = 0; n < 5; ++n) ring.add(slotWith(static_cast<float>(10 * n)));
    std::array<HM16_Slot, 3> out{};
    std::uint64_t next = 0;
    EXPECT_EQ(copyFrom(ring, 0, out, next), 3);
    EXPECT_EQ(next, 3u);
    EXPECT_EQ(out[2].number, 2u);
    EXPECT_EQ(out[2].value[0], 20);
    EXPECT_EQ(copyFrom(ring, next, out, next), 2);
    EXPECT_EQ(out[1].number, 4u);
    EXPECT_EQ(copyFrom(ring, next, out, next), 0);
    EXPECT_EQ(next, 5u);
}

TEST(SlotRing, KeepsThirtySecondsAndShowsALossByTheNumber) {
    SlotRing ring;
    for (int n = 0; n < 607; ++n) ring.add(slotWith(static_cast<float>(n)));
    std::vector<HM16_Slot> out(700);
    std::uint64_t next = 0;
    EXPECT_EQ(copyFrom(ring, 0, out, next), 600);
    EXPECT_EQ(out[0].number, 7u);
    EXPECT_EQ(out[599].value[0], 606);
    ring.lose(4);
    ring.add(slotWith(1));
    EXPECT_EQ(copyFrom(ring, next, out, next), 1);
    EXPECT_EQ(out[0].number, 611u);
}

TEST(SlotRing, WhoAsksForWhatIsStillToComeIsToldWhereItBegins) {
    SlotRing ring;
    ring.add(slotWith(1));
    std::array<HM16_Slot, 3> out{};
    std::uint64_t next = 77;
    EXPECT_EQ(copyFrom(ring, 5000, out, next), 0);
    EXPECT_EQ(next, 1u);
}

TEST(SlotRing, AReaderWithASmallerOrALargerSlotGetsWhatItKnows) {
    SlotRing ring;
    ring.add(slotWith(1));
    ring.add(slotWith(2));
    // Only number and times, one behind the other.
    std::array<std::uint64_t, 6> heads{};
    std::uint64_t next = 0;
    EXPECT_EQ(ring.copy(0, reinterpret_cast<HM16_Slot*>(heads.data()), 24, 2, &next), 2);
    EXPECT_EQ(heads[0], 0u);
    EXPECT_EQ(heads[3], 1u);
    struct Later {
        HM16_Slot slot;
        std::uint64_t added;
    };
    std::array<Later, 2> later{};
    later[0].added = later[1].added = 9;
    EXPECT_EQ(ring.copy(0, &later[0].slot, sizeof(Later), 2, &next), 2);
    EXPECT_EQ(later[1].slot.value[0], 2);
    EXPECT_EQ(later[1].added, 9u);
}

TEST(SlotRing, ArgumentsThatMakeNoSenseAreRefused) {
    const SlotRing ring;
    HM16_Slot slot{};
    std::uint64_t next = 0;
    EXPECT_EQ(ring.copy(0, nullptr, sizeof slot, 1, &next), -1);
    EXPECT_EQ(ring.copy(0, &slot, sizeof slot, 1, nullptr), -1);
    EXPECT_EQ(ring.copy(0, &slot, 0, 1, &next), -1);
    EXPECT_EQ(ring.copy(0, &slot, sizeof slot, -1, &next), -1);
}

TEST(SlotRing, AReaderOnAnotherThreadNeverSeesHalfASlot) {
    SlotRing ring;
    std::thread writer([&] {
        for (int n = 0; n < 20000; ++n) {
            HM16_Slot slot = slotWith(static_cast<float>(n));
            slot.value[63] = slot.value[0];
            ring.add(slot);
        }
    });
    std::array<HM16_Slot, 16> out{};
    std::uint64_t next = 0;
    while (next < 20000) {
        const auto came = copyFrom(ring, next, out, next);
        for (int n = 0; n < came; ++n) EXPECT_EQ(out[n].value[0], out[n].value[63]);
    }
    writer.join();
}

TEST(SlotFigures, AreTheRegistrysInItsOrderAndUnits) {
    const auto infos = registeredFigures();
    ASSERT_EQ(infos.size(), 20u);
    EXPECT_STREQ(infos[0].key, "deviation_peak");
    EXPECT_STREQ(infos[0].unit, "kHz");
    EXPECT_EQ(infos[0].highest, 250);
    EXPECT_STREQ(infos[19].key, "rds_level");
    EXPECT_EQ(placeOfFigure("rds_level"), 19);
    EXPECT_EQ(placeOfFigure("taste"), -1);
}

TEST(SlotFigures, ValuesAreInTheFiguresOwnUnits) {
    Readings plain;
    plain.peakModulation = 100;
    plain.levelFirst = -6;
    plain.carrierDeviation = -2;
    plain.relativePower = 0.64F;
    plain.rdsLevel = 2.7F;
    Readings halves;
    halves.levelFirst = -7;
    halves.levelSecond = -20;
    HM16_Slot slot{};
    putReadings(slot, plain, halves);
    const auto value = [&](std::string_view key) { return slot.value[placeOfFigure(key)]; };
    const auto state = [&](std::string_view key) { return int{slot.state[placeOfFigure(key)]}; };
    EXPECT_EQ(value("deviation_peak"), 75);
    EXPECT_EQ(value("level_left"), -6);
    EXPECT_EQ(value("level_sum"), -7);
    EXPECT_EQ(value("level_difference"), -20);
    EXPECT_EQ(value("carrier_error"), -200);
    EXPECT_FLOAT_EQ(value("relative_power"), 6.4F);
    EXPECT_EQ(value("rds_level"), 2.7F);
    EXPECT_EQ(state("deviation_peak"), HM16_KNOWN);
    EXPECT_EQ(state("distortion"), HM16_NOT_MEASURED);
    EXPECT_EQ(state("multipath"), HM16_KNOWN);
}

TEST(SlotFigures, TheFirstReasonWhyOneIsUnknownStands) {
    HM16_Slot slot{};
    putReadings(slot, {}, {});
    markUnknown(slot, "pilot_level", HM16_GAP);
    markUnknown(slot, "pilot_level", HM16_SETTLING);
    markUnknown(slot, "distortion", HM16_GAP);
    EXPECT_EQ(slot.state[placeOfFigure("pilot_level")], HM16_GAP);
    EXPECT_EQ(slot.state[placeOfFigure("distortion")], HM16_NOT_MEASURED);
}

}  // namespace
}  // namespace hm16
