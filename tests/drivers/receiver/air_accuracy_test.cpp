// SPDX-License-Identifier: GPL-3.0-or-later
// Unsteady reception: gaps, bursts, fades, carriers off their frequency, strong neighbours. The
// bounds are those of the table in docs/receiver.md.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "drivers/receiver/synth/composite_generator.h"
#include "drivers/receiver/synth/random.h"
#include "tests/drivers/receiver/air.h"

namespace hm16::receiver {
namespace {

// Slots until all figures have settled.
constexpr std::size_t kStarting = 6;

// Seconds of signal: long enough for several of each disturbance, and for one under the sanitizers.
constexpr double kLong = kReduced ? 0.8 : 2.2;

BandPlan programmeOnAir(double carrierToNoiseDb) {
    BandPlan band = bandWith([](StationPlan& s) {
        s.amplitude = 0.3;
        s.pilotDeviationHz = 6750;
        s.rds.deviationHz = 2000;
        s.programme = {.level = 0.8, .width = 0.5};
    });
    band.noiseReference = 0.3;
    band.carrierToNoiseDb = carrierToNoiseDb;
    return band;
}

BandPlan toneOnAir(double carrierToNoiseDb) {
    BandPlan band = programmeOnAir(carrierToNoiseDb);
    band.stations.front().programme.level = 0;
    band.stations.front().tones = {{1000, 0.6, 0}};
    return band;
}

// The same as it left the station, without noise: its peaks are the true ones.
Heard sent(BandPlan band, double seconds) {
    band.carrierToNoiseDb = 300;
    return hear(band, seconds);
}

// One row of the table.
class AirAccuracy : public testing::Test {
 protected:
    // How far peaks are off: above the truth in all slots, below it only in those where they count
    // as known.
    struct Misses {
        double over = 0;
        double under = 0;
        std::size_t blank = 0;  // the most slots in a row without a figure that was known before
        std::size_t spoilt = 0;
    };

