// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/probe/driving.h"

#include <cmath>
#include <thread>

#include "drivers/loader/read_data.h"
#include "drivers/unit/slot_ring.h"

namespace hm16::probe {

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void waitFor(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

bool RunClock::passUntil(double seconds) {
    if (step_ == nullptr) {
        std::this_thread::sleep_until(start_ + std::chrono::duration<double>(seconds));
        return true;
    }
    const auto slots = std::lround(seconds / kUnitSlotSeconds);
    for (; slots_ < slots; ++slots_) {
        if (step_(1) != 0) return false;
    }
    return true;
}

double RunClock::seconds() const {
    return step_ == nullptr ? secondsSince(start_) : static_cast<double>(slots_) * kUnitSlotSeconds;
}

Readings readAll(const HM16_Functions& driver) {
    Readings all;
    readData(driver, all);
    driver.dataRds(&all.rdsError, &all.rdsLevel);
    return all;
}

void tune(const HM16_Functions& driver, const Options& options, ResponseRun response) {
    driver.parar();
    driver.normal(static_cast<float>(options.frequency * 10), options.average ? 1 : 0,
                  options.sum ? 1 : 0, response == ResponseRun::Armed ? 1 : 0, options.log ? 1 : 0);
}

}  // namespace hm16::probe
