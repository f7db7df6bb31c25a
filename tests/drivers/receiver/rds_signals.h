// SPDX-License-Identifier: GPL-3.0-or-later
// Ten multiplex signals with RDS on which decoders are compared; docs/receiver.md has the table.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "drivers/receiver/chain/demodulator.h"
#include "drivers/receiver/chain/rds_receiver.h"
#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/rds/rds_pulse.h"
#include "drivers/receiver/synth/band_generator.h"
#include "drivers/receiver/synth/random.h"
#include "drivers/receiver/synth/rds_waveform.h"

namespace hm16::receiver {

struct RdsSignal {
    const char* name = "";
    double carrierToNoiseDb = 40;
    double deviationHz = 2000;
    double phaseDegrees = 0;
    double errorHz = 0;
    Ray ray{};
    double flipEvery =
        0;  // bits, on average, from one that is sent the wrong way round to the next
    double burstEvery = 0;  // and from one burst of two to five such bits to the next
    double slipEvery = 0;   // seconds from a bit that is left out or sent twice to the next
    double cutEvery = 0;  // seconds from where 3 to 40 ms of the multiplex are missing to the next
};

inline constexpr double kRdsSignalSeconds = 20;
inline constexpr double kRdsSignalHz = 250e3;

inline const std::array<RdsSignal, 10> kRdsSignals{{
    {.name = "steady, 50 dB", .carrierToNoiseDb = 50},
    {.name = "1.2 kHz, 4 Hz off, 30 dB",
     .carrierToNoiseDb = 30,
     .deviationHz = 1200,
     .phaseDegrees = 90,
     .errorHz = 4},
    {.name = "18 dB", .carrierToNoiseDb = 18},
    {.name = "15 dB", .carrierToNoiseDb = 15, .phaseDegrees = 90},
    {.name = "1.2 kHz, 20 dB", .carrierToNoiseDb = 20, .deviationHz = 1200},
    {.name = "second ray, 20 us, 40 %", .carrierToNoiseDb = 30, .ray = {20e-6, 0.4, 60}},
    {.name = "single errors sent", .flipEvery = 60},
    {.name = "bursts sent", .burstEvery = 70},
    {.name = "slips sent", .slipEvery = 1.5},
    {.name = "pieces cut out", .cutEvery = 2},
}};

inline RdsPlan rdsSignalPlan() {
    RdsPlan plan;
    plan.programme = 0xD3C8;
    plan.name = "HALDEN 1";
    return plan;
}

using RdsWords = std::array<std::uint16_t, kRdsBlocks>;

// The groups that are sent in all of them.
inline const std::set<RdsWords>& sentGroups() {
    static const std::set<RdsWords> groups = [] {
        std::set<RdsWords> made;
        const std::vector<bool> bits = rdsBits(rdsSignalPlan());
        constexpr std::size_t kGroupBits = kRdsBlocks * kRdsBlockBits;
        for (std::size_t start = 0; start < bits.size(); start += kGroupBits) {
            RdsWords words{};
            for (std::size_t n = 0; n < kGroupBits; ++n)
                if (n % kRdsBlockBits < 16)
                    words[n / kRdsBlockBits] = static_cast<std::uint16_t>(
                        words[n / kRdsBlockBits] << 1U | (bits[start + n] ? 1U : 0U));
            made.insert(words);
        }
        return made;
    }();
    return groups;
}

// The bits that a signal sends, with its errors already in them.
inline std::vector<bool> spoiltBits(const RdsSignal& signal) {
    const std::vector<bool> once = rdsBits(rdsSignalPlan());
    const auto count = static_cast<std::size_t>((kRdsSignalSeconds + 2) * kRdsBitsPerSecond);
    std::vector<bool> bits;
    Random random(17);
    const auto slip = static_cast<std::size_t>(signal.slipEvery * kRdsBitsPerSecond);
    for (std::size_t n = 0; bits.size() < count; ++n) {
        const bool bit = once[n % once.size()];
        if (slip > 0 && n % slip == slip - 1) {
            if (n / slip % 2 == 0) continue;
            bits.push_back(bit);
        }
        bits.push_back(bit);
    }
    for (std::size_t n = 0; n + kRdsLongestBurst < bits.size(); ++n) {
        if (signal.flipEvery > 0 && random.uniform() < 1 / signal.flipEvery) bits[n] = !bits[n];
        if (signal.burstEvery == 0 || random.uniform() >= 1 / signal.burstEvery) continue;
        const auto length = 2 + static_cast<std::size_t>(4 * random.uniform());
        for (std::size_t k = 0; k < length; ++k)
            if (k == 0 || k + 1 == length || random.uniform() < 0.5) bits[n + k] = !bits[n + k];
        n += 2 * kRdsBlockBits;
    }
    return bits;
}

// Its multiplex in Hz at kRdsSignalHz, as an ideal receiver demodulates it.
inline std::vector<float> multiplexOf(const RdsSignal& signal) {
    BandPlan band;
    band.rateHz = 2 * kRdsSignalHz;
    band.carrierToNoiseDb = signal.carrierToNoiseDb;
    StationPlan station;
    station.pilotDeviationHz = 6750;
    station.programme.level = 0.6;
    station.ray = signal.ray;
    station.rds = rdsSignalPlan();
    station.rds.deviationHz = signal.deviationHz;
    station.rds.phaseDegrees = signal.phaseDegrees;
    station.rds.errorHz = signal.errorHz;
    station.rds.bits = spoiltBits(signal);
    band.stations.push_back(station);
    BandGenerator generator(band);
    ComplexDecimator channelFilter(designLowPass(band.rateHz, 190e3, 249e3), 1);
    Demodulator demodulator(planRates(band.rateHz, Domain::Band), PeakEdge::At100);
    std::vector<Sample> samples(50000);
    std::vector<Sample> channel;
    std::vector<float> frequency;
    std::vector<float> envelope;
    std::vector<float> composite;
    Random random(5);
    double untilCut = signal.cutEvery;
    const double seconds = static_cast<double>(samples.size()) / band.rateHz;
    while (static_cast<double>(composite.size()) < kRdsSignalSeconds * kRdsSignalHz) {
        channel.clear();
        frequency.clear();
        envelope.clear();
        generator.read(samples);
        channelFilter.process(samples, channel);
        demodulator.discriminate(channel, frequency, envelope);
        demodulator.lowPass(frequency, composite);
        untilCut -= seconds;
        if (signal.cutEvery == 0 || untilCut > 0) continue;
        untilCut = signal.cutEvery;
        composite.resize(composite.size() - static_cast<std::size_t>(
                                                (0.003 + 0.037 * random.uniform()) * kRdsSignalHz));
    }
    // Decoders look back, so the last bits need something after them.
    composite.resize(composite.size() + static_cast<std::size_t>(0.2 * kRdsSignalHz), 0.0F);
    return composite;
}

struct RdsCount {
    int groups = 0;  // sent and received whole
    int wrong = 0;   // received whole, but never sent
};

inline RdsCount countGroups(const std::vector<float>& composite) {
    RdsReceiver receiver(planRates(kRdsSignalHz, Domain::Composite));
    RdsCount count;
    constexpr auto kSlot = static_cast<std::size_t>(kSlotSeconds * kRdsSignalHz);
    for (std::size_t at = 0; at + kSlot <= composite.size(); at += kSlot) {
        receiver.add(std::span(composite).subspan(at, kSlot));
        receiver.endSlot();
        for (const RdsGroup& group : receiver.groups()) {
            if (!group.whole()) continue;
            RdsWords words{};
            for (std::size_t n = 0; n < words.size(); ++n) words[n] = group.blocks[n].information;
            ++(sentGroups().count(words) > 0 ? count.groups : count.wrong);
        }
    }
    return count;
}

}  // namespace hm16::receiver
