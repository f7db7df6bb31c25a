// SPDX-License-Identifier: GPL-3.0-or-later
// The size of the rack, which is the scale of every window.
#include <QApplication>
#include <QScreen>

#include "display/qt/painting/fonts.h"

#include <chrono>

#include "display/qt/windows/form_window.h"
#include "display/qt/windows/qt_desktop.h"
#include "display/qt/windows/rack_window.h"

namespace display::qt {

namespace {

/// Long enough for a hand that drags to have let go.
constexpr std::chrono::milliseconds kPlaced{700};

}  // namespace

void QtDesktop::placeRack(const RackPlace& place) {
    if (place.width <= 0) return;
    wantedPlace_ = place;
    resizeRack(place.width);
}

RackPlace QtDesktop::rackPlace() const {
    return rack_ ? rack_->place() : RackPlace{};
}

const QScreen& QtDesktop::rackScreen() const {
    QScreen* screen = nullptr;
    if (rack_ && rack_->isVisible()) {
        screen = rack_->screen();
    } else if (wantedPlace_) {
        screen = QGuiApplication::screenAt({wantedPlace_->left, wantedPlace_->top});
    }
    return screen ? *screen : *QGuiApplication::primaryScreen();
}

void QtDesktop::resizeRack(qreal width) {
    rescale(Scale::within(width / kRack.width(), kRack, QSizeF(rackScreen().size())));
}

void QtDesktop::turnWholeScreen() {
    if (!rack_ || !rack_->isVisible()) return;
    if (rack_->isWhole()) {
        const qreal width = rack_->place().width;
        rack_->leaveWhole();
        resizeRack(width);
    } else {
        rack_->takeWhole();
        rescale(Scale::filling(kRack, QSizeF(rackScreen().size())));
    }
    rackPlaced();
}

void QtDesktop::rescale(qreal factor) {
    const Scale other(factor, scale_.deviceRatio());
    if (other == scale_) return;
    scale_ = other;
    QApplication::setFont(Fonts::get().font(scale_.px(120), Weight::Normal));
    // Windows stay where they stand: what changes is their place in twips.
    if (rack_) rack_->rescaled();
    for (const auto& [form, window] : windows_) {
        if (window->isVisible()) window->rescaled();
    }
    frameSoon();
}

void QtDesktop::rackPlaced() {
    if (onRackPlaced) placedTimer_.start(kPlaced);
}

void QtDesktop::tellPlaced() {
    placedTimer_.stop();
    if (onRackPlaced) onRackPlaced();
}

}  // namespace display::qt
