// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"
#include "drivers/receiver/figures/rds_band.h"
#include "drivers/receiver/rds/rds_bits.h"
#include "drivers/receiver/rds/rds_decoder.h"

namespace hm16::receiver {

// From the multiplex to the figures and the data of the 57 kHz band.
class RdsReceiver {
 public:
    explicit RdsReceiver(const Rates& rates);

    void add(std::span<const float> composite);

    // Updates figures and data with the samples that were added; called once a slot.
    void endSlot();

    const RdsBand& band() const { return band_; }
    const RdsDecoder& decoder() const { return decoder_; }

    // The groups that were completed in the last slot.
    std::span<const RdsGroup> groups() const { return groups_; }

 private:
    Rates rates_;
    BandDecimator bandFilter_;
    ComplexDecimator dataFilter_;
    double startSeconds_;
    RdsBand band_;
    RdsDecoder decoder_;
    RdsBits bits_;
    std::vector<RdsGroup> groups_;
    std::vector<std::complex<float>> wide_;
    std::vector<std::complex<float>> data_;
};

}  // namespace hm16::receiver
