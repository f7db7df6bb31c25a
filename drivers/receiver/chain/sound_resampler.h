// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace hm16::receiver {

// Left and right samples for a sound card; 1.0 is 75 kHz of deviation, before the de-emphasis.
struct StereoSample {
    float left = 0;
    float right = 0;
    bool operator==(const StereoSample&) const = default;
};

inline constexpr double kSoundHz = 48000;

// Converts from the chain's audio rate, about 50 kHz, to the 48 kHz of sound cards.
class SoundResampler {
 public:
    explicit SoundResampler(double audioHz);

    // Samples in Hz of deviation, as many left as right; appends the sound.
    void process(std::span<const float> left, std::span<const float> right,
                 std::vector<StereoSample>& out);

 private:
    double step_;       // audio samples for one sample of sound
    double place_ = 0;  // of the next one, counted from the first held sample
    std::vector<float> left_;
    std::vector<float> right_;
};

}  // namespace hm16::receiver
