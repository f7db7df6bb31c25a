// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/rack_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QString>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "display/qt/painting/palette.h"
#include "display/qt/windows/digit_key.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

/// Longer than any window manager takes to minimise a window.
constexpr int kFoldLimitMs = 1500;
/// On X the window manager reports at once; a late report does no harm.
constexpr int kFoldLimitOnXMs = 500;

}  // namespace

RackWindow::RackWindow(QtDesktop& desktop, std::vector<Form*> forms)
    : QWidget(nullptr),
      desktop_(desktop),
      forms_(std::move(forms)),
      views_(forms_.size()),
      grip_(
          this, [this](QPoint at) { beginDrag(at); }, [this](QPoint at) { drag(at); },
          [this] { desktop_.rackPlaced(); }) {
    setObjectName("Rack");
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint);
    foldLimit_.setSingleShot(true);
    connect(&foldLimit_, &QTimer::timeout, this, [this] { comeBackIfNeverGone(); });
}

bool RackWindow::holds(const Form& form) const {
    return std::ranges::find(forms_, &form) != forms_.end();
}

FormView* RackWindow::viewOf(const Form& form) const {
    const auto found = std::ranges::find(forms_, &form);
    return found == forms_.end() ? nullptr
                                 : views_[static_cast<std::size_t>(found - forms_.begin())];
}

void RackWindow::forget(const Form& form) {
    const auto found = std::ranges::find(forms_, &form);
    if (found == forms_.end()) return;
    const auto index = found - forms_.begin();
    delete views_[static_cast<std::size_t>(index)];
    views_.erase(views_.begin() + index);
    forms_.erase(found);
    if (forms_.empty()) hide();
}

FormView& RackWindow::makeView(Form& form) {
    FormView*& view =
        views_[static_cast<std::size_t>(std::ranges::find(forms_, &form) - forms_.begin())];
    if (!view) {
        view = new FormView(desktop_, form, this);
        newView_ = true;
    }
    return *view;
}

void RackWindow::placeFirst() {
    placed_ = true;
    Form& first = lead();
    const auto& wanted = desktop_.wantedPlace();
    const QRect room =
        wanted ? desktop_.rackScreen().availableGeometry() : desktop_.availableRoom();
    // The whole rack will stand below its first panel: leave room for it.
    const QSize rack = desktop_.rackSize();
    QPoint at = desktop_.screenPoint(first.left, first.top);
    if (wanted) {
        at = QPoint(wanted->left, wanted->top);
    } else if (first.left == 0.f && first.top == 0.f) {
        at = QPoint(room.center().x() - rack.width() / 2, room.center().y() - rack.height() / 2);
    }
    at.setX(std::max(std::min(at.x(), room.right() + 1 - rack.width()), room.left()));
    at.setY(std::max(std::min(at.y(), room.bottom() + 1 - rack.height()), room.top()));
    layoutLeft_ = first.left;
    layoutTop_ = first.top;
    first.left = desktop_.modelX(at.x());
    first.top = desktop_.modelY(at.y());
    for (Form* form : forms_) {
        if (form != &first && form->loaded()) joined(*form);
    }
}

void RackWindow::joined(Form& form) {
    if (!placed_ || &form == &lead()) return;
    form.left = form.left + (lead().left - layoutLeft_);
    form.top = form.top + (lead().top - layoutTop_);
}

void RackWindow::placeViews() {
    const Scale scale = makeView(lead()).wantedScale();
    QRect all;
    inset_ = isWhole() ? insetNow() : QPoint();
    for (std::size_t i = 0; i < forms_.size(); ++i) {
        Form& form = *forms_[i];
        if (!form.visible) {
            if (views_[i] && !views_[i]->isHidden()) views_[i]->hide();
            continue;
        }
        FormView& view = makeView(form);
        const QRect box =
            scale
                .whole(Box{form.left - lead().left, form.top - lead().top, form.width, form.height})
                .translated(inset_);
        if (view.geometry() != box) view.setGeometry(box);
        view.sync();
        if (view.isHidden()) {
            view.show();
            view.raise();
        }
        all |= box;
    }
    if (newView_) orderTabs();
    newView_ = false;
    if (!all.isEmpty()) sizeFor(all);
}

