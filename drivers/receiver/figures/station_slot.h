// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "drivers/receiver/figures/figures.h"

namespace hm16::receiver {

// Why a figure of a slot is not known. The numbers are those of a slot's states in
// drivers/hm16_more.h.
enum class FigureState : std::uint8_t {
    Known = 0,
    Settling = 1,      // not measured long enough
    NoCarrier = 2,     // no station, or not the subcarrier of the figure
    TooNoisy = 3,      // noise or a neighbour hides it
    Multipath = 4,     // echoes hide it
    NoPilot = 5,       // a stereo figure, on a station without a pilot
    Overload = 6,      // the samples are at the end of the converter's range
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

// All of them in the same state.
FigureStates allFigures(FigureState state);

// The same states, except that what was known is unknown because of `why`.
FigureStates unknownBecause(const FigureStates& states, FigureState why);

// From this multipath on, in percent, echoes falsify a peak by 3 kHz or more, and dominate
// separation, noise and distortion.
inline constexpr double kEchoesHidePercent = 6;
FigureStates hiddenByEchoes(const FigureStates& states);

// Why samples of a stretch are missing.
enum class Missing {
    Lost,  // by a radio or a machine
    Away,  // the radio was tuned elsewhere on purpose
};

// Samples that a radio or a machine lost or spoilt, found in the signal or reported by the source.
struct Disturbances {
    std::uint64_t gaps = 0;         // how often samples or the carrier were missing for a moment
    std::uint64_t bursts = 0;       // how often samples were there but spoilt
    std::uint64_t lostSamples = 0;  // as far as their number is known

    bool operator==(const Disturbances&) const = default;
};

// What was measured in one slot of 50 ms.
struct StationSlot {
    std::uint64_t number = 0;  // slots since the chain began
    double endSeconds = 0;     // the signal's time since the chain began, lost samples counted
    bool spoilt = false;  // contains a gap or a burst; its figures are those of the slot before
    bool away = false;    // and the radio was tuned elsewhere
    Figures figures;
    FigureStates states;
};

}  // namespace hm16::receiver
