// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace hm16::receiver {

// The ballistics of a programme meter on rms: a burst of 20 ms reads 0.2 dB low, and it falls back
// by 20 dB in 1.7 s, as meters of IEC 60268-10 type I do. Its window of 30 ms keeps it steady,
// within 0.1 dB, on every tone from 40 Hz up.
class ProgrammeLevel {
 public:
    static constexpr std::size_t kSteps = 30;
    // Short, so that no tone's beat aliases to a slower one.
    static constexpr double kStepSeconds = 0.001;

    // The mean square of the next step.
    void add(double meanSquare);

    double meanSquare() const { return shown_; }

 private:
    std::array<double, kSteps> recent_{};
    std::size_t next_ = 0;
    double shown_ = 0;
};

}  // namespace hm16::receiver
