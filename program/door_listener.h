// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "base/figures.h"
#include "display/timer.h"
#include "program/audio_mode.h"
#include "program/measured_slot.h"

namespace hmonitor {

enum class Detector { Peak, Average };

/// The unit measures a station from now on. Frequency in 100 kHz units, may end in .5.
struct Tuned {
    float frequency = 875;
    Detector detector = Detector::Peak;
    AudioMode mode = AudioMode::LeftRight;
    display::Time at{0};  ///< of the desktop's clock, as in all that follows

    bool operator==(const Tuned&) const = default;
};

/// What the unit says at a moment, in its own units (`figures::Readings`), and what becomes of each
/// figure of the registry, in its order. Where a figure is not known, its reading is the last good
/// one, or 0.
struct Measured {
    figures::Readings readings;
    std::array<figures::State, figures::kCount> states{};
    display::Time at{0};
};

/// A frame of the sweep that the unit was asked for. Its levels are told as they are read.
struct SweepFrame {
    float start = 0;  ///< 100 kHz units
    float stop = 0;
    std::int32_t stepKhz = 0;
    display::Time at{0};

    bool operator==(const SweepFrame&) const = default;
};

/// A level at one frequency: of a point that was measured, or read out of the frames.
struct MeasuredLevel {
    enum class From { Point, Frame };
    float frequency = 0;  ///< 100 kHz units
    float level = 0;      ///< dB over a microvolt
    From from = From::Point;
    display::Time at{0};

    bool operator==(const MeasuredLevel&) const = default;
};

/// Hears what passes the driver door: each thing once, in its order, on the program's thread, while
/// the call of the door is under way. It must return at once and call neither door nor forms.
class DoorListener {
 public:
    virtual ~DoorListener() = default;

    virtual void tuned(const Tuned&) {}
    /// With each HM_Data and each HM_DataRDS, whoever asks for them.
    virtual void measured(const Measured&) {}
    /// Each slot of the tuned station once, before the readings with which it was asked for. A
    /// value beyond the figure's range is out of range here too.
    virtual void slotCame(const MeasuredSlot&) {}
    /// A call to the unit does not come back, or its library crashed in it; the user is asked what
    /// to do. The next thing that is heard ends it.
    virtual void silent(display::Time) {}
    /// The unit does nothing until it is told otherwise.
    virtual void halted(display::Time) {}
    /// From here on the program runs without a unit, on figures that are made up. Said twice.
    virtual void demoBegan(display::Time) {}
    virtual void frameCame(const SweepFrame&) {}
    /// Only where it was measured.
    virtual void levelRead(const MeasuredLevel&) {}
};

}  // namespace hmonitor
