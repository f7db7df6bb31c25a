// SPDX-License-Identifier: GPL-3.0-or-later
#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QSvgGenerator>

#include "display/qt/painting/drawing_picture.h"

#include <string>

#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

/// Raster pictures have this many times the resolution of the screen, for use in documents.
constexpr qreal kSharpness = 2;

QImage pixelsOf(const DrawingPicture& picture) {
    QImage image((picture.size() * kSharpness).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    picture.paint(painter, kSharpness);
    return image;
}

QByteArray pngOf(const DrawingPicture& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    pixelsOf(picture).save(&buffer, "PNG");
    return bytes;
}

QByteArray svgOf(const DrawingPicture& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(picture.size().toSize());
    svg.setViewBox(QRectF(QPointF(), picture.size()));
    QPainter painter(&svg);
    picture.paint(painter, 1);
    painter.end();
    return bytes;
}

}  // namespace

std::string QtDesktop::pictureOf(Control& drawing, PictureFormat format) {
    if (format == PictureFormat::Pdf) return pdfOfDrawing(drawing);
    const DrawingPicture picture(drawing, scale_.px(1));
    return (format == PictureFormat::Svg ? svgOf(picture) : pngOf(picture)).toStdString();
}

void QtDesktop::setClipboardPicture(Control& drawing) {
    const DrawingPicture picture(drawing, scale_.px(1));
    // Both formats: the program that pastes takes the one it handles best.
    auto* both = new QMimeData;
    both->setImageData(pixelsOf(picture));
    both->setData(QStringLiteral("image/svg+xml"), svgOf(picture));
    QGuiApplication::clipboard()->setMimeData(both);
}

}  // namespace display::qt
