// SPDX-License-Identifier: GPL-3.0-or-later
// Recordings that cannot be played, through the library as the program loads it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/drivers/receiver/playback.h"
#include "tests/drivers/receiver/recording_bytes.h"

namespace hm16::receiver {
namespace {

using testing::HasSubstr;

void expectNoUnit(const Playback& run, int line, const std::string& reason) {
    const std::string said = run->init();
    expectNoUnit(*run, said, line, "file cannot be used: ");
    EXPECT_THAT(said, HasSubstr(reason));
    EXPECT_NE((*run)->normal(985, 0, 0, 0, 0), 0);
    EXPECT_EQ(run->readings(), Readings());
    float level = 77;
    EXPECT_NE((*run)->super(985, &level), 0);
}

TEST(RecordingThatCannotBe, IsOneSentenceWithFileAndLine) {
    const std::string raw(4000, 'x');
    const auto expect = [](const std::string& name, const std::string& bytes,
                           const std::string& settings, const std::string& reason) {
        const Playback run(name, settings);
        if (!bytes.empty()) run.folder().write(name, bytes);
        expectNoUnit(run, 4, reason);
    };
    expect("missing.cu8", "", kBare, "missing.cu8 cannot be opened: No such file or directory.");
    expect("missing.wav", "", kBare, "missing.wav cannot be read as a sound file: ");
    expect("missing.sigmf-meta", "", "", "missing.sigmf-meta cannot be opened.");
    expect("short.cf32", "abc", kBare, "short.cf32 holds no samples.");
    expect("a.cu8", raw, "centre_mhz = 98.4\n",
           "a.cu8 does not tell its sample rate; set \"rate_hz\".");
    expect("a.cu8", raw, "rate_hz = 600000\n",
           "a.cu8 does not tell its centre frequency; set \"centre_mhz\".");
    expect("a.cu8", raw, "rate_hz = 48000\ncentre_mhz = 98.4\n",
           "a.cu8 has a sample rate of 48000 Hz; from 200000 Hz to 25000000 Hz can be measured.");
    expect("a.bin", raw, kBare, "a.bin does not tell its format by its name; set \"format\"");
    expect("a.wav", raw, kBare, "a.wav cannot be read as a sound file: ");
    expect("a.flac", raw, kBare, "a.flac cannot be read as a sound file: ");
    expect("a.cu8", raw, kBare + "format = wav\n", "a.cu8 cannot be read as a sound file: ");
    expect("mono.wav", wav(1, 600000, {1, 2, 3}), kBare,
           "mono.wav has 1 channel; I and Q need two.");
    expect("music.wav", wav(2, 48000, {1, 2, 3, 4}), "centre_mhz = 98.4\n",
           "music.wav is sound of 48000 samples a second, not a recording of a band.");
    expect("mpx.wav", wav(1, 48000, {1, 2, 3}), "format = composite\n",
           "mpx.wav has a sample rate of 48000 Hz; from 120000 Hz");
    expect("a.sigmf-meta", "{\"global\": {\"core:datatype\": \"cu8\"}}", kBare,
           "a.sigmf-data cannot be opened");
    expect("a.sigmf-meta", "not json", "", "a.sigmf-meta is not a JSON object.");
}

TEST(RecordingThatCannotBe, EmptyOnesAreSaidToBe) {
    for (const std::string name :
         {"a.cu8", "a.cs8", "a.cs16", "a.cf32", "a.wav", "a.flac", "a.sigmf-meta"}) {
        const Playback run(name, kBare);
        run.folder().write(name, "");
        expectNoUnit(run, 4, name + " is empty.");
    }
    const Playback run("a.wav", kBare);
    run.folder().write("a.wav", wav(2, 600000, {}));
    expectNoUnit(run, 4, "a.wav holds no samples.");
}

TEST(RecordingThatCannotBe, ASoundFileCutAnywhereIsRefusedOrReadUpToThere) {
    std::string whole;
    {
        const Playback run("a.flac", kBare);
        run.record("a.flac", SampleFormat::Cs16, {knownBand().begin(), knownBand().begin() + 6000});
        whole = run.folder().read("a.flac");
    }
    ASSERT_GT(whole.size(), 4000u);
    for (const std::size_t length : {1, 4, 10, 41, 42, 43, 90, 200, 3000}) {
        const Playback run("a.flac", kBare + "loop = no\n");
        run.folder().write("a.flac", whole.substr(0, length));
        const std::string said = run->init();
        if (run->version() == 0) {
            EXPECT_EQ(lines(said), 1) << length;
            continue;
        }
        testing::internal::CaptureStderr();
        run->step(0);
        run->tune(985);
        EXPECT_FALSE(run->step(1)) << length;
        EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("a.flac has ended."));
        EXPECT_EQ(run->readings(), nothing());
    }
}

}  // namespace
}  // namespace hm16::receiver
