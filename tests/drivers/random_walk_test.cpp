// SPDX-License-Identifier: GPL-3.0-or-later
// Calls in any order with any arguments: nothing crashes or hangs, and outputs stay within their
// ranges.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "tests/drivers/simulated_library.h"

namespace {

class Walk {
 public:
    Walk(const SimulatedLibrary& unit, unsigned seed) : unit_(unit), random_(seed) {}

    void step() {
        float out = 55;
        switch (pick(14)) {
            case 0:
                unit_->init();
                break;
            case 1:
                if (pick(10) == 0) unit_->terminate();
                break;
            case 2:
                if (pick(20) == 0) unit_->demoMode();
                break;
            case 3:
            case 4:
                unit_->normal(frequency(), whole(), whole(), whole(), whole());
                break;
            case 5:
            case 6:
                unit_->parar();
                break;
            case 7:
                unit_->reset(whole());
                break;
            case 8:
                unit_->super(frequency(), &out);
                break;
            case 9:
                unit_->startEspectro(frequency(), frequency(), steps());
                break;
            case 10:
                unit_->tramaEspectroRecibida();
                break;
            case 11:
                unit_->getEspectro(frequency(), &out);
                break;
            case 12:
                unit_.response();
                break;
            case 13:
                unit_.version();
                break;
        }
        ASSERT_TRUE(out >= 18 && out <= 95) << out;
        const auto readings = unit_.readings();
        ASSERT_LE(std::abs(readings.peakModulation), 160);
        ASSERT_LE(std::abs(readings.field), 95);
    }

 private:
    int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    int32_t whole() {
        constexpr int32_t kOdd[] = {0,
                                    1,
                                    2,
                                    3,
                                    -1,
                                    std::numeric_limits<int32_t>::max(),
                                    std::numeric_limits<int32_t>::min()};
        return kOdd[pick(7)];
    }
    int32_t steps() {
        constexpr int32_t kSteps[] = {0, 25, 100, 250, 7, -25, std::numeric_limits<int32_t>::max()};
        return kSteps[pick(7)];
    }
    float frequency() {
        constexpr float kOdd[] = {0, -1, 1e30f, std::numeric_limits<float>::quiet_NaN(),
                                  std::numeric_limits<float>::infinity()};
        if (pick(8) == 0) return kOdd[pick(5)];
        return 875 + static_cast<float>(pick(411)) * 0.5f;
    }

    const SimulatedLibrary& unit_;
    std::mt19937 random_;
};

TEST(RandomWalk, AnyOrderOfCallsIsHarmless) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        const SimulatedLibrary unit("pace = 5000\n");
        Walk walk(unit, seed);
        for (int i = 0; i < 400; ++i) {
            walk.step();
            if (testing::Test::HasFatalFailure()) {
                FAIL() << "seed " << seed << ", step " << i;
            }
        }
    }
}

}  // namespace
