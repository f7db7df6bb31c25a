// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

#include "display/qt/page_painter.h"
#include "display/qt/print_paper.h"
#include "display/qt/print_queue.h"
#include "display/qt/qt_desktop.h"

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

Paper QtDesktop::paper() const {
    const QPrinterInfo chosen =
        askPrintSystem() == PrintSystem::Answers ? QPrinterInfo::defaultPrinter() : QPrinterInfo();
    if (chosen.isNull()) {
        // What the country's shops sell.
        const bool inches = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
        return inches ? kLetter : kA4;
    }
    const QSizeF points = chosen.defaultPageSize().size(QPageSize::Point);
    const auto units = [](qreal length) { return static_cast<float>(length * kPageUnitsPerPoint); };
    return {units(points.width()), units(points.height())};
}

std::string QtDesktop::printPages(const PageDocument& document, int first, int last) {
    std::string wrong;
    const std::unique_ptr<QPrinter> printer = readyPrinter(wrong);
    if (!printer) return wrong;
    layOutSheet(*printer, paper());
    QPainter painter;
    if (!painter.begin(printer.get())) return notTaken();
    paintPages(painter, document, first, last, printer->resolution(),
               [&printer] { printer->newPage(); });
    painter.end();
    return takenBy(*printer);
}

}  // namespace display::qt
