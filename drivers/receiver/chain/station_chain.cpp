// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/station_chain.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>

#include "drivers/receiver/dsp/filter_design.h"

namespace hm16::receiver {
namespace {

constexpr double kPilotFlatHz = 60;
constexpr double kPilotFitSeconds = 0.2;
constexpr double kPilotAroundSeconds = 0.025;  // on each side of a slot, for decoding
constexpr double kLeastPilotHz = 450;          // 0.6 percent

// Relative variance of the envelope above which there is noise and no carrier: about 10 dB of
// carrier-to-noise ratio in 200 kHz, the threshold of FM discriminators.
constexpr double kMostRoughness = 0.1;

// The highest peak of a slot carries the noise of that one moment. Below a carrier-to-noise ratio
// of about 20 dB in 200 kHz the error may exceed 3 kHz, so the peak is then unknown.
constexpr double kMostPeakNoiseHz = 2700;

// Above this the discriminator clicks now and then, and a click would read as a peak.
constexpr double kMostPeakRoughness = 0.04;
// Largest estimated share of a neighbour in a peak for which the peak is still within 3 kHz.
constexpr double kMostDoubtHz = 5000;
// A neighbour this many times stronger than the station disturbs more, so less is allowed.
constexpr double kMuchStronger = 4;
constexpr double kMostDoubtBesideStrongHz = 2500;

// Shares of a neighbour in the power of the channel at which the narrow filter is taken and left. A
// neighbour at 200 kHz beats with the carrier inside the band of the multiplex.
constexpr double kNeighbourNarrow = 0.04;
constexpr double kNeighbourWide = 0.03;

// Least variance of the envelope that a neighbour causes, relative to its share of the power.
constexpr double kNeighbourRoughness = 0.1;
constexpr double kStrongerNeighbour = 1;

// Slots after a change of the filter that contain its transient.
constexpr std::size_t kSettling = 2;

// How far before the place of its detection a gap may begin, in samples of the channel.
constexpr std::size_t kBeforeFinding = CarrierWatch::kBlock + 64;

// Figures hold their last value through this many spoilt slots in a row (150 ms).
constexpr std::size_t kMostSpoiltSlots = 3;

// The audio filters spread a disturbance by this much to each side.
constexpr double kAudioSpreadSeconds = 0.002;

// The pilot filter spreads a disturbance by this much; one shorter than the second figure has no
// visible effect on it.
constexpr double kPilotSpreadSeconds = 0.007;
constexpr double kPilotHardlyMovedSeconds = 0.0005;

// The channel is centred on the carrier once it has been this far off for this many slots.
constexpr double kOffCentreHz = 4000;
constexpr std::size_t kSteadySlots = 4;

// Slots after which the carrier offset is known well enough to be subtracted from the audio.
constexpr std::size_t kFewestForAudio = 1;

std::vector<double> pilotBandTaps(const Rates& rates) {
    return designLowPass(rates.composite, 100, rates.narrow - 200);
}

std::vector<double> pilotTaps(const Rates& rates) {
    return designLowPass(rates.narrow, kPilotFlatHz, rates.pilot - kPilotFlatHz);
}

}  // namespace

StationChain::StationChain(const ChainSettings& settings, const Rates& rates,
                           const ChannelShape& channel)
    : settings_(settings),
      rates_(rates),
      shape_(channel),
      slotLength_(static_cast<std::size_t>(std::lround(kSlotSeconds * rates_.composite))),
      filter_(rates_),
      demodulator_(rates_, settings.peakEdge),
      compositeFilter_(compositeTaps(rates_.channel, Droop::None, settings.peakEdge),
                       rates_.compositeStep),
      pilotBand_(pilotBandTaps(rates_), rates_.narrowStep, kPilotHz / rates_.composite),
      pilotFilter_(pilotTaps(rates_), rates_.pilotStep),
      decoder_(rates_, settings.deemphasisUs),
      rds_(rates_),
      watch_(rates_.channel, channel.roughening),
      watched_(CarrierWatch::kBeside),
      peakNoise_(rates_, channel.noiseHz, settings.peakEdge),
      peakDoubt_(rates_, settings.peakEdge),
      multipath_(rates_.channel),
      channelPower_(rates_.channel),
      audio_(rates_.audio) {}

void StationChain::push(std::span<const Sample> channel) {
    composite_.clear();
    if (settings_.domain == Domain::Band) {
        pushBand(channel);
    } else {
        pushComposite(channel);
    }
    takeComposite(composite_);
}

void StationChain::pushBand(std::span<const Sample> channel) {
    channel_.clear();
    centred_.assign(channel.begin(), channel.end());
    recentring_.process(centred_);
    taken_ += channel.size();
    channelPower_.add(centred_);
    filter_.process(centred_, channel_);
    const std::size_t before = frequency_.size();
    demodulator_.discriminate(channel_, frequency_, envelope_);
    for (std::size_t n = before; n < frequency_.size(); ++n)
        frequency_[n] += static_cast<float>(handedOn_ + n < shiftFrom_ ? shiftBeforeHz_ : shiftHz_);
    watchBlocks();
}

// With the carrier far off the centre the filter cuts strong modulation on one side, which looks
// like a neighbour there. The demodulated frequency is corrected, so that it does not jump.
void StationChain::recentre() {
    if (std::fabs(carrier_.hz() - shiftHz_) < kOffCentreHz) return;
    shiftBeforeHz_ = shiftHz_;
    shiftHz_ = carrier_.hz();
    recentring_.setTurns(shiftHz_ / rates_.channel);
    const std::uint64_t delay = filter_.delay();
    shiftFrom_ = taken_ > delay ? taken_ - delay : 0;
    // The narrow filter spreads the frequency step over its length.
    if (filter_.width() == ChannelWidth::Narrow)
        spoilt_.add(shiftFrom_ - std::min<std::uint64_t>(shiftFrom_, filter_.length()),
                    shiftFrom_ + filter_.length());
}

void StationChain::pushComposite(std::span<const Sample> samples) {
    real_.clear();
    const auto scale = static_cast<float>(settings_.compositeHzAtFullScale);
    for (const Sample sample : samples) real_.push_back(sample.real() * scale);
    spoilt_.mend(handedOn_, real_.size(), real_, static_cast<float>(carrier_.hz()));
    handedOn_ += real_.size();
    compositeFilter_.process(real_, composite_);
}

void StationChain::spoil(std::uint64_t from, std::uint64_t to, std::uint64_t lostSamples,
                         Missing why) {
    if (why == Missing::Lost) {
        ++disturbances_.gaps;
        disturbances_.lostSamples += lostSamples;
    }
    if (lostSamples == 0) splice(from);
    if (settings_.domain == Domain::Band) {
        // The filter delivers input sample `from` as output sample `from - delay`; the narrow one
        // spreads it over its whole length.
        const bool narrow = filter_.width() == ChannelWidth::Narrow;
        const std::uint64_t before = narrow ? filter_.length() : filter_.delay() + 1;
        const std::uint64_t behind = narrow ? 0 : filter_.delay();
        from = from > before ? from - before : 0;
        to = to > behind ? to - behind + 1 : 1;
    }
    spoilt_.add(from, to);
    if (why == Missing::Away) away_.add(from, to);
}

void StationChain::watchBlocks() {
    while (frequency_.size() >= watched_ + CarrierWatch::kBlock + CarrierWatch::kBeside) {
        const auto look = watch_.look(frequency_.data() + watched_, envelope_.data() + watched_);
        takeFinding(look, handedOn_ + watched_);
        watched_ += CarrierWatch::kBlock;
    }
    if (watched_ <= kBeforeFinding) return;
    const std::uint64_t place = handedOn_ + watched_ - kBeforeFinding;
    handOn(static_cast<std::size_t>(spoilt_.besideBridges(place) - handedOn_));
}

void StationChain::takeFinding(const CarrierWatch::Look& look, std::uint64_t block) {
    const std::uint64_t end = block + CarrierWatch::kBlock;
    const bool gap = look.finding == CarrierWatch::Finding::Gap;
    if (gap) {
        // The edge of a gap is first detected as a burst.
        const bool edge = countedBurst_ && *countedBurst_ + CarrierWatch::kBlock == block;
        if (!inGap_ && edge) --disturbances_.bursts;
        if (!inGap_ && (edge || !spoilt_.touches(block, end))) ++disturbances_.gaps;
        spoilt_.add(block - std::min<std::uint64_t>(block, CarrierWatch::kBlock),
                    end + CarrierWatch::kBlock);
    } else if (look.finding == CarrierWatch::Finding::Burst) {
        if (!spoilt_.touches(block + look.from, block + look.to)) {
            ++disturbances_.bursts;
            countedBurst_ = block;
        }
        spoilt_.add(block + look.from, block + look.to);
        splice(block + look.from);
    }
    inGap_ = gap;
}

// After this place the signal may continue at another time, so the phase of the pilot may jump.
void StationChain::splice(std::uint64_t place) {
    const double seconds = static_cast<double>(place) / rates_.channel;
    splices_.push_back(seconds);
    pilot_.splice(seconds);
}

// Sends the oldest `count` samples of frequency and envelope down the chain.
void StationChain::handOn(std::size_t count) {
    if (count == 0) return;
    const auto frequency = std::span(frequency_);
    spoilt_.mend(handedOn_, count, frequency, static_cast<float>(carrier_.hz()));
    demodulator_.lowPass(frequency.first(count), composite_);
    if (onWide_) {
        wide_.clear();
        demodulator_.wideLowPass(frequency.first(count), wide_);
        onWide_(wide_);
    }
    const bool narrow = filter_.width() == ChannelWidth::Narrow;
    if (narrow) peakDoubt_.add(std::span(envelope_).first(count + 1));
    spoilt_.eachClean(handedOn_, count, [&](std::size_t from, std::size_t to) {
        multipath_.add(frequency.subspan(from, to - from),
                       std::span(envelope_).subspan(from, to - from), carrier_.hz(),
                       narrow ? 60e3 : shape_.flatHz);
    });
    const auto used = static_cast<std::ptrdiff_t>(count);
    frequency_.erase(frequency_.begin(), frequency_.begin() + used);
    envelope_.erase(envelope_.begin(), envelope_.begin() + used);
    handedOn_ += count;
    watched_ -= count;
}

void StationChain::takeComposite(std::span<const float> composite) {
    while (!composite.empty()) {
        const auto part =
            composite.first(std::min(composite.size(), slotLength_ - slotSamples_.size()));
        slotSamples_.insert(slotSamples_.end(), part.begin(), part.end());
        addPilot(part);
        peakNoise_.add(part);
        decoder_.add(part);
        rds_.add(part);
        composite = composite.subspan(part.size());
        if (slotSamples_.size() < slotLength_) continue;
        endSlot();
        slotSamples_.clear();
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
        const double now = delay + static_cast<double>(pilotPoints_) / rates_.pilot;
        ++pilotPoints_;
        if (spoiltBetween(now - kPilotSpreadSeconds, now + kPilotSpreadSeconds,
                          kPilotHardlyMovedSeconds))
            continue;
        pilot_.add(now, point);
    }
}

// Times are those of the multiplex; only spans of at least `leastSeconds` count.
bool StationChain::liesBetween(const SpoiltSamples& spans, double fromSeconds, double toSeconds,
                               double leastSeconds) const {
    const auto place = [this](double seconds) {
        return static_cast<std::uint64_t>(std::max(0.0, seconds * rates_.channel));
    };
    return spans.touchesLonger(place(fromSeconds), place(toSeconds) + demodulator_.length(),
                               place(leastSeconds));
}

void StationChain::endSlot() {
    ++slots_;
    ++sinceWidth_;
    peak_.take(slotSamples_);
    const SlotMoments moments = momentsOf(slotSamples_);
    const double length = static_cast<double>(slotLength_) / rates_.composite;
    const double now = static_cast<double>(slots_) * length;
    slot_.spoilt = spoiltBetween(now - length, now);
    slot_.away = liesBetween(away_, now - length, now);
    spoiltSlots_ = slot_.spoilt ? spoiltSlots_ + 1 : 0;
    // When every slot is spoilt, their good samples are used instead of holding for ever.
    standing_ = slot_.spoilt && spoiltSlots_ <= kMostSpoiltSlots;
    if (settings_.domain == Domain::Band) settleRadio();
    rds_.endSlot();
    for (const RdsGroup& group : rds_.groups())
        if (onGroup_) onGroup_(group);
    settleSlot(moments, now);
    settleAudio();
    while (!splices_.empty() && splices_.front() < now - 1) splices_.pop_front();
    const auto past = static_cast<std::uint64_t>(std::max(0.0, now - 1) * rates_.channel);
    spoilt_.forget(past);
    away_.forget(past);
    slot_.number = slots_ - 1;
    slot_.endSeconds =
        now + (demodulator_.delay() + static_cast<double>(filter_.delay()) + 0.5) / rates_.channel +
        shape_.delaySeconds;
    slot_.figures = figures_;
    slot_.states = states();
    if (onSlot_) onSlot_(slot_);
}

// Figures that need the radio channel and not only the multiplex: power, noise, filter width.
void StationChain::settleRadio() {
    watch_.endSlot();
    if (standing_) {
        channelPower_.forgetSlot();
        peakNoise_.forgetSlot();
        return;
    }
    channelPower_.endSlot();
    const double power = channelPower_.lately();
    figures_.fieldDb =
        power > 0 ? std::max(0.0, 10 * std::log10(power) + settings_.dbuvAtFullScale) : 0;
    peakNoise_.endSlot();
    figures_.multipathPercent = multipath_.percent();
    watch_.setEchoes(figures_.multipathPercent > kEchoesHidePercent);
    multipath_.endSlot();
    chooseWidth();
    if (figures_.carrier && sinceWidth_ > kSettling + kSteadySlots) recentre();
}

void StationChain::settleSlot(const SlotMoments& moments, double now) {
    const bool band = settings_.domain == Domain::Band;
    // The state of the carrier holds through a gap.
    const bool settled = sinceWidth_ > kSettling;
    if (!figures_.carrier || (settled && !standing_))
        figures_.carrier =
            band ? watch_.carrier() && watch_.roughness() < kMostRoughness : moments.meanSquare > 0;
    if (!figures_.carrier) {
        blank();
        peaks_.add(0);
        return;
    }
    if (settled) settleCarrier(moments);
    // Called in every slot, so that the transient of a filter change does not count for later
    // slots.
    const bool hidden = band && peakHidden();
    if (settled && !standing_) tooNoisy_ = hidden;
    // Beside a strong neighbour the good samples of a spoilt slot are no better than the others.
    if (tooNoisy_ || (standing_ && figures_.narrow && hidden)) figures_.peakHz = 0;
    settlePilot(now);
    settlePower();
    peaks_.add(settled ? figures_.peakHz : 0);
    figures_.peaksPerMinute = peaks_.count();
}

// Whether noise or a neighbour makes the peak uncertain.
bool StationChain::peakHidden() {
    const double doubtHz = peakDoubt_.takeHz();
    if (watch_.roughness() > kMostPeakRoughness) return true;
    if (!figures_.narrow) return peakNoise_.rmsHz(watch_.roughness()) > kMostPeakNoiseHz;
    const bool strong = channelPower_.neighbour() > kMuchStronger;
    return doubtHz > (strong ? kMostDoubtBesideStrongHz : kMostDoubtHz);
}

void StationChain::chooseWidth() {
    double neighbour = channelPower_.neighbour();
    const bool narrow = filter_.width() == ChannelWidth::Narrow;
    // Strong modulation has power where a neighbour would have it, but only a neighbour makes the
    // envelope vary, unless it is stronger than the station.
    if (!narrow && neighbour < kStrongerNeighbour &&
        watch_.roughness() < kNeighbourRoughness * std::min(neighbour, 0.3))
        neighbour = 0;
    if (narrow ? neighbour >= kNeighbourWide : neighbour <= kNeighbourNarrow) return;
    filter_.setWidth(narrow ? ChannelWidth::Wide : ChannelWidth::Narrow);
    if (narrow) {
        watch_.setFilter(shape_.roughening, CarrierWatch::Bursts::Sought);
    } else {
        watch_.setFilter(filter_.roughening(), CarrierWatch::Bursts::NotSought);
    }
    figures_.narrow = !narrow;
    sinceWidth_ = 0;
    // Averages over the other filter's output do not apply to this one.
    multipath_ = Multipath(rates_.channel);
    carrier_ = CarrierMean();
    carrierSlots_ = 0;
    meanSquares_.clear();
}

void StationChain::settleCarrier(const SlotMoments& moments) {
    if (!standing_) {
        carrier_.add(slotSamples_);
        ++carrierSlots_;
        figures_.carrierHz = carrier_.hz();
    }
    // With a neighbour the variance of the envelope is no measure of noise.
    const bool noisy = settings_.domain == Domain::Band && !figures_.narrow;
    const double noise = noisy ? peakNoise_.rmsHz(watch_.roughness()) : 0;
    // In a spoilt slot this is the peak of its good samples, a lower bound.
    figures_.peakHz = peak_.peakFrom(figures_.carrierHz, noise);
    if (!standing_) meanSquares_.add(moments.meanSquare - figures_.carrierHz * figures_.carrierHz);
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

// Without a carrier only the field is known.
void StationChain::blank() {
    const double field = figures_.fieldDb;
    const bool narrow = figures_.narrow;
    const double phase = figures_.stereoPhaseDegrees;
    figures_ = Figures();
    figures_.fieldDb = field;
    figures_.narrow = narrow;
    figures_.stereoPhaseDegrees = phase;
    carrier_ = CarrierMean();
    carrierSlots_ = 0;
    meanSquares_.clear();
}

void StationChain::settleAudio() {
    const double from = decoder_.nextSeconds();
    const double to = from + kSlotSeconds;
    // Decoding needs the phase of the pilot on both sides.
    if (pilot_.newest() < to + kPilotAroundSeconds) return;
    left_.clear();
    right_.clear();
    PilotLine line = pilot_.fit(from - kPilotAroundSeconds, to + kPilotAroundSeconds);
    if (!figures_.stereo) line = PilotLine();
    decoder_.decode(to, line, left_, right_);
    if (!figures_.carrier) {
        std::fill(left_.begin(), left_.end(), 0.0F);
        std::fill(right_.begin(), right_.end(), 0.0F);
    }
    // A carrier offset leaves a constant in the audio, which would count in every power.
    const auto constant = static_cast<float>(figures_.carrierHz * decoder_.constantGain());
    for (float& value : left_) value -= constant;
    for (float& value : right_) value -= constant;
    if (onSound_) onSound_(left_, right_);
    if (!figures_.carrier) return;
    // A phase fitted across a splice is wrong on both sides.
    const bool spliced = std::any_of(splices_.begin(), splices_.end(), [=](double at) {
        return at > from - kPilotAroundSeconds - kPilotSpreadSeconds &&
               at < to + kPilotAroundSeconds + kPilotSpreadSeconds;
    });
    const bool spoilt =
        spliced || spoiltBetween(from - kAudioSpreadSeconds, to + kAudioSpreadSeconds);
    audio_.add(left_, right_, figures_.stereo,
               carrierSlots_ < kFewestForAudio || (spoilt && spoiltSlots_ <= kMostSpoiltSlots));
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

FigureStates StationChain::states() const {
    using enum FigureState;
    if (slot_.away) return allFigures(UnitAway);
    if (slot_.spoilt) return allFigures(Gap);
    if (!figures_.carrier) return {};
    FigureStates states = allFigures(Known);
    const auto knownIf = [](bool known, FigureState why) { return known ? Known : why; };
    const bool settled = sinceWidth_ > kSettling;
    states.peak = !settled ? Settling : knownIf(!tooNoisy_, TooNoisy);
    states.carrier = states.power = knownIf(settled, Settling);
    states.pilotError = knownIf(figures_.stereo, NoPilot);
    states.noise = knownIf(figures_.noiseLeftDb != 0, Settling);
    const FigureState apart = figures_.stereo ? NotMeasured : NoPilot;
    states.separationLeft = knownIf(figures_.separationLeftDb > 0, apart);
    states.separationRight = knownIf(figures_.separationRightDb > 0, apart);
    states.distortion = knownIf(figures_.distortionPercent > 0, NotMeasured);
    states.rdsError = knownIf(figures_.rds, NoCarrier);
    if (settings_.domain == Domain::Composite) states.field = states.multipath = NotMeasured;
    if (carrierSlots_ < kFewestForAudio) states.levels = Settling;
    if (figures_.multipathPercent > kEchoesHidePercent) states = hiddenByEchoes(states);
    return states;
}

}  // namespace hm16::receiver
