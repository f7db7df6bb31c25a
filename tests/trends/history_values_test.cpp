// SPDX-License-Identifier: GPL-3.0-or-later
// The window HISTORY: holes and their causes, values at marks, events, last week, exports.
#include <algorithm>

#include "tests/trends/history_window.h"

namespace hmonitor::test {

TEST_F(History, TheLastSecondsAreNoHole) {
    recordQuarter();
    open();
    bench.click(form.Command_Span[0]);
    bench.advance(std::chrono::seconds(3));
    EXPECT_TRUE(series(2).points.back().known());
    EXPECT_EQ(series(2).points.back().cause, 0);
}

TEST_F(History, TheLastSecondsAreNotCountedAsUnknown) {
    recordQuarter();
    open();
    bench.advance(std::chrono::seconds(3));
    look(noon - 7, noon + 3);
    EXPECT_EQ(form.Label_Known.caption, "known 100.0 %");
    bench.advance(std::chrono::minutes(1));
    look(noon - 7, noon + 3);
    EXPECT_EQ(form.Label_Known.caption, "known 70.0 %") << "of these nothing comes any more";
}

TEST_F(History, TheMinuteThatIsNotOverIsNotCalledUnrecorded) {
    const auto feed = record(900);
    feed->run(900 + 30);
    open();
    bench.advance(std::chrono::seconds(33));
    bench.click(form.Command_Span[1]);
    EXPECT_EQ(form.Label_Time.caption, "12:00:00");
    EXPECT_EQ(form.Label_Date.caption, "4 May 2026 · 1 min");
    EXPECT_EQ(form.Label_Value[2].caption, "9.14") << "of 29 seconds: the 30th is not over";
    EXPECT_EQ(form.Label_Step[2].caption, "") << "what is left of it is still to come";
}

TEST_F(History, UnknownTimeHasItsCauseAndIsNamedBeside) {
    const auto feed = record(900);
    feed->run(300);
    feed->take(Inputs::at(0, history::Input::What::Halted));
    feed->now += 300;
    feed->tune();
    feed->run(300);
    feed->stop();
    open();
    look(noon - 900, noon);
    const PlotPoint* away = pointAt(0, noon - 450);
    ASSERT_TRUE(away);
    EXPECT_FALSE(away->known());
    EXPECT_EQ(away->cause, static_cast<int>(State::UnitAway));
    EXPECT_THAT(causes(), ElementsAre("unit away"));
    EXPECT_THAT(form.Label_Known.caption.get(), HasSubstr("66."));
    look(noon - 2000, noon);
    EXPECT_THAT(causes(), ElementsAre("not recorded", "unit away"));
}

TEST_F(History, EachPartOfTheTimeShowsHowGoodItWas) {
    const auto feed = record(2400);
    feed->series = [this](std::int64_t t) {
        auto outputs = Feed::rising(t);
        outputs[indexOf("pilot_level")] = t < noon - 1500 ? 9.f : 7.f;
        return outputs;
    };
    feed->run(1200);
    feed->take(Inputs::at(0, history::Input::What::Halted));
    feed->now += 900;
    feed->tune();
    feed->run(300);
    feed->stop();
    open();
    choose({"pilot_level"});
    look(noon - 4800, noon);
    // Parts of 200 seconds: not recorded before the 12th, good from there, low from the 16th, unit
    // away from the 18th to the 22nd.
    EXPECT_NE(form.Part[5].colour.get(), form.Part[13].colour.get());
    EXPECT_NE(form.Part[13].colour.get(), form.Part[16].colour.get());
    EXPECT_NE(form.Part[20].colour.get(), form.Part[5].colour.get());
    EXPECT_EQ(form.Part[16].colour.get(), form.Part[23].colour.get()) << "low again";
    EXPECT_EQ(form.Part[0].colour.get(), form.Part[11].colour.get());
    EXPECT_NE(form.Part[20].colour.get(), form.Part[13].colour.get());
}

TEST_F(History, AMarkStandsInAllPlotsAndItsValuesBeside) {
    recordQuarter();
    open();
    look(noon - 400, noon - 340);
    bench.hand.point(form.Plot_Figure[1], 0, 25.5 / 60);
    bench.settle();
    EXPECT_EQ(form.Plot_Figure[2].mark(0), form.Plot_Figure[1].mark(0));
    EXPECT_EQ(form.Label_Time.caption, "11:53:45");
    EXPECT_THAT(form.Label_Date.caption.get(), HasSubstr("4 May 2026"));
    EXPECT_EQ(form.Label_Value[2].caption, "9.45");
    EXPECT_EQ(form.Label_Band[2].caption, "%") << "one second has one value";
    EXPECT_THAT(form.Plot_Figure[2].tell((noon - 375) * 1000.0), HasSubstr("Pilot level: 9.45 %"));
    bench.hand.point(form.Plot_Figure[0], 1, 35.5 / 60);
    bench.settle();
    EXPECT_EQ(form.Label_Between.caption, "Δ 10 s");
    EXPECT_EQ(form.Label_Step[2].caption, "Δ +0.10 %");
    EXPECT_THAT(form.Plot_Figure[2].reading(), HasSubstr("Pilot level 9.45 %, 11:53:45"));
    look(noon - 200, noon - 100);
    EXPECT_EQ(form.Label_Time.caption, "11:58:19") << "a mark beside the view says nothing";
    look(noon - 400, noon - 340);
    bench.hand.press(form.Plot_Figure[0], PlotKey::NoMarks);
    bench.settle();
    EXPECT_EQ(form.Label_Time.caption, "11:54:19") << "without a mark the latest in view";
}

TEST_F(History, AMinuteAtAMarkSaysFromWhereToWhereItWent) {
    recordQuarter();
    open();
    look(noon - 86400, noon);
    bench.hand.point(form.Plot_Figure[0], 0, (86400 - 300 + 30) / 86400.0);
    bench.settle();
    EXPECT_EQ(form.Label_Band[2].caption, "% (9.00 – 9.59)");
    EXPECT_THAT(form.Label_Date.caption.get(), HasSubstr(" · 1 min"));
}

TEST_F(History, AMarkAtADayHasItsDateAndTheYearBelow) {
    recordQuarter();
    open();
    look(now() / 1000 - 10 * 365 * 86400LL, now() / 1000);
    EXPECT_THAT(form.Label_Time.caption.get(), testing::EndsWith(" May"));
    EXPECT_THAT(form.Label_Date.caption.get(), testing::StartsWith("2026 · "));
}

TEST_F(History, AColumnOfADayHasTheDateOfTheDayThatItMostlyIs) {
    recordQuarter();
    const Zone west("<-03>3");
    open();
    look(noon - 4 * 365 * 86400LL, noon);
    EXPECT_EQ(form.Label_Time.caption, "4 May") << "by UTC, it begins on the 3rd at nine there";
}

TEST_F(History, KeysOfTheWindowLeaveTheKeyboardToThePlots) {
    open();
    for (const display::Key& key : form.Command_Span) EXPECT_TRUE(key.leavesFocus);
    EXPECT_TRUE(form.Command_Now.leavesFocus);
    EXPECT_TRUE(form.Command_Again.leavesFocus);
    EXPECT_FALSE(form.Command_Close.leavesFocus);
}

TEST_F(History, AMarkInAHoleSaysWhy) {
    const auto feed = record(120);
    feed->run(60);
    feed->take(Inputs::at(0, history::Input::What::Halted));
    feed->now += 50;
    feed->tune();
    feed->run(10);
    feed->stop();
    open();
    look(noon - 120, noon);
    bench.hand.point(form.Plot_Figure[0], 0, 0.75);
    bench.settle();
    EXPECT_EQ(form.Label_Value[0].caption, "—");
    EXPECT_EQ(form.Label_Band[0].caption, "unit away");
    EXPECT_THAT(form.Plot_Figure[0].tell((noon - 30) * 1000.0), HasSubstr("unit away"));
}

TEST_F(History, EventsAreFlagsAndTheTipNamesThem) {
    const auto feed = record(600);
    feed->run(300);
    auto correction = Inputs::at(0, history::Input::What::FieldCorrection);
    correction.value[0] = 3;
    feed->take(correction);
    feed->run(300);
    feed->stop();
    open();
    look(noon - 600, noon);
    EXPECT_THAT(form.Plot_Figure[1].flags(),
                Contains(testing::Field(&display::PlotFlag::x, (noon - 300) * 1000.0)));
    const std::string told = form.Plot_Figure[0].tell((noon - 300) * 1000.0);
    EXPECT_THAT(told, HasSubstr("11:55:00 field correction: 3 dB"));
    EXPECT_THAT(told, HasSubstr("4 May 2026 11:55:00\nPeak deviation: "));
}

TEST_F(History, TheSameDayLastWeekIsASecondCurve) {
    {
        Feed feed(folder, noon - 7 * 86400 - 300);
        feed.series = [](std::int64_t t) {
            auto outputs = Feed::rising(t);
            outputs[indexOf("pilot_level")] = 5;
            return outputs;
        };
        feed.tune();
        feed.run(300);
        feed.stop();
    }
    recordQuarter();
    open();
    look(noon - 600, noon);
    EXPECT_FALSE(form.Plot_Figure[2].reference());
    bench.click(form.Command_Again);
    EXPECT_TRUE(form.Command_Again.lit);
    ASSERT_TRUE(form.Plot_Figure[2].reference());
    const auto& before = *form.Plot_Figure[2].reference();
    int fives = 0;
    for (const PlotPoint& point : before.points) {
        if (point.x < (noon - 300) * 1000.0) {
            EXPECT_FALSE(point.known());
        }
        if (!point.known()) continue;
        EXPECT_FLOAT_EQ(point.y, 5) << "at its own time of day";
        ++fives;
    }
    EXPECT_EQ(fives, 300);
    EXPECT_LE(form.Plot_Figure[2].y.get().lowest, 5) << "both curves are in view";
    bench.click(form.Command_Again);
    EXPECT_FALSE(form.Plot_Figure[2].reference());
}

TEST_F(History, LastWeekIsSevenDaysByTheClockOnTheWall) {
    const Zone europe("Europe/Madrid");
    // The Monday after the clock went forward, and the Monday before.
    bench.desktop.date = {2026, 3, 30, 1, 12, 0, 0};
    bench.desktop.fromUtc = std::chrono::hours(2);
    const std::int64_t here = utc(2026, 3, 30, 10);
    Feed feed(folder, utc(2026, 3, 23, 11) - 600);
    feed.tune();
    feed.run(60);
    feed.stop();
    open();
    bench.click(form.Command_Again);
    look(here - 900, here);
    const auto& points = form.Plot_Figure[0].reference()->points;
    const auto first = std::ranges::find_if(points, &PlotPoint::known);
    ASSERT_NE(first, points.end());
    EXPECT_EQ(first->x, (here - 600) * 1000.0) << "11:50 on both days";
}

TEST_F(History, ExportsNumbersAndPictures) {
    const auto feed = record(120);
    feed->run(60);
    feed->take(Inputs::at(0, history::Input::What::Halted));
    feed->now += 60;
    feed->stop();
    open();
    look(noon - 120, noon);
    const std::string csv = exported("/there/a.csv");
    EXPECT_TRUE(csv.starts_with("Time (UTC),Local time,Peak deviation: mean (kHz),"));
    EXPECT_THAT(csv, HasSubstr("Pilot level: state,98.5 MHz 2026-05-04\r\n"));
    EXPECT_THAT(csv, HasSubstr("2026-05-04T11:58:30Z,2026-05-04T11:58:30+00:00,"));
    EXPECT_THAT(csv, HasSubstr("2026-05-04T11:59:30Z,2026-05-04T11:59:30+00:00,,,,0,unit away,"));
    EXPECT_EQ(std::ranges::count(csv, '\n'), 121) << "a head and a row for each second";
    EXPECT_EQ(exported("/there/a.svg"), "svg of Plot_Figure(0)");
    EXPECT_EQ(exported("/there/a.pdf"), "pdf of Plot_Figure(0)");
    EXPECT_EQ(exported("/there/a.png"), "png of Plot_Figure(0)");
    EXPECT_EQ(bench.desktop.saveQuestions[0].stem, "98.5 MHz 2026-05-04 History");
}

TEST_F(History, ADamagedDayIsAHoleAndNoMessage) {
    recordQuarter();
    bench.scratch.write("history/2026-05-04.hm16day", "this is no day of seconds");
    open();
    look(noon - 60, noon);
    EXPECT_THAT(bench.desktop.boxes, IsEmpty());
    for (const PlotPoint& point : series(0).points) EXPECT_FALSE(point.known());
    look(noon - 86400, noon);
    EXPECT_TRUE(pointAt(2, noon - 300)->known()) << "its minutes are in the index";
}

TEST_F(History, ALostIndexLeavesTheSecondsOfTheDays) {
    recordQuarter();
    std::filesystem::remove(folder / "index.sqlite");
    open();
    EXPECT_EQ(form.Combo_Station.list.text(), "98.5 MHz");
    look(noon - 60, noon - 15);
    EXPECT_TRUE(series(0).points.front().known());
    bench.hand.press(form.Plot_Figure[0], PlotKey::First);
    bench.settle();
    EXPECT_EQ(form.Plot_Figure[0].x.get().lowest, (noon - 43200) * 1000.0)
        << "the begin of the first day";
}

class SpanishHistory : public History {
 protected:
    SpanishHistory() : History(RackBench::kSpanish) {}
};

TEST_F(SpanishHistory, SpeaksSpanish) {
    open();
    EXPECT_EQ(form.caption, "HISTORIAL");
    EXPECT_EQ(form.Label_Title.caption, "Historial");
    EXPECT_EQ(form.Plot_Figure[0].title, "Pico de desviación");
    EXPECT_EQ(form.Command_Span[1].caption, "Día");
    EXPECT_THAT(form.Plot_Figure[0].note.get(), HasSubstr("Todavía no se registró nada"));
}

TEST_F(SpanishHistory, NamesCausesInSpanish) {
    const auto feed = record(120);
    feed->run(60);
    feed->take(Inputs::at(0, history::Input::What::Halted));
    feed->now += 60;
    feed->stop();
    open();
    look(noon - 120, noon);
    EXPECT_THAT(causes(), ElementsAre("unidad ocupada"));
    EXPECT_THAT(form.Label_Known.caption.get(), HasSubstr("conocido 50.0 %"));
}

}  // namespace hmonitor::test
