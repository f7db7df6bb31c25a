// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <string>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// What the user sees at each place of the rack that shows a reading, as short texts: a label's
/// caption, a needle's angle, a bar's length, the digit of lit segments.
class RackView {
 public:
    explicit RackView(RackBench& bench);

    /// "?" if the drawing at the place is invalid.
    std::string see(const std::string& place) const;
    /// The texts of all places by name.
    std::map<std::string, std::string> all() const;

 private:
    void addModulation();
    void addLevels();
    void addPhaseAndPower();
    void addQuality();

    RackBench& bench_;
    std::map<std::string, std::function<std::string()>> places_;
};

}  // namespace hmonitor::test
