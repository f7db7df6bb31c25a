// SPDX-License-Identifier: GPL-3.0-or-later
// What the rack shows of figures beyond their limits.
#include <gtest/gtest.h>

#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "panels/quality/form_c.h"
#include "program/limit_alarms.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

struct LimitMarksTest : testing::Test {
    explicit LimitMarksTest(int language = RackBench::kEnglish) : bench(language) {
        bench.readings.peakModulation = 90;
        bench.readings.pilotLevel = 9;
        bench.readings.pilotError = 0;
        bench.readings.carrierDeviation = 0;
        bench.readings.field = 60;
    }
    /// Passes time with readings that change often enough not to count as stale.
    void pass(std::chrono::milliseconds time) {
        for (std::chrono::milliseconds gone{0}; gone < time; gone += 500ms) {
            bench.readings.relativePower += 0.01f;
            bench.advance(500ms);
        }
    }
    display::Picture& frame(display::Form& form, const std::string& figure) {
        return dynamic_cast<display::Picture&>(*form.find("LimitFrame_" + figure));
    }
    display::Picture& word(display::Form& form, const std::string& figure) {
        return dynamic_cast<display::Picture&>(*form.find("LimitWord_" + figure));
    }
    std::string said(display::Form& form, const std::string& figure) {
        EXPECT_EQ(frame(form, figure).shown(), word(form, figure).shown());
        if (!frame(form, figure).shown()) return "";
        return std::string(frame(form, figure).picture.get()) + " " +
               word(form, figure).caption.get().c_str();
    }

    RackBench bench;
};

TEST_F(LimitMarksTest, EachFigureHasItsMarkOnTheRack) {
    bench.start();
    for (const figures::Figure& figure : figures::all()) {
        int marks = 0;
        for (display::Form* panel : bench.program.rack) {
            const auto* mark = panel->find(std::string("LimitFrame_") + figure.key);
            if (!mark) continue;
            ++marks;
            EXPECT_FALSE(mark->shown());
            const display::Box box = mark->boxOnForm();
            EXPECT_GT(box.width, 0) << figure.key;
            EXPECT_GE(box.left, 0);
            EXPECT_LE(box.right(), panel->width);
            const display::Box says =
                panel->find(std::string("LimitWord_") + figure.key)->boxOnForm();
            EXPECT_LE(says.right(), panel->width) << figure.key;
            EXPECT_LE(says.bottom(), panel->height) << figure.key;
        }
        EXPECT_EQ(marks, 1) << figure.key;
    }
}

TEST_F(LimitMarksTest, AFigureBeyondItsLimitWearsFrameAndWord) {
    bench.start();
    pass(8s);
    EXPECT_EQ(said(bench.formC, "pilot_level"), "");
    bench.readings.pilotLevel = 7;
    pass(4s);
    EXPECT_EQ(said(bench.formC, "pilot_level"), "");
    pass(2s);
    EXPECT_EQ(said(bench.formC, "pilot_level"), "LimitWarning LOW");
    EXPECT_STREQ(word(bench.formC, "pilot_level").tip.english, "Pilot level: outside 8 to 10 %");
    bench.readings.pilotLevel = 11;
    pass(1s);
    EXPECT_EQ(said(bench.formC, "pilot_level"), "LimitWarning HIGH");
    bench.readings.pilotLevel = 9;
    pass(6s);
    EXPECT_EQ(said(bench.formC, "pilot_level"), "");
}

TEST_F(LimitMarksTest, AnAlarmIsRedAndHasAnExclamationMark) {
    bench.start();
    bench.readings.peakModulation = 104;
    pass(500ms);
    EXPECT_EQ(said(bench.form1, "deviation_peak"), "LimitAlarm HIGH!");
    EXPECT_EQ(word(bench.form1, "deviation_peak").picture, "LimitAlarmWord");
    EXPECT_STREQ(word(bench.form1, "deviation_peak").tip.english, "Peak deviation: over 77 kHz");
}

