// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/drawing.h"

#include <algorithm>

namespace display {

namespace {

/// Marks of one run: bars and ticks come from left to right, so that a bar passes by nearly all
/// others a whole run at a time.
constexpr std::size_t kRun = 16;

}  // namespace

void Drawing::add(Mark mark) {
    mark.number = next_++;
    marks_.push_back(std::move(mark));
    noteInRun(marks_.size() - 1);
    owner_.touch();
}

void Drawing::noteInRun(std::size_t index) {
    const Mark& mark = marks_[index];
    const float left = std::max(std::min(mark.x1, mark.x2), 0.f);
    const float right = std::min(std::max(mark.x1, mark.x2), outerWidth());
    if (index % kRun == 0) {
        runs_.resize(index / kRun);
        runs_.push_back({left, right});
    } else {
        Run& run = runs_.back();
        run.latestLeft = std::max(run.latestLeft, left);
        run.earliestRight = std::min(run.earliestRight, right);
    }
}

template <class Gone>
void Drawing::dropFrom(std::size_t first, Gone gone) {
    const auto from = marks_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto kept = std::remove_if(from, marks_.end(), gone);
    if (kept == marks_.end()) return;
    marks_.erase(kept, marks_.end());
    ++rebuilt_;
    runs_.resize(std::min(runs_.size(), first / kRun));
    for (std::size_t i = first / kRun * kRun; i < marks_.size(); ++i) noteInRun(i);
}

void Drawing::dropCovered(const Mark& box) {
    // What reaches beyond the canvas is cut at its edge, and so is what a box has to cover: else a
    // text near the right edge, whose end is a guess, would outlive every wipe.
    const float right = outerWidth();
    const float bottom = outerHeight();
    auto covered = [&](const Mark& mark) {
        return std::max(std::min(mark.x1, mark.x2), 0.f) >= box.x1 &&
               std::min(std::max(mark.x1, mark.x2), right) <= box.x2 &&
               std::max(std::min(mark.y1, mark.y2), 0.f) >= box.y1 &&
               std::min(std::max(mark.y1, mark.y2), bottom) <= box.y2;
    };
    for (std::size_t run = 0; run < runs_.size(); ++run) {
        if (runs_[run].latestLeft < box.x1 || runs_[run].earliestRight > box.x2) continue;
        const std::size_t end = std::min((run + 1) * kRun, marks_.size());
        for (std::size_t i = run * kRun; i < end; ++i) {
            if (!covered(marks_[i])) continue;
            dropFrom(i, covered);
            return;
        }
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
    add(std::move(mark));
}

void Drawing::line(float x1, float y1, float x2, float y2) {
    Mark mark;
    mark.kind = Mark::Kind::Stroke;
    mark.colour = foreground;
    mark.x1 = x1;
    mark.y1 = y1;
    mark.x2 = x2;
    mark.y2 = y2;
    mark.lineWidth = lineWidth;
    add(std::move(mark));
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
    dropFrom(0, [&print](const Mark& mark) {
        return mark.kind == Mark::Kind::Print && mark.x1 == print.x1 && mark.y1 == print.y1 &&
               mark.colour == print.colour && mark.bold == print.bold &&
               mark.points == print.points && mark.text == print.text;
    });
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
    add(std::move(mark));
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
    runs_.clear();
    ++rebuilt_;
    owner_.touch();
}

}  // namespace display
