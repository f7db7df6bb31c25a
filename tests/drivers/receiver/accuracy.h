// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/drivers/receiver/signals.h"

namespace hm16::receiver {

struct Kind {
    double rateHz;
    bool eightBit;
};

inline void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.rateHz << " Hz, " << (kind.eightBit ? "8 bits" : "float");
}

class Accuracy : public testing::TestWithParam<Kind> {
 protected:
    BandPlan band(const std::function<void(StationPlan&)>& shape) const {
        return bandWith(shape, GetParam().rateHz, GetParam().eightBit);
    }

    // Notes the largest error of a row for the report.
    void miss(double value) {
        worst_ = std::max(worst_, std::fabs(value));
        RecordProperty("worst", std::to_string(worst_));
    }

 private:
    double worst_ = 0;
};

inline const std::vector<Kind> kKinds =
    kReduced ? std::vector<Kind>{{1.2e6, true}}
             : std::vector<Kind>{{1.2e6, false}, {1.2e6, true}, {2.4e6, false}, {2.4e6, true}};

inline void stereo(StationPlan& station, double left, double right, double hz = 1000) {
    station.pilotDeviationHz = 6750;
    station.rds.deviationHz = 2000;
    station.tones = {{hz, left, right}};
}

inline std::string nameOf(const testing::TestParamInfo<Kind>& kind) {
    return std::string(kind.param.rateHz > 2e6 ? "2400k" : "1200k") +
           (kind.param.eightBit ? "_8bit" : "_float");
}

inline void placeBursts(StationPlan& station) {
    station.direct = {{700, 20000}};
    // Two that are close together count once; the other four count each.
    for (const double start : {0.41, 0.87, 1.31, 1.335, 1.83, 2.27})
        station.bursts.push_back({start, 0.012, {1000, 70000}});
}

}  // namespace hm16::receiver
