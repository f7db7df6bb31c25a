// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/dot_rows.h"

#include <algorithm>
#include <array>

namespace display::qt {

namespace {

/// The columns of graphs are narrow and there are hundreds of them: each width has a loop of its
/// own that the compiler lays out.
template <int Width>
void fillNarrow(QRgb* row, const QRgb* end, qsizetype stride, QRgb value) {
    for (; row < end; row += stride) {
        for (int x = 0; x < Width; ++x) row[x] = value;
    }
}

constexpr std::array kNarrow = {&fillNarrow<1>, &fillNarrow<2>, &fillNarrow<3>, &fillNarrow<4>,
                                &fillNarrow<5>, &fillNarrow<6>, &fillNarrow<7>, &fillNarrow<8>};

}  // namespace

void DotRows::fill(const DotBox& box, QRgb value) const {
    if (box.empty()) return;
    QRgb* row = this->row(box.top) + box.left;
    const QRgb* const end = this->row(box.bottom);
    const auto width = static_cast<std::size_t>(box.width());
    if (width <= kNarrow.size()) {
        kNarrow[width - 1](row, end, stride_, value);
        return;
    }
    for (; row < end; row += stride_) std::fill_n(row, width, value);
}

}  // namespace display::qt