/// The margin that centres the rack on the whole screen, in whole device pixels.
QPoint RackWindow::insetNow() const {
    const QSize room = desktop_.rackScreen().size() - desktop_.rackSize();
    const int grid = desktop_.scale().grid();
    return {std::max(0, room.width() / 2 / grid * grid),
            std::max(0, room.height() / 2 / grid * grid)};
}

void RackWindow::sizeFor(const QRect& panels) {
    if (isWhole()) {
        const QRect screen = desktop_.rackScreen().geometry();
        if (geometry() != screen) setGeometry(screen);
        grip_.hide();
        return;
    }
    // Where the window system places windows by itself, it must know from the first show how large
    // this one will get; otherwise panels that are shown later hang over the edge of the screen.
    const QSize wanted = desktop_.systemMovesWindows()
                             ? panels.size().expandedTo(desktop_.rackSize())
                             : panels.size();
    if (size() != wanted || minimumSize() != wanted) setFixedSize(wanted);
    // At its corner the rack is dragged larger; while it is folded there is none.
    grip_.setVisible(lead().windowState == WindowState::Normal);
    grip_.settle(desktop_.scale().whole(desktop_.scale().px(220)));
}

RackPlace RackWindow::place() const {
    return before_ ? *before_ : RackPlace{pos().x(), pos().y(), desktop_.rackSize().width(), false};
}

void RackWindow::takeWhole() {
    before_ = place();
    before_->whole = true;
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    setWindowState(windowState() | Qt::WindowFullScreen);
    setGeometry(desktop_.rackScreen().geometry());
}

void RackWindow::leaveWhole() {
    const QPoint corner(before_->left, before_->top);
    before_.reset();
    inset_ = {};
    setWindowState(windowState() & ~Qt::WindowFullScreen);
    shiftModel(corner);
    placeWindow();
}

/// The first panel stands there, in pixels on the screen, and the others below it as before.
void RackWindow::shiftModel(QPoint corner) {
    if (desktop_.screenPoint(lead().left, lead().top) == corner) return;
    const float across = desktop_.modelX(corner.x()) - lead().left;
    const float down = desktop_.modelY(corner.y()) - lead().top;
    for (Form* form : forms_) {
        form->left = form->left + across;
        form->top = form->top + down;
    }
}

void RackWindow::rescaled() {
    if (forms_.empty() || !placed_) return;
    inset_ = isWhole() ? insetNow() : QPoint();
    shiftModel(pos() + inset_);
}

void RackWindow::beginDrag(QPoint at) {
    gripped_ = at;
    widthGripped_ = desktop_.rackSize().width();
}

void RackWindow::drag(QPoint at) {
    // The rack keeps its shape: the corner follows the pointer along its diagonal.
    const QPoint way = at - gripped_;
    const qreal shape = QtDesktop::kRack.width() / QtDesktop::kRack.height();
    desktop_.resizeRack(widthGripped_ + (way.x() + way.y() * shape) / 2);
}

/// From the top of the rack to its bottom, in whatever order the panels were shown.
void RackWindow::orderTabs() {
    QWidget* before = nullptr;
    for (const FormView* view : views_) {
        if (!view) continue;
        for (QWidget* next : view->tabOrder()) {
            if (before) setTabOrder(before, next);
            before = next;
        }
    }
}

void RackWindow::placeWindow() {
    if (isWhole()) {
        // It does not move: panels that were dragged come back.
        shiftModel(pos() + inset_);
        return;
    }
    const QPoint wanted = desktop_.screenPoint(lead().left, lead().top);
    if (wanted != pos()) move(wanted);
}

void RackWindow::sync() {
    if (forms_.empty()) return;
    if (!lead().visible) {
        if (isVisible()) hide();
        return;
    }
    if (!placed_) placeFirst();
    placeViews();
    const bool folded = lead().windowState == WindowState::Minimised;
    if (fold_ == Fold::Bar && folded) return;
    if (bar_ && !folded) {
        fold_ = Fold::None;
        bar_.reset();
    }
    if (isMinimized() && folded) return;
    if (!isMinimized()) placeWindow();
    const QString title = qText(lead().caption.get());
    if (windowTitle() != title) setWindowTitle(title);
    if (!isVisible()) {
        show();
        raise();
        activateWindow();
        takeWholeIfWanted();
    }
}

