// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include "display/qt/page_painter.h"
#include "display/qt/print_paper.h"
#include "display/qt/qt_desktop.h"

namespace display::qt {

void layOutSheet(QPrinter& printer, const Paper& paper) {
    const QSizeF points(paper.width / kPageUnitsPerPoint, paper.height / kPageUnitsPerPoint);
    printer.setFullPage(true);
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::FuzzyMatch));
}

Paper QtDesktop::paper() const {
    const QPrinterInfo chosen = QPrinterInfo::defaultPrinter();
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
    QPrinter printer(QPrinter::HighResolution);
    if (std::string wrong = preparePrinter(printer); !wrong.empty()) return wrong;
    printer.setDocName("HMonitor");
    layOutSheet(printer, paper());
    QPainter painter;
    if (!painter.begin(&printer)) {
        return spanish() ? "La impresora no acepta el trabajo de impresión."
                         : "The printer does not take the print job.";
    }
    paintPages(painter, document, first, last, printer.resolution(),
               [&printer] { printer.newPage(); });
    return {};
}

}  // namespace display::qt
