// SPDX-License-Identifier: GPL-3.0-or-later
// From the ring of sound to a sound card: simulated ones, and the system's own which writes into a
// file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <thread>

#include "drivers/receiver/sound/loudspeaker.h"
#include "drivers/receiver/sound/sound_pace.h"
#include "tests/support/temp_folder.h"

namespace hm16::receiver {
namespace {

// Left rises, right falls, so that each sample is unique.
std::vector<StereoSample> rising(std::size_t from, std::size_t count) {
    std::vector<StereoSample> sound(count);
    for (std::size_t n = 0; n < count; ++n) {
        const auto part = static_cast<float>((from + n) % 40000) / 80000;
        sound[n] = {part, -part};
    }
    return sound;
}

TEST(SoundPace, PassesTheSoundAsItIsWhileTheClocksAgree) {
    SoundPace pace;
    std::vector<StereoSample> out;
    for (std::size_t from = 0; from < 4800; from += 480) {
        pace.look(9600);
        pace.process(rising(from, 480), out);
    }
    EXPECT_EQ(out, rising(0, 4800));
}

TEST(SoundPace, PlaysFasterWhereTheCardIsSlowAndSlowerWhereItIsFast) {
    for (const double drift : {+3.0, -3.0}) {
        SoundPace pace;
        double waiting = 9600;
        for (int n = 0; n < 500; ++n) pace.look(9600);
        for (int n = 0; n < 3000; ++n) pace.look(static_cast<std::size_t>(waiting += drift));
        EXPECT_EQ(pace.step(), drift > 0 ? 1.002 : 0.998);
        std::vector<StereoSample> out;
        for (std::size_t from = 0; from < 4800; from += 480) pace.process(rising(from, 480), out);
        EXPECT_NEAR(static_cast<double>(out.size()), drift > 0 ? 4790 : 4810, 1.5);
        // The samples still lie on a line.
        for (std::size_t n = 1; n < out.size(); ++n)
            EXPECT_NEAR(out[n].left - out[n - 1].left, pace.step() / 80000, 1e-6);
        for (int n = 0; n < 3000; ++n) pace.look(9600);
        EXPECT_EQ(pace.step(), 1);
    }
}

// What a card was given, and how it behaves.
struct Deck {
    std::mutex mutex;
    std::vector<StereoSample> played;
    std::atomic<bool> plugged{true};
    std::atomic<bool> stuck{false};
    std::atomic<int> opened{0};

    std::vector<StereoSample> heard() {
        const std::lock_guard lock(mutex);
        return played;
    }
};

class FakeCard : public SoundCard {
 public:
    explicit FakeCard(std::shared_ptr<Deck> deck) : deck_(std::move(deck)) { ++deck_->opened; }
    bool play(std::span<const StereoSample> sound) override {
        while (deck_->stuck) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const std::lock_guard lock(deck_->mutex);
        deck_->played.insert(deck_->played.end(), sound.begin(), sound.end());
        return deck_->plugged;
    }
    std::size_t waiting() override { return 0; }

