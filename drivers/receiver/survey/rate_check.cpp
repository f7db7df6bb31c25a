// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/survey/rate_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <vector>

#include "base/number_text.h"
#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"
#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/dsp/mixer.h"
#include "drivers/receiver/figures/spectrum.h"

namespace hm16::receiver {
namespace {

// Wide, since a station that is played too fast is as much wider.
constexpr double kChannelRateHz = 500e3;
constexpr double kPassHz = 150e3;
constexpr double kStopHz = 240e3;

constexpr std::size_t kLength = 32768;
constexpr double kLowestHz = 5e3;
constexpr double kHighestHz = 60e3;
// Of the line's frequency: sum and difference of a stereo station end that far away, at 15 and
// 23 kHz.
constexpr double kNothingFrom = 0.02;
constexpr double kNothingTo = 0.15;
constexpr double kAboveNothing = 300;  // 25 dB over all that lies there
constexpr double kAboveNeighbours = 100;

// Rates that radios and programs write, in thousands a second.
constexpr std::array kUsualKhz{
    200.,  240.,  250.,  256.,  300.,  384.,   400.,   480.,   500.,   512.,   600.,  625.,  768.,
    900.,  960.,  1000., 1024., 1152., 1200.,  1250.,  1400.,  1536.,  1800.,  1920., 2000., 2048.,
    2160., 2400., 2500., 2560., 2700., 2800.,  2880.,  3000.,  3072.,  3200.,  4000., 4800., 5000.,
    6000., 6400., 7680., 8000., 9600., 10000., 12000., 12500., 15360., 16000., 20000.};
constexpr double kClose = 0.004;

// Half the width of a line in bins.
constexpr double kLobe = 4;

std::vector<float> discriminated(std::span<const Sample> samples, double rateHz, double offsetHz,
                                 double& outRateHz) {
    const auto step = std::max<std::size_t>(1, static_cast<std::size_t>(rateHz / kChannelRateHz));
    const double stop = std::min(kStopHz, 0.48 * rateHz);
    ComplexDecimator channel(designLowPass(rateHz, stop * kPassHz / kStopHz, stop), step);
    std::vector<Sample> mixed(samples.begin(), samples.end());
    Mixer(offsetHz / rateHz).process(mixed);
    std::vector<Sample> out;
    channel.process(mixed, out);
    outRateHz = rateHz / static_cast<double>(step);
    std::vector<float> angle;
    angle.reserve(out.size());
    for (std::size_t n = 1; n < out.size(); ++n)
        angle.push_back(std::arg(out[n] * std::conj(out[n - 1])));
    return angle;
}

// Mean power over frequency.
std::vector<double> spectrumOf(const std::vector<float>& signal) {
    Spectrum spectrum(Spectrum::Input::Real, kLength, kLength);
    std::vector<double> sum(kLength / 2 + 1, 0.0);
    for (std::size_t from = 0; from + kLength <= signal.size(); from += kLength / 2) {
        const auto power = spectrum.power(std::span(signal).subspan(from, kLength));
        for (std::size_t k = 0; k < sum.size(); ++k) sum[k] += power[k];
    }
    return sum;
}

double sumOver(const std::vector<double>& power, double from, double to) {
    double sum = 0;
    const auto last = std::min(static_cast<std::size_t>(to), power.size() - 1);
    for (auto k = static_cast<std::size_t>(from); k <= last; ++k) sum += power[k];
    return sum;
}

// Where between two bins the line of a peak is: where its power is.
double placeOf(const std::vector<double>& power, std::size_t k) {
    const double left = power[k - 1], right = power[k + 1];
    return static_cast<double>(k) + (right - left) / std::max(left + power[k] + right, 1e-30);
}

// By how much a line stands above all that a pilot has beside it; 0 where there is no line.
double isolation(const std::vector<double>& power, std::size_t k) {
    if (power[k] < power[k - 1] || power[k] < power[k + 1]) return 0;
    const auto bin = static_cast<double>(k);
    const double line = sumOver(power, bin - kLobe, bin + kLobe);
    const double beside = sumOver(power, bin - 4 * kLobe, bin - 2 * kLobe) +
                          sumOver(power, bin + 2 * kLobe, bin + 4 * kLobe);
    if (line < kAboveNeighbours * beside) return 0;
    const double below = sumOver(power, bin * (1 - kNothingTo), bin * (1 - kNothingFrom));
    const double above = sumOver(power, bin * (1 + kNothingFrom), bin * (1 + kNothingTo));
    return line / std::max(below + above, 1e-30);
}

std::optional<double> usualRateNear(double hz) {
    const auto found = std::find_if(kUsualKhz.begin(), kUsualKhz.end(), [&](double khz) {
        return std::fabs(hz / (1e3 * khz) - 1) < kClose;
    });
    return found == kUsualKhz.end() ? std::nullopt : std::optional(1e3 * *found);
}

}  // namespace

std::optional<double> seemingPilotHz(std::span<const Sample> samples, double rateHz,
                                     double offsetHz) {
    double angleRateHz = 0;
    const auto angle = discriminated(samples, rateHz, offsetHz, angleRateHz);
    if (angle.size() < 2 * kLength) return std::nullopt;
    const auto power = spectrumOf(angle);
    const double binHz = angleRateHz / static_cast<double>(kLength);
    std::optional<double> best;
    double bestRatio = kAboveNothing;
    for (auto k = static_cast<std::size_t>(kLowestHz / binHz);
         k + 1 < power.size() && static_cast<double>(k) * binHz < kHighestHz; ++k) {
        const double hz = placeOf(power, k) * binHz;
        // Tones of a programme stand alone as well: only what would be a pilot counts.
        const bool inPlace = std::fabs(hz / kPilotHz - 1) < kClose;
        if (!inPlace && !usualRateNear(rateHz * kPilotHz / hz)) continue;
        const double ratio = isolation(power, k);
        if (inPlace && ratio > kAboveNothing) return hz;
        if (ratio <= bestRatio) continue;
        bestRatio = ratio;
        best = hz;
    }
    return best;
}

std::string rateFault(const std::string& name, double rateHz, double pilotHz) {
    if (std::fabs(pilotHz / kPilotHz - 1) < 2 * kClose) return "";
    const auto usual = usualRateNear(rateHz * kPilotHz / pilotHz);
    if (!usual) return "";
    return name + " is played at " + base::decimalText(rateHz, 0) +
           " samples a second, but the pilot of its strongest station then stands at " +
           base::decimalText(pilotHz / 1e3, 2) + " kHz: at " + base::decimalText(*usual, 0) +
           " it would stand at 19 kHz.";
}

}  // namespace hm16::receiver
