// SPDX-License-Identifier: GPL-3.0-or-later
// The window that looks back, in a program that is built without a store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "history/civil_day.h"
#include "tests/support/rack_bench.h"
#include "trends/form_history.h"

namespace hmonitor::test {
namespace {

TEST(Unrecorded, TheWindowOpensAndSaysThatThereIsNothing) {
    RackBench bench(RackBench::kEnglish);
    Form_History& form = bench.forms.formHistory;
    form.show();
    bench.settle();
    EXPECT_TRUE(form.visible);
    EXPECT_THAT(form.Plot_Figure[0].note.get(), testing::HasSubstr("Nothing has been recorded"));
    EXPECT_THAT(bench.desktop.boxes, testing::IsEmpty());
    bench.click(form.Command_Close);
    EXPECT_FALSE(form.visible);
}

TEST(Unrecorded, TheZoneIsTheSystems) {
    ASSERT_EQ(::_putenv_s("TZ", "XXX3"), 0);
    ::_tzset();
    constexpr std::int64_t kNoon = 1'777'896'000;  // 2026-05-04, UTC
    EXPECT_EQ(history::zoneOffset(kNoon), -3 * 3600);
    EXPECT_EQ(history::zoneName(kNoon), "-03");
    EXPECT_EQ(history::CivilDay::of(kNoon + 14 * 3600), (history::CivilDay{2026, 5, 4}));
    EXPECT_EQ(history::CivilDay::of(kNoon + 15 * 3600), (history::CivilDay{2026, 5, 5}));
    ASSERT_EQ(::_putenv_s("TZ", "IST-5:30"), 0);
    ::_tzset();
    EXPECT_EQ(history::zoneName(kNoon), "+0530");
    ASSERT_EQ(::_putenv_s("TZ", ""), 0);
    ::_tzset();
}

}  // namespace
}  // namespace hmonitor::test
