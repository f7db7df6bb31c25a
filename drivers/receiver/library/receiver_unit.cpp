// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/receiver_unit.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "drivers/receiver/library/open_source.h"
#include "drivers/receiver/library/readings_of.h"
#include "drivers/unit/replace_file.h"

namespace hm16::receiver {
namespace {

// What a frequency reads that the source does not cover: nothing is there.
constexpr float kNothingThere = 0;

constexpr double kHzPerUnit = 100e3;
constexpr double kChannelHz = 200e3;
// The program tunes in floats of 100 kHz; a composite recording stands for one such frequency.
constexpr double kSameHz = 25e3;

constexpr double kStretchSeconds = 0.025;
constexpr double kLevelSeconds = 0.01;
constexpr double kFrameSeconds = 0.02;
constexpr double kFramePeriodSeconds = 0.1;

// A second of a station is a result worth a file; passing over it is not.
constexpr double kWorthAFile = 1;
constexpr double kSaveEvery = 10;

// A pause of this length, as after a suspend, is not caught up with.
constexpr auto kTooLate = std::chrono::seconds(1);

std::size_t samplesIn(double seconds, double rateHz) {
    return static_cast<std::size_t>(std::lround(seconds * rateHz));
}

}  // namespace

ReceiverUnit::ReceiverUnit(const ReceiverOptions& options, std::unique_ptr<SampleSource> source,
                           PublishedReadings& readings, std::filesystem::path files)
    : options_(options),
      files_(std::move(files)),
      readings_(readings),
      frames_(kNothingThere),
      source_(std::move(source)),
      trueRateHz_(source_->rateHz() * (1 + options.clockPpm * 1e-6)),
      clock_(source_->rateHz()),
      log_(files_),
      levels_(trueRateHz_, trueCentreHz()) {
    removeUnfinishedFiles(files_);
    thread_ = std::thread(&ReceiverUnit::run, this);
}

ReceiverUnit::~ReceiverUnit() {
    stop();
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
        say(log_.close());
    }
    wake_.notify_all();
    thread_.join();
}

// A clock that runs fast makes the radio's own oscillator stand too high by as much.
double ReceiverUnit::trueCentreHz() const {
    return source_->centreHz() * (1 + options_.clockPpm * 1e-6);
}

bool ReceiverUnit::covered(double hz) const {
    if (source_->domain() == Domain::Composite)
        return options_.centreHz <= 0 || std::fabs(hz - options_.centreHz) < kSameHz;
    return std::fabs(hz - trueCentreHz()) + kChannelHz / 2 <= trueRateHz_ / 2;
}

void ReceiverUnit::measure(const Tuning& tuning) {
    const std::lock_guard lock(mutex_);
    const double hz = tuning.frequency * kHzPerUnit;
    if (source_->live() && source_->retune(hz)) levels_.setCentre(trueCentreHz());
    if (!results_ || results_->frequency() != tuning.frequency)
        results_ = StationResults::read(files_, tuning.frequency);
    tuning_ = tuning;
    sinceSaved_ = 0;
    slots_ = 0;
    looks_ = 0;
    peaks_.clear();
    if (tuning.response == hm16::ResponseRun::Armed) tones_ = ResponseTones();
    chain_.reset();
    heard_ = Figures();
    if (covered(hz)) {
        ChainSettings settings;
        settings.domain = source_->domain();
        settings.rateHz = trueRateHz_;
        settings.offsetHz = hz - trueCentreHz();
        settings.deemphasisUs = options_.deemphasisUs;
        settings.dbuvAtFullScale = options_.dbuvAtFullScale;
        settings.compositeHzAtFullScale = options_.compositeHzAtFullScale;
        chain_ = std::make_unique<StationChain>(settings);
    }
    if (tuning.log == DayLogging::On) say(log_.tune(tuning.frequency, clock_.now()));
    publish();
    due_ = std::chrono::steady_clock::now();
    job_ = Job::Measure;
    wake_.notify_all();
}

void ReceiverUnit::stop() {
    const std::lock_guard lock(mutex_);
    if (job_ == Job::Measure) saveResults();
    job_ = Job::None;
    wake_.notify_all();
}

void ReceiverUnit::clearResults(StoredResult what) {
    const std::lock_guard lock(mutex_);
    if (!results_) return;
    results_->clear(what);
    say(results_->write(files_, clock_.now()));
    sinceSaved_ = 0;
}

void ReceiverUnit::sweep(const SweepRange& range) {
    const std::lock_guard lock(mutex_);
    range_ = range;
    due_ = std::chrono::steady_clock::now();
    job_ = Job::Sweep;
    wake_.notify_all();
}

ResponseResults ReceiverUnit::response() {
    const std::lock_guard lock(mutex_);
    const auto found = tones_.results();
    ResponseResults results;
    for (std::size_t n = 0; n < results.size(); ++n)
        results[n] = {found[n].hz, found[n].tenthsOfDb};
    return results;
}

std::optional<float> ReceiverUnit::levelAt(double frequency) {
    const std::lock_guard lock(mutex_);
    if (source_->domain() == Domain::Composite) return kNothingThere;
    const double hz = frequency * kHzPerUnit;
    const double tuned = source_->centreHz();
    measureBandAround(hz);
    if (ended_) return std::nullopt;
    const double level = levelIn(hz, kChannelHz);
    // The measurement that goes on afterwards stands where it stood.
    if (chain_ && job_ == Job::Measure && source_->centreHz() != tuned)
        source_->retune(tuning_.frequency * kHzPerUnit);
    return static_cast<float>(stepped(level, options_.levelStepDb));
}

