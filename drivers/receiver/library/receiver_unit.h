// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "drivers/receiver/chain/sound_resampler.h"
#include "drivers/receiver/chain/tuned_station.h"
#include "drivers/receiver/dsp/sample_balance.h"
#include "drivers/receiver/figures/input_load.h"
#include "drivers/receiver/figures/response_tones.h"
#include "drivers/receiver/figures/ring.h"
#include "drivers/receiver/library/band_meter.h"
#include "drivers/receiver/library/receiver_options.h"
#include "drivers/receiver/library/record_ring.h"
#include "drivers/receiver/library/signal_reader.h"
#include "drivers/receiver/library/sound_ring.h"
#include "drivers/receiver/samples/sample_source.h"
#include "drivers/unit/day_log.h"
#include "drivers/unit/slot_figures.h"
#include "drivers/unit/unit.h"

namespace hm16::receiver {

// A unit that measures samples of the band. Its own thread reads them at the pace of the settings,
// runs the chain, publishes readings, delivers frames and writes files. In steps, the caller drives
// the signal instead, so that a recording is measured without a gap as fast as the machine can.
class ReceiverUnit : public Unit {
 public:
    // Files of stations and days are written to `files`.
    ReceiverUnit(const ReceiverOptions& options, std::unique_ptr<SampleSource> source,
                 PublishedReadings& readings, std::filesystem::path files);
    ~ReceiverUnit() override;

    float hardwareVersion() const override { return options_.version; }
    void measure(const Tuning& tuning) override;
    void stop() override;
    void clearResults(StoredResult what) override;
    std::optional<float> levelAt(double frequency) override;
    void sweep(const SweepRange& range) override;
    SweepStore& frames() override { return frames_; }
    std::span<const HM16_FigureInfo> figures() const override { return registeredFigures(); }
    const SlotRing* slots() const override { return &slots_; }
    ResponseResults response() override;

    // From now on the signal only advances by this: `slots` of 50 ms of the running measurement.
    // False if the pace is real, nothing runs or the signal has ended.
    bool step(int slots);

    // The figures of the last measured slot.
    Figures heard() const;

    // The RDS groups of the last half minute, with their signal time.
    const RecordRing<RdsGroup>& groups() const { return groups_; }

    // The sound of the tuned station, for listeners.
    const SoundRing& sound() const { return sound_; }

    // Further measurements for which there is no reading, as lines of text.
    std::string report() const;

 private:
    class Call;
    enum class Job { None, Measure, Sweep };
    enum class Drive { Free, Steps };

    void run();
    void work(std::unique_lock<std::mutex>& lock);
    void waitForAir(std::unique_lock<std::mutex>& lock, double signalSeconds);
    bool measureStretch();
    bool sweepStretch();
    bool sweepFrame();
    void comeBack();
    void tuneStation(double hz);
    void hear(std::span<const Sample> samples, std::span<const Loss> losses);
    void miss(std::uint64_t count);
    void missNoMore();
    void lose(std::uint64_t count, Missing why);
    void tellAway(std::uint64_t slots);
    void takeSlot(const StationSlot& slot);
    void putSlot(const StationSlot& slot);
    void takeGroup(const RdsGroup& group);
    void takeSound(std::span<const float> left, std::span<const float> right);
    void signalEnded();
    void lookForTones();
    void publish();
    void keep(const Readings& readings);
    void saveResults();
    void say(const std::optional<std::string>& fault);

    const ReceiverOptions options_;
    const std::filesystem::path files_;
    PublishedReadings& readings_;
    SweepStore frames_;
    SlotRing slots_;
    RecordRing<RdsGroup> groups_{360};

    mutable std::mutex mutex_;
    mutable std::condition_variable wake_;
    mutable std::atomic<int> callers_{0};  // that wait for the mutex
    Job job_ = Job::None;
    Drive drive_ = Drive::Free;
    bool closing_ = false;

    SignalReader signal_;
    BandMeter meter_;
    SampleBalance balance_;

    Tuning tuning_;
    std::unique_ptr<TunedStation> station_;  // none where nothing can be heard
    double stationCentreHz_ = 0;             // centre of the samples that it takes
    double stationStart_ = 0;                // the signal's seconds when it was tuned
    std::uint64_t groupsBefore_ = 0;         // sent by the stations before it
    std::uint64_t nextGroup_ = 0;
    std::uint64_t missed_ = 0;   // samples read for other purposes that it was not told of yet
    bool longAway_ = false;      // it was told of as many as it processes
    StationSlot heard_;          // the last slot, for the report
    Disturbances disturbances_;  // since the tuning
    InputLoad input_;
    std::uint64_t overloaded_ = 0;  // slots since the tuning
    std::optional<SoundResampler> resampler_;
    SoundRing sound_;
    std::vector<StereoSample> soundOut_;
    std::size_t sweepStretches_ = 0;
    Ring peaks_{20};
    ResponseTones tones_;
    std::size_t looks_ = 0;
    std::optional<StationResults> results_;
    double sinceSaved_ = 0;
    DayLog log_;

    SweepRange range_;

    std::chrono::steady_clock::time_point due_;
    std::string lastFault_;
    std::thread thread_;
};

}  // namespace hm16::receiver
