// SPDX-License-Identifier: GPL-3.0-or-later
// Recordings from file to readings, through the library as the program loads it: every format, and
// what can happen to a recording while it plays.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <vector>

#include "drivers/receiver/synth/composite_generator.h"
#include "tests/drivers/receiver/playback.h"
#include "tests/drivers/receiver/recording_bytes.h"

namespace hm16::receiver {
namespace {

using testing::HasSubstr;

struct Form {
    const char* name;
    SampleFormat format;  // of a SigMF pair
    const char* settings;
};

void PrintTo(const Form& form, std::ostream* out) {
    *out << form.name;
}

class EveryForm : public testing::TestWithParam<Form> {};

INSTANTIATE_TEST_SUITE_P(
    Recording, EveryForm,
    testing::Values(Form{"a.cu8", SampleFormat::Cu8, "rate_hz = 600000\ncentre_mhz = 98.4\n"},
                    Form{"a.cs8", SampleFormat::Cs8, "rate_hz = 600000\ncentre_mhz = 98.4\n"},
                    Form{"a.cs16", SampleFormat::Cs16, "rate_hz = 600000\ncentre_mhz = 98.4\n"},
                    Form{"a.cf32", SampleFormat::Cf32, "rate_hz = 600000\ncentre_mhz = 98.4\n"},
                    Form{"b.cf32", SampleFormat::Cf32,
                         "format = cf32\nrate_hz = 600000\ncentre_mhz = 98.4\n"},
                    Form{"a.wav", SampleFormat::Cs16, "centre_mhz = 98.4\n"},
                    Form{"a.flac", SampleFormat::Cs16, "centre_mhz = 98.4\n"},
                    Form{"u8.sigmf-meta", SampleFormat::Cu8, ""},
                    Form{"s8.sigmf-meta", SampleFormat::Cs8, ""},
                    Form{"s16.sigmf-meta", SampleFormat::Cs16, ""},
                    Form{"f32.sigmf-meta", SampleFormat::Cf32, ""}),
    [](const auto& form) {
        std::string word = form.param.name;
        for (char& c : word) c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
        return word;
    });

TEST_P(EveryForm, GivesTheStationsFigures) {
    const Playback run(GetParam().name, GetParam().settings);
    run.record(GetParam().name, GetParam().format);
    run.start();
    EXPECT_TRUE(run->step(15));
    const auto now = run->readings();
    expectKnown(now);
    EXPECT_NEAR(now.carrierDeviation, 2.5, 0.1);
    EXPECT_NEAR(now.field, 100 + 20 * std::log10(0.5), 0.2);
}

std::vector<std::int16_t> knownComposite(double rateHz) {
    CompositeGenerator generator(knownStation(), rateHz, 1);
    std::vector<double> hz;
    generator.generate(static_cast<std::size_t>(rateHz), hz);
    std::vector<std::int16_t> samples;
    for (const double value : hz)
        samples.push_back(static_cast<std::int16_t>(std::lround(value / 100e3 * 32767)));
    return samples;
}

TEST(CompositeRecording, GivesAllButTheRadioFigures) {
    const Playback run("mpx.wav", "format = composite\n");
    run.folder().write("mpx.wav", wav(1, 192000, knownComposite(192e3)));
    run.start(1020);  // without a centre it counts for every frequency
    EXPECT_TRUE(run->step(15));
    expectKnown(run->readings());
    EXPECT_EQ(run->readings().field, 0);
    EXPECT_EQ(run->readings().multipath, 0);
    (*run)->parar();
    float level = 77;
    EXPECT_EQ((*run)->super(1020, &level), 0);
    EXPECT_EQ(level, 0);
    EXPECT_EQ((*run)->startEspectro(980, 990, 100), 0);
    EXPECT_FALSE(run->step(1));
}

TEST(CompositeRecording, StandsForItsCentreAlone) {
    const Playback run("mpx.wav", "format = composite\ncentre_mhz = 98.5\n");
    run.folder().write("mpx.wav", wav(1, 192000, knownComposite(192e3)));
    run.start(985);
    EXPECT_TRUE(run->step(15));
    expectKnown(run->readings());
    run->tune(986);
    EXPECT_TRUE(run->step(2));
    EXPECT_EQ(run->readings(), nothing());
}

TEST(Recording, GoesRoundAndRoundUnlessItIsToEnd) {
    const Playback loop("a.sigmf-meta");
    loop.record("a.sigmf-meta");
    loop.start();
    EXPECT_TRUE(loop->step(40));
    EXPECT_NEAR(loop->readings().pilotLevel, 9, 0.3);
    EXPECT_THAT(loop->report(), HasSubstr("signal read: 2 s\n"));
}

TEST(Recording, ThatEndsWhileMeasuringLeavesNoFigures) {
    const Playback run("a.sigmf-meta", "loop = no\n");
    run.record("a.sigmf-meta");
    run.start();
    testing::internal::CaptureStderr();
    EXPECT_TRUE(run->step(14));
    expectKnown(run->readings());
    EXPECT_FALSE(run->step(10));
    EXPECT_EQ(run->readings(), nothing());
    EXPECT_THAT(run->report(), HasSubstr("signal read: 0.8 s, ended"));
    (*run)->parar();
    float level = 77;
    EXPECT_NE((*run)->super(985, &level), 0);
    run->tune(985);
    EXPECT_FALSE(run->step(1));
    EXPECT_EQ(run->readings(), nothing());
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, HasSubstr("a.sigmf-meta has ended."));
    EXPECT_EQ(lines(said), 1) << said;
}

TEST(Recording, CutInTheMiddleOfASampleIsReadUpToIt) {
    for (const std::uintmax_t cut : {1, 2, 3}) {
        const Playback run("a.cs16", kBare + "loop = no\n");
        run.record("a.cs16");
        const auto file = run.folder().path() / "a.cs16";
        std::filesystem::resize_file(file, std::filesystem::file_size(file) - cut);
        run.start();
        EXPECT_TRUE(run->step(15));
        expectKnown(run->readings());
        EXPECT_FALSE(run->step(1));
        EXPECT_EQ(run->readings(), nothing());
    }
}

TEST(Recording, CutInTheMiddleLoopsWithoutLosingItsStep) {
    const Playback run("a.cs16", kBare);
    run.record("a.cs16");
    const auto file = run.folder().path() / "a.cs16";
    std::filesystem::resize_file(file, std::filesystem::file_size(file) - 1);
    run.start();
    EXPECT_TRUE(run->step(28));
    EXPECT_NEAR(run->readings().pilotLevel, 9, 0.3);
}

TEST(Recording, ThatShrinksWhileItIsReadEndsWithoutAHang) {
    const Playback run("a.cs16", kBare);
    run.record("a.cs16");
    run.start();
    EXPECT_TRUE(run->step(2));
    std::filesystem::resize_file(run.folder().path() / "a.cs16", 0);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run->step(40));
    EXPECT_EQ(run->readings(), nothing());
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("a.cs16 has ended."));
}

