// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QTabBar>

#include "display/qt/widgets/scroll_bar_widget.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class Controls : public QtBench {
 protected:
    void SetUp() override { showSample(); }
};

TEST_F(Controls, PictureKey_PressAndReleaseOnIt_RunsItsClick) {
    QWidget& key = widget(sample->KeyN);
    QTest::mousePress(&key, Qt::LeftButton);
    settle();
    EXPECT_EQ(sample->KeyN.picture.get(), "PeakA");
    QTest::mouseRelease(&key, Qt::LeftButton);
    settle();
    EXPECT_EQ(sample->heard,
              (std::vector<std::string>{"KeyN press", "KeyN release", "KeyN click"}));
    EXPECT_EQ(sample->KeyN.picture.get(), "PeakN");
    keep(*sample, "sample");
}

TEST_F(Controls, PictureKey_ReleaseBesideIt_PutsThePictureBackAndDoesNothing) {
    QWidget& key = widget(sample->KeyN);
    QTest::mousePress(&key, Qt::LeftButton);
    QTest::mouseRelease(&key, Qt::LeftButton, {}, QPoint(-20, -20));
    settle();
    EXPECT_EQ(sample->heard, (std::vector<std::string>{"KeyN press", "KeyN cancel"}));
    EXPECT_EQ(sample->KeyN.picture.get(), "PeakN");
}

TEST_F(Controls, TextField_SelectedWhole_IsReplacedByTheNextTypedCharacter) {
    auto& line = dynamic_cast<QLineEdit&>(widget(sample->Text1));
    sample->Text1.text = "98.1";
    sample->Text1.selectAll();
    settle();
    EXPECT_EQ(line.selectedText(), "98.1");
    line.setFocus(Qt::OtherFocusReason);
    QTest::keyClicks(&line, "7");
    settle();
    EXPECT_EQ(sample->Text1.text, "7");
    EXPECT_EQ(line.text(), "7");
    // The selection was asked for once: a later change selects nothing.
    sample->Text1.colour = kRed;
    settle();
    EXPECT_EQ(line.selectedText(), "");
}

TEST_F(Controls, PictureKey_SpaceAndEnterPressItWhileTheyAreHeld) {
    QWidget& key = widget(sample->KeyN);
    key.setFocus();
    for (const auto code : {Qt::Key_Space, Qt::Key_Return}) {
        sample->heard.clear();
        QTest::keyPress(&key, code);
        settle();
        EXPECT_EQ(sample->heard, (std::vector<std::string>{"KeyN press"}));
        QTest::keyRelease(&key, code);
        settle();
        EXPECT_EQ(times("KeyN click"), 1);
    }
}

TEST_F(Controls, PictureKey_LosingTheFocusWhileHeldCancels) {
    QWidget& key = widget(sample->KeyN);
    key.setFocus();
    QTest::keyPress(&key, Qt::Key_Space);
    widget(sample->Key1).setFocus();
    settle();
    EXPECT_EQ(sample->heard, (std::vector<std::string>{"KeyN press", "KeyN cancel"}));
}

TEST_F(Controls, Key_ClickAndEnterRunItsClickOnce) {
    QTest::mouseClick(&widget(sample->Key1), Qt::LeftButton);
    settle();
    EXPECT_EQ(times("Key1 click"), 1);
    widget(sample->Key1).setFocus();
    QTest::keyClick(&widget(sample->Key1), Qt::Key_Return);
    settle();
    EXPECT_EQ(times("Key1 click"), 2);
}

TEST_F(Controls, Escape_PressesTheCancelKeyAndEnterTheDefault) {
    QTest::keyClick(&view(*sample), Qt::Key_Escape);
    QTest::keyClick(&view(*sample), Qt::Key_Return);
    settle();
    EXPECT_EQ(sample->heard, (std::vector<std::string>{"KeyCancel click", "KeyDefault click"}));
}

TEST_F(Controls, Tab_WalksTheControlsInTheirOrder) {
    widget(sample->KeyN).setFocus();
    const Control* order[] = {&sample->Key1,    &sample->KeyDefault, &sample->KeyCancel,
                              &sample->Text1,   &sample->Check1,     &sample->Option1,
                              &sample->Option2, &sample->HScroll1,   &sample->Tabs1};
    for (const Control* next : order) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &widget(*next)) << next->name();
    }
}

