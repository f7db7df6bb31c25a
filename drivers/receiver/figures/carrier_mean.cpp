// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/carrier_mean.h"

#include <cmath>
#include <numbers>

namespace hm16::receiver {
namespace {

constexpr std::size_t kSlots = 20;

}  // namespace

void CarrierMean::add(double meanHz) {
    slots_.push_back(meanHz);
    if (slots_.size() > kSlots) slots_.pop_front();
}

double CarrierMean::hz() const {
    double sum = 0;
    double weights = 0;
    for (std::size_t n = 0; n < slots_.size(); ++n) {
        const double place = (static_cast<double>(n) + 0.5) / static_cast<double>(slots_.size());
        const double weight = 1 - std::cos(2 * std::numbers::pi * place);
        sum += weight * slots_[n];
        weights += weight;
    }
    return weights > 0 ? sum / weights : 0;
}

}  // namespace hm16::receiver
