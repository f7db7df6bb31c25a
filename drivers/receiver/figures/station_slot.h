// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "drivers/receiver/figures/figures.h"

namespace hm16::receiver {

// Why a figure of a slot is not known. The numbers are those of a slot's states in
// drivers/hm16_more.h.
enum class FigureState : std::uint8_t {
    Known = 0,
    Settling = 1,      // not long enough measured
    NoCarrier = 2,     // no station, or not the subcarrier that the figure is about
    TooNoisy = 3,      // noise or a neighbour hides it
    Multipath = 4,     // echoes hide it
    NoPilot = 5,       // a figure of stereo, on a station without a pilot
    Overload = 6,      // the samples stand at the converter's end
    Gap = 7,           // samples were lost or spoilt
    UnitAway = 8,      // the radio was tuned elsewhere meanwhile
    NotMeasured = 10,  // not on this programme
};

// Of the figures that go together.
struct FigureStates {
    FigureState peak = FigureState::NoCarrier;
    FigureState levels = FigureState::NoCarrier;  // left, right, sum, difference and phase
    FigureState power = FigureState::NoCarrier;
    FigureState pilotError = FigureState::NoCarrier;
    FigureState pilotLevel = FigureState::NoCarrier;
    FigureState noise = FigureState::NoCarrier;
    FigureState separationLeft = FigureState::NoCarrier;
    FigureState separationRight = FigureState::NoCarrier;
    FigureState distortion = FigureState::NoCarrier;
    FigureState carrier = FigureState::NoCarrier;
    FigureState field = FigureState::Known;
    FigureState multipath = FigureState::NoCarrier;
    FigureState peaksPerMinute = FigureState::NoCarrier;
    FigureState rdsError = FigureState::NoCarrier;
    FigureState rdsLevel = FigureState::NoCarrier;

    bool operator==(const FigureStates&) const = default;
};

// All states alike.
FigureStates allFigures(FigureState state);

// The same states, but what was known is not any more because of `why`.
FigureStates unknownBecause(const FigureStates& states, FigureState why);

// From so much multipath on, in percent, echoes make a peak wrong by 3 kHz or more, and what is
// heard of separation, noise and distortion is their own.
inline constexpr double kEchoesHidePercent = 6;
FigureStates hiddenByEchoes(const FigureStates& states);

// Why samples of a stretch are not there.
enum class Missing {
    Lost,  // by a radio or a machine
    Away,  // the radio was tuned elsewhere on purpose
};

// Samples that a radio or a machine lost or spoilt, told from the signal or by the source.
struct Disturbances {
    std::uint64_t gaps = 0;         // times that samples or the carrier were missing for a moment
    std::uint64_t bursts = 0;       // times that samples were there but spoilt
    std::uint64_t lostSamples = 0;  // as far as their number is known

    bool operator==(const Disturbances&) const = default;
};

// What was measured in one slot of 50 ms.
struct StationSlot {
    std::uint64_t number = 0;  // slots since the chain began
    double endSeconds = 0;     // the signal's time since the chain began, lost samples counted
    bool spoilt = false;       // a gap or a burst lies in it: its figures are those before
    bool away = false;         // and the radio was tuned elsewhere
    Figures figures;
    FigureStates states;
};

}  // namespace hm16::receiver
