// SPDX-License-Identifier: GPL-3.0-or-later
// The tool tips of what the rack paints, brought up by the pointer.
#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QToolTip>

#include "tests/display/qt/live_rack.h"

namespace hmonitor::test {
namespace {

class RackTips : public testing::TestWithParam<const char*> {
 protected:
    void SetUp() override { ASSERT_TRUE(rack.measures()); }
    bool spanish() const { return std::string_view(GetParam()).starts_with("es"); }
    QPoint middle(const display::Control& control) {
        return rack.view(control.form()).scale().whole(control.boxOnForm()).center();
    }
    QString tipOn(const display::Control& control) {
        return rack.view(control.form()).tipAt(middle(control));
    }
    QString of(const display::Words& words) const {
        return QString::fromUtf8(spanish() ? words.spanish : words.english);
    }
    LiveRack rack{GetParam()};
};

TEST_P(RackTips, APaintedFigureTellsWhatItIs) {
    Forms& forms = rack.forms();
    for (const display::Control* control : std::initializer_list<const display::Control*>{
             &forms.form1.Label_FMod, &forms.form1.Label_CarrierDeviation, &forms.formB.PromL,
             &forms.formB.PowerDigits, &forms.formB.Label_PhaseVector, &forms.formB.Label_FrecRadio,
             &forms.formC.Label_PilotLevel, &forms.formC.NoiseDigits,
             &forms.formC.Label_RDSLevel}) {
        EXPECT_FALSE(tipOn(*control).isEmpty()) << control->name();
        EXPECT_EQ(tipOn(*control), of(control->tip)) << control->name();
    }
    EXPECT_TRUE(tipOn(forms.form1.Label_FMod)
                    .startsWith(spanish() ? "Pico de desviación: " : "Peak deviation: "));
}

TEST_P(RackTips, TheRoomBesideAFigureInItsWellTellsTheSame) {
    const Form1& panel = rack.forms().form1;
    EXPECT_EQ(tipOn(panel.DeviationUnit), of(panel.Label_FMod.tip));
}

TEST_P(RackTips, TheFaceplateTellsNothing) {
    EXPECT_EQ(rack.view(rack.forms().formB).tipAt({2, 2}), "");
}

TEST_P(RackTips, ALampThatIsHiddenTellsNothingOfItself) {
    const Form1& panel = rack.forms().form1;
    ASSERT_FALSE(panel.Label_OVER.visible);
    EXPECT_NE(tipOn(panel.Label_OVER), of(panel.Label_OVER.tip));
}

TEST_P(RackTips, ComesUpWithThePointer) {
    const display::Control& figure = rack.forms().form1.Label_FMod;
    display::qt::FormView& view = rack.view(figure.form());
    const QPoint at = middle(figure);
    QHelpEvent help(QEvent::ToolTip, at, view.mapToGlobal(at));
    QApplication::sendEvent(&view, &help);
    EXPECT_EQ(QToolTip::text(), of(figure.tip));
    QHelpEvent beside(QEvent::ToolTip, {2, 2}, view.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&view, &beside);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 5000));
}

INSTANTIATE_TEST_SUITE_P(Languages, RackTips, testing::Values("es_AR.UTF-8", "en_US.UTF-8"),
                         [](const auto& of) {
                             return std::string(of.param[1] == 's' ? "Spanish" : "English");
                         });

}  // namespace
}  // namespace hmonitor::test
