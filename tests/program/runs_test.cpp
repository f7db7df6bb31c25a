// SPDX-License-Identifier: GPL-3.0-or-later
// Runs point by point and by frames, with the same sink.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>
#include <stdexcept>

#include "core/numbers.h"
#include "program/frame_run.h"
#include "program/point_run.h"
#include "tests/program/program_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// Notes the levels at 90, 90.1 ... MHz as they come.
struct NotedLevels final : LevelSink {
    int first() const override { return firstIndex; }
    int last() const override { return lastIndex; }
    float frequency(int index) const override { return 900 + static_cast<float>(index); }
    void roundBegins() override { noted.push_back("begins"); }
    float before(int index, float last) override {
        if (onBefore) onBefore(index);
        return standing.value_or(last);
    }
    void take(int index, float level) override {
        noted.push_back(std::to_string(index) + ": " + shortText(level).str());
    }
    void refused(int index) override { noted.push_back("refused " + std::to_string(index)); }
    void roundEnds() override {
        noted.push_back("ends");
        if (onEnd) onEnd();
    }

    int firstIndex = 0;
    int lastIndex = 2;
    std::optional<float> standing;
    std::function<void(int)> onBefore;
    std::function<void()> onEnd;
    std::vector<std::string> noted;
};

class Runs : public testing::Test {
 protected:
    Runs() {
        bench.tuner.tuneByBar();
        EXPECT_TRUE(lease.take());
        bench.take();
        bench.window.Stop.onClick = [this] { points.stop(); };
    }
    /// Clicks on the stop key while that point is measured.
    void stopAt(float frequency) {
        bench.driver.duringSuper = [this, frequency](float measured) {
            if (measured == frequency) bench.desktop.hand.click(bench.window.Stop);
        };
    }
    ProgramBench bench;
    UnitLease lease{bench.program, bench.window};
    NotedLevels sink;
    PointRun points{bench.program, lease, {&bench.window.Stop}};
    FrameRun frames{bench.program, bench.window.Clock, sink};
};

TEST_F(Runs, PointByPoint_EachLevelGoesToTheSink) {
    bench.driver.superLevels = {50, 51, 52};
    EXPECT_EQ(points.measure(sink), PointRun::End::Done);
    EXPECT_THAT(sink.noted, ElementsAre("0: 50", "1: 51", "2: 52"));
    EXPECT_THAT(bench.take(), ElementsAre("driver HM_Super(900)", "driver HM_Super(901)",
                                          "driver HM_Super(902)"));
}

TEST_F(Runs, PointByPoint_TheRackIsDisabledAsLongAsItGoesOn) {
    bool disabled = false, running = false;
    bench.driver.duringSuper = [&](float) {
        disabled = bench.rackIs(false);
        running = points.running();
    };
    EXPECT_FALSE(points.running());
    points.measure(sink);
    EXPECT_TRUE(disabled);
    EXPECT_TRUE(running);
    EXPECT_TRUE(bench.rackIs(true));
    EXPECT_FALSE(points.running());
}

TEST_F(Runs, PointByPoint_AStopIsHeardBeforeTheNextPoint) {
    stopAt(901);
    EXPECT_EQ(points.measure(sink), PointRun::End::Stopped);
    EXPECT_THAT(sink.noted, ElementsAre("0: 30", "1: 30"));
    // In the last point no point is left to skip: the round was measured whole.
    sink.noted.clear();
    stopAt(902);
    EXPECT_EQ(points.measure(sink), PointRun::End::Done);
    EXPECT_THAT(sink.noted, ElementsAre("0: 30", "1: 30", "2: 30"));
}

TEST_F(Runs, PointByPoint_EachStartForgetsTheLastStop) {
    points.stop();
    EXPECT_EQ(points.measure(sink), PointRun::End::Done);
}

TEST_F(Runs, PointByPoint_AUnitThatFailsEndsIt) {
    bench.driver.superResults = {0, 7};
    EXPECT_EQ(points.measure(sink), PointRun::End::UnitFailed);
    EXPECT_THAT(sink.noted, ElementsAre("0: 30", "refused 1"));
    EXPECT_TRUE(bench.rackIs(true));
    EXPECT_FALSE(bench.desktop.queue().running());
}

TEST_F(Runs, PointByPoint_AReadingThatCannotBeLeavesTheLevelThatStood) {
    const float none = std::numeric_limits<float>::quiet_NaN();
    bench.driver.superLevels = {none, 51, none};
    points.measure(sink, 44);
    EXPECT_THAT(sink.noted, ElementsAre("0: 44", "1: 51", "2: 51"));
    sink.noted.clear();
    sink.standing = 12.f;
    bench.driver.superLevels = {none, 51, none};
    points.measure(sink, 44);
    EXPECT_THAT(sink.noted, ElementsAre("0: 12", "1: 51", "2: 12"));
}

