// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/rds_receiver.h"

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
      decoder_([this](const RdsGroup& group) { groups_.push_back(group); }),
      bits_(rates.narrow, startSeconds_, [this](bool bit, float strength, double seconds) {
          decoder_.bit(bit, strength, seconds);
      }) {}

void RdsReceiver::add(std::span<const float> composite) {
    wide_.clear();
    bandFilter_.process(composite, wide_);
    dataFilter_.process(wide_, data_);
}

void RdsReceiver::endSlot() {
    groups_.clear();
    band_.add(data_);
    band_.update();
    bits_.add(data_);
    data_.clear();
}

}  // namespace hm16::receiver
