// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace hm16::receiver {

// Several rays that arrive one after the other make a channel's gain depend on the frequency, so
// the envelope of an FM signal follows its deviation: the same deviation, the same envelope. Noise
// makes the envelope vary too, but never twice alike. So the mean envelope is taken for each 2 kHz
// of deviation, and its variation over them, in percent rms, is the figure.
//
// A ray that is late by d beats with the direct one by the phase that the carrier has run through
// in d: it is the mean deviation over the last d that the envelope follows. With programme of high
// frequencies that is not the deviation of the moment. So the mean is taken over the one of several
// times that leaves least unexplained; one of the others is tried in each slot.
class Multipath {
 public:
    // `rateHz` of the samples.
    explicit Multipath(double rateHz);

    // Equally many values of frequency in Hz and envelope; frequency n is that from sample n to the
    // next. `reachHz`: up to where the channel filter is flat enough for a fair envelope.
    void add(std::span<const float> frequency, std::span<const float> envelope, double carrierHz,
             double reachHz);

    // Ends a slot: what was added becomes part of the last half second. A change of level from slot
    // to slot is none of the channel's; it is taken out.
    void endSlot();

    double percent() const;

    // Delay in seconds that explains most.
    double delaySeconds() const;

 private:
    static constexpr std::size_t kBins = 160;
    static constexpr double kBinHz = 2000;
    static constexpr std::size_t kStep = 3;  // samples from look to look

    struct Bins {
        std::array<float, kBins> count{};
        std::array<float, kBins> sum{};
        std::array<float, kBins> squares{};

        void add(const Bins& slot, float level, float kept);
    };
    struct Moments {
        double weight = 0;
        double mean = 0;
        double within = 0;
        double between = 0;
    };
    struct Delay {
        Bins bins;
        double unexplained = 1;  // share of the envelope's variation
        bool tried = false;
    };

    static Moments momentsOf(const Bins& bins);
    void look(std::size_t delay, Bins& into, float carrier, float reach) const;
    void settle(std::size_t delay, const Bins& slot, float kept);

    double rateHz_;
    std::vector<Delay> delays_;  // n: over n + 1 steps
    std::size_t best_ = 0;
    std::size_t tried_ = 0;
    Bins bestSlot_;
    Bins triedSlot_;

    std::vector<float> frequency_;  // not yet looked at
    std::vector<float> envelope_;
    std::vector<double> turned_;  // sums of frequency up to each look, the longest delay before
    std::vector<float> looks_;    // the envelope there
};

}  // namespace hm16::receiver
