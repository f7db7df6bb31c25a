// SPDX-License-Identifier: GPL-3.0-or-later
// A reader's marks are where the drawing painted the number that they state; also what the band
// scanner paints beside its bars.
#include <gtest/gtest.h>

#include <cmath>

#include "analyses/response_curve.h"
#include "core/numbers.h"
#include "display/number_table.h"
#include "display/qt/painting/palette.h"
#include "tests/display/qt/form_picture.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using display::NumberTable;
using display::qt::FormPicture;
using display::qt::inkBox;
using display::qt::kChartShadow;
using display::qt::qColour;

/// A grabbed picture may begin a pixel away from the control's box.
constexpr double kSlack = 1.6;

/// The position of a drawing's spot in the picture.
QPointF pixelOf(const FormPicture& picture, const display::Control& drawing,
                const NumberTable::Spot& spot) {
    const QRect box = picture.boxOf(drawing);
    const double perTwip = box.height() / double{drawing.height};
    const display::Place place = drawing.placeOf(spot.x, spot.y);
    return {box.left() + place.x * perTwip, box.top() + place.y * perTwip};
}

/// The upper end of the pixels of a colour near a point, straight above and below it.
double topAt(const QImage& image, const QRect& box, QPointF point, const QColor& colour) {
    const QRect strip(static_cast<int>(point.x()), box.top(), 1, box.height());
    const QRect ink = inkBox(image, strip, colour);
    return ink.isEmpty() ? -1000 : ink.top();
}

class MarksOfTheScan : public testing::Test {
 protected:
    MarksOfTheScan() {
        bench.write("scan.dat", lines(std::vector<std::string>(103, "60")));
        bench.start();
        scanner.load();
        bench.driver.spectrum[881.f] = 83;
        scanner.Option_Pares.choose();
        scanner.Option_Impares.choose();
        bench.settle();
        picture = std::make_unique<FormPicture>(scanner);
    }
    RackBench bench;
    Form_BandSCanner& scanner = bench.forms.formBandSCanner;
    std::unique_ptr<FormPicture> picture;
};

