// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/station_chain.h"

#include <algorithm>
#include <cmath>

#include "drivers/receiver/dsp/filter_design.h"

namespace hm16::receiver {
namespace {

// Pieces that stay in the processor's cache all along the chain, and short enough to keep no slot
// waiting for samples that have long come.
constexpr std::size_t kLongestPiece = 8192;
constexpr double kPieceSeconds = 0.0025;

constexpr double kPilotFlatHz = 60;
constexpr double kPilotFitSeconds = 0.2;
constexpr double kPilotAroundSeconds = 0.025;  // on each side of a slot, for decoding
constexpr double kLeastPilotHz = 450;          // 0.6 percent

// More variation of the envelope than this, at equal deviation, is noise and no carrier: at some
// 10 dB of carrier to noise in 200 kHz the discriminator's threshold begins.
constexpr double kMostRoughness = 0.1;

// From here on the discriminator clicks now and then, and a click is no peak of the station.
constexpr double kMostPeakRoughness = 0.04;

// A neighbour within these 200 kHz away beats with the carrier inside the multiplex.
constexpr double kNeighbourNarrow = 0.04;
constexpr double kNeighbourWide = 0.03;

// Slots after a change of the filter that hold its transient.
constexpr std::size_t kSettling = 2;

std::vector<double> pilotBandTaps(const Rates& rates) {
    return designLowPass(rates.composite, 100, rates.narrow - 200);
}

std::vector<double> pilotTaps(const Rates& rates) {
    return designLowPass(rates.narrow, kPilotFlatHz, rates.pilot - kPilotFlatHz);
}

}  // namespace

StationChain::StationChain(const ChainSettings& settings)
    : settings_(settings),
      rates_(planRates(settings.rateHz, settings.domain)),
      slotLength_(static_cast<std::size_t>(std::lround(kSlotSeconds * rates_.composite))),
      pieceLength_(std::min(kLongestPiece,
                            static_cast<std::size_t>(std::lround(kPieceSeconds * rates_.source)))),
      frontEnd_(rates_, settings.offsetHz),
      demodulator_(rates_),
      compositeFilter_(compositeTaps(rates_.channel, Droop::None), rates_.compositeStep),
      pilotBand_(pilotBandTaps(rates_), rates_.narrowStep, kPilotHz / rates_.composite),
      pilotFilter_(pilotTaps(rates_), rates_.pilotStep),
      decoder_(rates_, settings.deemphasisUs),
      rds_(rates_),
      peakNoise_(rates_, frontEnd_.noiseHz()),
      channelPower_(rates_.channel),
      audio_(rates_.audio) {}

void StationChain::push(std::span<const Sample> samples) {
    while (!samples.empty()) {
        if (held_.empty() && samples.size() >= pieceLength_) {
            pushPiece(samples.first(pieceLength_));
            samples = samples.subspan(pieceLength_);
            continue;
        }
        const auto part = samples.first(std::min(samples.size(), pieceLength_ - held_.size()));
        held_.insert(held_.end(), part.begin(), part.end());
        samples = samples.subspan(part.size());
        if (held_.size() < pieceLength_) continue;
        pushPiece(held_);
        held_.clear();
    }
}

void StationChain::pushPiece(std::span<const Sample> samples) {
    if (settings_.domain == Domain::Band) {
        pushBand(samples);
    } else {
        pushComposite(samples);
    }
}

void StationChain::pushBand(std::span<const Sample> samples) {
    wide_.clear();
    channel_.clear();
    frequency_.clear();
    envelope_.clear();
    composite_.clear();
    frontEnd_.process(samples, wide_, channel_);
    channelPower_.add(wide_);
    demodulator_.process(channel_, frequency_, envelope_, composite_);
    const bool narrow = frontEnd_.width() == ChannelWidth::Narrow;
    multipath_.add(frequency_, envelope_, carrier_.hz(), narrow ? 60e3 : frontEnd_.flatHz());
    takeComposite(composite_);
}

void StationChain::pushComposite(std::span<const Sample> samples) {
    real_.clear();
    composite_.clear();
    const auto scale = static_cast<float>(settings_.compositeHzAtFullScale);
    for (const Sample sample : samples) real_.push_back(sample.real() * scale);
    compositeFilter_.process(real_, composite_);
    takeComposite(composite_);
}

void StationChain::takeComposite(std::span<const float> composite) {
    while (!composite.empty()) {
        const auto part = composite.first(std::min(composite.size(), slotLength_ - slot_.size()));
        slot_.insert(slot_.end(), part.begin(), part.end());
        addPilot(part);
        peakNoise_.add(part);
        decoder_.add(part);
        rds_.add(part);
        composite = composite.subspan(part.size());
        if (slot_.size() < slotLength_) continue;
        endSlot();
        slot_.clear();
    }
}

void StationChain::addPilot(std::span<const float> composite) {
    pilotWide_.clear();
    pilotNarrow_.clear();
    pilotBand_.process(composite, pilotWide_);
    pilotFilter_.process(pilotWide_, pilotNarrow_);
    const double delay =
        pilotBand_.delay() / rates_.composite + pilotFilter_.delay() / rates_.narrow;
    for (const std::complex<float> point : pilotNarrow_) {
        pilot_.add(delay + static_cast<double>(pilotPoints_) / rates_.pilot, point);
        ++pilotPoints_;
    }
}

void StationChain::endSlot() {
    ++slots_;
    ++sinceWidth_;
    peak_.take(slot_);
    const SlotMoments moments = momentsOf(slot_);
    const double now =
        static_cast<double>(slots_) * static_cast<double>(slotLength_) / rates_.composite;
    bool present = moments.meanSquare > 0;
    double noise = 0;
    if (settings_.domain == Domain::Band) {
        channelPower_.endSlot();
        const double power = channelPower_.inChannel();
        figures_.fieldDb =
            power > 0 ? std::max(0.0, 10 * std::log10(power) + settings_.dbuvAtFullScale) : 0;
        present = multipath_.roughness() < kMostRoughness;
        peakNoise_.endSlot();
        // What a neighbour beats into the envelope is no noise.
        if (!figures_.narrow) noise = peakNoise_.rmsHz(multipath_.roughness());
        figures_.multipathPercent = multipath_.percent();
        multipath_.fade();
        chooseWidth();
    }
    rds_.endSlot();
    const bool settled = sinceWidth_ > kSettling;
    if (present) {
        if (settled) settleCarrier(moments, noise);
        if (multipath_.roughness() > kMostPeakRoughness && settings_.domain == Domain::Band)
            figures_.peakHz = 0;
        settlePilot(now);
        settlePower();
    } else {
        blank();
    }
    figures_.carrier = present;
    peaks_.add(present && settled ? figures_.peakHz : 0);
    figures_.peaksPerMinute = peaks_.count();
    settleAudio();
}

void StationChain::chooseWidth() {
    const double neighbour = channelPower_.neighbour();
    const bool narrow = frontEnd_.width() == ChannelWidth::Narrow;
    if (narrow ? neighbour >= kNeighbourWide : neighbour <= kNeighbourNarrow) return;
    frontEnd_.setWidth(narrow ? ChannelWidth::Wide : ChannelWidth::Narrow);
    figures_.narrow = !narrow;
    sinceWidth_ = 0;
    // What the other filter showed is no history for this one.
    multipath_ = Multipath();
    carrier_ = CarrierMean();
    meanSquares_.clear();
}

void StationChain::settleCarrier(const SlotMoments& moments, double noiseHz) {
    carrier_.add(moments.meanHz);
    figures_.carrierHz = carrier_.hz();
    figures_.peakHz = peak_.peakFrom(figures_.carrierHz, noiseHz);
    meanSquares_.add(moments.meanSquare - figures_.carrierHz * figures_.carrierHz);
}

void StationChain::settlePilot(double now) {
    const PilotLine line = pilot_.fit(now - kPilotFitSeconds, now);
    const double level = 2 * line.amplitude;
    figures_.stereo = line.steady() && level > kLeastPilotHz;
    figures_.pilotHz = figures_.stereo ? level : 0;
    figures_.pilotErrorHz = figures_.stereo ? line.errorHz() : 0;
    figures_.rds = rds_.band().present();
    figures_.rdsHz = figures_.rds ? rds_.band().levelHz() : 0;
    figures_.rdsErrorHz = figures_.rds ? rds_.band().errorHz() : 0;
    figures_.rdsGoodBlocks = rds_.decoder().goodBlocks();
    figures_.rdsCorrectedBlocks = rds_.decoder().correctedBlocks();
    figures_.rdsBadBlocks = rds_.decoder().badBlocks();
    figures_.rdsProgramme = rds_.decoder().programme();
    figures_.rdsName = rds_.decoder().name();
}

void StationChain::settlePower() {
    constexpr double kFull = 75e3 * 75e3 / 2;
    figures_.multiplexPower = meanSquares_.mean();
    const double pilot = figures_.pilotHz * figures_.pilotHz / 2;
    const double rds = figures_.rds ? rds_.band().meanSquare() : 0;
    figures_.relativePower = std::max(0.0, figures_.multiplexPower - pilot - rds) / kFull;
}

// Nothing but noise is there: no figure but the field's is known.
void StationChain::blank() {
    const double field = figures_.fieldDb;
    const bool narrow = figures_.narrow;
    const double phase = figures_.stereoPhaseDegrees;
    figures_ = Figures();
    figures_.fieldDb = field;
    figures_.narrow = narrow;
    figures_.stereoPhaseDegrees = phase;
    carrier_ = CarrierMean();
    meanSquares_.clear();
}

void StationChain::settleAudio() {
    const double from = decoder_.nextSeconds();
    const double to = from + kSlotSeconds;
    // The pilot must be known on both sides of what is decoded.
    if (pilot_.newest() < to + kPilotAroundSeconds) return;
    left_.clear();
    right_.clear();
    PilotLine line = pilot_.fit(from - kPilotAroundSeconds, to + kPilotAroundSeconds);
    if (!figures_.stereo) line = PilotLine();
    decoder_.decode(to, line, left_, right_);
    if (!figures_.carrier) return;
    audio_.add(left_, right_, figures_.stereo);
    figures_.levelLeftDb = audio_.leftDb();
    figures_.levelRightDb = audio_.rightDb();
    figures_.levelSumDb = audio_.sumDb();
    figures_.levelDifferenceDb = audio_.differenceDb();
    figures_.stereoPhaseDegrees = audio_.axis().degrees();
    figures_.noiseLeftDb = audio_.noiseLeft().db();
    figures_.noiseRightDb = audio_.noiseRight().db();
    figures_.separationLeftDb = audio_.separation().leftDb();
    figures_.separationRightDb = audio_.separation().rightDb();
    figures_.distortionPercent = audio_.tones().distortionPercent();
}

}  // namespace hm16::receiver
