// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

#include "drivers/hm16.h"
#include "drivers/hm16_report.h"
#include "drivers/probe/probe_options.h"
#include "drivers/unit/readings.h"
#include "drivers/unit/unit.h"

// What all runs of the probe do with a library.
namespace hm16::probe {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start);
void waitFor(double seconds);

// The time of a run: real time, or the signal's time if the library can be driven step by step.
class RunClock {
 public:
    explicit RunClock(HM16_StepFunction step) : step_(step) {}

    // Waits until `seconds` after the start; false if the signal ended before.
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
