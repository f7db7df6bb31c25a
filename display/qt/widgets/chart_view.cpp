// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/chart_view.h"

#include <qcustomplot.h>

#include <QKeyEvent>
#include <QPainter>
#include <QString>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <optional>

#include "display/qt/accessibility/arrow_focus.h"
#include "display/qt/painting/chart_painter.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/widgets/key_widgets.h"

namespace display::qt {

namespace {

/// The focus ring over a widget that paints itself.
class FocusRing final : public QWidget {
 public:
    explicit FocusRing(QWidget* over) : QWidget(over) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintFocusRing(painter, rect());
    }
};

}  // namespace

ChartView::ChartView(Hand& hand, Chart& chart, QWidget* parent)
    : QWidget(parent),
      hand_(hand),
      chart_(chart),
      plot_(new QCustomPlot(this)),
      marks_(new ReadingLayer(chart, this)),
      ring_(new FocusRing(this)) {
    setFocusPolicy(Qt::NoFocus);
    plot_->setFocusPolicy(Qt::NoFocus);
    dress();
    connect(plot_, &QCustomPlot::mouseMove, this, &ChartView::pointerMoved);
    connect(plot_, &QCustomPlot::mousePress, this, &ChartView::pointerPressed);
}

void ChartView::dress() {
    plot_->axisRect()->setBackground(Qt::NoBrush);
    // Only the chart's insets decide where the plot lies.
    plot_->axisRect()->setAutoMargins(QCP::msNone);
    plot_->plotLayout()->setMargins(QMargins(0, 0, 0, 0));
    plot_->yAxis->setTickLabels(false);
}

void ChartView::ink() {
    const ChartInk ink = ChartInk::of(chart_);
    plot_->setBackground(QBrush(ink.ground));
    const QPen line{ink.line};
    for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis}) {
        axis->setBasePen(line);
        axis->setTickPen(Qt::NoPen);
        axis->setSubTickPen(Qt::NoPen);
        axis->setTickLabelColor(ink.words);
        axis->grid()->setPen(line);
        axis->grid()->setZeroLinePen(line);
    }
}

double ChartView::scale() const {
    return chart_.width > 0 ? width() / double{chart_.width} : 0;
}

QColor ChartView::colourOf(int column) const {
    const Colour colour = chart_.seriesColourAt(column);
    return {colour.red(), colour.green(), colour.blue()};
}

void ChartView::resizeEvent(QResizeEvent*) {
    plot_->setGeometry(rect());
    layOut();
    marks_->sync();
    showRing();
}

/// The visible part of a chart that is wider than its window. The ring is shown after a click too,
/// since it marks the chart that is copied.
void ChartView::showRing() {
    ring_->setGeometry(mask().isEmpty() ? rect() : mask().boundingRect());
    ring_->setVisible(hasFocus());
}

void ChartView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    showRing();
    if (!cameByTab(*event)) return;
    const Chart::Cell cell = chart_.chosen;
    std::optional<Place> at;
    if (cell.row > 0) at = chart_.placeOf(chart_.barMiddle(cell.row, cell.column), chart_.highest);
    marks_->begin(at);
}

void ChartView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    showRing();
    marks_->leave();
}

void ChartView::leaveEvent(QEvent*) {
    marks_->leave();
}

void ChartView::pointerMoved(QMouseEvent* event) {
    if (marks_->any()) {
        marks_->point(event->position());
    } else {
        tellValue(event);
    }
}

void ChartView::pointerPressed(QMouseEvent* event) {
    if (!marks_->any()) return;
    marks_->point(event->position());
    if (event->button() == Qt::RightButton) marks_->fix();
    if (event->button() == Qt::LeftButton) pickMarked();
}

bool ChartView::pickMarked() {
    const auto row = marks_->row();
    if (!chart_.onPick || !row) return false;
    hand_.pick(chart_, *row);
    return true;
}

bool ChartView::event(QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::event(event);
    const auto& pressed = static_cast<QKeyEvent&>(*event);
    if (marks_->key(pressed)) return true;
    if ((pressed.key() == Qt::Key_Return || pressed.key() == Qt::Key_Enter) && pickMarked())
        return true;
    // Arrow keys that the marks do not use move the focus out of a chart, as Tab does.
    return moveFocusByArrow(*this, pressed.key()) || QWidget::event(event);
}

void ChartView::layOut() {
    const Chart::Insets insets = chart_.insets;
    const auto pixels = [this](float units) { return qRound(units * scale()); };
    plot_->axisRect()->setMargins(QMargins(pixels(insets.left), pixels(insets.top),
                                           pixels(insets.right), pixels(insets.bottom)));
    plot_->xAxis->setTickLabelFont(Fonts::get().font(kChartLabelTwips * scale(), Weight::Normal));
}

void ChartView::labelRows() {
    QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    const int rows = chart_.rowCount();
    for (int row = 1; row <= rows; ++row) {
        const int column = chart_.rowLabelColumnAt(row);
        ticker->addTick(column > 0 ? chart_.barMiddle(row, column) : row,
                        qText(chart_.rowLabelAt(row)).trimmed());
    }
    plot_->xAxis->setTicker(ticker);
    // A grid line through the middle of a row would lie among its bars.
    plot_->xAxis->grid()->setVisible(chart_.style == Chart::Style::Curve);
    plot_->xAxis->setRange(0.5, rows + 0.5);
    plot_->yAxis->setRange(chart_.lowest, chart_.highest);
    const bool lines = chart_.gridStep > 0;
    plot_->yAxis->grid()->setVisible(lines);
    if (!lines) return;
    QSharedPointer<QCPAxisTickerFixed> levels(new QCPAxisTickerFixed);
    levels->setTickStep(chart_.gridStep);
    levels->setTickOrigin(chart_.lowest);
    plot_->yAxis->setTicker(levels);
}

