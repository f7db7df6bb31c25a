// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/hand.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

using Heard = std::vector<std::string>;

class Hands : public testing::Test {
 protected:
    Hands() {
        form.show();
        form.heard.clear();
    }
    std::string typed(std::string_view characters) {
        desktop.hand.type(form.Text1, characters);
        desktop.settle();
        return form.Text1.text.get();
    }
    HeadlessDesktop desktop;
    Hand& hand = desktop.hand;
    SampleForm form{desktop};
};

TEST_F(Hands, APictureKeyIsPressedThenReleasedThenClicked) {
    hand.press(form.KeyN);
    desktop.settle();
    EXPECT_EQ(form.KeyN.picture, "PeakA");
    hand.release(form.KeyN);
    desktop.settle();
    EXPECT_EQ(form.KeyN.picture, "PeakN");
    EXPECT_EQ(form.heard, (Heard{"KeyN press", "KeyN release", "KeyN click"}));
}

TEST_F(Hands, ReleasedOutsideAPictureKeyComesUpAndDoesNothing) {
    hand.press(form.KeyN);
    hand.cancel(form.KeyN);
    desktop.settle();
    EXPECT_EQ(form.KeyN.picture, "PeakN");
    EXPECT_EQ(form.heard, (Heard{"KeyN press", "KeyN cancel"}));
}

TEST_F(Hands, AReleaseWithoutAPressOnThatKeyIsNone) {
    hand.release(form.KeyN);
    hand.cancel(form.KeyN);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
    hand.click(form.KeyN);
    hand.release(form.KeyN);
    desktop.settle();
    EXPECT_EQ(form.heard, (Heard{"KeyN press", "KeyN release", "KeyN click"}));
}

TEST_F(Hands, AReleaseWhosePressARunKeptOutIsNone) {
    desktop.queue().openGate();
    desktop.queue().pushFilter({});
    hand.press(form.KeyN);
    desktop.settle();
    desktop.queue().popFilter();
    hand.release(form.KeyN);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Hands, AnUnfoldDuringARunComesWhenTheRunIsOver) {
    form.windowState = WindowState::Minimised;
    desktop.queue().pushFilter({});
    hand.unfold(form);
    desktop.settle();
    EXPECT_EQ(form.windowState.get(), WindowState::Minimised);
    desktop.queue().popFilter();
    desktop.settle();
    EXPECT_EQ(form.windowState.get(), WindowState::Normal);
    EXPECT_EQ(form.heard, (Heard{"resized"}));
}

TEST_F(Hands, AnUnfoldBehindAModalFormComesWhenThatIsGone) {
    SampleForm asked(desktop, "Asked");
    form.windowState = WindowState::Minimised;
    desktop.modalScripts["Asked"] = [this](Form& modal) {
        hand.unfold(form);
        hand.click(form.Key1);
        desktop.queue().post({Input::Kind::Control, &modal, nullptr, [&modal] { modal.hide(); }});
    };
    asked.showModal();
    EXPECT_EQ(form.windowState.get(), WindowState::Minimised);
    desktop.settle();
    EXPECT_EQ(form.windowState.get(), WindowState::Normal);
    // Input on a control below the box is lost.
    EXPECT_EQ(form.heard, (Heard{"resized"}));
}

TEST_F(Hands, AnUnfoldOfAFormThatWentAwayMeanwhileIsForgotten) {
    form.windowState = WindowState::Minimised;
    desktop.queue().pushFilter({});
    hand.unfold(form);
    desktop.settle();
    form.unload();
    desktop.queue().popFilter();
    form.heard.clear();
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Hands, TypeEachCharacterAtTheEnd) {
    EXPECT_EQ(typed(" 1"), "Radio 1");
    EXPECT_EQ(form.heard, (Heard{"Text1 change", "Text1 change"}));
}

TEST_F(Hands, TypeThroughTheFieldsFilter) {
    form.Text1.text = "";
    form.Text1.onTyped = [](char32_t c) -> char32_t {
        if (c >= U'0' && c <= U'9') return 0;
        return c == U'ñ' ? U'Ñ' : c;
    };
    EXPECT_EQ(typed("a1ñ2€"), "aÑ€");
}

TEST_F(Hands, TypeCharactersOfAnyLengthAsOne) {
    form.Text1.text = "";
    std::vector<char32_t> seen;
    form.Text1.onTyped = [&](char32_t c) {
        seen.push_back(c);
        return c;
    };
    EXPECT_EQ(typed("aé€😀"), "aé€😀");
    EXPECT_EQ(seen, (std::vector<char32_t>{U'a', U'é', U'€', U'😀'}));
}

TEST_F(Hands, TypeNoMoreCharactersThanTheFieldTakes) {
    form.Text1.text = "";
    form.Text1.maxLength = 3;
    EXPECT_EQ(typed("ñéü€"), "ñéü");
}

TEST_F(Hands, TypeNothingIntoALockedField) {
    form.Text1.locked = true;
    EXPECT_EQ(typed("x"), "Radio");
    hand.edit(form.Text1, "pasted");
    desktop.settle();
    EXPECT_EQ(form.Text1.text, "Radio");
}

TEST_F(Hands, AnEditReplacesTheText) {
    hand.edit(form.Text1, "Otra");
    desktop.settle();
    EXPECT_EQ(form.Text1.text, "Otra");
    EXPECT_EQ(form.heard, Heard{"Text1 change"});
}

