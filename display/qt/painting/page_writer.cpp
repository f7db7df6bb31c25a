// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/page_writer.h"

#include <cmath>

#include "display/qt/painting/form_painter.h"

namespace display::qt {

PageContent pageOfForms(const std::vector<const Form*>& forms) {
    QRectF all;
    for (const Form* form : forms)
        all |= QRectF(form->left.get(), form->top.get(), form->width.get(), form->height.get());
    return {all.size(), [forms, all](QPainter& painter, qreal devicePixelsPerTwip) {
                for (const Form* form : forms) {
                    painter.save();
                    painter.translate(form->left - all.left(), form->top - all.top());
                    painter.setClipRect(QRectF(0, 0, form->width, form->height));
                    paintForm(painter, *form, devicePixelsPerTwip);
                    painter.restore();
                }
            }};
}

PageContent pageOfSheet(const Panel& sheet) {
    const Box box = sheet.boxOnForm();
    return {QSizeF(box.width, box.height), [&sheet](QPainter& painter, qreal devicePixelsPerTwip) {
                paintSheet(painter, sheet, devicePixelsPerTwip);
            }};
}

bool writePage(QPagedPaintDevice& device, const PageContent& content) {
    if (content.size.isEmpty()) return true;
    device.setPageOrientation(content.size.width() > content.size.height() ? QPageLayout::Landscape
                                                                           : QPageLayout::Portrait);
    QPainter painter;
    if (!painter.begin(&device)) return false;
    // The colours of a map are data: they must not be blended with their neighbours.
    painter.setRenderHint(QPainter::LosslessImageRendering, true);
    const qreal dotsPerInch = device.logicalDpiY();
    const QSizeF room = device.pageLayout().paintRectPixels(qRound(dotsPerInch)).size();
    const QSizeF fitted = content.size.scaled(room, Qt::KeepAspectRatio);
    const qreal devicePixelsPerTwip = fitted.width() / content.size.width();
    painter.translate(std::round((room.width() - fitted.width()) / 2), 0);
    painter.scale(devicePixelsPerTwip, devicePixelsPerTwip);
    content.paint(painter, devicePixelsPerTwip);
    return painter.end();
}

}  // namespace display::qt