    Misses missesOf(const Heard& heard, const Heard& truth) {
        Misses misses;
        std::size_t blank = 0;
        for (std::size_t n = kStarting; n < heard.slots.size(); ++n) {
            const StationSlot& slot = heard.slots[n];
            const Figures& now = slot.figures;
            const double wrong = now.peakHz - truth.slots.at(n).figures.peakHz;
            misses.over = std::max(misses.over, wrong);
            if (slot.states.peak == FigureState::Known)
                misses.under = std::max(misses.under, -wrong);
            const bool there = slot.states.peak == FigureState::Known && now.peakHz > 0 &&
                               now.carrier && now.stereo && now.rds && now.levelLeftDb > kSilenceDb;
            blank = there ? 0 : blank + 1;
            misses.blank = std::max(misses.blank, blank);
            misses.spoilt += slot.spoilt ? 1 : 0;
        }
        RecordProperty("over", std::to_string(misses.over));
        RecordProperty("under", std::to_string(misses.under));
        RecordProperty("blank", std::to_string(misses.blank));
        return misses;
    }
};

TEST_F(AirAccuracy, OneBurstOrDropoutASecondLeavesNoFalsePeakAndNothingBlankFor150Milliseconds) {
    Random random(9);
    const auto noise = [&] {
        return Sample(static_cast<float>(2 * random.uniform() - 1),
                      static_cast<float>(2 * random.uniform() - 1));
    };
    const std::map<std::string, Way> ways{
        {"51 microseconds of chance", replaced(51e-6, noise)},
        {"51 microseconds of nothing", replaced(51e-6, [] { return Sample(); })},
        {"20 ms of nothing", replaced(0.02, [] { return Sample(); })},
        {"20 ms of noise", replaced(0.02, [&] { return 0.001F * noise(); })},
    };
    const BandPlan band = programmeOnAir(50);
    const Heard truth = sent(band, kLong);
    for (const auto& [name, way] : ways) {
        const Heard heard = hear(band, kLong, way);
        const Misses misses = missesOf(heard, truth);
        EXPECT_LT(misses.over, 1000) << name;
        EXPECT_LT(misses.under, 1000) << name;
        EXPECT_LE(misses.blank, 3U) << name;
        EXPECT_GE(misses.spoilt, heard.slots.size() / 20) << name;
        const bool gap = name.starts_with("20");
        const auto times = static_cast<std::uint64_t>(std::ceil(kLong - 0.43));
        EXPECT_EQ(heard.disturbances.gaps, gap ? times : 0) << name;
        EXPECT_EQ(heard.disturbances.bursts, gap ? 0 : times) << name;
        EXPECT_NEAR(heard.last().pilotHz, 6750, 0.005 * 6750) << name;
        EXPECT_LE(heard.last().multipathPercent, 1) << name;
        // 20 ms are 24 bits, which reach into two blocks at most.
        EXPECT_GE(heard.last().rdsGoodBlocks + (gap ? 3 : 1) * times, truth.last().rdsGoodBlocks)
            << name;
    }
}

TEST_F(AirAccuracy, UpTo20BurstsASecondLeaveNoFalsePeak) {
    const BandPlan band = programmeOnAir(50);
    const Heard truth = sent(band, kLong);
    for (const double every : {0.3, 0.1, 0.05}) {
        Random random(9);
        const Heard heard = hear(band, kLong, [&](double seconds, Sample sample) {
            const double in = seconds - std::floor(seconds / every) * every - 0.43 * every;
            return in >= 0 && in < 51e-6 ? Sample(static_cast<float>(2 * random.uniform() - 1),
                                                  static_cast<float>(2 * random.uniform() - 1))
                                         : sample;
        });
        // Until half a second is known, no more than three bursts are looked for.
        for (std::size_t n = 12; n < heard.slots.size(); ++n) {
            const Figures& figures = heard.slots[n].figures;
            EXPECT_LT(figures.peakHz - truth.slots.at(n).figures.peakHz, 1000) << every << " " << n;
            EXPECT_GT(figures.peakHz, 0) << every << " " << n;
            EXPECT_TRUE(figures.stereo && figures.rds) << every << " " << n;
        }
        EXPECT_LE(static_cast<double>(heard.disturbances.bursts), kLong / every + 1) << every;
        EXPECT_GE(static_cast<double>(heard.disturbances.bursts), (kLong - 0.6) / every) << every;
        EXPECT_GE(heard.last().rdsGoodBlocks + 2, truth.last().rdsGoodBlocks) << every;
        EXPECT_NEAR(heard.last().pilotHz, 6750, 0.02 * 6750) << every;
    }
}

TEST_F(AirAccuracy, LostBuffersLeaveNoFalsePeakAndNothingBlankFor150Milliseconds) {
    const BandPlan band = toneOnAir(50);
    const Heard truth = sent(band, kLong + 0.1);
    for (const bool told : {true, false}) {
        const Heard heard = hear(band, kLong, {}, LostSamples{.count = 8192, .told = told});
        const Misses misses = missesOf(heard, truth);
        EXPECT_LT(misses.over, 1000) << told;
        EXPECT_LT(misses.under, 1000) << told;
        EXPECT_LE(misses.blank, 3U) << told;
        const auto times = static_cast<std::uint64_t>(std::ceil(kLong - 0.43));
        EXPECT_EQ(heard.disturbances.gaps, times) << told;
        EXPECT_EQ(heard.disturbances.lostSamples, told ? 8192 * times : 0);
        EXPECT_NEAR(heard.last().pilotHz, 6750, 0.005 * 6750) << told;
        EXPECT_NEAR(heard.last().levelLeftDb, 20 * std::log10(0.6), 0.1) << told;
        EXPECT_GE(heard.last().separationLeftDb, 60) << told;
    }
}

// The time of lost samples passes, so data after them is where it should be.
TEST_F(AirAccuracy, RdsKeepsItsPlaceOverLostBuffers) {
    const BandPlan band = toneOnAir(50);
    const Heard heard = hear(band, 2.2, {}, LostSamples{.count = 8192});
    // 7 ms are 8 bits, and with the pulse's width they reach into two blocks at most each time.
    EXPECT_EQ(heard.last().rdsName, "STATION ");
    EXPECT_GE(heard.last().rdsGoodBlocks, 80U);
    EXPECT_LE(heard.last().rdsBadBlocks, 4U);
}

TEST_F(AirAccuracy, ALevelThatMovesIsNoNoise) {
    std::map<std::string, Way> ways{
        {"fade of 20 dB a second, 10 dB deep",
         levelMoves([](double t) { return -20 * std::min(t - std::floor(t), std::ceil(t) - t); })},
        {"50 % at 0.5 Hz", {}},
        {"50 % at 4 Hz", {}},
        {"50 % at 50 Hz", {}},
    };
    const auto swing = [](double hz) {
        return levelMoves([=](double t) {
            return 20 * std::log10((1 + 0.5 * std::sin(2 * M_PI * hz * t)) / 1.5);
        });
    };
    ways["50 % at 0.5 Hz"] = swing(0.5);
    ways["50 % at 4 Hz"] = swing(4);
    ways["50 % at 50 Hz"] = swing(50);
    for (const BandPlan& band : {programmeOnAir(40), toneOnAir(40)}) {
        const Heard truth = sent(band, kLong);
        for (const auto& [name, way] : ways) {
            const Heard heard = hear(band, kLong, way);
            const Misses misses = missesOf(heard, truth);
            EXPECT_LT(misses.over, 1000) << name;
            EXPECT_LT(misses.under, 1000) << name;
            EXPECT_EQ(misses.blank, 0U) << name;
            EXPECT_EQ(heard.disturbances, Disturbances()) << name;
        }
    }
}

TEST_F(AirAccuracy, GainStepsOf10DecibelsEachSecondBlankNothing) {
    const BandPlan band = programmeOnAir(40);
    const Heard truth = sent(band, kLong);
    const Heard heard = hear(band, kLong, levelMoves([](double t) {
                                 return static_cast<int>(t + 0.57) % 2 == 1 ? -10.0 : 0.0;
                             }));
    for (std::size_t n = kStarting; n < heard.slots.size(); ++n) {
        const double since = std::fmod(heard.slots[n].endSeconds + 0.57, 1.0);
        EXPECT_GT(heard.slots[n].figures.peakHz, 0) << n;
        EXPECT_TRUE(heard.slots[n].figures.stereo) << n;
        if (since < 0.1) continue;
        EXPECT_NEAR(heard.slots[n].figures.peakHz, truth.slots[n].figures.peakHz, 1000) << n;
    }
}

// The fade reaches a carrier-to-noise ratio of 20 dB, so that the noise may hide figures.
TEST_F(AirAccuracy, AFadeIntoTheNoiseIsFollowed) {
    BandPlan band = toneOnAir(40);
    const Heard truth = sent(band, kLong);
    Random random(3);
    BandPlan silent = band;
    silent.carrierToNoiseDb = 300;
    const double noise = 0.3 * std::sqrt(1e-4 * band.rateHz / 200e3);
    const Way fade = levelMoves([](double t) {
        return -20 * std::min(1.0, 2 * std::min(t - std::floor(t), std::ceil(t) - t));
    });
    const Heard heard = hear(silent, kLong, [&](double t, Sample sample) {
        return fade(t, sample) + static_cast<float>(noise) * random.noise();
    });
    const Misses misses = missesOf(heard, truth);
    EXPECT_LT(misses.over, 3000);
    EXPECT_LT(misses.under, 3000);
    EXPECT_EQ(misses.blank, 0U);
}

TEST_F(AirAccuracy, AnOffsetOfTheCarrierIsInNoAudioFigure) {
    for (const double offset : {250.0, 8200.0, -20e3, 37.5e3, 50e3, -50e3}) {
        BandPlan band = toneOnAir(50);
        band.stations.front().tones = {{1000, 0.5, 0}};
        band.stations.front().carrierErrorHz = offset;
        const Heard heard = hear(band, 1.6);
        const Figures& f = heard.last();
        EXPECT_NEAR(f.levelLeftDb, 20 * std::log10(0.5), 0.1) << offset;
        EXPECT_EQ(f.levelRightDb, kSilenceDb) << offset;
        EXPECT_GE(f.separationLeftDb, 60) << offset;
        EXPECT_NEAR(f.stereoPhaseDegrees, 90, 0.5) << offset;
        EXPECT_LE(f.distortionPercent, 0.02) << offset;
        EXPECT_NEAR(f.carrierHz, offset, 5) << offset;
        EXPECT_NEAR(f.pilotHz, 6750, 34) << offset;
        EXPECT_FALSE(f.narrow) << offset;
        RecordProperty("right" + std::to_string(static_cast<int>(offset)),
                       std::to_string(f.levelRightDb));
        RecordProperty("separation" + std::to_string(static_cast<int>(offset)),
                       std::to_string(f.separationLeftDb));
    }
}

// A carrier that drifts by 1 kHz a minute.
TEST_F(AirAccuracy, ADriftOfTheCarrierIsInNoAudioFigure) {
    BandPlan band = toneOnAir(50);
    band.stations.front().tones = {{1000, 0.5, 0}};
    double turns = 0;
    const double rate = band.rateHz;
    const Heard heard = hear(band, 2.5, [&, last = 0.0](double t, Sample sample) mutable {
        turns += (300 + 1000.0 / 60 * t) * (t - last);
        last = t;
        static_cast<void>(rate);
        return sample * Sample(static_cast<float>(std::cos(2 * M_PI * turns)),
                               static_cast<float>(std::sin(2 * M_PI * turns)));
    });
    const Figures& f = heard.last();
    EXPECT_NEAR(f.levelLeftDb, 20 * std::log10(0.5), 0.1);
    EXPECT_EQ(f.levelRightDb, kSilenceDb);
    EXPECT_GE(f.separationLeftDb, 60);
    EXPECT_LE(f.distortionPercent, 0.02);
    EXPECT_NEAR(f.carrierHz, 300 + 1000.0 / 60 * 2, 15);
}

TEST_F(AirAccuracy, AConstantInACompositeRecordingIsInNoAudioFigure) {
    StationPlan station;
    station.pilotDeviationHz = 6750;
    station.tones = {{1000, 0.5, 0}};
    std::vector<double> composite;
    CompositeGenerator(station, 192e3, 1).generate(320000, composite);
    ChainSettings settings;
    settings.domain = Domain::Composite;
    settings.rateHz = 192e3;
    TunedStation chain(settings);
    std::vector<Sample> samples;
    for (const double hz : composite)
        samples.emplace_back(static_cast<float>(hz / 100e3) + 0.1F, 0.0F);
    chain.push(samples);
    const Figures& f = chain.figures();
    EXPECT_NEAR(f.levelLeftDb, 20 * std::log10(0.5), 0.1);
    EXPECT_EQ(f.levelRightDb, kSilenceDb);
    EXPECT_GE(f.separationLeftDb, 60);
    EXPECT_LE(f.distortionPercent, 0.02);
    EXPECT_NEAR(f.carrierHz, 10e3, 5);
}

// A programme and beside it another one that is `strongerDb` stronger.
BandPlan besideProgramme(double level, double offsetHz, double strongerDb, double neighbourLevel) {
    BandPlan band = programmeOnAir(60);
    StationPlan& station = band.stations.front();
    station.amplitude = 0.05;
    station.programme.level = level;
    band.noiseReference = station.amplitude;
    StationPlan other = station;
    other.offsetHz += offsetHz;
    other.amplitude *= std::pow(10, strongerDb / 20);
    other.programme.level = neighbourLevel;
    band.stations.push_back(other);
    return band;
}

class PeakAccuracy : public AirAccuracy {
 protected:
    // Expects of every slot from the first half second on: known and within 3 kHz, or marked and 0.
    // Returns the share of the known ones.
    double knownShare(const BandPlan& band) {
        constexpr std::size_t kFirst = 10;
        BandPlan alone = band;
        alone.stations.resize(1);
        const Heard truth = sent(alone, 2);
        const Heard heard = hear(band, 2);
        std::size_t known = 0;
        for (std::size_t n = kFirst; n < heard.slots.size(); ++n) {
            const StationSlot& slot = heard.slots[n];
            const double wrong = slot.figures.peakHz - truth.slots.at(n).figures.peakHz;
            if (slot.states.peak != FigureState::Known) {
                EXPECT_TRUE(slot.figures.peakHz == 0 || slot.spoilt) << n;
                EXPECT_LT(wrong, 3000) << n;
                continue;
            }
            ++known;
            EXPECT_NEAR(wrong, 0, 3000) << n;
            worst_ = std::max(worst_, std::fabs(wrong));
        }
        RecordProperty("worst", std::to_string(worst_));
        return static_cast<double>(known) / static_cast<double>(heard.slots.size() - kFirst);
    }

