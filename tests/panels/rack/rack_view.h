// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <string>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// What a person sees at each place of the rack that shows a reading, as short texts: a label's
/// caption, a needle's degrees right of vertical, a bar's length, the figure of lit segments.
class RackView {
 public:
    explicit RackView(RackBench& bench);

    /// "?" where a place is drawn in a way that means nothing.
    std::string see(const std::string& place) const;
    /// Every place with what it shows.
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