TEST_F(MarksOfTheScan, StandOnTheBars) {
    const NumberTable table = scanner.Graph1.numbers();
    ASSERT_EQ(table.spots.size(), table.rows.size());
    const QImage image = picture->taken();
    const QRect view = picture->boxOf(scanner.ChartView);
    int seen = 0;
    for (const NumberTable::Spot& spot : table.spots) {
        const QPointF at = pixelOf(*picture, scanner.Graph1, spot);
        if (!view.contains(at.toPoint()) || spot.y <= 31) continue;
        const int column = static_cast<int>(
            std::lround((spot.x - std::floor(spot.x + 0.5)) / scanner.Graph1.barWidth() + 3));
        const QColor colour = qColour(scanner.Graph1.seriesColourAt(column));
        EXPECT_NEAR(topAt(image, view, at, colour), at.y(), kSlack) << table.rows[spot.row][0];
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

TEST_F(MarksOfTheScan, TheEarlierLevelIsAShadowBehindTheBar) {
    display::Chart& chart = scanner.Graph1;
    const auto at = [&](double level) {
        return pixelOf(*picture, chart, {0, 1, chart.barMiddle(4, 2), level}).toPoint();
    };
    chart.row = 4;
    chart.column = 2;
    chart.data("50");
    chart.earlier(4, 2, 80);
    QImage image = picture->taken();
    EXPECT_EQ(image.pixelColor(at(79)), QColor(kChartShadow));
    EXPECT_EQ(image.pixelColor(at(52)), QColor(kChartShadow));
    EXPECT_EQ(image.pixelColor(at(48)), qColour(chart.seriesColourAt(2)));
    EXPECT_NE(image.pixelColor(at(82)), QColor(kChartShadow));
    // A higher bar hides the shadow except for its edges.
    chart.data("90");
    image = picture->taken();
    EXPECT_EQ(image.pixelColor(at(79)), qColour(chart.seriesColourAt(2)));
    const QRect place(at(75) - QPoint(20, 0), QSize(40, 1));
    EXPECT_FALSE(inkBox(image, place, QColor(kChartShadow)).isEmpty());
    chart.clearEarlier();
    image = picture->taken();
    EXPECT_TRUE(inkBox(image, place, QColor(kChartShadow)).isEmpty());
}

TEST_F(MarksOfTheScan, APointerStandsOnTheChosenBar) {
    display::Chart& chart = scanner.Graph1;
    chart.chosen = {};
    chart.row = 4;
    chart.column = 2;
    chart.data("50");
    const QRect pointer = inkBox(picture->changedBy(
        [&] {
            chart.chosen = {4, 2};
        },
        [&] { chart.chosen = {}; }));
    const QPointF top = pixelOf(*picture, chart, {0, 1, chart.barMiddle(4, 2), 50});
    ASSERT_FALSE(pointer.isEmpty());
    EXPECT_NEAR(QRectF(pointer).center().x(), top.x(), kSlack);
    EXPECT_LT(pointer.bottom(), top.y() + 1);
    EXPECT_GT(pointer.bottom(), top.y() - 6);
}

TEST_F(MarksOfTheScan, TheWholeBandIsInViewByItsKey) {
    display::Chart& chart = scanner.Graph1;
    for (const int row : {1, 21}) {
        chart.row = row;
        chart.column = 3;
        chart.data("90");
    }
    scanner.KeyWhole.press();
    const QImage image = picture->taken();
    const QRect view = picture->boxOf(scanner.ChartView);
    for (const int row : {1, 21}) {
        const QPointF top = pixelOf(*picture, chart, {0, 1, chart.barMiddle(row, 3), 90});
        EXPECT_TRUE(view.contains(top.toPoint())) << row;
        EXPECT_NEAR(topAt(image, view, top, qColour(chart.seriesColourAt(3))), top.y(), kSlack);
    }
}

TEST(MarksOfTheResponse, StandOnTheCurve) {
    RackBench bench;
    bench.start();
    Form_Dd3& window = bench.forms.formDd3;
    ResponsePairs pairs;
    pairs.frequency = {30, 125, 400, 1000, 4000, 8000, 12000, 15000};
    pairs.level = {-120, -75, -30, 0, 12, 50, 100, 140};
    ResponseCurve::of(pairs).show(window.Graph1);
    FormPicture picture(window);
    const QImage image = picture.taken();
    const NumberTable table = window.Graph1.numbers();
    ASSERT_EQ(table.spots.size(), 8u);
    for (const NumberTable::Spot& spot : table.spots) {
        const QPointF at = pixelOf(picture, window.Graph1, spot);
        const QRect near(at.toPoint() - QPoint(3, 6), QSize(6, 12));
        const QRect ink = inkBox(image, near, qColour(window.Graph1.seriesColourAt(1)));
        ASSERT_FALSE(ink.isEmpty()) << spot.row;
        EXPECT_NEAR(QRectF(ink).center().y(), at.y(), 2 * kSlack) << spot.row;
    }
}

TEST(MarksOfTheChannelSpectrum, StandOnTheBars) {
    RackBench bench;
    bench.start();
    Form_D1& window = bench.forms.formD1;
    std::vector<std::string> file{"9", "25", "98"};
    for (int i = 0; i < 9; ++i) file.push_back(shortText(i == 4 ? 0 : 5 * i + 2).str());
    file.emplace_back();
    bench.write("0981.spc", lines(file));
    window.unload();
    window.load();
    FormPicture picture(window);
    const QImage image = picture.taken();
    const NumberTable table = window.Picture1.numbers();
    ASSERT_EQ(table.spots.size(), 9u);
    for (const NumberTable::Spot& spot : table.spots) {
        const QPointF at = pixelOf(picture, window.Picture1, spot);
        const QColor colour = spot.row == 4 ? QColor(255, 0, 0) : QColor(0, 192, 0);
        EXPECT_NEAR(topAt(image, picture.boxOf(window.Picture1), at, colour), at.y(), kSlack)
            << spot.row;
    }
    EXPECT_TRUE(window.Picture2.numbers().spots.empty()) << "the numbers themselves";
}

TEST(MarksOfTheBandwidth, StandOnTheCurve) {
    RackBench bench;
    bench.start();
    FormD1a& window = bench.forms.formD1a;
    window.load();
    window.Command1.press();
    FormPicture picture(window);
    const QImage image = picture.taken();
    const NumberTable table = window.Picture1.numbers();
    ASSERT_EQ(table.spots.size(), table.rows.size());
    for (const NumberTable::Spot& spot : table.spots) {
        const QPointF at = pixelOf(picture, window.Picture1, spot);
        // The corners of the curve, since the grid covers its middle.
        const QRect near(at.toPoint() - QPoint(4, 9), QSize(9, 18));
        EXPECT_FALSE(inkBox(image, near, QColor(255, 255, 16)).isEmpty()) << spot.row;
    }
}

TEST(MarksOfTheSweep, StandOnTheBars) {
    RackBench bench;
    bench.start();
    frmSpectrumAnalizer& window = bench.forms.formSpectrumAnalizer;
    std::vector<std::string> sweep{"100", " 25", "87.975"};
    for (int i = 0; i < 100; ++i) sweep.push_back(shortText(32 + i * 37 % 60).str());
    window.load();
    window.folder.write("Sweep.spc", lines(sweep));
    window.ShowSpectrum_SpectralZoom("Sweep.spc");
    window.Picture3d.visible = false;
    window.PictureZoom.visible = true;
    FormPicture picture(window);
    const QImage image = picture.taken();
    const NumberTable table = window.PictureZoom.numbers();
    ASSERT_EQ(table.spots.size(), 100u);
    const QRect view = picture.boxOf(window.PictureZoom);
    int seen = 0;
    for (const NumberTable::Spot& spot : table.spots) {
        const QPointF at = pixelOf(picture, window.PictureZoom, spot);
        if (!image.rect().contains(at.toPoint())) continue;
        const double top = topAt(image, view & image.rect(), at, QColor(0, 192, 0));
        if (top < 0) continue;  // under a panel
        EXPECT_NEAR(top, at.y(), kSlack) << spot.row;
        ++seen;
    }
    EXPECT_GT(seen, 20);
}

/// The log of a day whose hours differ in each figure.
std::string variedDay() {
    std::string bytes;
    for (int hour = 0; hour < 24; ++hour) {
        const int figures[] = {
            hour, 30 + 4 * hour, hour % 12 - 8, 4 - hour % 11, 7 * hour, 1 + hour % 4,
            60,   12 * hour,     hour % 10,     9 - hour % 9};
        for (const int figure : figures) bytes += wholeText(figure).str() + " ";
        bytes += "\r\n";
    }
    return bytes;
}

TEST(MarksOfTheLog, StandOnTheBarsOfEachChartAndTellHourAndValue) {
    RackBench bench;
    bench.write("20260304.log", variedDay());
    bench.start();
    bench.click(bench.formD.Image4);
    Form_D4A& charts = bench.forms.formD4A;
    FormPicture picture(charts);
    const QImage image = picture.taken();
    for (std::size_t chart = 0; chart < Form_D4A::kCharts; ++chart) {
        display::Chart& graph = charts.Graph[chart];
        const NumberTable table = graph.numbers();
        const QRect view = picture.boxOf(charts.View[chart]);
        int seen = 0;
        for (const NumberTable::Spot& spot : table.spots) {
            const QPointF at = pixelOf(picture, graph, spot);
            const bool inside = spot.y > double{graph.lowest} && spot.y < double{graph.highest};
            if (!inside || !view.adjusted(3, 3, -3, -3).contains(at.toPoint())) {
                continue;
            }
            const QColor colour = qColour(graph.seriesColourAt(static_cast<int>(spot.column)));
            const QRect ink = inkBox(
                image, QRect(static_cast<int>(at.x()), view.top(), 1, view.height()), colour);
            ASSERT_FALSE(ink.isEmpty()) << graph.name() << " row " << spot.row;
            EXPECT_NEAR(ink.top(), at.y(), 2) << graph.name() << " row " << spot.row;
            EXPECT_EQ(table.rows[spot.row][0], wholeText(static_cast<int>(spot.row)).str());
            EXPECT_EQ(valueOf(table.rows[spot.row][spot.column]), spot.y);
            ++seen;
        }
        EXPECT_GT(seen, 3) << graph.name();
    }
}

TEST(MarksOfTheMap, StandInTheCellsAndTellFrequencyAndLevel) {
    RackBench bench;
    bench.start();
    frmSpectrumAnalizer& window = bench.forms.formSpectrumAnalizer;
    window.load();
    window.measurement.CurrentSessionFile = "Evening.3Ds";
    window.measurement.SessionInfo.Acquisitions = 10;
    // Between the lines of the grid, which stand at each 5 dB over the cells. At this size a cell
    // is narrower than a pixel, so three stand side by side.
    constexpr int kStep = 20;
    const auto rowAt = [](int column) { return 2 + column / kStep * 5 % 65; };
    for (int x = 10; x < Density::kColumns - 1; x += kStep) {
        for (const int beside : {-1, 0, 1}) {
            window.measurement.SpectralDensity.set(x + beside, rowAt(x), 1);
        }
    }
    window.PictureZoom.visible = false;
    window.Picture3d.visible = true;
    FormPicture picture(window);
    const QImage before = picture.taken();
    window.ShowSpectrum_3D();
    const QImage image = picture.taken();
    const NumberTable table = window.Picture3d.numbers();
    ASSERT_EQ(table.spots.size(), 120u);
    int seen = 0;
    for (const NumberTable::Spot& spot : table.spots) {
        const QPointF at = pixelOf(picture, window.Picture3d, spot);
        if (spot.row % 3 != 1 ||
            !picture.boxOf(window.Panel3D1).adjusted(4, 4, -4, -4).contains(at.toPoint()))
            continue;
        // Only these cells are painted near here.
        QRect changed;
        for (int y = -6; y <= 6; ++y) {
            for (int x = -4; x <= 4; ++x) {
                const QPoint pixel = at.toPoint() + QPoint(x, y);
                if (image.pixel(pixel) != before.pixel(pixel)) changed |= QRect(pixel, QSize(1, 1));
            }
        }
        ASSERT_FALSE(changed.isEmpty()) << spot.row;
        EXPECT_NEAR(QRectF(changed).center().x(), at.x(), kSlack) << spot.row;
        EXPECT_NEAR(QRectF(changed).center().y(), at.y(), kSlack) << spot.row;
        const int column = 10 + kStep * static_cast<int>(spot.row / 3);
        EXPECT_EQ(table.rows[spot.row][0], shortText(88 + column * 0.025).str());
        EXPECT_EQ(table.rows[spot.row][1], wholeText(30 + rowAt(column)).str());
        ++seen;
    }
    EXPECT_GT(seen, 10);
}

}  // namespace
}  // namespace hmonitor::test
