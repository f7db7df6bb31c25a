// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>

#include "base/number_text.h"
#include "drivers/receiver/library/open_source.h"
#include "drivers/receiver/library/unit_call.h"

namespace hm16::receiver {
namespace {

std::string inMhz(double hz) {
    return base::decimalText(hz / 1e6, 6) + " MHz";
}

// What is taken out of the samples, in dB and degrees.
std::string balanceText(const SampleFault& fault) {
    const double constant = std::abs(fault.constant);
    return "corrected in the samples: Q by " + base::decimalText(20 * std::log10(fault.gain), 2) +
           " dB and " + base::decimalText(std::asin(fault.skew) * 180 / std::numbers::pi, 2) +
           " degrees, a constant " +
           (constant > 0 ? base::decimalText(-20 * std::log10(constant), 1) + " dB below full scale"
                         : std::string("of none")) +
           "\n";
}

std::string programmeText(const Figures& figures) {
    if (!figures.rdsProgramme) return "none";
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%04X", static_cast<unsigned>(*figures.rdsProgramme));
    return text.data();
}

// Letters of a station's name; what is no plain letter shows as a point.
std::string plain(std::string name) {
    for (char& c : name)
        if (c < ' ' || c > '~') c = '.';
    return name;
}

}  // namespace

std::string ReceiverUnit::report() const {
    const Call call(*this);
    const SampleSource& source = signal_.source();
    std::string text = "source: " + nameOf(options_) + "\n";
    text += "sample rate: " + base::decimalText(source.rateHz(), 1) + " Hz\n";
    if (source.domain() == Domain::Band) text += "centre: " + inMhz(source.centreHz()) + "\n";
    text += "signal read: " + base::decimalText(signal_.clock().seconds(), 2) + " s" +
            (signal_.ended() ? ", ended" : "") + "\n";
    if (source.badSamples() > 0)
        text += "samples that were no numbers: " + std::to_string(source.badSamples()) + "\n";
    if (source.live()) text += "samples lost: " + std::to_string(source.timesLost()) + " times\n";
    const Figures& figures = heard_.figures;
    text += "tuned: " + inMhz(tuning_.frequency * 1e5) + (figures.carrier ? "" : ", no carrier") +
            (figures.stereo ? ", stereo" : "") +
            (figures.narrow ? ", narrow filter for a strong neighbour" : "") + "\n";
    if (overloaded_ > 0)
        text += "slots with samples at the converter's end: " + std::to_string(overloaded_) + "\n";
    if (balance_.corrects()) text += balanceText(balance_.fault());
    text += "rds programme: " + programmeText(figures) + "\n";
    text += "rds name: " + (figures.rdsName.empty() ? "none" : plain(figures.rdsName)) + "\n";
    text += "rds blocks: " + std::to_string(figures.rdsGoodBlocks) + " good, " +
            std::to_string(figures.rdsCorrectedBlocks) + " corrected, " +
            std::to_string(figures.rdsBadBlocks) + " bad\n";
    text += "gaps: " + std::to_string(disturbances_.gaps) + " with " +
            std::to_string(disturbances_.lostSamples) +
            " samples lost, bursts: " + std::to_string(disturbances_.bursts) + "\n";
    return text;
}

}  // namespace hm16::receiver
