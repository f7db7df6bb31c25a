// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/slot_of.h"

#include <cstdint>

#include "drivers/receiver/library/readings_of.h"
#include "drivers/unit/slot_figures.h"

namespace hm16::receiver {
namespace {

static_assert(static_cast<int>(FigureState::Settling) == HM16_SETTLING);
static_assert(static_cast<int>(FigureState::NoCarrier) == HM16_NO_CARRIER);
static_assert(static_cast<int>(FigureState::TooNoisy) == HM16_TOO_NOISY);
static_assert(static_cast<int>(FigureState::Multipath) == HM16_MULTIPATH);
static_assert(static_cast<int>(FigureState::NoPilot) == HM16_NO_PILOT);
static_assert(static_cast<int>(FigureState::Overload) == HM16_OVERLOAD);
static_assert(static_cast<int>(FigureState::Gap) == HM16_GAP);
static_assert(static_cast<int>(FigureState::UnitAway) == HM16_UNIT_AWAY);
static_assert(static_cast<int>(FigureState::NotMeasured) == HM16_NOT_MEASURED);

// Whose state each figure of the registry has.
struct StateOf {
    const char* key;
    FigureState FigureStates::*state;
};

constexpr StateOf kStates[] = {
    {"deviation_peak", &FigureStates::peak},
    {"level_left", &FigureStates::levels},
    {"level_right", &FigureStates::levels},
    {"level_sum", &FigureStates::levels},
    {"level_difference", &FigureStates::levels},
    {"stereo_phase", &FigureStates::levels},
    {"relative_power", &FigureStates::power},
    {"pilot_error", &FigureStates::pilotError},
    {"pilot_level", &FigureStates::pilotLevel},
    {"noise_left", &FigureStates::noise},
    {"noise_right", &FigureStates::noise},
    {"separation_left", &FigureStates::separationLeft},
    {"separation_right", &FigureStates::separationRight},
    {"distortion", &FigureStates::distortion},
    {"carrier_error", &FigureStates::carrier},
    {"field", &FigureStates::field},
    {"multipath", &FigureStates::multipath},
    {"peaks_per_minute", &FigureStates::peaksPerMinute},
    {"rds_error", &FigureStates::rdsError},
    {"rds_level", &FigureStates::rdsLevel},
};

}  // namespace

HM16_Slot slotOf(const StationSlot& slot, double levelStepDb) {
    HM16_Slot out{};
    out.lengthMs = 50;
    const Figures& figures = slot.figures;
    putReadings(out, readingsOf(figures, figures.peakHz, AudioMode::LeftRight, levelStepDb),
                readingsOf(figures, figures.peakHz, AudioMode::SumDifference, levelStepDb));
    for (const StateOf& of : kStates) {
        const int place = placeOfFigure(of.key);
        if (place >= 0) out.state[place] = static_cast<std::uint8_t>(slot.states.*of.state);
    }
    return out;
}

}  // namespace hm16::receiver
