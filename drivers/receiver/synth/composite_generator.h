// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstdint>
#include <span>
#include <vector>

#include "drivers/receiver/synth/rds_waveform.h"
#include "drivers/receiver/synth/station_plan.h"

namespace hm16::receiver {

// The multiplex of a station: its deviation in Hz over time, sample by sample.
class CompositeGenerator {
 public:
    // `rateHz`: the true rate, including the clock's error.
    CompositeGenerator(const StationPlan& plan, double rateHz, std::uint64_t seed);

    // Appends `count` samples.
    void generate(std::size_t count, std::vector<double>& out);

 private:
    // A sine in the sum and in the difference channel; a note of a programme is turned on and off
    // by an envelope.
    struct Voice {
        double hz = 0;
        double sum = 0;
        double difference = 0;
        double beatHz = 0;  // of its envelope; 0 is a steady tone
        double beatPhase = 0;
    };

    void addProgramme(const Programme& programme, std::uint64_t seed);
    void addVoice(const Voice& voice, std::size_t count, double* sum, double* difference) const;
    void addPauses(std::size_t count, double* sum, double* difference) const;
    void addDirect(const DirectTone& tone, std::size_t count, double* out) const;
    void addBursts(std::size_t count, double* out) const;

    StationPlan plan_;
    double rateHz_;
    RdsWaveform rds_;
    std::vector<Voice> steady_;
    std::vector<Voice> notes_;
    std::uint64_t done_ = 0;
    std::vector<double> sum_;
    std::vector<double> difference_;
    std::vector<double> programmeSum_;
    std::vector<double> programmeDifference_;
};

}  // namespace hm16::receiver
