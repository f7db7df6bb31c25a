// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hm16::receiver {

// What a synthetic station sends, in true figures: what a perfect receiver would read.

// A sine in the audio. 1.0 in both channels deviates the carrier by 67.5 kHz, which is 0 dB.
struct AudioTone {
    double hz = 1000;
    double left = 0;  // amplitude; a negative one is out of phase
    double right = 0;

    bool operator==(const AudioTone&) const = default;
};

// A sine that modulates the carrier directly, without audio and pre-emphasis.
struct DirectTone {
    double hz = 1000;
    double deviationHz = 75e3;

    bool operator==(const DirectTone&) const = default;
};

// A stretch with more deviation: a direct tone from start to start + length.
struct Burst {
    double startSeconds = 0;
    double lengthSeconds = 0.02;
    DirectTone tone;

    bool operator==(const Burst&) const = default;
};

// Programme-like sound: a chord whose notes come and go, with a pause now and then.
struct Programme {
    double level = 0;         // amplitude of the whole as AudioTone's; 0 is none
    double width = 0.3;       // part of the sound that is in the difference channel
    double pauseEvery = 4.0;  // seconds from pause to pause
    double pauseLength = 0.4;

    bool operator==(const Programme&) const = default;
};

// A second path of the same signal.
struct Ray {
    double delaySeconds = 5e-6;
    double amplitude = 0;  // of the direct one's
    double phaseDegrees = 0;

    bool operator==(const Ray&) const = default;
};

struct RdsPlan {
    double deviationHz = 0;   // peak of the subcarrier; 0 is none
    double phaseDegrees = 0;  // relative to the third harmonic of the pilot
    double errorHz = 0;       // away from three times the pilot's frequency
    std::uint16_t programme = 0x1234;
    std::string name = "STATION";
    std::string text = "SYNTHETIC STATION WITH KNOWN FIGURES";
    std::vector<bool> bits;     // repeated instead of groups, before differential coding
    bool plainCarrier = false;  // an unmodulated 57 kHz sine instead of data

    bool operator==(const RdsPlan&) const = default;
};

struct StationPlan {
    double offsetHz = 0;        // from the centre of the band to the assigned frequency
    double carrierErrorHz = 0;  // of the carrier against the assigned frequency
    double amplitude = 0.7;     // 1 is full scale
    double pilotDeviationHz = 0;
    double pilotErrorHz = 0;
    double preEmphasisUs = 50;
    std::vector<AudioTone> tones;
    std::vector<DirectTone> direct;
    std::vector<Burst> bursts;
    Programme programme;
    RdsPlan rds;
    Ray ray;

    bool operator==(const StationPlan&) const = default;
};

// The faults of the receiver's radio.
struct BandPlan {
    double rateHz = 2.4e6;
    double centreHz = 98e6;
    std::vector<StationPlan> stations;
    // Carrier to noise of a station of amplitude `noiseReference` in 200 kHz; 300 and over is no
    // noise at all.
    double carrierToNoiseDb = 300;
    double noiseReference = 0.7;
    double clockPpm = 0;  // how much too fast the radio's clock runs
    bool eightBit = false;
    double offsetI = 0;  // share of full scale
    double offsetQ = 0;
    double gainError = 0;  // Q is 1 + gainError times as strong as I
    double phaseErrorDegrees = 0;
    std::uint64_t seed = 1;

    bool operator==(const BandPlan&) const = default;
};

}  // namespace hm16::receiver
