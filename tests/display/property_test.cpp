// SPDX-License-Identifier: GPL-3.0-or-later
// A program of its own, because it counts every allocation.
#include "display/property.h"

#include <gtest/gtest.h>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"
#include "tests/support/counted_heap.h"

namespace display::test {
namespace {

using hmonitor::test::CountedHeap;

class Properties : public testing::Test {
 protected:
    Properties() { form.show(); }
    HeadlessDesktop desktop;
    SampleForm form{desktop};
};

TEST_F(Properties, AnEqualValueDrawsNothing) {
    const auto before = form.LabelValue.revision();
    const auto clock = form.clock();
    form.LabelValue.caption = "75.0";
    form.LabelValue.colour = kGreen;
    form.LabelValue.visible = true;
    form.LabelValue.left = 180.f;
    form.Line1.to(290, 30);
    EXPECT_EQ(form.LabelValue.revision(), before);
    EXPECT_EQ(form.clock(), clock);
}

TEST_F(Properties, AnotherValueRaisesTheControlsRevisionAndTheFormsClock) {
    const auto before = form.LabelValue.revision();
    const auto neighbour = form.Label1.revision();
    form.LabelValue.caption = "75.1";
    EXPECT_GT(form.LabelValue.revision(), before);
    EXPECT_EQ(form.LabelValue.revision(), form.clock());
    EXPECT_EQ(form.Label1.revision(), neighbour);
}

TEST_F(Properties, WhatChangedLastIsNewest) {
    form.Label1.caption = "a";
    form.Line1.colour = kWhite;
    EXPECT_GT(form.Line1.revision(), form.Label1.revision());
}

TEST_F(Properties, ThereAndBackIsTwoRevisions) {
    const auto before = form.clock();
    form.Label1.visible = false;
    form.Label1.visible = true;
    EXPECT_EQ(form.clock(), before + 2);
}

TEST_F(Properties, ShortTextsAndFiguresNeverAllocate) {
    const long start = CountedHeap::now().taken;
    delete new int(1);
    ASSERT_GT(CountedHeap::now().taken, start) << "allocations are not counted";
    const long before = CountedHeap::now().taken;
    for (int i = 0; i < 1000; ++i) {
        form.LabelValue.caption = i % 2 == 0 ? "100.25 %" : "-3.5 kHz";
        form.LabelValue.colour = i % 2 == 0 ? kRed : kGreen;
        form.Line1.to(static_cast<float>(i), 30);
        form.Lamp1.picture = i % 2 == 0 ? "multyon" : "multyoff";
    }
    EXPECT_EQ(CountedHeap::now().taken, before);
}

}  // namespace
}  // namespace display::test
