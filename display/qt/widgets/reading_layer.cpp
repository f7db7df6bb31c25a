// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/reading_layer.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "display/form.h"
#include "display/qt/accessibility/accessible_labels.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

namespace {

// At the natural size a pixel is ten twips.
constexpr double kPlateTwips = 125;
constexpr double kHintTwips = 105;

std::optional<ReadingMarks::Step> stepOf(int key) {
    using Step = ReadingMarks::Step;
    switch (key) {
        case Qt::Key_Left:
            return Step::Left;
        case Qt::Key_Right:
            return Step::Right;
        case Qt::Key_Up:
            return Step::Up;
        case Qt::Key_Down:
            return Step::Down;
        case Qt::Key_PageUp:
            return Step::FarLeft;
        case Qt::Key_PageDown:
            return Step::FarRight;
        case Qt::Key_Home:
            return Step::First;
        case Qt::Key_End:
            return Step::Last;
        default:
            return std::nullopt;
    }
}

/// A plate beside a mark, on the side that has room for it; where neither has, above or below the
/// mark, which it would hide else. Always in the room, even if the mark is not.
QRectF besideMark(QSizeF size, QPointF mark, const QRectF& room, qreal away) {
    QRectF plate(QPointF(), size);
    const bool right = mark.x() + away + size.width() <= room.right();
    plate.moveLeft(right ? mark.x() + away : mark.x() - away - size.width());
    plate.moveTop(mark.y() - size.height() / 2);
    const qreal last = std::max(room.left(), room.right() - size.width());
    if (plate.left() < room.left() || plate.left() > last) {
        plate.moveLeft(std::clamp(plate.left(), room.left(), last));
        const bool below = room.bottom() - mark.y() > mark.y() - room.top();
        plate.moveTop(below ? mark.y() + away : mark.y() - away - size.height());
    }
    plate.moveTop(std::clamp(plate.top(), room.top() + 2,
                             std::max(room.top() + 2, room.bottom() - size.height() - 2)));
    return plate;
}

}  // namespace

ReadingLayer::ReadingLayer(Control& drawing, QWidget* over)
    : QWidget(over), drawing_(drawing), below_(*over), marks_(drawing) {
    setObjectName("ReadingLayer");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    over->installEventFilter(this);
    hide();
}

double ReadingLayer::scale() const {
    return drawing_.width > 0 ? width() / double{drawing_.width} : 0;
}

QRect ReadingLayer::seen() const {
    return below_.mask().isEmpty() ? rect() : below_.mask().boundingRect();
}

void ReadingLayer::point(QPointF px) {
    if (scale() <= 0) return;
    marks_.point({static_cast<float>(px.x() / scale()), static_cast<float>(px.y() / scale())});
    byKeys_ = false;
    moved();
}

void ReadingLayer::leave() {
    // What the keyboard marked stays while it is there.
    if (byKeys_ && below_.hasFocus()) return;
    marks_.leave();
    moved();
}

void ReadingLayer::begin(const std::optional<Place>& at) {
    if (marks_.at() || !marks_.any()) return;
    if (at) {
        marks_.point(*at);
    } else {
        marks_.step(ReadingMarks::Step::First);
    }
    // What stands there is told with the drawing, which has just got the focus.
    byKeys_ = false;
    moved();
    byKeys_ = true;
}

void ReadingLayer::fix() {
    marks_.fix();
    moved();
}

bool ReadingLayer::key(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    if (event.key() == Qt::Key_Space) {
        fix();
        return true;
    }
    const auto step = stepOf(event.key());
    if (!step || !marks_.any()) return false;
    const bool went = marks_.step(*step);
    byKeys_ = true;
    moved();
    // Up and down lead out of a drawing that has one value at each place.
    return went || (step != ReadingMarks::Step::Up && step != ReadingMarks::Step::Down);
}

void ReadingLayer::sync() {
    setGeometry(below_.rect());
    if (marks_.placed()) moved();
}

