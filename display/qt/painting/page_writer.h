// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <QSizeF>
#include <functional>
#include <vector>

#include "display/form.h"

namespace display::qt {

/// The content of one page: its size in twips, and a function that paints it at the painter's
/// origin with a unit of a twip.
struct PageContent {
    QSizeF size;
    std::function<void(QPainter& painter, qreal devicePixelsPerTwip)> paint;
};

/// The windows of these forms, one below the other.
PageContent pageOfForms(const std::vector<const Form*>& forms);
/// A sheet panel with its contents.
PageContent pageOfSheet(const Panel& sheet);

/// Writes the content on one page of a printer or a file, at the top and as large as the margins
/// allow; in landscape where it is wider than high. False when the device refuses it.
[[nodiscard]] bool writePage(QPagedPaintDevice& device, const PageContent& content);

}  // namespace display::qt
