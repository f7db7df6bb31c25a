// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/drawing_image.h"

namespace display::qt {

void DrawingImage::begin(QSize pixels, const Scale& scale, float unit) {
    marks_.scale(scale, unit);
    if (image_.size() != pixels) image_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    image_.setDevicePixelRatio(scale.deviceRatio());
    image_.fill(Qt::transparent);
}

void DrawingImage::add(const std::vector<Mark>& marks, std::size_t first) {
    if (image_.isNull()) return;
    QPainter painter(&image_);
    for (std::size_t i = first; i < marks.size(); ++i) marks_.paint(painter, marks[i]);
}

void DrawingImage::paint(QPainter& painter, QPointF at) const {
    painter.drawImage(at, image_);
}

}  // namespace display::qt
