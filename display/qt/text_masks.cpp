// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/text_masks.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QStyleHints>
#include <array>
#include <cmath>
#include <cstdint>

#include "display/qt/faces.h"

namespace display::qt {

namespace {

/// Labels are a few dozen; counts and times of day pass.
constexpr std::size_t kMostTexts = 200;

/// The strengths of light behind the values of dots, in which the rest of the program's texts mix
/// with what lies below them.
class Light {
 public:
    static const Light& get() {
        static const Light light(QGuiApplication::styleHints()->fontSmoothingGamma());
        return light;
    }

    /// Both opaque.
    QRgb mixed(QRgb colour, QRgb below, unsigned share) const {
        return qRgb(mixed(qRed(colour), qRed(below), share),
                    mixed(qGreen(colour), qGreen(below), share),
                    mixed(qBlue(colour), qBlue(below), share));
    }

 private:
    static constexpr unsigned kFull = 4080;

    explicit Light(qreal gamma) {
        for (std::size_t i = 0; i < strength_.size(); ++i) {
            const qreal value = static_cast<qreal>(i) / 255;
            strength_[i] = static_cast<std::uint16_t>(std::lround(std::pow(value, gamma) * kFull));
        }
        for (std::size_t i = 0; i < value_.size(); ++i) {
            const qreal strength = static_cast<qreal>(i) / kFull;
            value_[i] = static_cast<std::uint8_t>(std::lround(std::pow(strength, 1 / gamma) * 255));
        }
    }

    int mixed(int colour, int below, unsigned share) const {
        const unsigned sum = strength_[static_cast<std::size_t>(colour)] * share +
                             strength_[static_cast<std::size_t>(below)] * (255 - share);
        return value_[(sum + 127) / 255];
    }

    std::array<std::uint16_t, 256> strength_;
    std::array<std::uint8_t, kFull + 1> value_;
};

}  // namespace

TextMask::TextMask(const QString& text, const QFont& font, qreal ascent, qreal ratio) {
    const QFontMetricsF metrics(font);
    const QRectF line(0, 0, metrics.horizontalAdvance(text), metrics.height());
    const QRectF ink = metrics.boundingRect(text).translated(0, ascent).united(line);
    const QRect dots =
        QRectF(ink.topLeft() * ratio, ink.size() * ratio).toAlignedRect().adjusted(-2, -2, 2, 2);
    corner_ = dots.topLeft();
    QImage image(dots.size(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(QPointF(0, ascent) - QPointF(corner_) / ratio, text);
    painter.end();
    shares_ = image.convertToFormat(QImage::Format_Alpha8);
}

DotBox TextMask::reach(QPoint at) const {
    return DotBox::of(QRect(at + corner_, shares_.size()));
}

void TextMask::lay(const DotRows& onto, QPoint at, const DotBox& within, QRgb colour) const {
    const DotBox all = reach(at);
    const DotBox seen = all & within;
    const Light& light = Light::get();
    for (int y = seen.top; y < seen.bottom; ++y) {
        const uchar* const shares = shares_.constScanLine(y - all.top) - all.left;
        QRgb* const dots = onto.row(y);
        for (int x = seen.left; x < seen.right; ++x) {
            if (shares[x] == 0) continue;
            dots[x] = qAlpha(dots[x]) == 255 ? light.mixed(colour, dots[x], shares[x])
                                             : mixed(colour, dots[x], shares[x]);
        }
    }
}

void TextMasks::setScale(qreal pxPerTwip, qreal ratio) {
    if (pxPerTwip == pxPerTwip_ && ratio == ratio_) return;
    pxPerTwip_ = pxPerTwip;
    ratio_ = ratio;
    faces_.clear();
    masks_.clear();
}

const TextMasks::Face& TextMasks::face(float points, bool bold) {
    const auto [place, isNew] = faces_.try_emplace({points, bold});
    Face& face = place->second;
    if (isNew) {
        face.font =
            Faces::get().font(points * 20 * pxPerTwip_, bold ? Weight::Bold : Weight::Normal);
        face.ascent = QFontMetricsF(face.font).ascent();
    }
    return face;
}

void TextMasks::trim() {
    if (masks_.size() > kMostTexts) masks_.clear();
}

const TextMask& TextMasks::of(const std::string& text, float points, bool bold) {
    const auto [place, isNew] = masks_.try_emplace({points, bold, text});
    if (isNew) {
        const Face& wanted = face(points, bold);
        place->second = TextMask(QString::fromStdString(text), wanted.font, wanted.ascent, ratio_);
    }
    return place->second;
}

}  // namespace display::qt
