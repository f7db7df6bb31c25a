// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/design.h"

#include <gtest/gtest.h>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

class Rows : public testing::Test {
 protected:
    Rows() { form.load(); }
    HeadlessDesktop desktop;
    SampleForm form{desktop};
};

TEST_F(Rows, GiveALabelItsPlaceItsStyleAndItsWordsInAnyOrder) {
    constexpr TextStyle kStyle{{170, Weight::Bold}, kRed, Align::Right, Surface::Plate};
    place(form.Label1, {1, 2, 30, 40}, "12.5", Tip{"Consejo", "Tip"}, kStyle, &form.Panel1,
          Readout{"Nivel", "Level"}, Hidden{});
    EXPECT_EQ(form.Label1.boxInContainer(), (Box{1, 2, 30, 40}));
    EXPECT_EQ(form.Label1.container.get(), &form.Panel1);
    EXPECT_EQ(form.Label1.caption, "12.5");
    EXPECT_EQ(form.Label1.font.get(), (Font{170, Weight::Bold}));
    EXPECT_EQ(form.Label1.colour.get(), kRed);
    EXPECT_EQ(form.Label1.align.get(), Align::Right);
    EXPECT_EQ(form.Label1.surface.get(), Surface::Plate);
    EXPECT_STREQ(form.Label1.tip.spanish, "Consejo");
    EXPECT_STREQ(form.Label1.says.english, "Level");
    EXPECT_TRUE(form.Label1.readout);
    EXPECT_FALSE(form.Label1.visible);
    EXPECT_EQ(form.Label1.timesPlaced, 2);
}

TEST_F(Rows, PlaceALineByItsEndsWhicheverComesFirst) {
    place(form.Line1, 50, 60, 20, 10, LineStyle{kCyan, 2.5f, Stroke::Round});
    EXPECT_EQ(form.Line1.boxInContainer(), (Box{20, 10, 30, 50}));
    EXPECT_EQ(form.Line1.colour.get(), kCyan);
    EXPECT_EQ(form.Line1.thickness, 2.5f);
    EXPECT_EQ(form.Line1.stroke.get(), Stroke::Round);
}

TEST_F(Rows, SpeakTheLanguageOfTheForm) {
    for (const Language language : {Language::Spanish, Language::English}) {
        form.language = language;
        const bool spanish = language == Language::Spanish;
        place(form.Key1, {}, Words{"Nueva", "New"});
        EXPECT_EQ(form.Key1.caption, spanish ? "Nueva" : "New");
        place(form.KeyN, {}, "PeakN", Caption{"Pausa", "Pause"});
        EXPECT_EQ(form.KeyN.picture, "PeakN");
        EXPECT_EQ(form.KeyN.caption, spanish ? "Pausa" : "Pause");
        place(form.KeyN, {}, Caption{"AVG"}, SaysAndTip{"Media", "Average"});
        EXPECT_EQ(form.KeyN.caption, "AVG");
        EXPECT_EQ(form.KeyN.accessibleName(), spanish ? "Media" : "Average");
        EXPECT_STREQ(form.KeyN.tip.english, "Average");
    }
}

TEST_F(Rows, GiveKeysTheirRoles) {
    form.KeyDefault.isDefault = form.KeyCancel.isCancel = false;
    place(form.Key1, {}, Role::Default, Role::Cancel);
    form.show();
    EXPECT_EQ(form.defaultKey(), &form.Key1);
    EXPECT_EQ(form.cancelKey(), &form.Key1);
}

TEST_F(Rows, FillAFigureWithOneColourOrTwo) {
    place(form.Shape1, {}, Fill{kRed});
    EXPECT_EQ(form.Shape1.fadesFrom.get(), kRed);
    place(form.Shape1, {}, Fill{kRed, kCyan, Outline::Oval});
    EXPECT_EQ(form.Shape1.colour.get(), kRed);
    EXPECT_EQ(form.Shape1.fadesFrom.get(), kCyan);
    EXPECT_EQ(form.Shape1.outline.get(), Outline::Oval);
}

TEST_F(Rows, OrderTheTabKeyThroughControlsAndFamilies) {
    tabOrder(form.Text1, form.LineBar, form.Key1);
    EXPECT_EQ(form.Text1.tabIndex, 1);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(form.LineBar[i].tabIndex, 2 + i);
    EXPECT_EQ(form.Key1.tabIndex, 5);
}

TEST_F(Rows, AStyleIsVariedByWhatIsSaid) {
    constexpr TextStyle kPlain{{120}, kCyan};
    EXPECT_EQ(kPlain.right().align, Align::Right);
    EXPECT_EQ(kPlain.right().colour, kCyan);
    EXPECT_EQ(kPlain.in(kRed).centred().colour, kRed);
    EXPECT_EQ(kPlain.in(kRed).centred().align, Align::Centre);
    EXPECT_EQ(kPlain.in(kRed).font, kPlain.font);
}

TEST_F(Rows, FamiliesNameTheirElements) {
    Family<Key, 2, 1> presets(form, "SSCommand#");
    EXPECT_EQ(presets[1].name(), "SSCommand1");
    EXPECT_EQ(presets[2].name(), "SSCommand2");
    Family<Label, 2> graphs(form, "Graph#b", 7);
    EXPECT_EQ(graphs[0].name(), "Graph7b");
    EXPECT_EQ(graphs[1].name(), "Graph8b");
    Family<Label, 3> levels(form, {"Label100", "Label090", "Label080"});
    EXPECT_EQ(levels[2].name(), "Label080");
    EXPECT_EQ(form.LineBar[2].name(), "LineBar(2)");
    EXPECT_EQ(form.find("SSCommand2"), &presets[2]);
}

}  // namespace
}  // namespace display::test
