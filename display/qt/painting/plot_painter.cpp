// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/plot_painter.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "display/qt/painting/chart_painter.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

namespace {

// In twips: at the natural size a pixel is ten of them.
constexpr qreal kPlotHair = 10;
constexpr qreal kTrace = 18;
constexpr qreal kMarkLine = 13;
constexpr qreal kHatchStep = 65;
constexpr qreal kFoot = 35;  ///< the mark below what is known in part
constexpr qreal kFlag = 75;
constexpr qreal kFlagsApart = 3;  ///< in widths of a flag
constexpr qreal kHead = 55;       ///< of a mark
constexpr qreal kBeside = 70;
constexpr qreal kTitleTwips = 130;
/// A column on paper, whose own pixels are finer than anybody sees.
constexpr qreal kNarrowest = 0.8;
/// Points that are farther apart than so many columns are joined by a smooth line.
constexpr double kApart = 2;
constexpr int kBandAlpha = 88;
constexpr int kHoleAlpha = 30;
constexpr int kReferenceAlpha = 170;

QColor withAlpha(QColor colour, int alpha) {
    colour.setAlpha(alpha);
    return colour;
}

/// Upper and lower edge of what is filled in one column.
struct Edge {
    qreal left = 0, right = 0, top = 0, bottom = 0;
};

class PlotPaint {
 public:
    PlotPaint(QPainter& painter, const Plot& plot, const PlotPlace& place)
        : painter_(painter),
          plot_(plot),
          box_(place.box),
          curves_(place.curves(plot)),
          unit_(place.twip),
          pixel_(1 / place.devicePixels),
          ink_(ChartInk::of(plot)) {
        const qreal each = std::max(pixel_, kNarrowest * unit_);
        columns_ = std::max(static_cast<int>(std::ceil(curves_.width() / each - 1e-6)), 1);
        step_ = curves_.width() / columns_;
    }

    void paint() {
        painter_.fillRect(box_, ink_.ground);
        drawGrid();
        writeHead();
        if (curves_.isEmpty()) return;
        std::vector<std::vector<PlotColumn>> columns;
        for (const PlotSeries& series : plot_.series())
            columns.push_back(columnsOf(series, plot_.x, columns_));
        for (const auto& seen : columns) hatchHoles(seen);
        if (plot_.reference()) drawReference(*plot_.reference());
        drawLimits();  // a dash would hide the curve that is judged by it
        for (std::size_t i = 0; i < columns.size(); ++i) drawSeries(plot_.series()[i], columns[i]);
        drawFlags();
        drawMarks();
        writeNote();
    }

 private:
    qreal xOf(double value) const {
        return curves_.left() + curves_.width() * plot_.x.get().shareOf(value);
    }
    /// Kept near the picture: painters take no coordinates of any size.
    qreal yOf(double value) const {
        const double share = std::clamp(plot_.y.get().shareOf(value), -2.0, 3.0);
        return curves_.bottom() - curves_.height() * share;
    }
    qreal onPixel(qreal place) const { return std::floor(place / pixel_) * pixel_; }
    bool inView(double x) const { return x >= plot_.x.get().lowest && x <= plot_.x.get().highest; }
    qreal hair() const { return std::max(pixel_, onPixel(kPlotHair * unit_)); }

    void fillLine(qreal left, qreal top, qreal width, qreal height, const QColor& colour) {
        painter_.fillRect(QRectF(left, top, width, height), colour);
    }

    void drawGrid() {
        const QColor across = ink_.line;
        const QColor up = withAlpha(ink_.line, 110);
        painter_.setFont(Fonts::get().font(kChartLabelTwips * unit_, Weight::Normal));
        for (const PlotTick& tick : plot_.ticksUp(curves_.height() / unit_)) {
            const qreal at = onPixel(yOf(tick.at) - hair() / 2);
            fillLine(curves_.left(), at, curves_.width(), hair(), across);
            painter_.setPen(ink_.words);
            painter_.drawText(QRectF(curves_.left() - kBeside * unit_, yOf(tick.at), 0, 0),
                              Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                              qText(tick.words));
        }
        const bool words = plot_.insets.get().bottom > kChartLabelTwips;
        for (const PlotTick& tick : plot_.ticksAcross(curves_.width() / unit_)) {
            const qreal at = xOf(tick.at);
            fillLine(onPixel(at), curves_.top(), hair(), curves_.height(), up);
            if (!words) continue;
            painter_.setPen(ink_.words);
            painter_.drawText(QRectF(at, curves_.bottom() + kBeside * unit_, 0, 0),
                              Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip,
                              qText(tick.words));
        }
    }

