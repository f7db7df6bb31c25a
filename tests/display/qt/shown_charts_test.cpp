// SPDX-License-Identifier: GPL-3.0-or-later
// The charts and graphs, read back from their pixels and compared with the figures of the scale
// that is painted beside them.
#include <gtest/gtest.h>

#include <cmath>

#include "analyses/response_curve.h"
#include "core/numbers.h"
#include "display/qt/painting/palette.h"
#include "tests/display/qt/form_picture.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using display::qt::FormPicture;
using display::qt::inkBox;
using display::qt::isAbout;
using display::qt::onScale;
using display::qt::qColour;

/// The edges of a grabbed picture may be a pixel away from the scale's figures.
constexpr double kPixels = 1.5;

class ShownScan : public testing::Test {
 protected:
    ShownScan() {
        bench.start();
        scanner.load();
        picture = std::make_unique<FormPicture>(scanner);
        top = picture->middleOf(scanner.Scale[0]).y();
        foot = picture->middleOf(scanner.Scale[7]).y();
    }

    void put(int row, int column, std::string_view level) {
        scanner.Graph1.row = row;
        scanner.Graph1.column = column;
        scanner.Graph1.data(level);
    }
    /// The visible pixels of a cell's bar.
    QRect barOf(int row, int column) {
        const std::string level(scanner.Graph1.dataAt(row, column));
        return inkBox(
            picture->changedBy([&] { put(row, column, ""); }, [&] { put(row, column, level); }));
    }
    double dbOf(double y) const { return onScale(y, top, 100, foot, 30); }
    double dbOfPixels() const { return kPixels * 70 / (foot - top); }

    RackBench bench;
    Form_BandSCanner& scanner = bench.forms.formBandSCanner;
    std::unique_ptr<FormPicture> picture;
    double top = 0, foot = 0;
};

TEST_F(ShownScan, ABarReachesItsLevelOnTheScaleBesideIt) {
    const int levels[] = {31, 36, 50, 66, 70, 71, 99, 100};
    int row = 1;
    for (const int level : levels) {
        put(row, 3, shortText(level));
        const QRect bar = barOf(row, 3);
        ASSERT_FALSE(bar.isEmpty()) << level;
        EXPECT_NEAR(dbOf(bar.top()), level, dbOfPixels()) << level;
        EXPECT_NEAR(dbOf(bar.bottom()), 30, dbOfPixels()) << level;
        ++row;
    }
}

TEST_F(ShownScan, ALevelAtTheFootOrBelowIsNoBarAndOneAboveIsCutAtTheTop) {
    put(2, 1, "30");
    put(3, 1, "12");
    put(4, 1, "130");
    EXPECT_TRUE(barOf(2, 1).isEmpty());
    EXPECT_TRUE(barOf(3, 1).isEmpty());
    EXPECT_NEAR(dbOf(barOf(4, 1).top()), 100, dbOfPixels());
}

TEST_F(ShownScan, BarsOfARowStandSideBySideInTheColoursOfTheLegend) {
    for (int column = 1; column <= 5; ++column) put(4, column, "80");
    const QImage image = picture->taken();
    int after = 0;
    for (int column = 1; column <= 5; ++column) {
        const QRect bar = barOf(4, column);
        EXPECT_GE(bar.left(), after) << column;
        after = bar.right() - 1;
        const QColor legend =
            qColour(scanner.legend.stroke(static_cast<std::size_t>(column - 1)).colour);
        EXPECT_TRUE(isAbout(image.pixelColor(bar.center()), legend)) << column;
    }
}

