// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/display/qt/form_picture.h"

#include <QAbstractEventDispatcher>
#include <QTest>
#include <algorithm>
#include <cstdlib>

#include "tests/display/qt/application.h"

namespace display::qt {

FormPicture::FormPicture(Form& form) : form_(form) {
    if (!form.visible) form.show();
    startApplication();
    int argc = 0;
    desktop_ = std::make_unique<QtDesktop>(argc, nullptr);
    view_ = std::make_unique<FormView>(*desktop_, form, nullptr);
}

QImage FormPicture::taken() {
    view_->sync();
    const QRectF whole = view_->scale().snapped(Box{0, 0, form_.width, form_.height});
    view_->resize(whole.size().toSize());
    // A chart lays itself out in idle time, after the events that its size and its data have
    // caused.
    constexpr int kMostRounds = 100;
    auto* const events = QAbstractEventDispatcher::instance();
    for (int round = 0; round < kMostRounds; ++round) {
        if (!events->processEvents(QEventLoop::AllEvents)) break;
    }
    return view_->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QImage FormPicture::changedBy(const std::function<void()>& change,
                              const std::function<void()>& undo) {
    const QImage before = taken();
    change();
    const QImage after = taken();
    undo();
    QImage pixels(before.size(), QImage::Format_Grayscale8);
    pixels.fill(0);
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            // A pixel that an edge covers only a little does not count.
            constexpr int kFaint = 40;
            const QRgb a = before.pixel(x, y), b = after.pixel(x, y);
            const int away = std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                       std::abs(qBlue(a) - qBlue(b))});
            if (away > kFaint) pixels.scanLine(y)[x] = 255;
        }
    }
    return pixels;
}

QImage FormPicture::pixelsOf(Control& control) {
    return changedBy([&] { control.visible = false; }, [&] { control.visible = true; });
}

QRect FormPicture::inkOf(Control& control) {
    return inkBox(pixelsOf(control));
}

QPointF FormPicture::middleOf(Control& control) {
    return QRectF(inkOf(control)).center();
}

QRect FormPicture::boxOf(const Control& control) const {
    const Scale& scale = view_->scale();
    const QRectF box = scale.snapped(control.boxOnForm());
    return QRectF(box.topLeft() * scale.deviceRatio(), box.size() * scale.deviceRatio()).toRect();
}

QPointF FormPicture::pointIn(const Panel& panel, float x, float y) const {
    const Box box = panel.boxOnForm();
    const Scale& scale = view_->scale();
    return QPointF(scale.px(box.left + x * panel.unit), scale.px(box.top + y * panel.unit)) *
           scale.deviceRatio();
}

QRect inkBox(const QImage& pixels) {
    QRect box;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            if (pixels.constScanLine(y)[x] != 0) box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

bool isAbout(const QColor& one, const QColor& other) {
    constexpr int kNear = 24;
    return std::abs(one.red() - other.red()) < kNear &&
           std::abs(one.green() - other.green()) < kNear &&
           std::abs(one.blue() - other.blue()) < kNear;
}

QRect inkBox(const QImage& picture, const QRect& within, const QColor& colour) {
    QRect box;
    const QRect place = within & picture.rect();
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            if (isAbout(picture.pixelColor(x, y), colour)) box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

double onScale(double place, double firstPlace, double firstValue, double lastPlace,
               double lastValue) {
    return firstValue + (place - firstPlace) / (lastPlace - firstPlace) * (lastValue - firstValue);
}

}  // namespace display::qt
