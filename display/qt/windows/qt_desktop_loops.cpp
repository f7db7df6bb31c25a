// SPDX-License-Identifier: GPL-3.0-or-later
#include <QEventLoop>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "display/qt/widgets/control_widget.h"
#include "display/qt/windows/form_window.h"
#include "display/qt/windows/help_window.h"
#include "display/qt/windows/qt_desktop.h"
#include "display/qt/windows/rack_window.h"

namespace display::qt {

namespace {

/// One frame for each 30 ms tick of the panels, with tolerance for a late wake-up.
constexpr Time kFrame = std::chrono::milliseconds(28);

/// How often a box that stands for a call looks whether it came back.
constexpr std::chrono::milliseconds kGlance{50};

void fillBox(QMessageBox& shown, const MessageBox& box) {
    shown.setWindowTitle(qText(box.title));
    shown.setTextFormat(Qt::PlainText);
    shown.setText(qText(box.text));
    shown.setIcon(box.icon == BoxIcon::Critical      ? QMessageBox::Critical
                  : box.icon == BoxIcon::Information ? QMessageBox::Information
                                                     : QMessageBox::NoIcon);
}

int wholeMilliseconds(Time time) {
    const auto up = std::chrono::ceil<std::chrono::milliseconds>(time).count();
    return static_cast<int>(std::clamp<long long>(up, 0, 24 * 3600 * 1000));
}

}  // namespace

int QtDesktop::run(const std::function<void()>& start) {
    try {
        PhaseScope handling(*this, Phase::Handling);
        if (start) start();
    } catch (const ProgramEnded&) {
        return 0;
    }
    if (ended()) return 0;
    frame();
    arm();
    return QApplication::exec();
}

void QtDesktop::runQueue() {
    const Phase phase = phase_;
    PhaseScope handling(*this, Phase::Handling);
    endIfWanted();
    switch (phase) {
        case Phase::Idle:
            queue().runDue();
            break;
        case Phase::Modal:
            queue().runModalPass();
            break;
        case Phase::Box:
            queue().runBoxPass();
            break;
        case Phase::Handling:
            break;
    }
}

void QtDesktop::wake() {
    // While a handler runs, the queue delivers only what letEventsThrough() asks for.
    if (phase_ == Phase::Handling || ended()) return;
    try {
        runQueue();
    } catch (const ProgramEnded&) {
        return;
    }
    if (ended()) return;
    frameIfDue();
    arm();
}

void QtDesktop::runInputNow() {
    if (ended() || (phase_ != Phase::Idle && phase_ != Phase::Modal)) return;
    try {
        PhaseScope handling(*this, Phase::Handling);
        queue().runInputs();
    } catch (const ProgramEnded&) {
        return;
    }
    if (!ended()) frameSoon();
}

void QtDesktop::arm() {
    std::optional<Time> next = phase_ == Phase::Box && queue().inputWaits()
                                   ? std::optional<Time>(now() + kFrame)
                                   : queue().nextDue();
    if (endWanted()) next = now();
    if (frameWanted_) next = std::min(next.value_or(lastFrame_ + kFrame), lastFrame_ + kFrame);
    if (next) wakeTimer_.start(wholeMilliseconds(*next - now()));
}

void QtDesktop::frameSoon() {
    frameWanted_ = true;
    if (!wakeTimer_.isActive() || wakeTimer_.remainingTime() > 1) wakeTimer_.start(0);
}

bool QtDesktop::anythingStale() const {
    return std::ranges::any_of(forms(), [this](const Form* form) {
        const FormView* view = viewOf(*form);
        return view && view->stale();
    });
}

void QtDesktop::frameIfDue() {
    frameWanted_ = frameWanted_ || anythingStale();
    if (frameWanted_ && now() - lastFrame_ >= kFrame) frame();
}

void QtDesktop::frame() {
    frameWanted_ = false;
    lastFrame_ = now();
    if (rack_) rack_->sync();
    for (const auto& [form, window] : windows_) {
        if (form->visible) window->sync();
    }
    settleFocus();
}

void QtDesktop::letEventsThrough() {
    if (ended()) throw ProgramEnded{};
    {
        PhaseScope handling(*this, Phase::Handling);
        frameIfDue();
        // Before the rack measures, user input waits; painting does not.
        QApplication::processEvents(queue().gateOpen() ? QEventLoop::AllEvents
                                                       : QEventLoop::ExcludeUserInputEvents);
    }
    queue().letThrough();
    if (ended()) throw ProgramEnded{};
    // A wake-up during the handler was ignored: set the timer again.
    wakeTimer_.start(0);
}

void QtDesktop::runModal(Form& form) {
    queue().pushModal(form);
    modals_.push_back(&form);
    enableViews();
    {
        PhaseScope modal(*this, Phase::Modal);
        QEventLoop loop;
        frame();
        arm();
        while (form.visible && !ended()) loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    modals_.pop_back();
    queue().popModal();
    if (ended()) throw ProgramEnded{};
    enableViews();
    wakeTimer_.start(0);
}

void QtDesktop::startWork(std::function<void()> fn, std::function<void()> done) {
    workers_.start(std::move(fn), [this, done = std::move(done)] {
        if (ended()) return;
        queue().postResult(now(), done);
        wakeTimer_.start(0);
    });
}

void QtDesktop::messageBox(const MessageBox& box) {
    (void)standBox(box, BoxKeys::Ok);
}

BoxAnswer QtDesktop::ask(const MessageBox& box) {
    return standBox(box, BoxKeys::OkAndCancel);
}

BoxAnswer QtDesktop::standBox(const MessageBox& box, BoxKeys keys) {
    if (ended()) throw ProgramEnded{};
    frame();
    BoxAnswer answer = BoxAnswer::Ok;
    {
        PhaseScope standing(*this, Phase::Box);
        QMessageBox shown(const_cast<QWidget*>(opener()));
        fillBox(shown, box);
        const QPushButton* ok = shown.addButton(
            spanish() ? QStringLiteral("Aceptar") : QStringLiteral("OK"), QMessageBox::AcceptRole);
        if (keys == BoxKeys::OkAndCancel) {
            shown.setEscapeButton(
                shown.addButton(spanish() ? QStringLiteral("Cancelar") : QStringLiteral("Cancel"),
                                QMessageBox::RejectRole));
        }
        arm();
        shown.exec();
        if (keys == BoxKeys::OkAndCancel && shown.clickedButton() != ok) answer = BoxAnswer::Cancel;
    }
    if (ended()) throw ProgramEnded{};
    wakeTimer_.start(0);
    return answer;
}

void QtDesktop::displayLost() {
    if (ended()) return;
    displayLost_ = true;
    try {
        wantEnd();
        endIfWanted();
    } catch (const ProgramEnded&) {
        // Whatever handler stands is left where it is.
    }
}

std::optional<std::size_t> QtDesktop::standWhile(const MessageBox& box,
                                                 const std::vector<std::string>& keys,
                                                 const std::function<bool()>& over) {
    if (ended()) throw ProgramEnded{};
    std::optional<std::size_t> answer;
    {
        // A handler runs: no timer ticks and no input is heard but this box's.
        PhaseScope handling(*this, Phase::Handling);
        answer = standCallBox(box, keys, over);
        // What called goes on waiting, and the box must not stay on the screen meanwhile.
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    if (ended()) throw ProgramEnded{};
    wakeTimer_.start(0);
    return answer;
}

std::optional<std::size_t> QtDesktop::standCallBox(const MessageBox& box,
                                                   const std::vector<std::string>& keys,
                                                   const std::function<bool()>& over) {
    QMessageBox shown(const_cast<QWidget*>(opener()));
    fillBox(shown, box);
    std::vector<QPushButton*> buttons;
    for (const std::string& key : keys) {
        buttons.push_back(shown.addButton(qText(key), QMessageBox::AcceptRole));
    }
    shown.setDefaultButton(buttons.front());
    QTimer glance;
    QObject::connect(&glance, &QTimer::timeout, &shown, [&shown, &over] {
        if (over()) shown.hide();
    });
    glance.start(kGlance);
    shown.exec();
    const auto pressed = std::ranges::find(buttons, shown.clickedButton());
    if (pressed == buttons.end()) return std::nullopt;
    return static_cast<std::size_t>(pressed - buttons.begin());
}

void QtDesktop::ending() {
    if (placedTimer_.isActive()) tellPlaced();
    if (displayLost_) return;
    wakeTimer_.stop();
    if (hourglass_) QApplication::restoreOverrideCursor();
    if (rack_) rack_->putAway();
    for (const auto& [form, window] : windows_) window->hide();
    help_.reset();
    QApplication::exit(0);
}

}  // namespace display::qt
