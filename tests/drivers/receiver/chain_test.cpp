// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "drivers/receiver/synth/composite_generator.h"
#include "tests/drivers/receiver/signals.h"

namespace hm16::receiver {
namespace {

void expectNothing(const Figures& figures) {
    EXPECT_FALSE(figures.carrier);
    EXPECT_FALSE(figures.stereo);
    EXPECT_FALSE(figures.rds);
    EXPECT_EQ(figures.peakHz, 0);
    EXPECT_EQ(figures.levelLeftDb, kSilenceDb);
    EXPECT_EQ(figures.levelRightDb, kSilenceDb);
    EXPECT_EQ(figures.relativePower, 0);
    EXPECT_EQ(figures.pilotHz, 0);
    EXPECT_EQ(figures.pilotErrorHz, 0);
    EXPECT_EQ(figures.noiseLeftDb, 0);
    EXPECT_EQ(figures.separationLeftDb, 0);
    EXPECT_EQ(figures.distortionPercent, 0);
    EXPECT_EQ(figures.carrierHz, 0);
    EXPECT_EQ(figures.peaksPerMinute, 0);
    EXPECT_EQ(figures.rdsHz, 0);
}

TEST(StationChain, FindsNothingInNoise) {
    BandPlan band;
    band.rateHz = 1.2e6;
    band.carrierToNoiseDb = 40;
    const Figures figures = measure(band, 0.6);
    expectNothing(figures);
    EXPECT_NEAR(figures.fieldDb, kFieldAtFullScale + 20 * std::log10(0.7) - 40, 0.3);
}

TEST(StationChain, FindsNothingInZeros) {
    BandPlan band;
    band.rateHz = 1.2e6;
    const Figures figures = measure(band, 0.5);
    expectNothing(figures);
    EXPECT_EQ(figures.fieldDb, 0);
    EXPECT_EQ(figures.multipathPercent, 0);
}

TEST(StationChain, AnUnmodulatedCarrierHasACarrierAndNothingElse) {
    const Figures figures =
        measure(bandWith([](StationPlan& s) { s.carrierErrorHz = -1234; }), 1.2);
    EXPECT_TRUE(figures.carrier);
    EXPECT_NEAR(figures.carrierHz, -1234, 1);
    EXPECT_LT(figures.peakHz, 300);
    EXPECT_EQ(figures.pilotHz, 0);
    EXPECT_EQ(figures.rdsHz, 0);
    EXPECT_EQ(figures.distortionPercent, 0);
    EXPECT_LT(figures.multipathPercent, 1);
}

TEST(StationChain, MonoHasNoPilotNoSeparationAndStandsUpright) {
    const Figures figures = measure(bandWith([](StationPlan& s) {
                                        s.direct = {{400, 60e3}};
                                    }),
                                    0.6);
    EXPECT_FALSE(figures.stereo);
    EXPECT_EQ(figures.pilotErrorHz, 0);
    EXPECT_EQ(figures.separationLeftDb, 0);
    EXPECT_NEAR(figures.stereoPhaseDegrees, 45, 0.1);
    EXPECT_NEAR(figures.levelLeftDb, figures.levelRightDb, 0.01);
}

TEST(StationChain, SumModeHalvesBoth) {
    const Figures figures = measure(bandWith([](StationPlan& s) {
                                        s.pilotDeviationHz = 6750;
                                        s.tones = {{400, 0.5, 0}};
                                    }),
                                    0.6);
    EXPECT_NEAR(figures.levelLeftDb, 20 * std::log10(0.5), 0.1);
    EXPECT_NEAR(figures.levelSumDb, 20 * std::log10(0.25), 0.1);
    EXPECT_NEAR(figures.levelDifferenceDb, 20 * std::log10(0.25), 0.1);
}

TEST(StationChain, ASineOf75KilohertzHasFullRelativePower) {
    const Figures figures = measure(bandWith([](StationPlan& s) {
                                        s.direct = {{1000, 75e3}};
                                        s.pilotDeviationHz = 6750;
                                        s.rds.deviationHz = 2000;
                                    }),
                                    1.2);
    EXPECT_NEAR(figures.relativePower, 1, 0.005);
}

// Pilot of 6.75 kHz and a subcarrier of 2 kHz: -8.6 dB against a sine of 19 kHz (ITU-R BS.412).
TEST(StationChain, MultiplexPowerOfPilotAndSubcarrierIsMinus8Point6) {
    const Figures figures = measure(bandWith([](StationPlan& s) {
                                        s.pilotDeviationHz = 6750;
                                        s.rds.deviationHz = 2000;
                                        s.rds.plainCarrier = true;
                                    }),
                                    1.2);
    EXPECT_NEAR(10 * std::log10(figures.multiplexPower / (19e3 * 19e3 / 2)), -8.6, 0.05);
    EXPECT_LT(figures.relativePower, 0.001);
}

TEST(StationChain, AKnownClockErrorMovesNothing) {
    BandPlan band = bandWith([](StationPlan& s) {
        s.carrierErrorHz = 500;
        s.pilotDeviationHz = 6750;
        s.pilotErrorHz = -1;
        s.rds.deviationHz = 2000;
    });
    band.clockPpm = 60;
    const Figures known = measure(band, 1.2, 300e3, {}, 60);
    EXPECT_NEAR(known.carrierHz, 500, 5);
    EXPECT_NEAR(known.pilotErrorHz, -1, 0.01);
    EXPECT_NEAR(known.rdsErrorHz, -3, 0.1);
}

TEST(StationChain, AnUnknownClockErrorMovesCarrierPilotAndRdsAlike) {
    BandPlan band = bandWith([](StationPlan& s) {
        s.pilotDeviationHz = 6750;
        s.rds.deviationHz = 2000;
    });
    band.clockPpm = 20;
    const Figures figures = measure(band, 1.2);
    EXPECT_NEAR(figures.carrierHz, -20e-6 * 98.3e6, 30);
    EXPECT_NEAR(figures.pilotErrorHz, -20e-6 * 19e3, 0.02);
    EXPECT_NEAR(figures.rdsErrorHz, -20e-6 * 57e3, 0.1);
}

TEST(StationChain, OffsetAndUnequalChannelsOfAStickDoNotReachAStationBesideTheCentre) {
    BandPlan band = bandWith(
        [](StationPlan& s) {
            s.pilotDeviationHz = 6750;
            s.tones = {{1000, 0.6, 0}};
        },
        1.2e6, true);
    band.offsetI = 0.02;
    band.offsetQ = -0.03;
    band.gainError = 0.05;
    band.phaseErrorDegrees = 3;
    const Figures figures = measure(band, 0.6);
    EXPECT_NEAR(figures.levelLeftDb, 20 * std::log10(0.6), 0.1);
    EXPECT_GE(figures.separationLeftDb, 60);
    EXPECT_LT(figures.multipathPercent, 1);
}

TEST(StationChain, ClippedSamplesStillMeasureTheCarrier) {
    BandPlan band = bandWith([](StationPlan& s) { s.amplitude = 1.6; }, 1.2e6, true);
    band.stations.front().carrierErrorHz = 700;
    const Figures figures = measure(band, 0.8);
    EXPECT_TRUE(figures.carrier);
    EXPECT_NEAR(figures.carrierHz, 700, 20);
}

TEST(StationChain, SeparationOnProgrammeIsALowerBound) {
    const Figures figures = measure(bandWith([](StationPlan& s) {
                                        s.pilotDeviationHz = 6750;
                                        s.tones = {{500, 0.3, 0.1}, {1700, 0.2, 0.1}};
                                    }),
                                    1.5);
    EXPECT_GT(figures.separationLeftDb, 5);
    EXPECT_LT(figures.separationLeftDb, 12);
}

TEST(StationChain, StereoSurvivesWeakSignalsAndVanishesWithThem) {
    for (const double db : {25.0, 15.0}) {
        BandPlan band = bandWith([](StationPlan& s) {
            s.pilotDeviationHz = 6750;
            s.tones = {{1000, 0.5, 0.3}};
        });
        band.carrierToNoiseDb = db;
        const Figures figures = measure(band, 0.6);
        EXPECT_TRUE(figures.stereo);
        EXPECT_NEAR(figures.pilotHz, 6750, 0.02 * 6750);
    }
    BandPlan lost = bandWith([](StationPlan& s) { s.pilotDeviationHz = 6750; });
    lost.carrierToNoiseDb = 4;
    expectNothing(measure(lost, 0.6));
}

TEST(StationChain, NearTheThresholdThePeakIsNotKnown) {
    BandPlan band = bandWith([](StationPlan& s) { s.direct = {{1000, 50e3}}; });
    band.carrierToNoiseDb = 11;
    const Figures figures = measure(band, 0.6);
    EXPECT_TRUE(figures.carrier);
    EXPECT_EQ(figures.peakHz, 0);
}

TEST(StationChain, MeasuresAtEveryUsualRate) {
    const std::vector<double> rates =
        kReduced ? std::vector{1.024e6} : std::vector{960e3, 1.024e6, 2.048e6, 3.2e6};
    for (const double rate : rates) {
        const Figures figures = measure(bandWith(
                                            [](StationPlan& s) {
                                                s.offsetHz = 200e3;
                                                s.pilotDeviationHz = 6750;
                                                s.tones = {{1000, 0.6, 0}};
                                                s.rds.deviationHz = 2000;
                                            },
                                            rate),
                                        kReduced ? 0.8 : 1.2, 200e3);
        EXPECT_NEAR(figures.pilotHz, 6750, 40) << rate;
        EXPECT_GE(figures.separationLeftDb, 55) << rate;
        EXPECT_NEAR(figures.rdsHz, 2000, 100) << rate;
    }
}

// A band of 256 kHz cuts the sidebands of strong modulation; the other figures are measured all the
// same.
TEST(StationChain, ALowRateStillGivesPilotAndCarrier) {
    BandPlan band = bandWith(
        [](StationPlan& s) {
            s.offsetHz = 0;
            s.carrierErrorHz = 300;
            s.pilotDeviationHz = 6750;
            s.tones = {{1000, 0.3, 0.1}};
        },
        256e3);
    const Figures figures = measure(band, 1.2, 0);
    EXPECT_NEAR(figures.pilotHz, 6750, 70);
    EXPECT_NEAR(figures.carrierHz, 300, 10);
    EXPECT_NEAR(figures.levelLeftDb, 20 * std::log10(0.3), 0.2);
}

TEST(StationChain, ACompositeRecordingHasAllButTheRadioFigures) {
    StationPlan station;
    station.pilotDeviationHz = 6750;
    station.pilotErrorHz = 0.5;
    station.tones = {{1000, 0.6, 0}};
    station.rds.deviationHz = 2000;
    CompositeGenerator generator(station, 192e3, 1);
    std::vector<double> composite;
    generator.generate(300000, composite);
    ChainSettings settings;
    settings.domain = Domain::Composite;
    settings.rateHz = 192e3;
    settings.compositeHzAtFullScale = 100e3;
    TunedStation chain(settings);
    std::vector<Sample> samples;
    for (const double hz : composite) samples.emplace_back(static_cast<float>(hz / 100e3), 0.0F);
    chain.push(samples);
    const Figures& figures = chain.figures();
    EXPECT_NEAR(figures.pilotHz, 6750, 34);
    EXPECT_NEAR(figures.pilotErrorHz, 0.5, 0.01);
    EXPECT_NEAR(figures.levelLeftDb, 20 * std::log10(0.6), 0.1);
    EXPECT_GE(figures.separationLeftDb, 60);
    EXPECT_NEAR(figures.rdsHz, 2000, 100);
    EXPECT_EQ(figures.fieldDb, 0);
    EXPECT_EQ(figures.multipathPercent, 0);
}

// No result differs, not even by rounding.
TEST(StationChain, TheSizeOfThePiecesDoesNotMatter) {
    const auto band = bandWith([](StationPlan& s) {
        s.pilotDeviationHz = 6750;
        s.tones = {{1000, 0.6, 0.2}};
        s.rds.deviationHz = 2000;
    });
    BandGenerator generator(band);
    std::vector<Sample> samples(840000);
    generator.read(samples);
    ChainSettings settings;
    settings.rateHz = band.rateHz;
    settings.offsetHz = 300e3;
    TunedStation whole(settings);
    whole.push(samples);
    ASSERT_EQ(whole.slots(), 13U);
    ASSERT_TRUE(whole.figures().stereo);
    ASSERT_TRUE(whole.figures().rds);
    for (const std::size_t longest : {std::size_t{1}, std::size_t{1009}, std::size_t{100003}}) {
        TunedStation pieces(settings);
        std::size_t at = 0;
        for (std::size_t size = 1; at < samples.size(); size = size * 3 % longest + 1) {
            const std::size_t count = std::min(size, samples.size() - at);
            pieces.push(std::span(samples).subspan(at, count));
            at += count;
        }
        EXPECT_EQ(whole.slots(), pieces.slots()) << longest;
        EXPECT_EQ(whole.figures(), pieces.figures()) << longest;
    }
}

}  // namespace
}  // namespace hm16::receiver