TEST_F(LimitMarksTest, TheFigureKeepsItsColourAndItsPlace) {
    bench.start();
    pass(1s);
    const display::Colour colour = bench.form1.Label_FMod.colour;
    const display::Box box = bench.form1.Label_FMod.boxOnForm();
    bench.readings.peakModulation = 104;
    pass(1s);
    EXPECT_EQ(bench.form1.Label_FMod.colour.get(), colour);
    EXPECT_EQ(bench.form1.Label_FMod.boxOnForm(), box);
}

TEST_F(LimitMarksTest, AnotherStationBeginsWithoutMarks) {
    bench.start();
    bench.readings.pilotLevel = 7;
    pass(7s);
    ASSERT_NE(said(bench.formC, "pilot_level"), "");
    // Tuning the same station again keeps them.
    bench.formB.cambfre();
    bench.advance(500ms);
    EXPECT_NE(said(bench.formC, "pilot_level"), "");
    bench.click(bench.formB.SSCommand1);
    bench.advance(500ms);
    EXPECT_EQ(said(bench.formC, "pilot_level"), "");
}

TEST_F(LimitMarksTest, ReadingsThatStandStillChangeNothing) {
    bench.start();
    bench.readings.pilotLevel = 7;
    pass(7s);
    ASSERT_NE(said(bench.formC, "pilot_level"), "");
    // The unit has no new readings: the figure is not known now, and the mark stays.
    bench.advance(20s);
    EXPECT_NE(said(bench.formC, "pilot_level"), "");
}

TEST_F(LimitMarksTest, TheFilesRulesHoldInPlaceOfTheUsual) {
    bench.write("limits.ini",
                "[level]\r\nfigure = pilot_level\r\nbelow = 6\r\nfor = 0\r\nseverity = alarm\r\n");
    bench.start();
    bench.readings.pilotLevel = 7;
    bench.readings.peakModulation = 120;
    pass(8s);
    EXPECT_EQ(said(bench.formC, "pilot_level"), "");
    EXPECT_EQ(said(bench.form1, "deviation_peak"), "");
    bench.readings.pilotLevel = 5;
    pass(500ms);
    EXPECT_EQ(said(bench.formC, "pilot_level"), "LimitAlarm LOW!");
}

TEST_F(LimitMarksTest, AFaultyFileIsToldStaysAndLeavesTheUsualRules) {
    const std::string faulty = "[level]\r\nfigure = pilot\r\n";
    bench.write("limits.ini", faulty);
    bench.start();
    bench.readings.peakModulation = 104;
    pass(1s);
    EXPECT_TRUE(bench.form1.Trouble.shown());
    EXPECT_EQ(bench.form1.Trouble.caption, "limits.ini, line 2: \"pilot\" is no figure");
    EXPECT_EQ(said(bench.form1, "deviation_peak"), "LimitAlarm HIGH!");
    EXPECT_EQ(bench.read("limits.ini"), faulty);
}

TEST_F(LimitMarksTest, NoFileIsMadeByItself) {
    bench.start();
    pass(2s);
    EXPECT_FALSE(bench.exists("limits.ini"));
    EXPECT_FALSE(bench.form1.Trouble.shown());
}

struct SpanishLimitMarks : LimitMarksTest {
    SpanishLimitMarks() : LimitMarksTest(RackBench::kSpanish) {}
};

TEST_F(SpanishLimitMarks, SayItInSpanish) {
    bench.start();
    bench.readings.peakModulation = 104;
    bench.readings.pilotLevel = 7;
    pass(7s);
    EXPECT_EQ(said(bench.form1, "deviation_peak"), "LimitAlarm ¡ALTO!");
    EXPECT_EQ(said(bench.formC, "pilot_level"), "LimitWarning BAJO");
    EXPECT_STREQ(word(bench.formC, "pilot_level").tip.spanish,
                 "Nivel del piloto: fuera de 8 a 10 %");
}

}  // namespace
}  // namespace hmonitor::test
