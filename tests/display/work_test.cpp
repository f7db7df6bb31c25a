// SPDX-License-Identifier: GPL-3.0-or-later
// Work beside the program on the headless desktop: always in the same order, with results at the
// time that a script sets.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class Work : public testing::Test {
 protected:
    Work() {
        form.show();
        desktop.queue().openGate();
        desktop.journal.clear();
    }
    /// Asks for work that notes when it runs and when its result is taken.
    void ask(const std::string& name) {
        desktop.work(
            [this, name] {
                desktop.note("works " + name);
                return name;
            },
            [this](const std::string& result) { desktop.note("done " + result); });
    }
    HeadlessDesktop desktop;
    SampleForm form{desktop};
};

TEST_F(Work, ComesBackThroughTheQueueAndNotInsideTheCall) {
    ask("a");
    EXPECT_THAT(desktop.journal, ElementsAre("works a"));
    desktop.settle();
    EXPECT_THAT(desktop.journal, ElementsAre("works a", "done a"));
}

TEST_F(Work, TakesTheTimeThatTheScriptTells) {
    desktop.workTakes = 300ms;
    ask("slow");
    desktop.workTakes = 100ms;
    ask("quick");
    ask("quick too");
    desktop.advance(99ms);
    EXPECT_THAT(desktop.journal, ElementsAre("works slow", "works quick", "works quick too"));
    desktop.advance(1ms);
    EXPECT_THAT(std::vector(desktop.journal.begin() + 3, desktop.journal.end()),
                ElementsAre("done quick", "done quick too"));
    desktop.advance(199ms);
    EXPECT_EQ(desktop.journal.back(), "done quick too");
    desktop.advance(1ms);
    EXPECT_EQ(desktop.journal.back(), "done slow");
    EXPECT_EQ(desktop.now(), 300ms);
}

TEST_F(Work, ComesBackBeforeATimerThatIsDueThen) {
    desktop.workTakes = 50ms;
    form.Timer1.onTick = [this] { desktop.note("tick"); };
    form.Timer1.interval = std::chrono::milliseconds(50);
    form.Timer1.enabled = true;
    ask("a");
    desktop.advance(50ms);
    EXPECT_THAT(desktop.journal, ElementsAre("works a", "done a", "tick"));
}

TEST_F(Work, ComesBackWhileAModalFormStands) {
    SampleForm other(desktop, "Other");
    desktop.work([] { return 0; },
                 [&](int) {
                     desktop.note("done");
                     other.unload();
                 });
    desktop.modalScripts["Other"] = [this](Form& shown) {
        desktop.hand.click(static_cast<SampleForm&>(shown).Key1);
    };
    // Nothing but the end of the work closes the window.
    other.showModal();
    EXPECT_TRUE(other.didHear("Key1 click"));
    EXPECT_THAT(desktop.journal, testing::Contains("done"));
}

TEST_F(Work, ComesBackInsideALongRunWhenItLetsEventsThrough) {
    desktop.queue().pushFilter({});
    ask("a");
    desktop.letEventsThrough();
    EXPECT_EQ(desktop.journal.back(), "done a");
    desktop.queue().popFilter();
}

TEST_F(Work, MayAskForMoreWork) {
    desktop.work([] { return 1; },
                 [this](int one) {
                     desktop.work([one] { return one + 1; },
                                  [this](int two) { desktop.note(std::to_string(two)); });
                 });
    desktop.settle();
    EXPECT_EQ(desktop.journal.back(), "2");
}

TEST_F(Work, ThatThrowsThrowsWhereItsResultWouldHaveCome) {
    bool taken = false;
    desktop.work([]() -> int { throw std::runtime_error("no such day"); },
                 [&taken](int) { taken = true; });
    EXPECT_THROW(desktop.settle(), std::runtime_error);
    EXPECT_FALSE(taken);
    desktop.settle();
}

TEST_F(Work, OfAProgramThatHasEndedIsDoneButNobodyTakesIt) {
    desktop.workTakes = 10ms;
    ask("a");
    EXPECT_THROW(desktop.end(), ProgramEnded);
    desktop.advance(1s);
    EXPECT_THAT(desktop.journal, ElementsAre("works a", "end"));
}

TEST_F(Work, OfABoxComesWhileItStandsOnceItIsOnTop) {
    // A box takes results before the rack measures, too: it may wait for one.
    HeadlessDesktop early;
    std::string came;
    early.work([] { return std::string("read"); }, [&came](std::string what) { came = what; });
    early.boxAnswers = {"OK"};
    early.duringBox = [&early] { early.queue().runBoxPass(); };
    early.messageBox({"HMonitor", "Reading", BoxIcon::None});
    EXPECT_EQ(came, "read");
}

TEST(WallClock, GoesOnInUtcWithTheVirtualClockAndTellsItsZone) {
    HeadlessDesktop desktop;
    desktop.date = {2026, 3, 29, 0, 1, 30, 0};
    desktop.fromUtc = 1h;
    desktop.zone = "Europe/Madrid";
    using namespace std::chrono;
    const auto begun = sys_days{2026y / March / 29} + 30min;
    EXPECT_EQ(desktop.wallTime().utc, begun);
    desktop.advance(1500ms);
    EXPECT_EQ(desktop.wallTime().utc, begun + 1500ms);
    EXPECT_EQ(desktop.wallTime().fromUtc, 3600s);
    EXPECT_EQ(desktop.wallTime().zone, "Europe/Madrid");
    // The local date is scripted and stands still.
    EXPECT_EQ(desktop.today().second, 0);
}

TEST(FileToOpen, IsTheScriptsAnswer) {
    HeadlessDesktop desktop;
    const OpenQuestion question{"Open a day", {{"Day", "hm16day"}}};
    EXPECT_THROW((void)desktop.askWhatToOpen(question), Unscripted);
    desktop.openAnswers = {"/days/a.hm16day", ""};
    EXPECT_EQ(desktop.askWhatToOpen(question), "/days/a.hm16day");
    EXPECT_EQ(desktop.askWhatToOpen(question), std::nullopt);
    EXPECT_EQ(desktop.openQuestions.size(), 2u);
    EXPECT_THAT(desktop.journal, ElementsAre("open Open a day", "open Open a day"));
}

}  // namespace
}  // namespace display::test
