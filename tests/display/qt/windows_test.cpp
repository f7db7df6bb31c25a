// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTimer>

#include "display/qt/windows/form_window.h"
#include "display/qt/windows/rack_window.h"
#include "tests/display/qt/rack_of_two.h"

namespace display::qt {

class Windows : public QtBench {};

TEST_F(Windows, Show_PutsTheFormWhereTheModelSaysWithItsTitle) {
    showSample();
    const QWidget* window = view(*sample).window();
    EXPECT_EQ(window->windowTitle(), "Sample");
    EXPECT_EQ(window->pos(), desktop->screenPoint(sample->left, sample->top));
    EXPECT_EQ(window->size(), view(*sample).scale().whole(Box{0, 0, 9000, 6000}).size());
}

TEST_F(Windows, WindowManagerClose_AsksTheFormAndHidesWhenItDoes) {
    showSample();
    QWidget* window = view(*sample).window();
    sample->staysOpen = true;
    window->close();
    settle();
    EXPECT_EQ(times("close"), 1);
    EXPECT_TRUE(window->isVisible());
    sample->staysOpen = false;
    window->close();
    settle();
    EXPECT_EQ(times("close"), 2);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Windows, MovedWindow_ModelFollowsAndTheOtherWayRound) {
    showSample();
    QWidget* window = view(*sample).window();
    QTest::qWait(450);
    window->move(90, 70);
    settle();
    EXPECT_NEAR(sample->left, desktop->modelX(90), 0.5);
    EXPECT_NEAR(sample->top, desktop->modelY(70), 0.5);
    sample->left = desktop->modelX(40);
    settle();
    EXPECT_EQ(window->pos(), QPoint(40, 70));
}

TEST_F(Windows, Topmost_SetsTheFlag) {
    sample->load();
    sample->topmost = true;
    showSample();
    EXPECT_TRUE(view(*sample).window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(Windows, FormWithoutCaption_HasNoFrame) {
    sample->load();
    sample->caption = "";
    showSample();
    EXPECT_TRUE(view(*sample).window()->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(Windows, FormPlacedOutside_ComesUpWholeOnTheScreen) {
    sample->load();
    sample->left = 90000.f;
    sample->top = -4000.f;
    showSample();
    const QRect room = desktop->availableRoom(), box = view(*sample).window()->geometry();
    EXPECT_LE(box.right(), room.right());
    EXPECT_LE(box.bottom(), room.bottom());
    EXPECT_GE(box.left(), room.left());
    EXPECT_GE(box.top(), room.top());
}

TEST_F(Windows, Modal_ReturnsWhenTheFormIsHiddenAndTheOthersHearNothing) {
    showSample();
    test::SampleForm asked(*desktop, "Asked");
    bool otherWasEnabled = true;
    asked.Key1.onClick = [&asked] { asked.hide(); };
    QTimer later;
    int looks = 0;
    QObject::connect(&later, &QTimer::timeout, &later, [&] {
        // It is painted before it becomes modal, which may take a while on a busy machine.
        otherWasEnabled = view(*sample).isEnabled();
        if (otherWasEnabled && ++looks < 20) return;
        later.stop();
        QTest::mouseClick(&widget(sample->Key1), Qt::LeftButton);
        QTest::mouseClick(&widget(asked.Key1), Qt::LeftButton);
    });
    later.start(150);
    asked.showModal();
    EXPECT_FALSE(asked.visible);
    EXPECT_FALSE(otherWasEnabled);
    settle();
    EXPECT_EQ(times("Key1 click"), 0);
    EXPECT_TRUE(view(*sample).isEnabled());
}

TEST_F(Windows, MessageBox_WaitsForItsKeyWhileTimersTick) {
    showSample();
    desktop->queue().openGate();
    sample->Timer1.enabled = true;
    QString title, text;
    QTimer later;
    later.setSingleShot(true);
    QObject::connect(&later, &QTimer::timeout, &later, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        title = box->windowTitle();
        text = box->text();
        QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
    });
    later.start(500);
    desktop->messageBox({"HMonitor", "File not found: normal.hm", BoxIcon::Critical});
    EXPECT_EQ(title, "HMonitor");
    EXPECT_EQ(text, "File not found: normal.hm");
    EXPECT_GE(times("Timer1 tick"), 2);
}

TEST_F(Windows, Question_IsAnsweredByItsKeysAndCancelledByEscape) {
    showSample();
    desktop->queue().openGate();
    const auto answered = [&](const std::function<void(QMessageBox&)>& act) {
        QTimer later;
        later.setSingleShot(true);
        QObject::connect(&later, &QTimer::timeout, &later, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->buttons().size(), 2);
            act(*box);
        });
        later.start(150);
        return desktop->ask({"ATENCION!", "Delete?", BoxIcon::None});
    };
    const auto press = [](QMessageBox::ButtonRole role) {
        return [role](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons())
                if (box.buttonRole(button) == role) QTest::mouseClick(button, Qt::LeftButton);
        };
    };
    EXPECT_EQ(answered(press(QMessageBox::AcceptRole)), BoxAnswer::Ok);
    EXPECT_EQ(answered(press(QMessageBox::RejectRole)), BoxAnswer::Cancel);
    EXPECT_EQ(answered([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              BoxAnswer::Cancel);
}

TEST_F(Windows, Shortcut_PressesItsKeyFromWhereverTheKeyboardIs) {
    sample->load();
    sample->Key1.shortcut = "Ctrl+X";
    showSample();
    desktop->queue().openGate();
    sample->heard.clear();
    QTest::keyClick(&widget(sample->KeyDefault), Qt::Key_X, Qt::ControlModifier);
    QTest::qWait(60);
    EXPECT_EQ(times("Key1 click"), 1);
}

TEST_F(Windows, Shortcut_ClicksAPictureKeyToo) {
    sample->load();
    sample->KeyN.shortcut = "F3";
    showSample();
    desktop->queue().openGate();
    sample->heard.clear();
    QTest::keyClick(&widget(sample->KeyDefault), Qt::Key_F3);
    QTest::qWait(60);
    EXPECT_EQ(times("KeyN click"), 1);
}

TEST_F(Windows, EndInsideAModalForm_LeavesEveryLoopAtOnce) {
    test::SampleForm asked(*desktop, "Asked");
    asked.Key1.onClick = [this] { desktop->end(); };
    bool ranOn = false;
    QTimer later;
    later.setSingleShot(true);
    QObject::connect(&later, &QTimer::timeout, &later,
                     [&] { QTest::mouseClick(&widget(asked.Key1), Qt::LeftButton); });
    later.start(150);
    const int status = desktop->run([&] {
        asked.showModal();
        ranOn = true;
    });
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(ranOn);
    EXPECT_TRUE(desktop->ended());
}

TEST_F(Windows, LetEventsThrough_BeforeTheGateIsOpenOnlyPaints) {
    showSample();
    sample->Timer1.enabled = true;
    QTest::qWait(0);
    sample->heard.clear();
    sample->LabelValue.caption = "81.0";
    bool inside = false;
    sample->Key1.onClick = [&] {
        inside = true;
        desktop->hand().click(sample->KeyDefault);
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < 250) desktop->letEventsThrough();
        EXPECT_EQ(times("KeyDefault click"), 0);
        EXPECT_EQ(times("Timer1 tick"), 0);
    };
    QTest::mouseClick(&widget(sample->Key1), Qt::LeftButton);
    settle();
    EXPECT_TRUE(inside);
    EXPECT_EQ(times("KeyDefault click"), 1);
}

TEST_F(Windows, LetEventsThrough_WithTheGateOpenDeliversTimersAndKeys) {
    showSample();
    desktop->queue().openGate();
    sample->Timer1.enabled = true;
    int ticks = 0, clicks = 0;
    sample->Key1.onClick = [&] {
        desktop->hand().click(sample->KeyDefault);
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < 350) desktop->letEventsThrough();
        ticks = times("Timer1 tick");
        clicks = times("KeyDefault click");
    };
    QTest::mouseClick(&widget(sample->Key1), Qt::LeftButton);
    settle();
    EXPECT_GE(ticks, 2);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Windows, Hourglass_IsTheOverrideCursorAndGoesAgain) {
    desktop->pointer(PointerShape::Hourglass);
    desktop->pointer(PointerShape::Hourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop->pointer(PointerShape::Arrow);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Windows, Focus_GoesBackToTheKeyThatOpenedAWindow) {
    showSample();
    test::SampleForm opened(*desktop, "Opened");
    widget(sample->Key1).setFocus();
    sample->Key1.onClick = [&] {
        sample->enabled = false;
        opened.show();
    };
    opened.KeyCancel.onClick = [&] {
        opened.hide();
        sample->enabled = true;
    };
    QTest::keyClick(&widget(sample->Key1), Qt::Key_Return);
    ASSERT_TRUE(until([&] {
        return desktop->viewOf(opened) &&
               QApplication::activeWindow() == desktop->viewOf(opened)->window();
    }));
    settle();
    EXPECT_FALSE(widget(sample->Key1).isEnabled());
    QTest::keyClick(&view(opened), Qt::Key_Escape);
    EXPECT_TRUE(until([&] { return QApplication::focusWidget() == &widget(sample->Key1); }));
}

TEST_F(Windows, OpenedAgain_BeginsAtTheFirstControlOfTheTabOrder) {
    showSample();
    EXPECT_TRUE(widget(sample->KeyN).hasFocus());
    widget(sample->Check1).setFocus();
    sample->hide();
    settle();
    sample->show();
    settle();
    EXPECT_EQ(view(*sample).window()->focusWidget(), &widget(sample->KeyN));
}

TEST_F(Windows, GivenFocus_ComesWithTheWindowThatOpens) {
    sample->show();
    sample->Text1.takeFocus();
    ASSERT_TRUE(until([&] { return widget(sample->Text1).hasFocus(); }));
    QTest::keyClicks(QApplication::focusWidget(), "7");
    settle();
    EXPECT_NE(sample->Text1.text.get().find('7'), std::string::npos);
}

TEST_F(Windows, GivenFocus_WaitsForAControlThatCannotTakeItYet) {
    showSample();
    sample->Text1.enabled = false;
    settle();
    sample->Text1.takeFocus();
    settle();
    EXPECT_FALSE(widget(sample->Text1).hasFocus());
    sample->Text1.enabled = true;
    desktop->frameSoon();
    EXPECT_TRUE(until([&] { return widget(sample->Text1).hasFocus(); }));
}

TEST_F(Windows, ClickOnAKeyThatLeavesTheFocus_TypedDigitsStillReachTheField) {
    sample->load();
    sample->Key1.leavesFocus = true;
    showSample();
    sample->Text1.takeFocus();
    QTest::mouseClick(&widget(sample->Key1), Qt::LeftButton);
    settle();
    EXPECT_EQ(times("Key1 click"), 1);
    QTest::keyClicks(QApplication::focusWidget(), "8");
    settle();
    EXPECT_NE(sample->Text1.text.get().find('8'), std::string::npos);
}

TEST_F(Windows, FocusedControlDisabledOrHidden_TheNextInTheTabOrderHasIt) {
    showSample();
    widget(sample->Key1).setFocus();
    sample->Key1.enabled = false;
    sample->KeyDefault.enabled = false;
    settle();
    EXPECT_EQ(QApplication::focusWidget(), &widget(sample->KeyCancel));
    sample->KeyCancel.visible = false;
    settle();
    EXPECT_EQ(QApplication::focusWidget(), &widget(sample->Text1));
}

TEST_F(Windows, NoControlHasTheKeyboard_EscapeStillReachesTheForm) {
    showSample();
    QApplication::focusWidget()->clearFocus();
    ASSERT_EQ(QApplication::focusWidget(), nullptr);
    settle();
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(times("KeyCancel click"), 1);
}

TEST_F(RackOfTwo, StandsInOneWindowOneUnitUnderTheOther) {
    EXPECT_EQ(upper.resizes, 1);
    const QWidget* window = desktop->rackWindow();
    EXPECT_EQ(view(upper).window(), window);
    EXPECT_EQ(view(lower).window(), window);
    EXPECT_EQ(view(upper).pos(), QPoint(0, 0));
    EXPECT_EQ(view(lower).pos(), QPoint(0, view(upper).height()));
    EXPECT_EQ(window->height(), view(upper).height() + view(lower).height());
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(RackOfTwo, UnitThatIsLoadedLater_ComesWithTheRacksMove) {
    // The bench has moved nothing yet; the first unit's layout places it at 500, 400.
    const float across = upper.left - 500, down = upper.top - 400;
    lower.unload();
    lower.load();
    EXPECT_NEAR(lower.left, 500 + across, 0.5);
    EXPECT_NEAR(lower.top, 0 + down, 0.5);
}

TEST_F(RackOfTwo, HiddenUnit_LeavesTheWindow) {
    lower.hide();
    settle();
    EXPECT_EQ(desktop->rackWindow()->height(), view(upper).height());
    lower.show();
    settle();
    EXPECT_EQ(desktop->rackWindow()->height(), view(upper).height() + view(lower).height());
}

TEST_F(RackOfTwo, MovedByTheWindowManager_AllModelsFollow) {
    const float across = lower.left, down = lower.top;
    const QPoint before = desktop->rackWindow()->pos();
    desktop->rackWindow()->move(before + QPoint(30, 20));
    settle();
    EXPECT_NEAR(lower.left - across, desktop->modelX(30), 10);
    EXPECT_NEAR(lower.top - down, desktop->modelY(20), 10);
    EXPECT_NEAR(lower.top, upper.top + upper.height, 1);
}

TEST_F(RackOfTwo, MovedByItsModel_TheWindowFollowsAndThePanelsKeepTheirPlaces) {
    for (Form* form : {static_cast<Form*>(&upper), static_cast<Form*>(&lower)}) {
        form->left = form->left + desktop->modelX(25);
        form->top = form->top + desktop->modelY(15);
    }
    settle();
    EXPECT_EQ(desktop->rackWindow()->pos(), desktop->screenPoint(upper.left, upper.top));
    EXPECT_EQ(view(lower).pos(), QPoint(0, view(upper).height()));
}

TEST_F(RackOfTwo, DraggedByTheHandle_FollowsThePointerWithoutJitter) {
    float grippedX = 0;
    std::vector<float> offsets;
    upper.Handle.onMouseDown = [&](const Mouse& at) { grippedX = at.x; };
    upper.Handle.onMouseMove = [&](const Mouse& at) {
        if (!at.left) return;
        offsets.push_back(at.x - grippedX);
        upper.left = upper.left + (at.x - grippedX);
        lower.left = lower.left + (at.x - grippedX);
    };
    const QPoint start = desktop->rackWindow()->pos();
    const QPoint grip = desktop->rackWindow()->mapToGlobal(QPoint(50, 10));
    auto send = [&](QEvent::Type type, int across, Qt::MouseButtons buttons) {
        const QPointF global = grip + QPoint(across, 0);
        QMouseEvent event(type, view(upper).mapFromGlobal(global), global,
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, {});
        QApplication::sendEvent(&view(upper), &event);
    };
    send(QEvent::MouseButtonPress, 0, Qt::LeftButton);
    // Three moves before the window has followed the first: each adds only its own distance.
    for (const int across : {10, 20, 30}) send(QEvent::MouseMove, across, Qt::LeftButton);
    settle();
    send(QEvent::MouseButtonRelease, 30, Qt::NoButton);
    settle();
    ASSERT_EQ(offsets.size(), 3u);
    for (const float offset : offsets) EXPECT_NEAR(offset, desktop->modelX(10), 0.1);
    EXPECT_EQ(desktop->rackWindow()->pos(), start + QPoint(30, 0));
}

TEST_F(RackOfTwo, FoldAndUnfold_RaiseOneResizeEach) {
    upper.resizes = 0;
    upper.minimise();
    settle();
    EXPECT_EQ(upper.resizes, 1);
    EXPECT_TRUE(desktop->rackWindow()->isMinimized());
    desktop->rackWindow()->showNormal();
    settle();
    EXPECT_EQ(upper.resizes, 2);
    EXPECT_EQ(upper.windowState.get(), WindowState::Normal);
}

TEST_F(RackOfTwo, FoldedAndActivatedBeforeTheFoldWasHeardOf_UnfoldsWhole) {
    upper.minimise();
    upper.resizes = 0;
    // What the program sees if the user is faster than the window manager: the window was left and
    // activated again, and nobody has reported that it is restored.
    for (const auto type : {QEvent::WindowDeactivate, QEvent::WindowActivate}) {
        QEvent event(type);
        QApplication::sendEvent(desktop->rackWindow(), &event);
    }
    settle();
    EXPECT_EQ(upper.windowState.get(), WindowState::Normal);
    EXPECT_EQ(upper.resizes, 1);
    EXPECT_FALSE(desktop->rackWindow()->isMinimized());
}

TEST_F(RackOfTwo, FoldedAndOnlyLeft_StaysFolded) {
    upper.minimise();
    QEvent left(QEvent::WindowDeactivate);
    QApplication::sendEvent(desktop->rackWindow(), &left);
    settle();
    EXPECT_EQ(upper.windowState.get(), WindowState::Minimised);
    EXPECT_TRUE(desktop->rackWindow()->isMinimized());
}

TEST_F(RackOfTwo, FoldedWhereNothingFoldsWindows_ComesBackByItself) {
    QApplication::setActiveWindow(desktop->rackWindow());
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop->rackWindow()));
    upper.minimise();
    EXPECT_EQ(upper.windowState.get(), WindowState::Minimised);
    EXPECT_TRUE(until([&] { return upper.windowState == WindowState::Normal; }));
}

TEST_F(RackOfTwo, WindowManagerClose_AsksTheFirstUnit) {
    desktop->rackWindow()->close();
    settle();
    EXPECT_EQ(upper.closes, 1);
    EXPECT_TRUE(desktop->rackWindow()->isVisible());
}

TEST_F(RackOfTwo, OneUnitDisabled_TheOtherStillHears) {
    int moved = 0;
    upper.Handle.onMouseMove = [&](const Mouse&) { ++moved; };
    lower.Handle.onMouseMove = [&](const Mouse&) { ++moved; };
    upper.enabled = false;
    settle();
    QTest::mouseMove(&view(upper), QPoint(20, 20));
    settle();
    moved = 0;
    QTest::mouseMove(&view(upper), QPoint(40, 20));
    settle();
    EXPECT_EQ(moved, 0);
    QTest::mouseMove(&view(lower), QPoint(20, 20));
    settle();
    EXPECT_GT(moved, 0);
}

}  // namespace display::qt
