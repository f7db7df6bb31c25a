// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/drawing.h"

#include <algorithm>
#include <utility>

namespace display {

namespace {

/// How many marks one run holds. Bars and ticks are drawn from left to right, so a box can skip
/// nearly all other marks a whole run at a time.
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
    // Marks are clipped at the edge of the canvas, and so is the area that a box must cover to drop
    // them: otherwise a text near the right edge, whose width is only estimated, would survive
    // every wipe.
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
    if (coversAll(mark)) {
        wipe();
    } else {
        dropCovered(mark);
        eraseCells(mark);
    }
    add(std::move(mark));
}

bool Drawing::coversAll(const Mark& box) const {
    return box.x1 <= 0 && box.y1 <= 0 && box.x2 >= outerWidth() && box.y2 >= outerHeight();
}

void Drawing::wipe() {
    if (marks_.empty()) return;
    marks_.clear();
    runs_.clear();
    maps_ = 0;
    ++rebuilt_;
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
    dropSame(mark);
    add(std::move(mark));
}

void Drawing::cell(const CellGrid& grid, int column, int row) {
    const bool inside = column >= 0 && row >= 0 && column < grid.columns && row < grid.rows;
    if (!inside || grid.pitchX <= 0 || grid.pitchY <= 0) {
        Canvas::cell(grid, column, row);
        return;
    }
    Mark* map = openMap(grid, column, row);
    if (!map) {
        Mark mark;
        mark.kind = Mark::Kind::Cells;
        mark.x1 = grid.left;
        mark.y1 = grid.top;
        mark.x2 = grid.left + grid.pitchX * static_cast<float>(grid.columns);
        mark.y2 = grid.top + grid.pitchY * static_cast<float>(grid.rows);
        mark.map = std::make_shared<CellMap>(grid);
        add(std::move(mark));
        ++maps_;
        map = &marks_.back();
    }
    // The screen looks for new marks only at the end of the list.
    if (map != &marks_.back()) ++rebuilt_;
    map->map->draw(column, row, foreground, cellWeight);
    map->number = next_++;
    owner_.touch();
}

Mark* Drawing::openMap(const CellGrid& grid, int column, int row) {
    // How many later marks are checked for each cell; below more than that, a new map is begun.
    constexpr std::size_t kDepth = 64;
    const float left = grid.left + grid.pitchX * static_cast<float>(column);
    const float top = grid.top + grid.pitchY * static_cast<float>(row);
    const std::size_t end = marks_.size() > kDepth ? marks_.size() - kDepth : 0;
    for (std::size_t i = marks_.size(); maps_ > 0 && i > end; --i) {
        Mark& mark = marks_[i - 1];
        if (mark.kind == Mark::Kind::Cells && mark.map->grid == grid) return &mark;
        if (std::max(mark.x1, mark.x2) >= left &&
            std::min(mark.x1, mark.x2) <= left + grid.pitchX && std::max(mark.y1, mark.y2) >= top &&
            std::min(mark.y1, mark.y2) <= top + grid.pitchY)
            return nullptr;
    }
    return nullptr;
}

void Drawing::eraseCells(const Mark& box) {
    if (maps_ == 0) return;
    dropFrom(0, [&box](const Mark& mark) {
        return mark.kind == Mark::Kind::Cells &&
               !mark.map->eraseWithin(box.x1, box.y1, box.x2, box.y2);
    });
    maps_ = static_cast<std::size_t>(
        std::ranges::count(marks_, Mark::Kind::Cells, [](const Mark& mark) { return mark.kind; }));
}

namespace {

/// The greatest possible width of a text, in multiples of its height. Only the screen knows the
/// exact width; digits are narrower than letters in every font, so a count that is wiped and
/// printed again is known to be covered.
float reachOf(std::string_view text) {
    constexpr float kFigure = 0.72f;
    constexpr float kLetter = 1.f;
    float reach = 0;
    for (const char c : text) reach += c >= '0' && c <= '9' ? kFigure : kLetter;
    return reach;
}

}  // namespace

void Drawing::dropSame(const Mark& drawn) {
    dropFrom(0, [&drawn](const Mark& mark) {
        return mark.kind == drawn.kind && mark.x1 == drawn.x1 && mark.y1 == drawn.y1 &&
               mark.x2 == drawn.x2 && mark.y2 == drawn.y2 && mark.colour == drawn.colour &&
               mark.bold == drawn.bold && mark.lineWidth == drawn.lineWidth &&
               mark.points == drawn.points && mark.text == drawn.text;
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
    cellWeight = 0;
    textX = 0;
    textY = 0;
    bold = false;
    fontName = "MS Sans Serif";
    fontPoints = 8.25f;
    lineWidth = 1;
}

void Drawing::take(const Drawing& other) {
    unit_ = other.unit_;
    frame_ = other.frame_;
    marks_ = other.marks_;
    // The original drawing goes on changing the cells of its map, so the copy gets a map of its
    // own.
    for (Mark& mark : marks_) {
        if (mark.map) mark.map = std::make_shared<CellMap>(*mark.map);
    }
    runs_.clear();
    for (std::size_t i = 0; i < marks_.size(); ++i) noteInRun(i);
    maps_ = other.maps_;
    next_ = std::max(next_, other.next_);
    ++rebuilt_;
    owner_.touch();
}

void Drawing::clear() {
    if (marks_.empty()) return;
    wipe();
    owner_.touch();
}

}  // namespace display
