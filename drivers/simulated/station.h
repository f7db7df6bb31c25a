// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

namespace hm16::simulated {

enum class Sound { Speech, Music, Classical };

// A station of the simulated band, with its average figures, about which the readings vary.
struct Station {
    std::string_view name;  // as a memory preset holds it: at most 9 characters, upper case
    double frequency;       // nominal, units of 100 kHz
    Sound sound;
    double field;         // dB over a microvolt
    double modulation;    // percent of 75 kHz that the loudest passages reach
    double pilot;         // percent; 0: mono
    double pilotError;    // Hz
    double rds;           // percent; 0: none
    double carrierError;  // Hz
    double noise;         // dB
    double separation;    // dB; 0 where there is no pilot
    double distortion;    // percent
    double multipath;     // 28 and over is bad

    bool isStereo() const { return pilot > 0; }
    bool hasRds() const { return rds > 0; }
};

// All stations, by frequency.
std::span<const Station> stations();

// The station that a receiver tuned to `frequency` locks on, within 75 kHz; null between stations.
const Station* stationAt(double frequency);

}  // namespace hm16::simulated
