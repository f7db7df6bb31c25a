// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/program/program_bench.h"

#include <algorithm>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {

void RunWindow::layOut() {
    width = 3000.f;
    height = 1000.f;
    place(Stop, {0, 0, 1000, 400});
    place(Other, {1500, 0, 1000, 400});
    Clock.interval = std::chrono::milliseconds(50);
}

ProgramBench::ProgramBench() {
    scratch.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
    scratch.write("Hm-res.dat", lines({"0", "0", "0"}));
    driver.journal = &desktop.journal;
    desktop.seedRandom(1);
    tuner.shownOn(&panels);
    for (std::size_t i = 0; i < program.rack.size(); ++i) {
        rack.push_back(std::make_unique<RunWindow>(program, "panel" + std::to_string(i)));
        program.rack[i] = rack.back().get();
    }
    window.show();
    desktop.journal.clear();
}

bool ProgramBench::rackIs(bool enabled) const {
    return std::ranges::all_of(program.rack,
                               [enabled](auto* panel) { return panel->enabled == enabled; });
}

}  // namespace hmonitor::test