    void writeHead() {
        const qreal down = box_.top() + plot_.insets.get().top * unit_ / 2;
        if (!plot_.title.empty()) {
            const bool coloured = !plot_.series().empty();
            const QColor colour =
                coloured ? legibleOn(ink_.ground, qColour(plot_.series().front().colour))
                         : ink_.words;
            painter_.setFont(Fonts::get().font(kTitleTwips * unit_, Weight::Bold));
            painter_.setPen(colour);
            painter_.drawText(QRectF(curves_.left() + kBeside * unit_ / 2, down, 0, 0),
                              Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip,
                              qText(plot_.title));
        }
        painter_.setFont(Fonts::get().font(kChartLabelTwips * unit_, Weight::Normal));
        painter_.setPen(withAlpha(ink_.words, 190));
        painter_.drawText(QRectF(curves_.left() - kBeside * unit_, down, 0, 0),
                          Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip, qText(plot_.unit));
    }

    /// Each stretch of columns with the same cause.
    void hatchHoles(const std::vector<PlotColumn>& columns) {
        for (std::size_t i = 0; i < columns.size();) {
            std::size_t end = i + 1;
            if (!columns[i].hole()) {
                if (columns[i].cause != 0) markFoot(i, columns[i].cause);
                i = end;
                continue;
            }
            while (end < columns.size() && columns[end].hole() &&
                   columns[end].cause == columns[i].cause)
                ++end;
            hatch(left(i), left(end), qColour(plot_.causeColour(columns[i].cause)));
            i = end;
        }
    }
    qreal left(std::size_t column) const {
        return curves_.left() + static_cast<qreal>(column) * step_;
    }

    /// Below what is known in part: a hole that is narrower than a column does not get lost.
    void markFoot(std::size_t column, std::uint8_t cause) {
        const qreal high = kFoot * unit_;
        fillLine(left(column), curves_.bottom() - high, step_, high,
                 qColour(plot_.causeColour(cause)));
    }

    /// Lines at 45 degrees that meet across stretches. They are cut by their own ends, not by a
    /// clip.
    void hatch(qreal from, qreal to, const QColor& colour) {
        painter_.fillRect(QRectF(from, curves_.top(), to - from, curves_.height()),
                          withAlpha(colour, kHoleAlpha));
        const qreal step = kHatchStep * unit_;
        QVector<QLineF> lines;
        // On each line x + y is the same.
        const qreal first = from + curves_.top();
        const qreal last = to + curves_.bottom();
        for (qreal sum = std::ceil(first / step) * step; sum < last; sum += step) {
            const qreal x1 = std::max(from, sum - curves_.bottom());
            const qreal x2 = std::min(to, sum - curves_.top());
            if (x2 >= x1) lines << QLineF(x1, sum - x1, x2, sum - x2);
        }
        painter_.setPen(QPen(colour, hair()));
        painter_.drawLines(lines);
    }

    void drawReference(const PlotSeries& reference) {
        const std::vector<PlotColumn> columns = columnsOf(reference, plot_.x, columns_);
        fillTrace(columns, withAlpha(qColour(reference.colour), kReferenceAlpha));
    }

    void drawSeries(const PlotSeries& series, const std::vector<PlotColumn>& columns) {
        const QColor colour = qColour(series.colour);
        fillBand(columns, withAlpha(colour, kBandAlpha));
        if (series.each == 0 && isSparse(series)) {
            drawSmooth(series, colour);
        } else {
            fillTrace(columns, colour);
        }
    }

