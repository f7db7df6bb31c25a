// SPDX-License-Identifier: GPL-3.0-or-later
// The chain's small parts, each on its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <functional>
#include <numbers>
#include <thread>
#include <vector>

#include "drivers/receiver/chain/channel_filter.h"
#include "drivers/receiver/chain/peak_doubt.h"
#include "drivers/receiver/chain/sound_resampler.h"
#include "drivers/receiver/chain/spoilt_samples.h"
#include "drivers/receiver/figures/carrier_watch.h"
#include "drivers/receiver/figures/input_load.h"
#include "drivers/receiver/library/record_ring.h"
#include "drivers/receiver/library/sound_ring.h"
#include "drivers/receiver/synth/random.h"

namespace hm16::receiver {
namespace {

constexpr double kStreamTurn = 2 * std::numbers::pi;

TEST(SoundResampler, GivesATonesShapeFortyEightThousandTimesASecond) {
    for (const double rate : {48000.0, 50000.0, 51200.0}) {
        std::vector<float> left;
        std::vector<float> right;
        for (int n = 0; n < static_cast<int>(rate / 5); ++n) {
            left.push_back(static_cast<float>(75e3 * std::sin(kStreamTurn * 9000 * n / rate)));
            right.push_back(static_cast<float>(30e3 * std::cos(kStreamTurn * 500 * n / rate)));
        }
        SoundResampler resampler(rate);
        std::vector<StereoSample> sound;
        // In two parts, as sound arrives.
        const std::size_t part = left.size() / 3;
        resampler.process(std::span(left).first(part), std::span(right).first(part), sound);
        resampler.process(std::span(left).subspan(part), std::span(right).subspan(part), sound);
        EXPECT_NEAR(static_cast<double>(sound.size()), kSoundHz / 5, 32);
        const double delay = 15 / rate;
        for (std::size_t n = 0; n < sound.size(); ++n) {
            const double t = static_cast<double>(n) / kSoundHz + delay;
            ASSERT_NEAR(sound[n].left, std::sin(kStreamTurn * 9000 * t), 2e-3) << rate;
            ASSERT_NEAR(sound[n].right, 0.4 * std::cos(kStreamTurn * 500 * t), 1e-3) << rate;
        }
    }
}

std::vector<StereoSample> numbered(std::size_t from, std::size_t count) {
    std::vector<StereoSample> sound;
    for (std::size_t n = from; n < from + count; ++n)
        sound.push_back({static_cast<float>(n), -static_cast<float>(n)});
    return sound;
}

TEST(SoundRing, EachListenerHearsAllFromItsPlaceOn) {
    SoundRing ring;
    ring.write(numbered(0, 1000));
    std::uint64_t first = 0;
    std::uint64_t second = ring.newest();
    ring.write(numbered(1000, 500));
    std::vector<StereoSample> heard(1200);
    EXPECT_EQ(ring.read(first, heard), 1200U);
    EXPECT_EQ(heard[1199], (StereoSample{1199, -1199}));
    EXPECT_EQ(ring.read(first, heard), 300U);
    EXPECT_EQ(heard[299], (StereoSample{1499, -1499}));
    EXPECT_EQ(ring.read(first, heard), 0U);
    EXPECT_EQ(ring.read(second, heard), 500U);
    EXPECT_EQ(heard[0], (StereoSample{1000, -1000}));
}

TEST(SoundRing, WhoIsLateMissesTheOldest) {
    SoundRing ring;
    std::uint64_t place = 0;
    for (std::size_t n = 0; n < 60000; n += 2400) ring.write(numbered(n, 2400));
    std::vector<StereoSample> heard(10);
    EXPECT_EQ(ring.read(place, heard), 10U);
    EXPECT_EQ(heard[0].left, 12000);
    EXPECT_EQ(place, 12010U);
}

TEST(SoundRing, NothingHalfWrittenIsHeard) {
    SoundRing ring;
    std::atomic<bool> stop{false};
    std::thread writer([&] {
        for (std::size_t n = 0; !stop; n = (n + 2400) % 4800000) ring.write(numbered(n, 2400));
    });
    std::uint64_t place = 0;
    std::vector<StereoSample> heard(512);
    for (int round = 0; round < 300; ++round) {
        const std::size_t count = ring.read(place, heard);
        for (std::size_t n = 0; n < count; ++n) ASSERT_EQ(heard[n].left, -heard[n].right);
    }
    stop = true;
    writer.join();
}

struct Noted {
    std::uint64_t number = 0;
};

TEST(RecordRing, GivesEachReaderWhatItHasNotSeenAndForgetsTheOldest) {
    RecordRing<Noted> ring(4);
    std::array<Noted, 3> out;
    std::uint64_t next = 0;
    EXPECT_EQ(ring.copy(0, out, next), 0U);
    EXPECT_EQ(next, 0U);
    for (std::uint64_t number = 10; number < 16; ++number) ring.add({number});
    EXPECT_EQ(ring.copy(0, out, next), 3U);
    EXPECT_EQ(out[0].number, 12U);
    EXPECT_EQ(next, 15U);
    EXPECT_EQ(ring.copy(next, out, next), 1U);
    EXPECT_EQ(out[0].number, 15U);
    EXPECT_EQ(next, 16U);
}

// A change of width must not shift the time of pilot and data.
TEST(ChannelFilter, BothWidthsTakeEquallyLong) {
    const Rates rates = planRates(1.2e6, Domain::Band);
    ChannelFilter filter(rates);
    std::vector<Sample> in(4000);
    for (std::size_t n = 0; n < in.size(); ++n)
        in[n] = std::polar(
            1.0F, static_cast<float>(kStreamTurn * 20e3 / rates.channel * static_cast<double>(n)));
    std::vector<Sample> out;
    for (std::size_t from = 0; from < in.size(); from += 500) {
        filter.setWidth(from / 1000 % 2 == 0 ? ChannelWidth::Wide : ChannelWidth::Narrow);
        filter.process(std::span(in).subspan(from, 500), out);
    }
    ASSERT_EQ(out.size(), in.size() - filter.length() + 1);
    for (std::size_t n = 0; n < out.size(); ++n)
        ASSERT_LT(std::abs(out[n] - in[n + filter.delay()]), 3e-3F) << n;
}

std::vector<Sample> circle(double amplitude) {
    std::vector<Sample> samples;
    for (int n = 0; n < 30000; ++n)
        samples.push_back(std::polar(static_cast<float>(amplitude), static_cast<float>(n)));
    return samples;
}

// Clipped at 1, a circle of 1.3 is at full scale for nearly half of the time.
TEST(InputLoad, IsTooHighWhereAThousandthStandsAtTheConvertersEnd) {
    InputLoad load;
    EXPECT_FALSE(load.endSlot());
    load.add(circle(0.98));
    EXPECT_FALSE(load.endSlot());
    auto cut = circle(1.3);
    for (Sample& sample : cut)
        sample = {std::clamp(sample.real(), -1.0F, 1.0F), std::clamp(sample.imag(), -1.0F, 1.0F)};
    load.add(cut);
    EXPECT_TRUE(load.endSlot());
    EXPECT_FALSE(load.endSlot());  // a slot without samples
    auto rare = circle(0.5);
    for (std::size_t n = 0; n < 30; ++n) rare[n * 900] = {0, -1};
    load.add(rare);
    EXPECT_FALSE(load.endSlot());
    rare[100] = {1, 0};
    load.add(rare);
    EXPECT_TRUE(load.endSlot());
}

TEST(InputLoad, SaysNothingOfFloatsOfAnotherScale) {
    InputLoad load;
    load.add(circle(1.0));
    EXPECT_TRUE(load.endSlot());
    load.add(circle(30));
    load.add(circle(1.0));
    EXPECT_FALSE(load.endSlot());
}

TEST(SpoiltSamples, AShortStretchIsBridgedByAStraightLine) {
    SpoiltSamples spoilt;
    spoilt.add(103, 106);
    std::vector<float> values{0, 10, 20, 999, 999, 999, 60, 70};
    spoilt.mend(100, 8, values, 5);
    for (std::size_t n = 0; n < values.size(); ++n)
        EXPECT_FLOAT_EQ(values[n], 10 * static_cast<float>(n));
}

TEST(SpoiltSamples, ALongOneGoesToTheCarrierAndBackInPartsAsInOne) {
    SpoiltSamples spoilt;
    spoilt.add(1010, 1400);
    std::vector<float> values(500, 900.0F);
    auto whole = values;
    auto once = spoilt;
    once.mend(1000, 500, whole, 100);
    EXPECT_EQ(whole[200], 100);
    for (std::size_t n = 1; n < whole.size(); ++n)
        EXPECT_LT(std::fabs(whole[n] - whole[n - 1]), 800.0F / 60);
    for (std::size_t from = 0; from < 500; from += 50)
        spoilt.mend(1000 + from, 50, std::span(values).subspan(from), 100);
    EXPECT_EQ(values, whole);
}

TEST(SpoiltSamples, SpansThatTouchBecomeOneAndAreFound) {
    SpoiltSamples spoilt;
    spoilt.add(2000, 2050);
    spoilt.add(1000, 1050);
    spoilt.add(2060, 2090);
    EXPECT_TRUE(spoilt.touches(2040, 2041));
    EXPECT_TRUE(spoilt.touchesLonger(0, 9999, 90));
    EXPECT_FALSE(spoilt.touchesLonger(0, 9999, 91));
    EXPECT_FALSE(spoilt.touches(1051, 2000));
    std::size_t clean = 0;
    spoilt.eachClean(900, 1300, [&](std::size_t from, std::size_t to) { clean += to - from; });
    EXPECT_EQ(clean, 1300U - 50 - 90);
    spoilt.forget(1500);
    EXPECT_FALSE(spoilt.touches(0, 1999));
    EXPECT_TRUE(spoilt.touches(2000, 2001));
}

// A carrier 50 kHz away at a fiftieth of the strength moves the deviation by 1 kHz.
TEST(PeakDoubt, IsTheErrorThatAnotherStationMakes) {
    const Rates rates = planRates(1.2e6, Domain::Band);
    PeakDoubt doubt(rates);
    std::vector<float> envelope;
    for (int n = 0; n < 20000; ++n)
        envelope.push_back(std::abs(
            1.0F + std::polar(0.02F, static_cast<float>(std::fmod(
                                         kStreamTurn * 50e3 / rates.channel * n, kStreamTurn)))));
    doubt.add(envelope);
    EXPECT_NEAR(doubt.takeHz(), 1000, 60);
    EXPECT_EQ(doubt.takeHz(), 0);
    // The carrier's own fading is slow compared with that.
    std::vector<float> fading;
    for (int n = 0; n < 20000; ++n)
        fading.push_back(1 +
                         0.5F * std::sin(static_cast<float>(kStreamTurn * 50 / rates.channel * n)));
    PeakDoubt calm(rates);
    calm.add(fading);
    EXPECT_LT(calm.takeHz(), 60);
}

class WatchedCarrier : public testing::Test {
 protected:
    static constexpr double kRate = 500e3;

