// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// The frequencies to which the unit was tuned since the bench's calls were taken last.
inline std::vector<std::string> tuningsOf(RackBench& bench) {
    std::vector<std::string> all;
    for (const std::string& call : bench.takeCalls()) {
        if (call.starts_with("HM_Normal(")) all.push_back(call.substr(10, call.find(',') - 10));
    }
    return all;
}

}  // namespace hmonitor::test
