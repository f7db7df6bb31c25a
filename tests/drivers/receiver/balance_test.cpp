// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "drivers/receiver/chain/tuned_station.h"
#include "drivers/receiver/dsp/sample_balance.h"
#include "tests/drivers/receiver/signals.h"

namespace hm16::receiver {
namespace {

BandPlan spoiltBand(const std::function<void(StationPlan&)>& shape) {
    BandPlan band = bandWith(shape, 400e3);
    band.gainError = 0.122;  // 1 dB
    band.phaseErrorDegrees = 3;
    band.offsetI = 0.02;
    band.offsetQ = -0.01;
    return band;
}

SampleFault faultAfter(const BandPlan& band, double seconds) {
    SampleBalance balance(band.rateHz);
    BandGenerator generator(band);
    std::vector<Sample> samples(10000);
    for (double done = 0; done < seconds; done += 10000 / band.rateHz) {
        generator.read(samples);
        balance.correct(samples);
    }
    return balance.fault();
}

void aside(StationPlan& station) {
    station.offsetHz = 90e3;
    station.pilotDeviationHz = 6750;
    station.tones = {{1000, 0.4, 0.1}};
}

TEST(SampleBalance, FindsWhatARadioDoesToItsSamples) {
    const SampleFault fault = faultAfter(spoiltBand(aside), 3.1);
    EXPECT_NEAR(fault.gain, 1.122, 0.004);
    EXPECT_NEAR(fault.skew, std::sin(3 * M_PI / 180), 0.004);
    EXPECT_NEAR(fault.constant.real(), 0.02, 0.001);
    EXPECT_NEAR(fault.constant.imag(), -0.01, 0.001);
}

TEST(SampleBalance, LeavesGoodSamplesAsTheyAre) {
    BandPlan band = bandWith(aside, 400e3);
    EXPECT_EQ(faultAfter(band, 4.1), SampleFault());
    SampleBalance balance(band.rateHz);
    const std::vector<Sample> samples(1000, Sample(0.5F, 0.25F));
    EXPECT_EQ(balance.correct(samples).data(), samples.data());
}

TEST(BalanceAccuracy, TakesNoCarrierForAConstant) {
    for (const double hz : {0.0, 0.3, 7.0, 1000.0}) {
        BandPlan band = bandWith(
            [&](StationPlan& s) {
                s.offsetHz = 0;
                s.carrierErrorHz = hz;
            },
            400e3);
        EXPECT_EQ(faultAfter(band, 5.1).constant, std::complex<double>(0)) << hz;
    }
}

TEST(SampleBalance, CorrectsExactly) {
    constexpr int kRate = 100000;
    SampleBalance balance(kRate);
    std::vector<Sample> samples;
    for (int n = 0; n < kRate; ++n) {
        const double angle = 0.73 * n;
        const double i = std::cos(angle);
        const double q = 1.05 * (std::sin(angle) * std::cos(0.03) + i * std::sin(0.03));
        samples.emplace_back(static_cast<float>(i), static_cast<float>(q));
    }
    for (int second = 0; second < 3; ++second) balance.correct(samples);
    ASSERT_TRUE(balance.corrects());
    for (const Sample& sample : balance.correct(samples)) EXPECT_NEAR(std::abs(sample), 1, 0.01);
}

// The mirror image of a station 20 dB stronger is in the channel.
TEST(BalanceAccuracy, LetsNoMirrorIn) {
    BandPlan band = bandWith([](StationPlan& s) {
        s.amplitude = 0.07;
        s.pilotDeviationHz = 6750;
        s.tones = {{1000, 0.5, 0}};
    });
    StationPlan strong;
    strong.offsetHz = -300e3;
    strong.amplitude = 0.7;
    strong.direct = {{400, 30e3}};
    band.stations.push_back(strong);
    band.gainError = 0.122;
    band.phaseErrorDegrees = 3;
    band.offsetI = 0.022;
    BandGenerator generator(band);
    ChainSettings settings;
    settings.rateHz = band.rateHz;
    settings.offsetHz = 300e3;
    TunedStation spoilt(settings);
    TunedStation mended(settings);
    SampleBalance balance(band.rateHz);
    std::vector<Sample> samples(30000);
    // Three seconds until the fault is known, and two more until the time before it is forgotten.
    for (int n = 0; n < 200; ++n) {
        generator.read(samples);
        spoilt.push(samples);
        mended.push(balance.correct(samples));
    }
    EXPECT_FALSE(spoilt.figures().carrier && spoilt.figures().separationLeftDb > 20);
    EXPECT_TRUE(mended.figures().stereo);
    EXPECT_GT(mended.figures().separationLeftDb, 35);
    EXPECT_LT(mended.figures().multipathPercent, 1);
}

}  // namespace
}  // namespace hm16::receiver
