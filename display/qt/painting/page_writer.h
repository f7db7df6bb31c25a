// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <QSizeF>
#include <functional>
#include <vector>

#include "display/form.h"

namespace display::qt {

/// What fills one page, measured in twips and painted with a unit of a twip, its upper left corner
/// at the painter's origin.
struct PageContent {
    QSizeF size;
    std::function<void(QPainter& painter, qreal devicePixelsPerTwip)> paint;
};

/// The windows of these forms as their model places them, one under the other.
PageContent pageOfForms(const std::vector<const Form*>& forms);
/// A sheet with what stands on it.
PageContent pageOfSheet(const Panel& sheet);

/// Writes it on one page of a printer or a file: upright, or lying where it is wider than high, as
/// large as the margins leave room for, at the top. False when the device does not take it.
[[nodiscard]] bool writePage(QPagedPaintDevice& device, const PageContent& content);

}  // namespace display::qt
