// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/slanting_stroke.h"

#include <algorithm>
#include <cmath>

namespace display::qt {

namespace {

/// How much of a dot at that distance from the middle lies between the edges at `half` on either
/// side, all in the reach of a dot.
float part(float distance, float half) {
    const float away = std::fabs(distance);
    return std::max(std::min(half + 0.5f - away, 1.f) + std::min(half + 0.5f + away, 1.f) - 1, 0.f);
}

struct Span {
    float from = 0, to = 0;
};

/// Where rise * x + start stays between -most and most.
Span within(float rise, float start, float most) {
    constexpr float kLevel = 1e-6f;
    constexpr float kFar = 1e6f;
    if (std::fabs(rise) < kLevel) return std::fabs(start) < most ? Span{-kFar, kFar} : Span{};
    const float a = (-most - start) / rise, b = (most - start) / rise;
    return {std::max(std::min(a, b), -kFar), std::min(std::max(a, b), kFar)};
}

}  // namespace

SlantingStroke::SlantingStroke(QPoint from, QPoint to, int width)
    : midX_(static_cast<float>(from.x() + to.x()) / 2),
      midY_(static_cast<float>(from.y() + to.y()) / 2) {
    const auto across = static_cast<float>(to.x() - from.x());
    const auto down = static_cast<float>(to.y() - from.y());
    const float length = std::sqrt(across * across + down * down);
    const float stepX = across / length, stepY = down / length;
    const float halfWidth = static_cast<float>(width) / 2, halfLength = length / 2 + halfWidth;
    const float reachX = std::fabs(stepX) * halfLength + std::fabs(stepY) * halfWidth;
    const float reachY = std::fabs(stepY) * halfLength + std::fabs(stepX) * halfWidth;
    reach_ = {
        static_cast<int>(std::floor(midX_ - reachX)), static_cast<int>(std::floor(midY_ - reachY)),
        static_cast<int>(std::ceil(midX_ + reachX)), static_cast<int>(std::ceil(midY_ + reachY))};
    const float dot = std::fabs(stepX) + std::fabs(stepY);
    stepX_ = stepX / dot;
    stepY_ = stepY / dot;
    halfLength_ = halfLength / dot;
    halfWidth_ = halfWidth / dot;
}

SlantingStroke::Place SlantingStroke::placeOf(int x, int y) const {
    const float right = static_cast<float>(x) + 0.5f - midX_;
    const float down = static_cast<float>(y) + 0.5f - midY_;
    return {right * stepX_ + down * stepY_, down * stepX_ - right * stepY_};
}

DotBox SlantingStroke::rowWithin(int y, const DotBox& box) const {
    const Place start = placeOf(box.left, y);
    const Span along = within(stepX_, start.along, halfLength_ + 0.5f);
    const Span across = within(-stepY_, start.across, halfWidth_ + 0.5f);
    const float from = std::max(along.from, across.from), to = std::min(along.to, across.to);
    return DotBox{box.left + static_cast<int>(std::ceil(from)), y,
                  box.left + static_cast<int>(std::floor(to)) + 1, y + 1} &
           box;
}

void SlantingStroke::lay(const DotRows& onto, const DotBox& box, QRgb colour) const {
    const DotBox seen = reach_ & box;
    if (seen.empty()) return;
    for (int y = seen.top; y < seen.bottom; ++y) {
        const DotBox row = rowWithin(y, seen);
        if (row.empty()) continue;
        Place place = placeOf(row.left, y);
        QRgb* const dots = onto.row(y);
        for (int x = row.left; x < row.right; ++x) {
            const float cover = part(place.along, halfLength_) * part(place.across, halfWidth_);
            const auto share = static_cast<unsigned>(cover * 255 + 0.5f);
            dots[x] = share == 255 ? colour : mixed(colour, dots[x], share);
            place.along += stepX_;
            place.across -= stepY_;
        }
    }
}

}  // namespace display::qt