TEST_F(Controls, TextField_TypedCharactersGoInAtTheCaret) {
    auto& line = dynamic_cast<QLineEdit&>(widget(sample->Text1));
    line.setFocus();
    line.setCursorPosition(2);
    QTest::keyClicks(&line, "xy");
    EXPECT_EQ(sample->Text1.text.get(), "Raxydio");
    EXPECT_EQ(line.cursorPosition(), 4);
    QTest::keyClick(&line, Qt::Key_Backspace);
    QTest::keyClick(&line, Qt::Key_Delete);
    EXPECT_EQ(sample->Text1.text.get(), "Raxio");
    EXPECT_EQ(line.text(), "Raxio");
}

TEST_F(Controls, TextField_FilterSwallowsAndReplacesTypedAndPastedCharacters) {
    sample->Text1.onTyped = [](char32_t typed) -> char32_t {
        if (typed == ',') return '.';
        return typed >= '0' && typed <= '9' ? typed : 0;
    };
    auto& line = dynamic_cast<QLineEdit&>(widget(sample->Text1));
    line.setFocus();
    line.selectAll();
    QTest::keyClicks(&line, "9a8,1");
    EXPECT_EQ(sample->Text1.text.get(), "98.1");
    EXPECT_EQ(line.text(), "98.1");
    QApplication::clipboard()->setText("x7,5y");
    line.selectAll();
    line.paste();
    EXPECT_EQ(sample->Text1.text.get(), "7.5");
    EXPECT_EQ(line.text(), "7.5");
}

TEST_F(Controls, TextField_TakesNoMoreThanItsLength) {
    sample->Text1.maxLength = 6;
    auto& line = dynamic_cast<QLineEdit&>(widget(sample->Text1));
    line.setFocus();
    line.end(false);
    QTest::keyClicks(&line, "s1z");
    EXPECT_EQ(sample->Text1.text.get(), "Radios");
    EXPECT_EQ(line.text(), "Radios");
}

TEST_F(Controls, TextField_PastedLettersBeyondAsciiCountAsOneCharacter) {
    auto& line = dynamic_cast<QLineEdit&>(widget(sample->Text1));
    line.setFocus();
    line.setCursorPosition(0);
    QApplication::clipboard()->setText(QString::fromUtf8("ñé"));
    line.paste();
    QTest::keyClicks(&line, "x");
    EXPECT_EQ(sample->Text1.text.get(), "ñéxRadio");
}

TEST_F(Controls, TextField_LockedTakesNothing) {
    sample->Text1.locked = true;
    settle();
    QTest::keyClicks(&widget(sample->Text1), "x");
    settle();
    EXPECT_EQ(sample->Text1.text.get(), "Radio");
}

TEST_F(Controls, TextField_ShowsWhatTheProgramAssigns) {
    sample->Text1.text = "Halden";
    settle();
    EXPECT_EQ(dynamic_cast<QLineEdit&>(widget(sample->Text1)).text(), "Halden");
}

TEST_F(Controls, ScreenReader_IsToldOptionsAsRadioButtonsAndDrawingsAsCharts) {
    showSample();
    const auto told = [this](Control& control) -> QAccessibleInterface& {
        return *QAccessible::queryAccessibleInterface(&widget(control));
    };
    EXPECT_EQ(told(sample->Check1).role(), QAccessible::CheckBox);
    EXPECT_EQ(told(sample->Chart1).role(), QAccessible::Chart);
    EXPECT_EQ(told(sample->Plot1).role(), QAccessible::Chart);
    EXPECT_EQ(told(sample->Combo1).text(QAccessible::Description).toStdString(),
              sample->Combo1.accessibleName());
    QAccessibleInterface& option = told(sample->Option2);
    EXPECT_EQ(option.role(), QAccessible::RadioButton);
    EXPECT_TRUE(option.state().checkable);
    EXPECT_FALSE(option.state().checked);
    EXPECT_FALSE(option.text(QAccessible::Name).isEmpty());
    EXPECT_EQ(option.text(QAccessible::Description), "") << "a screen reader would say it twice";
    const QString press = option.actionInterface()->actionNames().value(0);
    option.actionInterface()->doAction(press);
    settle();
    EXPECT_TRUE(sample->Option2.chosen);
    EXPECT_FALSE(sample->Option1.chosen);
    EXPECT_TRUE(option.state().checked);
    EXPECT_FALSE(told(sample->Option1).state().checked);
}

