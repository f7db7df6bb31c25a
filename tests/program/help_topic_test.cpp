// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/help_topic.h"

#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

TEST(HelpTopic, OfAFiguresPlaceIsTheFigure) {
    RackBench bench;
    bench.start();
    const auto topic = [](const display::Form& form, const char* control) {
        const display::Control* found = form.find(control);
        EXPECT_NE(found, nullptr) << control;
        return helpTopicOf(form, found);
    };
    EXPECT_EQ(topic(bench.formC, "Label_PilotLevel"), "pilot_level");
    EXPECT_EQ(topic(bench.formC, "Label_57K_FrecError"), "rds_error");
    EXPECT_EQ(topic(bench.form1, "Label_FMod"), "deviation_peak");
    EXPECT_EQ(topic(bench.form1, "MultipathWell"), "multipath");
    EXPECT_EQ(topic(bench.formB, "PromL"), "level_left");
}

TEST(HelpTopic, OfTheWellOfAFigureIsTheFigure) {
    RackBench bench;
    bench.start();
    const display::Control* shown = bench.formC.find("Label_PilotLevel");
    ASSERT_NE(shown->container.get(), nullptr);
    EXPECT_EQ(helpTopicOf(bench.formC, shown->container.get()), "pilot_level");
}

TEST(HelpTopic, OfAllElseIsTheForm) {
    RackBench bench;
    bench.start();
    EXPECT_EQ(helpTopicOf(bench.form1, nullptr), "Form1");
    EXPECT_EQ(helpTopicOf(bench.formB, bench.formB.find("SSCommand1")), "Form_B");
    EXPECT_EQ(helpTopicOf(bench.formD, bench.formC.find("Label_PilotLevel")), "Form_D");
}

}  // namespace
}  // namespace hmonitor::test