TEST(Recording, OfOneSampleGoesRoundWithoutAHang) {
    const Playback run("one.cs16", kBare);
    run.record("one.cs16", SampleFormat::Cs16, {{0.5F, 0}});
    run.start(984);
    EXPECT_TRUE(run->step(8));
    EXPECT_NEAR(run->readings().field, 100 + 20 * std::log10(0.5), 0.1);
    EXPECT_EQ(run->readings().pilotLevel, 0);
}

TEST(Recording, SamplesThatAreNoNumbersAreCountedAndDoNotSpread) {
    std::vector<Sample> samples = knownBand();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (std::size_t n = 1000; n < 60000; n += 1000) samples[n] = {nan, 0};
    samples[100] = {0, std::numeric_limits<float>::infinity()};
    const Playback run("a.cf32", kBare);
    run.record("a.cf32", SampleFormat::Cf32, samples);
    run.start();
    EXPECT_TRUE(run->step(1));
    EXPECT_TRUE(std::isfinite(run->readings().peakModulation));
    EXPECT_TRUE(std::isfinite(run->readings().relativePower));
    EXPECT_TRUE(run->step(14));
    expectKnown(run->readings());
    EXPECT_THAT(run->report(), HasSubstr("samples that were no numbers: 60\n"));
}

TEST(Recording, OfNothingButNoNumbersOrZerosShowsNothing) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const Sample sample : {Sample(nan, nan), Sample()}) {
        const Playback run("a.cf32", kBare);
        run.record("a.cf32", SampleFormat::Cf32, std::vector<Sample>(120000, sample));
        run.start();
        EXPECT_TRUE(run->step(8));
        EXPECT_EQ(run->readings(), nothing());
        (*run)->parar();
        float level = 77;
        EXPECT_EQ((*run)->super(985, &level), 0);
        EXPECT_EQ(level, 0);
        EXPECT_EQ((*run)->startEspectro(983, 986, 100), 0);
        EXPECT_TRUE(run->step(1));
        EXPECT_EQ(run->swept(985), 0);
    }
}

// At twice full scale, clipping distorts the envelope, but not the phase.
TEST(Recording, ThatWasClippedStillGivesWhatIsInThePhase) {
    std::vector<Sample> samples = knownBand();
    for (Sample& sample : samples) sample *= 4;
    const Playback run("a.cu8", kBare);
    run.record("a.cu8", SampleFormat::Cu8, samples);
    run.start();
    EXPECT_TRUE(run->step(15));
    const auto now = run->readings();
    EXPECT_NEAR(now.pilotLevel, 9, 0.5);
    EXPECT_NEAR(now.carrierDeviation, 2.5, 1);
    EXPECT_LE(now.field, 103.1);
}

TEST(Recording, OutsideItsBandNothingIsThere) {
    const Playback run("a.sigmf-meta");
    run.record("a.sigmf-meta");
    run.start();
    // 98.4 MHz and 300 kHz to each side, less half a channel.
    for (const float outside : {875.0F, 981.9F, 986.1F, 1080.0F}) {
        run->tune(outside);
        EXPECT_TRUE(run->step(4));
        EXPECT_EQ(run->readings(), nothing()) << outside;
        (*run)->parar();
        float level = 77;
        EXPECT_EQ((*run)->super(outside, &level), 0);
        EXPECT_EQ(level, 0) << outside;
    }
    for (const float inside : {982.0F, 986.0F}) {
        run->tune(inside);
        EXPECT_TRUE(run->step(4));
        EXPECT_GT(run->readings().field, 30) << inside;
    }
}

}  // namespace
}  // namespace hm16::receiver