/// A window that was closed opens again without marks.
bool ReadingLayer::eventFilter(QObject* below, QEvent* event) {
    const bool closed = below == &below_ && event->type() == QEvent::Hide &&
                        !event->spontaneous() && !below_.window()->isVisible();
    if (closed && marks_.placed()) {
        marks_.clear();
        moved();
    }
    return false;
}

void ReadingLayer::moved() {
    const bool placed = marks_.placed();
    setVisible(placed && (marks_.at() || marks_.fixedAt()));
    update();
    QStringList lines;
    if (placed) {
        for (const std::string& line : marks_.lines()) lines << QString::fromStdString(line);
    }
    const QString told =
        lines.isEmpty() ? below_.accessibleName() : lines.join(QLatin1String(". "));
    if (below_.accessibleDescription() == told) return;
    below_.setAccessibleDescription(told);
    if (byKeys_ && !lines.isEmpty() && below_.hasFocus()) tellMark(below_);
}

void ReadingLayer::paintMark(QPainter& painter, Place at, Qt::PenStyle style) const {
    const QPointF place = pixels(at);
    const qreal unit = scale() * 10;
    painter.setPen(QPen(QColor(kFocus), std::max(1., unit), style));
    painter.setBrush(Qt::NoBrush);
    const double middle = std::floor(place.x()) + 0.5;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.drawLine(QPointF(middle, seen().top()), QPointF(middle, seen().bottom()));
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(kFocus), std::max(1.5, 1.6 * unit)));
    painter.drawEllipse(place, 5 * unit, 5 * unit);
}

QStringList ReadingLayer::hints() {
    const Language language = drawing_.form().language;
    QStringList hints;
    if (drawing_.onPick && drawing_.picks.english[0] != 0)
        hints << qText(wordsIn(language, drawing_.picks));
    if (!marks_.fixedAt())
        hints << qText(wordsIn(language, {"Espacio o botón derecho: fijar una marca",
                                          "Space or right button: fix a mark"}));
    return hints;
}

void ReadingLayer::paintPlate(QPainter& painter, Place at) {
    const qreal unit = scale() * 10;
    const QFont numbers = Fonts::get().font(kPlateTwips * scale(), Weight::Bold);
    const QFont words = Fonts::get().font(kHintTwips * scale(), Weight::Normal);
    struct Line {
        QString text;
        const QFont* font;
        QColor ink;
    };
    QList<Line> lines;
    for (const std::string& line : marks_.lines())
        lines << Line{QString::fromStdString(line), &numbers, QColor(kText)};
    for (const QString& hint : hints()) lines << Line{hint, &words, QColor(kKeyTextOff)};

    QSizeF size;
    for (const Line& line : lines) {
        const QFontMetricsF metrics(*line.font);
        size.setWidth(std::max(size.width(), metrics.horizontalAdvance(line.text)));
        size.setHeight(size.height() + metrics.height());
    }
    const qreal edge = 7 * unit;
    const QRectF plate =
        besideMark(size + QSizeF(2 * edge, 2 * edge), pixels(at), seen(), 12 * unit);

    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(kFaceplateEdge), 1));
    painter.setBrush(QColor(kFaceplateTop));
    painter.drawRoundedRect(plate, 4 * unit, 4 * unit);
    qreal top = plate.top() + edge;
    for (const Line& line : lines) {
        const qreal high = QFontMetricsF(*line.font).height();
        painter.setFont(*line.font);
        painter.setPen(line.ink);
        painter.drawText(QRectF(plate.left() + edge, top, size.width() + 1, high),
                         Qt::AlignLeft | Qt::AlignVCenter, line.text);
        top += high;
    }
}

bool cameByTab(const QFocusEvent& event) {
    return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason;
}

void ReadingLayer::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setClipRect(seen());
    if (const auto fixed = marks_.fixedAt()) paintMark(painter, *fixed, Qt::DashLine);
    const auto at = marks_.at();
    if (!at) return;
    paintMark(painter, *at, Qt::SolidLine);
    paintPlate(painter, *at);
}

}  // namespace display::qt
