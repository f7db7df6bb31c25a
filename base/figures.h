// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <limits>
#include <span>
#include <string_view>

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

/// Where a value comes from: output 1 to 16 of HM_Data, or one of the two of HM_DataRDS.
struct Source {
    int output = 0;    ///< 1 to 16; kRdsError, kRdsLevel
    float factor = 1;  ///< the output times this is the figure in its own unit
    Mode mode = Mode::Any;

    static constexpr int kRdsError = 17;
    static constexpr int kRdsLevel = 18;
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

/// All of them, in the order of the outputs.
std::span<const Figure> all();

/// The figure of that key, or null.
const Figure* find(std::string_view key);

}  // namespace figures
