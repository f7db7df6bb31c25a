// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "history/figure_second.h"
#include "history/state.h"

namespace history {

/// When something happened, by two clocks: the one on the wall, which people and the network set,
/// and one that only goes forward, also while the machine sleeps.
struct Moment {
    std::int64_t utcMs = 0;     ///< since 1970
    std::int64_t steadyMs = 0;  ///< since anything

    /// Now, by the system's clocks.
    static Moment now();
};

/// One thing that passed the driver's door. Of a fixed size and without pointers: it goes through a
/// ring to another thread.
struct Input {
    enum class What : std::uint8_t {
        Tuned,            ///< the unit measures a station: khz, detector, audioMode
        Readings,         ///< sixteen outputs and the two of RDS: value[0..17]
        Slot,             ///< one slot of a library that tells states, in the registry's order
        Halted,           ///< the unit measures no station any more
        Busy,             ///< a point or a frame of an analysis came: the unit is away
        Demo,             ///< made-up figures begin (flag) or end
        FieldCorrection,  ///< value[0]: dB that are added to the field from now on
        Tick,             ///< nothing but time
        Stop              ///< the program ends
    };

    What what = What::Tick;
    std::uint8_t detector = 0;
    std::uint8_t audioMode = 0;   ///< 0: L and R, 1: L+R and L-R
    bool flag = false;            ///< Readings: the unit says nothing new; Demo: begins
    std::uint8_t lostBefore = 0;  ///< set by the ring: what came before this was lost
    int khz = 0;                  ///< Tuned: 87500 is 87.5 MHz
    Moment at;
    std::int64_t slotUtcMs = 0;  ///< Slot: wall clock of its end; 0: not known
    std::uint64_t number = 0;    ///< Slot: counts; a jump is a loss
    std::uint32_t lengthMs = 0;  ///< Slot
    std::array<float, kMostFigures> value{};
    std::array<State, kMostFigures> state{};
};

/// Whoever makes the inputs hands them to one of these: the recorder, or a test.
struct InputSink {
    virtual ~InputSink() = default;
    virtual void take(const Input& input) = 0;
};

}  // namespace history
