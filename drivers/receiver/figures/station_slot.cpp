// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/station_slot.h"

namespace hm16::receiver {

FigureStates allFigures(FigureState state) {
    return {state, state, state, state, state, state, state, state,
            state, state, state, state, state, state, state};
}

}  // namespace hm16::receiver
