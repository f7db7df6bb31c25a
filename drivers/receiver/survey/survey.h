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
    std::string name;  // as it sends it over RDS, blanks cut; empty where it is not heard

    friend bool operator==(const FoundStation&, const FoundStation&) = default;
};

// The channels in which a station may stand, by the levels of a band in steps of 100 kHz from
// `firstMhz` on: the middles of what is loudest, strongest first. A level of 0 was not received.
std::vector<FoundStation> loudChannels(const std::vector<float>& levels, double firstMhz);

// Goes over the band once with a unit that nobody else uses: its stations, strongest first, at most
// `most`. Each is listened to until its name is known, for four seconds of signal at most.
std::vector<FoundStation> surveyBand(ReceiverUnit& unit, std::size_t most);

}  // namespace hm16::receiver
