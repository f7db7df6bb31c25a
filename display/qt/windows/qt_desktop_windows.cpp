// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QElapsedTimer>
#include <QWindow>

#include "display/qt/windows/form_window.h"

#include <memory>

#include "display/qt/windows/help_window.h"
#include "display/qt/windows/qt_desktop.h"
#include "display/qt/windows/rack_window.h"

namespace display::qt {

FormWindow& QtDesktop::windowOf(Form& form) {
    std::unique_ptr<FormWindow>& window = windows_[&form];
    if (!window) window = std::make_unique<FormWindow>(*this, form);
    return *window;
}

QRect QtDesktop::roomFor(const Form& form) const {
    // The assumed size of a window's frame, before the real one is known.
    constexpr int kFrameAcross = 8;
    constexpr int kFrameDown = 36;
    const QRect room = availableRoom();
    return form.caption.empty() ? room : room.adjusted(0, 0, -kFrameAcross, -kFrameDown);
}

Box QtDesktop::room(const Form& form) const {
    if (systemMoves_) return {};
    const QRect room = roomFor(form);
    return {modelX(room.left()), modelY(room.top()), modelX(room.width()), modelY(room.height())};
}

const QWidget* QtDesktop::opener() const {
    if (const QWidget* active = QApplication::activeWindow()) return active;
    if (rack_ && rack_->isVisible()) return rack_.get();
    return nullptr;
}

void QtDesktop::formLoaded(Form& form) {
    if (rack_ && rack_->holds(form)) rack_->joined(form);
}

void QtDesktop::formShown(Form& form) {
    if (rack_ && rack_->holds(form)) {
        if (form.visible && form.raisesResizeAtShow()) {
            rack_->sync();
            paintNow(form);
            form.resized();
        }
        rack_->sync();
    } else {
        focus_.opened(form);
        FormWindow& window = windowOf(form);
        const QWidget* over = opener() == &window ? nullptr : opener();
        // Always tied to the rack, not to the window that opened it: that one may be hidden, and
        // then a click on the rack would cover this one.
        const bool rackStands = rack_ && rack_->isVisible();
        // One that looks on stands beside the rack: whichever is clicked comes to the front.
        const QWidget* above = rackStands ? rack_.get() : over;
        window.appear(over, form.looksOn ? nullptr : above);
    }
    enableViews();
    if (!queue().gateOpen()) paintNow(form);
    frameSoon();
}

void QtDesktop::recallOpenWindow() {
    FormWindow* last = nullptr;
    for (const auto& [form, window] : windows_) {
        // One that looks on is not what holds the rack.
        if (!form->visible || !form->enabled || form->looksOn) continue;
        if (!last || window->shownFor() < last->shownFor()) last = window.get();
    }
    if (!last) return;
    if (last->isMinimized()) last->showNormal();
    last->raise();
    last->activateWindow();
    last->flash(motion_);
}

void QtDesktop::formHidden(Form& form) {
    if (rack_ && rack_->holds(form)) {
        rack_->sync();
    } else if (const auto found = windows_.find(&form); found != windows_.end()) {
        found->second->hide();
        focus_.closed(form);
    }
    frameSoon();
}

void QtDesktop::formDestroyed(Form& form) {
    windows_.erase(&form);
    focus_.closed(form);
    if (rack_) rack_->forget(form);
}

void QtDesktop::formMinimised(Form& form) {
    if (rack_ && rack_->holds(form)) {
        rack_->fold();
    } else if (const auto found = windows_.find(&form); found != windows_.end()) {
        found->second->showMinimized();
    }
    form.resized();
}

void QtDesktop::enableViews() {
    const Form* alone = modals_.empty() ? nullptr : modals_.back();
    for (Form* form : forms()) {
        FormView* view = viewOf(*form);
        const bool enabled = !alone || form == alone;
        if (view && view->isEnabled() != enabled) view->setEnabled(enabled);
    }
}

void QtDesktop::paintNow(const Form& form) {
    FormView* view = viewOf(form);
    if (!view || !view->window()->isVisible()) return;
    PhaseScope handling(*this, Phase::Handling);
    // A window can only be painted once the window system has exposed it.
    constexpr qint64 kPatience = 150;
    QElapsedTimer waited;
    waited.start();
    const QWindow* native = view->window()->windowHandle();
    while (native && !native->isExposed() && waited.elapsed() < kPatience) {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
    }
    view->sync();
    view->repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace display::qt
