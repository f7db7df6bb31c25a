// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/sound/loudspeaker.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/shared_object.h"

namespace hm16::receiver {
namespace {

constexpr std::size_t kBlock = 480;  // 10 ms
// So much stays in the ring, since the signal comes in stretches.
constexpr std::uint64_t kReserve = 4800;
// A listener who is further behind, as after a suspend, goes on with what is new.
constexpr std::uint64_t kTooFar = 24000;

constexpr auto kLookForSound = std::chrono::milliseconds(5);
constexpr auto kPatience = std::chrono::seconds(1);

// As loud as it seems goes with the square.
float gainOf(const Loudspeaker::State& state) {
    const auto share = static_cast<float>(state.volume) / 100;
    return state.muted ? 0 : share * share;
}

}  // namespace

struct Loudspeaker::Shared {
    mutable std::mutex mutex;
    std::condition_variable changed;
    const SoundRing* ring = nullptr;  // null once nobody may touch it
    OpenCard open;
    std::chrono::milliseconds lookForCard{};
    State state;
    bool ended = false;

    bool closing() const { return ring == nullptr; }

    // The next block once enough has come, with what waits in the ring; empty before.
    std::vector<StereoSample> next(std::uint64_t& place, std::size_t& waiting) {
        std::unique_lock lock(mutex);
        if (closing()) return {};
        const std::uint64_t newest = ring->newest();
        if (newest < place || newest - place > kTooFar)
            place = newest > kReserve ? newest - kReserve : 0;
        waiting = static_cast<std::size_t>(newest - place);
        if (waiting < kReserve + kBlock) {
            changed.wait_for(lock, kLookForSound, [&] { return closing(); });
            return {};
        }
        std::vector<StereoSample> block(kBlock);
        block.resize(ring->read(place, block));
        return block;
    }

    float gain() const {
        const std::lock_guard lock(mutex);
        return gainOf(state);
    }
    void setPlaying(bool playing) {
        const std::lock_guard lock(mutex);
        state.playing = playing;
    }
    bool goesOn() const {
        const std::lock_guard lock(mutex);
        return !closing();
    }

    void playOn(SoundCard& card);
};

// Until the card or the listener has gone. The volume moves over a block, so that it does not
// click.
void Loudspeaker::Shared::playOn(SoundCard& card) {
    SoundPace pace;
    std::vector<StereoSample> out;
    std::size_t waiting = 0;
    std::uint64_t place = 0;
    {
        const std::lock_guard lock(mutex);
        if (closing()) return;
        place = ring->newest();
    }
    float before = gain();
    while (goesOn()) {
        const auto block = next(place, waiting);
        if (block.empty()) continue;
        pace.look(waiting + card.waiting());
        out.clear();
        pace.process(block, out);
        const float now = gain();
        for (std::size_t n = 0; n < out.size(); ++n) {
            const float part = static_cast<float>(n) / static_cast<float>(out.size());
            const float factor = before == now ? now : before + part * (now - before);
            out[n].left = std::clamp(factor * out[n].left, -1.0F, 1.0F);
            out[n].right = std::clamp(factor * out[n].right, -1.0F, 1.0F);
        }
        before = now;
        if (!card.play(out)) return;
    }
}

Loudspeaker::Loudspeaker(const SoundRing& ring, OpenCard open,
                         std::chrono::milliseconds lookForCard)
    : shared_(std::make_shared<Shared>()) {
    shared_->ring = &ring;
    shared_->open = std::move(open);
    shared_->lookForCard = lookForCard;
    thread_ = std::thread([shared = shared_] { run(shared); });
}

void Loudspeaker::run(const std::shared_ptr<Shared>& shared) {
    while (shared->goesOn()) {
        if (const auto card = shared->open()) {
            shared->setPlaying(true);
            shared->playOn(*card);
            shared->setPlaying(false);
        }
        std::unique_lock lock(shared->mutex);
        shared->changed.wait_for(lock, shared->lookForCard, [&] { return shared->closing(); });
    }
    const std::lock_guard lock(shared->mutex);
    shared->ended = true;
    shared->changed.notify_all();
}

// A card that holds its caller up costs the thread and nothing else.
Loudspeaker::~Loudspeaker() {
    bool ended = false;
    {
        std::unique_lock lock(shared_->mutex);
        shared_->ring = nullptr;
        shared_->changed.notify_all();
        ended = shared_->changed.wait_for(lock, kPatience, [&] { return shared_->ended; });
    }
    if (ended) {
        thread_.join();
        return;
    }
    static const char here = 0;
    base::keepLoaded(&here);
    thread_.detach();
}

void Loudspeaker::set(int volume, bool muted) {
    const std::lock_guard lock(shared_->mutex);
    shared_->state.volume = volume;
    shared_->state.muted = muted;
}

Loudspeaker::State Loudspeaker::state() const {
    const std::lock_guard lock(shared_->mutex);
    return shared_->state;
}

}  // namespace hm16::receiver
