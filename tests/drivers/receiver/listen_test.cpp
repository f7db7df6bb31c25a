// SPDX-License-Identifier: GPL-3.0-or-later
// The tuned station on the loudspeakers, through the library as the program loads it, with a sound
// card that writes into a file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "drivers/hm16_more.h"
#include "drivers/receiver/library/open_source.h"
#include "drivers/receiver/library/receiver_unit.h"
#include "tests/drivers/receiver/playback.h"

namespace hm16::receiver {
namespace {

const HM16_ListenV1& listenOf(const ReceiverLibrary& receiver) {
    const auto extension =
        reinterpret_cast<HM16_ExtensionFunction>(receiver.library().extra(HM16_EXTENSION_NAME));
    return *static_cast<const HM16_ListenV1*>(extension(HM16_LISTEN));
}

HM16_ListenState stateOf(const ReceiverLibrary& receiver) {
    HM16_ListenState state{};
    state.size = sizeof state;
    EXPECT_EQ(listenOf(receiver).state(&state), 0);
    EXPECT_EQ(state.size, sizeof state);
    return state;
}

// What a sound card that writes into a file was given.
class SoundFile {
 public:
    SoundFile() {
        folder_.write("asound.conf", "pcm.!default { type file file \"" +
                                         (folder_.path() / "played").string() +
                                         "\" format raw slave.pcm { type null } }\n");
        setenv("ALSA_CONFIG_PATH", (folder_.path() / "asound.conf").c_str(), 1);
    }
    std::vector<StereoSample> played() const {
        std::error_code none;
        if (!std::filesystem::exists(folder_.path() / "played", none)) return {};
        const std::string bytes = folder_.read("played");
        std::vector<StereoSample> sound(bytes.size() / sizeof(StereoSample));
        if (sound.empty()) return {};
        std::memcpy(static_cast<void*>(sound.data()), bytes.data(),
                    sound.size() * sizeof(StereoSample));
        return sound;
    }

 private:
    const hmonitor::test::TempFolder folder_;
};

TEST(Listen, IsOffUnlessAskedForAndTakesNothingThatMakesNoSense) {
    const SoundFile card;
    const Playback run("a.cs16", kBare);
    EXPECT_EQ(listenOf(*run).set(50, 0), 1);  // the unit is not open yet
    run.record("a.cs16");
    run.start();
    EXPECT_EQ(stateOf(*run).playing, 0);
    EXPECT_EQ(listenOf(*run).set(50, 0), 1);
    run->step(20);
    EXPECT_TRUE(card.played().empty());
    EXPECT_EQ(listenOf(*run).state(nullptr), 1);
    HM16_ListenState none{};
    EXPECT_EQ(listenOf(*run).state(&none), 1);
}

// The sound that the chain itself makes of a recording, from its beginning on.
std::vector<StereoSample> chainSound(const std::filesystem::path& file, int slots) {
    ReceiverOptions options;
    options.source = SourceKind::Recording;
    options.recording = {file, "auto", kRateHz, kCentreHz};
    options.pace = Pace::Fast;
    const hmonitor::test::TempFolder files;
    PublishedReadings readings;
    ReceiverUnit unit(options, openSource(options), readings, files.path());
    unit.step(0);
    std::uint64_t place = unit.sound().newest();
    unit.measure({.frequency = 985});
    std::vector<StereoSample> all;
    std::vector<StereoSample> part(48000);
    for (int n = 0; n < slots; ++n) {
        unit.step(1);
        const std::size_t count = unit.sound().read(place, part);
        all.insert(all.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(count));
    }
    return all;
}

TEST(Listen, WhatIsPlayedIsTheChainsSound) {
    const SoundFile card;
    const ReceiverLibrary receiver(
        "source = recording\nfile = a.cs16\nlevel_step_db = 0\nlisten = yes\n" + kBare);
    {
        RecordingPlan plan{receiver.folder().path() / "a.cs16", SampleFormat::Cs16, kRateHz,
                           kCentreHz};
        RecordingWriter writer(plan);
        writer.write(knownBand());
        writer.close();
    }
    ASSERT_EQ(receiver.init(), "");
    EXPECT_EQ(listenOf(receiver).set(101, 0), 1);
    EXPECT_EQ(listenOf(receiver).set(-1, 0), 1);
    EXPECT_EQ(listenOf(receiver).set(100, 0), 0);
    ASSERT_TRUE(ReceiverLibrary::eventually([&] { return stateOf(receiver).playing == 1; }));
    EXPECT_EQ(stateOf(receiver).volume, 100);
    receiver.tune(985);
    ASSERT_TRUE(ReceiverLibrary::eventually([&] { return card.played().size() > 24000; }));
    receiver->parar();
    const auto heard = card.played();
    const auto own = chainSound(receiver.folder().path() / "a.cs16", 400);
    ASSERT_GT(heard.size(), 24000u);
    // The last tenth of a second, long after the station began.
    const auto from = heard.end() - 4800;
    const auto loudest = std::max_element(
        from, heard.end(), [](const auto& a, const auto& b) { return a.left < b.left; });
    EXPECT_GT(loudest->left, 0.1F);
    EXPECT_NE(std::search(own.begin(), own.end(), from, heard.end()), own.end());
    // Muting stops it.
    EXPECT_EQ(listenOf(receiver).set(100, 1), 0);
    EXPECT_EQ(stateOf(receiver).muted, 1);
}

TEST(Listen, WithoutASoundCardAllElseGoesOn) {
    const hmonitor::test::TempFolder folder;
    folder.write("asound.conf", "pcm.!default { type hw card 99 }\n");
    setenv("ALSA_CONFIG_PATH", (folder.path() / "asound.conf").c_str(), 1);
    const ReceiverLibrary receiver("source = synthetic\nlisten = yes\nlevel_step_db = 0\n");
    testing::internal::CaptureStderr();
    receiver->init();
    receiver.tune(985);
    EXPECT_TRUE(ReceiverLibrary::eventually([&] { return receiver.readings().pilotLevel > 8; }));
    EXPECT_EQ(stateOf(receiver).playing, 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace hm16::receiver
