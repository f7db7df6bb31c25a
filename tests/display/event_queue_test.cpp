// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

using namespace std::chrono_literals;
using Heard = std::vector<std::string>;

class Queue : public testing::Test {
 protected:
    Queue() {
        form.show();
        other.show();
        queue.openGate();
        form.heard.clear();
        other.heard.clear();
    }
    /// What one pass inside a run with that filter delivers.
    void passDuringRun(EventQueue::RunFilter filter) {
        queue.pushFilter(std::move(filter));
        desktop.letEventsThrough();
        queue.popFilter();
    }

    HeadlessDesktop desktop;
    EventQueue& queue = desktop.queue();
    SampleForm form{desktop, "Form"};
    SampleForm other{desktop, "Other"};
};

TEST_F(Queue, InputRunsInTheOrderOfItsComingAndBeforeTimers) {
    form.Timer1.enabled = true;
    desktop.elapse(100ms);
    desktop.hand.click(form.Key1);
    desktop.hand.check(form.Check1, true);
    desktop.settle();
    EXPECT_EQ(form.heard, (Heard{"Key1 click", "Check1 click", "Timer1 tick"}));
}

TEST_F(Queue, AWindowThatLooksOnIsHeardDuringARun) {
    other.looksOn = true;
    desktop.hand.click(form.Key1);
    desktop.hand.click(other.Key1);
    desktop.hand.escape(other);
    desktop.hand.close(other);
    passDuringRun({{&form.KeyCancel}, {}});
    EXPECT_EQ(form.heard, Heard{});
    EXPECT_EQ(other.heard, (Heard{"Key1 click", "KeyCancel click", "close"}));
}

TEST_F(Queue, AWindowThatLooksOnWaitsForAModalForm) {
    other.looksOn = true;
    queue.pushModal(form);
    desktop.hand.click(other.Key1);
    desktop.settle();
    queue.popModal();
    EXPECT_EQ(other.heard, Heard{});
}

TEST_F(Queue, WaitingInputIsDueAtOnce) {
    EXPECT_FALSE(queue.nextDue().has_value());
    desktop.hand.click(form.Key1);
    EXPECT_EQ(queue.nextDue(), desktop.now());
}

TEST_F(Queue, TheNextTimerSaysWhenToWake) {
    form.Timer2.enabled = true;
    form.Timer1.enabled = true;
    EXPECT_EQ(queue.nextDue(), desktop.now() + 100ms);
}

TEST(QueueGate, NothingPassesInsideAHandlerBeforeItIsOpened) {
    HeadlessDesktop desktop;
    SampleForm form{desktop};
    form.show();
    form.heard.clear();
    form.Timer1.enabled = true;
    desktop.elapse(1s);
    desktop.hand.click(form.Key1);
    desktop.letEventsThrough();
    EXPECT_EQ(form.heard, Heard{});
    EXPECT_TRUE(desktop.queue().inputWaits());
    desktop.queue().openGate();
    desktop.letEventsThrough();
    EXPECT_EQ(form.heard, (Heard{"Key1 click", "Timer1 tick"}));
}

TEST_F(Queue, APassWithinAPassDeliversNothing) {
    form.Key1.onClick = [&] {
        form.heard.emplace_back("outer begins");
        desktop.hand.check(form.Check1, true);
        desktop.letEventsThrough();
        form.heard.emplace_back("outer ends");
    };
    desktop.hand.click(form.Key1);
    desktop.letEventsThrough();
    EXPECT_EQ(form.heard, (Heard{"outer begins", "outer ends"}));
    desktop.letEventsThrough();
    EXPECT_TRUE(form.didHear("Check1 click"));
}

TEST_F(Queue, WhatComesInDuringAPassWaitsForTheNext) {
    form.Key1.onClick = [&] { desktop.hand.check(form.Check1, true); };
    desktop.hand.click(form.Key1);
    desktop.letEventsThrough();
    EXPECT_FALSE(form.didHear("Check1 click"));
    desktop.letEventsThrough();
    EXPECT_TRUE(form.didHear("Check1 click"));
}

TEST_F(Queue, ARunHearsItsOwnKeyAndTimersOnly) {
    form.Timer1.enabled = true;
    desktop.elapse(100ms);
    desktop.hand.click(form.Key1);
    desktop.hand.click(form.KeyDefault);
    desktop.hand.scroll(form.HScroll1, 1);
    desktop.hand.click(other.Key1);
    passDuringRun({{&form.Key1}, {}});
    EXPECT_EQ(form.heard, (Heard{"Key1 click", "Timer1 tick"}));
    EXPECT_EQ(other.heard, Heard{});
}

TEST_F(Queue, ARunHearsItsOwnScrollBars) {
    desktop.hand.scroll(form.HScroll1, 1);
    passDuringRun({{&form.HScroll1}, {}});
    EXPECT_EQ(form.heard, Heard{"HScroll1 change"});
}

