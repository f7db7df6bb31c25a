// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "drivers/receiver/chain/channel_filter.h"
#include "drivers/receiver/chain/demodulator.h"
#include "drivers/receiver/chain/front_end.h"
#include "drivers/receiver/chain/peak_doubt.h"
#include "drivers/receiver/chain/peak_noise.h"
#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/chain/rds_receiver.h"
#include "drivers/receiver/chain/spoilt_samples.h"
#include "drivers/receiver/chain/stereo_decoder.h"
#include "drivers/receiver/figures/audio_figures.h"
#include "drivers/receiver/figures/carrier_mean.h"
#include "drivers/receiver/figures/carrier_watch.h"
#include "drivers/receiver/figures/channel_power.h"
#include "drivers/receiver/figures/figures.h"
#include "drivers/receiver/figures/multipath.h"
#include "drivers/receiver/figures/peaks_per_minute.h"
#include "drivers/receiver/figures/pilot_track.h"
#include "drivers/receiver/figures/ring.h"
#include "drivers/receiver/figures/slot_moments.h"
#include "drivers/receiver/figures/slot_peak.h"
#include "drivers/receiver/figures/station_slot.h"

namespace hm16::receiver {

// The properties of a chain's samples.
struct ChainSettings {
    Domain domain = Domain::Band;
    double rateHz = 0;    // true rate, the clock's error taken out
    double offsetHz = 0;  // the true position of the tuned frequency in the samples
    double deemphasisUs = 50;
    PeakEdge peakEdge = PeakEdge::At80;
    double dbuvAtFullScale = 0;             // the field of a carrier with amplitude 1
    double compositeHzAtFullScale = 100e3;  // the deviation of a composite sample of 1.0
};

// The whole way from the samples of a channel, or of a multiplex, to the figures of one station.
// The figures are updated at the end of each slot of 50 ms. TunedStation puts a front end before
// it.
class StationChain {
 public:
    // `channel`: the filter that the samples have passed.
    StationChain(const ChainSettings& settings, const Rates& rates, const ChannelShape& channel);
    StationChain(const StationChain&) = delete;
    StationChain& operator=(const StationChain&) = delete;

    void push(std::span<const Sample> channel);

    // Announces that the channel's samples [from, to), counted since the chain began, are missing
    // or replaced, and how many samples of the source that were; 0 if nobody knows how many. An
    // empty stretch is a place where some are missing. What is missing because the radio was away
    // is no disturbance.
    void spoil(std::uint64_t from, std::uint64_t to, std::uint64_t lostSamples,
               Missing why = Missing::Lost);

    const Figures& figures() const { return figures_; }

    // The number of slots measured so far, and the newest slot.
    std::size_t slots() const { return slots_; }
    const StationSlot& slot() const { return slot_; }

    // Called at the end of each slot.
    void onSlot(std::function<void(const StationSlot&)> listener) { onSlot_ = std::move(listener); }

    // Called with each complete group of RDS; its time counts since the chain began.
    void onGroup(std::function<void(const RdsGroup&)> listener) { onGroup_ = std::move(listener); }

    // Called with each stretch of audio, in Hz of deviation, de-emphasized; both are equally long.
    using SoundListener = std::function<void(std::span<const float>, std::span<const float>)>;
    void onSound(SoundListener listener) { onSound_ = std::move(listener); }
    double soundHz() const { return rates_.audio; }

    // Called with each stretch of the multiplex in Hz, flat to 100 kHz, at wideHz() samples a
    // second. It is only calculated if this is set; a composite recording has none.
    using WideListener = std::function<void(std::span<const float>)>;
    void onWide(WideListener listener) { onWide_ = std::move(listener); }
    double wideHz() const { return rates_.composite; }

    const Disturbances& disturbances() const { return disturbances_; }

    // For response runs.
    const AudioFigures& audio() const { return audio_; }

 private:
    void pushBand(std::span<const Sample> channel);
    void pushComposite(std::span<const Sample> samples);
    void recentre();
    void watchBlocks();
    void takeFinding(const CarrierWatch::Look& look, std::uint64_t block);
    void handOn(std::size_t count);
    void takeComposite(std::span<const float> composite);
    void addPilot(std::span<const float> composite);
    void splice(std::uint64_t place);
    bool liesBetween(const SpoiltSamples& spans, double fromSeconds, double toSeconds,
                     double leastSeconds = 0) const;
    bool spoiltBetween(double fromSeconds, double toSeconds, double leastSeconds = 0) const {
        return liesBetween(spoilt_, fromSeconds, toSeconds, leastSeconds);
    }
    void endSlot();
    void settleRadio();
    void settleSlot(const SlotMoments& moments, double now);
    void chooseWidth();
    bool peakHidden();
    void settleCarrier(const SlotMoments& moments);
    void settleAudio();
    void settlePilot(double now);
    void settlePower();
    void blank();
    FigureStates states() const;

    ChainSettings settings_;
    Rates rates_;
    ChannelShape shape_;
    std::size_t slotLength_;

    // Shifts the carrier to the middle of the channel's filters.
    Mixer recentring_{0};
    double shiftHz_ = 0;
    double shiftBeforeHz_ = 0;
    std::uint64_t shiftFrom_ = 0;  // first sample of frequency with the newest shift
    std::uint64_t taken_ = 0;      // samples of the channel

    ChannelFilter filter_;
    Demodulator demodulator_;
    RealDecimator compositeFilter_;
    BandDecimator pilotBand_;
    ComplexDecimator pilotFilter_;
    StereoDecoder decoder_;
    RdsReceiver rds_;

    CarrierWatch watch_;
    SpoiltSamples spoilt_;
    SpoiltSamples away_;          // spoilt samples at which the radio was away
    std::deque<double> splices_;  // where an unknown number is missing, in the multiplex's time
    Disturbances disturbances_;
    bool inGap_ = false;
    bool standing_ = false;                      // figures stand over a spoilt slot
    std::optional<std::uint64_t> countedBurst_;  // block of the last one
    bool tooNoisy_ = false;
    std::uint64_t handedOn_ = 0;   // samples of frequency_ that have gone before those in it
    std::size_t watched_ = 0;      // of those in it, how many have been looked at
    std::size_t spoiltSlots_ = 0;  // in a row

    PilotTrack pilot_;
    std::size_t pilotPoints_ = 0;
    CarrierMean carrier_;
    PeaksPerMinute peaks_;
    SlotPeak peak_;
    PeakNoise peakNoise_;
    PeakDoubt peakDoubt_;
    Multipath multipath_;
    ChannelPower channelPower_;
    AudioFigures audio_;
    Ring meanSquares_{20};

    std::size_t slots_ = 0;
    std::size_t sinceWidth_ = 0;
    std::size_t carrierSlots_ = 0;  // slots that the carrier's mean has taken
    Figures figures_;
    StationSlot slot_;
    std::function<void(const StationSlot&)> onSlot_;
    std::function<void(const RdsGroup&)> onGroup_;
    SoundListener onSound_;
    WideListener onWide_;

    std::vector<Sample> centred_;
    std::vector<Sample> channel_;
    std::vector<float> frequency_;
    std::vector<float> envelope_;
    std::vector<float> real_;
    std::vector<float> composite_;
    std::vector<float> wide_;
    std::vector<float> slotSamples_;
    std::vector<float> left_;
    std::vector<float> right_;
    std::vector<std::complex<float>> pilotWide_;
    std::vector<std::complex<float>> pilotNarrow_;
};

}  // namespace hm16::receiver
