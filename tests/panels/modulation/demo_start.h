// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// Starts the rack without a unit, the offer of the demo mode accepted.
inline void startInDemoMode(RackBench& bench) {
    bench.driver.hardwareVersion = 0;
    bench.desktop.modalScripts["FormModoDemo"] = [&bench](display::Form&) {
        bench.hand.click(bench.forms.formModoDemo.Command1);
    };
    bench.start();
}

}  // namespace hmonitor::test
