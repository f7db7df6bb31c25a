// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

#include <QPainter>

#include "display/page.h"

namespace display::qt {

/// Paints a page on a painter whose unit is a page unit and whose origin is the sheet's corner.
/// Preview, printer and tests all use this.
void paintPage(QPainter& painter, const Page& page);

/// Paints pages of a document, counted from 1, one on each sheet, on a device of this resolution
/// whose origin is the sheet's corner; newSheet() is called between two pages.
template <class NewSheet>
void paintPages(QPainter& painter, const PageDocument& document, int first, int last,
                qreal dotsPerInch, NewSheet newSheet) {
    const auto pages = static_cast<int>(document.pages().size());
    for (int number = std::max(first, 1); number <= std::min(last, pages); ++number) {
        if (number > first) newSheet();
        painter.save();
        painter.scale(dotsPerInch / kPageUnitsPerInch, dotsPerInch / kPageUnitsPerInch);
        paintPage(painter, document.pages()[static_cast<std::size_t>(number - 1)]);
        painter.restore();
    }
}

}  // namespace display::qt