TEST_F(Runs, PointByPoint_OnAndOnUntilItIsStopped) {
    int rounds = 0;
    sink.onEnd = [&] { ++rounds; };
    bench.driver.duringSuper = [&](float measured) {
        if (rounds == 2 && measured == 901) bench.desktop.hand.click(bench.window.Stop);
    };
    EXPECT_EQ(points.measureOnAndOn(sink), PointRun::End::Stopped);
    EXPECT_EQ(rounds, 2);
    // The round in which the stop came has begun, but does not end.
    EXPECT_EQ(std::ranges::count(sink.noted, "begins"), 3);
    EXPECT_EQ(sink.noted.back(), "1: 30");
}

TEST_F(Runs, PointByPoint_OnAndOn_AStopInTheLastPointEndsNoRound) {
    stopAt(902);
    EXPECT_EQ(points.measureOnAndOn(sink), PointRun::End::Stopped);
    EXPECT_THAT(sink.noted, ElementsAre("begins", "0: 30", "1: 30", "2: 30"));
}

TEST_F(Runs, PointByPoint_OnAndOn_AUnitThatFailsEndsIt) {
    bench.driver.superResults = {0, 0, 0, 1};
    EXPECT_EQ(points.measureOnAndOn(sink), PointRun::End::UnitFailed);
    EXPECT_THAT(sink.noted,
                ElementsAre("begins", "0: 30", "1: 30", "2: 30", "ends", "begins", "refused 0"));
}

TEST_F(Runs, ByFrames_TheUnitIsAskedOnceAndEachFrameGoesToTheSink) {
    bench.window.Clock.onTick = [this] { frames.look(); };
    bench.driver.spectrum = {{900.f, 40.f}, {902.f, 42.f}};
    bench.driver.frames = {0, 1, 0, 1};
    EXPECT_FALSE(frames.running());
    frames.start(900, 902, 25);
    EXPECT_TRUE(frames.running());
    bench.advance(50ms);
    EXPECT_THAT(sink.noted, IsEmpty());
    bench.advance(150ms);
    EXPECT_THAT(sink.noted, ElementsAre("begins", "0: 40", "1: 12", "2: 42", "ends", "begins",
                                        "0: 40", "1: 12", "2: 42", "ends"));
    EXPECT_THAT(bench.take(), ElementsAre("driver HM_StartEspectro(900, 902, 25)"));
    frames.stop();
    bench.driver.frames = {1};
    sink.noted.clear();
    bench.advance(100ms);
    EXPECT_THAT(sink.noted, IsEmpty());
}

TEST_F(Runs, ByFrames_AHaltedUnitIsAskedForTheSameFrameAgain) {
    frames.start(900, 902, 25);
    frames.look();
    bench.take();
    frames.halt();
    EXPECT_THAT(bench.take(), ElementsAre("driver HM_Parar"));
    frames.look();
    frames.look();
    EXPECT_THAT(bench.take(), ElementsAre("driver HM_StartEspectro(900, 902, 25)"));
    // The sweep is not started again if the frame had come before the halt.
    frames.halt();
    bench.driver.frames = {1};
    frames.look();
    EXPECT_THAT(bench.take(), ElementsAre("driver HM_Parar"));
}

TEST_F(Runs, ByFrames_NoFrameIsWorkedOnInsideAnother) {
    frames.start(900, 902, 25);
    bench.driver.frames = {1, 1, 1};
    bool inWork = false;
    sink.onBefore = [&](int) {
        inWork = frames.inWork();
        frames.look();
    };
    frames.look();
    EXPECT_TRUE(inWork);
    EXPECT_FALSE(frames.inWork());
    EXPECT_THAT(sink.noted, ElementsAre("begins", "0: 12", "1: 12", "2: 12", "ends"));
}

TEST_F(Runs, ByFrames_WorkThatEndsInAnErrorDoesNotBlockTheNext) {
    frames.start(900, 902, 25);
    bench.driver.frames = {1, 1};
    sink.onEnd = [] { throw std::runtime_error("a fault"); };
    EXPECT_THROW(frames.look(), std::runtime_error);
    EXPECT_FALSE(frames.inWork());
    sink.onEnd = nullptr;
    frames.look();
    EXPECT_EQ(sink.noted.back(), "ends");
}

TEST_F(Runs, BothKinds_AnEmptyRoundMeasuresNothing) {
    sink.lastIndex = -1;
    EXPECT_EQ(points.measure(sink), PointRun::End::Done);
    readSwept(bench.program.driver, sink);
    EXPECT_THAT(sink.noted, IsEmpty());
    EXPECT_THAT(bench.take(), IsEmpty());
}

}  // namespace
}  // namespace hmonitor::test