TEST_F(Hands, TypingInPlaceOfASpanKeepsWhatIsAroundIt) {
    form.Text1.text = "Señal";
    hand.type(form.Text1, "nd", {2, 3});
    desktop.settle();
    EXPECT_EQ(form.Text1.text, "Sendal");
    hand.type(form.Text1, "", {0, 3});
    desktop.settle();
    EXPECT_EQ(form.Text1.text, "dal");
}

TEST_F(Hands, ScrollByStepsAndPagesWithinTheRange) {
    hand.scroll(form.HScroll1, 1);
    hand.page(form.HScroll1, -2);
    desktop.settle();
    EXPECT_EQ(form.HScroll1.value, 91);
    hand.page(form.HScroll1, 100);
    desktop.settle();
    EXPECT_EQ(form.HScroll1.value, 205);
    form.heard.clear();
    hand.scroll(form.HScroll1, 1);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Hands, ADraggedThumbMovesAloneAndTheValueFollowsAtTheRelease) {
    hand.drag(form.HScroll1, 120);
    hand.drag(form.HScroll1, 900);
    desktop.settle();
    EXPECT_EQ(form.HScroll1.thumb.get(), 205);
    EXPECT_EQ(form.HScroll1.value, 110);
    EXPECT_EQ(form.heard, (Heard{"HScroll1 scroll", "HScroll1 scroll"}));
    hand.drop(form.HScroll1);
    desktop.settle();
    EXPECT_EQ(form.HScroll1.value, 205);
    EXPECT_FALSE(form.HScroll1.dragging);
    EXPECT_EQ(form.heard.back(), "HScroll1 change");
    EXPECT_EQ(form.heard.size(), 3u);
}

TEST_F(Hands, AThumbDroppedWhereItStoodChangesNothing) {
    hand.drag(form.HScroll1, 120);
    hand.drag(form.HScroll1, 110);
    hand.drop(form.HScroll1);
    hand.drop(form.HScroll1);
    desktop.settle();
    EXPECT_FALSE(form.didHear("HScroll1 change"));
}

TEST_F(Hands, AValueAssignedUnderADraggedThumbLeavesTheThumb) {
    hand.drag(form.HScroll1, 120);
    desktop.settle();
    form.HScroll1.value = 10;
    EXPECT_EQ(form.HScroll1.thumb.get(), 120);
}

TEST_F(Hands, EnterPressesTheDefaultKeyAndEscapeTheCancelKey) {
    hand.enter(form);
    hand.escape(form);
    desktop.settle();
    EXPECT_EQ(form.heard, (Heard{"KeyDefault click", "KeyCancel click"}));
}

TEST_F(Hands, EnterInAFieldIsTheFieldsOwnFirst) {
    hand.enter(form.Text1);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{"KeyDefault click"});
    form.heard.clear();
    form.Text1.onEnter = [this] { form.heard.emplace_back("Text1 enter"); };
    hand.enter(form.Text1);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{"Text1 enter"});
}

TEST_F(Hands, DoubleClickReachesPicturesPanelsBoxesAndLists) {
    form.Panel1.onDoubleClick = [this] { form.heard.emplace_back("Panel1 double click"); };
    hand.doubleClick(form.Handle1);
    hand.doubleClick(form.Panel1);
    hand.doubleClick(form.PictureBox1);
    hand.doubleClick(form.List1);
    hand.doubleClick(form.Key1);
    desktop.settle();
    EXPECT_EQ(form.heard, (Heard{"Handle1 double click", "Panel1 double click",
                                 "PictureBox1 double click", "List1 double click"}));
}

TEST_F(Hands, AHandleIsToldWhereThePointerIs) {
    Mouse seen;
    form.Handle1.onMouseMove = [&](const Mouse& at) { seen = at; };
    hand.mouseMove(form.Handle1, {30, 45, true});
    desktop.settle();
    EXPECT_EQ(seen.x, 30);
    EXPECT_EQ(seen.y, 45);
    EXPECT_TRUE(seen.left);
    form.Panel1.onMouseDown = [&](const Mouse& at) { seen = at; };
    hand.mouseDown(form.Panel1, {1, 2, false});
    desktop.settle();
    EXPECT_EQ(seen.x, 1);
}

TEST_F(Hands, ClosingAWindowRunsItsOwnClose) {
    form.staysOpen = true;
    hand.close(form);
    desktop.settle();
    EXPECT_EQ(form.heard, Heard{"close"});
    EXPECT_TRUE(form.visible);
}

TEST_F(Hands, HelpShowsTheProgramsHelpFile) {
    desktop.helpFile = "hm-16.hlp";
    hand.help(form);
    desktop.settle();
    EXPECT_EQ(desktop.helpShown, "hm-16.hlp");
}

TEST_F(Hands, ChooseListsOptionsAndTabs) {
    hand.choose(form.Option2);
    hand.choose(form.Tabs1, 1);
    hand.select(form.Combo1, 1);
    hand.select(form.List1, 0);
    desktop.settle();
    EXPECT_EQ(form.heard, (Heard{"Option2 click", "Tabs1 click", "Combo1 click", "List1 click"}));
}

}  // namespace
}  // namespace display::test
