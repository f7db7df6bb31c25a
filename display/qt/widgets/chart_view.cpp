// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/chart_view.h"

#include <qcustomplot.h>

#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

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

ChartView::ChartView(Chart& chart, QWidget* parent)
    : QWidget(parent), chart_(chart), plot_(new QCustomPlot(this)), ring_(new FocusRing(this)) {
    setFocusPolicy(Qt::NoFocus);
    plot_->setFocusPolicy(Qt::NoFocus);
    dress();
    connect(plot_, &QCustomPlot::mouseMove, this, &ChartView::tellValue);
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
}

void ChartView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    showRing();
}

bool ChartView::event(QEvent* event) {
    // Arrow keys move the focus out of a chart, as Tab does.
    if (event->type() == QEvent::KeyPress &&
        moveFocusByArrow(*this, static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QWidget::event(event);
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
        drawBars();
    } else {
        drawCurves();
    }
    plot_->replot(QCustomPlot::rpQueuedReplot);
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
