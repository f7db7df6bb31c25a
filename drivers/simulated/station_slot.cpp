// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/station_slot.h"

#include <array>
#include <string_view>

#include "drivers/unit/slot_figures.h"

namespace hm16::simulated {

namespace {

// The figures that are known on a frequency without a station.
constexpr std::array<std::string_view, 1> kWithoutStation{"field"};
constexpr std::array<std::string_view, 3> kOfStereo{"pilot_error", "separation_left",
                                                    "separation_right"};

}  // namespace

HM16_Slot slotOf(const Station* station, const Readings& leftRight, const Readings& sumDifference) {
    HM16_Slot slot{};
    slot.lengthMs = 50;
    putReadings(slot, leftRight, sumDifference);
    if (station == nullptr) {
        markAllUnknownBut(slot, kWithoutStation, HM16_NO_CARRIER);
        return slot;
    }
    if (!station->isStereo()) {
        for (const auto key : kOfStereo) slot.state[placeOfFigure(key)] = HM16_NO_PILOT;
    }
    if (!station->hasRds()) markUnknown(slot, "rds_error", HM16_NO_CARRIER);
    return slot;
}

}  // namespace hm16::simulated
