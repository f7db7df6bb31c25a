// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

using namespace std::chrono_literals;
using Heard = std::vector<std::string>;

class Timers : public testing::Test {
 protected:
    Timers() {
        form.show();
        desktop.queue().openGate();
        form.heard.clear();
    }
    long ticks(std::string_view timer) const {
        return std::ranges::count(form.heard, std::string(timer) + " tick");
    }

    HeadlessDesktop desktop;
    SampleForm form{desktop};
};

TEST_F(Timers, TickAfterEachFullInterval) {
    form.Timer1.enabled = true;
    desktop.advance(99ms);
    EXPECT_EQ(ticks("Timer1"), 0);
    desktop.advance(1ms);
    EXPECT_EQ(ticks("Timer1"), 1);
    desktop.advance(900ms);
    EXPECT_EQ(ticks("Timer1"), 10);
}

TEST_F(Timers, AreOffAfterLoad) {
    desktop.advance(10s);
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Timers, DueTogetherTickInTheOrderOfSwitchingOn) {
    form.Timer2.interval = 100ms;
    form.Timer2.enabled = true;
    form.Timer1.enabled = true;
    desktop.advance(200ms);
    EXPECT_EQ(form.heard, (Heard{"Timer2 tick", "Timer1 tick", "Timer2 tick", "Timer1 tick"}));
}

TEST_F(Timers, TheEarlierDueTicksFirstWhateverTheOrderOfSwitchingOn) {
    form.Timer2.enabled = true;  // 300 ms
    form.Timer1.enabled = true;  // 100 ms
    desktop.advance(300ms);
    EXPECT_EQ(form.heard, (Heard{"Timer1 tick", "Timer1 tick", "Timer2 tick", "Timer1 tick"}));
}

TEST_F(Timers, MissedTicksMergeIntoOneAndTheGridStays) {
    form.Timer1.enabled = true;
    desktop.elapse(350ms);
    desktop.settle();
    EXPECT_EQ(ticks("Timer1"), 1);
    desktop.advance(49ms);
    EXPECT_EQ(ticks("Timer1"), 1);
    desktop.advance(1ms);
    EXPECT_EQ(ticks("Timer1"), 2);
}

TEST_F(Timers, AChangedIntervalStartsAnew) {
    form.Timer1.enabled = true;
    desktop.advance(80ms);
    form.Timer1.interval = 50ms;
    desktop.advance(49ms);
    EXPECT_EQ(ticks("Timer1"), 0);
    desktop.advance(1ms);
    EXPECT_EQ(ticks("Timer1"), 1);
}

TEST_F(Timers, AnEqualIntervalChangesNothing) {
    form.Timer1.enabled = true;
    desktop.advance(80ms);
    form.Timer1.interval = 100ms;
    desktop.advance(20ms);
    EXPECT_EQ(ticks("Timer1"), 1);
}

TEST_F(Timers, SwitchingOnARunningOneChangesNothing) {
    form.Timer1.enabled = true;
    desktop.advance(80ms);
    form.Timer1.enabled = true;
    desktop.advance(20ms);
    EXPECT_EQ(ticks("Timer1"), 1);
}

TEST_F(Timers, OffAndOnStartsAFullInterval) {
    form.Timer1.enabled = true;
    desktop.advance(80ms);
    form.Timer1.enabled = false;
    form.Timer1.enabled = true;
    desktop.advance(99ms);
    EXPECT_EQ(ticks("Timer1"), 0);
    desktop.advance(1ms);
    EXPECT_EQ(ticks("Timer1"), 1);
}

TEST_F(Timers, WithoutAnIntervalNeverTick) {
    form.Timer1.interval = 0ms;
    form.Timer1.enabled = true;
    desktop.advance(1h);
    EXPECT_EQ(ticks("Timer1"), 0);
    EXPECT_FALSE(desktop.queue().nextDue().has_value());
}

TEST_F(Timers, OneThatSwitchesAnotherOffInTheSamePassKeepsItFromTicking) {
    form.Timer2.interval = 100ms;
    form.Timer1.enabled = true;
    form.Timer2.enabled = true;
    form.Timer1.onTick = [this] { form.Timer2.enabled = false; };
    desktop.advance(100ms);
    EXPECT_EQ(ticks("Timer2"), 0);
}

TEST_F(Timers, MaySwitchThemselvesOff) {
    int ran = 0;
    form.Timer1.onTick = [&] {
        form.Timer1.enabled = false;
        ++ran;
    };
    form.Timer1.enabled = true;
    desktop.advance(1s);
    EXPECT_EQ(ran, 1);
}

TEST_F(Timers, AHandlerIsNeverEnteredTwice) {
    int depth = 0;
    int deepest = 0;
    int ran = 0;
    form.Timer1.onTick = [&] {
        ++ran;
        deepest = std::max(deepest, ++depth);
        desktop.elapse(1s);
        desktop.letEventsThrough();
        --depth;
    };
    form.Timer1.enabled = true;
    desktop.advance(100ms);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(ran, 1);
}

TEST_F(Timers, TheOthersGoOnInsideASlowHandlerThatLetsEventsThrough) {
    form.Timer2.interval = 30ms;
    form.Timer2.enabled = true;
    form.Timer1.onTick = [&] {
        form.heard.emplace_back("slow begins");
        for (int i = 0; i < 3; ++i) {
            desktop.elapse(30ms);
            desktop.letEventsThrough();
        }
        form.heard.emplace_back("slow ends");
        form.Timer1.enabled = false;
    };
    desktop.advance(10ms);
    form.Timer1.interval = 10ms;
    form.Timer1.enabled = true;
    desktop.advance(10ms);
    EXPECT_EQ(form.heard,
              (Heard{"slow begins", "Timer2 tick", "Timer2 tick", "Timer2 tick", "slow ends"}));
}

TEST_F(Timers, StopWhenTheirFormIsUnloaded) {
    form.Timer1.enabled = true;
    form.unload();
    form.heard.clear();
    desktop.advance(1s);
    EXPECT_EQ(ticks("Timer1"), 0);
}

TEST_F(Timers, GoOnWhileTheirFormIsHidden) {
    form.Timer1.enabled = true;
    form.hide();
    desktop.advance(100ms);
    EXPECT_EQ(ticks("Timer1"), 1);
}

TEST_F(Timers, ADayAtThirtyMillisecondsIsRunThrough) {
    long ran = 0;
    form.Timer1.interval = 30ms;
    form.Timer1.onTick = [&] { ++ran; };
    form.Timer1.enabled = true;
    desktop.advance(24h);
    EXPECT_EQ(ran, 24L * 3600 * 1000 / 30);
    EXPECT_EQ(desktop.now(), 24h);
}

}  // namespace
}  // namespace display::test
