// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/form.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

using namespace std::chrono_literals;
using Heard = std::vector<std::string>;

class Forms : public testing::Test {
 protected:
    HeadlessDesktop desktop;
    SampleForm form{desktop};
};

TEST_F(Forms, LayingOutFiresNoEventAndLoadRunsOnce) {
    form.load();
    form.load();
    EXPECT_EQ(form.heard, Heard{"load"});
    EXPECT_EQ(form.HScroll1.value, 110);
    EXPECT_EQ(form.Combo1.list.selected(), 0);
    EXPECT_FALSE(form.layingOut());
    EXPECT_FALSE(form.visible);
}

TEST_F(Forms, ShowLoadsAndActivatesOnce) {
    form.show();
    form.show();
    EXPECT_EQ(form.heard, (Heard{"load", "activated"}));
    EXPECT_EQ(desktop.journal, Heard{"show SampleForm"});
    form.hide();
    form.hide();
    form.show();
    EXPECT_EQ(form.heard, (Heard{"load", "activated", "activated"}));
    EXPECT_EQ(desktop.journal, (Heard{"show SampleForm", "hide SampleForm", "show SampleForm"}));
}

TEST_F(Forms, LoadingAgainSetsEverythingBackToTheLayout) {
    form.show();
    form.caption = "changed";
    form.enabled = false;
    form.topmost = true;
    form.Label1.caption = "changed";
    form.Label1.visible = false;
    form.Label1.left = 99.f;
    form.Key1.enabled = false;
    form.Key1.lit = true;
    form.Text1.text = "changed";
    form.Check1.checked = true;
    form.Option2.choose();
    form.List1.list.add("Wednesday");
    form.HScroll1.value = 1;
    form.Tabs1.choose(1);
    form.PictureBox1.drawing.foreground = kRed;
    form.PictureBox1.drawing.line(0, 0, 9, 9);
    form.Chart1.data("5");
    form.Panel2.unit = 1.f;
    form.Timer1.interval = 7ms;
    form.Timer1.enabled = true;
    form.unload();
    form.heard.clear();
    form.load();
    EXPECT_EQ(form.heard, Heard{"load"});
    EXPECT_EQ(form.caption, "Sample");
    EXPECT_TRUE(form.enabled);
    EXPECT_FALSE(form.topmost);
    EXPECT_EQ(form.Label1.caption, "Carrier deviation");
    EXPECT_TRUE(form.Label1.visible);
    EXPECT_EQ(form.Label1.left, 10);
    EXPECT_TRUE(form.Key1.enabled);
    EXPECT_FALSE(form.Key1.lit);
    EXPECT_EQ(form.Text1.text, "Radio");
    EXPECT_FALSE(form.Check1.checked);
    EXPECT_TRUE(form.Option1.chosen);
    EXPECT_FALSE(form.Option2.chosen);
    EXPECT_EQ(form.List1.list.rows().size(), 2u);
    EXPECT_EQ(form.HScroll1.value, 110);
    EXPECT_EQ(form.Tabs1.current.get(), 0);
    EXPECT_EQ(form.Tabs1.pages().size(), 2u);
    EXPECT_TRUE(form.PictureBox1.drawing.marks().empty());
    EXPECT_EQ(form.PictureBox1.drawing.foreground, kBlack);
    EXPECT_EQ(form.Chart1.dataAt(1, 1), "");
    EXPECT_EQ(form.Panel2.unit, 15);
    EXPECT_EQ(std::chrono::milliseconds(form.Timer1.interval), 100ms);
    EXPECT_FALSE(form.Timer1.enabled);
}

TEST_F(Forms, EveryControlIsPlacedOnceAlsoWhenLoadedAgain) {
    form.load();
    form.unload();
    form.load();
    for (const Control* control : form.controls()) {
        EXPECT_EQ(control->timesPlaced, 1) << control->name();
    }
}

TEST_F(Forms, UnloadHidesAndNeedsALoad) {
    form.unload();
    EXPECT_EQ(form.heard, Heard{});
    form.show();
    form.unload();
    EXPECT_FALSE(form.loaded());
    EXPECT_FALSE(form.visible);
    EXPECT_EQ(form.heard, (Heard{"load", "activated", "unload"}));
    EXPECT_EQ(desktop.journal, (Heard{"show SampleForm", "hide SampleForm"}));
}

TEST_F(Forms, ResizeIsRaisedAtTheFirstShowTheFoldAndTheUnfoldEachOnce) {
    form.raisesResize = true;
    form.show();
    EXPECT_EQ(form.heard, (Heard{"load", "resized", "activated"}));
    form.raisesResize = false;
    form.heard.clear();
    form.minimise();
    EXPECT_EQ(form.windowState.get(), WindowState::Minimised);
    EXPECT_EQ(form.heard, Heard{"resized"});
    desktop.hand.unfold(form);
    desktop.hand.unfold(form);
    desktop.settle();
    EXPECT_EQ(form.windowState.get(), WindowState::Normal);
    EXPECT_EQ(form.heard, (Heard{"resized", "resized"}));
}

TEST_F(Forms, AFormThatDoesNotAskForItGetsNoResizeAtShow) {
    form.show();
    EXPECT_FALSE(form.didHear("resized"));
}

TEST_F(Forms, AreFoundByName) {
    EXPECT_EQ(desktop.find("SampleForm"), &form);
    EXPECT_EQ(desktop.find("sampleform"), nullptr);
    EXPECT_EQ(form.find("Key1"), &form.Key1);
    EXPECT_EQ(form.findTimer("Timer2"), &form.Timer2);
    EXPECT_EQ(form.findTimer("Timer3"), nullptr);
}

TEST_F(Forms, AFormThatGoesAwayLeavesTheDesktopAndTheQueue) {
    auto brief = std::make_unique<SampleForm>(desktop, "Brief");
    brief->show();
    brief->Timer1.enabled = true;
    desktop.hand.click(brief->Key1);
    EXPECT_NE(desktop.find("Brief"), nullptr);
    brief.reset();
    EXPECT_EQ(desktop.find("Brief"), nullptr);
    EXPECT_FALSE(desktop.queue().nextDue().has_value());
    desktop.advance(1s);
}

TEST_F(Forms, TheDefaultAndTheCancelKeyAreTheOnesThatCanBePressed) {
    form.show();
    EXPECT_EQ(form.defaultKey(), &form.KeyDefault);
    EXPECT_EQ(form.cancelKey(), &form.KeyCancel);
    form.KeyDefault.enabled = false;
    form.KeyCancel.visible = false;
    EXPECT_EQ(form.defaultKey(), nullptr);
    EXPECT_EQ(form.cancelKey(), nullptr);
}

}  // namespace
}  // namespace display::test
