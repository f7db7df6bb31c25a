// SPDX-License-Identifier: GPL-3.0-or-later
#include "limits/form_limits.h"

#include <gtest/gtest.h>

#include "analyses/form_d.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

struct LimitsWindow : testing::Test {
    explicit LimitsWindow(int language = RackBench::kEnglish) : bench(language) {}
    void open() {
        bench.start();
        bench.click(bench.formD.KeyLimits);
    }
    void select(int row) { bench.hand.select(window.Rules, row), bench.settle(); }
    void choose(display::ComboBox& box, int row) { bench.hand.select(box, row), bench.settle(); }
    const std::string& row(int number) {
        return window.Rules.list.rows().at(static_cast<std::size_t>(number));
    }

    RackBench bench;
    FormLimits& window = bench.forms.formLimits;
};

TEST_F(LimitsWindow, OpensOverTheDisabledRackWithTheRulesThatHold) {
    open();
    EXPECT_TRUE(window.visible);
    EXPECT_FALSE(bench.form1.enabled);
    ASSERT_EQ(window.Rules.list.rows().size(), 5u);
    EXPECT_EQ(row(0), "Peak deviation: over 77 kHz");
    EXPECT_EQ(row(1), "Pilot level: outside 8 to 10 %");
    EXPECT_EQ(window.Highest.text, "77");
    EXPECT_FALSE(window.Lowest.enabled);
    EXPECT_EQ(window.BoundUnit[1].caption, "kHz");
    EXPECT_TRUE(window.Alarm.chosen);
    select(1);
    EXPECT_EQ(window.Lowest.text, "8");
    EXPECT_EQ(window.Highest.text, "10");
    EXPECT_TRUE(window.Lowest.enabled);
    EXPECT_TRUE(window.Warning.chosen);
}

TEST_F(LimitsWindow, AcceptStoresAndWatchesByTheNewRules) {
    open();
    select(1);
    bench.edit(window.Lowest, "7.5");
    bench.edit(window.Holds, "30");
    bench.hand.choose(window.Alarm);
    bench.settle();
    EXPECT_EQ(row(1), "Pilot level: outside 7.5 to 10 %");
    bench.click(window.KeyAccept);
    EXPECT_FALSE(window.loaded());
    EXPECT_TRUE(bench.form1.enabled);
    EXPECT_NE(bench.read("limits.ini")
                  .find("[pilot level]\r\nfigure = pilot_level\r\n"
                        "outside = 7.5 10\r\nfor = 30\r\nrelease = 5\r\n"
                        "severity = alarm\r\n"),
              std::string::npos);
    EXPECT_EQ(bench.program.limits.limits().rules[1].good.lowest, 7.5f);
}

TEST_F(LimitsWindow, CancelAndTheWindowsCloseChangeNothing) {
    open();
    bench.edit(window.Highest, "80");
    bench.click(window.KeyCancel);
    EXPECT_FALSE(window.loaded());
    EXPECT_FALSE(bench.exists("limits.ini"));
    EXPECT_EQ(bench.program.limits.limits().rules[0].good.highest, 77);
    bench.click(bench.formD.KeyLimits);
    EXPECT_EQ(window.Highest.text, "77");
    bench.edit(window.Highest, "80");
    bench.hand.close(window);
    bench.settle();
    EXPECT_FALSE(bench.exists("limits.ini"));
    EXPECT_TRUE(bench.form1.enabled);
}

TEST_F(LimitsWindow, WhatMakesNoRuleIsSaidAndNotAccepted) {
    open();
    bench.edit(window.Highest, "seventy");
    EXPECT_EQ(window.Note.caption, "A limit is a number within the figure's range");
    bench.click(window.KeyAccept);
    EXPECT_TRUE(window.visible);
    EXPECT_FALSE(bench.exists("limits.ini"));
    bench.edit(window.Highest, "70");
    EXPECT_EQ(window.Note.caption, "");
    bench.click(window.KeyAccept);
    EXPECT_FALSE(window.loaded());
    EXPECT_EQ(bench.program.limits.limits().rules[0].good.highest, 70);
}

TEST_F(LimitsWindow, AFieldIsNotRewrittenWhileItIsTyped) {
    open();
    window.Highest.selectAll();
    bench.type(window.Highest, "7");
    bench.type(window.Highest, ",");
    EXPECT_EQ(window.Highest.text, "7.");
    bench.type(window.Highest, "5");
    EXPECT_EQ(window.Highest.text, "7.5");
    EXPECT_EQ(row(0), "Peak deviation: over 7.5 kHz");
}

