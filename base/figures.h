// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "base/readings.h"

// The one table of all figures that the instrument measures: name, unit and range, good values,
// source, and the places where the rack shows it.
namespace figures {

/// A text in both languages of the program. UTF-8.
struct Words {
    const char* spanish = "";
    const char* english = "";
};

/// How the values of a longer span are combined.
enum class Kind {
    Peak,   ///< the highest
    Level,  ///< dB: the mean of the powers
    Mean,
    Angle,  ///< the mean of axes with a period of 180 degrees: that of unit vectors of the doubled
            ///< angle, halved
    Share,
    Count,  ///< the sum
    State   ///< the value that held longest
};

/// The condition under which a value counts as measured, for libraries that do not say it
/// themselves.
enum class Known {
    Always,
    NotZero,    ///< 0 stands for "nothing measured"
    WithPilot,  ///< while the pilot's level is over 0.3 percent
    WithRds     ///< while the RDS level is over 0.3 percent
};

/// The audio mode in which an output is this figure.
enum class Mode { Any, LeftRight, SumDifference };

/// The state of a figure at a moment. The numbers are stored in files, so they never change; they
/// are those of the C interface (drivers/hm16_more.h).
enum class State : std::uint8_t {
    Known = 0,
    Settling = 1,      ///< not measured long enough since a tuning or a gap
    NoCarrier = 2,     ///< no station, or a station without the figure's subcarrier
    TooNoisy = 3,      ///< the noise hides it
    Multipath = 4,     ///< echoes hide it
    NoPilot = 5,       ///< a stereo figure, on a station without a pilot
    Overload = 6,      ///< the unit's input is driven too hard
    Gap = 7,           ///< samples were lost or spoilt
    UnitAway = 8,      ///< the unit is doing something else
    Stale = 9,         ///< no new readings arrived
    NotMeasured = 10,  ///< this unit does not measure it, or not on this programme
    OutOfRange = 11,   ///< the value is impossible
    TooSlow = 12       ///< the computer was too slow
};

/// The source of a value.
struct Source {
    Output output = nullptr;
    float factor = 1;  ///< factor from the output to the figure in its own unit
    Mode mode = Mode::Any;
};

/// Bounds in the figure's own unit; infinite for no bound.
struct Bounds {
    float lowest = -std::numeric_limits<float>::infinity();
    float highest = std::numeric_limits<float>::infinity();
};

/// One place of the rack that shows a figure.
struct Place {
    const char* form;
    const char* control;
    const char* unit;
    float factor;  ///< factor from the output to what is shown there
};

struct Figure {
    const char* key;  ///< ASCII; stored in files, so it never changes
    Words name;
    const char* unit;
    Words definition;
    const char* standard;  ///< the standard that defines the figure or its bounds; "" for none
    Bounds range;          ///< both ends are finite
    float step;            ///< the step in which a value is stored, in its unit
    Kind kind;
    Source source;
    Known known;
    Bounds good;
    Words remark;  ///< a remark beyond the bounds; "" for none
    std::span<const Place> shown;
};

inline constexpr std::size_t kCount = 20;

/// All of them, in the order of the outputs.
std::span<const Figure, kCount> all();

/// The figure of that key, or null.
const Figure* find(std::string_view key);

/// The figure in its own unit.
float valueOf(const Figure& figure, const Readings& readings);

/// The figure's state by its rule alone, for libraries that give no states.
State knownWhen(const Figure& figure, const Readings& readings);

/// Why these readings, said in that audio mode by whatever library, cannot hold the figure: the
/// mode, its range, or the end mark of a response run, which is no pilot. Known where they can.
State heldBy(const Figure& figure, const Readings& readings, Mode mode);

}  // namespace figures
