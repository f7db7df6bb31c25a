// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/headless/headless_desktop.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/display/sample_form.h"

namespace display::test {
namespace {

using namespace std::chrono_literals;
using Heard = std::vector<std::string>;

class Headless : public testing::Test {
 protected:
    Headless() {
        form.show();
        desktop.queue().openGate();
        form.heard.clear();
        desktop.journal.clear();
    }
    HeadlessDesktop desktop;
    SampleForm form{desktop};
};

TEST_F(Headless, KeepsWhereTheKeyboardWasGivenUntilThatFormGoes) {
    form.show();
    form.Text1.takeFocus();
    EXPECT_EQ(desktop.focus, &form.Text1);
    form.Key1.visible = false;
    form.Key1.takeFocus();
    EXPECT_EQ(desktop.focus, &form.Text1);
    form.hide();
    EXPECT_EQ(desktop.focus, nullptr);
}

TEST_F(Headless, AnUnscriptedMessageBoxFails) {
    EXPECT_THROW(desktop.messageBox({"Title", "Text"}), Unscripted);
    desktop.boxAnswers.emplace_back("OK");
    desktop.messageBox({"Title", "Text", BoxIcon::Critical});
    EXPECT_EQ(desktop.journal, Heard{"box Title: Text"});
    ASSERT_EQ(desktop.boxes.size(), 1u);
    EXPECT_EQ(desktop.boxes[0].icon, BoxIcon::Critical);
    EXPECT_THROW(desktop.messageBox({"Title", "Text"}), Unscripted);
}

TEST_F(Headless, AQuestionIsAnsweredByItsScript) {
    EXPECT_THROW((void)desktop.ask({"Title", "Delete?"}), Unscripted);
    desktop.boxAnswers = {"Cancel", "OK"};
    int during = 0;
    desktop.duringBox = [&] { ++during; };
    EXPECT_EQ(desktop.ask({"Title", "Delete?"}), BoxAnswer::Cancel);
    EXPECT_EQ(desktop.ask({"Title", "Delete?"}), BoxAnswer::Ok);
    EXPECT_EQ(during, 2);
    desktop.answerEveryBox = true;
    EXPECT_EQ(desktop.ask({"Title", "Delete?"}), BoxAnswer::Ok);
    EXPECT_EQ(desktop.boxes.size(), 3u);
}

TEST_F(Headless, AShortcutPressesTheKeyThatHasIt) {
    form.show();
    form.Key1.shortcut = "Ctrl+X";
    form.heard.clear();
    desktop.hand.shortcut(form, "Ctrl+Z");
    desktop.hand.shortcut(form, "");
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
    desktop.hand.shortcut(form, "Ctrl+X");
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{"Key1 click"});
}

TEST_F(Headless, APictureKeyHasAShortcutToo) {
    form.show();
    form.KeyN.shortcut = "F3";
    form.heard.clear();
    desktop.hand.shortcut(form, "F3");
    desktop.settle();
    EXPECT_EQ(form.heard, (Heard{"KeyN press", "KeyN release", "KeyN click"}));
}

TEST_F(Headless, AnUnscriptedRandomNumberFails) {
    EXPECT_THROW(desktop.random(), Unscripted);
    desktop.randoms = {0.25, 0.5};
    EXPECT_EQ(desktop.random(), 0.25);
    EXPECT_EQ(desktop.random(), 0.5);
    EXPECT_THROW(desktop.random(), Unscripted);
}

TEST_F(Headless, ASeedGivesTheSameDrawsFromZeroUpToOne) {
    HeadlessDesktop twin;
    desktop.seedRandom(7);
    twin.seedRandom(7);
    for (int i = 0; i < 1000; ++i) {
        const double drawn = desktop.random();
        EXPECT_EQ(drawn, twin.random());
        EXPECT_GE(drawn, 0);
        EXPECT_LT(drawn, 1);
    }
}

TEST_F(Headless, AnUnscriptedModalFormFails) {
    SampleForm dialog{desktop, "Dialog"};
    EXPECT_THROW(dialog.showModal(), Unscripted);
}

TEST_F(Headless, AModalFormThatItsScriptLeavesOpenFails) {
    SampleForm dialog{desktop, "Dialog"};
    desktop.modalScripts["Dialog"] = [](Form&) {};
    EXPECT_THROW(dialog.showModal(), Unscripted);
}

TEST_F(Headless, AModalFormReturnsWhenItsScriptsHandClosesIt) {
    SampleForm dialog{desktop, "Dialog"};
    desktop.modalScripts["Dialog"] = [&](Form& shown) {
        desktop.hand.click(form.Key1);
        desktop.hand.click(dialog.Key1);
        desktop.hand.close(shown);
    };
    dialog.showModal();
    EXPECT_FALSE(dialog.visible);
    EXPECT_EQ(dialog.heard, (Heard{"load", "activated", "Key1 click", "close"}));
    EXPECT_EQ(form.heard, Heard{});
    EXPECT_EQ(desktop.journal, (Heard{"show Dialog", "modal Dialog", "hide Dialog"}));
}

TEST_F(Headless, ThePanelsHearAgainAfterAModalForm) {
    SampleForm dialog{desktop, "Dialog"};
    desktop.modalScripts["Dialog"] = [](Form& shown) { shown.hide(); };
    dialog.showModal();
    desktop.hand.click(form.Key1);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{"Key1 click"});
}

