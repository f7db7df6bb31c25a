// SPDX-License-Identifier: GPL-3.0-or-later
// What the unit's own thread does, or whoever drives it in steps: stretch by stretch from the
// signal to published readings, frames and files.
#include <cstdio>

#include "drivers/receiver/library/readings_of.h"
#include "drivers/receiver/library/receiver_unit.h"

namespace hm16::receiver {
namespace {

constexpr double kStretchSeconds = 0.025;
constexpr double kFramePeriodSeconds = 0.1;

constexpr std::size_t kSlotsPerLook = 5;

// A second of a station is a result worth a file; passing over it is not.
constexpr double kWorthAFile = 1;
constexpr double kSaveEvery = 10;

// How often somebody looks whether a radio that has gone is there again.
constexpr auto kLookForRadio = std::chrono::milliseconds(100);

// A pause of this length, as after a suspend, is not caught up with.
constexpr auto kTooLate = std::chrono::seconds(1);

}  // namespace

void ReceiverUnit::run() {
    std::unique_lock lock(mutex_);
    while (!closing_) {
        const bool gone = signal_.ended() && signal_.source().live();
        if (gone && job_ != Job::None) {
            wake_.wait_for(lock, kLookForRadio);
            comeBack();
        } else if (job_ == Job::None || drive_ == Drive::Steps || signal_.ended()) {
            wake_.wait(lock);
        } else {
            work(lock);
        }
    }
}

void ReceiverUnit::work(std::unique_lock<std::mutex>& lock) {
    const Job job = job_;
    if (job == Job::Measure) {
        measureStretch();
    } else {
        sweepFrame();
    }
    waitForAir(lock, job == Job::Measure ? kStretchSeconds : kFramePeriodSeconds);
}

// Lets go of the lock until the signal's next stretch is due and nobody wants the unit.
void ReceiverUnit::waitForAir(std::unique_lock<std::mutex>& lock, double signalSeconds) {
    using Clock = std::chrono::steady_clock;
    if (options_.pace == Pace::Real && !signal_.source().live()) {
        due_ += std::chrono::duration_cast<Clock::duration>(
            std::chrono::duration<double>(signalSeconds));
        const auto now = Clock::now();
        if (now > due_ + kTooLate) due_ = now;
        const Job job = job_;
        wake_.wait_until(lock, due_, [&] { return closing_ || job_ != job || signal_.ended(); });
    }
    wake_.wait(lock, [&] { return callers_ == 0; });
}

// True when the signal went on.
bool ReceiverUnit::measureStretch() {
    const auto stretch = signal_.read(kStretchSeconds);
    if (chain_ && !stretch.empty()) {
        chain_->push(stretch);
        heard_ = chain_->figures();
    }
    if (signal_.ended()) {
        // Figures of something that is not there any more are not shown on.
        chain_.reset();
        publish();
        say(signal_.lastWords());
        return false;
    }
    if (!chain_ || chain_->slots() == slots_) return true;
    slots_ = chain_->slots();
    if (tuning_.response == hm16::ResponseRun::Armed) lookForTones();
    publish();
    return true;
}

// Where there is no carrier there is no audio to look at: silence as well.
void ReceiverUnit::lookForTones() {
    const AudioFigures& audio = chain_->audio();
    if (audio.looks() != looks_) {
        looks_ = audio.looks();
        tones_.look(audio.tones().tone());
    } else if (!chain_->figures().carrier && slots_ % kSlotsPerLook == 0) {
        tones_.look({});
    }
}

// True when a frame was made.
bool ReceiverUnit::sweepFrame() {
    const auto levels = meter_.frame(range_);
    if (signal_.ended()) say(signal_.lastWords());
    if (levels) frames_.takeFrame(range_, *levels);
    return levels.has_value();
}

void ReceiverUnit::publish() {
    static const Figures kNothing;
    const Figures& figures = chain_ ? chain_->figures() : kNothing;
    peaks_.add(figures.peakHz);
    const double peak = tuning_.detector == Detector::Average ? peaks_.mean() : figures.peakHz;
    const Readings readings = readingsOf(figures, peak, tuning_.audioMode, options_.levelStepDb);
    if (figures.carrier) keep(readings);
    if (tuning_.response == hm16::ResponseRun::Armed && tones_.ended()) {
        readings_.publishEndMark(readings);
    } else {
        readings_.publish(readings);
    }
}

void ReceiverUnit::keep(const Readings& readings) {
    results_->add(readings, kSlotSeconds);
    sinceSaved_ += kSlotSeconds;
    if (sinceSaved_ >= kSaveEvery) saveResults();
    // The station's nominal field is not known to the receiver, so neither is the share of it.
    if (tuning_.log == DayLogging::On)
        say(log_.add(readings, 0, kSlotSeconds, signal_.clock().now()));
}

void ReceiverUnit::saveResults() {
    if (!results_ || sinceSaved_ <= 0 || results_->seconds() < kWorthAFile) return;
    sinceSaved_ = 0;
    say(results_->write(files_, signal_.clock().now()));
}

// The same fault again and again is said once.
void ReceiverUnit::say(const std::optional<std::string>& fault) {
    if (!fault || *fault == lastFault_) return;
    lastFault_ = *fault;
    std::fprintf(stderr, "hm-16: %s\n", fault->c_str());
}

}  // namespace hm16::receiver
