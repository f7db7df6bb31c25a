// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "drivers/receiver/library/sound_ring.h"
#include "drivers/receiver/sound/sound_card.h"
#include "drivers/receiver/sound/sound_pace.h"

namespace hm16::receiver {

// Plays a ring of sound on a thread of its own. It only reads the ring, so the writer never waits
// for a sound card. Without a sound card it is silent and looks for one every few seconds.
class Loudspeaker {
 public:
    using OpenCard = std::function<std::unique_ptr<SoundCard>()>;

    // The ring must outlive it. `lookForCard`: how often to look for a missing card.
    explicit Loudspeaker(const SoundRing& ring, OpenCard open = SoundCard::open,
                         std::chrono::milliseconds lookForCard = std::chrono::seconds(3));
    ~Loudspeaker();
    Loudspeaker(const Loudspeaker&) = delete;
    Loudspeaker& operator=(const Loudspeaker&) = delete;

    // 0 to 100; 100 leaves the sound unchanged.
    void set(int volume, bool muted);

    struct State {
        bool playing = false;  // a sound card is open
        int volume = 50;
        bool muted = false;
    };
    State state() const;

 private:
    struct Shared;
    static void run(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
    std::thread thread_;
};

}  // namespace hm16::receiver
