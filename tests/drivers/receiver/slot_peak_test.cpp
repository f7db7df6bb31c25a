// SPDX-License-Identifier: GPL-3.0-or-later
// The highest deviation of a slot, with and without noise on it.
#include "drivers/receiver/figures/slot_peak.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include "drivers/receiver/dsp/decimator.h"
#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/dsp/kernels.h"
#include "drivers/receiver/synth/random.h"

namespace hm16::receiver {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kRateHz = 250e3;
constexpr std::size_t kSlot = 12500;

std::vector<float> slotOf(const std::function<double(double seconds)>& deviation) {
    std::vector<float> values(kSlot);
    for (std::size_t n = 0; n < kSlot; ++n)
        values[n] = static_cast<float>(deviation(static_cast<double>(n) / kRateHz));
    return values;
}

double sineSamples(double hz, double seconds) {
    return std::sin(kTurn * hz * seconds);
}

double peakOf(const std::vector<float>& slot, double carrierHz = 0, double noiseHz = 0) {
    SlotPeak peak;
    peak.take(slot);
    return peak.peakFrom(carrierHz, noiseHz);
}

float highestSample(const std::vector<float>& slot) {
    float highest = 0;
    for (const float value : slot) highest = std::max(highest, std::fabs(value));
    return highest;
}

TEST(Farthest, IsTheGreatestDistanceToEitherSide) {
    std::vector<float> values(77, 3.0F);
    EXPECT_EQ(farthest(values.data(), values.size(), 1), 2);
    EXPECT_EQ(farthest(values.data(), 0, 1), 0);
    for (std::size_t at = 0; at < values.size(); ++at) {
        for (const float value : {-8.0F, 10.0F}) {
            auto changed = values;
            changed[at] = value;
            EXPECT_EQ(farthest(changed.data(), changed.size(), 1), 9) << at;
        }
    }
}

TEST(SlotPeak, OfNothingAndOfLittleIsZero) {
    SlotPeak peak;
    EXPECT_EQ(peak.peakFrom(0, 0), 0);
    EXPECT_EQ(peak.peakFrom(0, 100), 0);
    peak.take({});
    EXPECT_EQ(peak.peakFrom(0, 0), 0);
    EXPECT_EQ(peakOf(std::vector<float>(10, 5.0F)), 0);
    EXPECT_EQ(peakOf(std::vector<float>(kSlot, 0.0F)), 0);
}

TEST(SlotPeak, FindsTheCrestBetweenTwoSamples) {
    // Samples lie 9 degrees beside every crest.
    const auto slot =
        slotOf([](double t) { return 75e3 * sineSamples(kRateHz / 20, t + 0.5 / kRateHz); });
    EXPECT_LT(highestSample(slot), 74.2e3);
    EXPECT_NEAR(peakOf(slot), 75e3, 20);
}

// The envelope of the difference channel lets only few crests reach the top, far from any sample.
TEST(SlotPeak, FindsTheCrestsOfTheDifferenceChannelBetweenItsSamples) {
    const auto slot = slotOf([](double t) {
        return 75e3 * sineSamples(38e3, t + 1.35e-6) *
               std::exp(-std::pow((t - 0.0211) / 0.0001, 2));
    });
    double truth = 0;
    for (double t = 0.0205; t < 0.0217; t += 1e-8)
        truth = std::max(truth, std::fabs(75e3 * sineSamples(38e3, t + 1.35e-6) *
                                          std::exp(-std::pow((t - 0.0211) / 0.0001, 2))));
    EXPECT_LT(highestSample(slot), truth - 1000);
    EXPECT_NEAR(peakOf(slot), truth, 60);
}

TEST(SlotPeak, CountsFromTheCarrierToEitherSide) {
    const auto slot =
        slotOf([](double t) { return 400 + 50e3 * std::max(-0.5, sineSamples(1000, t)); });
    EXPECT_NEAR(peakOf(slot, 400), 50e3, 30);
    EXPECT_NEAR(peakOf(slot, 40400), 65e3, 400);  // the filter rings at the corners
}

TEST(SlotPeak, ACrestWhereTwoSlotsMeetIsInOneOfThem) {
    // A single swing of 0.1 ms with its crest at the end of the first slot.
    const auto swing = [](double t) { return 60e3 * std::exp(-std::pow((t - 0.05) / 3e-5, 2)); };
    SlotPeak peak;
    peak.take(slotOf(swing));
    const double first = peak.peakFrom(0, 0);
    peak.take(slotOf([&](double t) { return swing(t + 0.05); }));
    EXPECT_NEAR(std::max(first, peak.peakFrom(0, 0)), 60e3, 20);
    peak.take(std::vector<float>(kSlot, 0.0F));
    EXPECT_LT(peak.peakFrom(0, 0), 1);
}

// Deviation noise as a receiver makes it: stronger the higher, up to 80 kHz.
class PeakInNoise : public testing::Test {
 protected:
    static constexpr double kNoiseHz = 450;