 private:
    std::shared_ptr<Deck> deck_;
};

template <typename Condition>
bool comesTrue(Condition condition) {
    for (int n = 0; n < 10000; ++n) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

class LoudspeakerTest : public testing::Test {
 protected:
    Loudspeaker::OpenCard card() const {
        return [deck = deck_]() -> std::unique_ptr<SoundCard> {
            return deck->plugged ? std::make_unique<FakeCard>(deck) : nullptr;
        };
    }
    // A loudspeaker that has begun to play.
    std::unique_ptr<Loudspeaker> speaker(int volume = 100) {
        auto result = std::make_unique<Loudspeaker>(ring_, card(), std::chrono::milliseconds(10));
        result->set(volume, false);
        EXPECT_TRUE(comesTrue([&] { return result->state().playing; }));
        // Sound that may pass before it begins to read.
        feed(9600);
        EXPECT_TRUE(comesTrue([&] {
            if (!deck_->heard().empty()) return true;
            feed(480);
            return false;
        }));
        return result;
    }
    void feed(std::size_t count) {
        ring_.write(rising(fed_, count));
        fed_ += count;
    }
    bool hears(std::size_t more) {
        const std::size_t before = deck_->heard().size();
        return comesTrue([&] {
            feed(480);
            return deck_->heard().size() >= before + more;
        });
    }

    std::shared_ptr<Deck> deck_ = std::make_shared<Deck>();
    SoundRing ring_;
    std::size_t fed_ = 0;
};

TEST_F(LoudspeakerTest, AtFullVolumeWhatComesOutIsWhatCameIn) {
    const auto speaker = this->speaker();
    EXPECT_TRUE(hears(9600));
    const auto heard = deck_->heard();
    const auto all = rising(0, fed_);
    // After the first block, in which the volume comes up.
    const auto found = std::search(all.begin(), all.end(), heard.begin() + 480, heard.end());
    EXPECT_NE(found, all.end());
}

TEST_F(LoudspeakerTest, TheVolumeGoesWithTheSquareAndMutedIsSilence) {
    const auto speaker = this->speaker();
    speaker->set(50, false);
    EXPECT_EQ(speaker->state().volume, 50);
    EXPECT_TRUE(hears(2400));
    auto heard = deck_->heard();
    float loudest = 0;
    for (auto at = heard.end() - 480; at != heard.end(); ++at)
        loudest = std::max(loudest, at->left);
    EXPECT_LE(loudest, 0.125F);
    EXPECT_GT(loudest, 0);
    EXPECT_NEAR((heard.end() - 1)->left - (heard.end() - 2)->left, 0.25 / 80000, 1e-7);
    speaker->set(50, true);
    EXPECT_TRUE(speaker->state().muted);
    EXPECT_TRUE(hears(2400));
    heard = deck_->heard();
    EXPECT_EQ(heard.back(), StereoSample());
}

TEST_F(LoudspeakerTest, ACardThatWentIsOpenedAgainWhenItIsBack) {
    const auto speaker = this->speaker();
    deck_->plugged = false;
    EXPECT_TRUE(comesTrue([&] {
        feed(480);
        return !speaker->state().playing;
    }));
    deck_->plugged = true;
    EXPECT_TRUE(comesTrue([&] { return speaker->state().playing; }));
    EXPECT_EQ(deck_->opened, 2);
    EXPECT_TRUE(hears(480));
}

TEST_F(LoudspeakerTest, ACardThatNeverReturnsHoldsUpNeitherTheSignalNorClosing) {
    auto speaker = this->speaker();
    deck_->stuck = true;
    feed(9600);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    feed(96000);  // the writer is not held up
    speaker.reset();
    deck_->stuck = false;
    // The abandoned thread ends by itself and releases the card.
    EXPECT_TRUE(comesTrue([&] { return deck_.use_count() == 1; }));
}

TEST_F(LoudspeakerTest, WithoutACardItIsSilentWithoutAWord) {
    deck_->plugged = false;
    testing::internal::CaptureStderr();
    {
        Loudspeaker speaker(ring_, card(), std::chrono::milliseconds(10));
        feed(9600);
        EXPECT_FALSE(speaker.state().playing);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(deck_->opened, 0);
}

#if defined(__linux__)
// The system's sound with a configuration of the test: its default card writes into a file.
class SystemSound : public testing::Test {
 protected:
    void configure(const std::string& card) const {
        folder_.write("asound.conf", "pcm.!default { " + card + " }\n");
        setenv("ALSA_CONFIG_PATH", (folder_.path() / "asound.conf").c_str(), 1);
    }
    std::string toFile() const {
        return "type file file \"" + (folder_.path() / "played").string() +
               "\" format raw slave.pcm { type null }";
    }
    std::vector<StereoSample> played() const {
        const std::string bytes = folder_.read("played");
        std::vector<StereoSample> sound(bytes.size() / sizeof(StereoSample));
        std::memcpy(static_cast<void*>(sound.data()), bytes.data(),
                    sound.size() * sizeof(StereoSample));
        return sound;
    }
    const hmonitor::test::TempFolder folder_;
};

TEST_F(SystemSound, PlaysEachSampleOnce) {
    configure(toFile());
    {
        const auto card = SoundCard::open();
        ASSERT_NE(card, nullptr);
        for (std::size_t from = 0; from < 4800; from += 480)
            EXPECT_TRUE(card->play(rising(from, 480)));
    }
    EXPECT_EQ(played(), rising(0, 4800));
}

TEST_F(SystemSound, AMachineWithoutACardHasNoneAndSaysNothing) {
    configure("type hw card 99");
    testing::internal::CaptureStderr();
    EXPECT_EQ(SoundCard::open(), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
#endif

}  // namespace
}  // namespace hm16::receiver
