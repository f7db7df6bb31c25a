// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "drivers/receiver/figures/audio_power.h"

namespace hm16::receiver {

// Everything that is measured of one station. A figure that is not known is 0; levels are then
// kSilenceDb.
struct Figures {
    bool carrier = false;  // there is a modulated carrier, not only noise
    bool stereo = false;   // there is a steady pilot
    bool rds = false;      // there is data on the 57 kHz subcarrier

    double peakHz = 0;
    double levelLeftDb = kSilenceDb;
    double levelRightDb = kSilenceDb;
    double levelSumDb = kSilenceDb;
    double levelDifferenceDb = kSilenceDb;
    double stereoPhaseDegrees = 45;
    double relativePower = 0;   // share of a 75 kHz sine's mean square
    double multiplexPower = 0;  // mean square in Hz squared, pilot and RDS included, over a second
    double pilotErrorHz = 0;
    double pilotHz = 0;
    double noiseLeftDb = 0;
    double noiseRightDb = 0;
    double separationLeftDb = 0;
    double separationRightDb = 0;
    double distortionPercent = 0;
    double carrierHz = 0;
    double fieldDb = 0;
    double multipathPercent = 0;
    int peaksPerMinute = 0;
    double rdsErrorHz = 0;
    double rdsHz = 0;

    std::uint64_t rdsGoodBlocks = 0;
    std::uint64_t rdsCorrectedBlocks = 0;
    std::uint64_t rdsBadBlocks = 0;
    std::optional<std::uint16_t> rdsProgramme;
    std::string rdsName;

    bool narrow = false;  // measured through the narrow filter because of a strong neighbour

    bool operator==(const Figures&) const = default;
};

}  // namespace hm16::receiver
