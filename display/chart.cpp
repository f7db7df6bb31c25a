// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/chart.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace display {

const std::array<Colour, Chart::kSeries> Chart::kPlainColours = [] {
    std::array<Colour, kSeries> colours;
    colours.fill(kCyan);
    return colours;
}();

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

void Chart::rowLabelColumn(int under) {
    if (row < 1 || under < 0) return;
    const auto r = static_cast<std::size_t>(row - 1);
    if (labelColumns_.size() <= r) labelColumns_.resize(r + 1);
    if (labelColumns_[r] == under) return;
    labelColumns_[r] = under;
    touch();
}

int Chart::rowLabelColumnAt(int r) const {
    return r < 1 || static_cast<std::size_t>(r) > labelColumns_.size()
               ? 0
               : labelColumns_[static_cast<std::size_t>(r - 1)];
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

std::optional<double> Chart::valueAt(int r, int c) const {
    std::string_view text = dataAt(r, c);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    double value = 0;
    const auto end = text.data() + text.size();
    if (std::from_chars(text.data(), end, value, std::chars_format::fixed).ec != std::errc{})
        return std::nullopt;
    // A number parser accepts "inf" and "nan", but they are no values of a chart.
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

void Chart::take(const Chart& other) {
    rows_ = other.rows_;
    columns_ = other.columns_;
    cells_ = other.cells_;
    labels_ = other.labels_;
    labelColumns_ = other.labelColumns_;
    dashed = other.dashed.get();
    note = other.note.get();
    touch();
}

void Chart::earlier(int r, int c, double value) {
    if (r < 1 || c < 1) return;
    const auto row0 = static_cast<std::size_t>(r - 1);
    const auto column0 = static_cast<std::size_t>(c - 1);
    if (earlier_.size() <= row0) earlier_.resize(row0 + 1);
    if (earlier_[row0].size() <= column0) earlier_[row0].resize(column0 + 1);
    earlier_[row0][column0] = value;
    touch();
}

std::optional<double> Chart::earlierAt(int r, int c) const {
    if (r < 1 || c < 1 || static_cast<std::size_t>(r) > earlier_.size()) return std::nullopt;
    const auto& cells = earlier_[static_cast<std::size_t>(r - 1)];
    return static_cast<std::size_t>(c) > cells.size() ? std::nullopt
                                                      : cells[static_cast<std::size_t>(c - 1)];
}

void Chart::clearEarlier() {
    if (earlier_.empty()) return;
    earlier_.clear();
    touch();
}

Place Chart::placeOf(double r, double value) const {
    const Insets in = insets;
    const double across = double{width} - double{in.left} - double{in.right};
    const double high = double{height} - double{in.top} - double{in.bottom};
    const double range = double{highest} - double{lowest};
    const double share = range > 0 ? std::clamp((value - double{lowest}) / range, 0., 1.) : 0;
    return {static_cast<float>(in.left + across * (r - 0.5) / std::max(rows_, 1)),
            static_cast<float>(in.top + high * (1 - share))};
}

namespace {

std::size_t seriesOf(int series) {
    return static_cast<std::size_t>((series < 1 ? 0 : series - 1) % Chart::kSeries);
}

}  // namespace

void Chart::seriesColour(int series, Colour colour) {
    Colour& held = colours_[seriesOf(series)];
    if (held == colour) return;
    held = colour;
    touch();
}

Colour Chart::seriesColourAt(int series) const {
    return colours_[seriesOf(series)];
}

double Chart::barWidth() const {
    return kRowFill / std::max(columns_, 1);
}

double Chart::barMiddle(int r, int c) const {
    return r + (c - (columns_ + 1) / 2.0) * barWidth();
}

void Chart::resetKind() {
    KindOf::resetKind();
    rows_ = 0;
    columns_ = 0;
    cells_.clear();
    earlier_.clear();
    labels_.clear();
    labelColumns_.clear();
    row = 1;
    column = 1;
    colours_ = kPlainColours;
    touch();
}

}  // namespace display
