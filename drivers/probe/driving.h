// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

#include "drivers/hm16.h"
#include "drivers/hm16_report.h"
#include "drivers/probe/probe_options.h"
#include "drivers/unit/readings.h"
#include "drivers/unit/unit.h"

// What every run of the probe does with a library.
namespace hm16::probe {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start);
void waitFor(double seconds);

// Time as a run sees it: that of the wall, or that of the signal where the library can be driven.
class RunClock {
 public:
    explicit RunClock(HM16_StepFunction step) : step_(step) {}

    // Lets time pass until `seconds` after the start; false when the signal has ended before.
    bool passUntil(double seconds);
    double seconds() const;

 private:
    HM16_StepFunction step_;
    Clock::time_point start_ = Clock::now();
    long slots_ = 0;
};

// The sixteen readings and both of RDS.
Readings readAll(const HM16_Functions& driver);

void tune(const HM16_Functions& driver, const Options& options, ResponseRun response);

}  // namespace hm16::probe
