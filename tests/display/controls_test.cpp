// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/buttons.h"
#include "display/controls/containers.h"
#include "display/controls/control_visitor.h"
#include "display/controls/labels.h"
#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/shapes.h"
#include "display/controls/text_field.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

using Heard = std::vector<std::string>;

class Controls : public testing::Test {
 protected:
    Controls() {
        form.show();
        form.heard.clear();
    }
    HeadlessDesktop desktop;
    SampleForm form{desktop};
};

/// Notes the kind as which a control visits.
class Kinds final : public ControlVisitor {
 public:
    std::string kind;
    void visit(Label&) override { kind = "Label"; }
    void visit(Line&) override { kind = "Line"; }
    void visit(Shape&) override { kind = "Shape"; }
    void visit(Picture&) override { kind = "Picture"; }
    void visit(Panel&) override { kind = "Panel"; }
    void visit(PictureBox&) override { kind = "PictureBox"; }
    void visit(Key&) override { kind = "Key"; }
    void visit(TextField&) override { kind = "TextField"; }
    void visit(CheckBox&) override { kind = "CheckBox"; }
    void visit(Option&) override { kind = "Option"; }
    void visit(ComboBox&) override { kind = "ComboBox"; }
    void visit(ListBox&) override { kind = "ListBox"; }
    void visit(ScrollBar&) override { kind = "ScrollBar"; }
    void visit(Tabs&) override { kind = "Tabs"; }
    void visit(Chart&) override { kind = "Chart"; }
    void visit(PagePreview&) override { kind = "PagePreview"; }
    void visit(Plot&) override { kind = "Plot"; }
};

TEST_F(Controls, EachKindShowsItselfAsItself) {
    const std::vector<std::pair<Control*, std::string>> expected = {
        {&form.Label1, "Label"},       {&form.Line1, "Line"},
        {&form.Shape1, "Shape"},       {&form.KeyN, "Picture"},
        {&form.Panel1, "Panel"},       {&form.PictureBox1, "PictureBox"},
        {&form.Key1, "Key"},           {&form.Text1, "TextField"},
        {&form.Check1, "CheckBox"},    {&form.Option1, "Option"},
        {&form.Combo1, "ComboBox"},    {&form.List1, "ListBox"},
        {&form.HScroll1, "ScrollBar"}, {&form.Tabs1, "Tabs"},
        {&form.Chart1, "Chart"},       {&form.Plot1, "Plot"}};
    for (const auto& [control, kind] : expected) {
        Kinds kinds;
        control->accept(kinds);
        EXPECT_EQ(kinds.kind, kind) << control->name();
    }
}

TEST_F(Controls, APictureIsAKeyWhenAKeysEventIsBound) {
    EXPECT_TRUE(form.KeyN.interactive());
    EXPECT_FALSE(form.Lamp1.interactive());
    EXPECT_FALSE(form.Handle1.interactive());
    EXPECT_FALSE(form.Panel1.interactive());
    EXPECT_FALSE(form.Label1.interactive());
    EXPECT_TRUE(form.PictureBox1.interactive());
    EXPECT_TRUE(form.HScroll1.interactive());
}

TEST_F(Controls, StandInTheUnitsOfTheirContainer) {
    // Panel2 is at 150, 300 of the faceplate and has a unit of 15 twips.
    EXPECT_EQ(form.Label1.boxOnForm(), (Box{300, 375, 2250, 240}));
    EXPECT_EQ(form.Panel2.boxOnForm(), (Box{150, 300, 4500, 1500}));
    form.Panel1.left = 30.f;
    EXPECT_EQ(form.Label1.boxOnForm().left, 330);
    EXPECT_EQ(form.Text1.boxOnForm(), (Box{150, 2550, 1800, 330}));
}

TEST_F(Controls, AreShownOnlyWithAllThatTheyStandIn) {
    EXPECT_TRUE(form.Label1.shown());
    form.Panel1.visible = false;
    EXPECT_FALSE(form.Label1.shown());
    form.Panel1.visible = true;
    form.hide();
    EXPECT_FALSE(form.Label1.shown());
}

TEST_F(Controls, AreUsableOnlyWithAllThatTheyStandIn) {
    EXPECT_TRUE(form.Option1.usable());
    form.Group1.enabled = false;
    EXPECT_FALSE(form.Option1.usable());
    EXPECT_TRUE(form.Key1.usable());
    form.enabled = false;
    EXPECT_FALSE(form.Key1.usable());
}

TEST_F(Controls, SpeakTheLanguageOfTheForm) {
    EXPECT_EQ(form.Key1.accessibleName(), "Scan");
    form.language = Language::Spanish;
    EXPECT_EQ(form.Key1.accessibleName(), "Barrido");
}

TEST_F(Controls, PressingAKeyInCodeRunsItsClick) {
    form.Key1.press();
    EXPECT_EQ(form.heard, Heard{"Key1 click"});
    form.Key1.onClick = nullptr;
    form.Key1.press();
    EXPECT_EQ(form.heard.size(), 1u);
}

TEST_F(Controls, AssigningAnotherTextFiresItsChangeAndAnEqualOneDoesNot) {
    form.Text1.text = "Radio";
    EXPECT_EQ(form.heard, Heard{});
    form.Text1.text = "Nacional";
    EXPECT_EQ(form.heard, Heard{"Text1 change"});
    EXPECT_EQ(form.Text1.text, "Nacional");
}

TEST_F(Controls, CheckingABoxInCodeFiresItsClickOnceForAChange) {
    form.Check1.checked = true;
    form.Check1.checked = true;
    EXPECT_EQ(form.heard, Heard{"Check1 click"});
    EXPECT_TRUE(form.Check1.checked);
}

