// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/form_window.h"

#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QString>
#include <QWindow>
#include <algorithm>

#include "display/drawing_export.h"
#include "display/qt/painting/palette.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

/// While the window manager adds its frame to a new window, the reported position changes by the
/// frame's size. No user drags a window that soon after it is shown.
constexpr qint64 kFraming = 400;

/// How long an edge that is dragged rests before the window takes the shape of its form.
constexpr int kLetGoMs = 400;
/// How much smaller and larger than it comes up a window may be made.
constexpr qreal kSmallestZoom = 0.6;
constexpr qreal kLargestZoom = 4;

}  // namespace

FormWindow::FormWindow(QtDesktop& desktop, Form& form)
    : QWidget(nullptr), desktop_(desktop), form_(form), view_(desktop, form, this) {
    setObjectName(QString::fromStdString(form.name()) + "Window");
    resizable_ = hasDrawings(form);
    settled_.setSingleShot(true);
    settled_.setInterval(kLetGoMs);
    connect(&settled_, &QTimer::timeout, this, [this] {
        answered_ = size();
        resize(wantedSize());
    });
    setWindowFlags(wantedFlags());
}

Qt::WindowFlags FormWindow::wantedFlags() const {
    // On X only a dialog is tied to the window that it belongs to.
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint;
    if (form_.caption.empty()) {
        flags |= Qt::FramelessWindowHint;
    } else {
        flags |= Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    }
    if (form_.topmost) flags |= Qt::WindowStaysOnTopHint;
    return flags;
}

void FormWindow::placeFirst(const QWidget* over) {
    const QRect room = desktop_.roomFor(form_);
    QRect box(pos(), size());
    if (form_.left == 0.f && form_.top == 0.f) {
        box.moveCenter(over ? over->geometry().center() : room.center());
    } else {
        box.moveTopLeft(desktop_.screenPoint(form_.left, form_.top));
    }
    // The whole window is on the screen if it fits, its upper left corner in any case.
    box.moveRight(std::min(box.right(), room.right()));
    box.moveBottom(std::min(box.bottom(), room.bottom()));
    box.moveLeft(std::max(box.left(), room.left()));
    box.moveTop(std::max(box.top(), room.top()));
    move(box.topLeft());
    form_.left = desktop_.modelX(box.left());
    form_.top = desktop_.modelY(box.top());
}

void FormWindow::appear(const QWidget* over, const QWidget* above) {
    placing_ = true;
    sync();
    placeFirst(over);
    if (above && !windowHandle()) winId();
    if (above && above->windowHandle()) windowHandle()->setTransientParent(above->windowHandle());
    placing_ = false;
    shownSince_.start();
    show();
    raise();
    activateWindow();
    // At each show, whatever had the focus when the window was closed.
    view_.focusFirst();
}

void FormWindow::sync() {
    if (windowFlags() != wantedFlags()) {
        const bool shown = isVisible();
        setWindowFlags(wantedFlags());
        if (shown) show();
    }
    const QString title = qText(form_.caption.get());
    if (windowTitle() != title) setWindowTitle(title);
    if (title.isEmpty()) setAccessibleName(spokenName(form_));
    const QSize size = wantedSize();
    if (view_.size() != size) view_.resize(size);
    sizeFor(size);
    if (isVisible() && !placing_ && shownSince_.elapsed() >= kFraming) {
        const QPoint wanted = desktop_.screenPoint(form_.left, form_.top);
        if (wanted != pos()) move(wanted);
    }
    view_.sync();
}

QSize FormWindow::wantedSize() const {
    return view_.wantedScale().whole(Box{0, 0, form_.width, form_.height}).size();
}

void FormWindow::sizeFor(const QSize& wanted) {
    if (!resizable_) {
        if (size() != wanted || minimumSize() != wanted) setFixedSize(wanted);
        return;
    }
    if (sized_ == wanted) return;
    sized_ = wanted;
    const QSizeF natural = QSizeF(wanted) / view_.zoom();
    setMinimumSize((natural * kSmallestZoom).toSize());
    // While an edge is dragged the window manager says how large the window is.
    if (!settled_.isActive()) resize(wanted);
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!resizable_ || placing_ || !isVisible() || event->size() == sized_) return;
    const QSizeF natural = QSizeF(sized_) / view_.zoom();
    view_.zoom(std::clamp(std::min(event->size().width() / natural.width(),
                                   event->size().height() / natural.height()),
                          kSmallestZoom, kLargestZoom));
    // A window manager that gives this size once more insists on it.
    if (event->size() != answered_) settled_.start();
    desktop_.frameSoon();
}

void FormWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(kFaceplateShade));
}

void FormWindow::rescaled() {
    form_.left = desktop_.modelX(pos().x());
    form_.top = desktop_.modelY(pos().y());
}

void FormWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (placing_ || !isVisible() || shownSince_.elapsed() < kFraming) return;
    // A difference by rounding alone does not count as a move.
    if (desktop_.screenPoint(form_.left, form_.top) == pos()) return;
    form_.left = desktop_.modelX(pos().x());
    form_.top = desktop_.modelY(pos().y());
}

void FormWindow::closeEvent(QCloseEvent* event) {
    // The form decides what closing means.
    event->ignore();
    desktop_.hand().close(form_);
}

}  // namespace display::qt
