// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/coarse_converter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "drivers/receiver/synth/random.h"

namespace hm16::receiver {
namespace {

constexpr double kStep = 1 / 127.5;

float converted(double steps) {
    return static_cast<float>((std::floor(steps) + 0.5) * kStep);
}

// A carrier with an amplitude of `steps` after a converter with thresholds at whole steps.
std::vector<Sample> carrierBehind(double steps, double centre, double noise) {
    Random random(3);
    std::vector<Sample> samples;
    for (int n = 0; n < 20000; ++n) {
        const auto wanted = std::polar(steps, 2 * std::numbers::pi * 0.38196601 * n);
        const auto more = noise * std::numbers::sqrt2 * std::complex<double>(random.noise());
        samples.emplace_back(converted(wanted.real() + centre + more.real()),
                             converted(wanted.imag() + centre + more.imag()));
    }
    return samples;
}

// The amplitude after the converter, in steps.
double amplitudeOf(const std::vector<Sample>& samples) {
    std::complex<double> sum = 0;
    for (std::size_t n = 0; n < samples.size(); ++n)
        sum += std::complex<double>(samples[n]) *
               std::polar(1.0, -2 * std::numbers::pi * 0.38196601 * static_cast<double>(n));
    return std::abs(sum) / static_cast<double>(samples.size()) / kStep;
}

double decibels(double ratio) {
    return 20 * std::log10(ratio);
}

TEST(CoarseConverter, AmplitudeBehindItIsThatOfConvertedSamples) {
    for (const double steps : {1.3, 2.4, 3.8, 7.1})
        for (const double centre : {0.0, 0.3})
            for (const double noise : {0.0, 0.15, 0.5})
                EXPECT_NEAR(amplitudeBehind(steps, centre, noise),
                            amplitudeOf(carrierBehind(steps, centre, noise)), 0.02)
                    << steps << " " << centre << " " << noise;
}

TEST(CoarseConverter, SetsACarrierOfFewStepsRight) {
    double worst = 0;
    for (double steps = 2; steps < 12; steps += 0.37) {
        for (const double centre : {0.0, 0.2, 0.5}) {
            const auto samples = carrierBehind(steps, centre, 0.05);
            CoarseConverter converter(kStep);
            converter.look(samples);
            const double behind = amplitudeOf(samples);
            worst = std::max(worst, std::fabs(decibels(behind / steps)));
            const double before = std::sqrt(converter.powerBefore(std::pow(behind * kStep, 2)));
            EXPECT_NEAR(decibels(before / (steps * kStep)), 0, 0.2) << steps << " " << centre;
        }
    }
    EXPECT_GT(worst, 0.3);
}

TEST(CoarseConverter, LeavesAloneWhatItDoesNotKnow) {
    const auto samples = carrierBehind(3.8, 0, 0);
    CoarseConverter fine(0);
    fine.look(samples);
    EXPECT_EQ(fine.powerBefore(1e-3), 1e-3);
    CoarseConverter coarse(kStep);
    coarse.look(samples);
    EXPECT_EQ(coarse.powerBefore(0), 0);
    EXPECT_EQ(coarse.powerBefore(0.25), 0.25);  // sixty steps
    EXPECT_EQ(coarse.powerBefore(1e-5), 1e-5);  // half a step
    // A stronger station blurs the steps.
    coarse.look(carrierBehind(30, 0, 0));
    EXPECT_EQ(coarse.powerBefore(9e-4), 9e-4);
}

}  // namespace
}  // namespace hm16::receiver