    // Blocks of a carrier with this envelope, with white noise of this rms on I and Q.
    void watch(std::size_t blocks, double noise, const std::function<double(double)>& level,
               const std::function<void(std::size_t block, std::vector<float>& frequency,
                                        std::vector<float>& envelope)>& spoil = {}) {
        constexpr std::size_t kAll = CarrierWatch::kBlock + 2 * CarrierWatch::kBeside;
        for (std::size_t block = 0; block < blocks; ++block) {
            std::vector<float> frequency(kAll);
            std::vector<float> envelope(kAll);
            for (std::size_t n = 0; n < kAll; ++n) {
                const double t = static_cast<double>(at_ + n) / kRate;
                const auto z = static_cast<float>(std::sqrt(2.0) * noise) * random_.noise();
                envelope[n] = static_cast<float>(level(t)) + z.real();
                frequency[n] =
                    static_cast<float>(40e3 * std::sin(kStreamTurn * 1000 * t)) + 10000 * z.imag();
            }
            at_ += CarrierWatch::kBlock;
            if (spoil) spoil(block, frequency, envelope);
            looks_.push_back(watch_.look(frequency.data() + CarrierWatch::kBeside,
                                         envelope.data() + CarrierWatch::kBeside));
            if (looks_.size() % 49 == 0) watch_.endSlot();
        }
    }