TEST_F(Queue, WhatARunDoesNotHearIsDroppedNotKept) {
    desktop.hand.click(form.KeyDefault);
    passDuringRun({{&form.Key1}, {}});
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Queue, ARunHearsTheCloseOfItsOwnWindowOnly) {
    desktop.hand.close(form);
    desktop.hand.close(other);
    passDuringRun({{}, {&form}});
    EXPECT_TRUE(form.didHear("close"));
    EXPECT_FALSE(form.visible);
    EXPECT_TRUE(other.visible);
}

TEST_F(Queue, WindowsMoveDuringARun) {
    desktop.hand.mouseDown(other.Handle1, {10, 10, true});
    desktop.hand.mouseMove(other.Handle1, {20, 10, true});
    desktop.hand.mouseUp(other.Handle1, {20, 10, false});
    passDuringRun({{&form.Key1}, {}});
    EXPECT_EQ(other.heard, (Heard{"Handle1 down", "Handle1 move", "Handle1 up"}));
}

TEST_F(Queue, TheInnermostRunDecides) {
    queue.pushFilter({{&form.Key1}, {}});
    queue.pushFilter({{&form.KeyCancel}, {}});
    desktop.hand.click(form.Key1);
    desktop.hand.click(form.KeyCancel);
    desktop.letEventsThrough();
    EXPECT_EQ(form.heard, Heard{"KeyCancel click"});
    queue.popFilter();
    desktop.hand.click(form.Key1);
    desktop.letEventsThrough();
    EXPECT_TRUE(form.didHear("Key1 click"));
    queue.popFilter();
    EXPECT_FALSE(queue.running());
}

TEST_F(Queue, EnterDuringARunPressesNoKeyThatTheRunDoesNotHear) {
    desktop.hand.enter(form);
    passDuringRun({{&form.KeyCancel}, {&form}});
    EXPECT_FALSE(form.didHear("KeyDefault click"));
}

TEST_F(Queue, EscapeDuringARunPressesItsStopKey) {
    desktop.hand.escape(form);
    passDuringRun({{&form.KeyCancel}, {}});
    EXPECT_EQ(form.heard, Heard{"KeyCancel click"});
}

TEST_F(Queue, AModalFormThatOpensDuringARunHearsAll) {
    queue.pushFilter({{&form.Key1}, {}});
    queue.pushModal(other);
    desktop.hand.click(other.KeyDefault);
    desktop.hand.click(form.Key1);
    queue.runModalPass();
    queue.popModal();
    queue.popFilter();
    EXPECT_EQ(other.heard, Heard{"KeyDefault click"});
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Queue, ARunInsideAModalFormIsFilteredAgain) {
    queue.pushModal(other);
    queue.pushFilter({{&other.KeyCancel}, {}});
    desktop.hand.click(other.KeyDefault);
    desktop.hand.click(other.KeyCancel);
    desktop.letEventsThrough();
    queue.popFilter();
    queue.popModal();
    EXPECT_EQ(other.heard, Heard{"KeyCancel click"});
}

TEST_F(Queue, InputToADisabledControlIsDropped) {
    form.Key1.enabled = false;
    desktop.hand.click(form.Key1);
    desktop.settle();
    form.Key1.enabled = true;
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Queue, InputToAControlInADisabledOrHiddenContainerIsDropped) {
    form.Panel1.enabled = false;
    desktop.hand.click(form.Key1);
    desktop.settle();
    form.Panel1.enabled = true;
    form.Panel1.visible = false;
    desktop.hand.click(form.Key1);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Queue, InputToADisabledFormIsDropped) {
    form.enabled = false;
    desktop.hand.click(form.Key1);
    desktop.hand.enter(form);
    desktop.hand.escape(form);
    desktop.hand.close(form);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Queue, InputToAHiddenFormIsDropped) {
    desktop.hand.click(form.Key1);
    form.hide();
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Queue, InputThatWaitsForAnUnloadedFormIsForgottenEvenWhenItComesBack) {
    desktop.hand.click(form.Key1);
    form.unload();
    form.show();
    form.heard.clear();
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Queue, InputTestsWhatIsEnabledWhenItsTurnComes) {
    form.KeyDefault.onClick = [&] { form.Key1.enabled = false; };
    desktop.hand.click(form.KeyDefault);
    desktop.hand.click(form.Key1);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Queue, WhileAModalFormStandsTheOthersHearNothing) {
    queue.pushModal(other);
    desktop.hand.click(form.Key1);
    desktop.hand.close(form);
    desktop.hand.mouseDown(form.Handle1, Mouse{});
    desktop.hand.click(other.Key1);
    queue.runModalPass();
    queue.popModal();
    EXPECT_EQ(form.heard, Heard{});
    EXPECT_EQ(other.heard, Heard{"Key1 click"});
}

TEST(QueueGate, AModalFormIsHeardBeforeItIsOpenedAndTimersWait) {
    HeadlessDesktop desktop;
    SampleForm form{desktop};
    form.show();
    form.heard.clear();
    form.Timer1.enabled = true;
    desktop.elapse(100ms);
    desktop.queue().pushModal(form);
    desktop.hand.click(form.Key1);
    desktop.queue().runModalPass();
    desktop.queue().popModal();
    EXPECT_EQ(form.heard, Heard{"Key1 click"});
}

}  // namespace
}  // namespace display::test
