// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace hm16::receiver {

// From the data signal along its axis to bits. The bit clock is the subcarrier divided by 48, so
// only its phase has to be found: of 16 phases the one at which the matched filter's output is
// strongest.
class RdsBits {
 public:
    explicit RdsBits(std::function<void(bool bit)> onBit) : onBit_(std::move(onBit)) {}

    // A sample and its time, counted in bits since the start; times rise.
    void add(double bits, float value);

    // Takes the bits out of all samples so far that have their neighbours.
    void decide();

 private:
    static constexpr std::size_t kPhases = 16;

    struct Timed {
        double bits;
        float value;
    };

    // Matched filter's output for a bit whose middle lies at `middle`.
    double matched(double middle) const;

    std::function<void(bool bit)> onBit_;
    std::vector<Timed> samples_;
    std::array<double, kPhases> energy_{};
    std::size_t phase_ = 0;
    std::int64_t nextBit_ = 0;
    bool started_ = false;
    bool lastSign_ = false;
};

}  // namespace hm16::receiver
