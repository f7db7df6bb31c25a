// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/signal_reader.h"

#include <cmath>
#include <utility>

#include "drivers/receiver/library/open_source.h"

namespace hm16::receiver {
namespace {

// The program tunes in floats of 100 kHz; a composite recording stands for one such frequency.
constexpr double kSameHz = 25e3;

constexpr double kLongRecordingSeconds = 1;

}  // namespace

SignalReader::SignalReader(const ReceiverOptions& options, std::unique_ptr<SampleSource> source)
    : name_(nameOf(options)),
      atEnd_(options.atEnd),
      clockFactor_(1 + options.clockPpm * 1e-6),
      compositeHz_(options.centreHz),
      source_(std::move(source)),
      rateHz_(source_->rateHz() * clockFactor_),
      clock_(source_->rateHz()) {}

// A clock that runs fast makes the radio's own oscillator stand too high by as much.
double SignalReader::centreHz() const {
    return source_->centreHz() * clockFactor_;
}

bool SignalReader::covers(double hz) const {
    if (source_->domain() == Domain::Composite)
        return compositeHz_ <= 0 || std::fabs(hz - compositeHz_) < kSameHz;
    return std::fabs(hz - centreHz()) + kChannelHz / 2 <= rateHz_ / 2;
}

std::size_t SignalReader::samplesIn(double seconds) const {
    return static_cast<std::size_t>(std::lround(seconds * rateHz_));
}

std::span<const Sample> SignalReader::read(double seconds) {
    stretch_.resize(ended_ ? 0 : samplesIn(seconds));
    losses_.clear();
    if (ended_) return {};
    try {
        fill();
    } catch (const SourceError& error) {
        stretch_.clear();
        ended_ = true;
        lastWords_ = error.what();
    }
    if (onRead_ && !stretch_.empty()) onRead_(stretch_, losses_);
    return stretch_;
}

bool SignalReader::comeBack() {
    if (!ended_ || !source_->back()) return false;
    ended_ = false;
    lastWords_.clear();
    return true;
}

// Reads on behind the first `done` samples of the stretch.
std::size_t SignalReader::readSource(std::size_t done) {
    const std::size_t count = source_->read(std::span(stretch_).subspan(done));
    for (const Loss& loss : source_->losses()) losses_.push_back({done + loss.at, loss.count});
    return count;
}

void SignalReader::fill() {
    const std::size_t wanted = stretch_.size();
    std::size_t done = readSource(0);
    while (done < wanted && atEnd_ == AtEnd::Loop && !source_->live()) {
        source_->rewind();
        // What follows the end is no continuation of it; where ends come again and again, that is
        // how the signal is.
        if (static_cast<double>(source_->length()) > kLongRecordingSeconds * rateHz_)
            losses_.push_back({done, 0});
        const std::size_t more = readSource(done);
        if (more == 0) break;
        done += more;
    }
    clock_.add(done);
    stretch_.resize(done);
    if (done == wanted) return;
    ended_ = true;
    lastWords_ = name_ + " has ended.";
}

}  // namespace hm16::receiver
