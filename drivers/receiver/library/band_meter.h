// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "drivers/receiver/library/band_levels.h"
#include "drivers/receiver/library/coarse_converter.h"
#include "drivers/receiver/library/signal_reader.h"
#include "drivers/unit/sweep_store.h"

namespace hm16::receiver {

// The reading at a frequency without any signal, in dBuV.
inline constexpr float kNothingThere = 0;

// The length of signal for a frame.
inline constexpr double kFrameLookSeconds = 0.025;

// Single levels and sweep frames, in dB over a microvolt in the steps of the settings.
class BandMeter {
 public:
    BandMeter(const ReceiverOptions& options, SignalReader& signal);

    // Power of the channel at `hz`; nothing when the signal has ended. A radio that does not cover
    // it is tuned to it and stays there.
    std::optional<float> levelAt(double hz);

    // The levels of all points, each in the width of a step or of a channel, whichever is less;
    // nothing when the signal has ended, or if it is a composite signal, which has no band.
    std::optional<std::vector<float>> frame(const SweepRange& range);

    // True when a frame of that range needs no tuning.
    bool covers(const SweepRange& range) const;

    // Must be called when the radio was tuned by something else.
    void follow() { levels_.setCentre(signal_.centreHz()); }

 private:
    std::span<const Sample> look(double seconds);
    bool tuneTo(double hz);
    float levelOf(double power) const;

    const double dbuvAtFullScale_;
    const double stepDb_;
    SignalReader& signal_;
    BandLevels levels_;
    CoarseConverter converter_;
};

}  // namespace hm16::receiver
