// SPDX-License-Identifier: GPL-3.0-or-later
// ALSA, through which the sound servers of today are reached as well. The signatures are those of
// its documentation.
#include "drivers/receiver/sound/sound_card.h"

#include <utility>

#if defined(__linux__)
#include "base/shared_object.h"
#endif

namespace hm16::receiver {

#if defined(__linux__)

namespace {

struct AlsaPcm;

constexpr int kPlayback = 0;
constexpr int kNonBlocking = 1;
constexpr int kFloatLittleEndian = 14;
constexpr int kInterleaved = 3;
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

    int (*open)(AlsaPcm**, const char* name, int stream, int mode) = nullptr;
    int (*nonblock)(AlsaPcm*, int) = nullptr;
    int (*setParams)(AlsaPcm*, int format, int access, unsigned channels, unsigned rate,
                     int resample, unsigned latency) = nullptr;
    long (*write)(AlsaPcm*, const void*, unsigned long frames) = nullptr;
    int (*recover)(AlsaPcm*, int error, int silent) = nullptr;
    int (*delay)(AlsaPcm*, long*) = nullptr;
    int (*drop)(AlsaPcm*) = nullptr;
    int (*close)(AlsaPcm*) = nullptr;

 private:
    using ErrorHandler = void (*)(const char*, int, const char*, int, const char*, ...);
    int (*setErrorHandler)(ErrorHandler) = nullptr;
    std::string reason_;
    base::SharedObject object_ = base::SharedObject::open("libasound.so.2", reason_);
    bool isWhole_ = false;
};

class AlsaCard : public SoundCard {
 public:
    // Empty where there is no card.
    AlsaCard() {
        if (!alsa_.isWhole()) return;
        if (alsa_.open(&pcm_, "default", kPlayback, kNonBlocking) != 0) {
            pcm_ = nullptr;
            return;
        }
        const bool fits =
            alsa_.setParams(pcm_, kFloatLittleEndian, kInterleaved, 2,
                            static_cast<unsigned>(kSoundHz), 1, kLatencyMicroseconds) == 0 &&
            alsa_.nonblock(pcm_, 0) == 0;
        if (!fits) close();
    }
    ~AlsaCard() override { close(); }

    bool isOpen() const { return pcm_ != nullptr; }

    bool play(std::span<const StereoSample> sound) override {
        while (!sound.empty()) {
            const long played = alsa_.write(pcm_, sound.data(), sound.size());
            if (played > 0) {
                sound = sound.subspan(static_cast<std::size_t>(played));
            } else if (alsa_.recover(pcm_, static_cast<int>(played), 1) != 0) {
                return false;
            }
        }
        return true;
    }

    std::size_t waiting() override {
        long frames = 0;
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
    AlsaPcm* pcm_ = nullptr;
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
