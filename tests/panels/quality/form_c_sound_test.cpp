// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the loudspeakers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/panels/quality/quality_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class SoundKeys : public Quality {
 protected:
    void play(int volume, bool muted = false) {
        bench.driver.loudspeakers = Sound{true, volume, muted};
        bench.advance(200ms);
        bench.takeCalls();
    }
};

TEST_F(SoundKeys, AreThereOnlyWhileTheLibraryPlaysTheStation) {
    const auto shown = [&] {
        return bench.formC.SoundDown.visible && bench.formC.SoundUp.visible &&
               bench.formC.SoundMute.visible && bench.formC.SoundVolume.visible;
    };
    const auto hidden = [&] {
        return !bench.formC.SoundDown.visible && !bench.formC.SoundUp.visible &&
               !bench.formC.SoundMute.visible && !bench.formC.SoundWell.visible;
    };
    EXPECT_TRUE(hidden());
    bench.driver.loudspeakers = Sound{false, 50, false};
    bench.advance(200ms);
    EXPECT_TRUE(hidden());
    play(50);
    EXPECT_TRUE(shown());
    EXPECT_EQ(bench.formC.SoundVolume.caption, "50");
    bench.driver.loudspeakers.reset();
    bench.advance(200ms);
    EXPECT_TRUE(hidden());
}

TEST_F(SoundKeys, StepTheVolumeByFiveAndEndAtBothEnds) {
    play(90);
    bench.click(bench.formC.SoundUp);
    bench.click(bench.formC.SoundUp);
    bench.click(bench.formC.SoundUp);
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("setSound(95, 0)", "setSound(100, 0)", "setSound(100, 0)"));
    EXPECT_EQ(bench.formC.SoundVolume.caption, "100");
    play(3);
    bench.click(bench.formC.SoundDown);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("setSound(0, 0)"));
}

TEST_F(SoundKeys, MuteKeepsTheVolumeAndAStepEndsIt) {
    play(40);
    bench.click(bench.formC.SoundMute);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("setSound(40, 1)"));
    EXPECT_EQ(bench.formC.SoundVolume.caption, "--");
    EXPECT_TRUE(bench.formC.SoundMute.lit);
    bench.click(bench.formC.SoundMute);
    bench.click(bench.formC.SoundMute);
    bench.click(bench.formC.SoundUp);
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("setSound(40, 0)", "setSound(40, 1)", "setSound(45, 0)"));
    EXPECT_FALSE(bench.formC.SoundMute.lit);
}

TEST_F(SoundKeys, AreCtrlUpCtrlDownAndCtrlMOfTheRack) {
    play(40);
    bench.hand.shortcut(bench.formC, "Ctrl+Up");
    bench.settle();
    bench.hand.shortcut(bench.formC, "Ctrl+Down");
    bench.settle();
    bench.hand.shortcut(bench.formC, "Ctrl+M");
    bench.settle();
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("setSound(45, 0)", "setSound(40, 0)", "setSound(40, 1)"));
    bench.driver.loudspeakers.reset();
    bench.advance(200ms);
    bench.hand.shortcut(bench.formC, "Ctrl+Up");
    bench.settle();
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
}

}  // namespace
}  // namespace hmonitor::test
