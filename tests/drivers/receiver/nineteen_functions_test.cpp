// SPDX-License-Identifier: GPL-3.0-or-later
// The library through the program's own loader: all nineteen functions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/drivers/receiver/receiver_library.h"
#include "tests/drivers/receiver/recording_bytes.h"

namespace {

using testing::HasSubstr;

const std::string kStation =
    "source = synthetic\nscene = station\npace = fast\nlevel_step_db = 0\n";

// As the report states it, in hundredths.
double secondsRead(const ReceiverLibrary& receiver) {
    const std::string report = receiver.report();
    const std::string label = "signal read: ";
    return std::stod(report.substr(report.find(label) + label.size()));
}

TEST(NineteenFunctions, AllAreThere) {
    const ReceiverLibrary receiver(kStation);
    expectEachInItsPlace(receiver.library());
}

TEST(NineteenFunctions, ARackUsesThemOneAfterTheOther) {
    const ReceiverLibrary receiver(kStation);
    EXPECT_EQ(receiver.init(), "");
    EXPECT_EQ(receiver->init(), 1);  // open already
    EXPECT_EQ(receiver.version(), 1.8F);
    float driver = 0;
    receiver->getDriverVersion(&driver);
    EXPECT_GE(driver, 1);
    EXPECT_EQ(receiver->setSintoMode(0), 0);
    int32_t mode = 7;
    receiver->getSintoMode(&mode);
    EXPECT_EQ(mode, 0);
    receiver->directorio(".");
    receiver->setClient(0);

    EXPECT_TRUE(receiver.step(0));
    receiver.tune(985);
    EXPECT_EQ(receiver.readings(), nothing());
    EXPECT_TRUE(receiver.step(24));
    const auto now = receiver.readings();
    EXPECT_NEAR(now.pilotLevel, 9, 0.05);
    EXPECT_NEAR(now.pilotError, 0.5, 0.01);
    EXPECT_NEAR(now.carrierDeviation, 1.2, 0.3);  // programme moves it about
    EXPECT_NEAR(now.field, 100 + 20 * std::log10(0.3), 0.2);
    EXPECT_NEAR(now.rdsLevel, 100 * 2000 / 75e3, 0.15);
    EXPECT_GT(now.peakModulation, 20);
    EXPECT_GT(now.levelFirst, -40);
    EXPECT_GT(now.relativePower, 0);
    EXPECT_LE(now.multipath, 1);

    receiver->parar();
    receiver->parar();
    EXPECT_EQ(receiver.readings(), now);  // the last readings stay
    float level = 0;
    EXPECT_EQ(receiver->super(985, &level), 0);
    EXPECT_NEAR(level, now.field, 0.2);
    EXPECT_EQ(receiver->reset(1), 0);
    EXPECT_EQ(receiver->reset(2), 0);
    EXPECT_EQ(receiver->reset(3), 0);

    EXPECT_EQ(receiver->startEspectro(978, 987, 0), 0);
    EXPECT_EQ(receiver->tramaEspectroRecibida(), 0);
    EXPECT_TRUE(receiver.step(1));
    EXPECT_NE(receiver->tramaEspectroRecibida(), 0);
    EXPECT_EQ(receiver->tramaEspectroRecibida(), 0);
    receiver->parar();
    EXPECT_GT(receiver.swept(985), receiver.swept(980) + 30);
    EXPECT_EQ(receiver.swept(1080), 0);  // never covered by the recording

    receiver->demoMode();
    receiver->demoMode();
    EXPECT_NE(receiver->normal(985, 0, 0, 0, 0), 0);
    EXPECT_EQ(receiver->terminate(), 0);
    EXPECT_EQ(receiver.version(), 0);
    EXPECT_FALSE(receiver.step(1));
}

TEST(NineteenFunctions, AStepOf25GivesTheAnalyzerALevelAtEachPointThatTheBandCovers) {
    const ReceiverLibrary receiver(kStation);
    receiver.init();
    receiver.step(0);
    receiver->parar();
    EXPECT_EQ(receiver->startEspectro(880, 1080, 25), 0);
    EXPECT_TRUE(receiver.step(1));
    EXPECT_NE(receiver->tramaEspectroRecibida(), 0);
    EXPECT_GT(receiver.swept(985), receiver.swept(980) + 30);
    EXPECT_NE(receiver.swept(985.25f), receiver.swept(985.75f)) << "each 25 kHz is a point";
    EXPECT_EQ(receiver.swept(880), 0) << "beside the band there is nothing but the floor";
    EXPECT_EQ(receiver.swept(1080), 0);
    EXPECT_TRUE(receiver.step(1));
    EXPECT_NE(receiver->tramaEspectroRecibida(), 0) << "frames go on coming";
}

TEST(NineteenFunctions, SumModeAndAverageDetectorAreTheirs) {
    const ReceiverLibrary receiver("source = synthetic\nscene = tones\npace = fast\n");
    receiver.init();
    receiver.step(0);
    receiver->parar();
    EXPECT_EQ(receiver->normal(985, 1, 1, 0, 0), 0);  // the left channel alone has a tone, at 0.7
    receiver.step(26);
    EXPECT_NEAR(receiver.readings().levelFirst, 20 * std::log10(0.35), 0.1);
    EXPECT_NEAR(receiver.readings().levelSecond, 20 * std::log10(0.35), 0.1);
    EXPECT_GT(receiver.readings().separationLeft, 55);
    EXPECT_EQ(receiver.readings().field, 90);  // whole dB by default
}

TEST(NineteenFunctions, ItPlaysInRealTimeWhenLeftAlone) {
    const ReceiverLibrary receiver("source = synthetic\nrate_hz = 960000\npace = real\n");
    receiver.init();
    EXPECT_FALSE(receiver.step(1));
    const auto start = std::chrono::steady_clock::now();
    receiver.tune(985);
    const auto measured = [&] { return receiver.readings().pilotLevel > 8.9; };
    EXPECT_TRUE(ReceiverLibrary::eventually(measured));
    // The first 25 ms are read at once, each later stretch when the time of the one before is over.
    const double signal = secondsRead(receiver) - 0.025;
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_GT(signal, 0.03);
    EXPECT_GT(passed.count(), signal - 0.01);
    receiver->parar();
    EXPECT_EQ(receiver->startEspectro(983, 986, 25), 0);
    EXPECT_TRUE(receiver.frameComes());
}

// Eight tones one after the other in the multiplex of a mono station, each a little weaker;
// pre-emphasis is taken into account.
TEST(NineteenFunctions, AResponseRunFindsItsTones) {
    constexpr double kRateHz = 192e3;
    constexpr double kToneSeconds = 0.8;
    std::vector<std::int16_t> samples;
    const std::vector<double> tones{1000, 30, 125, 400, 4000, 8000, 12000, 15000};
    for (std::size_t n = 0; n < tones.size(); ++n) {
        const double gain = std::pow(10, -0.1 * static_cast<double>(n) / 20) * 0.4 * 32767;
        const auto count = static_cast<std::size_t>(kToneSeconds * kRateHz);
        for (std::size_t i = 0; i < count; ++i)
            samples.push_back(static_cast<std::int16_t>(
                std::lround(gain * std::sin(2 * std::numbers::pi * tones[n] *
                                            static_cast<double>(i) / kRateHz))));
    }
    samples.resize(samples.size() + static_cast<std::size_t>(kRateHz));
    const ReceiverLibrary receiver(
        "source = recording\nfile = tones.wav\nformat = composite\nloop = no\npace = fast\n"
        "deemphasis_us = 0\n");
    receiver.folder().write("tones.wav", wav(1, 192000, samples));
    EXPECT_EQ(receiver.init(), "");
    receiver.step(0);
    receiver.tune(985, 0, 1);
    int slots = 0;
    while (!showsEndMark(receiver.readings()) && slots < 150 && receiver.step(1)) ++slots;
    EXPECT_TRUE(showsEndMark(receiver.readings()));
    EXPECT_LT(slots, 142);  // the run ends with the last of the eight tones
    EXPECT_NE(receiver->normal(985, 0, 0, 0, 0), 0);  // it is still measuring
    receiver->parar();
    const auto results = receiver.response();
    for (std::size_t n = 0; n < tones.size(); ++n) {
        EXPECT_EQ(results[2 * n], tones[n]);
        EXPECT_NEAR(results[2 * n + 1], -static_cast<int>(n), 1) << tones[n];
    }
}

// Called outside its mode, a function does nothing.
TEST(NineteenFunctions, OutsideTheirModesTheyAreHarmless) {
    const ReceiverLibrary receiver(kStation);
    float level = 77;
    EXPECT_NE(receiver->parar(), 0);
    EXPECT_NE(receiver->normal(985, 0, 0, 0, 0), 0);
    EXPECT_NE(receiver->super(985, &level), 0);
    EXPECT_NE(receiver->startEspectro(980, 990, 100), 0);
    EXPECT_NE(receiver->reset(1), 0);
    EXPECT_EQ(receiver->tramaEspectroRecibida(), 0);
    EXPECT_EQ(receiver.version(), 0);
    receiver.init();
    receiver.step(0);
    receiver.tune(985);
    EXPECT_NE(receiver->reset(1), 0);
    EXPECT_NE(receiver->startEspectro(980, 990, 100), 0);
    receiver->parar();
    EXPECT_NE(receiver->super(std::nanf(""), &level), 0);
    EXPECT_NE(receiver->normal(-1, 0, 0, 0, 0), 0);
    EXPECT_NE(receiver->startEspectro(990, 980, 100), 0);
    EXPECT_EQ(level, 77);
}

TEST(NineteenFunctions, WrongSettingsAreOneSentenceEach) {
    const auto expect = [](const std::string& settings, int line, const std::string& reason) {
        const ReceiverLibrary receiver(settings);
        const std::string said = receiver.init();
        expectNoUnit(receiver, said, line, reason);
        EXPECT_NE(receiver->normal(985, 0, 0, 0, 0), 0);
    };
    expect("source = tape\n", 1, "source is \"tape\", but must be one of: recording, synthetic");
    expect("\nsource = recording\nfile =\n", 3, "file is missing; a recording needs it.");
    expect("format = mp3\n", 1, "format is \"mp3\", but must be one of: auto, cu8");
    expect("rate_hz = fast\n", 1, "rate_hz is \"fast\", but must be a number from 0 to 25000000.");
    expect("rate_hz = 1000\n", 1,
           "rate_hz is 1000, but a band needs at least 200000 samples a second.");
    expect("centre_mhz = -1\n", 1, "centre_mhz is \"-1\"");
    expect("loop = maybe\n", 1, "loop is \"maybe\", but must be one of: no, yes.");
    expect("pace = slow\n", 1, "pace is \"slow\", but must be one of: real, fast.");
    expect("dbuv_at_full_scale = loud\n", 1, "dbuv_at_full_scale is \"loud\"");
    expect("clock_ppm = 5000\n", 1,
           "clock_ppm is \"5000\", but must be a number from -500 to 500.");
    expect("deemphasis_us = 500\n", 1, "deemphasis_us is \"500\"");
    expect("level_step_db = -1\n", 1, "level_step_db is \"-1\"");
    expect("version = ten\n", 1, "version is \"ten\"");
    expect("scene = opera\n", 1, "scene is \"opera\"");
    expect("; a comment\n\ncentre = 98\n", 3, "centre is no setting of this library.");
    expect("version = 1.8\nversion = 1.7\n", 2, "version is set a second time.");
}

TEST(NineteenFunctions, VersionZeroIsNoUnitAndNoFault) {
    const ReceiverLibrary receiver("version = 0\n");
    EXPECT_EQ(receiver.init(), "");
    EXPECT_EQ(receiver.version(), 0);
}

}  // namespace
