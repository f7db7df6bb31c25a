// SPDX-License-Identifier: GPL-3.0-or-later
// Where the keyboard focus goes, and when a control shows it.
#include <QKeyEvent>

#include "display/qt/painting/palette.h"
#include "display/qt/windows/fold_bar.h"
#include "tests/display/qt/rack_of_two.h"

namespace display::qt {

namespace {

/// Pixels in the colour of the focus ring.
int amber(const QImage& image) {
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            found += colour.red() > 215 && colour.green() > 140 && colour.green() < 215 &&
                     colour.blue() < 110;
        }
    }
    return found;
}

bool wearsRing(QWidget& widget) {
    const QRect box(widget.mapTo(widget.window(), QPoint()), widget.size());
    return amber(widget.window()->grab(box).toImage()) > (box.width() + box.height()) / 2;
}

}  // namespace

/// Keys in a grid of three columns, a field below the first.
class KeyGrid final : public Form {
 public:
    explicit KeyGrid(Desktop& desktop) : Form(desktop, "KeyGrid") {
        for (auto& key : keys) key.onClick = [] {};
    }
    static constexpr int kColumns = 3;
    Family<Key, 8> keys{*this, "keys"};
    TextField Text1{*this, "Text1"};

 protected:
    void layOut() override {
        caption = "KeyGrid";
        width = 4000.f;
        height = 4000.f;
        for (int i = 0; i < static_cast<int>(keys.size()); ++i) {
            Key& key = keys[static_cast<std::size_t>(i)];
            place(key, {100 + 1000 * static_cast<float>(i % kColumns),
                        100 + 600 * static_cast<float>(i / kColumns), 900, 500});
            key.tabIndex = i + 1;
        }
        place(Text1, {100, 2400, 1800, 400}).tabIndex = 9;
    }
};

class Keyboard : public RackOfTwo {
 protected:
    void press(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        settle();
    }
    void showGrid() {
        grid.show();
        QWidget* window = view(grid).window();
        QApplication::setActiveWindow(window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        settle();
    }
    KeyGrid grid{*desktop};
};

TEST_F(Keyboard, TabGoesThroughThePanelsFromTheTopWhicheverCameUpLast) {
    // Makes the upper panel's view again, so that it is newer than the lower one's.
    Unit third(*desktop, "third", 0);
    desktop->rack({&third, &upper, &lower});
    lower.hide();
    upper.hide();
    third.leads = true;
    third.show();
    lower.show();
    upper.show();
    settle();
    QWidget* rack = desktop->rackWindow();
    QApplication::setActiveWindow(rack);
    ASSERT_TRUE(QTest::qWaitForWindowActive(rack));
    widget(third.Key1).setFocus();
    const std::initializer_list<const Control*> order{&third.KeyN, &third.Text1, &upper.Key1,
                                                      &upper.KeyN, &upper.Text1, &lower.Key1,
                                                      &lower.KeyN, &lower.Text1, &third.Key1};
    for (const Control* next : order) {
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &widget(*next))
            << next->form().name() << "." << next->name();
    }
    desktop->rack({});
}

TEST_F(Keyboard, NoKeyWearsTheRingBeforeTheKeyboardWasUsed) {
    showSample();
    ASSERT_TRUE(widget(sample->KeyN).hasFocus());
    EXPECT_FALSE(wearsRing(widget(sample->KeyN)));
    press(Qt::Key_Tab);
    EXPECT_TRUE(wearsRing(widget(sample->Key1)));
    press(Qt::Key_Backtab);
    EXPECT_TRUE(wearsRing(widget(sample->KeyN)));
}

TEST_F(Keyboard, AClickTakesTheRingAwayAgain) {
    showSample();
    press(Qt::Key_Tab);
    QTest::mouseClick(&widget(sample->KeyDefault), Qt::LeftButton);
    settle();
    ASSERT_TRUE(widget(sample->KeyDefault).hasFocus());
    EXPECT_FALSE(wearsRing(widget(sample->KeyDefault)));
    press(Qt::Key_Space);
    EXPECT_TRUE(wearsRing(widget(sample->KeyDefault)));
}

TEST_F(Keyboard, AFieldThatTakesTypingAlwaysWearsTheRing) {
    showSample();
    QTest::mouseClick(&widget(sample->Text1), Qt::LeftButton);
    settle();
    EXPECT_TRUE(wearsRing(widget(sample->Text1)));
}

TEST_F(Keyboard, ListsAndBarsWearTheRingToo) {
    sample->load();
    sample->Combo1.tabIndex = 20;
    showSample();
    press(Qt::Key_Tab);
    for (const Control* control :
         std::initializer_list<const Control*>{&sample->Combo1, &sample->HScroll1}) {
        widget(*control).setFocus(Qt::TabFocusReason);
        settle();
        EXPECT_TRUE(wearsRing(widget(*control))) << control->name();
        QTest::mouseClick(&view(*sample), Qt::LeftButton, {}, QPoint(2, 2));
        settle();
        EXPECT_FALSE(wearsRing(widget(*control))) << control->name();
        press(Qt::Key_Shift);
    }
}

TEST_F(Keyboard, ArrowsGoOverAGridOfKeysAsTheEyeDoes) {
    showGrid();
    ASSERT_EQ(QApplication::focusWidget(), &widget(grid.keys[0]));
    const auto stands = [&](std::size_t place) {
        EXPECT_EQ(QApplication::focusWidget(), &widget(grid.keys[place])) << place;
    };
    press(Qt::Key_Down);
    stands(3);
    press(Qt::Key_Right);
    stands(4);
    press(Qt::Key_Down);
    stands(7);
    press(Qt::Key_Up);
    stands(4);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    stands(3);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    stands(0);
}

TEST_F(Keyboard, ArrowsStayWhereNothingStandsAndPassOverWhatIsDisabled) {
    showGrid();
    grid.keys[4].enabled = false;
    settle();
    widget(grid.keys[1]).setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &widget(grid.keys[7]));
    widget(grid.keys[5]).setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &widget(grid.keys[5]));
    widget(grid.keys[6]).setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &widget(grid.Text1));
}

TEST_F(Keyboard, BarOfAFoldedRackIsPressedByMouseAndKeyboard) {
    FoldBar bar("HMonitor", true, 2);
    int unfolds = 0;
    QObject::connect(&bar, &QAbstractButton::clicked, &bar, [&] { ++unfolds; });
    bar.show();
    QTest::mouseClick(&bar, Qt::LeftButton);
    QTest::keyClick(&bar, Qt::Key_Return);
    QTest::keyClick(&bar, Qt::Key_Space);
    EXPECT_EQ(unfolds, 3);
    EXPECT_EQ(bar.accessibleName(), "Desplegar HMonitor");
    EXPECT_LE(bar.width(), 400);
    // The rack's name is on it, in the light colour of key captions.
    const QImage look = bar.grab().toImage();
    int light = 0;
    for (int x = 0; x < look.width(); ++x)
        for (int y = 0; y < look.height(); ++y) light += qGray(look.pixel(x, y)) > 180;
    EXPECT_GT(light, 100);
}

}  // namespace display::qt
