// SPDX-License-Identifier: GPL-3.0-or-later
// A user who closes, stops and starts the analyses in every order, also in the middle of runs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::EndsWith;
using testing::StartsWith;

class Analyses {
 public:
    explicit Analyses(float version) {
        bench.readings.field = 70;
        bench.driver.superLevel = 55;
        bench.start();
        // Set only now: at the start, version 0 would bring up the demo offer.
        bench.driver.hardwareVersion = version;
        bench.driver.duringSuper = [this](float) { measuring(); };
    }

    RackBench bench;
    Form_D1& shows = bench.forms.formD1;
    Form_NewSpectro& asks = bench.forms.formNewSpectro;
    FormD1a& width = bench.forms.formD1a;
    Form_BandSCanner& scanner = bench.forms.formBandSCanner;
    Form_Dd3& response = bench.forms.formDd3;
    const std::vector<display::Form*> windows{&shows, &asks, &width, &scanner, &response};
    /// Called while a level is measured.
    std::function<void()> meanwhile;

    bool anyOpen() const {
        return std::ranges::any_of(windows, [](auto* window) { return window->visible.get(); });
    }
    bool rackIs(bool enabled) const {
        return std::ranges::all_of(
            bench.program.rack, [enabled](auto* panel) { return panel->enabled.get() == enabled; });
    }
    bool closeAll() {
        constexpr int kPatience = 6;
        for (int i = 0; i < kPatience && anyOpen(); ++i) {
            if (width.visible && width.Command3D1.caption == "Stop")
                bench.hand.click(width.Command3D1);
            if (scanner.visible && scanner.Command3D1.caption == "Stop")
                bench.hand.click(scanner.Command3D1);
            for (display::Form* window : windows) bench.hand.close(*window);
            bench.desktop.settle();
        }
        return !anyOpen();
    }

    /// What must hold whenever no run is going on.
    void expectInOrder() {
        EXPECT_TRUE(bench.desktop.boxes.empty());
        EXPECT_FALSE(bench.desktop.ended());
        // The rack is enabled or disabled as a whole, and disabled while an analysis has the unit.
        EXPECT_TRUE(rackIs(true) || rackIs(false));
        const bool away = width.visible || scanner.visible || response.visible;
        EXPECT_TRUE(!away || rackIs(false));
        if (!anyOpen()) expectMeasuring();
    }
    void expectMeasuring() {
        EXPECT_TRUE(rackIs(true));
        EXPECT_TRUE(bench.formB.Timer2.enabled);
        ASSERT_FALSE(bench.driver.calls.empty());
        EXPECT_THAT(bench.driver.calls.back(), StartsWith("HM_Normal("));
        EXPECT_FALSE(bench.desktop.queue().running());
    }
    /// The file of a run is whole, or does not exist.
    void expectFilesWhole() const {
        for (const auto& entry : std::filesystem::directory_iterator(bench.scratch.path())) {
            const std::string name = entry.path().filename().string();
            const std::string bytes = bench.read(name);
            if (name.ends_with(".spc")) {
                EXPECT_THAT(bytes, EndsWith("\r\n\r\n")) << name;
                EXPECT_EQ(std::ranges::count(bytes, '\n'), std::stoi(bytes) + 4) << name;
            } else if (name == "scan.dat" && !bytes.empty()) {
                EXPECT_GE(std::ranges::count(bytes, '\n'), 82);
                EXPECT_THAT(bytes, EndsWith("\r\n"));
            }
        }
    }

 private:
    void measuring() {
        // The unit does one thing at a time: no level within the measuring of another, none during
        // a sweep.
        ASSERT_FALSE(inLevel_);
        EXPECT_FALSE(bench.driver.hardwareVersion >= 1.7f && bench.driver.hardwareVersion < 2 &&
                     (scanner.Timer1.enabled || width.Timer1.enabled));
        EXPECT_FALSE(scanner.Timer1.enabled && width.Timer1.enabled);
        inLevel_ = true;
        if (meanwhile) meanwhile();
        inLevel_ = false;
    }
    bool inLevel_ = false;
};

class ClosingInEveryOrder : public testing::TestWithParam<float> {
 protected:
    /// Starts a run, closes the windows in each order in the middle of it, and again after it.
    void closeAround(std::vector<display::Form*> order, const std::function<void()>& run) {
        std::ranges::sort(order);
        do {
            my.bench.takeCalls();
            int levels = 0;
            const auto closeInOrder = [&] {
                for (display::Form* window : order) my.bench.hand.close(*window);
            };
            my.meanwhile = [&] {
                if (++levels == 3) closeInOrder();
            };
            run();
            closeInOrder();
            my.bench.desktop.settle();
            my.expectInOrder();
            ASSERT_TRUE(my.closeAll());
            my.expectMeasuring();
        } while (std::ranges::next_permutation(order).found);
        my.expectFilesWhole();
    }

    void click(display::Key& key) {
        my.bench.hand.click(key);
        my.bench.desktop.settle();
    }
    void open(display::Picture& door) {
        my.bench.hand.click(door);
        my.bench.desktop.settle();
    }

    Analyses my{GetParam()};
};

TEST_P(ClosingInEveryOrder, AroundAChannelSpectrum) {
    closeAround({&my.shows, &my.asks, &my.width}, [this] {
        my.bench.hand.doubleClick(my.bench.formD.PictureGraph1);
        my.bench.desktop.settle();
        click(my.shows.Command3D1);
        click(my.asks.Command3D1);
        EXPECT_FALSE(my.asks.loaded());
    });
}