TEST_F(Controls, CheckBoxAndOptions_FollowTheHandAndTheProgram) {
    QWidget& check = widget(sample->Check1);
    QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, check.height() / 2));
    settle();
    EXPECT_TRUE(sample->Check1.checked);
    QWidget& option = widget(sample->Option2);
    QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
    settle();
    EXPECT_TRUE(sample->Option2.chosen);
    EXPECT_FALSE(sample->Option1.chosen);
    EXPECT_TRUE(sample->OptionApart.chosen);
    EXPECT_FALSE(dynamic_cast<QAbstractButton&>(widget(sample->Option1)).isChecked());
    sample->Check1.checked = false;
    settle();
    EXPECT_FALSE(dynamic_cast<QAbstractButton&>(check).isChecked());
}

TEST_F(Controls, ComboBox_KeyboardSelectsARow) {
    widget(sample->Combo1).setFocus();
    QTest::keyClick(&widget(sample->Combo1), Qt::Key_Down);
    settle();
    EXPECT_EQ(sample->Combo1.list.selected(), 1);
    sample->Combo1.select(2);
    settle();
    EXPECT_EQ(dynamic_cast<QComboBox&>(widget(sample->Combo1)).currentText(), "RMS");
}

TEST_F(Controls, ComboBox_EnterInItsOpenListChoosesAndPressesNoKeyOfTheForm) {
    auto& box = dynamic_cast<QComboBox&>(widget(sample->Combo1));
    box.setFocus();
    box.showPopup();
    ASSERT_TRUE(box.view()->isVisible());
    // Where the list could not grab the keyboard, its keys arrive at the window below.
    QWindow* window = box.window()->windowHandle();
    sample->heard.clear();
    QTest::keyClick(window, Qt::Key_Down);
    QTest::keyClick(window, Qt::Key_Return);
    settle();
    EXPECT_FALSE(box.view()->isVisible());
    EXPECT_EQ(sample->Combo1.list.selected(), 1);
    EXPECT_EQ(std::ranges::count(sample->heard, "KeyDefault click"), 0);

    QTest::keyClick(window, Qt::Key_Return);
    settle();
    EXPECT_EQ(std::ranges::count(sample->heard, "KeyDefault click"), 1);
}

TEST_F(Controls, ListBox_ClickSelectsAndDoubleClickActs) {
    auto& list = dynamic_cast<QListWidget&>(widget(sample->List1));
    const QPoint second = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    settle();
    EXPECT_EQ(sample->List1.list.selected(), 1);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
    settle();
    EXPECT_EQ(times("List1 double click"), 1);
}

TEST_F(Controls, ScrollBar_ArrowsPageKeysWheelAndClicksActAtOnce) {
    QWidget& bar = widget(sample->HScroll1);
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_Right);
    settle();
    EXPECT_EQ(sample->HScroll1.value, 111);
    QTest::keyClick(&bar, Qt::Key_PageDown);
    settle();
    EXPECT_EQ(sample->HScroll1.value, 101);
    QTest::keyClick(&bar, Qt::Key_End);
    settle();
    EXPECT_EQ(sample->HScroll1.value, 205);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(3, bar.height() / 2));
    settle();
    EXPECT_EQ(sample->HScroll1.value, 195);
    QWheelEvent up(QPointF(20, 5), bar.mapToGlobal(QPointF(20, 5)), {}, QPoint(0, 120),
                   Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&bar, &up);
    settle();
    EXPECT_EQ(sample->HScroll1.value, 196);
}

TEST_F(Controls, ScrollBar_DragShowsWhereItIsAndActsAtItsRelease) {
    auto& bar = dynamic_cast<ScrollBarWidget&>(widget(sample->HScroll1));
    const QPoint from = bar.thumb().center().toPoint();
    QTest::mousePress(&bar, Qt::LeftButton, {}, from);
    QTest::mouseMove(&bar, from + QPoint(60, 0));
    settle();
    EXPECT_EQ(sample->HScroll1.value, 110);
    EXPECT_GT(sample->HScroll1.thumb, 115);
    EXPECT_EQ(times("HScroll1 change"), 0);
    const int shown = sample->HScroll1.thumb;
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, from + QPoint(60, 0));
    settle();
    EXPECT_EQ(sample->HScroll1.value, shown);
    EXPECT_EQ(times("HScroll1 change"), 1);
}

TEST_F(Controls, Tabs_ClickShowsItsPage) {
    auto& tabs = dynamic_cast<QTabBar&>(widget(sample->Tabs1));
    EXPECT_FALSE(widget(sample->KeyPage2).isVisible());
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    settle();
    EXPECT_EQ(sample->Tabs1.current, 1);
    EXPECT_TRUE(widget(sample->KeyPage2).isVisible());
    QTest::mouseClick(&widget(sample->KeyPage2), Qt::LeftButton);
    settle();
    EXPECT_EQ(times("KeyPage2 click"), 1);
}

