// SPDX-License-Identifier: GPL-3.0-or-later
// Where windows come up over the rack.
#include "program/rack_place.h"

#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

class OverRack : public testing::Test {
 protected:
    OverRack() { bench.start(); }
    Form4& placed(float width, float height) {
        page.width = width;
        page.height = height;
        placeOverRack(page, bench.program);
        return page;
    }
    RackBench bench;
    Form4& page = bench.forms.form4;
    const display::Form& top = *bench.program.rack.front();
    const display::Form& foot = *bench.program.rack.back();
};

TEST_F(OverRack, AWindowStandsInItsMiddle) {
    placed(2000, 1000);
    EXPECT_FLOAT_EQ(page.left + page.width / 2, top.left + top.width / 2);
    EXPECT_FLOAT_EQ(page.top + page.height / 2, (top.top + foot.top + foot.height) / 2);
}

TEST_F(OverRack, ATallerOneKeepsItsTitleOnTheScreen) {
    const float rackHeight = foot.top + foot.height - top.top;
    bench.desktop.screen = {0, 200, 14000, top.top + rackHeight - 200};
    EXPECT_EQ(placed(9000, 2 * (rackHeight + top.top)).top, 200);
    EXPECT_EQ(placed(30000, 1000).left, 0);
}

TEST_F(OverRack, OneThatFitsTheScreenStandsOnItWhole) {
    bench.program.rack.front()->left = 9000;
    bench.desktop.screen = {0, 0, 14000, 9000};
    const Form4& form = placed(12000, 8500);
    EXPECT_EQ(form.left, 2000);
    EXPECT_LE(form.top + form.height, 9000);
    EXPECT_GE(form.top, 0);
}

TEST_F(OverRack, WhereTheSystemPlacesWindowsTheScreenIsNotKnown) {
    bench.desktop.screen = {};
    placed(2000, 30000);
    EXPECT_LT(page.top, 0);
}

}  // namespace
}  // namespace hmonitor::test
