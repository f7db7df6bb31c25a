// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <span>
#include <vector>

#include "drivers/receiver/dsp/decimator.h"

namespace hm16::receiver {

// From the band around 57 kHz to bits. There is no loop that would have to lock again after lost
// samples or a jump of phase: for each stretch of 10 ms the data's axis and the middles of its bits
// are found from what lies around it, on both sides or, where something jumped, on the side that
// the stretch belongs to. So bits come some 80 ms late.
class RdsBits {
 public:
    // `strength` tells how far the bit was from being the other one; `seconds` is its time.
    using OnBit = std::function<void(bool bit, float strength, double seconds)>;

    // `rateHz` of the band's samples; `startSeconds`: time of the first.
    RdsBits(double rateHz, double startSeconds, OnBit onBit);

    void add(std::span<const std::complex<float>> band);

 private:
    static constexpr std::size_t kAround = 8;  // points that are looked at on each side

    using Phasor = std::complex<double>;

    // Of the power of the matched filter's output.
    struct Lines {
        Phasor clock;   // at the bit rate
        Phasor clock2;  // and at twice that

        Lines& operator+=(const Lines& more) {
            clock += more.clock;
            clock2 += more.clock2;
            return *this;
        }
        // How well middles of bits at these turns of the bit clock fit, and where they fit best.
        double at(double turns) const;
        double middle() const;
    };
    // What a stretch of the matched filter's output tells, sign of the data aside.
    struct Point {
        Phasor squared;  // its phase is twice the axis'
        Lines lines;
    };
    // Points from `from` up to but not including `to`.
    struct Stretch {
        std::size_t from;
        std::size_t to;
    };
    struct Axis {
        double angle;
        double certainty;  // 0 to 1
    };

    void addPoint();
    void decodePoint(std::size_t point);
    void dropUsed();
    Axis axisIn(const Stretch& stretch, std::size_t point) const;
    double clockAt(std::size_t point);
    void decide(double angle, double turns);
    Phasor matchedAt(double sample) const;

    double rateHz_;
    double bitsPerSample_;
    std::size_t perPoint_;
    ComplexDecimator matchedFilter_;
    double startSeconds_;
    OnBit onBit_;

    std::vector<std::complex<float>> matched_;
    std::uint64_t firstMatched_ = 0;  // how many were dropped before it
    std::size_t inPoints_ = 0;        // of matched_, how many are in points
    Phasor clockTurn_ = 1;
    Point point_;
    std::size_t inPoint_ = 0;
    std::deque<Point> points_;  // kAround on each side of the middle one
    std::uint64_t pointsSoFar_ = 0;
    std::uint64_t decoded_ = 0;  // of them

    // The squared axis turns on from point to point, by the frequency error: products of points
    // one apart and four apart.
    Phasor turnOfOne_;
    Phasor turnOfFour_;
    double turnSize_ = 0;
    double turnPerPoint_ = 0;

    Lines past_;  // of the points decoded so far, fading
    double axis_ = 0;
    double lastSample_ = -1e9;
    float lastValue_ = 0;
};

}  // namespace hm16::receiver