TEST_P(ClosingInEveryOrder, AroundABandwidthRun) {
    closeAround({&my.shows, &my.asks, &my.width}, [this] {
        my.bench.hand.doubleClick(my.bench.formD.PictureGraph1);
        my.bench.desktop.settle();
        click(my.shows.SSCommand2);
        click(my.width.Command3D1);
        my.bench.driver.frames = {1, 0, 1};
        my.bench.advance(450ms);
        // On a unit of points the window was closed by the close in the middle of the run.
    });
}

TEST_P(ClosingInEveryOrder, AroundABandScan) {
    closeAround({&my.scanner, &my.shows, &my.response}, [this] {
        open(my.bench.formD.Image2);
        click(my.scanner.Command3D1);
        my.bench.driver.frames = {1, 0, 1};
        my.bench.advance(900ms);
        EXPECT_TRUE(my.scanner.visible);
    });
}

TEST_P(ClosingInEveryOrder, AroundAChoiceOfChannels) {
    closeAround({&my.scanner, &my.shows, &my.response}, [this] {
        open(my.bench.formD.Image2);
        my.bench.hand.choose(my.scanner.Option_Pares);
        my.bench.desktop.settle();
    });
}

INSTANTIATE_TEST_SUITE_P(UnitsOfPointsAndOfFrames, ClosingInEveryOrder, testing::Values(1.5f, 1.8f),
                         [](const auto& unit) { return unit.param < 1.7f ? "Points" : "Frames"; });

/// A seeded walk over everything that a user can do with the analyses.
class Walk {
 public:
    Walk(float version, unsigned seed) : my_(version), generator_(seed) {
        my_.meanwhile = [this] {
            if (chance(12)) act();
            // A slow unit: timers come due during the call.
            my_.bench.desktop.elapse(10ms);
            my_.bench.driver.superResults.push_back(chance(100) ? 1 : 0);
        };
    }

    void go(int steps) {
        for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
            act();
            my_.bench.driver.frames.push_back(chance(2) ? 1 : 0);
            my_.bench.advance(std::chrono::milliseconds(chance(3) ? 300 : 0));
            my_.expectInOrder();
        }
        ASSERT_TRUE(my_.closeAll());
        my_.expectMeasuring();
        my_.expectFilesWhole();
    }

 private:
    bool chance(unsigned oneIn) { return generator_() % oneIn == 0; }
    int below(unsigned end) { return static_cast<int>(generator_() % end); }

    void act() {
        display::Hand& hand = my_.bench.hand;
        const std::vector<std::function<void()>> acts{
            [&] { hand.click(my_.bench.formD.Image1); },
            [&] { hand.click(my_.bench.formD.Image2); },
            [&] { hand.click(my_.bench.formD.Image3); },
            [&] { hand.click(my_.bench.formD.Image5); },
            [&] { hand.doubleClick(my_.bench.formD.PictureGraph1); },
            [&] { hand.click(my_.bench.formB.SSCommand1); },
            [&] { hand.set(my_.bench.formB.HScroll1, below(206)); },
            [&] { hand.click(my_.shows.Command3D1); },
            [&] { hand.click(my_.shows.Command3D2); },
            [&] { hand.click(my_.shows.SSCommand2); },
            [&] { hand.select(my_.asks.Combo1, below(7)); },
            [&] { hand.edit(my_.asks.Text_Step, chance(3) ? "" : "40"); },
            [&] { hand.click(my_.asks.Command3D1); },
            [&] { hand.click(my_.asks.Command3D2); },
            [&] { hand.click(my_.width.Command3D1); },
            [&] { hand.click(my_.width.Command3D2); },
            [&] { hand.click(my_.width.Command1); },
            [&] { hand.choose(my_.scanner.Option_All); },
            [&] { hand.choose(my_.scanner.Option_Pares); },
            [&] { hand.choose(my_.scanner.Option_Impares); },
            [&] { hand.choose(my_.scanner.Option_250Khz); },
            [&] { hand.click(my_.scanner.Command3D1); },
            [&] { hand.click(my_.scanner.CommandClose); },
            [&] { hand.set(my_.scanner.HScroll1, below(12)); },
            [&] { hand.click(my_.response.Command3D2); },
            [&] { hand.close(*my_.windows[static_cast<std::size_t>(below(5))]); },
            [&] { hand.escape(*my_.windows[static_cast<std::size_t>(below(5))]); },
            [&] { hand.enter(*my_.windows[static_cast<std::size_t>(below(5))]); },
        };
        acts[static_cast<std::size_t>(below(static_cast<unsigned>(acts.size())))]();
    }

    Analyses my_;
    std::mt19937 generator_;
};

TEST(AnalysesWalk, LeavesTheRackMeasuringWhateverIsPressed) {
    for (const float version : {1.5f, 1.7f, 1.8f, 1.99f, 2.0f, 0.f}) {
        for (unsigned seed = 1; seed <= 2; ++seed) {
            SCOPED_TRACE(testing::Message() << "version " << version << ", seed " << seed);
            Walk(version, seed).go(150);
            if (testing::Test::HasFailure()) return;
        }
    }
}

}  // namespace
}  // namespace hmonitor::test
