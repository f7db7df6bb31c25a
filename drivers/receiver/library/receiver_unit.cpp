// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/receiver_unit.h"

#include <span>
#include <utility>

#include "base/leftovers.h"
#include "drivers/receiver/library/open_source.h"
#include "drivers/receiver/library/unit_call.h"

namespace hm16::receiver {
namespace {

constexpr double kHzPerTuningUnit = 100e3;

}  // namespace

ReceiverUnit::ReceiverUnit(const ReceiverOptions& options, std::unique_ptr<SampleSource> source,
                           PublishedReadings& readings, std::filesystem::path files)
    : options_(options),
      files_(std::move(files)),
      readings_(readings),
      frames_(kNothingThere),
      signal_(options, std::move(source)),
      meter_(options, signal_),
      balance_(signal_.source().rateHz()),
      log_(files_) {
    base::removeLeftovers(files_);
    signal_.onRead([this](std::span<const Sample> samples, std::span<const Loss> losses) {
        hear(samples, losses);
    });
    thread_ = std::thread(&ReceiverUnit::run, this);
}

ReceiverUnit::~ReceiverUnit() {
    stop();
    {
        const Call call(*this);
        closing_ = true;
        say(log_.close());
    }
    thread_.join();
}

void ReceiverUnit::tuneStation(double hz) {
    if (signal_.retune(hz)) meter_.follow();
    heard_ = {};
    disturbances_ = {};
    missed_ = 0;
    longAway_ = false;
    input_ = {};
    overloaded_ = 0;
    station_.reset();
    resampler_.reset();
    if (!signal_.covers(hz) || signal_.ended()) return;
    ChainSettings settings;
    settings.domain = signal_.source().domain();
    settings.rateHz = signal_.rateHz();
    settings.offsetHz = hz - signal_.centreHz();
    settings.deemphasisUs = options_.deemphasisUs;
    settings.peakEdge = options_.peakEdge;
    settings.dbuvAtFullScale = options_.dbuvAtFullScale;
    settings.compositeHzAtFullScale = options_.compositeHzAtFullScale;
    station_ = std::make_unique<TunedStation>(settings);
    stationCentreHz_ = signal_.centreHz();
    stationStart_ = signal_.clock().seconds();
    StationChain& chain = station_->chain();
    chain.onSlot([this](const StationSlot& slot) { takeSlot(slot); });
    chain.onGroup([this](const RdsGroup& group) { takeGroup(group); });
    groupsBefore_ = nextGroup_;
    resampler_.emplace(chain.soundHz());
    chain.onSound([this](std::span<const float> left, std::span<const float> right) {
        takeSound(left, right);
    });
}

void ReceiverUnit::measure(const Tuning& tuning) {
    const Call call(*this);
    comeBack();
    if (!results_ || results_->frequency() != tuning.frequency)
        results_ = StationResults::read(files_, tuning.frequency);
    tuning_ = tuning;
    sinceSaved_ = 0;
    looks_ = 0;
    peaks_.clear();
    if (tuning.response == hm16::ResponseRun::Armed) tones_ = ResponseTones();
    tuneStation(tuning.frequency * kHzPerTuningUnit);
    if (tuning.log == DayLogging::On) say(log_.tune(tuning.frequency, signal_.clock().now()));
    publish();
    due_ = std::chrono::steady_clock::now();
    job_ = Job::Measure;
}

void ReceiverUnit::stop() {
    const Call call(*this);
    if (job_ == Job::Measure) saveResults();
    job_ = Job::None;
}

void ReceiverUnit::clearResults(StoredResult what) {
    const Call call(*this);
    if (!results_) return;
    results_->clear(what);
    say(results_->write(files_, signal_.clock().now()));
    sinceSaved_ = 0;
}

void ReceiverUnit::sweep(const SweepRange& range) {
    const Call call(*this);
    comeBack();
    range_ = range;
    sweepStretches_ = 0;
    due_ = std::chrono::steady_clock::now();
    job_ = Job::Sweep;
}

ResponseResults ReceiverUnit::response() {
    const Call call(*this);
    const auto found = tones_.results();
    ResponseResults results;
    for (std::size_t n = 0; n < results.size(); ++n)
        results[n] = {found[n].hz, found[n].tenthsOfDb};
    return results;
}

std::optional<float> ReceiverUnit::levelAt(double frequency) {
    const Call call(*this);
    comeBack();
    const double tuned = signal_.centreHz();
    const auto level = meter_.levelAt(frequency * kHzPerTuningUnit);
    if (signal_.ended()) say(signal_.lastWords());
    // The measurement that goes on afterwards stands where it stood.
    if (station_ && job_ == Job::Measure && signal_.centreHz() != tuned &&
        signal_.retune(tuning_.frequency * kHzPerTuningUnit))
        meter_.follow();
    return level;
}

Figures ReceiverUnit::heard() const {
    const Call call(*this);
    return heard_.figures;
}

// A radio that had gone is there again, tuned as it was when it was opened.
void ReceiverUnit::comeBack() {
    if (!signal_.comeBack()) return;
    std::string name = nameOf(options_);
    name.front() = 'T';
    say(name + " is back.");
    if (job_ != Job::Measure) {
        meter_.follow();
        return;
    }
    looks_ = 0;
    tuneStation(tuning_.frequency * kHzPerTuningUnit);
    meter_.follow();
}

bool ReceiverUnit::step(int slots) {
    const Call call(*this);
    if (options_.pace == Pace::Real || signal_.source().live()) return false;
    drive_ = Drive::Steps;
    if (slots <= 0) return true;
    if (job_ == Job::Sweep) return sweepFrame();
    if (job_ != Job::Measure) return false;
    const double until = signal_.clock().seconds() + (slots - 0.25) * kSlotSeconds;
    while (signal_.clock().seconds() < until)
        if (!measureStretch()) return false;
    return true;
}

}  // namespace hm16::receiver
