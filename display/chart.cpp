// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/chart.h"

namespace display {

void Chart::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Chart::rowCount(int rows) {
    if (rows < 0 || rows == rows_) return;
    rows_ = rows;
    if (cells_.size() < static_cast<std::size_t>(rows))
        cells_.resize(static_cast<std::size_t>(rows));
    if (labels_.size() < cells_.size()) labels_.resize(cells_.size());
    touch();
}

void Chart::columnCount(int columns) {
    if (columns < 0 || columns == columns_) return;
    columns_ = columns;
    touch();
}

void Chart::data(std::string_view text) {
    if (row < 1 || column < 1) return;
    const auto r = static_cast<std::size_t>(row - 1);
    const auto c = static_cast<std::size_t>(column - 1);
    if (cells_.size() <= r) cells_.resize(r + 1);
    if (cells_[r].size() <= c) cells_[r].resize(c + 1);
    if (cells_[r][c] == text) return;
    cells_[r][c] = text;
    touch();
}

void Chart::rowLabel(std::string_view text) {
    if (row < 1) return;
    const auto r = static_cast<std::size_t>(row - 1);
    if (labels_.size() <= r) labels_.resize(r + 1);
    if (labels_[r] == text) return;
    labels_[r] = text;
    touch();
}

std::string_view Chart::dataAt(int r, int c) const {
    if (r < 1 || c < 1 || static_cast<std::size_t>(r) > cells_.size()) return {};
    const auto& cells = cells_[static_cast<std::size_t>(r - 1)];
    return static_cast<std::size_t>(c) > cells.size() ? std::string_view{}
                                                      : cells[static_cast<std::size_t>(c - 1)];
}

std::string_view Chart::rowLabelAt(int r) const {
    return r < 1 || static_cast<std::size_t>(r) > labels_.size()
               ? std::string_view{}
               : labels_[static_cast<std::size_t>(r - 1)];
}

void Chart::resetKind() {
    rows_ = 0;
    columns_ = 0;
    cells_.clear();
    labels_.clear();
    row = 1;
    column = 1;
    style = Style::Bars;
    lowest = 0.f;
    highest = 100.f;
    touch();
}

}  // namespace display
