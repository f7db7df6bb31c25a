// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/simulated_unit.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "base/leftovers.h"
#include "drivers/simulated/band.h"
#include "drivers/simulated/chance.h"
#include "drivers/simulated/figures.h"
#include "drivers/simulated/hour_of_air.h"
#include "drivers/simulated/station_slot.h"
#include "drivers/unit/standard_error.h"

namespace hm16::simulated {

namespace {

// Three sets of readings for each tick of the fastest panel, whatever the speed.
constexpr auto kPublishEvery = std::chrono::milliseconds(10);
constexpr double kSuperSeconds = 0.005;
constexpr double kPointSeconds = 0.002;
constexpr double kShortestFrame = 0.04;
// A station tuned for less than a second gets no results file.
constexpr double kWorthAFile = 1;
constexpr double kSaveEvery = 10;
// At more than real time most slots are dropped, to save computing time.
constexpr double kMostSlotsAtOnce = 40;

float garbageOf(Garbage kind, std::uint64_t seed, long set, int field) {
    switch (kind) {
        case Garbage::NotANumber:
            return std::numeric_limits<float>::quiet_NaN();
        case Garbage::Infinity:
            return field % 2 == 0 ? std::numeric_limits<float>::infinity()
                                  : -std::numeric_limits<float>::infinity();
        case Garbage::Huge:
            return field % 2 == 0 ? 1e38f : -1e38f;
        case Garbage::Random:
        case Garbage::None:
            break;
    }
    const double exponent = 76 * Chance(seed, 3).even(set * 32 + field) - 38;
    return static_cast<float>(std::pow(10.0, exponent));
}

}  // namespace

SimulatedUnit::SimulatedUnit(const Options& options, PublishedReadings& readings,
                             std::filesystem::path files)
    : options_(options),
      clock_(options),
      files_(std::move(files)),
      readings_(readings),
      frames_(kNoiseFloor),
      log_(files_) {
    base::removeLeftovers(files_);
    thread_ = std::thread(&SimulatedUnit::run, this);
}

SimulatedUnit::~SimulatedUnit() {
    stop();
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
        say(log_.close());
    }
    wake_.notify_all();
    thread_.join();
}

void SimulatedUnit::measure(const Tuning& tuning) {
    const std::lock_guard lock(mutex_);
    const double now = clock_.seconds();
    if (!results_ || results_->frequency() != tuning.frequency) {
        results_ = StationResults::read(files_, tuning.frequency);
    }
    tuning_ = tuning;
    lastTime_ = now;
    lastSlot_ = now;
    sinceSaved_ = 0;
    tones_.reset();
    if (tuning.response == ResponseRun::Armed) {
        tones_.emplace(stationAt(tuning.frequency), options_.seed, now);
        response_ = {};
    }
    if (tuning.log == DayLogging::On) say(log_.tune(tuning.frequency, clock_.wallAt(now)));
    publish(now);
    job_ = Job::Measure;
    ++jobNumber_;
    wake_.notify_all();
}

void SimulatedUnit::stop() {
    const std::lock_guard lock(mutex_);
    const double now = clock_.seconds();
    if (job_ == Job::Measure) {
        if (tones_) response_ = tones_->results(now);
        saveResults(now);
    }
    job_ = Job::None;
    ++jobNumber_;
    wake_.notify_all();
}

void SimulatedUnit::clearResults(StoredResult what) {
    const std::lock_guard lock(mutex_);
    if (!results_) return;
    results_->clear(what);
    say(results_->write(files_, clock_.wall()));
    sinceSaved_ = 0;
}

std::optional<float> SimulatedUnit::levelAt(double frequency) {
    std::this_thread::sleep_for(clock_.real(kSuperSeconds));
    const double now = clock_.seconds();
    ++supers_;
    if (options_.superFailsAfter > 0 && supers_ > options_.superFailsAfter) return std::nullopt;
    if (isSilent(now)) return std::nullopt;
    return measuredLevel(frequency, now);
}

void SimulatedUnit::sweep(const SweepRange& range) {
    const std::lock_guard lock(mutex_);
    range_ = range;
    job_ = Job::Sweep;
    ++jobNumber_;
    wake_.notify_all();
}

ResponseResults SimulatedUnit::response() {
    const std::lock_guard lock(mutex_);
    ResponseResults results = response_;
    for (auto i = static_cast<std::size_t>(options_.responsePairs); i < results.size(); ++i) {
        results[i] = {};
    }
    return results;
}

void SimulatedUnit::run() {
    std::unique_lock lock(mutex_);
    while (!closing_) {
        switch (job_) {
            case Job::None:
                wake_.wait(lock, [this] { return closing_ || job_ != Job::None; });
                break;
            case Job::Measure:
                measureStep(lock);
                break;
            case Job::Sweep:
                sweepStep(lock);
                break;
        }
    }
}

void SimulatedUnit::measureStep(std::unique_lock<std::mutex>& lock) {
    const unsigned number = jobNumber_;
    const bool changed =
        wake_.wait_for(lock, kPublishEvery, [&] { return closing_ || jobNumber_ != number; });
    if (!changed) publish(clock_.seconds());
}