TEST_F(Controls, ChoosingAnOptionClearsTheOthersOfItsContainerOnly) {
    form.Option2.choose();
    EXPECT_TRUE(form.Option2.chosen);
    EXPECT_FALSE(form.Option1.chosen);
    EXPECT_TRUE(form.OptionApart.chosen);
    EXPECT_EQ(form.heard, Heard{"Option2 click"});
    form.Option2.choose();
    EXPECT_EQ(form.heard.size(), 1u);
}

TEST_F(Controls, AComboBoxThatFiresAgainHearsTheRowThatIsChosen) {
    int heard = 0;
    form.Combo1.select(1);
    form.Combo1.onClick = [&] { ++heard; };
    form.Combo1.select(1);
    EXPECT_EQ(heard, 0);
    form.Combo1.firesAgain = true;
    form.Combo1.select(1);
    EXPECT_EQ(heard, 1);
    form.Combo1.select(77);
    EXPECT_EQ(heard, 1) << "a row that it does not have is none";
}

TEST_F(Controls, AComboBoxSelectsARowThatItHas) {
    EXPECT_EQ(form.Combo1.list.text(), "Peak");
    form.Combo1.select(2);
    EXPECT_EQ(form.Combo1.list.text(), "RMS");
    form.Combo1.select(3);
    form.Combo1.select(-2);
    EXPECT_EQ(form.Combo1.list.selected(), 2);
    EXPECT_EQ(form.heard, Heard{"Combo1 click"});
}

TEST_F(Controls, AListWithoutASelectedRowHasHeardNoClick) {
    form.Combo1.select(2);
    form.heard.clear();
    form.Combo1.firesAgain = true;
    form.Combo1.select(-1);
    form.Combo1.select(-1);
    EXPECT_EQ(form.Combo1.list.selected(), -1);
    EXPECT_EQ(form.Combo1.list.text(), "");
    EXPECT_EQ(form.heard, Heard{});
    form.List1.select(0);
    form.heard.clear();
    form.List1.select(-1);
    EXPECT_EQ(form.List1.list.selected(), -1);
    EXPECT_EQ(form.heard, Heard{});
}

TEST_F(Controls, AClearedListHasNoSelection) {
    form.List1.select(1);
    form.List1.list.clear();
    EXPECT_EQ(form.List1.list.selected(), -1);
    EXPECT_EQ(form.List1.list.text(), "");
    const auto before = form.List1.revision();
    form.List1.list.clear();
    EXPECT_EQ(form.List1.revision(), before);
}

TEST_F(Controls, AScrollBarDisabledInTheMiddleOfADragIsNotDraggedAnyMore) {
    form.HScroll1.value = 10;
    form.HScroll1.drag(60);
    form.HScroll1.enabled = false;
    form.HScroll1.value = 20;
    EXPECT_FALSE(form.HScroll1.dragging);
    EXPECT_EQ(form.HScroll1.thumb, 20);
    form.HScroll1.dropThumb();
    EXPECT_EQ(form.HScroll1.value, 20);
}

TEST_F(Controls, AThumbThatAHandLostGoesBackToTheValue) {
    form.HScroll1.value = 10;
    form.HScroll1.drag(60);
    form.HScroll1.loseThumb();
    EXPECT_FALSE(form.HScroll1.dragging);
    EXPECT_EQ(form.HScroll1.thumb, 10);
    EXPECT_EQ(form.HScroll1.value, 10);
}

TEST_F(Controls, AScrollBarsValueIsClampedToItsRange) {
    form.HScroll1.value = 300;
    EXPECT_EQ(form.HScroll1.value, 205);
    form.HScroll1.value = -1;
    EXPECT_EQ(form.HScroll1.value, 0);
    form.HScroll1.value = -5;
    EXPECT_EQ(form.heard, (Heard{"HScroll1 change", "HScroll1 change"}));
}

TEST_F(Controls, ARangeThatLeavesTheValueOutsideMovesItToTheNearerEnd) {
    form.HScroll1.range(0, 50, 5);
    EXPECT_EQ(form.HScroll1.value, 50);
    EXPECT_EQ(form.HScroll1.thumb.get(), 50);
    EXPECT_EQ(form.heard, Heard{"HScroll1 change"});
    form.HScroll1.range(0, 100, 5);
    EXPECT_EQ(form.HScroll1.value, 50);
    EXPECT_EQ(form.heard.size(), 1u);
}

TEST_F(Controls, TheThumbFollowsAnAssignedValue) {
    form.HScroll1.value = 17;
    EXPECT_EQ(form.HScroll1.thumb.get(), 17);
}

TEST_F(Controls, ATabShowsItsPageAndHidesTheOthers) {
    EXPECT_TRUE(form.LabelPage1.shown());
    EXPECT_FALSE(form.KeyPage2.shown());
    form.Tabs1.choose(1);
    EXPECT_FALSE(form.LabelPage1.shown());
    EXPECT_TRUE(form.KeyPage2.shown());
    form.Tabs1.choose(1);
    form.Tabs1.choose(2);
    form.Tabs1.choose(-1);
    EXPECT_EQ(form.Tabs1.current.get(), 1);
    EXPECT_EQ(form.heard, Heard{"Tabs1 click"});
}

TEST_F(Controls, FamiliesAreNamedByTheirIndexFromZero) {
    EXPECT_EQ(form.LineBar[0].name(), "LineBar(0)");
    EXPECT_EQ(form.find("LineBar(2)"), &form.LineBar[2]);
    EXPECT_EQ(form.find("LineBar(3)"), nullptr);
}

}  // namespace
}  // namespace display::test
