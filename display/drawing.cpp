// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/drawing.h"

#include <algorithm>

namespace display {

Mark& Drawing::add(Mark::Kind kind) {
    Mark mark;
    mark.kind = kind;
    mark.colour = foreground;
    mark.number = next_++;
    marks_.push_back(std::move(mark));
    owner_.touch();
    return marks_.back();
}

void Drawing::dropCovered(const Mark& box) {
    // What reaches beyond the canvas is cut at its edge, and so is what a box has to cover: else a
    // text near the right edge, whose end is a guess, would outlive every wipe.
    const float right = outerWidth();
    const float bottom = outerHeight();
    auto covered = [&](const Mark& mark) {
        // Bars come from left to right: nearly all marks are told by their left end alone.
        if (std::max(std::min(mark.x1, mark.x2), 0.f) < box.x1) return false;
        if (std::min(std::max(mark.x1, mark.x2), right) > box.x2) return false;
        return std::max(std::min(mark.y1, mark.y2), 0.f) >= box.y1 &&
               std::min(std::max(mark.y1, mark.y2), bottom) <= box.y2;
    };
    auto kept = std::remove_if(marks_.begin(), marks_.end(), covered);
    if (kept != marks_.end()) {
        marks_.erase(kept, marks_.end());
        ++rebuilt_;
    }
}

void Drawing::box(float x1, float y1, float x2, float y2) {
    Mark mark;
    mark.colour = foreground;
    mark.x1 = std::min(x1, x2);
    mark.y1 = std::min(y1, y2);
    mark.x2 = std::max(x1, x2);
    mark.y2 = std::max(y1, y2);
    dropCovered(mark);
    mark.number = next_++;
    marks_.push_back(std::move(mark));
    owner_.touch();
}

void Drawing::line(float x1, float y1, float x2, float y2) {
    Mark& mark = add(Mark::Kind::Stroke);
    mark.x1 = x1;
    mark.y1 = y1;
    mark.x2 = x2;
    mark.y2 = y2;
    mark.lineWidth = lineWidth;
}

namespace {

/// How far a text reaches at most, in its own heights. How wide it is exactly is the screen's to
/// know; figures are narrower than letters in every face, so that a count that is wiped and
/// printed again is known to be gone.
float reachOf(std::string_view text) {
    constexpr float kFigure = 0.72f;
    constexpr float kLetter = 1.f;
    float reach = 0;
    for (const char c : text) reach += c >= '0' && c <= '9' ? kFigure : kLetter;
    return reach;
}

}  // namespace

void Drawing::dropSame(const Mark& print) {
    const auto dropped = std::erase_if(marks_, [&print](const Mark& mark) {
        return mark.kind == Mark::Kind::Print && mark.x1 == print.x1 && mark.y1 == print.y1 &&
               mark.colour == print.colour && mark.bold == print.bold &&
               mark.points == print.points && mark.text == print.text;
    });
    if (dropped > 0) ++rebuilt_;
}

void Drawing::print(std::string_view text) {
    constexpr float kLine = 1.5f;
    const float height = fontPoints * 20 / unit_;
    Mark mark;
    mark.kind = Mark::Kind::Print;
    mark.colour = foreground;
    mark.x1 = textX;
    mark.y1 = textY;
    mark.x2 = textX + height * reachOf(text);
    mark.y2 = textY + height * kLine;
    mark.bold = bold;
    mark.points = fontPoints;
    mark.text = text;
    dropSame(mark);
    mark.number = next_++;
    marks_.push_back(std::move(mark));
    owner_.touch();
}

void Drawing::scale(float unit, float frame) {
    unit_ = unit;
    frame_ = frame;
    owner_.touch();
}

void Drawing::reset() {
    clear();
    foreground = kBlack;
    textX = 0;
    textY = 0;
    bold = false;
    fontName = "MS Sans Serif";
    fontPoints = 8.25f;
    lineWidth = 1;
}

void Drawing::clear() {
    if (marks_.empty()) return;
    marks_.clear();
    ++rebuilt_;
    owner_.touch();
}

}  // namespace display