TEST_F(ShownScan, TheLabelOfARowStandsUnderTheBarOfItsChannel) {
    struct Choice {
        display::Option& option;
        int row1Column;
    };
    // Row 1 is labelled at the band's beginning, every other row at its first channel.
    for (const Choice& choice : {Choice{scanner.Option_Impares, 3}, Choice{scanner.Option_Pares, 4},
                                 Choice{scanner.Option_250Khz, 3}, Choice{scanner.Option_All, 6}}) {
        choice.option.choose();
        for (const int row : {1, 2, 7}) {
            const int column = row == 1 ? choice.row1Column : 1;
            put(row, column, "90");
            const std::string label(scanner.Graph1.rowLabelAt(row));
            const auto write = [&](std::string_view text) {
                scanner.Graph1.row = row;
                scanner.Graph1.rowLabel(text);
            };
            const QRect ink = inkBox(picture->changedBy([&] { write(""); }, [&] { write(label); }));
            ASSERT_FALSE(ink.isEmpty()) << label;
            EXPECT_NEAR(QRectF(ink).center().x(), QRectF(barOf(row, column)).center().x(), 2.5)
                << label << " of " << choice.option.name();
        }
    }
}

/// The response window and its points: the middle of the disc in each row.
class ShownResponse : public testing::Test {
 protected:
    ShownResponse() {
        bench.start();
        picture = std::make_unique<FormPicture>(window);
        top = picture->middleOf(window.ScaleNumber[0]).y();
        foot = picture->middleOf(window.ScaleNumber[6]).y();
    }
    void measured(const ResponsePairs& pairs) { ResponseCurve::of(pairs).show(window.Graph1); }
    /// The level at which the curve crosses a row's middle, in dB.
    double dbAt(int row) {
        const QImage image = picture->taken();
        const QRect chart = picture->boxOf(window.Graph1);
        const double x = chart.left() + chart.width() * (row - 0.5) / window.Graph1.rowCount();
        const QRect column(static_cast<int>(x) - 1, chart.top(), 3, chart.height());
        const QRect ink = inkBox(image, column, qColour(window.Graph1.seriesColourAt(1)));
        return onScale(QRectF(ink).center().y(), top, 15, foot, -15);
    }

    RackBench bench;
    Form_Dd3& window = bench.forms.formDd3;
    std::unique_ptr<FormPicture> picture;
    double top = 0, foot = 0;
};

TEST_F(ShownResponse, EachPointStandsAtItsLevelOnTheScaleBesideIt) {
    ResponsePairs pairs;
    pairs.frequency = {30, 125, 400, 1000, 4000, 8000, 12000, 15000};
    pairs.level = {-120, -75, -30, 0, 12, 50, 100, 140};
    measured(pairs);
    for (int row = 1; row <= 8; ++row) {
        const double wanted = pairs.level[static_cast<std::size_t>(row - 1)] / 10.0;
        EXPECT_NEAR(dbAt(row), wanted, kPixels * 30 / (foot - top)) << "row " << row;
    }
}

/// The number of gaps in a level curve between its first and its last point.
int gapsOf(const QImage& image, const QRect& chart, const QColor& colour, int rows) {
    const double pitch = chart.width() / double(rows);
    const int first = static_cast<int>(chart.left() + pitch / 2);
    const int last = static_cast<int>(chart.right() - pitch / 2);
    int gaps = 0;
    bool before = true;
    for (int x = first; x <= last; ++x) {
        const bool ink = !inkBox(image, QRect(x, chart.top(), 1, chart.height()), colour).isEmpty();
        gaps += before && !ink;
        before = ink;
    }
    return gaps;
}

TEST_F(ShownResponse, NothingMeasuredIsADashedLineAndSaidInTheChart) {
    const QColor colour = qColour(window.Graph1.seriesColourAt(1));
    const QRect chart = picture->boxOf(window.Graph1);
    bench.formD.resborra();
    EXPECT_EQ(window.Graph1.note, "not measured");
    EXPECT_GT(gapsOf(picture->taken(), chart, colour, 8), 10);
    const QRect line = inkBox(picture->taken(), chart, colour);
    EXPECT_NEAR(onScale(QRectF(line).center().y(), top, 15, foot, -15), -5,
                kPixels * 30 / (foot - top));
    const QRect note = inkBox(picture->changedBy([&] { window.Graph1.note = ""; },
                                                 [&] { window.Graph1.note = "not measured"; }));
    ASSERT_FALSE(note.isEmpty());
    EXPECT_LT(note.bottom(), chart.center().y()) << "clear of the line";
    EXPECT_NEAR(QRectF(note).center().x(), QRectF(chart).center().x(), chart.width() * 0.05);

    ResponsePairs flat;
    flat.frequency = {30, 125, 400, 1000, 4000, 8000, 12000, 15000};
    flat.level.fill(-50);
    measured(flat);
    EXPECT_EQ(window.Graph1.note, "");
    EXPECT_EQ(gapsOf(picture->taken(), chart, colour, 8), 0);
}