TEST_F(Controls, PictureBox_DoubleClickAndEnterAct) {
    QTest::mouseDClick(&widget(sample->PictureBox1), Qt::LeftButton);
    settle();
    EXPECT_EQ(times("PictureBox1 double click"), 1);
    widget(sample->PictureBox1).setFocus();
    QTest::keyClick(&widget(sample->PictureBox1), Qt::Key_Return);
    settle();
    EXPECT_EQ(times("PictureBox1 double click"), 2);
}

TEST_F(Controls, Handle_HearsThePointer) {
    const QPoint at(view(*sample).width() / 2, 5);
    QTest::mousePress(&view(*sample), Qt::LeftButton, {}, at);
    QTest::mouseMove(&view(*sample), at + QPoint(4, 0));
    QTest::mouseRelease(&view(*sample), Qt::LeftButton, {}, at + QPoint(4, 0));
    settle();
    EXPECT_GE(times("Handle1 down"), 1);
    EXPECT_GE(times("Handle1 move"), 1);
    EXPECT_EQ(times("Handle1 up"), 1);
    QTest::mouseDClick(&view(*sample), Qt::LeftButton, {}, at);
    settle();
    EXPECT_EQ(times("Handle1 double click"), 1);
}

TEST_F(Controls, DisabledControl_HearsNothingAndEnabledAgainItDoes) {
    sample->Key1.enabled = false;
    settle();
    EXPECT_FALSE(widget(sample->Key1).isEnabled());
    QTest::mouseClick(&widget(sample->Key1), Qt::LeftButton);
    settle();
    EXPECT_EQ(times("Key1 click"), 0);
    sample->Key1.enabled = true;
    settle();
    QTest::mouseClick(&widget(sample->Key1), Qt::LeftButton);
    settle();
    EXPECT_EQ(times("Key1 click"), 1);
}

TEST_F(Controls, ScrollBar_DisabledInTheMiddleOfADrag_LetsTheThumbGo) {
    auto& bar = dynamic_cast<ScrollBarWidget&>(widget(sample->HScroll1));
    sample->HScroll1.value = 10;
    settle();
    const QPoint grip = bar.thumb().center().toPoint();
    QTest::mousePress(&bar, Qt::LeftButton, {}, grip);
    QMouseEvent move(QEvent::MouseMove, grip + QPoint(30, 0), bar.mapToGlobal(grip + QPoint(30, 0)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&bar, &move);
    settle();
    ASSERT_TRUE(sample->HScroll1.dragging);
    sample->HScroll1.enabled = false;
    settle();
    EXPECT_FALSE(sample->HScroll1.dragging);
    EXPECT_EQ(sample->HScroll1.thumb, 10);
    sample->HScroll1.enabled = true;
    settle();
    QApplication::sendEvent(&bar, &move);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, grip + QPoint(30, 0));
    settle();
    EXPECT_EQ(sample->HScroll1.value, 10);
}

TEST_F(Controls, WordsWithAnAmpersand_ShowIt) {
    sample->Check1.caption = "Treble & bass";
    sample->Option1.caption = "A&B";
    settle();
    EXPECT_EQ(dynamic_cast<QAbstractButton&>(widget(sample->Check1)).text(), "Treble && bass");
    EXPECT_EQ(dynamic_cast<QAbstractButton&>(widget(sample->Option1)).text(), "A&&B");
}

TEST_F(Controls, DisabledForm_DisablesEveryWidget) {
    sample->enabled = false;
    settle();
    EXPECT_FALSE(widget(sample->Key1).isEnabled());
    EXPECT_FALSE(widget(sample->Text1).isEnabled());
    sample->enabled = true;
    settle();
    EXPECT_TRUE(widget(sample->Key1).isEnabled());
}

TEST_F(Controls, NamesAndTips_FollowTheLanguage) {
    EXPECT_EQ(widget(sample->KeyN).accessibleName(), "Peak");
    EXPECT_EQ(widget(sample->KeyN).toolTip(), "Shows the peak");
    sample->language = Language::Spanish;
    settle();
    EXPECT_EQ(widget(sample->KeyN).accessibleName(), "Pico");
    EXPECT_EQ(widget(sample->KeyN).toolTip(), "Muestra el pico");
}

}  // namespace display::qt
