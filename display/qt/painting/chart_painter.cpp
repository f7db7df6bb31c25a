// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/chart_painter.h"

#include <algorithm>

#include <QPolygonF>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/surfaces.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

namespace {

// At the natural size a pixel is ten twips.
constexpr qreal kHair = 10;
constexpr qreal kCurve = 18;
constexpr qreal kPoint = 30;  ///< half the width of a curve's point
constexpr qreal kLabelGap = 50;

class ChartPaint {
 public:
    ChartPaint(QPainter& painter, const Chart& chart, const QRectF& box, qreal unit)
        : painter_(painter), chart_(chart), box_(box), unit_(unit), ink_(ChartInk::of(chart)) {
        const Chart::Insets insets = chart.insets;
        plot_ = box.adjusted(insets.left * unit, insets.top * unit, -insets.right * unit,
                             -insets.bottom * unit);
    }

    void paint() {
        painter_.fillRect(box_, ink_.ground);
        drawGrid();
        painter_.save();
        painter_.setClipRect(plot_, Qt::IntersectClip);
        for (int column = 1; column <= chart_.columnCount(); ++column) {
            if (chart_.style == Chart::Style::Bars) {
                drawEarlier(column);
                drawBars(column);
            } else {
                drawCurve(column);
            }
        }
        painter_.restore();
        drawAxes();
        writeLabels();
        writeNote();
    }

 private:
    /// Positions of rows and values in the plot.
    qreal x(double row) const {
        return plot_.left() + plot_.width() * (row - 0.5) / std::max(chart_.rowCount(), 1);
    }
    qreal y(double value) const {
        const double range = double{chart_.highest} - double{chart_.lowest};
        const double share = range > 0 ? (value - double{chart_.lowest}) / range : 0;
        return plot_.bottom() - plot_.height() * share;
    }
    QColor colourOf(int column) const { return qColour(chart_.seriesColourAt(column)); }

    void hairline(QPointF from, QPointF to) {
        painter_.setPen(QPen(ink_.line, kHair * unit_, Qt::SolidLine, Qt::FlatCap));
        painter_.drawLine(from, to);
    }

    void drawGrid() {
        if (chart_.gridStep > 0) {
            for (int i = 0; chart_.lowest + i * chart_.gridStep <= chart_.highest; ++i) {
                const qreal at = y(chart_.lowest + i * chart_.gridStep);
                hairline({plot_.left(), at}, {plot_.right(), at});
            }
        }
        // A grid line through the middle of a row would lie among its bars.
        if (chart_.style == Chart::Style::Bars) return;
        for (int row = 1; row <= chart_.rowCount(); ++row)
            hairline({x(row), plot_.top()}, {x(row), plot_.bottom()});
    }

    void drawAxes() {
        hairline(plot_.topLeft(), plot_.bottomLeft());
        hairline(plot_.bottomLeft(), plot_.bottomRight());
    }

    struct Bar {
        int row, column;
        double value;
        double share;  ///< of its place in the row
    };
    void drawBar(const Bar& bar, const QColor& colour) {
        // A value below the scale gets no bar, rather than one that hangs down from it.
        if (bar.value <= chart_.lowest) return;
        const qreal width =
            plot_.width() / std::max(chart_.rowCount(), 1) * chart_.barWidth() * bar.share;
        const qreal middle = x(chart_.barMiddle(bar.row, bar.column));
        painter_.fillRect(QRectF(QPointF(middle - width / 2, y(bar.value)),
                                 QPointF(middle + width / 2, plot_.bottom())),
                          colour);
    }

    void drawBars(int column) {
        for (int row = 1; row <= chart_.rowCount(); ++row) {
            if (const auto value = chart_.valueAt(row, column))
                drawBar({row, column, *value, Chart::kBarFill}, colourOf(column));
        }
    }

    /// Shadows fill the whole place of a bar, so that they are seen beside one that is as high.
    void drawEarlier(int column) {
        for (int row = 1; row <= chart_.rowCount(); ++row) {
            if (const auto value = chart_.earlierAt(row, column))
                drawBar({row, column, *value, 1}, ink_.shadow);
        }
    }

    void drawCurve(int column) {
        QPolygonF points;
        for (int row = 1; row <= chart_.rowCount(); ++row) {
            if (const auto value = chart_.valueAt(row, column))
                points << QPointF(x(row), y(*value));
        }
        painter_.setRenderHint(QPainter::Antialiasing, true);
        QPen pen(colourOf(column), kCurve * unit_);
        if (chart_.dashed) pen.setDashPattern({4, 5});
        painter_.setPen(pen);
        painter_.setBrush(Qt::NoBrush);
        painter_.drawPolyline(points);
        if (!chart_.dashed) {
            painter_.setPen(Qt::NoPen);
            painter_.setBrush(colourOf(column));
            for (const QPointF& point : points)
                painter_.drawEllipse(point, kPoint * unit_, kPoint * unit_);
        }
        painter_.setRenderHint(QPainter::Antialiasing, false);
    }

    void writeLabels() {
        painter_.setFont(Fonts::get().font(kChartLabelTwips * unit_, Weight::Normal));
        painter_.setPen(ink_.words);
        for (int row = 1; row <= chart_.rowCount(); ++row) {
            const int column = chart_.rowLabelColumnAt(row);
            const qreal middle = x(column > 0 ? chart_.barMiddle(row, column) : row);
            painter_.drawText(QRectF(middle, plot_.bottom() + kLabelGap * unit_, 0, 0),
                              Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip,
                              qText(chart_.rowLabelAt(row)).trimmed());
        }
    }

    void writeNote() {
        if (chart_.note.empty()) return;
        painter_.setFont(Fonts::get().font(kChartNoteTwips * unit_, Weight::Bold));
        painter_.setPen(ink_.words);
        const QPointF middle = plot_.topLeft() + QPointF(plot_.width() / 2, plot_.height() / 4);
        painter_.drawText(QRectF(middle, QSizeF()), Qt::AlignCenter | Qt::TextDontClip,
                          qText(chart_.note));
    }

    QPainter& painter_;
    const Chart& chart_;
    QRectF box_, plot_;
    qreal unit_;
    ChartInk ink_;
};

}  // namespace

ChartInk ChartInk::of(const Control& drawing) {
    if (standsOnLight(drawing))
        return {Qt::white, QColor(kPaperLine), QColor(kLitText), QColor(kPlateTop)};
    return {QColor(kWellBottom), QColor(kWellRim), QColor(kText), QColor(kChartShadow)};
}

void paintChart(QPainter& painter, const Chart& chart, const QRectF& box, qreal unit) {
    painter.save();
    ChartPaint(painter, chart, box, unit).paint();
    painter.restore();
}

}  // namespace display::qt
