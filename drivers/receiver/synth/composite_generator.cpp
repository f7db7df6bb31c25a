// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/synth/composite_generator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drivers/receiver/rds/rds_pulse.h"
#include "drivers/receiver/synth/random.h"

namespace hm16::receiver {
namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;
constexpr double kFullAudioHz = 67.5e3;
constexpr double kPilotHz = 19000;

double turnsAt(double hz, std::uint64_t sample, double rateHz) {
    const double turns = hz * (static_cast<double>(sample) / rateHz);
    return turns - std::floor(turns);
}

// A sine that is stepped by multiplication and set right at each block's start.
class Spinner {
 public:
    Spinner(double hz, std::uint64_t sample, double rateHz, double phase = 0)
        : now_(std::polar(1.0, kTwoPi * turnsAt(hz, sample, rateHz) + phase)),
          step_(std::polar(1.0, kTwoPi * hz / rateHz)) {}

    std::complex<double> next() {
        const std::complex<double> result = now_;
        now_ *= step_;
        return result;
    }

 private:
    std::complex<double> now_;
    std::complex<double> step_;
};

double preEmphasis(double hz, double microseconds) {
    return std::hypot(1.0, kTwoPi * hz * microseconds * 1e-6);
}

}  // namespace

CompositeGenerator::CompositeGenerator(const StationPlan& plan, double rateHz, std::uint64_t seed)
    : plan_(plan), rateHz_(rateHz), rds_(plan.rds) {
    for (const AudioTone& tone : plan_.tones) {
        const double gain = kFullAudioHz * preEmphasis(tone.hz, plan_.preEmphasisUs) / 2;
        steady_.push_back(
            {tone.hz, gain * (tone.left + tone.right), gain * (tone.left - tone.right), 0, 0});
    }
    if (plan_.programme.level > 0) addProgramme(plan_.programme, seed);
}

void CompositeGenerator::addProgramme(const Programme& programme, std::uint64_t seed) {
    Random random(seed);
    constexpr int kNotes = 10;
    for (int n = 0; n < kNotes; ++n) {
        Voice note;
        note.hz = 110 * std::pow(2.0, n * 0.55 + 0.2 * random.uniform());
        const double gain = kFullAudioHz * programme.level *
                            preEmphasis(note.hz, plan_.preEmphasisUs) * 0.45 / (1 + 0.6 * n);
        note.sum = gain;
        note.difference = gain * programme.width * (random.uniform() < 0.5 ? -1 : 1);
        note.beatHz = 0.7 + 3 * random.uniform();
        note.beatPhase = kTwoPi * random.uniform();
        notes_.push_back(note);
    }
}

void CompositeGenerator::addVoice(const Voice& voice, std::size_t count, double* sum,
                                  double* difference) const {
    Spinner tone(voice.hz, done_, rateHz_);
    if (voice.beatHz == 0) {
        for (std::size_t n = 0; n < count; ++n) {
            const double value = tone.next().imag();
            sum[n] += voice.sum * value;
            difference[n] += voice.difference * value;
        }
        return;
    }
    Spinner beat(voice.beatHz, done_, rateHz_, voice.beatPhase);
    for (std::size_t n = 0; n < count; ++n) {
        const double value = tone.next().imag() * (0.5 + 0.5 * beat.next().imag());
        sum[n] += voice.sum * value;
        difference[n] += voice.difference * value;
    }
}

// Takes the pauses out of the programme, with ramps of 5 ms.
void CompositeGenerator::addPauses(std::size_t count, double* sum, double* difference) const {
    const Programme& programme = plan_.programme;
    if (programme.pauseLength <= 0) return;
    constexpr double kRamp = 0.005;
    for (std::size_t n = 0; n < count; ++n) {
        const double t = static_cast<double>(done_ + n) / rateHz_;
        const double within = std::fmod(t, programme.pauseEvery);
        const double toEdge = std::min(within - (programme.pauseEvery - programme.pauseLength),
                                       programme.pauseEvery - within);
        const double gain = std::clamp(1 - toEdge / kRamp, 0.0, 1.0);
        sum[n] *= gain;
        difference[n] *= gain;
    }
}

void CompositeGenerator::addDirect(const DirectTone& tone, std::size_t count, double* out) const {
    Spinner spinner(tone.hz, done_, rateHz_);
    for (std::size_t n = 0; n < count; ++n) out[n] += tone.deviationHz * spinner.next().imag();
}

void CompositeGenerator::addBursts(std::size_t count, double* out) const {
    for (const Burst& burst : plan_.bursts) {
        const auto first = static_cast<std::uint64_t>(burst.startSeconds * rateHz_);
        const auto last =
            static_cast<std::uint64_t>((burst.startSeconds + burst.lengthSeconds) * rateHz_);
        if (last <= done_ || first >= done_ + count) continue;
        for (std::uint64_t n = std::max(first, done_); n < std::min(last, done_ + count); ++n) {
            const double turns = turnsAt(burst.tone.hz, n - first, rateHz_);
            out[n - done_] += burst.tone.deviationHz * std::sin(kTwoPi * turns);
        }
    }
}

void CompositeGenerator::generate(std::size_t count, std::vector<double>& out) {
    sum_.assign(count, 0.0);
    difference_.assign(count, 0.0);
    for (const Voice& voice : steady_) addVoice(voice, count, sum_.data(), difference_.data());
    if (!notes_.empty()) {
        programmeSum_.assign(count, 0.0);
        programmeDifference_.assign(count, 0.0);
        for (const Voice& note : notes_)
            addVoice(note, count, programmeSum_.data(), programmeDifference_.data());
        addPauses(count, programmeSum_.data(), programmeDifference_.data());
        for (std::size_t n = 0; n < count; ++n) {
            sum_[n] += programmeSum_[n];
            difference_[n] += programmeDifference_[n];
        }
    }
    const std::size_t before = out.size();
    out.resize(before + count);
    double* to = out.data() + before;
    const double pilotHz = kPilotHz + plan_.pilotErrorHz;
    const bool stereo = plan_.pilotDeviationHz > 0;
    Spinner pilot(pilotHz, done_, rateHz_);
    for (std::size_t n = 0; n < count; ++n) {
        to[n] = sum_[n];
        if (!stereo) continue;
        // sin(2a) = 2 sin(a) cos(a): the subcarrier crosses zero upwards with the pilot.
        const std::complex<double> p = pilot.next();
        to[n] += plan_.pilotDeviationHz * p.imag() + difference_[n] * 2 * p.imag() * p.real();
    }
    if (plan_.rds.deviationHz > 0) {
        const double subcarrierHz = 3 * pilotHz + plan_.rds.errorHz;
        Spinner subcarrier(subcarrierHz, done_, rateHz_,
                           plan_.rds.phaseDegrees * std::numbers::pi / 180);
        const double bitsPerSample = subcarrierHz / 48 / rateHz_;
        for (std::size_t n = 0; n < count; ++n) {
            const double data = plan_.rds.plainCarrier
                                    ? 1.0
                                    : rds_.at(static_cast<double>(done_ + n) * bitsPerSample);
            to[n] += plan_.rds.deviationHz * data * subcarrier.next().imag();
        }
    }
    for (const DirectTone& tone : plan_.direct) addDirect(tone, count, to);
    addBursts(count, to);
    done_ += count;
}

}  // namespace hm16::receiver
