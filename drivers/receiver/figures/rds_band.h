// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <deque>
#include <span>

namespace hm16::receiver {

// RDS suppresses its carrier, so there is no line at 57 kHz to measure. Squaring the band's samples
// removes the data's signs and leaves a line at twice the frequency error. The line's phase gives
// the axis on which the data lies, its strength the level without the noise, which is as strong
// across the axis as along it.
class RdsBand {
 public:
    // `rateHz` of the band's samples; `startSeconds`: time of the first.
    RdsBand(double rateHz, double startSeconds);

    // Samples of the band around 57 kHz, in Hz of deviation.
    void add(std::span<const std::complex<float>> band);

    // Updates the figures with the last second.
    void update();

    // True when there is data on the subcarrier.
    bool present() const { return present_; }

    double errorHz() const { return errorHz_; }

    // Peak deviation in Hz of the subcarrier: of its in-phase part, noise taken out.
    double levelHz() const;

    // The mean square deviation that RDS adds to the multiplex.
    double meanSquare() const;

    // Phase of the data's axis in radians; half a turn is undecided.
    double axisAt(double seconds) const;

 private:
    struct Point {
        double seconds;
        std::complex<double> squared;
        double power;
        double phase;
    };

    double rateHz_;
    double seconds_;
    std::size_t perPoint_;
    std::size_t inPoint_ = 0;
    std::complex<double> squared_;
    double power_ = 0;
    std::deque<Point> points_;
    bool present_ = false;
    double errorHz_ = 0;
    double amplitudeSquared_ = 0;  // along the axis, mean of the band's samples
    double linePhase_ = 0;
    double lineSlope_ = 0;
    double lineTime_ = 0;
};

// Peak over rms of a long RDS data signal, which follows from the shape of its pulse.
double rdsCrestFactor();

}  // namespace hm16::receiver
