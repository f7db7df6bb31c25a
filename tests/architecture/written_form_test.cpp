// SPDX-License-Identifier: GPL-3.0-or-later
// The window of docs/writing-a-form.md. The page's own test is compiled beside this.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/architecture/form_walk.h"
#include "tests/architecture/page_bench.h"

namespace hmonitor::test {
namespace {

TEST(WrittenForm, CountsNoTickOf100Percent) {
    PageBench bench;
    bench.readings.peakModulation = 100;
    bench.program.FormOfPage->show();
    bench.advance(std::chrono::milliseconds(250));
    EXPECT_EQ(bench.program.FormOfPage->Label_Overs.caption, "0");
}

TEST(WrittenForm, BeginsAgainWhenItIsShownAgain) {
    PageBench bench;
    auto& form = bench.program.FormOfPage;
    bench.readings.peakModulation = 101;
    form->show();
    bench.advance(std::chrono::milliseconds(250));
    form->Command1.press();
    EXPECT_FALSE(form.peek().loaded());
    form->show();
    EXPECT_EQ(form->Label_Overs.caption, "0");
    bench.advance(std::chrono::milliseconds(150));
    EXPECT_EQ(form->Label_Overs.caption, "1");
}

TEST(WrittenForm, IsLaidOutWithoutAFault) {
    PageBench bench;
    hmonitor::FormOfPage& form = *bench.program.FormOfPage;
    form.show();
    EXPECT_THAT(faultsOf(form), testing::IsEmpty());
    form.cancelKey()->press();
    EXPECT_FALSE(form.loaded());
}

}  // namespace
}  // namespace hmonitor::test
