// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "drivers/simulated/options.h"
#include "drivers/simulated/tone_sequence.h"
#include "drivers/simulated/unit_clock.h"
#include "drivers/unit/day_log.h"
#include "drivers/unit/slot_figures.h"
#include "drivers/unit/unit.h"

namespace hm16::simulated {

// A simulated unit, which measures the stations of the table. Its thread does what a real unit does
// between calls: publishes readings, delivers frames, writes files.
class SimulatedUnit : public Unit {
 public:
    // Files of stations and days are written to `files`.
    SimulatedUnit(const Options& options, PublishedReadings& readings, std::filesystem::path files);
    ~SimulatedUnit() override;

    float hardwareVersion() const override { return options_.version; }
    void measure(const Tuning& tuning) override;
    void stop() override;
    void clearResults(StoredResult what) override;
    std::optional<float> levelAt(double frequency) override;
    void sweep(const SweepRange& range) override;
    SweepStore& frames() override { return frames_; }
    ResponseResults response() override;
    std::span<const HM16_FigureInfo> figures() const override { return registeredFigures(); }
    const SlotRing* slots() const override { return &slots_; }

 private:
    enum class Job { None, Measure, Sweep };

    void run();
    void measureStep(std::unique_lock<std::mutex>& lock);
    void sweepStep(std::unique_lock<std::mutex>& lock);
    void publish(double time);
    Readings readingsAt(const Tuning& tuning, double time) const;
    void addSlots(double time);
    void keep(const Readings& readings, double time);
    void saveResults(double time);
    void spoil(Readings& readings);
    void say(const std::optional<std::string>& fault);
    bool isSilent(double time) const;
    float measuredLevel(double frequency, double time) const;

    const Options options_;
    const UnitClock clock_;
    const std::filesystem::path files_;
    PublishedReadings& readings_;
    SweepStore frames_;
    SlotRing slots_;

    std::mutex mutex_;
    std::condition_variable wake_;
    Job job_ = Job::None;
    unsigned jobNumber_ = 0;
    bool closing_ = false;

    Tuning tuning_;
    std::optional<StationResults> results_;
    double sinceSaved_ = 0;
    DayLog log_;
    double lastTime_ = 0;
    double lastSlot_ = 0;  // when the last slot ended
    std::optional<ToneSequence> tones_;
    ResponseResults response_;
    SweepRange range_;
    long published_ = 0;
    long supers_ = 0;
    std::string lastFault_;

    std::thread thread_;
};

}  // namespace hm16::simulated
