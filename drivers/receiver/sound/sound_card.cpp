// SPDX-License-Identifier: GPL-3.0-or-later
// ALSA, through which the sound servers of today are reached as well. Of its header the build takes
// the signatures alone, the library is looked for when the program runs.
#include "drivers/receiver/sound/sound_card.h"

#include <string>
#include <utility>

#if defined(__linux__)
#include <alsa/asoundlib.h>

#include "base/shared_object.h"
#endif

namespace hm16::receiver {

#if defined(__linux__)

namespace {

constexpr unsigned kLatencyMicroseconds = 100000;
static_assert(sizeof(StereoSample) == 2 * sizeof(float), "as a card takes it");

// What ALSA would write to standard error about a machine without sound.
void sayNothing(const char*, int, const char*, int, const char*, ...) {}

// The functions that are needed, found in the library.
class AlsaLibrary {
 public:
    AlsaLibrary() {
        const auto take = [this](const char* name, auto& function) {
            return object_.take(name, function);
        };
        isWhole_ = take("snd_pcm_open", open) && take("snd_pcm_nonblock", nonblock) &&
                   take("snd_pcm_set_params", setParams) && take("snd_pcm_writei", write) &&
                   take("snd_pcm_recover", recover) && take("snd_pcm_delay", delay) &&
                   take("snd_pcm_drop", drop) && take("snd_pcm_close", close) &&
                   take("snd_lib_error_set_handler", setErrorHandler);
        if (isWhole_) setErrorHandler(sayNothing);
    }
    ~AlsaLibrary() {
        if (isWhole_) setErrorHandler(nullptr);
    }
    AlsaLibrary(const AlsaLibrary&) = delete;
    AlsaLibrary& operator=(const AlsaLibrary&) = delete;
    bool isWhole() const { return isWhole_; }

    decltype(&snd_pcm_open) open = nullptr;
    decltype(&snd_pcm_nonblock) nonblock = nullptr;
    decltype(&snd_pcm_set_params) setParams = nullptr;
    decltype(&snd_pcm_writei) write = nullptr;
    decltype(&snd_pcm_recover) recover = nullptr;
    decltype(&snd_pcm_delay) delay = nullptr;
    decltype(&snd_pcm_drop) drop = nullptr;
    decltype(&snd_pcm_close) close = nullptr;

 private:
    decltype(&snd_lib_error_set_handler) setErrorHandler = nullptr;
    std::string reason_;
    base::SharedObject object_ = base::SharedObject::open("libasound.so.2", reason_);
    bool isWhole_ = false;
};

class AlsaCard : public SoundCard {
 public:
    // Empty where there is no card.
    AlsaCard() {
        if (!alsa_.isWhole()) return;
        if (alsa_.open(&pcm_, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) != 0) {
            pcm_ = nullptr;
            return;
        }
        const bool fits =
            alsa_.setParams(pcm_, SND_PCM_FORMAT_FLOAT_LE, SND_PCM_ACCESS_RW_INTERLEAVED, 2,
                            static_cast<unsigned>(kSoundHz), 1, kLatencyMicroseconds) == 0 &&
            alsa_.nonblock(pcm_, 0) == 0;
        if (!fits) close();
    }
    ~AlsaCard() override { close(); }

    bool isOpen() const { return pcm_ != nullptr; }

    bool play(std::span<const StereoSample> sound) override {
        while (!sound.empty()) {
            const snd_pcm_sframes_t played = alsa_.write(pcm_, sound.data(), sound.size());
            if (played > 0) {
                sound = sound.subspan(static_cast<std::size_t>(played));
            } else if (alsa_.recover(pcm_, static_cast<int>(played), 1) != 0) {
                return false;
            }
        }
        return true;
    }

    std::size_t waiting() override {
        snd_pcm_sframes_t frames = 0;
        return alsa_.delay(pcm_, &frames) == 0 && frames > 0 ? static_cast<std::size_t>(frames) : 0;
    }

 private:
    void close() {
        if (!pcm_) return;
        alsa_.drop(pcm_);
        alsa_.close(pcm_);
        pcm_ = nullptr;
    }

    AlsaLibrary alsa_;
    snd_pcm_t* pcm_ = nullptr;
};

}  // namespace

std::unique_ptr<SoundCard> SoundCard::open() {
    auto card = std::make_unique<AlsaCard>();
    if (!card->isOpen()) return nullptr;
    return card;
}

#else

// Only ALSA is known here.
std::unique_ptr<SoundCard> SoundCard::open() {
    return nullptr;
}

#endif

}  // namespace hm16::receiver
