// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "drivers/receiver/library/receiver_unit.h"

namespace hm16::receiver {

// A station that a survey of the band has found.
struct FoundStation {
    double mhz = 0;
    double levelDbuv = 0;
    std::string name;  // as sent over RDS, without blanks around it; empty if it was not received

    friend bool operator==(const FoundStation&, const FoundStation&) = default;
};

// The channels in which there may be a station, from the levels of a band in steps of 100 kHz from
// `firstMhz` on: the middles of the loudest places, strongest first. A level of 0 was not received.
std::vector<FoundStation> loudChannels(const std::vector<float>& levels, double firstMhz);

// Surveys the band once with a unit that nobody else uses: returns its stations, strongest first,
// at most `most`. Listens to each until its name is known, for four seconds of signal at most.
std::vector<FoundStation> surveyBand(ReceiverUnit& unit, std::size_t most);

}  // namespace hm16::receiver
