// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// The signal that a sound file contains.
enum class SoundContent {
    Iq,         // two channels: I and Q
    Composite,  // the first channel is the multiplex
};

// A recording in a sound file (WAV, FLAC and other formats that libsndfile reads).
class SoundRecording : public SampleSource {
 public:
    // Throws SourceError if the file is missing, is no sound file, has no samples or, for I and Q,
    // has not two channels. `rateHz` of 0 takes the file's own rate: the field of a WAV file is
    // usually right, but some programs cannot write it above 192 kHz.
    SoundRecording(const std::filesystem::path& file, SoundContent content, double rateHz,
                   double centreHz);
    ~SoundRecording() override;

    Domain domain() const override;
    double rateHz() const override { return rateHz_; }
    double centreHz() const override { return centreHz_; }
    std::size_t read(std::span<Sample> into) override;
    void rewind() override;
    std::uint64_t length() const override { return length_; }
    std::uint64_t badSamples() const override { return bad_; }

 private:
    struct Handle;

    std::unique_ptr<Handle> handle_;
    SoundContent content_;
    double rateHz_;
    double centreHz_;
    int channels_ = 0;
    std::vector<float> frames_;
    std::uint64_t length_ = 0;
    std::uint64_t bad_ = 0;
};

}  // namespace hm16::receiver
