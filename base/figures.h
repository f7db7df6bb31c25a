// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "base/readings.h"

// Every figure that the instrument measures, in one table: what it is called, its unit and range,
// what is good, where it comes from and where the rack shows it. There is no second list.
namespace figures {

/// A text in both languages of the program. UTF-8.
struct Words {
    const char* spanish = "";
    const char* english = "";
};

/// What becomes of many values when a longer span is summed up.
enum class Kind {
    Peak,   ///< the highest
    Level,  ///< dB: the mean of the powers
    Mean,
    Angle,  ///< an axis of period 180 degrees: mean of unit vectors of the doubled angle, halved
    Share,
    Count,  ///< the sum
    State   ///< the one that held longest
};

/// When a value says something, for libraries that do not tell.
enum class Known {
    Always,
    NotZero,    ///< 0 stands for "nothing measured"
    WithPilot,  ///< while the pilot's level is over 0.3 percent
    WithRds     ///< while the RDS level is over 0.3 percent
};

/// In which audio mode an output is this figure.
enum class Mode { Any, LeftRight, SumDifference };

/// What becomes of a figure at a moment. The numbers stand in files for ever, and are those of the
/// C interface (drivers/hm16_more.h).
enum class State : std::uint8_t {
    Known = 0,
    Settling = 1,      ///< behind a tuning or a gap, not long enough measured
    NoCarrier = 2,     ///< no station, or not the subcarrier that the figure is about
    TooNoisy = 3,      ///< the noise hides it
    Multipath = 4,     ///< echoes hide it
    NoPilot = 5,       ///< a figure of stereo, on a station without a pilot
    Overload = 6,      ///< the unit's input is driven too hard
    Gap = 7,           ///< samples were lost or spoilt
    UnitAway = 8,      ///< the unit has something else to do
    Stale = 9,         ///< nothing new came
    NotMeasured = 10,  ///< not by this unit, or not on this programme
    OutOfRange = 11,   ///< came, but cannot be
    TooSlow = 12       ///< the machine did not keep up
};

/// Where a value comes from.
struct Source {
    Output output = nullptr;
    float factor = 1;  ///< the output times this is the figure in its own unit
    Mode mode = Mode::Any;
};

/// Bounds in the figure's own unit; an infinite one is none.
struct Bounds {
    float lowest = -std::numeric_limits<float>::infinity();
    float highest = std::numeric_limits<float>::infinity();
};

/// One place of the rack that shows a figure.
struct Place {
    const char* form;
    const char* control;
    const char* unit;
    float factor;  ///< the source's output times this is what is shown there
};

struct Figure {
    const char* key;  ///< stable, ASCII: it stands in files for ever
    Words name;
    const char* unit;
    Words definition;
    const char* standard;  ///< that the definition or the bounds come from; "" for none
    Bounds range;          ///< both ends are finite
    float step;            ///< to which a value is stored, in its unit
    Kind kind;
    Source source;
    Known known;
    Bounds good;
    Words remark;  ///< what the bounds alone do not say; "" for nothing
    std::span<const Place> shown;
};

inline constexpr std::size_t kCount = 20;

/// All of them, in the order of the outputs.
std::span<const Figure, kCount> all();

/// The figure of that key, or null.
const Figure* find(std::string_view key);

/// The figure in its own unit.
float valueOf(const Figure& figure, const Readings& readings);

/// Whether the figure is known by its rule for libraries that tell no states, and why it is not.
State knownWhen(const Figure& figure, const Readings& readings);

/// What becomes of the figure when such a library says these readings in that audio mode: its rule,
/// its range, and the end mark of a response run, which is no pilot.
State stateOf(const Figure& figure, const Readings& readings, Mode mode);

}  // namespace figures