void ChartView::drawBars() {
    const int columns = chart_.columnCount();
    for (int column = 1; column <= columns; ++column) {
        auto* bars = new QCPBars(plot_->xAxis, plot_->yAxis);
        bars->setWidth(chart_.barWidth() * Chart::kBarFill);
        bars->setBaseValue(chart_.lowest);
        bars->setPen(Qt::NoPen);
        bars->setBrush(colourOf(column));
        for (int row = 1; row <= chart_.rowCount(); ++row) {
            const auto value = chart_.valueAt(row, column);
            // A value below the scale gets no bar, rather than one that hangs down from it.
            if (!value || *value <= chart_.lowest) continue;
            // QCustomPlot takes a bar's height above its base.
            bars->addData(chart_.barMiddle(row, column), *value - chart_.lowest);
        }
    }
}

/// Shadows fill the whole place of a bar, so that they are seen beside one that is as high.
void ChartView::drawEarlier() {
    auto* shadows = new QCPBars(plot_->xAxis, plot_->yAxis);
    shadows->setWidth(chart_.barWidth());
    shadows->setBaseValue(chart_.lowest);
    shadows->setPen(Qt::NoPen);
    shadows->setBrush(ChartInk::of(chart_).shadow);
    for (int row = 1; row <= chart_.rowCount(); ++row) {
        for (int column = 1; column <= chart_.columnCount(); ++column) {
            const auto value = chart_.earlierAt(row, column);
            if (!value || *value <= chart_.lowest) continue;
            shadows->addData(chart_.barMiddle(row, column), *value - chart_.lowest);
        }
    }
}

void ChartView::drawChosen() {
    const Chart::Cell cell = chart_.chosen;
    if (cell.row < 1) return;
    const double value = chart_.valueAt(cell.row, cell.column).value_or(chart_.lowest);
    // Stands on the bar, in pixels at the natural size.
    const double unit = 10 * scale();
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF{{-7 * unit, -13 * unit}, {7 * unit, -13 * unit}, {0, -2 * unit}});
    triangle.closeSubpath();
    QCPGraph* pointer = plot_->addGraph();
    pointer->setLineStyle(QCPGraph::lsNone);
    // Where a style has no pen, the graph's own draws its edge.
    pointer->setPen(Qt::NoPen);
    // A path of one's own is scaled by a sixth of the style's size.
    pointer->setScatterStyle(QCPScatterStyle(triangle, Qt::NoPen, QColor(kFocus), 6));
    pointer->addData(chart_.barMiddle(cell.row, cell.column),
                     std::clamp(value, double{chart_.lowest}, double{chart_.highest}));
}

void ChartView::drawCurves() {
    for (int column = 1; column <= chart_.columnCount(); ++column) {
        QCPGraph* graph = plot_->addGraph();
        QPen pen(colourOf(column), 1.8);
        if (chart_.dashed) {
            pen.setDashPattern({4, 5});
        } else {
            graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, 6));
        }
        graph->setPen(pen);
        for (int row = 1; row <= chart_.rowCount(); ++row) {
            if (const auto value = chart_.valueAt(row, column)) graph->addData(row, *value);
        }
    }
}

/// In the upper part of the plot, where a flat curve does not run.
void ChartView::writeNote() {
    plot_->clearItems();
    if (chart_.note.empty()) return;
    auto* note = new QCPItemText(plot_);
    note->position->setType(QCPItemPosition::ptAxisRectRatio);
    note->position->setCoords(0.5, 0.25);
    note->setText(qText(chart_.note));
    note->setFont(Fonts::get().font(kChartNoteTwips * scale(), Weight::Bold));
    note->setColor(ChartInk::of(chart_).words);
}

void ChartView::sync() {
    // A click chooses the chart that is copied.
    setFocusPolicy(focusPolicyOf(chart_, chart_.numbers ? Qt::ClickFocus : Qt::NoFocus));
    showRing();
    plot_->clearPlottables();
    ink();
    writeNote();
    layOut();
    labelRows();
    if (chart_.style == Chart::Style::Bars) {
        // Bars and grid lines are not antialiased: that costs time and blurs their edges.
        plot_->setNotAntialiasedElements(QCP::aeAll);
        drawEarlier();
        drawBars();
        drawChosen();
    } else {
        drawCurves();
    }
    plot_->replot(QCustomPlot::rpQueuedReplot);
    marks_->sync();
}

void ChartView::tellValue(QMouseEvent* event) {
    const double at = plot_->xAxis->pixelToCoord(event->pos().x());
    const int row = static_cast<int>(std::lround(at));
    int column = 1;
    if (chart_.style == Chart::Style::Bars)
        column =
            static_cast<int>(std::floor((at - row + Chart::kRowFill / 2) / chart_.barWidth())) + 1;
    if (row < 1 || row > chart_.rowCount() || column < 1 || column > chart_.columnCount() ||
        chart_.dataAt(row, column).empty()) {
        QToolTip::hideText();
        return;
    }
    const QString told = chart_.tellCell ? QString::fromStdString(chart_.tellCell(row, column))
                                         : qText(chart_.dataAt(row, column));
    QToolTip::showText(event->globalPosition().toPoint(), told, plot_);
}

}  // namespace display::qt