 private:
    double worst_ = 0;
};

TEST_F(PeakAccuracy, BesideAProgrammeOf20DecibelsMoreIsWithin3KilohertzOrUnknown) {
    int row = 0;
    for (const double side : {-200e3, 200e3}) {
        for (const auto& [own, other] : {std::pair{0.8, 0.8}, {0.3, 1.1}, {1.1, 0.8}}) {
            const double share = knownShare(besideProgramme(own, side, 20, other));
            RecordProperty("known" + std::to_string(++row), std::to_string(share));
        }
    }
}

TEST_F(PeakAccuracy, BesideAProgrammeOfEqualStrengthIsWithin3Kilohertz) {
    for (const double side : {-200e3, 200e3}) {
        EXPECT_GE(knownShare(besideProgramme(0.8, side, 0, 0.8)), 0.8);
        EXPECT_GE(knownShare(besideProgramme(0.8, side, -6, 0.8)), 0.9);
    }
}

TEST_F(PeakAccuracy, InNoiseBelow20DecibelsIsWithin3KilohertzOrUnknown) {
    for (const double db : {8.0, 12.0, 15.0, 18.0, 19.8}) knownShare(programmeOnAir(db));
    EXPECT_EQ(knownShare(programmeOnAir(12)), 0);
    EXPECT_EQ(knownShare(programmeOnAir(30)), 1);
}

// Tone, pilot and data add up to 51.2 kHz at most. All disturbances at once in one second, so that
// the same code runs under the sanitizers.
TEST(Air, AStationThatIsOffItsFrequencyFadesAndLosesSamplesIsMeasuredOn) {
    BandPlan band = toneOnAir(50);
    band.stations.front().carrierErrorHz = 8200;
    const Way burst = replaced(51e-6, [] { return Sample(); });
    const Way fade = levelMoves([](double t) { return -20 * t; });
    const Heard heard = hear(
        band, 0.85, [&](double t, Sample sample) { return fade(t, burst(t, sample)); },
        LostSamples{.everySeconds = 9, .atSeconds = 0.6, .count = 4096});
    EXPECT_EQ(heard.disturbances.bursts, 1U);
    EXPECT_EQ(heard.disturbances.gaps, 1U);
    EXPECT_EQ(heard.disturbances.lostSamples, 4096U);
    std::size_t spoilt = 0;
    for (std::size_t n = kStarting; n < heard.slots.size(); ++n) {
        const StationSlot& slot = heard.slots[n];
        EXPECT_EQ(slot.number, n);
        spoilt += slot.spoilt ? 1 : 0;
        EXPECT_EQ(slot.states.peak, slot.spoilt ? FigureState::Gap : FigureState::Known) << n;
        EXPECT_LT(slot.figures.peakHz, 51.2e3 + 1000) << n;
        if (!slot.spoilt) {
            EXPECT_GT(slot.figures.peakHz, 51.2e3 - 3000) << n;
        }
    }
    EXPECT_GE(spoilt, 2U);
    EXPECT_LE(spoilt, 4U);
    EXPECT_NEAR(heard.last().carrierHz, 8200, 5);
    EXPECT_NEAR(heard.last().levelLeftDb, 20 * std::log10(0.6), 0.1);
    EXPECT_GE(heard.last().separationLeftDb, 60);
    EXPECT_NEAR(heard.last().pilotHz, 6750, 34);
}

}  // namespace
}  // namespace hm16::receiver
