// SPDX-License-Identifier: GPL-3.0-or-later
// The row of digits, found by the place of its keys.
#include "display/qt/windows/digit_key.h"

#include <QKeyEvent>

#include "tests/display/qt/rack_of_two.h"

namespace display::qt {
namespace {

/// The event of a key as a platform sends it.
std::optional<DigitKey> digitOf(const char* platform, int key, quint32 code,
                                Qt::KeyboardModifiers held = Qt::NoModifier) {
    const QKeyEvent event(QEvent::KeyPress, key, held, code, 0, 0);
    return digitKeyOf(event, QString::fromLatin1(platform));
}

TEST(DigitKeys, GoByTheirPlaceWhateverTheLayoutWrites) {
    // The row of a French keyboard, from the left.
    const int written[] = {Qt::Key_Ampersand, Qt::Key_Eacute, Qt::Key_QuoteDbl, Qt::Key_Apostrophe,
                           Qt::Key_ParenLeft, Qt::Key_Minus,  Qt::Key_Egrave,   Qt::Key_Underscore,
                           Qt::Key_Ccedilla,  Qt::Key_Agrave};
    for (int i = 0; i < 10; ++i) {
        const auto code = static_cast<quint32>(i);
        EXPECT_EQ(digitOf("xcb", written[i], 10 + code), (DigitKey{i + 1, false}));
        EXPECT_EQ(digitOf("wayland-egl", written[i], 10 + code), (DigitKey{i + 1, false}));
        EXPECT_EQ(digitOf("windows", written[i], 2 + code), (DigitKey{i + 1, false}));
        const int digit = i == 9 ? Qt::Key_0 : Qt::Key_1 + i;
        EXPECT_EQ(digitOf("xcb", digit, 10 + code, Qt::ShiftModifier), (DigitKey{i + 1, true}));
        EXPECT_EQ(digitOf("windows", digit, 2 + code, Qt::ShiftModifier), (DigitKey{i + 1, true}));
    }
}

TEST(DigitKeys, GoByWhatIsWrittenElsewhere) {
    EXPECT_EQ(digitOf("offscreen", Qt::Key_1, 0), (DigitKey{1, false}));
    EXPECT_EQ(digitOf("offscreen", Qt::Key_0, 0), (DigitKey{10, false}));
    // The pad of numbers.
    EXPECT_EQ(digitOf("xcb", Qt::Key_5, 84, Qt::KeypadModifier), (DigitKey{5, false}));
}

TEST(DigitKeys, AreNoOtherKeyAndNoAccelerator) {
    EXPECT_FALSE(digitOf("xcb", Qt::Key_Escape, 9));
    EXPECT_FALSE(digitOf("xcb", Qt::Key_Minus, 20));
    EXPECT_FALSE(digitOf("windows", Qt::Key_Escape, 1));
    EXPECT_FALSE(digitOf("windows", Qt::Key_Minus, 12));
    EXPECT_FALSE(digitOf("offscreen", Qt::Key_A, 0));
    for (const auto held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        EXPECT_FALSE(digitOf("xcb", Qt::Key_1, 10, held));
    }
}

}  // namespace

/// A rack whose first panel hears the digits.
class RackDigits : public RackOfTwo {
 protected:
    void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, held);
        settle();
    }
};

TEST_F(RackDigits, ReachTheFirstPanelWhereverTheKeyboardStands) {
    for (const Control* control : std::initializer_list<Control*>{&upper.Key1, &lower.KeyN}) {
        widget(*control).setFocus();
        press(Qt::Key_3);
        press(Qt::Key_2, Qt::ShiftModifier);
    }
    const std::vector<DigitKey> expected{{3, false}, {2, true}, {3, false}, {2, true}};
    EXPECT_EQ(upper.digits, expected);
    EXPECT_TRUE(lower.digits.empty());
}

TEST_F(RackDigits, AreTypedIntoAFieldThatHasTheKeyboard) {
    widget(upper.Text1).setFocus();
    press(Qt::Key_3);
    EXPECT_TRUE(upper.digits.empty());
    EXPECT_NE(upper.Text1.text.get().find('3'), std::string::npos);
}

TEST_F(RackDigits, AKeyHeldDownIsHeardOnce) {
    widget(upper.Key1).setFocus();
    QKeyEvent again(QEvent::KeyPress, Qt::Key_4, Qt::NoModifier, QStringLiteral("4"), true);
    QApplication::sendEvent(QApplication::focusWidget(), &again);
    settle();
    EXPECT_TRUE(upper.digits.empty());
}

TEST_F(RackDigits, AreNotHeardWhileTheRackIsDisabled) {
    widget(upper.Key1).setFocus();
    upper.enabled = false;
    settle();
    QTest::keyClick(desktop->rackWindow(), Qt::Key_3);
    settle();
    EXPECT_TRUE(upper.digits.empty());
}

}  // namespace display::qt
