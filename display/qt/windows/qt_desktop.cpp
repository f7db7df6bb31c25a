// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/qt_desktop.h"

#include <QClipboard>
#include <QLibraryInfo>
#include <QScreen>
#include <QStyleFactory>
#include <QStyleHints>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

#include "display/qt/accessibility/accessible_labels.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/windows/desktop_language.h"
#include "display/qt/windows/form_window.h"
#include "display/qt/windows/help_window.h"
#include "display/qt/windows/rack_window.h"

namespace display::qt {

namespace {

/// The usual height of task bars, in logical pixels.
constexpr int kUntoldBars = 48;

}  // namespace

QtDesktop::QtDesktop(int& argc, char** argv) {
    if (!QApplication::instance()) {
        QApplication::setHighDpiScaleFactorRoundingPolicy(
            Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
        own_ = std::make_unique<QApplication>(argc, argv);
    }
    clock_.start();
    languageId_ = languageIdOfUser();
    if (spanish()) speakSpanish();
    generator_.seed(static_cast<std::mt19937::result_type>(
        std::chrono::system_clock::now().time_since_epoch().count()));
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(housePalette());
    QApplication::setQuitOnLastWindowClosed(false);
    AccessibleLabels::install();
    keyboard_ = std::make_unique<KeyboardWatch>();
    systemMoves_ = QGuiApplication::platformName().startsWith("wayland");
    scale_ = Scale(Scale::fitting(kRack, availableRoom().size()),
                   QGuiApplication::primaryScreen()->devicePixelRatio());
    QApplication::setFont(Fonts::get().font(scale_.px(120), Weight::Normal));
    placedTimer_.setSingleShot(true);
    QObject::connect(&placedTimer_, &QTimer::timeout, &placedTimer_, [this] { tellPlaced(); });
    caretMs_ = QGuiApplication::styleHints()->cursorFlashTime();
    askSessionForMotion(wakeTimer_, [this](Motion motion) { setMotion(motion); });
    wakeTimer_.setSingleShot(true);
    wakeTimer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&wakeTimer_, &QTimer::timeout, &wakeTimer_, [this] { wake(); });
}

QtDesktop::~QtDesktop() = default;

void QtDesktop::rack(std::vector<Form*> forms) {
    rack_ = std::make_unique<RackWindow>(*this, std::move(forms));
}

void QtDesktop::setMotion(Motion motion) {
    motion_ = motion;
    const bool usual = motion == Motion::Usual;
    QGuiApplication::styleHints()->setCursorFlashTime(usual ? caretMs_ : 0);
    // Lists that roll open, tips that fade in.
    QApplication::setEffectEnabled(Qt::UI_General, usual);
}

/// Qt's dialogs, in the words that come with Qt; without its package they stay English.
void QtDesktop::speakSpanish() {
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (ownWords_.load(QStringLiteral("qtbase_es"), folder)) {
        QCoreApplication::installTranslator(&ownWords_);
    }
}

Time QtDesktop::now() const {
    return std::chrono::duration_cast<Time>(std::chrono::nanoseconds(clock_.nsecsElapsed()));
}

double QtDesktop::random() {
    return static_cast<double>(generator_()) / 4294967296.0;
}

void QtDesktop::pointer(PointerShape shape) {
    const bool wanted = shape == PointerShape::Hourglass;
    if (wanted == hourglass_) return;
    hourglass_ = wanted;
    if (wanted) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void QtDesktop::beep() {
    QApplication::beep();
}

void QtDesktop::giveFocus(Control& control) {
    focus_.give(control);
    settleFocus();
    frameSoon();
}

void QtDesktop::settleFocus() {
    if (const Control* wanted = focus_.wanted()) {
        const FormView* view = viewOf(wanted->form());
        focus_.arrive(view ? view->widgetOf(*wanted) : nullptr);
    }
    focus_.settle();
    // Where no control can take the focus, the form's view takes it, so that Enter, Escape and the
    // help key still work.
    if (QApplication::focusWidget() || !QApplication::activeWindow()) return;
    for (const Form* form : forms()) {
        FormView* view = form->visible ? viewOf(*form) : nullptr;
        if (!view || view->window() != QApplication::activeWindow()) continue;
        view->setFocus(Qt::OtherFocusReason);
        return;
    }
}

void QtDesktop::setClipboardText(std::string_view text) {
    QGuiApplication::clipboard()->setText(qText(text));
}

bool QtDesktop::spanish() const {
    // Message boxes use the language of the dialogs: Portuguese users have Spanish panels but
    // English dialogs.
    constexpr int kSpanish = 10;
    return (languageId_ & 0x3ff) == kSpanish;
}

void QtDesktop::tellStarter(std::string_view sentence) {
    std::fprintf(stderr, "hmonitor: %.*s\n", static_cast<int>(sentence.size()), sentence.data());
}

Hand& QtDesktop::hand() {
    wakeTimer_.start(0);
    return hand_;
}

QSize QtDesktop::rackSize() const {
    return {scale_.whole(scale_.px(kRack.width())), scale_.whole(scale_.px(kRack.height()))};
}

QRect QtDesktop::availableRoom() const {
    QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    // Wayland does not tell the size of its task bars.
    if (systemMoves_) room.setHeight(room.height() - kUntoldBars);
    return room;
}

QPoint QtDesktop::screenPoint(float leftTwips, float topTwips) const {
    return QPointF(scale_.px(leftTwips), scale_.px(topTwips)).toPoint();
}

QPointF QtDesktop::pointOnForm(const Form& form, QPointF global) const {
    return {scale_.twips(global.x()) - form.left, scale_.twips(global.y()) - form.top};
}

FormView* QtDesktop::viewOf(const Form& form) const {
    if (rack_ && rack_->holds(form)) return rack_->viewOf(form);
    const auto found = windows_.find(&form);
    return found == windows_.end() ? nullptr : &found->second->view();
}

}  // namespace display::qt
