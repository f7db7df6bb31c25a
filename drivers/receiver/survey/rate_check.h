// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>

#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// The frequency at which the pilot of a stereo station seems to be: that of the only narrow line of
// the multiplex with nothing beside it, as between sum and difference. `samples` are half a second
// with the station at `offsetHz`, by the rate that their file states. None if there is no such
// line, as on a mono station.
std::optional<double> seemingPilotHz(std::span<const Sample> samples, double rateHz,
                                     double offsetHz);

// One sentence if a pilot elsewhere than at 19 kHz shows that the rate of `name` is really another
// usual one; otherwise empty.
std::string rateFault(const std::string& name, double rateHz, double pilotHz);

}  // namespace hm16::receiver
