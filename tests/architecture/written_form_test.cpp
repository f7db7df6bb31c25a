// SPDX-License-Identifier: GPL-3.0-or-later
// The window of docs/writing-a-form.md, as the page has it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/numbers.h"
#include "program/look.h"
#include "program/make_form.h"
#include "program/program_form.h"
#include "tests/architecture/form_walk.h"
#include "tests/support/rack_bench.h"

namespace hmonitor {
// NOLINTNEXTLINE(bugprone-suspicious-include)
#include "written_form.inc"
}  // namespace hmonitor

namespace hmonitor::test {
namespace {

TEST(WrittenForm, CountsEachTickOver100Percent) {
    RackBench bench;
    FormOvers form(bench.program);
    bench.readings.peakModulation = 101;
    form.show();
    bench.advance(std::chrono::milliseconds(250));
    EXPECT_EQ(form.Label_Overs.caption, "2");
    bench.readings.peakModulation = 100;
    bench.advance(std::chrono::milliseconds(250));
    EXPECT_EQ(form.Label_Overs.caption, "2");
}

TEST(WrittenForm, IsLaidOutWithoutAFault) {
    RackBench bench;
    FormOvers form(bench.program);
    form.show();
    EXPECT_THAT(faultsOf(form), testing::IsEmpty());
    form.cancelKey()->press();
    EXPECT_FALSE(form.loaded());
}

}  // namespace
}  // namespace hmonitor::test