TEST_F(Headless, SettleLetsNoTimePass) {
    form.Timer1.enabled = true;
    desktop.advance(99ms);
    desktop.settle();
    EXPECT_EQ(desktop.now(), 99ms);
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Headless, AHandlerSeesTheTimeAtWhichItIsDue) {
    Time seen{0};
    form.Timer1.onTick = [&] { seen = desktop.now(); };
    form.Timer1.enabled = true;
    desktop.advance(150ms);
    EXPECT_EQ(seen, 100ms);
    EXPECT_EQ(desktop.now(), 150ms);
}

TEST_F(Headless, PassesAreCountedAndScripted) {
    int seen = 0;
    desktop.onPass = [&] {
        ++seen;
        desktop.hand.click(form.Key1);
    };
    desktop.letEventsThrough();
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(desktop.passes, 1);
    EXPECT_EQ(form.heard, Heard{"Key1 click"});
}

TEST_F(Headless, WritesDownWhatWasPrintedShownAndCopied) {
    EXPECT_EQ(desktop.printImage({&form}), "");
    desktop.printerFault = "No printer.";
    EXPECT_EQ(desktop.printImage({&form}), "No printer.");
    desktop.showHelp("hm-16.hlp");
    desktop.setClipboardText("text");
    desktop.beep();
    desktop.pointer(PointerShape::Hourglass);
    EXPECT_EQ(desktop.journal, (Heard{"print SampleForm", "print SampleForm", "help hm-16.hlp"}));
    EXPECT_EQ(desktop.clipboard, "text");
    EXPECT_EQ(desktop.beeps, 1);
    EXPECT_EQ(desktop.pointerShape, PointerShape::Hourglass);
}

TEST_F(Headless, SpeaksTheLanguageOfTheUser) {
    EXPECT_EQ(desktop.monthName(0), "January");
    EXPECT_EQ(desktop.weekdayName(0), "Sunday");
    desktop.languageId = 0x0c0a;
    EXPECT_EQ(desktop.monthName(8), "septiembre");
    EXPECT_EQ(desktop.shortMonthName(8), "sep");
    EXPECT_EQ(desktop.weekdayName(3), "miércoles");
}

class Ending : public Headless {
 protected:
    /// Ends the program in the middle of a handler.
    void endIn(Event& event) {
        event = [this] {
            form.heard.emplace_back("before");
            desktop.end();
            form.heard.emplace_back("after");
        };
    }
};

TEST_F(Ending, NothingOfTheHandlerRunsOn) {
    endIn(form.Key1.onClick);
    desktop.hand.click(form.Key1);
    desktop.hand.click(form.KeyDefault);
    form.Timer1.enabled = true;
    desktop.advance(1s);
    EXPECT_TRUE(desktop.ended());
    EXPECT_EQ(form.heard, Heard{"before"});
    EXPECT_EQ(desktop.journal, Heard{"end"});
}

TEST_F(Ending, NothingRunsAfterIt) {
    endIn(form.Timer1.onTick);
    form.Timer1.enabled = true;
    form.Timer2.enabled = true;
    desktop.advance(10s);
    desktop.hand.click(form.Key1);
    desktop.advance(10s);
    EXPECT_EQ(form.heard, Heard{"before"});
}

TEST_F(Ending, AlsoLeavesAPassInsideAnotherHandler) {
    endIn(form.KeyCancel.onClick);
    form.Key1.onClick = [&] {
        desktop.hand.click(form.KeyCancel);
        desktop.letEventsThrough();
        form.heard.emplace_back("the run goes on");
    };
    desktop.hand.click(form.Key1);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{"before"});
    EXPECT_TRUE(desktop.ended());
}

TEST_F(Ending, AlsoLeavesAModalForm) {
    SampleForm dialog{desktop, "Dialog"};
    endIn(dialog.Key1.onClick);
    desktop.modalScripts["Dialog"] = [&](Form&) { desktop.hand.click(dialog.Key1); };
    form.Key1.onClick = [&] {
        dialog.showModal();
        form.heard.emplace_back("after the dialog");
    };
    desktop.hand.click(form.Key1);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{"before"});
}

TEST_F(Ending, IsAnnouncedOnce) {
    EXPECT_THROW(desktop.end(), ProgramEnded);
    EXPECT_THROW(desktop.end(), ProgramEnded);
    EXPECT_EQ(desktop.journal, Heard{"end"});
}

}  // namespace
}  // namespace display::test
