// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "drivers/receiver/record/recording_writer.h"
#include "drivers/receiver/synth/band_generator.h"
#include "tests/drivers/receiver/receiver_library.h"

namespace hm16::receiver {

// A station 100 kHz above the centre of a recording.
inline constexpr double kRateHz = 600e3;
inline constexpr double kCentreHz = 98.4e6;

inline StationPlan knownStation() {
    StationPlan station;
    station.offsetHz = 100e3;
    station.carrierErrorHz = 250;
    station.amplitude = 0.5;
    station.pilotDeviationHz = 6750;
    station.pilotErrorHz = 1;
    station.tones = {{1000, 0.5, 0.1}};
    station.rds.deviationHz = 2000;
    return station;
}

// 0.8 seconds of the station.
inline const std::vector<Sample>& knownBand() {
    static const std::vector<Sample> samples = [] {
        BandPlan band;
        band.rateHz = kRateHz;
        band.centreHz = kCentreHz;
        band.carrierToNoiseDb = 50;
        band.stations = {knownStation()};
        std::vector<Sample> result(480000);
        BandGenerator(band).read(result);
        return result;
    }();
    return samples;
}

inline void expectKnown(const Readings& now) {
    EXPECT_NEAR(now.pilotLevel, 9, 0.05);
    EXPECT_NEAR(now.pilotError, 1, 0.02);
    EXPECT_NEAR(now.levelFirst, 20 * std::log10(0.5), 0.2);
    EXPECT_NEAR(now.levelSecond, 20 * std::log10(0.1), 0.2);
    EXPECT_NEAR(now.rdsLevel, 100 * 2000 / 75e3, 0.15);
}

// A library that plays `name` from its own folder; the test puts files there before the unit is
// opened.
class Playback {
 public:
    explicit Playback(const std::string& name, const std::string& more = "")
        : receiver_("source = recording\npace = fast\nlevel_step_db = 0\nfile = " + name + "\n" +
                    more) {}

    const hmonitor::test::TempFolder& folder() const { return receiver_.folder(); }
    const ReceiverLibrary& operator*() const { return receiver_; }
    const ReceiverLibrary* operator->() const { return &receiver_; }

    void record(const std::string& name, SampleFormat format = SampleFormat::Cs16,
                const std::vector<Sample>& samples = knownBand()) const {
        RecordingPlan plan{folder().path() / name, format, kRateHz, kCentreHz};
        RecordingWriter writer(plan);
        writer.write(samples);
        writer.close();
    }

    // Opens the unit, which must succeed, and tunes it before any signal has run.
    void start(float frequency = 985) const {
        EXPECT_EQ(receiver_.init(), "");
        EXPECT_EQ(receiver_.version(), 1.8F);
        EXPECT_TRUE(receiver_.step(0));
        receiver_.tune(frequency);
    }

 private:
    ReceiverLibrary receiver_;
};

// The settings that a file of bare samples needs.
inline const std::string kBare = "rate_hz = 600000\ncentre_mhz = 98.4\n";

}  // namespace hm16::receiver
