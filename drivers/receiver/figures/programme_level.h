// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace hm16::receiver {

// A programme meter's ballistics on rms: it rises within 20 ms and falls back by 20 dB in 1.7 s,
// as the meters of IEC 60268-10 type I do. The 20 ms also make it stand still on every tone from
// 50 Hz up.
class ProgrammeLevel {
 public:
    // Mean square of the next 5 ms.
    void add(double meanSquare);

    double meanSquare() const { return shown_; }

 private:
    std::array<double, 4> recent_{};
    std::size_t next_ = 0;
    double shown_ = 0;
};

}  // namespace hm16::receiver