/// As it was left; it stands first where it stands else.
void RackWindow::takeWholeIfWanted() {
    const auto& wanted = desktop_.wantedPlace();
    if (!wanted || !wanted->whole || std::exchange(wholeTaken_, true)) return;
    QTimer::singleShot(0, this, [this] {
        if (!isWhole()) desktop_.turnWholeScreen();
    });
}

void RackWindow::fold() {
    sync();
    fold_ = Fold::Asked;
    if (windowHandle()) windowHandle()->installEventFilter(this);
    showMinimized();
    const bool onX = QGuiApplication::platformName() == QLatin1String("xcb");
    foldLimit_.start(onX ? kFoldLimitOnXMs : kFoldLimitMs);
}

void RackWindow::away() {
    if (fold_ == Fold::Asked) fold_ = Fold::Away;
}

void RackWindow::back() {
    if (fold_ != Fold::Away) return;
    fold_ = Fold::None;
    if (forms_.empty() || lead().windowState != WindowState::Minimised) return;
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    desktop_.hand().unfold(lead());
}

/// Without a window manager the rack must not stay folded to a strip of one panel.
void RackWindow::comeBackIfNeverGone() {
    if (fold_ != Fold::Asked) return;
    // On X the window manager reports the state of each window; if it reports nothing, there is no
    // window manager.
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        leaveBar();
    } else if (isActiveWindow()) {
        fold_ = Fold::Away;
        back();
    }
}

void RackWindow::leaveBar() {
    fold_ = Fold::Bar;
    bar_ = std::make_unique<FoldBar>(windowTitle(), lead().language == Language::Spanish,
                                     desktop_.scale().px(10));
    connect(bar_.get(), &QAbstractButton::clicked, this,
            [this] { desktop_.hand().unfold(lead()); });
    bar_->move(pos());
    setWindowState(windowState() & ~Qt::WindowMinimized);
    hide();
    bar_->show();
    bar_->raise();
    bar_->activateWindow();
}

void RackWindow::putAway() {
    bar_.reset();
    hide();
}

bool RackWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) away();
    if (event->type() == QEvent::WindowActivate) back();
    return QWidget::event(event);
}

bool RackWindow::eventFilter(QObject* native, QEvent* event) {
    if (native == windowHandle() && event->type() == QEvent::Expose) {
        if (windowHandle()->isExposed()) {
            back();
        } else {
            away();
        }
    }
    return QWidget::eventFilter(native, event);
}

void RackWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && !isMinimized() && !forms_.empty() &&
        fold_ != Fold::Bar) {
        fold_ = Fold::None;
        desktop_.hand().unfold(lead());
    }
}

void RackWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (!isVisible() || isMinimized() || forms_.empty()) return;
    desktop_.rackPlaced();
    // Where the window manager moved the window, all its panels moved with it.
    shiftModel(pos() + inset_);
}

void RackWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F11) {
        if (!event->isAutoRepeat()) desktop_.turnWholeScreen();
        return;
    }
    if (event->modifiers().testFlag(Qt::ControlModifier) && !isWhole()) {
        constexpr qreal kStep = 1.1;
        const qreal width = desktop_.rackSize().width();
        const bool larger = event->matches(QKeySequence::ZoomIn) || event->key() == Qt::Key_Plus;
        if (larger || event->matches(QKeySequence::ZoomOut)) {
            desktop_.resizeRack(larger ? width * kStep : width / kStep);
            desktop_.rackPlaced();
            return;
        }
    }
    const auto key = digitKeyOf(*event, QGuiApplication::platformName());
    if (!key || forms_.empty()) {
        QWidget::keyPressEvent(event);
        return;
    }
    // A key that is held down tunes once.
    if (!event->isAutoRepeat()) desktop_.hand().digit(lead(), *key);
}

void RackWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!forms_.empty()) desktop_.hand().close(lead());
}

void RackWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(kFaceplateShade));
}

}  // namespace display::qt
