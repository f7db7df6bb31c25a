// SPDX-License-Identifier: GPL-3.0-or-later
// A window that disables the rack: where it stands, how the rack looks then, and what a click on
// the rack does.
#include <QWindow>

#include "display/qt/painting/palette.h"
#include "tests/display/qt/rack_of_two.h"

namespace display::qt {

namespace {

/// The highest channel value of any pixel: the words on a dark key.
int lightest(const QImage& image) {
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            found = std::max({found, colour.red(), colour.green(), colour.blue()});
        }
    }
    return found;
}

}  // namespace

class DisabledRack : public RackOfTwo {
 protected:
    /// The picture of a control as it stands on the screen.
    QImage look(const Control& control) {
        const QRectF box = view(control.form()).scale().snapped(control.boxOnForm());
        return view(control.form()).grab(box.toRect().adjusted(3, 3, -3, -3)).toImage();
    }
    void disable(bool disabled) {
        upper.enabled = !disabled;
        lower.enabled = !disabled;
        settle();
    }
    /// The sample's window, opened as a key of the rack opens one.
    QWidget& openSample() {
        sample->show();
        disable(true);
        return *view(*sample).window();
    }
    QWidget& flash() { return *view(*sample).window()->findChild<QWidget*>("Flash"); }
};

TEST_F(DisabledRack, OpenWindowStandsAboveItWhateverWindowAskedForIt) {
    const QWindow* rack = desktop->rackWindow()->windowHandle();
    test::SampleForm asked(*desktop, "Asked");
    asked.show();
    QApplication::setActiveWindow(view(asked).window());
    ASSERT_TRUE(QTest::qWaitForWindowActive(view(asked).window()));
    openSample();
    // The parent is the rack, not the opener, because the opener may hide, and a click can only
    // raise the rack.
    EXPECT_EQ(view(*sample).window()->windowHandle()->transientParent(), rack);
    EXPECT_EQ(view(asked).window()->windowHandle()->transientParent(), rack);
}

TEST_F(DisabledRack, OpenWindowHasNoKeyThatFoldsItAlone) {
    EXPECT_FALSE(openSample().windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
}

TEST_F(DisabledRack, ClickOnItBringsTheOpenWindowUpWithAFlash) {
    QWidget& window = openSample();
    desktop->rackWindow()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop->rackWindow()));
    EXPECT_FALSE(flash().isVisible());
    QTest::mouseClick(&view(lower), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_TRUE(flash().isVisible());
    EXPECT_EQ(QColor(window.grab().toImage().pixel(1, window.height() / 2)), QColor(kAmber));
    EXPECT_TRUE(until([&] { return window.isActiveWindow(); }));
    EXPECT_TRUE(until([&] { return !flash().isVisible(); }));
}

TEST_F(DisabledRack, ClickOnOneOfItsKeysDoesTheSameAndNothingElse) {
    openSample();
    QTest::mouseClick(&widget(upper.Key1), Qt::LeftButton);
    EXPECT_TRUE(flash().isVisible());
    settle();
    EXPECT_EQ(upper.clicks, 0);
}

TEST_F(DisabledRack, ClickOnItOnceEnabledAgainFlashesNothing) {
    openSample();
    disable(false);
    QTest::mouseClick(&view(lower), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_FALSE(flash().isVisible());
}

TEST_F(DisabledRack, OfSeveralWindowsTheOneThatWasOpenedLastComesUp) {
    test::SampleForm earlier(*desktop, "Earlier");
    earlier.show();
    QTest::qWait(20);
    openSample();
    QTest::mouseClick(&view(lower), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_TRUE(flash().isVisible());
    EXPECT_FALSE(view(earlier).window()->findChild<QWidget*>("Flash")->isVisible());
}

TEST_F(DisabledRack, EveryKindOfKeyAndFieldLooksDisabledAndEnabledAgain) {
    const std::initializer_list<const Control*> all{&upper.Key1, &upper.KeyN, &upper.Text1};
    for (const Control* control : all) {
        disable(false);
        const QImage usable = look(*control);
        disable(true);
        const QImage dim = look(*control);
        EXPECT_LT(lightest(dim), lightest(usable) - 30) << control->name();
        disable(false);
        EXPECT_EQ(look(*control), usable) << control->name();
    }
}

TEST_F(DisabledRack, LitKeyStaysTellableFromADarkOne) {
    upper.KeyN.picture = "PeakA";
    disable(true);
    const int lit = lightest(look(upper.KeyN));
    upper.KeyN.picture = "PeakN";
    settle();
    const auto middle = [](const QImage& image) { return image.pixelColor(4, 4).green(); };
    const int dark = middle(look(upper.KeyN));
    upper.KeyN.picture = "PeakA";
    settle();
    EXPECT_GT(middle(look(upper.KeyN)), dark + 30);
    EXPECT_LT(lit, 200);
}

TEST_F(DisabledRack, DisablingWithinAHandlerNeverReachesTheScreen) {
    const int paints = view(upper).paints();
    upper.enabled = false;
    upper.enabled = true;
    settle();
    EXPECT_EQ(view(upper).paints(), paints);
    EXPECT_TRUE(widget(upper.Key1).isEnabled());
}

}  // namespace display::qt