void SimulatedUnit::sweepStep(std::unique_lock<std::mutex>& lock) {
    const unsigned number = jobNumber_;
    const SweepRange range = range_;
    const double takes = std::max(range.points() * kPointSeconds, kShortestFrame);
    const double start = clock_.seconds();
    const bool changed =
        wake_.wait_for(lock, clock_.real(takes), [&] { return closing_ || jobNumber_ != number; });
    if (changed || isSilent(clock_.seconds())) return;
    std::vector<float> levels(static_cast<std::size_t>(range.points()));
    for (int i = 0; i < range.points(); ++i) {
        const double time = start + i * kPointSeconds;
        levels[static_cast<std::size_t>(i)] = measuredLevel(range.frequency(i), time);
    }
    frames_.takeFrame(range, levels);
}

// A frozen unit repeats its last readings for ever, as with a broken cable.
void SimulatedUnit::publish(double time) {
    if (isSilent(time)) return;
    addSlots(time);
    Readings readings = readingsAt(tuning_, time);
    keep(readings, time);
    if (++published_ % options_.garbageEvery == 0) spoil(readings);
    if (tones_ && tones_->ended(time)) {
        readings_.publishEndMark(readings);
    } else {
        readings_.publish(readings);
    }
}

Readings SimulatedUnit::readingsAt(const Tuning& tuning, double time) const {
    Readings readings = figuresAt(options_.seed, tuning, time, options_.levelStep);
    const Station* const station = stationAt(tuning.frequency);
    if (tuning.log == DayLogging::On && station != nullptr)
        liveThrough(readings, options_.seed, *station, clock_.wallAt(time));
    if (tones_ && tones_->toneAt(time) != 0) {
        // A steady tone on both channels alike.
        readings.levelFirst = readings.levelSecond = -1;
        readings.stereoPhase = 45;
    }
    return readings;
}

// The slots that ended since the last call.
void SimulatedUnit::addSlots(double time) {
    const double ended = std::floor((time - lastSlot_) / kUnitSlotSeconds);
    const double lost = std::max(0.0, ended - kMostSlotsAtOnce);
    slots_.lose(static_cast<std::uint64_t>(lost));
    lastSlot_ += lost * kUnitSlotSeconds;
    Tuning leftRight = tuning_;
    leftRight.detector = Detector::Peak;
    leftRight.audioMode = AudioMode::LeftRight;
    Tuning sumDifference = leftRight;
    sumDifference.audioMode = AudioMode::SumDifference;
    const Station* const station = stationAt(tuning_.frequency);
    for (double n = lost; n < ended; ++n) {
        lastSlot_ += kUnitSlotSeconds;
        HM16_Slot slot =
            slotOf(station, readingsAt(leftRight, lastSlot_), readingsAt(sumDifference, lastSlot_));
        slot.utcNs = clock_.utcAt(lastSlot_);
        slot.signalNs = static_cast<std::int64_t>(lastSlot_ * 1e9);
        slots_.add(slot);
    }
}

// Only a station has results; between stations nothing is stored.
void SimulatedUnit::keep(const Readings& readings, double time) {
    const double passed = time - std::exchange(lastTime_, time);
    const Station* const station = stationAt(tuning_.frequency);
    if (station == nullptr || passed <= 0) return;
    results_->add(readings, passed);
    sinceSaved_ += passed;
    if (sinceSaved_ >= kSaveEvery) saveResults(time);
    if (tuning_.log == DayLogging::Off) return;
    const LocalTime wall = clock_.wallAt(time);
    const double power = std::pow(10.0, (readings.field - station->field) / 10) *
                         hourOfAir(options_.seed, *station, wall).power;
    say(log_.add(readings, power, passed, wall));
}

void SimulatedUnit::saveResults(double time) {
    if (sinceSaved_ <= 0 || results_->seconds() < kWorthAFile) return;
    sinceSaved_ = 0;
    say(results_->write(files_, clock_.wallAt(time)));
}

void SimulatedUnit::spoil(Readings& readings) {
    if (options_.garbage == Garbage::None) return;
    std::array<float, sizeof readings / sizeof(float)> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = garbageOf(options_.garbage, options_.seed, published_, static_cast<int>(i));
    }
    readings = std::bit_cast<Readings>(values);
}

// A repeated fault is reported once.
void SimulatedUnit::say(const std::optional<std::string>& fault) {
    if (!fault || *fault == lastFault_) return;
    lastFault_ = *fault;
    sayOnStandardError("hm-16: " + *fault);
}

bool SimulatedUnit::isSilent(double time) const {
    return options_.silentAfter > 0 && time >= options_.silentAfter;
}

float SimulatedUnit::measuredLevel(double frequency, double time) const {
    return static_cast<float>(
        stepped(bandLevel(options_.seed, frequency, time), options_.levelStep));
}

}  // namespace hm16::simulated
