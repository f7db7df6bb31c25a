// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/print_paper.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <QString>

namespace display::qt {

namespace {

QPageSize sizeOf(const Paper& paper) {
    const QSizeF points(paper.width / kPageUnitsPerPoint, paper.height / kPageUnitsPerPoint);
    return QPageSize(points, QPageSize::Point, QString(), QPageSize::FuzzyMatch);
}

}  // namespace

void layOutSheet(QPrinter& printer, const Paper& paper) {
    printer.setFullPage(true);
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setPageSize(sizeOf(paper));
}

void layOutSheet(QPdfWriter& pdf, const Paper& paper) {
    pdf.setPageLayout(QPageLayout(sizeOf(paper), QPageLayout::Portrait, QMarginsF()));
}

}  // namespace display::qt
