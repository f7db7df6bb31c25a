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

// From the band around 57 kHz to bits. No loop has to lock again after lost samples or a phase
// jump: for each stretch of 10 ms the data's axis and the bit timing are found from the signal on
// both sides of it or, next to a jump, on the side to which the stretch belongs. So bits come about
// 80 ms late.
class RdsBits {
 public:
    // `strength` tells how far the bit was from the other value; `seconds` is its time.
    using OnBit = std::function<void(bool bit, float strength, double seconds)>;

    // `rateHz` of the band's samples; `startSeconds`: time of the first.
    RdsBits(double rateHz, double startSeconds, OnBit onBit);

    void add(std::span<const std::complex<float>> band);

 private:
    static constexpr std::size_t kAround = 8;  // points examined on each side

    using Phasor = std::complex<double>;

    // As a share of the power after the matched filter.
    struct Lines {
        Phasor clock;   // at the bit rate
        Phasor clock2;  // and at twice that

        Lines& operator+=(const Lines& more) {
            clock += more.clock;
            clock2 += more.clock2;
            return *this;
        }
        // How well the bit timing fits at these phases of the bit clock, and the phase at which it
        // fits best.
        double at(double turns) const;
        double middle() const;
    };
    // What a stretch after the matched filter shows, whatever the data's sign.
    struct Point {
        Phasor squared;  // its phase is twice the axis'
        Lines lines;
    };
    // Points [from, to).
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
    std::uint64_t firstMatched_ = 0;  // number of points dropped before it
    std::size_t inPoints_ = 0;        // number of samples of matched_ that are in points
    Phasor clockTurn_ = 1;
    Point point_;
    std::size_t inPoint_ = 0;
    std::deque<Point> points_;  // kAround on each side of the middle one
    std::uint64_t pointsSoFar_ = 0;
    std::uint64_t decoded_ = 0;  // of them

    // The frequency error turns the squared axis from point to point: products of points one apart
    // and four apart.
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
