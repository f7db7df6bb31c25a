// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/rack_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hmonitor::test {
namespace {

/// Each reading is one dB stronger than the last.
struct GrowingUnit final : ScriptedDriver {
    std::int32_t HM_Data(Readings& out) override {
        readings.field += 1;
        return ScriptedDriver::HM_Data(out);
    }
};

TEST(RackBench, RunsOnAUnitWithAWillOfItsOwn) {
    RackBench bench(std::make_unique<GrowingUnit>());
    bench.start();
    const float before = bench.readings.field;
    bench.beat();
    EXPECT_GT(bench.readings.field, before);
    EXPECT_THAT(bench.takeCalls(), testing::Contains("HM_Normal(981, 0, 0, 0, 0)"));
}

TEST(RackBench, AHandIsDoneWhenItsCallReturns) {
    RackBench bench;
    bench.start();
    bench.press(bench.formB.Image3);
    EXPECT_EQ(bench.formB.Image3.picture, "SetA");
    bench.release(bench.formB.Image3);
    EXPECT_EQ(bench.formB.Image3.picture, "SetN");
    Form_bSetMemories& editor = bench.forms.formSetMemories;
    EXPECT_TRUE(editor.visible);
    bench.click(editor.presets[3]);
    EXPECT_EQ(bench.formB.TunedFreq, 1025.5f);
    bench.edit(editor.Text2, "");
    bench.type(editor.Text2, "nova");
    EXPECT_EQ(editor.Text2.text, "NOVA");
    bench.click(editor.SSCommand19);  // the options lie in the wide part
    bench.check(editor.SSCheck3, true);
    EXPECT_TRUE(editor.SSCheck3.checked);
    bench.click(editor.SSCommand17);
    EXPECT_FALSE(editor.visible);
    bench.set(bench.formB.HScroll1, 100);
    EXPECT_EQ(bench.formB.TunedFreq, 975.5);  // the half step of memory 3 stands
}

}  // namespace
}  // namespace hmonitor::test
