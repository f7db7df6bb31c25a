// SPDX-License-Identifier: GPL-3.0-or-later
// What the unit's own thread does, or whoever drives it in steps: stretch by stretch from the
// signal to published readings, frames and files.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "drivers/receiver/library/readings_of.h"
#include "drivers/receiver/library/receiver_unit.h"
#include "drivers/receiver/library/slot_of.h"
#include "drivers/unit/standard_error.h"

namespace hm16::receiver {
namespace {

constexpr double kStretchSeconds = 0.025;
constexpr std::size_t kStretchesPerFrame = 4;
constexpr double kFramePeriodSeconds = kStretchesPerFrame * kStretchSeconds;
static_assert(kStretchSeconds == kFrameLookSeconds);

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
    if (job_ == Job::Measure) {
        measureStretch();
    } else if (meter_.covers(range_)) {
        sweepStretch();
    } else {
        // Tuned here and there, the station cannot be heard.
        sweepFrame();
        waitForAir(lock, kFramePeriodSeconds);
        return;
    }
    waitForAir(lock, kStretchSeconds);
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
    signal_.read(kStretchSeconds);
    if (signal_.ended()) signalEnded();
    return !signal_.ended();
}

// A frame looks at the last of the stretches of its time; the station hears all of them.
bool ReceiverUnit::sweepStretch() {
    if (++sweepStretches_ % kStretchesPerFrame == 0) return sweepFrame();
    signal_.read(kStretchSeconds);
    if (signal_.ended()) say(signal_.lastWords());
    return !signal_.ended();
}

// Figures of something that is not there any more are not shown on.
void ReceiverUnit::signalEnded() {
    station_.reset();
    publish();
    say(signal_.lastWords());
}

// What anyone reads of the band the tuned station hears, too.
void ReceiverUnit::hear(std::span<const Sample> samples, std::span<const Loss> losses) {
    if (!station_) return;
    if (signal_.centreHz() != stationCentreHz_) {
        miss(samples.size());
        return;
    }
    missNoMore();
    input_.add(samples);
    // Levels and sweeps take the samples as they are: they know each step of the converter.
    if (signal_.source().domain() == Domain::Band) samples = balance_.correct(samples);
    std::size_t at = 0;
    for (const Loss& loss : losses) {
        station_->push(samples.subspan(at, loss.at - at));
        lose(loss.count, Missing::Lost);
        at = loss.at;
    }
    station_->push(samples.subspan(at));
}

// While others have the radio, slots come all the same and say so.
void ReceiverUnit::miss(std::uint64_t count) {
    missed_ += count;
    if (!longAway_) {
        if (missed_ < station_->longestGap()) return;
        longAway_ = true;
        lose(std::exchange(missed_, 0), Missing::Away);
        return;
    }
    const double perSlot = kSlotSeconds * signal_.rateHz();
    const auto slots = static_cast<std::uint64_t>(static_cast<double>(missed_) / perSlot);
    missed_ -= std::min(
        missed_, static_cast<std::uint64_t>(std::llround(static_cast<double>(slots) * perSlot)));
    tellAway(slots);
}

void ReceiverUnit::missNoMore() {
    longAway_ = false;
    if (missed_ > 0) lose(std::exchange(missed_, 0), Missing::Away);
}

// What is more than passes through the station is time all the same.
void ReceiverUnit::lose(std::uint64_t count, Missing why) {
    const std::uint64_t more = station_->lose(count, why);
    const double seconds = static_cast<double>(more) / signal_.rateHz();
    const auto slots = static_cast<std::uint64_t>(std::llround(seconds / kSlotSeconds));
    if (why == Missing::Away) {
        tellAway(slots);
        stationStart_ += seconds - static_cast<double>(slots) * kSlotSeconds;
        return;
    }
    slots_.lose(slots);
    stationStart_ += seconds;
}

void ReceiverUnit::tellAway(std::uint64_t slots) {
    StationSlot slot = heard_;
    slot.states = allFigures(FigureState::UnitAway);
    for (std::uint64_t n = 0; n < slots; ++n) {
        stationStart_ += kSlotSeconds;
        putSlot(slot);
    }
}

void ReceiverUnit::putSlot(const StationSlot& slot) {
    HM16_Slot out = slotOf(slot, options_.levelStepDb);
    const double seconds = stationStart_ + slot.endSeconds;
    out.signalNs = static_cast<std::int64_t>(seconds * 1e9);
    out.utcNs = signal_.clock().utcNsAt(seconds);
    slots_.add(out);
}

void ReceiverUnit::takeSlot(const StationSlot& slot) {
    heard_ = slot;
    if (input_.endSlot() && !slot.away) {
        ++overloaded_;
        heard_.states = unknownBecause(slot.states, FigureState::Overload);
    }
    putSlot(heard_);
    disturbances_ = station_->chain().disturbances();
    if (job_ != Job::Measure) return;
    if (tuning_.response == hm16::ResponseRun::Armed) lookForTones();
    publish();
}

void ReceiverUnit::takeGroup(const RdsGroup& group) {
    RdsGroup out = group;
    out.number += groupsBefore_;
    out.endSeconds += stationStart_;
    nextGroup_ = out.number + 1;
    groups_.add(out);
}

void ReceiverUnit::takeSound(std::span<const float> left, std::span<const float> right) {
    soundOut_.clear();
    resampler_->process(left, right, soundOut_);
    sound_.write(soundOut_);
}

// Where there is no carrier there is no audio to look at: silence as well.
void ReceiverUnit::lookForTones() {
    const AudioFigures& audio = station_->chain().audio();
    if (audio.looks() != looks_) {
        looks_ = audio.looks();
        tones_.look(audio.tones().tone());
    } else if (!heard_.figures.carrier && heard_.number % kSlotsPerLook == 0) {
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
    const Figures& figures = station_ ? station_->figures() : kNothing;
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
    sayOnStandardError("hm-16: " + *fault);
}

}  // namespace hm16::receiver
