// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/samples/sound_recording.h"

#include <sndfile.h>

#include <cmath>
#include <cstdint>
#include <span>
#include <string>

#include "drivers/receiver/samples/recording_file.h"

namespace hm16::receiver {
namespace {

// Up to here a rate is one of sound.
constexpr int kHighestSoundRate = 96000;

}  // namespace

struct SoundRecording::Handle {
    SNDFILE* file = nullptr;
    ~Handle() {
        if (file) sf_close(file);
    }
};

SoundRecording::SoundRecording(const std::filesystem::path& file, SoundContent content,
                               double rateHz, double centreHz)
    : handle_(std::make_unique<Handle>()),
      content_(content),
      rateHz_(rateHz),
      centreHz_(content == SoundContent::Iq ? centreHz : 0) {
    const std::string name = file.string();
    requireFile(file);
    SF_INFO info{};
    handle_->file = sf_open(name.c_str(), SFM_READ, &info);
    if (!handle_->file) {
        // libsndfile's own words end in a full stop already.
        throw SourceError(name + " cannot be read as a sound file: " + sf_strerror(nullptr));
    }
    channels_ = info.channels;
    if (content == SoundContent::Iq && rateHz <= 0 && info.samplerate <= kHighestSoundRate) {
        throw SourceError(name + " is sound of " + std::to_string(info.samplerate) +
                          " samples a second, not a recording of a band.");
    }
    if (content == SoundContent::Iq && channels_ != 2) {
        throw SourceError(name + " has " + std::to_string(channels_) +
                          (channels_ == 1 ? " channel" : " channels") + "; I and Q need two.");
    }
    if (rateHz_ <= 0) rateHz_ = info.samplerate;
    length_ = info.frames > 0 ? static_cast<std::uint64_t>(info.frames) : 0;
    if (length_ == 0) throw SourceError(name + " holds no samples.");
}

SoundRecording::~SoundRecording() = default;

Domain SoundRecording::domain() const {
    return content_ == SoundContent::Iq ? Domain::Band : Domain::Composite;
}

std::size_t SoundRecording::read(std::span<Sample> into) {
    const auto channels = static_cast<std::size_t>(channels_);
    frames_.resize(into.size() * channels);
    const sf_count_t got =
        sf_readf_float(handle_->file, frames_.data(), static_cast<sf_count_t>(into.size()));
    const std::size_t whole = got > 0 ? static_cast<std::size_t>(got) : 0;
    for (std::size_t i = 0; i < whole; ++i) {
        const float first = frames_[i * channels];
        const float second = content_ == SoundContent::Iq ? frames_[i * channels + 1] : 0;
        const bool good = std::isfinite(first) && std::isfinite(second);
        into[i] = good ? Sample(first, second) : Sample();
        if (!good) ++bad_;
    }
    return whole;
}

void SoundRecording::rewind() {
    sf_seek(handle_->file, 0, SEEK_SET);
}

}  // namespace hm16::receiver
