// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program/form_list.h"
#include "tests/architecture/form_walk.h"
#include "tests/architecture/recorded_form.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

/// Controls that are larger than their container on purpose, so that its edge cuts them.
constexpr const char* kMeant[] = {
    // The chart scrolls within its panel.
    "Form_BandSCanner.Graph1 reaches out of ChartView",
    // The charts of the log scroll within their panels, and their backgrounds shift a little at
    // each load.
    "Form_D4A.Graph1 reaches out of View(0)",
    "Form_D4A.Graph2 reaches out of View(1)",
    "Form_D4A.Graph3 reaches out of View(2)",
    "Form_D4A.Graph4 reaches out of View(3)",
    "Form_D4A.Graph5 reaches out of View(4)",
    "Form_D4A.Graph6 reaches out of View(5)",
    "Form_D4A.Picture1 reaches out of Well(0)",
    "Form_D4A.Picture4 reaches out of Well(1)",
    "Form_D4A.Picture5 reaches out of Well(2)",
    "Form_D4A.Picture2 reaches out of Well(3)",
    // Hours that are scrolled out of view at first.
    "Form_D4A.Label24 reaches out of View(0)",
    "Form_D4A.Label28 reaches out of View(1)",
    "Form_D4A.Label32 reaches out of View(2)",
    "Form_D4A.Label36 reaches out of View(3)",
    // The analyzer's bars, too.
    "frmSpectrumAnalizer.PictureZoom reaches out of Panel3D1",
    // The dials turn about their own points; the wells show a part of each.
    "Form_B.PowerDial reaches out of PowerWell",
    "Form_B.PhaseDial reaches out of PhaseWell",
    // At no modulation the head of the bar is left of the well's edge.
    "Form1.Label10 reaches out of BarWell",
    // The options lie outside the editor's narrow form until it is widened.
    "Form_bSetMemories.Faceplate reaches out of its form",
    "Form_bSetMemories.Options reaches out of its form",
};

#define HMONITOR_COUNT(form, name) +1
constexpr std::size_t kForms = 0 HMONITOR_EACH_FORM(HMONITOR_COUNT);
#undef HMONITOR_COUNT

/// The form walk over every window of the program, in the language of the parameter.
class RackWalk : public testing::TestWithParam<int> {};

TEST_P(RackWalk, FindsNothingWrongWithAnyWindow) {
    RackBench bench(GetParam());
    bench.start();
    ASSERT_EQ(bench.desktop.forms().size(), kForms);
    for (display::Form* form : bench.desktop.forms()) {
        form->load();
        std::vector<std::string> faults = faultsOf(*form);
        for (const char* meant : kMeant) std::erase(faults, meant);
        EXPECT_THAT(faults, testing::IsEmpty()) << form->name();
    }
}

TEST_P(RackWalk, LoadingAWindowAgainSetsEveryPropertyOfItsControlsBack) {
    RackBench bench(GetParam());
    bench.start();
    for (display::Form* form : bench.desktop.forms()) {
        form->unload();
        form->load();
        const std::vector<std::string> laidOut = recorded(*form);
        upset(*form);
        EXPECT_NE(recorded(*form), laidOut) << form->name();
        form->unload();
        form->load();
        EXPECT_EQ(recorded(*form), laidOut) << form->name();
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, RackWalk,
                         testing::Values(RackBench::kSpanish, RackBench::kEnglish,
                                         RackBench::kPortuguese));

}  // namespace
}  // namespace hmonitor::test
