// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace hm16::receiver {

// Several rays with different delays make a channel's gain depend on the frequency, so the envelope
// of an FM signal follows its deviation: equal deviation, equal envelope. Noise changes the
// envelope, too, but at random. So the mean envelope is calculated for each 2 kHz of deviation, and
// its variation over them, in percent rms, is the figure.
//
// A ray with a delay d beats with the direct one by the phase through which the carrier has turned
// in d, so the envelope follows the mean deviation over the last d. In a programme of high
// frequencies that differs from the present deviation. So means over several delays are tried, and
// the one that leaves the least unexplained is used; another delay is tried in each slot.
class Multipath {
 public:
    // `rateHz` of the samples.
    explicit Multipath(double rateHz);

    // As many values of frequency in Hz as of envelope; frequency n is that from sample n to the
    // next. `reachHz`: the channel filter is flat up to here.
    void add(std::span<const float> frequency, std::span<const float> envelope, double carrierHz,
             double reachHz);

    // Ends a slot: what was added becomes part of the last half second. A change of level from slot
    // to slot is not caused by the channel and is removed.
    void endSlot();

    double percent() const;

    // The delay in seconds that explains most.
    double delaySeconds() const;

 private:
    static constexpr std::size_t kBins = 160;
    static constexpr double kBinHz = 2000;
    static constexpr std::size_t kStep = 3;  // samples between looks

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

    std::vector<float> frequency_;  // not examined yet
    std::vector<float> envelope_;
    std::vector<double> turned_;  // sums of frequency up to each look, from the longest delay on
    std::vector<float> looks_;    // the envelope there
};

}  // namespace hm16::receiver
