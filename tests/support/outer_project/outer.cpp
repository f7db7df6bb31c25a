// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/rack_bench.h"

void measureForASecond() {
    hmonitor::test::RackBench bench;
    bench.start();
    bench.advance(std::chrono::seconds(1));
}
