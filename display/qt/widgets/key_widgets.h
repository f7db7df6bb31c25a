// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QPainter>
#include <QRadioButton>
#include <QString>
#include <QWidget>

#include "display/controls/buttons.h"
#include "display/controls/pictures.h"
#include "display/qt/painting/key_cap.h"
#include "display/qt/widgets/control_widget.h"

class QShortcut;

namespace display::qt {

/// The input of a key whose pictures the form's surface paints: a press, then a release on it or a
/// cancel. Space and Enter press it while they are held. The widget itself paints only the focus
/// ring.
class PictureKeyWidget final : public QAbstractButton, public ControlWidget {
 public:
    PictureKeyWidget(QtDesktop& desktop, Picture& key, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    enum class HeldBy { Nothing, Mouse, Keyboard };
    void takeShortcut();
    void press(HeldBy by);
    void letGo(bool onIt);

    QtDesktop& desktop_;
    Picture& key_;
    HeldBy held_ = HeldBy::Nothing;
    QShortcut* shortcut_ = nullptr;  ///< owned by the widget
};

/// A push button with a caption.
class KeyWidget final : public QAbstractButton, public ControlWidget {
 public:
    KeyWidget(QtDesktop& desktop, Key& key, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void takeShortcut();

    QtDesktop& desktop_;
    Key& key_;
    QShortcut* shortcut_ = nullptr;  ///< owned by the widget
};

class CheckBoxWidget final : public QCheckBox, public ControlWidget {
 public:
    CheckBoxWidget(QtDesktop& desktop, CheckBox& box, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 private:
    QtDesktop& desktop_;
    CheckBox& box_;
};

class OptionWidget final : public QRadioButton, public ControlWidget {
 public:
    OptionWidget(QtDesktop& desktop, Option& option, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 private:
    QtDesktop& desktop_;
    Option& option_;
};

/// Paints a push button, for the screen and for paper. `unit` is one pixel at the natural size (ten
/// twips) in the painter's units.
struct PushKeyLook {
    QString words;
    Colour colour = kWhite;
    Cap cap = Cap::Dark;
    qreal unit = 1;
    bool usable = true;
};
void paintPushKey(QPainter& painter, const QRectF& box, const PushKeyLook& look);

/// Paints the focus ring inside the edge of a widget.
void paintFocusRing(QPainter& painter, const QRectF& box);
/// Puts the widget into the Tab order or takes it out, as the control says.
Qt::FocusPolicy focusPolicyOf(const Control& control, Qt::FocusPolicy outside = Qt::NoFocus);

}  // namespace display::qt
