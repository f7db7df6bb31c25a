// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include "display/qt/form_view.h"
#include "display/qt/qt_desktop.h"

namespace display::qt {

namespace {

/// The windows as they stand, measured from the upper left corner of all, in logical pixels.
struct Placed {
    FormView* view;
    QPoint at;
};

QImage imageOf(const std::vector<Placed>& views, QSize size, qreal sharpness) {
    QImage image((QSizeF(size) * sharpness).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(sharpness, sharpness);
    for (const Placed& placed : views) {
        painter.save();
        painter.translate(placed.at);
        placed.view->paintForPaper(painter);
        painter.restore();
    }
    return image;
}

}  // namespace

std::string QtDesktop::preparePrinter(QPrinter& printer) const {
    const QPrinterInfo chosen = QPrinterInfo::defaultPrinter();
    if (chosen.isNull()) {
        return spanish() ? "No hay ninguna impresora configurada en este equipo."
                         : "No printer is set up on this computer.";
    }
    printer.setPrinterName(chosen.printerName());
    return {};
}

std::string QtDesktop::printImage(const std::vector<const Form*>& forms) {
    std::vector<Placed> views;
    QRect all;
    for (const Form* form : forms) {
        FormView* view = viewOf(*form);
        if (!view || !form->visible) continue;
        view->sync();
        const QPoint at = screenPoint(form->left, form->top);
        views.push_back({view, at});
        all |= QRect(at, view->size());
    }
    if (views.empty()) return {};
    for (Placed& placed : views) placed.at -= all.topLeft();

    QPrinter printer(QPrinter::HighResolution);
    if (std::string wrong = preparePrinter(printer); !wrong.empty()) return wrong;
    printer.setDocName("HMonitor");
    printer.setPageOrientation(all.width() > all.height() ? QPageLayout::Landscape
                                                          : QPageLayout::Portrait);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return spanish() ? "La impresora no acepta el trabajo de impresión."
                         : "The printer does not take the print job.";
    }
    const QRectF page(QPointF(), printer.pageLayout().paintRectPixels(printer.resolution()).size());
    const QSizeF fitted = QSizeF(all.size()).scaled(page.size(), Qt::KeepAspectRatio);
    // As sharp as the printer prints, up to what the eye sees.
    const qreal sharpness = std::min(fitted.width() / all.width(), 4.0);
    const QImage image = imageOf(views, all.size(), sharpness);
    painter.drawImage(
        QRectF((page.width() - fitted.width()) / 2, 0, fitted.width(), fitted.height()), image);
    painter.end();
    return {};
}

}  // namespace display::qt
