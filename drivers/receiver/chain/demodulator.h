// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"

namespace hm16::receiver {

// The upper end of the multiplex: ITU-R SM.1268 measures peaks below a limit of 76 to 100 kHz.
enum class PeakEdge {
    At80,   // flat to 60 kHz, -6 dB at 80: least noise
    At100,  // flat to 100 kHz, for stations with subcarriers up there
};

// The low-pass of the multiplex at `rateHz`; the droop of a discriminator is taken out if asked.
enum class Droop { None, Discriminator };
std::vector<double> compositeTaps(double rateHz, Droop droop, PeakEdge edge);

// From the channel to its instantaneous frequency, and from that to the multiplex in Hz. A
// discriminator averages over one sample; the low-pass filter corrects that droop.
class Demodulator {
 public:
    Demodulator(const Rates& rates, PeakEdge edge);

    // Appends to both: frequency in Hz and envelope, one each for every sample of the channel.
    void discriminate(std::span<const Sample> channel, std::vector<float>& frequency,
                      std::vector<float>& envelope);

    // Appends the multiplex in Hz at its own rate.
    void lowPass(std::span<const float> frequency, std::vector<float>& composite);

    // The same, flat to 100 kHz whatever the peaks' edge is.
    void wideLowPass(std::span<const float> frequency, std::vector<float>& wide);

    // The number of channel samples for one sample of the multiplex.
    std::size_t length() const { return lowPass_.length(); }
    double delay() const { return lowPass_.delay(); }

 private:
    double channelHz_;
    RealDecimator lowPass_;
    RealDecimator wideLowPass_;
    std::vector<Sample> held_;
};

}  // namespace hm16::receiver