/// The middle of the printed figure within that place.
double printedNear(const QImage& image, const QRect& place) {
    QRect ink;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            if (qGray(image.pixel(x, y)) < 110) ink |= QRect(x, y, 1, 1);
        }
    }
    EXPECT_FALSE(ink.isEmpty()) << "no figure at " << place.top();
    return QRectF(ink).center().y();
}

TEST(ShownSpectrum, ABarBeginsAtItsLevelOnTheScaleBesideIt) {
    RackBench bench;
    bench.start();
    Form_D1& window = bench.forms.formD1;
    constexpr int kPoints = 17;
    std::vector<std::string> file{shortText(kPoints).str(), "25", "97.875"};
    for (int i = 0; i < kPoints; ++i) file.push_back(shortText(i == 8 ? 0 : 3 * i).str());
    file.emplace_back();
    bench.write("0981.spc", lines(file));
    window.unload();
    window.load();
    FormPicture picture(window);
    const QImage image = picture.taken();
    const QRect box = picture.boxOf(window.Picture1);
    const double perTwip = box.width() / double{window.Picture1.width};

    // The figures 0 to -50 are at the left; a row of the graph is a whole number of units, so they
    // are evenly spaced.
    const double rows = std::round((window.Picture1.height - 890) / 50);
    auto figure = [&](int tens) {
        const double y = box.top() + (400 + 10 * tens * rows - 20) * perTwip;
        const double high = 60 * perTwip;
        // Left of the grid, which begins at 250.
        return printedNear(
            image, QRectF(box.left() + 10 * perTwip, y - high, 225 * perTwip, 2 * high).toRect());
    };
    const double first = figure(0), last = figure(5);
    for (int i = 1; i <= kPoints; ++i) {
        const int below = i == 9 ? 0 : 3 * (i - 1);
        const double column = std::round((window.Picture1.width - 500) / kPoints);
        const double x = box.left() + ((i - 1) * column + 300 + column / 2) * perTwip;
        const QRect strip(static_cast<int>(x), box.top(), 3, box.height());
        const QColor colour = i == 9 ? QColor(255, 0, 0) : QColor(0, 192, 0);
        const QRect bar = inkBox(image, strip, colour);
        ASSERT_FALSE(bar.isEmpty()) << i;
        EXPECT_NEAR(onScale(bar.top(), first, 0, last, 50), below,
                    2 * kPixels * 50 / (last - first))
            << "bar " << i;
    }
}

