// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/key_widgets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcut>
#include <QWidget>

#include "display/qt/accessibility/arrow_focus.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/painting/key_cap.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/surfaces.h"
#include "display/qt/widgets/view_scale.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

void paintFocusRing(QPainter& painter, const QRectF& box) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(kFocus), 1.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(1.8, 1.8, -1.8, -1.8), 3.5, 3.5);
}

Qt::FocusPolicy focusPolicyOf(const Control& control, Qt::FocusPolicy outside) {
    if (control.tabIndex == 0) return outside;
    return control.leavesFocus ? Qt::TabFocus : Qt::StrongFocus;
}

namespace {

bool pressesKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return ||
           event.key() == Qt::Key_Enter;
}

}  // namespace

PictureKeyWidget::PictureKeyWidget(QtDesktop& desktop, Picture& key, QWidget* parent)
    : QAbstractButton(parent), desktop_(desktop), key_(key) {
    setMouseTracking(true);
    // Only assistive tools come here; mouse and keyboard have handlers of their own.
    connect(this, &QAbstractButton::clicked, this, [this] { desktop_.hand().click(key_); });
}

void PictureKeyWidget::takeShortcut() {
    if (key_.shortcut.empty() == !shortcut_) return;
    delete shortcut_;
    shortcut_ = nullptr;
    if (key_.shortcut.empty()) return;
    shortcut_ = new QShortcut(QKeySequence(qText(key_.shortcut)), this);
    shortcut_->setContext(Qt::WindowShortcut);
    shortcut_->setAutoRepeat(false);
    connect(shortcut_, &QShortcut::activated, this, [this] { desktop_.hand().click(key_); });
}

void PictureKeyWidget::sync() {
    takeShortcut();
    setFocusPolicy(focusPolicyOf(key_));
}

void PictureKeyWidget::press(HeldBy by) {
    if (held_ != HeldBy::Nothing) return;
    held_ = by;
    desktop_.hand().press(key_);
}

void PictureKeyWidget::letGo(bool onIt) {
    if (held_ == HeldBy::Nothing) return;
    held_ = HeldBy::Nothing;
    if (onIt) {
        desktop_.hand().release(key_);
    } else {
        desktop_.hand().cancel(key_);
    }
}

void PictureKeyWidget::paintEvent(QPaintEvent*) {
    if (!hasFocus() || !desktop_.keyboardUsed()) return;
    QPainter painter(this);
    paintFocusRing(painter, rect());
}

void PictureKeyWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) press(HeldBy::Mouse);
}

void PictureKeyWidget::mouseMoveEvent(QMouseEvent* event) {
    // A key that is also a handle gets the pointer's moves as well.
    if (!key_.onMouseMove) return;
    const Scale scale = viewScale(*this, desktop_);
    const Mouse at{static_cast<float>(scale.twips(event->position().x())),
                   static_cast<float>(scale.twips(event->position().y())),
                   event->buttons().testFlag(Qt::LeftButton)};
    desktop_.hand().mouseMove(key_, at);
}

void PictureKeyWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && held_ == HeldBy::Mouse) {
        letGo(rect().contains(event->position().toPoint()));
    }
}

void PictureKeyWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    if (key_.onDoubleClick) desktop_.hand().doubleClick(key_);
}

void PictureKeyWidget::keyPressEvent(QKeyEvent* event) {
    if (!pressesKey(*event)) {
        event->ignore();
    } else if (!event->isAutoRepeat()) {
        press(HeldBy::Keyboard);
    }
}

void PictureKeyWidget::keyReleaseEvent(QKeyEvent* event) {
    if (!pressesKey(*event)) {
        event->ignore();
    } else if (!event->isAutoRepeat() && held_ == HeldBy::Keyboard) {
        letGo(true);
    }
}

void PictureKeyWidget::focusOutEvent(QFocusEvent* event) {
    if (held_ == HeldBy::Keyboard) letGo(false);
    QAbstractButton::focusOutEvent(event);
    update();
}

void PictureKeyWidget::changeEvent(QEvent* event) {
    // A disabled widget gets no release event.
    if (event->type() == QEvent::EnabledChange && !isEnabled()) letGo(false);
    QAbstractButton::changeEvent(event);
}