// Reads a stretch that covers `hz` and looks at its spectrum.
void ReceiverUnit::measureBandAround(double hz) {
    if (source_->live() && !covered(hz) && source_->retune(hz)) {
        levels_.setCentre(trueCentreHz());
        // What a radio had under way still lies where it was tuned before.
        readStretch(samplesIn(kLevelSeconds, trueRateHz_));
    }
    if (readStretch(samplesIn(std::max(kLevelSeconds, 4096 / trueRateHz_), trueRateHz_)))
        levels_.measure(stretch_);
}

double ReceiverUnit::levelIn(double hz, double widthHz) const {
    const double power = levels_.powerAt(hz, widthHz);
    if (power <= 0) return kNothingThere;
    return std::max(0.0, 10 * std::log10(power) + options_.dbuvAtFullScale);
}

// Reads into stretch_; false when the signal has ended.
bool ReceiverUnit::readStretch(std::size_t samples) {
    if (ended_) return false;
    stretch_.resize(samples);
    try {
        std::size_t done = source_->read(stretch_);
        while (done < samples && options_.atEnd == AtEnd::Loop && !source_->live()) {
            source_->rewind();
            const std::size_t more = source_->read(std::span(stretch_).subspan(done));
            if (more == 0) break;
            done += more;
        }
        clock_.add(done);
        stretch_.resize(done);
        if (done < samples) endOfSignal("has ended.");
        return done == samples;
    } catch (const SourceError& error) {
        stretch_.clear();
        endOfSignal("");
        say(error.what());
    }
    return false;
}

// Figures of something that is not there any more are not shown on.
void ReceiverUnit::endOfSignal(const std::string& sentence) {
    ended_ = true;
    if (!sentence.empty()) say(nameOf(options_) + " " + sentence);
}

bool ReceiverUnit::step(int slots) {
    const std::lock_guard lock(mutex_);
    if (options_.pace == Pace::Real || source_->live()) return false;
    drive_ = Drive::Steps;
    if (slots <= 0) return true;
    if (job_ == Job::Sweep) return sweepFrame();
    if (job_ != Job::Measure) return false;
    const double until = clock_.seconds() + slots * kSlotSeconds - kStretchSeconds / 2;
    while (clock_.seconds() < until)
        if (!measureStretch()) return false;
    return true;
}

void ReceiverUnit::run() {
    std::unique_lock lock(mutex_);
    while (!closing_) {
        if (job_ == Job::None || drive_ == Drive::Steps || ended_) {
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

// Lets go of the lock until the signal's next stretch is due, or for a moment in any case: whoever
// wants to stop the unit must get in between.
void ReceiverUnit::waitForAir(std::unique_lock<std::mutex>& lock, double signalSeconds) {
    using Clock = std::chrono::steady_clock;
    if (options_.pace == Pace::Fast || source_->live()) {
        lock.unlock();
        std::this_thread::yield();
        lock.lock();
        return;
    }
    due_ +=
        std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(signalSeconds));
    const auto now = Clock::now();
    if (now > due_ + kTooLate) due_ = now;
    const Job job = job_;
    wake_.wait_until(lock, due_, [&] { return closing_ || job_ != job || ended_; });
}

// True when the signal went on.
bool ReceiverUnit::measureStretch() {
    const bool whole = readStretch(samplesIn(kStretchSeconds, trueRateHz_));
    if (!chain_) {
        if (ended_) publish();
        return whole;
    }
    chain_->push(stretch_);
    heard_ = chain_->figures();
    if (!whole) {
        chain_.reset();
        publish();
        return false;
    }
    if (chain_->slots() == slots_) return true;
    slots_ = chain_->slots();
    if (tuning_.response == hm16::ResponseRun::Armed && chain_->audio().looks() != looks_) {
        looks_ = chain_->audio().looks();
        tones_.look(chain_->audio().tones().tone());
    }
    publish();
    return true;
}

// True when a frame was made.
bool ReceiverUnit::sweepFrame() {
    if (source_->domain() == Domain::Composite) return false;
    const double width = std::min(range_.stepKhz * 1e3, kChannelHz);
    std::vector<float> levels(static_cast<std::size_t>(range_.points()), kNothingThere);
    double lookedAt = 0;
    for (int point = 0; point < range_.points(); ++point) {
        const double hz = range_.frequency(point) * kHzPerUnit;
        const bool first = lookedAt == 0;
        if (first || (source_->live() && !levels_.covers(hz, width))) {
            if (source_->live() && !levels_.covers(hz, width)) {
                // Half a band further, so that the next points lie in it too.
                measureBandAround(hz + trueRateHz_ / 4);
            } else if (readStretch(samplesIn(kFrameSeconds, trueRateHz_))) {
                levels_.measure(stretch_);
            }
            lookedAt = hz;
            if (ended_) return false;
        }
        levels[static_cast<std::size_t>(point)] =
            static_cast<float>(stepped(levelIn(hz, width), options_.levelStepDb));
    }
    frames_.takeFrame(range_, levels);
    return true;
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
    if (tuning_.log == DayLogging::On) say(log_.add(readings, 0, kSlotSeconds, clock_.now()));
}

void ReceiverUnit::saveResults() {
    if (!results_ || sinceSaved_ <= 0 || results_->seconds() < kWorthAFile) return;
    sinceSaved_ = 0;
    say(results_->write(files_, clock_.now()));
}

// The same fault again and again is said once.
void ReceiverUnit::say(const std::optional<std::string>& fault) {
    if (!fault || *fault == lastFault_) return;
    lastFault_ = *fault;
    std::fprintf(stderr, "hm-16: %s\n", fault->c_str());
}

}  // namespace hm16::receiver
