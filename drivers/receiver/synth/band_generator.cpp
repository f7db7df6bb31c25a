// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/synth/band_generator.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "drivers/receiver/synth/station_generator.h"

namespace hm16::receiver {
namespace {

constexpr double kNoNoiseDb = 300;
constexpr double kNoiseBandHz = 200e3;
constexpr float kEightBitSteps = 127.5F;

float eightBits(float value) {
    const float step = std::floor(value * kEightBitSteps + kEightBitSteps + 0.5F);
    return (std::clamp(step, 0.0F, 255.0F) - kEightBitSteps) / kEightBitSteps;
}

}  // namespace

BandGenerator::BandGenerator(const BandPlan& plan) : plan_(plan), random_(plan.seed) {
    rewind();
}

BandGenerator::~BandGenerator() = default;

double BandGenerator::converterStep() const {
    return plan_.eightBit ? 1.0 / kEightBitSteps : 0;
}

void BandGenerator::rewind() {
    random_ = Random(plan_.seed);
    stations_.clear();
    const double clock = 1 + plan_.clockPpm * 1e-6;
    std::uint64_t seed = plan_.seed;
    for (const StationPlan& station : plan_.stations) {
        const double carrier = plan_.centreHz + station.offsetHz + station.carrierErrorHz;
        stations_.push_back(std::make_unique<StationGenerator>(
            station, plan_.rateHz * clock, carrier - plan_.centreHz * clock, ++seed));
    }
}

std::size_t BandGenerator::read(std::span<Sample> into) {
    std::fill(into.begin(), into.end(), Sample());
    for (const auto& station : stations_) station->addTo(into);
    if (plan_.carrierToNoiseDb < kNoNoiseDb) addNoise(into);
    spoil(into);
    return into.size();
}

void BandGenerator::addNoise(std::span<Sample> into) {
    const double power = plan_.noiseReference * plan_.noiseReference *
                         std::pow(10.0, -plan_.carrierToNoiseDb / 10) * plan_.rateHz / kNoiseBandHz;
    const auto amplitude = static_cast<float>(std::sqrt(power));
    for (Sample& sample : into) sample += amplitude * random_.noise();
}

void BandGenerator::spoil(std::span<Sample> into) const {
    const bool unequal = plan_.gainError != 0 || plan_.phaseErrorDegrees != 0;
    const double skew = plan_.phaseErrorDegrees * std::numbers::pi / 180;
    const auto gain = static_cast<float>(1 + plan_.gainError);
    const auto along = static_cast<float>(std::cos(skew));
    const auto across = static_cast<float>(std::sin(skew));
    const Sample offset(static_cast<float>(plan_.offsetI), static_cast<float>(plan_.offsetQ));
    for (Sample& sample : into) {
        if (unequal) sample.imag(gain * (sample.imag() * along + sample.real() * across));
        sample += offset;
        if (plan_.eightBit) sample = {eightBits(sample.real()), eightBits(sample.imag())};
    }
}

}  // namespace hm16::receiver
