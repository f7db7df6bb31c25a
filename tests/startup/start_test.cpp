// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;

TEST(Start, CallsTheDriverInItsOrder) {
    RackBench bench;
    bench.start();
    EXPECT_THAT(bench.driver.calls,
                ElementsAre("HM_Init", "HM_getHardwareVersion", "HM_setSintoMode(0)", "HM_Parar",
                            "HM_Normal(981, 0, 0, 0, 0)"));
}

}  // namespace
}  // namespace hmonitor::test