/// The bandwidth window with its curve.
class ShownBandwidth : public testing::Test {
 protected:
    ShownBandwidth() {
        bench.start();
        window.load();
        picture = std::make_unique<FormPicture>(window);
    }
    void look() {
        image = picture->taken();
        box = picture->boxOf(window.Picture1);
        perTwip = box.width() / double{window.Picture1.width};
        top = figure(100);
        foot = figure(0);
    }
    double xOf(double kHz) const {
        return box.left() + (400 + kHz * (window.Picture1.width - 400) / 150) * perTwip;
    }
    double figure(int percent) const {
        const double row = std::round((window.Picture1.height - 900) / 100);
        const double y = box.top() + (300 + (100 - percent) * row + 85) * perTwip;
        return printedNear(
            image, QRectF(box.left() + 40 * perTwip, y - 70 * perTwip, 280 * perTwip, 140 * perTwip)
                       .toRect());
    }
    /// The percent value at the middle of the yellow line.
    double percentAt(double kHz) const {
        const QRect strip(static_cast<int>(xOf(kHz)), box.top(), 1, box.height());
        const QRect ink = inkBox(image, strip, QColor(255, 255, 16));
        return ink.isEmpty() ? -1 : onScale(QRectF(ink).center().y(), top, 100, foot, 0);
    }
    /// The numbers of filled pixels above the yellow line, and of unfilled ones below it.
    struct Stray {
        int above = 0, below = 0;
    };
    Stray strayFill() const {
        Stray stray;
        const int foot0 = box.top() + static_cast<int>((window.Picture1.height - 520) * perTwip);
        for (int x = static_cast<int>(xOf(1)); x < static_cast<int>(xOf(149)); ++x) {
            const QRect line =
                inkBox(image, QRect(x, box.top(), 1, box.height()), QColor(255, 255, 16));
            if (line.isEmpty()) continue;
            for (int y = box.top(); y < foot0; ++y) {
                const QColor colour = image.pixelColor(x, y);
                const bool filled =
                    isAbout(colour, QColor(0, 0, 255)) || isAbout(colour, QColor(192, 255, 192));
                stray.above += filled && y < line.top();
                stray.below += isAbout(colour, Qt::white) && y > line.bottom();
            }
        }
        return stray;
    }

    RackBench bench;
    FormD1a& window = bench.forms.formD1a;
    std::unique_ptr<FormPicture> picture;
    QImage image;
    QRect box;
    double perTwip = 0, top = 0, foot = 0;
};

TEST_F(ShownBandwidth, TheTestPatternPassesItsCornersOnTheScaleBesideIt) {
    window.Command1.press();
    look();
    const double slack = 2 * kPixels * 100 / (foot - top);
    // Between the grid's lines, which cover the level stretches.
    EXPECT_NEAR(percentAt(12.5), 89.5, slack) << "it begins at 99";
    EXPECT_NEAR(percentAt(62.5), 60, slack);
    EXPECT_NEAR(percentAt(87.5), 30, slack);
    EXPECT_NEAR(percentAt(137.5), 50, slack);
}

TEST_F(ShownBandwidth, TheFillEndsAtTheYellowLineOnSteepPartsToo) {
    window.Command1.press();
    look();
    EXPECT_EQ(strayFill().above, 0) << "test pattern";
    EXPECT_EQ(strayFill().below, 0) << "test pattern";

    window.GraphClean();
    BandwidthCurve::Points points = BandwidthCurve::through({100, 0, 100, 50, 100, 0, 80, 0});
    for (int x = 0; x <= BandwidthCurve::kLastKhz; ++x)
        window.GraphLine(x, points[static_cast<std::size_t>(x)]);
    look();
    EXPECT_EQ(strayFill().above, 0) << "steep curve";
    EXPECT_EQ(strayFill().below, 0) << "steep curve";
}

TEST_F(ShownBandwidth, ASecondRedrawShowsTheSameCurve) {
    window.PeakPercent = {100, 45, 20, 10, 7, 4, 4, 0};
    auto redraw = [&] {
        BandwidthCurve::Points points = BandwidthCurve::through(window.PeakPercent);
        window.GraphClean();
        for (int x = 0; x <= BandwidthCurve::kLastKhz; ++x)
            window.GraphLine(x, points[static_cast<std::size_t>(x)]);
        window.GraphRepaint();
    };
    redraw();
    look();
    const QImage first = image;
    const double slack = 2 * kPixels * 100 / (foot - top);
    EXPECT_NEAR(percentAt(5), 89, slack) << "a straight line up to 15 kHz";
    EXPECT_NEAR(percentAt(12), 73.6, slack);
    redraw();
    look();
    EXPECT_EQ(image, first);
}

}  // namespace
}  // namespace hmonitor::test