    bool isSparse(const PlotSeries& series) const {
        const auto [first, end] = seenOf(series);
        return static_cast<double>(end - first) * kApart < columns_;
    }
    /// The points in view, and one beside them on either side.
    std::pair<std::size_t, std::size_t> seenOf(const PlotSeries& series) const {
        const auto& points = series.points;
        const auto low = std::ranges::lower_bound(points, plot_.x.get().lowest, {}, &PlotPoint::x) -
                         points.begin();
        const auto high =
            std::ranges::upper_bound(points, plot_.x.get().highest, {}, &PlotPoint::x) -
            points.begin();
        return {static_cast<std::size_t>(std::max<std::ptrdiff_t>(low - 1, 0)),
                std::min(static_cast<std::size_t>(high) + 1, points.size())};
    }

    void drawSmooth(const PlotSeries& series, const QColor& colour) {
        const auto [first, end] = seenOf(series);
        painter_.save();
        painter_.setClipRect(curves_, Qt::IntersectClip);
        painter_.setRenderHint(QPainter::Antialiasing, true);
        painter_.setPen(QPen(colour, kTrace * unit_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        QPolygonF run;
        const auto finish = [&] {
            if (run.size() == 1) painter_.drawPoint(run.front());
            if (run.size() > 1) painter_.drawPolyline(run);
            run.clear();
        };
        for (std::size_t i = first; i < end; ++i) {
            const PlotPoint& point = series.points[i];
            if (!point.known()) {
                finish();
            } else {
                run << QPointF(xOf(point.x), yOf(static_cast<double>(point.y)));
            }
        }
        finish();
        painter_.restore();
    }

    void fillBand(const std::vector<PlotColumn>& columns, const QColor& colour) {
        std::vector<Edge> run;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const PlotColumn& column = columns[i];
            if (!column.known || !(column.highest > column.lowest)) {
                fillRun(run, colour);
                continue;
            }
            addEdge(run, i, yOf(static_cast<double>(column.highest)),
                    yOf(static_cast<double>(column.lowest)), colour);
        }
        fillRun(run, colour);
    }

    void fillTrace(const std::vector<PlotColumn>& columns, const QColor& colour) {
        // A whole number of pixels, so that a level line is as thick everywhere.
        const qreal thick = std::max(onPixel(kTrace * unit_ + pixel_ / 2), pixel_);
        std::vector<Edge> run;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const PlotColumn& column = columns[i];
            if (!column.known) {
                fillRun(run, colour);
                continue;
            }
            float low = column.low;
            float high = column.high;
            if (column.joins && i > 0 && columns[i - 1].known) {
                low = std::min(low, columns[i - 1].high);
                high = std::max(high, columns[i - 1].low);
            } else {
                fillRun(run, colour);
            }
            const qreal top = onPixel(yOf(static_cast<double>(high)) - thick / 2 + pixel_ / 2);
            const qreal bottom =
                onPixel(yOf(static_cast<double>(low)) - thick / 2 + pixel_ / 2) + thick;
            addEdge(run, i, top, bottom, colour);
        }
        fillRun(run, colour);
    }

    void addEdge(std::vector<Edge>& run, std::size_t column, qreal top, qreal bottom,
                 const QColor& colour) {
        top = std::max(top, curves_.top());
        bottom = std::min(bottom, curves_.bottom());
        if (bottom <= top) {
            fillRun(run, colour);
            return;
        }
        run.push_back({left(column), left(column + 1), top, bottom});
    }

    /// A run of columns side by side as one outline: in a vector file adjoining boxes would show
    /// their seams.
    void fillRun(std::vector<Edge>& run, const QColor& colour) {
        if (run.empty()) return;
        QPolygonF outline;
        outline.reserve(static_cast<qsizetype>(run.size() * 4));
        for (const Edge& edge : run)
            outline << QPointF(edge.left, edge.top) << QPointF(edge.right, edge.top);
        for (auto edge = run.rbegin(); edge != run.rend(); ++edge)
            outline << QPointF(edge->right, edge->bottom) << QPointF(edge->left, edge->bottom);
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(colour);
        painter_.drawPolygon(outline);
        run.clear();
    }

    void drawLimits() {
        for (const PlotLimit& limit : plot_.limits()) {
            if (limit.y < plot_.y.get().lowest || limit.y > plot_.y.get().highest) continue;
            const qreal at = onPixel(yOf(limit.y)) + hair() / 2;
            QPen pen(qColour(limit.colour), std::max(kMarkLine * unit_, pixel_), Qt::SolidLine,
                     Qt::FlatCap);
            pen.setDashPattern({5, 4});
            painter_.setPen(pen);
            painter_.drawLine(QPointF(curves_.left(), at), QPointF(curves_.right(), at));
        }
    }

