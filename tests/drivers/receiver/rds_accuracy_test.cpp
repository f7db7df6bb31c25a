// SPDX-License-Identifier: GPL-3.0-or-later
// The ten signals of the table in docs/receiver.md.
#include <gtest/gtest.h>

#include "tests/drivers/receiver/rds_signals.h"

namespace hm16::receiver {
namespace {

class RdsAccuracy : public testing::TestWithParam<std::size_t> {};

// Of 228 groups that are sent. Never fewer than decoder K finds, and not far below what is reached.
constexpr std::array<int, 10> kFewestGroups{228, 228, 210, 25, 65, 218, 170, 228, 218, 212};

TEST_P(RdsAccuracy, DecodesAtLeastSoManyGroups) {
    const RdsCount count = countGroups(multiplexOf(kRdsSignals.at(GetParam())));
    EXPECT_GE(count.groups, kFewestGroups.at(GetParam()));
    // Two flipped bits can look like a burst elsewhere, which is then "corrected".
    EXPECT_LE(count.wrong, kRdsSignals.at(GetParam()).flipEvery > 0 ? 2 : 0);
    RecordProperty("groups", count.groups);
}

INSTANTIATE_TEST_SUITE_P(Signals, RdsAccuracy, testing::Range(std::size_t{0}, kRdsSignals.size()));

}  // namespace
}  // namespace hm16::receiver
