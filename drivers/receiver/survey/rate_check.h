// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>

#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// Where the pilot of a stereo station seems to stand, by the multiplex: the one narrow line with
// nothing beside it, as there is between sum and difference. Half a second of samples in which the
// station stands at `offsetHz`, at the rate that their file tells. Nothing where no such line
// is found, as on a mono station.
std::optional<double> seemingPilotHz(std::span<const Sample> samples, double rateHz,
                                     double offsetHz);

// One sentence where a pilot that seems to stand elsewhere than at 19 kHz shows that the rate of
// `name` is another one of those that radios have; empty else.
std::string rateFault(const std::string& name, double rateHz, double pilotHz);

}  // namespace hm16::receiver
