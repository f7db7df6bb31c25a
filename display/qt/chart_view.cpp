// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/chart_view.h"

#include <qcustomplot.h>

#include <QToolTip>
#include <cmath>

#include "display/qt/faces.h"
#include "display/qt/palette.h"

namespace display::qt {

namespace {

constexpr QRgb kSeries[] = {0xff5aa5ff, 0xff00d8d8, 0xfff5a50a, 0xff6fdc6f};

QColor seriesColour(int column) {
    return QColor(kSeries[(column - 1) % 4]);
}

double valueAt(const Chart& chart, int row, int column) {
    return qText(chart.dataAt(row, column)).trimmed().toDouble();
}

}  // namespace

ChartView::ChartView(Chart& chart, QWidget* parent)
    : QWidget(parent), chart_(chart), plot_(new QCustomPlot(this)) {
    setFocusPolicy(Qt::NoFocus);
    plot_->setFocusPolicy(Qt::NoFocus);
    dress();
    connect(plot_, &QCustomPlot::mouseMove, this, &ChartView::tellValue);
}

void ChartView::dress() {
    plot_->setBackground(QBrush(QColor(kWellBottom)));
    plot_->axisRect()->setBackground(QBrush(QColor(kWellTop)));
    const QPen line{QColor(kWellRim)};
    const QPen grid{QColor(0x24, 0x2b, 0x33), 0, Qt::DotLine};
    for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis}) {
        axis->setBasePen(line);
        axis->setTickPen(line);
        axis->setSubTickPen(Qt::NoPen);
        axis->setTickLabelColor(QColor(kText));
        axis->setTickLabelFont(Faces::get().font(11, Weight::Normal));
        axis->grid()->setPen(grid);
        axis->grid()->setZeroLinePen(line);
    }
    plot_->xAxis->grid()->setVisible(false);
}

void ChartView::resizeEvent(QResizeEvent*) {
    plot_->setGeometry(rect());
}

void ChartView::labelRows() {
    QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
    const int rows = chart_.rowCount();
    const int every = std::max(1, rows * 34 / std::max(width(), 1));
    for (int row = 1; row <= rows; row += every) {
        ticker->addTick(row, qText(chart_.rowLabelAt(row)));
    }
    plot_->xAxis->setTicker(ticker);
    plot_->xAxis->setRange(0.4, rows + 0.6);
    plot_->yAxis->setRange(chart_.lowest, chart_.highest);
}

void ChartView::drawBars() {
    const int columns = chart_.columnCount();
    const double width = 0.8 / std::max(columns, 1);
    for (int column = 1; column <= columns; ++column) {
        auto* bars = new QCPBars(plot_->xAxis, plot_->yAxis);
        bars->setWidth(width * 0.92);
        bars->setBaseValue(chart_.lowest);
        bars->setPen(Qt::NoPen);
        bars->setBrush(seriesColour(column));
        for (int row = 1; row <= chart_.rowCount(); ++row) {
            if (chart_.dataAt(row, column).empty()) continue;
            bars->addData(row + (column - (columns + 1) / 2.0) * width,
                          valueAt(chart_, row, column));
        }
    }
}

void ChartView::drawCurves() {
    for (int column = 1; column <= chart_.columnCount(); ++column) {
        QCPGraph* graph = plot_->addGraph();
        graph->setPen(QPen(seriesColour(column), 1.8));
        for (int row = 1; row <= chart_.rowCount(); ++row) {
            if (chart_.dataAt(row, column).empty()) continue;
            graph->addData(row, valueAt(chart_, row, column));
        }
    }
}

void ChartView::sync() {
    plot_->clearPlottables();
    labelRows();
    if (chart_.style == Chart::Style::Bars) {
        drawBars();
    } else {
        drawCurves();
    }
    plot_->replot(QCustomPlot::rpQueuedReplot);
}

void ChartView::tellValue(QMouseEvent* event) {
    const int row = static_cast<int>(std::lround(plot_->xAxis->pixelToCoord(event->pos().x())));
    if (row < 1 || row > chart_.rowCount()) {
        QToolTip::hideText();
        return;
    }
    QStringList lines{qText(chart_.rowLabelAt(row))};
    for (int column = 1; column <= chart_.columnCount(); ++column) {
        lines << qText(chart_.dataAt(row, column));
    }
    QToolTip::showText(event->globalPosition().toPoint(), lines.join('\n'), plot_);
}

}  // namespace display::qt
