// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/figures.h"
#include "display/control.h"
#include "display/controls/plot.h"
#include "history/event.h"
#include "history/state.h"

namespace display {
class Desktop;
}

namespace hmonitor {

/// Why a figure is not known: a few words.
std::string_view causeWords(history::State cause, display::Language language);
/// The colour in which it is hatched.
display::Colour causeColour(history::State cause);
/// All of them, for a plot.
std::vector<display::PlotCause> causeColours();

/// What happened: a few words, with what the event says of itself.
std::string eventWords(const history::Event& event, display::Language language);
display::Colour eventColour(history::EventKind kind);

/// A moment as the clock on the wall reads it: "14:05:10", "21 Nov 2026", "2026-11-21 14:05:10".
std::string clockText(std::int64_t ms);
std::string dateText(std::int64_t ms, const display::WallClock& clock);
/// With its zone: "2026-11-21T14:05:10-03:00"; and in UTC: "2026-11-21T17:05:10Z".
std::string localStamp(std::int64_t ms);
std::string utcStamp(std::int64_t ms);
/// A length of time in its two largest units: "2 h 05 min", "34 s", "12 d 03 h".
std::string lengthText(std::int64_t ms);

/// A value of a figure with as many decimals as a person reads: "66.2".
std::string valueText(const figures::Figure& figure, double value);

/// The clock of this machine's zone, with the months' names of the desktop.
display::WallClock machineClock(const display::Desktop& desktop);

}  // namespace hmonitor
