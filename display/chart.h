// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "display/controls/control_kind.h"

namespace display {

/// A chart that is addressed by row and column. Data are text as the program wrote them; cells
/// outside the shown range are kept but not drawn.
///
/// The rows share the width between the insets evenly, row r from left + (r - 1) * width / rows on;
/// bars of one row stand side by side in it, one for each column, a curve passes through the middle
/// of its rows. Row labels stand under the plot, in the lower inset, under the middle of their row
/// or of one of its bars; blanks around them do not move them.
class Chart final : public KindOf<Chart> {
 public:
    using KindOf::KindOf;

    void rowCount(int rows);
    void columnCount(int columns);
    int rowCount() const { return rows_; }
    int columnCount() const { return columns_; }

    /// The cell that data() and rowLabel() address; both count from 1.
    int row = 1;
    int column = 1;

    void data(std::string_view text);
    void rowLabel(std::string_view text);
    /// The column under whose bar the label of the addressed row stands; 0 is the row's middle.
    void rowLabelColumn(int column);
    std::string_view dataAt(int row, int column) const;
    std::string_view rowLabelAt(int row) const;
    int rowLabelColumnAt(int row) const;
    /// The number at the beginning of a cell's data; none for an empty cell or a text that is no
    /// number. A cell without a number is not drawn.
    std::optional<double> valueAt(int row, int column) const;

    /// Copies rows, columns, data and labels of another chart.
    void take(const Chart& other);

    /// An earlier value of a cell, which stands as a shadow behind its bar.
    void earlier(int row, int column, double value);
    std::optional<double> earlierAt(int row, int column) const;
    void clearEarlier();

    /// The bar with a pointer over it; row 0 for none.
    struct Cell {
        int row = 0;
        int column = 0;
        bool operator==(const Cell&) const = default;
    };
    Property<Cell> chosen{*this};

    enum class Style { Bars, Curve };
    Property<Style> style{*this, Style::Bars};
    /// A curve that was not measured is dashed and has no points, and a word in the chart says so.
    Property<bool> dashed{*this, false};
    Text note{*this};
    /// The shown range of values, and the distance between grid lines (0 for none).
    Property<float> lowest{*this, 0}, highest{*this, 100}, gridStep{*this, 10};

    /// Room between the control's edges and the plot, in the units of its container.
    struct Insets {
        float left = 0;
        float top = 0;
        float right = 0;
        float bottom = 0;
        bool operator==(const Insets&) const = default;
    };
    Property<Insets> insets{*this};

    static constexpr int kSeries = 10;
    /// The colours of columns 1 to 10; later columns use them again from the first.
    void seriesColour(int column, Colour colour);
    Colour seriesColourAt(int column) const;

    /// How much of a row its bars fill together, and how much of its place in the row each bar
    /// fills; the rest is the gap to its neighbours.
    static constexpr double kRowFill = 0.84;
    static constexpr double kBarFill = 0.88;
    /// Where a bar begins and where its middle is, in rows: row 3 has its middle at 3.
    double barWidth() const;
    double barMiddle(int row, int column) const;

    /// A row, or the middle of a bar, and a value; a value beyond the scale stands at its end.
    Place placeOf(double row, double value) const override;

    /// The tool tip of a cell, in the language of the form; without it, the tip is the data.
    std::function<std::string(int row, int column)> tellCell;

    template <class Each>
    void forEachProperty(Each each) {
        each("style", style), each("dashed", dashed), each("note", note);
        each("lowest", lowest), each("highest", highest), each("gridStep", gridStep);
        each("insets", insets), each("chosen", chosen);
    }

 protected:
    void resetKind() override;

 private:
    int rows_ = 0;
    int columns_ = 0;
    std::vector<std::vector<std::string>> cells_;
    std::vector<std::vector<std::optional<double>>> earlier_;
    std::vector<std::string> labels_;
    std::vector<int> labelColumns_;
    std::array<Colour, kSeries> colours_ = kPlainColours;
    static const std::array<Colour, kSeries> kPlainColours;
};

}  // namespace display