void PictureKeyWidget::hideEvent(QHideEvent* event) {
    held_ = HeldBy::Nothing;
    QAbstractButton::hideEvent(event);
}

KeyWidget::KeyWidget(QtDesktop& desktop, Key& key, QWidget* parent)
    : QAbstractButton(parent), desktop_(desktop), key_(key) {
    connect(this, &QAbstractButton::clicked, this, [this] { desktop_.hand().click(key_); });
}

void KeyWidget::takeShortcut() {
    if (key_.shortcut.empty() == !shortcut_) return;
    delete shortcut_;
    shortcut_ = nullptr;
    if (key_.shortcut.empty()) return;
    // Works wherever the focus is in the window; holding it down presses the key repeatedly.
    shortcut_ = new QShortcut(QKeySequence(qText(key_.shortcut)), this);
    shortcut_->setContext(Qt::WindowShortcut);
    connect(shortcut_, &QShortcut::activated, this, [this] { desktop_.hand().click(key_); });
}

void KeyWidget::sync() {
    takeShortcut();
    setFocusPolicy(focusPolicyOf(key_));
    setText(qText(key_.caption));
    update();
}

void paintPushKey(QPainter& painter, const QRectF& box, const PushKeyLook& look) {
    (look.usable ? paintCap : paintDimCap)(painter, box, look.unit, look.cap);
    QColor colour(look.cap == Cap::Lit ? kLitText : kKeyText);
    if (look.cap == Cap::Dark && !(look.colour == kWhite))
        colour = legibleOn(QColor(kKeyTop), qColour(look.colour));
    if (!look.usable) colour = QColor(kKeyTextOff);
    paintCapText(painter, box, look.unit, colour, look.words);
}

void KeyWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPushKey(painter, rect(),
                 {text(), key_.colour, key_.lit || isDown() ? Cap::Lit : Cap::Dark,
                  viewScale(*this, desktop_).px(10), isEnabled()});
    if (hasFocus() && desktop_.keyboardUsed()) paintFocusRing(painter, rect());
}

void KeyWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) desktop_.hand().click(key_);
    } else if (event->key() == Qt::Key_Escape) {
        event->ignore();
    } else if (!moveFocusByArrow(*this, event->key())) {
        QAbstractButton::keyPressEvent(event);
    }
}

namespace {

/// The text beside a check box is dark on a light plate.
void dressWords(QWidget& widget, const Control& control, const QtDesktop& desktop) {
    widget.setFocusPolicy(focusPolicyOf(control));
    widget.setFont(Fonts::get().font(viewScale(widget, desktop).px(120), Weight::Normal));
    QPalette colours = housePalette();
    // The style derives the edge of the box from this colour, darker: an empty box must be visible.
    colours.setColor(QPalette::Window, QColor(0xb0, 0xb8, 0xc2));
    if (standsOnLight(control)) {
        colours.setColor(QPalette::Active, QPalette::WindowText, QColor(kLitText));
        colours.setColor(QPalette::Inactive, QPalette::WindowText, QColor(kLitText));
        colours.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x5c, 0x64, 0x6e));
    }
    widget.setPalette(colours);
}

}  // namespace

CheckBoxWidget::CheckBoxWidget(QtDesktop& desktop, CheckBox& box, QWidget* parent)
    : QCheckBox(parent), desktop_(desktop), box_(box) {
    connect(this, &QCheckBox::clicked, this, [this](bool on) { desktop_.hand().check(box_, on); });
}

void CheckBoxWidget::sync() {
    dressWords(*this, box_, desktop_);
    setText(plainWords(box_.caption));
    setChecked(box_.checked);
}

OptionWidget::OptionWidget(QtDesktop& desktop, Option& option, QWidget* parent)
    : QRadioButton(parent), desktop_(desktop), option_(option) {
    setAutoExclusive(false);
    connect(this, &QRadioButton::clicked, this, [this] {
        setChecked(option_.chosen);
        desktop_.hand().choose(option_);
    });
}

void OptionWidget::sync() {
    dressWords(*this, option_, desktop_);
    setText(plainWords(option_.caption));
    setChecked(option_.chosen);
}

}  // namespace display::qt
