// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/band_meter.h"

#include <algorithm>
#include <cmath>

#include "drivers/receiver/library/readings_of.h"

namespace hm16::receiver {
namespace {

constexpr double kHzPerUnit = 100e3;
constexpr double kLevelSeconds = 0.01;

}  // namespace

BandMeter::BandMeter(const ReceiverOptions& options, SignalReader& signal)
    : dbuvAtFullScale_(options.dbuvAtFullScale),
      stepDb_(options.levelStepDb),
      signal_(signal),
      levels_(signal.rateHz(), signal.centreHz()),
      converter_(signal.source().converterStep()) {}

std::span<const Sample> BandMeter::look(double seconds) {
    const double least = static_cast<double>(BandLevels::kLength) / signal_.rateHz();
    const auto stretch = signal_.read(std::max(seconds, least));
    levels_.measure(stretch);
    return stretch;
}

bool BandMeter::tuneTo(double hz) {
    if (!signal_.retune(hz)) return false;
    follow();
    // What a radio had under way still lies where it was tuned before.
    signal_.read(kLevelSeconds);
    return true;
}

float BandMeter::levelOf(double power) const {
    if (power <= 0) return kNothingThere;
    const double level = 10 * std::log10(power) + dbuvAtFullScale_;
    return static_cast<float>(stepped(std::max<double>(kNothingThere, level), stepDb_));
}

std::optional<float> BandMeter::levelAt(double hz) {
    if (signal_.source().domain() == Domain::Composite) return kNothingThere;
    if (!signal_.covers(hz)) tuneTo(hz);
    converter_.look(look(kLevelSeconds));
    if (signal_.ended()) return std::nullopt;
    return levelOf(converter_.powerBefore(levels_.powerAt(hz, kChannelHz)));
}

std::optional<std::vector<float>> BandMeter::frame(const SweepRange& range) {
    if (signal_.source().domain() == Domain::Composite) return std::nullopt;
    const bool live = signal_.source().live();
    const bool tunable = signal_.source().tunable();
    const double width = std::min(range.stepKhz * 1e3, kChannelHz);
    std::vector<float> levels(static_cast<std::size_t>(range.points()));
    bool fresh = false;
    for (int point = 0; point < range.points(); ++point) {
        const double hz = range.frequency(point) * kHzPerUnit;
        if (tunable && !levels_.covers(hz, width)) {
            // A radio a quarter of the band further on, so that the next points lie in it too.
            if (tuneTo(live ? hz + signal_.rateHz() / 4 : hz)) look(kLevelSeconds);
            fresh = true;
        } else if (!fresh) {
            look(kFrameLookSeconds);
            fresh = true;
        }
        if (signal_.ended()) return std::nullopt;
        levels[static_cast<std::size_t>(point)] = levelOf(levels_.powerAt(hz, width));
    }
    return levels;
}

bool BandMeter::covers(const SweepRange& range) const {
    const double width = std::min(range.stepKhz * 1e3, kChannelHz);
    return range.points() > 0 && levels_.covers(range.frequency(0) * kHzPerUnit, width) &&
           levels_.covers(range.frequency(range.points() - 1) * kHzPerUnit, width);
}

}  // namespace hm16::receiver
