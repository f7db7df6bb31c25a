// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/station_slot.h"

namespace hm16::receiver {

FigureStates allFigures(FigureState state) {
    return {state, state, state, state, state, state, state, state,
            state, state, state, state, state, state, state};
}

FigureStates unknownBecause(const FigureStates& states, FigureState why) {
    FigureStates result = states;
    for (FigureState FigureStates::*const state :
         {&FigureStates::peak, &FigureStates::levels, &FigureStates::power,
          &FigureStates::pilotError, &FigureStates::pilotLevel, &FigureStates::noise,
          &FigureStates::separationLeft, &FigureStates::separationRight, &FigureStates::distortion,
          &FigureStates::carrier, &FigureStates::field, &FigureStates::multipath,
          &FigureStates::peaksPerMinute, &FigureStates::rdsError, &FigureStates::rdsLevel})
        if (result.*state == FigureState::Known) result.*state = why;
    return result;
}

FigureStates hiddenByEchoes(const FigureStates& states) {
    FigureStates result = states;
    for (FigureState* state : {&result.peak, &result.noise, &result.separationLeft,
                               &result.separationRight, &result.distortion})
        if (*state == FigureState::Known) *state = FigureState::Multipath;
    return result;
}

}  // namespace hm16::receiver
