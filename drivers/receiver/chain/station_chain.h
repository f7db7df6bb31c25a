// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "drivers/receiver/chain/demodulator.h"
#include "drivers/receiver/chain/front_end.h"
#include "drivers/receiver/chain/peak_noise.h"
#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/chain/rds_receiver.h"
#include "drivers/receiver/chain/stereo_decoder.h"
#include "drivers/receiver/figures/audio_figures.h"
#include "drivers/receiver/figures/carrier_mean.h"
#include "drivers/receiver/figures/channel_power.h"
#include "drivers/receiver/figures/figures.h"
#include "drivers/receiver/figures/multipath.h"
#include "drivers/receiver/figures/peaks_per_minute.h"
#include "drivers/receiver/figures/pilot_track.h"
#include "drivers/receiver/figures/ring.h"
#include "drivers/receiver/figures/slot_moments.h"
#include "drivers/receiver/figures/slot_peak.h"

namespace hm16::receiver {

// What a chain needs to know about its samples.
struct ChainSettings {
    Domain domain = Domain::Band;
    double rateHz = 0;    // true rate, the clock's error taken out
    double offsetHz = 0;  // where the tuned frequency truly stands in the samples
    double deemphasisUs = 50;
    double dbuvAtFullScale = 0;             // field of a carrier of amplitude 1
    double compositeHzAtFullScale = 100e3;  // deviation that a composite sample of 1.0 stands for
};

// The whole way from samples to figures for one tuned station. Samples go in as they come; the
// figures are settled anew at the end of each slot of 50 ms. The samples are worked on in pieces of
// one fixed length, so that the figures do not depend, not even by a rounding, on how many come at
// a time; up to 2.5 ms of them wait for the rest of their piece.
class StationChain {
 public:
    explicit StationChain(const ChainSettings& settings);

    void push(std::span<const Sample> samples);

    const Figures& figures() const { return figures_; }

    // Slots measured so far.
    std::size_t slots() const { return slots_; }

    // For response runs.
    const AudioFigures& audio() const { return audio_; }

 private:
    void pushPiece(std::span<const Sample> samples);
    void pushBand(std::span<const Sample> samples);
    void pushComposite(std::span<const Sample> samples);
    void takeComposite(std::span<const float> composite);
    void addPilot(std::span<const float> composite);
    void endSlot();
    void chooseWidth();
    void settleCarrier(const SlotMoments& moments, double noiseHz);
    void settleAudio();
    void settlePilot(double now);
    void settlePower();
    void blank();

    ChainSettings settings_;
    Rates rates_;
    std::size_t slotLength_;
    std::size_t pieceLength_;
    std::vector<Sample> held_;  // of the piece that is not full yet

    FrontEnd frontEnd_;
    Demodulator demodulator_;
    RealDecimator compositeFilter_;
    BandDecimator pilotBand_;
    ComplexDecimator pilotFilter_;
    StereoDecoder decoder_;
    RdsReceiver rds_;

    PilotTrack pilot_;
    std::size_t pilotPoints_ = 0;
    CarrierMean carrier_;
    PeaksPerMinute peaks_;
    SlotPeak peak_;
    PeakNoise peakNoise_;
    Multipath multipath_;
    ChannelPower channelPower_;
    AudioFigures audio_;
    Ring meanSquares_{20};

    std::size_t slots_ = 0;
    std::size_t sinceWidth_ = 0;
    Figures figures_;

    std::vector<Sample> wide_;
    std::vector<Sample> channel_;
    std::vector<float> frequency_;
    std::vector<float> envelope_;
    std::vector<float> real_;
    std::vector<float> composite_;
    std::vector<float> slot_;
    std::vector<float> left_;
    std::vector<float> right_;
    std::vector<std::complex<float>> pilotWide_;
    std::vector<std::complex<float>> pilotNarrow_;
};

}  // namespace hm16::receiver