    /// The flags in view by their colours, the most frequent colour first, so that what is rare
    /// lies over it; of one colour none nearer to the one before than its own width.
    void drawFlags() {
        struct OfColour {
            Colour colour;
            std::size_t count = 0;
            std::vector<qreal> places;
        };
        std::vector<OfColour> colours;
        std::size_t all = 0;
        const qreal size = kFlag * unit_;
        for (const PlotFlag& flag : plot_.flags()) {
            if (!inView(flag.x)) continue;
            auto of = std::ranges::find(colours, flag.colour, &OfColour::colour);
            if (of == colours.end()) of = colours.insert(of, {flag.colour, 0, {}});
            const qreal at = onPixel(xOf(flag.x));
            ++all;
            ++of->count;
            if (of->places.empty() || at >= of->places.back() + size) of->places.push_back(at);
        }
        std::ranges::stable_sort(colours, std::ranges::greater(), &OfColour::count);
        // Each with a line through the curves, while these are seen between them.
        const bool haveLines = static_cast<qreal>(all) * size * kFlagsApart <= curves_.width();
        for (const OfColour& of : colours) {
            for (const qreal at : of.places) drawFlag(at, size, qColour(of.colour), haveLines);
        }
    }

    void drawFlag(qreal at, qreal size, const QColor& colour, bool hasLine) {
        if (hasLine) fillLine(at, curves_.top(), hair(), curves_.height(), withAlpha(colour, 120));
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(colour);
        painter_.drawPolygon(
            QPolygonF({QPointF(at, curves_.top()), QPointF(at + size, curves_.top() + size * 0.45),
                       QPointF(at, curves_.top() + size * 0.9)}));
    }

    void drawMarks() {
        const QColor colours[] = {ink_.words, QColor(kAmber)};
        for (std::size_t i = 0; i < Plot::kMarks; ++i) {
            const auto at = plot_.mark(i);
            if (!at || !inView(*at)) continue;
            const qreal wide = std::max(onPixel(kMarkLine * unit_), pixel_);
            const qreal x = onPixel(xOf(*at) - wide / 2 + pixel_ / 2);
            fillLine(x, curves_.top(), wide, curves_.height(), colours[i]);
            const qreal size = kHead * unit_;
            const qreal middle = x + wide / 2;
            painter_.setPen(Qt::NoPen);
            painter_.setBrush(colours[i]);
            painter_.setRenderHint(QPainter::Antialiasing, true);
            painter_.drawPolygon(QPolygonF({QPointF(middle - size, curves_.top() - size),
                                            QPointF(middle + size, curves_.top() - size),
                                            QPointF(middle, curves_.top() + size * 0.4)}));
            painter_.setRenderHint(QPainter::Antialiasing, false);
        }
    }

    void writeNote() {
        if (plot_.note.empty()) return;
        painter_.setFont(Fonts::get().font(kTitleTwips * unit_, Weight::Normal));
        painter_.setPen(withAlpha(ink_.words, 200));
        painter_.drawText(curves_, Qt::AlignCenter | Qt::TextWordWrap, qText(plot_.note));
    }

    QPainter& painter_;
    const Plot& plot_;
    QRectF box_, curves_;
    qreal unit_, pixel_;
    ChartInk ink_;
    int columns_ = 1;
    qreal step_ = 1;
};

}  // namespace

QRectF PlotPlace::curves(const Plot& plot) const {
    const Plot::Insets insets = plot.insets;
    const QRectF inner = box.adjusted(insets.left * twip, insets.top * twip, -insets.right * twip,
                                      -insets.bottom * twip);
    const auto onPixel = [this](qreal place) {
        return std::floor(place * devicePixels + 0.5) / devicePixels;
    };
    return {QPointF(onPixel(inner.left()), onPixel(inner.top())),
            QPointF(onPixel(inner.right()), onPixel(inner.bottom()))};
}

void paintPlot(QPainter& painter, const Plot& plot, const PlotPlace& place) {
    painter.save();
    PlotPaint(painter, plot, place).paint();
    painter.restore();
}

}  // namespace display::qt
