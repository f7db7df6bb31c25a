// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <mutex>
#include <span>
#include <vector>

namespace hm16 {

// The range of a sweep. Frequencies in units of 100 kHz.
struct SweepRange {
    double start = 0;
    double stop = 0;
    int stepKhz = 25;

    // Number of points, both ends counted in; 0 when stop lies below start.
    int points() const;
    // The frequency of a point, counted from 0; computed from its number, so that rounding errors
    // do not add up.
    double frequency(int point) const;
};

// The levels of all sweep frames since the library was opened: a frame replaces what it covers. It
// stays after the sweep was stopped. Safe to fill from one thread and to ask from another.
class SweepStore {
 public:
    // `noiseFloor` in dB over a microvolt: the answer for a frequency that no frame has covered.
    explicit SweepStore(float noiseFloor);

    // Takes a frame, with one level for each point of `range`. A point covers half a step on each
    // side.
    void takeFrame(const SweepRange& range, std::span<const float> levels);

    // True if frames arrived since the last call; only the newest can be read.
    bool frameArrived();

    // Clears the notice of a frame, but not its levels: before a new sweep.
    void forgetArrival();

    // Level at a frequency in units of 100 kHz.
    float level(double frequency) const;

 private:
    const float noiseFloor_;
    mutable std::mutex mutex_;
    std::vector<float> cells_;
    bool arrived_ = false;
};

}  // namespace hm16