    std::size_t found(CarrierWatch::Finding finding) const {
        std::size_t count = 0;
        for (const auto& look : looks_) count += look.finding == finding ? 1 : 0;
        return count;
    }

    CarrierWatch watch_{kRate, 6};  // white noise: 1 + 4 + 1
    Random random_{5};
    std::uint64_t at_ = 0;
    std::vector<CarrierWatch::Look> looks_;
};

TEST_F(WatchedCarrier, ItsNoiseIsTheVarianceOfTheEnvelope) {
    watch(200, 0.05, [](double) { return 1.0; });
    EXPECT_NEAR(watch_.roughness(), 0.0025, 0.0001);
    EXPECT_EQ(found(CarrierWatch::Finding::Carrier), looks_.size());
}

TEST_F(WatchedCarrier, ItsSlowMovesAreNoNoise) {
    watch(400, 0.002, [](double t) { return 1 + 0.5 * std::sin(kStreamTurn * 50 * t); });
    EXPECT_LT(watch_.roughness(), 1e-5);
    EXPECT_EQ(found(CarrierWatch::Finding::Carrier), looks_.size());
}

TEST_F(WatchedCarrier, AJumpOfItsFrequencyIsABurstWhereItIs) {
    watch(
        150, 0.02, [](double) { return 1.0; },
        [](std::size_t block, std::vector<float>& frequency, std::vector<float>&) {
            if (block == 100) frequency[200 + CarrierWatch::kBeside] += 60e3F;
        });
    EXPECT_EQ(found(CarrierWatch::Finding::Burst), 1U);
    EXPECT_EQ(looks_[100].finding, CarrierWatch::Finding::Burst);
    EXPECT_LE(looks_[100].from, 200U);
    EXPECT_GT(looks_[100].to, 200U);
    EXPECT_LT(looks_[100].to - looks_[100].from, 30U);
}

TEST_F(WatchedCarrier, BurstsWithoutEndAreHowTheAirIs) {
    watch(
        800, 0.02, [](double) { return 1.0; },
        [](std::size_t block, std::vector<float>& frequency, std::vector<float>&) {
            if (block % 2 == 1) frequency[200] += 60e3F;
        });
    EXPECT_LT(found(CarrierWatch::Finding::Burst), 120U);
    EXPECT_NE(looks_.back().finding, CarrierWatch::Finding::Burst);
}

TEST_F(WatchedCarrier, WithoutItThereIsAGapAndLaterNoCarrier) {
    const auto nothing = [](std::size_t, std::vector<float>& frequency,
                            std::vector<float>& envelope) {
        std::fill(frequency.begin(), frequency.end(), 0.0F);
        std::fill(envelope.begin(), envelope.end(), 0.0F);
    };
    watch(100, 0.02, [](double) { return 1.0; });
    watch(
        100, 0.02, [](double) { return 1.0; }, nothing);
    EXPECT_EQ(found(CarrierWatch::Finding::Gap), 100U);
    EXPECT_TRUE(watch_.carrier());
    watch(
        100, 0.02, [](double) { return 1.0; }, nothing);
    EXPECT_FALSE(watch_.carrier());
    EXPECT_EQ(found(CarrierWatch::Finding::Gap), 160U);
    watch(5, 0.02, [](double) { return 1.0; });
    EXPECT_TRUE(watch_.carrier());
}

}  // namespace
}  // namespace hm16::receiver