    PeakInNoise() {
        const auto taps =
            designFilter(kRateHz, 101, [](double hz) { return hz < 80e3 ? hz / 80e3 : 0.0; });
        // The filter has no output until it is full.
        std::vector<float> white(kSlots * kSlot + 2 * taps.size());
        Random random(7);
        for (float& value : white) value = random.noise().real();
        RealDecimator(taps, 1).process(white, noise_);
        EXPECT_GE(noise_.size(), kSlots * kSlot);
        double power = 0;
        for (const float value : noise_) power += static_cast<double>(value) * value;
        const double rms = std::sqrt(power / static_cast<double>(noise_.size()));
        for (float& value : noise_) value = static_cast<float>(value * kNoiseHz / rms);
    }

    struct Misses {
        double mean = 0;
        double square = 0;
        double worst = 0;
        double uncorrected = 0;
    };

    Misses over(const std::function<double(double seconds)>& deviation, double truth) const {
        Misses result;
        const std::vector<float> clean = slotOf(deviation);
        for (std::size_t n = 0; n < kSlots; ++n) {
            std::vector<float> slot = clean;
            for (std::size_t k = 0; k < kSlot; ++k) slot[k] += noise_[n * kSlot + k];
            const double miss = peakOf(slot, 0, kNoiseHz) - truth;
            result.mean += miss / kSlots;
            result.square += miss * miss / kSlots;
            result.worst = std::max(result.worst, std::fabs(miss));
            result.uncorrected += (peakOf(slot) - truth) / kSlots;
        }
        return result;
    }

    static constexpr std::size_t kSlots = 40;
    std::vector<float> noise_;
};

TEST_F(PeakInNoise, OfATonesManyCrestsIsTaken) {
    for (const double hz : {400.0, 1000.0, 15000.0}) {
        const Misses found = over([=](double t) { return 75e3 * sineSamples(hz, t); }, 75e3);
        EXPECT_GT(found.uncorrected, 1200) << hz;
        EXPECT_NEAR(found.mean, 0, 40) << hz;
        EXPECT_LT(found.worst, 250) << hz;
    }
}

TEST_F(PeakInNoise, OfASingleCrestIsLessThanOfMany) {
    const Misses found = over(
        [](double t) { return 30e3 * sineSamples(1000, t) * (t > 0.0200 && t < 0.0205 ? 2 : 1); },
        60e3);
    EXPECT_GT(found.uncorrected, 500);
    EXPECT_NEAR(found.mean, 0, 200);
    EXPECT_LT(std::sqrt(found.square), kNoiseHz);
}

TEST_F(PeakInNoise, OfAFlatTopIsTaken) {
    // The shape that a limiter makes.
    const Misses found = over(
        [](double t) { return 60e3 * std::clamp(1.5 * sineSamples(300, t), -1.0, 1.0); }, 60e3);
    EXPECT_GT(found.uncorrected, 1500);
    EXPECT_NEAR(found.mean, 0, 250);
}

TEST_F(PeakInNoise, AloneIsLittle) {
    const Misses found = over([](double) { return 0.0; }, 0);
    EXPECT_GT(found.uncorrected, 1700);
    EXPECT_LT(found.worst, kNoiseHz);
}

}  // namespace
}  // namespace hm16::receiver
