// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/controls.h"

namespace display {

/// A chart that is addressed by row and column. Data are text as the program wrote them; cells out
/// of the shown range are kept and not shown.
class Chart final : public Control {
 public:
    using Control::Control;
    void accept(ControlVisitor& visitor) override;

    void rowCount(int rows);
    void columnCount(int columns);
    int rowCount() const { return rows_; }
    int columnCount() const { return columns_; }

    /// The cell that data() and rowLabel() address; both count from 1.
    int row = 1;
    int column = 1;

    void data(std::string_view text);
    void rowLabel(std::string_view text);
    std::string_view dataAt(int row, int column) const;
    std::string_view rowLabelAt(int row) const;

    enum class Style { Bars, Curve };
    Property<Style> style{*this, Style::Bars};
    Property<float> lowest{*this, 0}, highest{*this, 100};

 protected:
    void resetKind() override;

 private:
    int rows_ = 0;
    int columns_ = 0;
    std::vector<std::vector<std::string>> cells_;
    std::vector<std::string> labels_;
};

}  // namespace display