TEST_F(LimitsWindow, AnotherKindOffersBoundsThatFit) {
    open();
    choose(window.KindBox, static_cast<int>(LimitKind::Outside));
    EXPECT_EQ(window.Lowest.text, "0");
    EXPECT_EQ(window.Highest.text, "77");
    EXPECT_EQ(row(0), "Peak deviation: outside 0 to 77 kHz");
    choose(window.KindBox, static_cast<int>(LimitKind::Below));
    EXPECT_EQ(window.Highest.text, "");
    EXPECT_FALSE(window.Highest.enabled);
}

TEST_F(LimitsWindow, RulesAreAddedAndDeleted) {
    open();
    bench.click(window.KeyNew);
    ASSERT_EQ(window.Rules.list.rows().size(), 6u);
    EXPECT_EQ(window.Rules.list.selected(), 5);
    EXPECT_EQ(row(5), "Peak deviation: over 75 kHz");
    const auto field = figures::find("field") - figures::all().data();
    choose(window.FigureBox, static_cast<int>(field));
    choose(window.KindBox, static_cast<int>(LimitKind::Below));
    EXPECT_EQ(row(5), "Field intensity: below 45 dBµV");
    select(0);
    bench.click(window.KeyDelete);
    ASSERT_EQ(window.Rules.list.rows().size(), 5u);
    EXPECT_EQ(row(0), "Pilot level: outside 8 to 10 %");
    while (!window.Rules.list.rows().empty()) bench.click(window.KeyDelete);
    EXPECT_FALSE(window.FigureBox.enabled);
    EXPECT_FALSE(window.KeyDelete.enabled);
    bench.click(window.KeyAccept);
    EXPECT_TRUE(bench.program.limits.limits().rules.empty());
    bench.click(bench.formD.KeyLimits);
    bench.click(window.KeyUsual);
    EXPECT_EQ(window.Rules.list.rows().size(), 5u);
}

TEST_F(LimitsWindow, TwoRulesOfOneFigureHaveNamesOfTheirOwn) {
    open();
    bench.click(window.KeyNew);
    bench.click(window.KeyNew);
    bench.click(window.KeyAccept);
    const std::string file = bench.read("limits.ini");
    EXPECT_NE(file.find("[deviation_peak]"), std::string::npos);
    EXPECT_NE(file.find("[deviation_peak 2]"), std::string::npos);
    EXPECT_FALSE(bench.program.limits.fault());
}

TEST_F(LimitsWindow, AFaultyFileIsKeptBesideTheNewOne) {
    const std::string faulty = "[mine]\r\nfigure = pilot\r\n; hours of work\r\n";
    bench.write("limits.ini", faulty);
    open();
    EXPECT_EQ(window.Note.caption, "limits.ini, line 2: \"pilot\" is no figure");
    bench.click(window.KeyAccept);
    EXPECT_EQ(bench.read("limits.faulty.ini"), faulty);
    EXPECT_NE(bench.read("limits.ini").find("[deviation]"), std::string::npos);
    bench.advance(std::chrono::seconds(3));
    EXPECT_FALSE(bench.form1.Trouble.shown());
}

TEST_F(LimitsWindow, CommentsOfTheFileStay) {
    bench.write("limits.ini", "; ours\r\n\r\n; wide\r\n[p]\r\nfigure=pilot_level\r\nbelow=5\r\n");
    open();
    bench.edit(window.Lowest, "6");
    bench.click(window.KeyAccept);
    EXPECT_TRUE(bench.read("limits.ini").starts_with("; ours\r\n\r\n; wide\r\n[p]\r\n"));
    EXPECT_NE(bench.read("limits.ini").find("below = 6\r\n"), std::string::npos);
}

struct SpanishLimitsWindow : LimitsWindow {
    SpanishLimitsWindow() : LimitsWindow(RackBench::kSpanish) {}
};

TEST_F(SpanishLimitsWindow, SpeaksSpanish) {
    open();
    EXPECT_EQ(window.caption, "Límites de las medidas");
    EXPECT_EQ(row(0), "Pico de desviación: más de 77 kHz");
    bench.edit(window.Highest, "");
    EXPECT_EQ(window.Note.caption, "El límite es un número dentro del margen de la medida");
}

}  // namespace
}  // namespace hmonitor::test
