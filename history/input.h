// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "history/figure_second.h"
#include "history/state.h"

namespace history {

/// The time of an event by two clocks: the wall clock, which people and the network set, and one
/// that never goes back and also runs while the machine sleeps.
struct Moment {
    std::int64_t utcMs = 0;     ///< since 1970
    std::int64_t steadyMs = 0;  ///< from any origin
    std::int64_t asleepMs = 0;  ///< how long the machine has slept, from any origin

    /// The present time by the system's clocks.
    static Moment now();
};

/// One thing that happened at the driver door. It has a fixed size and no pointers, because it
/// passes a ring to another thread.
struct Input {
    enum class What : std::uint8_t {
        Tuned,     ///< the unit measures a station: khz, detector, audioMode
        Readings,  ///< sixteen outputs and the two of RDS: value[0..17]
        Slot,      ///< a slot of a library that states its figures' states, in the registry's order
        Halted,    ///< the unit measures no station any more
        Silent,    ///< a call to the unit has not returned in time, until any other input comes
        Busy,      ///< a point or a frame of an analysis came: the unit is in use
        Demo,      ///< the demo mode's figures begin (flag) or end
        FieldCorrection,  ///< value[0]: the field correction from now on, dB
        Tick,             ///< only the time
        Stop              ///< the program ends
    };

    What what = What::Tick;
    std::uint8_t detector = 0;
    std::uint8_t audioMode = 0;   ///< 0: L and R, 1: L+R and L-R
    bool flag = false;            ///< Readings: the unit has no new ones; Demo: begins
    std::uint8_t lostBefore = 0;  ///< set by the ring: inputs before this one were lost
    int khz = 0;                  ///< Tuned: 87500 is 87.5 MHz
    Moment at;
    std::int64_t slotUtcMs = 0;  ///< Slot: wall clock at its end; 0: unknown
    std::uint64_t number = 0;    ///< Slot: consecutive; a jump is a loss
    std::uint32_t lengthMs = 0;  ///< Slot
    std::array<float, kMostFigures> value{};
    std::array<State, kMostFigures> state{};
};

/// Receives inputs: the recorder, or a test.
struct InputSink {
    virtual ~InputSink() = default;
    virtual void take(const Input& input) = 0;
};

}  // namespace history
