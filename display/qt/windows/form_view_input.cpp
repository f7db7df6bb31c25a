// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcut>
#include <QToolTip>
#include <QWindow>
#include <algorithm>

#include "display/drawing_export.h"
#include "display/qt/windows/form_view.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

bool isHandle(const Control& control) {
    if (const auto* panel = dynamic_cast<const Panel*>(&control)) {
        return panel->onMouseDown || panel->onMouseMove || panel->onMouseUp || panel->onDoubleClick;
    }
    if (const auto* picture = dynamic_cast<const Picture*>(&control)) {
        return !picture->interactive() && (picture->onMouseDown || picture->onMouseMove ||
                                           picture->onMouseUp || picture->onDoubleClick);
    }
    return false;
}

}  // namespace

Control* FormView::handleAt(QPointF px) const {
    for (auto item = items_.rbegin(); item != items_.rend(); ++item) {
        Control* control = item->control;
        if (isHandle(*control) && control->shown() && control->usable() &&
            scale_.snapped(control->boxOnForm()).contains(px)) {
            return control;
        }
    }
    return nullptr;
}

Mouse FormView::pointOn(const Control& control, QPointF global, bool left) const {
    // Computed from the pointer's position on the screen and the form's position in the model:
    // while the window lags a frame behind, the pointer must not seem to move.
    const QPointF at = desktop_.pointOnForm(form_, global);
    const Box box = control.boxOnForm();
    return {static_cast<float>(at.x()) - box.left, static_cast<float>(at.y()) - box.top, left};
}

void FormView::handleMoved(const QMouseEvent& event) {
    Control* handle = gripped_ ? gripped_ : handleAt(event.position());
    if (!handle) return;
    const bool left = event.buttons().testFlag(Qt::LeftButton);
    desktop_.hand().mouseMove(*handle, [this, handle, left, at = event.globalPosition()] {
        return pointOn(*handle, at, left);
    });
}

void FormView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (!form_.enabled) desktop_.recallOpenWindow();
    gripped_ = handleAt(event->position());
    if (!gripped_) return;
    if (desktop_.systemMovesWindows()) {
        if (QWindow* native = window()->windowHandle()) native->startSystemMove();
        return;
    }
    Control* handle = gripped_;
    desktop_.hand().mouseDown(*handle, [this, handle, at = event->globalPosition()] {
        return pointOn(*handle, at, true);
    });
}

void FormView::mouseMoveEvent(QMouseEvent* event) {
    if (!desktop_.systemMovesWindows()) handleMoved(*event);
}

void FormView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !gripped_) return;
    Control* handle = gripped_;
    gripped_ = nullptr;
    desktop_.hand().mouseUp(*handle, [this, handle, at = event->globalPosition()] {
        return pointOn(*handle, at, false);
    });
}

void FormView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (Control* handle = handleAt(event->position())) desktop_.hand().doubleClick(*handle);
}

void FormView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            desktop_.hand().enter(form_);
            break;
        case Qt::Key_Escape:
            desktop_.hand().escape(form_);
            break;
        case Qt::Key_F1:
        case Qt::Key_Help:
            askHelp();
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

/// What the pointer shows a tool tip of is meant, in whichever panel of the window it is; else what
/// has the focus.
void FormView::askHelp() {
    const QPoint at = QCursor::pos();
    for (QWidget* under = QApplication::widgetAt(at); under; under = under->parentWidget()) {
        auto* view = dynamic_cast<FormView*>(under);
        if (!view) continue;
        if (view->window() != window()) break;
        const Control* told = view->toldAt(view->mapFromGlobal(at));
        if (!told) break;
        desktop_.meanByHelp(view->form_, told);
        desktop_.hand().help(form_);
        return;
    }
    desktop_.meanByHelp(form_, focused());
    desktop_.hand().help(form_);
}

const Control* FormView::focused() const {
    const QWidget* has = QApplication::focusWidget();
    const auto found = std::ranges::find_if(items_, [has](const Item& item) {
        return item.widget && has &&
               (&item.widget->widget() == has || item.widget->widget().isAncestorOf(has));
    });
    return found == items_.end() ? nullptr : found->control;
}

/// Works wherever the focus is in the window; a text field with a selection copies its own text.
void FormView::takeDrawingKeys() {
    if (!hasDrawings(form_)) return;
    const auto bind = [this](const char* keys, void (Hand::*act)(Control&)) {
        auto* shortcut = new QShortcut(QKeySequence(QString::fromLatin1(keys)), this);
        shortcut->setContext(Qt::WindowShortcut);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, [this, act] {
            if (Control* drawing = drawingMeant(form_, focused())) (desktop_.hand().*act)(*drawing);
        });
    };
    bind("Ctrl+C", &Hand::copyPicture);
    bind("Ctrl+Shift+C", &Hand::copyNumbers);
    bind("Ctrl+S", &Hand::save);
}

bool FormView::eventFilter(QObject* widget, QEvent* event) {
    // A disabled button would swallow the press.
    if (event->type() != QEvent::MouseButtonPress || form_.enabled)
        return QWidget::eventFilter(widget, event);
    desktop_.recallOpenWindow();
    return true;
}

const Control* FormView::toldAt(QPointF px) const {
    for (auto item = items_.rbegin(); item != items_.rend(); ++item) {
        const Control& control = *item->control;
        if (!item->painted || *control.tip.english == 0 || !control.shown()) continue;
        if (scale_.snapped(control.boxOnForm()).contains(px)) return &control;
    }
    return nullptr;
}

QString FormView::tipAt(QPoint px) const {
    const Control* const told = toldAt(px);
    if (!told) return {};
    return QString::fromUtf8(form_.language == Language::Spanish ? told->tip.spanish
                                                                 : told->tip.english);
}

bool FormView::showTip(const QHelpEvent& event) {
    const Control* const told = toldAt(event.pos());
    if (!told) {
        QToolTip::hideText();
        return false;
    }
    // The tip stays while the pointer is on the control.
    QToolTip::showText(event.globalPos(), tipAt(event.pos()), this,
                       scale_.whole(told->boxOnForm()));
    return true;
}

bool FormView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        event->setAccepted(showTip(static_cast<QHelpEvent&>(*event)));
        return true;
    }
    // On a screen with another device pixel ratio everything is drawn anew.
    if (event->type() == QEvent::ScreenChangeInternal) desktop_.frameSoon();
    return QWidget::event(event);
}

}  // namespace display::qt
