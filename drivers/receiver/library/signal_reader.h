// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "drivers/receiver/library/receiver_options.h"
#include "drivers/receiver/library/signal_clock.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// Width of a broadcast channel.
inline constexpr double kChannelHz = 200e3;

using Loss = SampleSource::Loss;

// Reads the source piece by piece, repeatedly if the settings say so; keeps the signal's time, and
// corrects rate and centre for the clock's error.
class SignalReader {
 public:
    SignalReader(const ReceiverOptions& options, std::unique_ptr<SampleSource> source);

    const SampleSource& source() const { return *source_; }
    const SignalClock& clock() const { return clock_; }

    // The true values.
    double rateHz() const { return rateHz_; }
    double centreHz() const;

    // True if the samples contain the channel at `hz`.
    bool covers(double hz) const;

    // Tunes the source so that `hz` is within its samples, if it can be tuned.
    bool retune(double hz) { return source_->tunable() && source_->retune(hz); }

    // Called with all samples that are read, for any purpose, and with the losses in them.
    using Listener = std::function<void(std::span<const Sample>, std::span<const Loss>)>;
    void onRead(Listener listener) { onRead_ = std::move(listener); }

    // The next so many seconds, in memory that is valid until the next call; fewer if the signal
    // ends meanwhile, nothing after its end.
    std::span<const Sample> read(double seconds);

    // How many samples that are.
    std::size_t samplesIn(double seconds) const;

    // True once the signal has ended or its source has failed. Only a radio can come back.
    bool ended() const { return ended_; }

    // Continues when a lost radio sends again, reports that, and returns true.
    bool comeBack();

    // The reason why it ended, as a sentence; empty before.
    const std::string& lastWords() const { return lastWords_; }

 private:
    void fill();
    std::size_t readSource(std::size_t done);

    const std::string name_;
    const AtEnd atEnd_;
    const double clockFactor_;
    const double compositeHz_;  // the one frequency of a composite source, 0 for every one
    std::unique_ptr<SampleSource> source_;
    double rateHz_;
    SignalClock clock_;
    bool ended_ = false;
    std::string lastWords_;
    std::vector<Sample> stretch_;
    std::vector<Loss> losses_;  // of the stretch
    Listener onRead_;
};

}  // namespace hm16::receiver
