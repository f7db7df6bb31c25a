// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/fold_bar.h"

#include <QKeyEvent>
#include <QPainter>
#include <QString>

#include "display/qt/painting/key_cap.h"
#include "display/qt/painting/palette.h"

namespace display::qt {

namespace {

/// In pixels at the natural size.
constexpr QSizeF kBar(190, 34);

}  // namespace

FoldBar::FoldBar(const QString& title, bool spanish, qreal unit) : unit_(unit) {
    setObjectName("FoldBar");
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setWindowTitle(title);
    setText(title);
    const QString says = spanish ? QStringLiteral("Desplegar ") : QStringLiteral("Unfold ");
    setAccessibleName(says + title);
    setToolTip(says + title);
    setFixedSize((kBar * unit).toSize());
}

void FoldBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(kFaceplateShade));
    paintCap(painter, rect(), unit_, isDown() ? Cap::Lit : Cap::Dark);
    const QColor colour(isDown() ? kLitText : kKeyText);
    const QRectF all(rect());
    const qreal arrow = all.height();
    paintCapText(painter, all.adjusted(0, 0, arrow - all.width(), 0), unit_, colour,
                 QStringLiteral("\u25bc"));
    paintCapText(painter, all.adjusted(arrow, 0, -arrow / 2, 0), unit_, colour, text());
}

void FoldBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

}  // namespace display::qt
