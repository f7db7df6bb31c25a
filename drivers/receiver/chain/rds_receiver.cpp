// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/rds_receiver.h"

#include <cmath>

#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/rds/rds_pulse.h"

namespace hm16::receiver {
namespace {

constexpr double kDataHz = 2400;
constexpr double kDataStopHz = 3700;  // the difference channel's edge lies at 4 kHz

}  // namespace

RdsReceiver::RdsReceiver(const Rates& rates)
    : rates_(rates),
      bandFilter_(designLowPass(rates.composite, kDataHz + 100, rates.narrow - kDataHz - 200),
                  rates.narrowStep, kRdsSubcarrierHz / rates.composite),
      dataFilter_(designLowPass(rates.narrow, kDataHz, kDataStopHz), 1),
      startSeconds_(bandFilter_.delay() / rates.composite + dataFilter_.delay() / rates.narrow),
      band_(rates.narrow, startSeconds_),
      bits_([this](bool bit) { decoder_.bit(bit); }) {}

void RdsReceiver::add(std::span<const float> composite) {
    wide_.clear();
    bandFilter_.process(composite, wide_);
    dataFilter_.process(wide_, data_);
}

void RdsReceiver::endSlot() {
    band_.add(data_);
    band_.update();
    const double bitsPerSample =
        (kRdsSubcarrierHz + (band_.present() ? band_.errorHz() : 0)) / 48 / rates_.narrow;
    for (const std::complex<float> sample : data_) {
        const double seconds = startSeconds_ + static_cast<double>(taken_) / rates_.narrow;
        ++taken_;
        bitClock_ += bitsPerSample;
        if (!band_.present()) continue;
        const double axis = band_.axisAt(seconds);
        const double value = sample.real() * std::cos(axis) + sample.imag() * std::sin(axis);
        bits_.add(bitClock_, static_cast<float>(value));
    }
    if (band_.present()) bits_.decide();
    data_.clear();
}

}  // namespace hm16::receiver
