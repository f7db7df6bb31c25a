// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

namespace hm16::receiver {

// One complex sample of the band; 1.0 is full scale of the converter.
using Sample = std::complex<float>;

// What a source's samples are.
enum class Domain {
    Band,       // complex samples around a centre frequency
    Composite,  // the demodulated multiplex of one station, in the real part
};

// Why there are no samples: one sentence that names the file or the radio and the fault.
class SourceError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

// Where samples come from. Used by one thread at a time.
class SampleSource {
 public:
    SampleSource() = default;
    SampleSource(const SampleSource&) = delete;
    SampleSource& operator=(const SampleSource&) = delete;
    virtual ~SampleSource() = default;

    virtual Domain domain() const { return Domain::Band; }

    // Samples a second as the source states them.
    virtual double rateHz() const = 0;

    // Frequency that is at 0 Hz in the samples; 0 for a composite source.
    virtual double centreHz() const = 0;

    // Distance between neighbouring values of the converter, 1.0 is full scale; 0 if it is unknown
    // or too small to matter.
    virtual double converterStep() const { return 0; }

    // Fills `into` and gives how many samples it wrote: fewer than asked at the end of a
    // recording, or when a live radio has nothing more. Never writes a sample that is not a finite
    // number. Throws SourceError when the source has failed for good.
    virtual std::size_t read(std::span<Sample> into) = 0;

    // Samples that a radio lost before sample `at` of the last read(), in the order of their
    // places; `count` is 0 if unknown.
    struct Loss {
        std::size_t at = 0;
        std::uint64_t count = 0;
    };
    virtual std::span<const Loss> losses() const { return {}; }

    // Goes back to the first sample; a live radio does nothing.
    virtual void rewind() = 0;

    // Brings `hz` into the band that is covered. False for what cannot be tuned.
    virtual bool retune(double hz) {
        static_cast<void>(hz);
        return false;
    }

    // True if tuning can reach what the samples do not cover now.
    virtual bool tunable() const { return live(); }

    // True if samples come at the pace of the air, however fast they are read.
    virtual bool live() const { return false; }

    // True if a live source that has failed gives samples again.
    virtual bool back() { return false; }

    // How often a live source has lost samples so far.
    virtual std::uint64_t timesLost() const { return 0; }

    // Number of samples from start to end; 0 if it has no end.
    virtual std::uint64_t length() const { return 0; }

    // Samples so far that were not finite numbers and were replaced by 0.
    virtual std::uint64_t badSamples() const { return 0; }
};

}  // namespace hm16::receiver
