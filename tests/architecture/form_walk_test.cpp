// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "display/headless/headless_desktop.h"
#include "tests/architecture/form_walk.h"
#include "tests/display/sample_form.h"

namespace hmonitor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class FormWalk : public testing::Test {
 protected:
    FormWalk() { form.show(); }
    display::HeadlessDesktop desktop;
    display::test::SampleForm form{desktop};
};

TEST_F(FormWalk, FindsNothingWrongWithEachFormOfTheDesktop) {
    ASSERT_EQ(desktop.forms().size(), 1u);
    for (const display::Form* shown : desktop.forms()) EXPECT_THAT(faultsOf(*shown), IsEmpty());
}

TEST_F(FormWalk, FindsANameThatStandsTwice) {
    display::Label twin(form, "Label1");
    twin.timesPlaced = 1;
    EXPECT_THAT(faultsOf(form), ElementsAre("SampleForm.Label1 has a name that stands twice"));
}

TEST_F(FormWalk, FindsAControlThatIsNotPlacedOnce) {
    form.Label1.timesPlaced = 2;
    form.Key1.timesPlaced = 0;
    EXPECT_THAT(faultsOf(form), ElementsAre("SampleForm.Label1 is placed 2 times",
                                            "SampleForm.Key1 is placed 0 times"));
}

TEST_F(FormWalk, FindsWhatReachesOutOfItsParent) {
    form.Label1.left = 200.f;
    form.Line1.to(301, 30);
    form.HScroll1.left = 3100.f;
    EXPECT_THAT(faultsOf(form), ElementsAre("SampleForm.Label1 reaches out of Panel2",
                                            "SampleForm.Line1 reaches out of Panel2",
                                            "SampleForm.HScroll1 reaches out of its form"));
}

TEST_F(FormWalk, FindsKeysThatOverlapWhileBothAreShown) {
    form.Key1.left = 2400.f;
    EXPECT_THAT(faultsOf(form), ElementsAre("SampleForm.Key1 overlaps KeyDefault"));
    form.KeyDefault.visible = false;
    EXPECT_THAT(faultsOf(form), IsEmpty());
}

TEST_F(FormWalk, FindsAKeyWithoutAHandler) {
    form.Key1.onClick = nullptr;
    form.HScroll1.onChange = nullptr;
    EXPECT_THAT(faultsOf(form), ElementsAre("SampleForm.Key1 has no handler",
                                            "SampleForm.HScroll1 has no handler"));
}

TEST_F(FormWalk, FindsAKeyWithoutANameInALanguage) {
    form.Key1.says = {"", "Scan"};
    form.KeyN.says = {"Pico", ""};
    EXPECT_THAT(faultsOf(form), Contains("SampleForm.Key1 has no accessible name in Spanish"));
    EXPECT_THAT(faultsOf(form), Contains("SampleForm.KeyN has no accessible name in English"));
}

}  // namespace
}  // namespace hmonitor::test
