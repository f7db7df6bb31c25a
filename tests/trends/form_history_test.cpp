// SPDX-License-Identifier: GPL-3.0-or-later
// The window HISTORY: the user's acts, and what is read for them.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

#include "analyses/form_d.h"
#include "tests/trends/history_window.h"

namespace hmonitor::test {

TEST_F(History, OpensByItsKeyAndByF3AndTakesNothing) {
    bench.start();
    bench.takeCalls();
    bench.click(bench.formD.KeyHistory);
    EXPECT_TRUE(form.visible);
    bench.advance(std::chrono::seconds(3));
    for (const auto* panel : bench.program.rack) EXPECT_TRUE(panel->enabled);
    EXPECT_THAT(
        bench.takeCalls(),
        Not(Contains(testing::AnyOf(HasSubstr("Parar"), HasSubstr("Normal"), HasSubstr("Init")))));
    bench.click(form.Command_Close);
    EXPECT_FALSE(form.visible);
    bench.hand.shortcut(bench.formD, "F3");
    bench.settle();
    EXPECT_TRUE(form.visible);
    bench.hand.escape(form);
    bench.settle();
    EXPECT_FALSE(form.visible);
}

TEST_F(History, WithNothingRecordedSaysSoCalmly) {
    open();
    EXPECT_THAT(form.Plot_Figure[0].note.get(), HasSubstr("Nothing has been recorded yet"));
    EXPECT_THAT(bench.desktop.boxes, IsEmpty());
    EXPECT_FALSE(form.Combo_Station.visible);
    EXPECT_THAT(causes(), IsEmpty());
    EXPECT_EQ(form.Label_Known.caption, "");
    EXPECT_FALSE(std::filesystem::exists(folder)) << "looking makes no folder";
    EXPECT_THAT(exported("/there/a.csv"), testing::EndsWith(": state,2026-05-03\r\n"))
        << "of no station";
}

TEST_F(History, ShowsLowestMeanAndHighestOfEachColumn) {
    recordQuarter();
    open();
    ASSERT_EQ(form.Plot_Figure[2].title, "Pilot level");
    EXPECT_EQ(form.Plot_Figure[2].unit, "%");
    const PlotPoint* minute = pointAt(2, noon - 300);
    ASSERT_TRUE(minute);
    EXPECT_FLOAT_EQ(minute->lowest, 9.f);
    EXPECT_FLOAT_EQ(minute->highest, 9.59f);
    EXPECT_NEAR(minute->y, 9.295, 1e-3);
    EXPECT_EQ(minute->cause, 0);
    EXPECT_EQ(series(2).each, 60'000);
    EXPECT_LE(form.Plot_Figure[2].y.get().lowest, 8) << "the bounds of what is good are near";
    EXPECT_EQ(form.Plot_Figure[2].limits().size(), 2u);
}

TEST_F(History, ZoomingReadsFinerColumnsForAllPlots) {
    recordQuarter();
    open();
    look(noon - 400, noon - 340);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(form.Plot_Figure[i].x.get().lowest, (noon - 400) * 1000.0) << i;
        EXPECT_EQ(series(i).each, 1000) << i;
    }
    EXPECT_FLOAT_EQ(pointAt(2, noon - 375)->y, 9.45f);
    bench.hand.zoom(form.Plot_Figure[1], 2, 0.5);
    bench.settle();
    EXPECT_EQ(form.Plot_Figure[0].x.get().span(), 30'000);
    bench.hand.zoom(form.Plot_Figure[1], 1e6, 0.5);
    bench.settle();
    EXPECT_EQ(form.Plot_Figure[2].x.get().span(), 10'000) << "ten seconds";
    bench.hand.zoom(form.Plot_Figure[1], 1e-12, 0.5);
    bench.settle();
    EXPECT_EQ(form.Plot_Figure[2].x.get().span(), static_cast<double>(kLongestView));
    EXPECT_EQ(series(0).each, 2.0 * static_cast<double>(kDayMs));
}

TEST_F(History, KeysShowHourDayWeekMonthAndYear) {
    recordQuarter();
    open();
    EXPECT_TRUE(form.Command_Span[1].lit) << "a day first";
    const std::int64_t spans[] = {3600, 86400, 7 * 86400, 30 * 86400, 365 * 86400};
    for (std::size_t i = 0; i < 5; ++i) {
        bench.click(form.Command_Span[i]);
        EXPECT_EQ(form.Plot_Figure[0].x.get().span(), static_cast<double>(spans[i]) * 1000);
        EXPECT_EQ(form.Plot_Figure[0].x.get().highest, static_cast<double>(now()));
        EXPECT_TRUE(form.Command_Span[i].lit);
        EXPECT_FALSE(form.Command_Span[(i + 1) % 5].lit);
    }
}

TEST_F(History, TheArrowsMoveByWhatTheManualSays) {
    open();
    Plot& plot = form.Plot_Figure[0];
    const double before = plot.x.get().lowest;
    plot.press(PlotKey::Left);
    EXPECT_NEAR(before - plot.x.get().lowest, plot.x.get().span() / 8, 1);
    for (const auto& [page, share] : {std::pair("en", "| an eighth of the view earlier"),
                                      std::pair("es", "| un octavo de la vista antes")}) {
        std::ifstream file(HMONITOR_SOURCE_DIR "/manual/" + std::string(page) + "/history.md");
        EXPECT_THAT(std::string((std::istreambuf_iterator<char>(file)), {}), HasSubstr(share));
    }
}

TEST_F(History, FollowsNowUntilTheHandMovesAwayAndAgainAfterItsKey) {
    recordQuarter();
    open();
    bench.click(form.Command_Span[0]);
    EXPECT_TRUE(form.Command_Now.lit);
    bench.advance(std::chrono::seconds(40));
    EXPECT_NEAR(form.Plot_Figure[0].x.get().highest, static_cast<double>(now()), 1000);
    bench.hand.press(form.Plot_Figure[0], PlotKey::Left);
    bench.settle();
    const double left = form.Plot_Figure[0].x.get().highest;
    bench.advance(std::chrono::seconds(40));
    EXPECT_EQ(form.Plot_Figure[0].x.get().highest, left);
    EXPECT_FALSE(form.Command_Now.lit);
    bench.click(form.Command_Now);
    EXPECT_EQ(form.Plot_Figure[0].x.get().highest, static_cast<double>(now()));
    bench.hand.press(form.Plot_Figure[0], PlotKey::Left);
    bench.hand.press(form.Plot_Figure[0], PlotKey::Last);
    bench.settle();
    EXPECT_TRUE(form.Command_Now.lit) << "End does the same";
}

TEST_F(History, WhatIsRecordedMeanwhileComesIn) {
    const auto feed = record(600);
    feed->run(600);
    open();
    bench.click(form.Command_Span[0]);
    EXPECT_FALSE(pointAt(2, noon + 30));
    feed->run(60);
    bench.advance(std::chrono::seconds(62));
    ASSERT_TRUE(pointAt(2, noon + 30));
    EXPECT_TRUE(pointAt(2, noon + 30)->known());
}

TEST_F(History, OpenedAgainItComesToTheFront) {
    open();
    const auto shown = std::ranges::count(bench.desktop.journal, "show Form_History");
    look(noon - 400, noon - 340);
    form.open();
    EXPECT_EQ(std::ranges::count(bench.desktop.journal, "show Form_History"), shown + 1);
    EXPECT_EQ(form.Plot_Figure[0].x.get().span(), 60'000) << "and shows what it showed";
}

TEST_F(History, AtMostFourFiguresAreShown) {
    recordQuarter();
    open();
    bench.check(form.Check_Figure[indexOf("multipath")], true);
    EXPECT_TRUE(form.Well[3].visible);
    EXPECT_EQ(form.Plot_Figure[3].title, "Multipath");
    EXPECT_FALSE(form.Check_Figure[indexOf("rds_level")].usable());
    EXPECT_TRUE(form.Check_Figure[indexOf("field")].usable()) << "to be taken out";
    bench.check(form.Check_Figure[indexOf("field")], false);
    EXPECT_TRUE(form.Check_Figure[indexOf("rds_level")].usable());
    EXPECT_FALSE(form.Well[3].visible);
    EXPECT_EQ(form.Plot_Figure[1].title, "Pilot level");
    choose({});
    EXPECT_THAT(form.Plot_Figure[0].note.get(), HasSubstr("Choose a figure"));
}

TEST_F(History, PlotsShareTheirRoomWhateverTheirNumber) {
    open();
    for (std::initializer_list<const char*> keys :
         {std::initializer_list<const char*>{"field"},
          {"field", "multipath"},
          {"field", "multipath", "rds_level"},
          {"field", "multipath", "rds_level", "distortion"}}) {
        choose(keys);
        float foot = 0;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            EXPECT_GE(form.Well[i].top, foot) << i;
            foot = form.Well[i].top + form.Well[i].height;
        }
        EXPECT_NEAR(foot, 6370, 2) << keys.size();
    }
}

TEST_F(History, ASetIsKeptForTheNextTime) {
    recordQuarter();
    open();
    choose({"multipath"});
    bench.click(form.Command_Keep);
    EXPECT_TRUE(form.Command_Keep.lit);
    bench.click(form.Command_Set[2]);
    EXPECT_FALSE(form.Command_Keep.lit);
    bench.click(form.Command_Set[0]);
    EXPECT_TRUE(form.Check_Figure[indexOf("deviation_peak")].checked);
    EXPECT_TRUE(form.Command_Set[0].lit);
    bench.click(form.Command_Set[2]);
    EXPECT_EQ(form.Plot_Figure[0].title, "Multipath");
    bench.click(form.Command_Close);
    form.unload();
    open();
    EXPECT_EQ(form.Plot_Figure[0].title, "Multipath");
    EXPECT_THAT(bench.read("history.set"), HasSubstr("shown multipath\r\n"));
}

TEST_F(History, WithoutAChangeNoFileIsWritten) {
    open();
    bench.click(form.Command_Close);
    EXPECT_FALSE(bench.exists("history.set"));
    choose({"multipath"});
    form.unload();
    EXPECT_FALSE(bench.exists("history.set"));
}

TEST_F(History, StandsWhereItWasPut) {
    open();
    form.left = 1234.f;
    form.top = 2345.f;
    bench.click(form.Command_Close);
    EXPECT_THAT(bench.read("history.set"), HasSubstr("place 1234 2345\r\n"));
    RackBench next;
    next.write("history.set", bench.read("history.set"));
    Form_History& again = next.forms.formHistory;
    again.show();
    EXPECT_EQ(again.left, 1234);
    EXPECT_EQ(again.top, 2345);
}

TEST_F(History, APlaceThatIsNotOnTheScreenIsMovedOntoIt) {
    bench.write("history.set", "shown field\r\nplace 99999 -500\r\n");
    open();
    EXPECT_EQ(form.left, bench.desktop.screen.right() - form.width);
    EXPECT_EQ(form.top, bench.desktop.screen.top);
    EXPECT_EQ(form.Plot_Figure[0].title, "Field intensity");
    bench.write("history.set", "place");
    form.unload();
    open();
    EXPECT_TRUE(form.visible);
}

TEST_F(History, StaysUsableWhileARunHoldsTheThread) {
    recordQuarter();
    bench.start();
    open();
    bench.click(form.Command_Span[0]);
    bench.program.disableRack();
    bench.desktop.queue().pushFilter({{}, {}});
    bench.hand.press(form.Plot_Figure[0], PlotKey::In);
    bench.hand.click(form.Command_Export);
    for (int i = 0; i < 3; ++i) bench.desktop.letEventsThrough();
    EXPECT_TRUE(form.visible);
    EXPECT_EQ(form.Plot_Figure[0].x.get().span(), 1'800'000);
    EXPECT_THAT(bench.desktop.saveQuestions, IsEmpty()) << "a dialog would hold the run";
    bench.hand.click(form.Command_Close);
    bench.desktop.letEventsThrough();
    EXPECT_FALSE(form.visible);
    bench.desktop.queue().popFilter();
    for (const auto* panel : bench.program.rack) EXPECT_FALSE(panel->enabled) << "nor enables it";
}

TEST_F(History, IsReadBesideTheProgram) {
    recordQuarter();
    bench.start();
    bench.desktop.workTakes = std::chrono::seconds(2);
    form.show();
    bench.settle();
    EXPECT_THAT(form.Plot_Figure[0].note.get(), HasSubstr("Reading"));
    EXPECT_THAT(series(0).points, IsEmpty());
    bench.advance(std::chrono::milliseconds(1500));
    bench.click(form.Command_Span[0]);
    bench.advance(std::chrono::milliseconds(600));
    EXPECT_EQ(form.Plot_Figure[0].note, "");
    EXPECT_EQ(series(0).each, 60'000) << "the day, which was asked for first";
    bench.advance(std::chrono::milliseconds(2100));
    EXPECT_EQ(series(0).each, 2000) << "then the hour";
}

TEST_F(History, WhatWasReadForAClosedWindowIsPutAway) {
    recordQuarter();
    bench.desktop.workTakes = std::chrono::seconds(2);
    form.show();
    form.unload();
    bench.advance(std::chrono::seconds(3));
    EXPECT_FALSE(form.loaded());
    open();
    bench.advance(std::chrono::seconds(3));
    EXPECT_FALSE(series(0).points.empty());
}

TEST_F(History, HomeGoesToTheFirstThatWasRecorded) {
    recordQuarter();
    open();
    bench.click(form.Command_Span[0]);
    bench.hand.press(form.Plot_Figure[0], PlotKey::First);
    bench.settle();
    const double lowest = form.Plot_Figure[0].x.get().lowest;
    EXPECT_LE(lowest, (noon - 900) * 1000.0);
    EXPECT_GE(lowest, (noon - 3600) * 1000.0 - 3'600'000);
}

TEST_F(History, ShowsTheTunedStationAndOthersByChoice) {
    {
        Feed feed(folder, noon - 1200);
        feed.tune(98100);
        feed.run(200);
        feed.tune(98500);
        feed.run(200);
        feed.stop();
    }
    bench.start();
    open();
    EXPECT_THAT(form.Combo_Station.list.rows(), ElementsAre("98.1 MHz", "98.5 MHz"));
    EXPECT_EQ(form.Combo_Station.list.text(), "98.1 MHz") << "the tuned one";
    look(noon - 1200, noon - 800);
    EXPECT_TRUE(pointAt(0, noon - 1100)->known());
    EXPECT_FALSE(pointAt(0, noon - 850)->known());
    bench.hand.select(form.Combo_Station, 1);
    bench.settle();
    EXPECT_FALSE(pointAt(0, noon - 1100)->known());
    EXPECT_TRUE(pointAt(0, noon - 850)->known());
}

}  // namespace hmonitor::test
