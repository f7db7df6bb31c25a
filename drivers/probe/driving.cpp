// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/probe/driving.h"

#include <cmath>
#include <thread>

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

std::array<float, 18> readAll(const HM16_Functions& driver) {
    std::array<float, 18> r{};
    driver.data(&r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7], &r[8], &r[9], &r[10],
                &r[11], &r[12], &r[13], &r[14], &r[15]);
    driver.dataRds(&r[16], &r[17]);
    return r;
}

void tune(const HM16_Functions& driver, const Options& options, ResponseRun response) {
    driver.parar();
    driver.normal(static_cast<float>(options.frequency * 10), options.average ? 1 : 0,
                  options.sum ? 1 : 0, response == ResponseRun::Armed ? 1 : 0, options.log ? 1 : 0);
}

}  // namespace hm16::probe
