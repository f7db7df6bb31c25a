// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <thread>
#include <vector>

#include "drivers/receiver/radio/radio_loop.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// A live radio, on its own thread. A driver that never returns blocks that thread and nothing else.
class SoapySource : public SampleSource {
 public:
    // Throws SourceError when SoapySDR or the radio is not there or refuses.
    explicit SoapySource(const SoapyRequest& request);
    ~SoapySource() override;

    double rateHz() const override { return loop_->rateHz(); }
    double centreHz() const override { return loop_->centreHz(); }
    std::size_t read(std::span<Sample> into) override;
    void rewind() override {}
    // Tunes so that `hz` is well off the centre, where a radio has a DC offset.
    bool retune(double hz) override { return loop_->tune(hz - rateHz() / 8); }
    bool live() const override { return true; }
    bool back() override { return loop_->sends(); }
    std::uint64_t badSamples() const override { return bad_; }
    std::span<const Loss> losses() const override { return losses_; }
    std::uint64_t timesLost() const override { return timesLost_; }

 private:
    void close();

    std::shared_ptr<RadioLoop> loop_;
    std::thread thread_;
    std::vector<Loss> losses_;  // of the last read
    std::uint64_t timesLost_ = 0;
    std::uint64_t bad_ = 0;
};

}  // namespace hm16::receiver
