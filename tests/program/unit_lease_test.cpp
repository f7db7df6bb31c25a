// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/unit_lease.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "tests/program/program_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class UnitLeaseTest : public testing::Test {
 protected:
    UnitLeaseTest() {
        bench.tuner.tuneByBar();
        bench.take();
    }
    ProgramBench bench;
    RunWindow other{bench.program, "Other"};
    UnitLease lease{bench.program, bench.window};
    UnitLease others{bench.program, other};
};

TEST_F(UnitLeaseTest, SaysWhoHasTheUnitAndSinceWhen) {
    EXPECT_EQ(bench.program.unitInUse.window, nullptr);
    bench.advance(300ms);
    EXPECT_TRUE(lease.take());
    EXPECT_EQ(bench.program.unitInUse.window, &bench.window);
    EXPECT_EQ(bench.program.unitInUse.since, 300ms);
    bench.advance(200ms);
    // Taking it again changes nothing.
    EXPECT_TRUE(lease.take());
    EXPECT_EQ(bench.program.unitInUse.since, 300ms);
    EXPECT_THAT(bench.take(), IsEmpty());
}

TEST_F(UnitLeaseTest, IsGivenToOneWindowAtATime) {
    EXPECT_TRUE(lease.take());
    EXPECT_FALSE(others.take());
    EXPECT_FALSE(others.held());
    // A lease that does not have the unit cannot return it.
    others.giveBack(UnitLease::Back::LeftRight);
    EXPECT_TRUE(lease.held());
    EXPECT_THAT(bench.take(), IsEmpty());
    lease.giveBack(UnitLease::Back::AsStored);
    EXPECT_TRUE(others.take());
}

TEST_F(UnitLeaseTest, NamesTheFrequencyOfTheRunOnce) {
    ASSERT_TRUE(lease.take());
    lease.tuneFor(AudioMode::SumDifference);
    EXPECT_THAT(bench.take(), ElementsAre("mode L+R and L-R", "clocks stand", "driver HM_Parar",
                                          "driver HM_Normal(981, 0, 1, 0, 0)", "clocks run",
                                          "show tuned", "show figures"));
    EXPECT_EQ(lease.frequency(), 981);
    bench.panels.barValue = 0;
    bench.tuner.retune();
    EXPECT_EQ(lease.frequency(), 981);
}

TEST_F(UnitLeaseTest, GivesTheUnitBackOnTheStationThatWasPickedMeanwhileOnce) {
    ASSERT_TRUE(lease.take());
    lease.returnTo({1013, 0});
    lease.returnTo({1025.5, 3});
    EXPECT_THAT(bench.take(), IsEmpty()) << "the unit is still in use";
    lease.giveBack(UnitLease::Back::LeftRight);
    EXPECT_THAT(bench.take(), ElementsAre("mode L and R", "move to 1025.5, memory 3"));
    ASSERT_TRUE(lease.take());
    lease.giveBack(UnitLease::Back::AsStored);
    EXPECT_THAT(bench.take(), Contains("driver HM_Normal(981, 0, 0, 0, 0)"));
}

TEST_F(UnitLeaseTest, GivesTheUnitBackAsItIsStoredOrInLeftAndRight) {
    ASSERT_TRUE(lease.take());
    lease.tuneFor(AudioMode::SumDifference);
    bench.take();
    lease.giveBack(UnitLease::Back::AsStored);
    EXPECT_THAT(bench.take(), Contains("driver HM_Normal(981, 0, 1, 0, 0)"));
    EXPECT_FALSE(lease.held());
    ASSERT_TRUE(lease.take());
    lease.giveBack(UnitLease::Back::LeftRight);
    EXPECT_THAT(bench.take(), Contains("driver HM_Normal(981, 0, 0, 0, 0)"));
    // Returning it again does nothing.
    lease.giveBack(UnitLease::Back::LeftRight);
    EXPECT_THAT(bench.take(), IsEmpty());
}

TEST_F(UnitLeaseTest, CloseGivesBackWhatIsHeldAndTheRackInAnyCase) {
    bench.program.disableRack();
    lease.close(UnitLease::Back::LeftRight);
    EXPECT_TRUE(bench.rackIs(true));
    EXPECT_THAT(bench.take(), IsEmpty());
    bench.program.disableRack();
    ASSERT_TRUE(lease.take());
    lease.close(UnitLease::Back::LeftRight);
    EXPECT_TRUE(bench.rackIs(true));
    EXPECT_THAT(bench.take(), Contains("driver HM_Normal(981, 0, 0, 0, 0)"));
}

TEST_F(UnitLeaseTest, ThatGoesAwayWithItsWindowCallsNoDriverButLeavesTheUnitFree) {
    auto passing = std::make_unique<UnitLease>(bench.program, other);
    ASSERT_TRUE(passing->take());
    passing.reset();
    EXPECT_EQ(bench.program.unitInUse.window, nullptr);
    EXPECT_THAT(bench.take(), IsEmpty());
}

TEST_F(UnitLeaseTest, HoldDisablesTheRackAndEnablesItAgain) {
    {
        const auto hold = lease.hold({});
        EXPECT_TRUE(bench.rackIs(false));
        EXPECT_TRUE(bench.desktop.queue().running());
    }
    EXPECT_TRUE(bench.rackIs(true));
    EXPECT_FALSE(bench.desktop.queue().running());
}

TEST_F(UnitLeaseTest, HoldLeavesARackThatAWindowDisabledDisabled) {
    bench.program.disableRack();
    { const auto hold = lease.hold({}); }
    EXPECT_TRUE(bench.rackIs(false));
}

TEST_F(UnitLeaseTest, WhatAWindowGaveBackInsideAHoldStaysGivenBack) {
    bench.program.disableRack();
    {
        const auto hold = lease.hold({});
        lease.close(UnitLease::Back::AsStored);
    }
    EXPECT_TRUE(bench.rackIs(true));
}

TEST_F(UnitLeaseTest, HoldLetsThroughWhatWasNamedTheWindowsCloseAndTimers) {
    int stops = 0, wrong = 0, closes = 0, ticks = 0;
    bench.window.Stop.onClick = [&] { ++stops; };
    bench.window.Other.onClick = [&] { ++wrong; };
    bench.window.onClose = [&] { ++closes; };
    bench.window.Clock.onTick = [&] { ++ticks; };
    bench.window.Clock.enabled = true;
    other.show();
    other.onClose = [&] { ++wrong; };
    const auto hold = lease.hold({&bench.window.Stop});
    for (display::Key* key : {&bench.window.Stop, &bench.window.Other})
        bench.desktop.hand.click(*key);
    bench.desktop.hand.close(bench.window);
    bench.desktop.hand.close(other);
    bench.desktop.elapse(60ms);
    bench.desktop.letEventsThrough();
    EXPECT_EQ(stops, 1);
    EXPECT_EQ(closes, 1);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace hmonitor::test
