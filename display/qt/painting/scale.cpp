// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/scale.h"

#include <algorithm>
#include <cmath>

namespace display::qt {

namespace {

constexpr qreal kNatural = 0.1;
constexpr qreal kLargest = 1.45 * kNatural;
constexpr qreal kSmallest = 0.5 * kNatural;
/// The rack is 960 pixels wide then.
constexpr qreal kSmallestByHand = 0.8 * kNatural;
/// How small it may be made on a screen that is narrower than that.
constexpr qreal kShareOfSmall = 0.6;
/// The part of the screen that stays free beside the rack.
constexpr qreal kRoom = 0.99;

int gridFor(qreal ratio) {
    for (int step = 1; step <= 8; ++step) {
        if (std::abs(step * ratio - std::round(step * ratio)) < 1e-6) return step;
    }
    return 1;
}

}  // namespace

Scale::Scale(qreal pixelsPerTwip, qreal deviceRatio)
    : pixelsPerTwip_(pixelsPerTwip), deviceRatio_(deviceRatio), grid_(gridFor(deviceRatio)) {}

qreal Scale::fitting(QSizeF rackTwips, QSizeF available) {
    const qreal across = available.width() * kRoom / rackTwips.width();
    const qreal down = available.height() * kRoom / rackTwips.height();
    return std::clamp(std::min(across, down), kSmallest, kLargest);
}

qreal Scale::filling(QSizeF rackTwips, QSizeF screen) {
    return std::max(kSmallest, std::min(screen.width() / rackTwips.width(),
                                        screen.height() / rackTwips.height()));
}

qreal Scale::within(qreal wanted, QSizeF rackTwips, QSizeF screen) {
    const qreal largest = filling(rackTwips, screen);
    const qreal smallest = largest > kSmallestByHand ? kSmallestByHand : kShareOfSmall * largest;
    return std::clamp(wanted, smallest, largest);
}

qreal Scale::snapped(qreal px) const {
    return std::round(px * deviceRatio_) / deviceRatio_;
}

QRectF Scale::snapped(const Box& box) const {
    const QPointF from(snapped(px(box.left)), snapped(px(box.top)));
    const QPointF to(snapped(px(box.right())), snapped(px(box.bottom())));
    return {from, to};
}

int Scale::whole(qreal px) const {
    return static_cast<int>(std::lround(px / grid_)) * grid_;
}

QRect Scale::whole(const Box& box) const {
    const QPoint from(whole(px(box.left)), whole(px(box.top)));
    const QPoint to(whole(px(box.right())), whole(px(box.bottom())));
    return {from.x(), from.y(), to.x() - from.x(), to.y() - from.y()};
}

QRect Scale::around(const QRectF& px) const {
    const int left = static_cast<int>(std::floor(px.left() / grid_)) * grid_;
    const int top = static_cast<int>(std::floor(px.top() / grid_)) * grid_;
    const int right = static_cast<int>(std::ceil(px.right() / grid_)) * grid_;
    const int bottom = static_cast<int>(std::ceil(px.bottom() / grid_)) * grid_;
    return {left, top, right - left, bottom - top};
}

}  // namespace display::qt
