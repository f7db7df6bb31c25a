// SPDX-License-Identifier: GPL-3.0-or-later
// A plot, read back from its pixels and compared with its points.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "display/controls/plot.h"
#include "display/headless/headless_desktop.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/plot_painter.h"
#include "tests/display/qt/form_picture.h"

namespace display::qt {

/// A window with a plot whose curves are 1200 pixels wide.
class PlotForm final : public Form {
 public:
    explicit PlotForm(Desktop& desktop) : Form(desktop, "PlotForm") {}
    Plot Plot1{*this, "Plot1"};

 protected:
    void layOut() override {
        width = 12900.f;
        height = 3000.f;
        place(Plot1, {0, 0, 12900, 3000}, Says{"Curva", "Curve"});
        Plot1.insets = Plot::Insets{600, 300, 300, 300};
        Plot1.y = PlotAxis{AxisKind::Linear, 0, 100};
    }
};

class ShownPlot : public testing::Test {
 protected:
    static constexpr std::uint8_t kAway = 8;
    static constexpr std::uint8_t kStale = 9;
    static constexpr Colour kAwayColour{0x2080ff};
    static constexpr Colour kStaleColour{0xff60c0};
    static constexpr int kDay = 86400;

    ShownPlot() {
        form.show();
        picture = std::make_unique<FormPicture>(form);
        plot.causes({{kAway, kAwayColour}, {kStale, kStaleColour}});
    }

    /// A day of seconds: a wave with a band about it; an hour is unknown, each hundredth second
    /// stale, and one second is high.
    static PlotSeries day() {
        PlotSeries series;
        series.each = 1;
        series.missing = 13;
        series.to = kDay;
        series.colour = kCyan;
        for (int t = 0; t < kDay; ++t) series.points.push_back(pointAt(t));
        return series;
    }
    static PlotPoint pointAt(int t) {
        if (t >= 40000 && t < 43600) return PlotPoint::unknown(t, kAway);
        if (t % 400 == 100) return PlotPoint::unknown(t, kStale);
        const auto y = static_cast<float>(50 + 25 * std::sin(t / 5000.0) + 3 * std::sin(t / 7.0));
        const float high = t == 60000 ? 97.f : y + 6;
        return {static_cast<double>(t), y, y - 4, high, 0};
    }
    void look(double from, double to) { plot.x = PlotAxis{AxisKind::Linear, from, to}; }

    /// Where the curves lie, in device pixels.
    QRect curves() {
        return PlotPlace{QRectF(picture->boxOf(plot)), picture->boxOf(plot).width() / 12900.0, 1}
            .curves(plot)
            .toRect();
    }
    /// The pixels that the curves change.
    QImage ink() {
        const auto shown = plot.series();
        return picture->changedBy([&] { plot.series({}); }, [&] { plot.series(shown); });
    }
    /// The first and the last pixel of a column that is about as bright as a curve alone.
    struct Reach {
        int top = 0, bottom = -1;
        bool any() const { return bottom >= top; }
    };
    static Reach reachOf(const QImage& image, int x, const QRect& within, const QColor& colour) {
        Reach reach{within.bottom() + 1, -1};
        for (int y = within.top(); y <= within.bottom(); ++y) {
            if (!isAbout(image.pixelColor(x, y), colour)) continue;
            reach.top = std::min(reach.top, y);
            reach.bottom = y;
        }
        return reach;
    }
    double yOf(float value) {
        const QRect box = curves();
        return box.bottom() + 1 - box.height() * static_cast<double>(value) / 100;
    }

    HeadlessDesktop desktop;
    PlotForm form{desktop};
    Plot& plot = form.Plot1;
    std::unique_ptr<FormPicture> picture;
};

struct Zoom {
    double from, to;
};

class ShownZooms : public ShownPlot, public testing::WithParamInterface<Zoom> {};

INSTANTIATE_TEST_SUITE_P(Ten, ShownZooms,
                         testing::Values(Zoom{0, 86400}, Zoom{20000, 63200}, Zoom{36000, 50400},
                                         Zoom{38000, 45200}, Zoom{39400, 43000}, Zoom{59100, 60900},
                                         Zoom{59820, 60180}, Zoom{43500, 43620}, Zoom{59985, 60015},
                                         Zoom{498, 508}));

/// In each column of pixels the curve goes from the lowest to the highest of its seconds, and there
/// is none where nothing is known.
TEST_P(ShownZooms, EachColumnOfPixelsShowsItsSeconds) {
    plot.series({day()});
    const auto [from, to] = GetParam();
    look(from, to);
    const QImage image = picture->taken();
    const QRect box = curves();
    ASSERT_GT(box.width(), 700);
    const QColor trace = qColour(kCyan);
    const double each = (to - from) / box.width();
    int read = 0, holes = 0;
    for (int x = 0; x < box.width(); ++x) {
        // The seconds that belong to the column for sure, and those that may share its edge.
        const double left = from + x * each, right = left + each;
        float low = 1000, high = -1000, lowest = 1000, highest = -1000;
        bool known = false, near = false;
        const int first = static_cast<int>(std::floor(left - 0.02 * each - 1e-9));
        for (int t = std::max(first, 0); t < std::min<double>(kDay, right + 0.02 * each); ++t) {
            const PlotPoint point = pointAt(t);
            if (!point.known()) continue;
            near = true;
            lowest = std::min(lowest, point.y), highest = std::max(highest, point.y);
            if (t + 1 <= left + 0.02 * each || t >= right - 0.02 * each) continue;
            known = true;
            low = std::min(low, point.y), high = std::max(high, point.y);
        }
        const Reach reach = reachOf(image, box.left() + x, box, trace);
        if (!near) {
            EXPECT_FALSE(reach.any()) << "a curve over a hole in column " << x;
            ++holes;
        }
        if (!known) continue;
        ++read;
        ASSERT_TRUE(reach.any()) << "no curve in column " << x;
        // A trace is up to three pixels thick, and starts where the previous column ended.
        EXPECT_LE(reach.top, yOf(high) + 2) << "column " << x;
        EXPECT_GE(reach.bottom, yOf(low) - 3) << "column " << x;
        const PlotPoint before = pointAt(std::max(first - 1, 0));
        const float top = before.known() ? std::max(highest, before.y) : highest;
        const float foot = before.known() ? std::min(lowest, before.y) : lowest;
        EXPECT_GE(reach.top, yOf(top) - 3) << "column " << x;
        EXPECT_LE(reach.bottom, yOf(foot) + 3) << "column " << x;
    }
    EXPECT_GT(read + holes, box.width() * 9 / 10);
    EXPECT_GT(read, 0);
}

TEST_F(ShownPlot, ABandReachesFromTheLowestToTheHighest) {
    plot.series({day()});
    look(59985, 60015);
    const QImage pixels = ink();
    const QRect box = curves();
    const auto reach = [&](double t) {
        const int x = box.left() + static_cast<int>((t - 59985) / 30 * box.width());
        return inkBox(pixels.copy(x, box.top(), 1, box.height())).translated(0, box.top());
    };
    EXPECT_NEAR(reach(60000.5).top(), yOf(97), 2) << "the one high second";
    for (const int t : {59990, 59995, 60005, 60010}) {
        EXPECT_NEAR(reach(t + 0.5).top(), yOf(pointAt(t).highest), 2) << t;
        EXPECT_NEAR(reach(t + 0.5).bottom() + 1, yOf(pointAt(t).lowest), 2) << t;
    }
}

TEST_F(ShownPlot, AHoleIsHatchedInTheColourOfItsCauseOverAllOfItsHeight) {
    plot.series({day()});
    look(39400, 43000);
    const QImage image = picture->taken();
    const QRect box = curves();
    const int begin = box.left() + box.width() * 600 / 3600;
    const QRect hatched = inkBox(image, box, qColour(kAwayColour));
    EXPECT_NEAR(hatched.left(), begin, 2);
    EXPECT_NEAR(hatched.right(), box.right(), 8);
    EXPECT_NEAR(hatched.top(), box.top(), 8);
    EXPECT_NEAR(hatched.bottom(), box.bottom(), 8);
    int lit = 0;
    for (int x = begin + 20; x < box.right(); ++x)
        lit += isAbout(image.pixelColor(x, box.center().y()), qColour(kAwayColour)) ? 1 : 0;
    EXPECT_GT(lit, 20) << "lines";
    EXPECT_LT(lit, (box.right() - begin) / 2) << "and room between them";
}

TEST_F(ShownPlot, ASecondThatIsLostAmongManyStillShowsAtTheFoot) {
    plot.series({day()});
    look(0, 86400);
    const QImage image = picture->taken();
    const QRect box = curves();
    const QRect foot(box.left(), box.bottom() - 3, box.width(), 4);
    const QRect stale = inkBox(image, foot, qColour(kStaleColour));
    EXPECT_NEAR(stale.left(), box.left() + box.width() * 100.0 / kDay, 2);
    EXPECT_GT(stale.right(), box.right() - 10);
    const QRect above(box.left(), box.top(), box.width() / 3, box.height() / 4);
    EXPECT_TRUE(inkBox(image, above, qColour(kStaleColour)).isNull());
}

TEST_F(ShownPlot, NothingIsPaintedWhereNothingWasAskedFor) {
    PlotSeries series = day();
    series.points.resize(1000);
    series.to = 1000;
    plot.series({series});
    look(0, 2000);
    const QRect inked = inkBox(ink());
    EXPECT_NEAR(inked.right(), curves().left() + curves().width() / 2, 2);
}

TEST_F(ShownPlot, AMarkStandsAtItsPlaceAndTheOtherInItsOwnColour) {
    look(0, 1000);
    plot.mark(0, 250);
    plot.mark(1, 750);
    const QImage image = picture->taken();
    const QRect box = curves();
    const QRect amber = inkBox(image, box, QColor(kAmber));
    EXPECT_NEAR(QRectF(amber).center().x(), box.left() + 0.75 * box.width(), 2);
    EXPECT_GE(amber.height(), box.height() - 1);
    const QImage pixels =
        picture->changedBy([&] { plot.mark(0, std::nullopt); }, [&] { plot.mark(0, 250); });
    EXPECT_NEAR(QRectF(inkBox(pixels)).center().x(), box.left() + 0.25 * box.width(), 1.5);
}

TEST_F(ShownPlot, ManyFlagsHideNeitherTheCurvesNorTheOneThatIsRare) {
    look(0, 1000);
    const QColor common = qColour(kGreen);
    const QColor rare = qColour(kRed);
    std::vector<PlotFlag> flags;
    for (int i = 0; i < 5000; ++i) flags.push_back({i / 5.0, kGreen});
    flags.insert(flags.begin() + 2500, PlotFlag{500, kRed});
    plot.flags(flags);
    const QImage image = picture->taken();
    const QRect box = curves();
    const QRect seen = inkBox(image, box, common);
    EXPECT_LT(seen.left(), box.left() + 3);
    EXPECT_GT(seen.right(), box.right() - 12);
    EXPECT_LT(seen.bottom(), box.top() + box.height() / 5) << "no line through the curves";
    const QRect odd = inkBox(image, box, rare);
    EXPECT_NEAR(odd.left(), box.left() + box.width() / 2, 2);
    const auto few = [this] { plot.flags({{400, kGreen}}); };
    few();
    const QRect one = inkBox(picture->changedBy([this] { plot.flags({}); }, few));
    EXPECT_GT(one.bottom(), box.bottom() - 3) << "a single one has its line";
}

TEST_F(ShownPlot, ALimitIsDashedAtItsValueAndAFlagStandsAtItsTime) {
    look(0, 1000);
    plot.limits({{75, kRed}, {140, kRed}});
    plot.flags({{400, kGreen}, {1400, kGreen}});
    const QImage image = picture->taken();
    const QRect box = curves();
    const QRect limit = inkBox(image, box, qColour(kRed));
    EXPECT_NEAR(QRectF(limit).center().y(), yOf(75), 2);
    EXPECT_GT(limit.width(), box.width() * 9 / 10);
    int gaps = 0;
    for (int x = box.left(); x < box.right(); ++x)
        gaps += isAbout(image.pixelColor(x, limit.center().y()), qColour(kRed)) ? 0 : 1;
    EXPECT_GT(gaps, box.width() / 5);
    const QRect flag = inkBox(image, box, qColour(kGreen));
    EXPECT_NEAR(flag.left(), box.left() + 0.4 * box.width(), 2);
    EXPECT_NEAR(flag.top(), box.top(), 2);
}

TEST_F(ShownPlot, AReferenceLiesBehindAndHatchesNothing) {
    PlotSeries own, other;
    own.each = other.each = 1000;
    own.colour = kCyan;
    own.points = {PlotPoint::of(0, 50)};
    other.colour = kWhite;
    other.points = {PlotPoint::of(0, 50), PlotPoint::unknown(1000, kAway)};
    look(0, 2000);
    plot.series({own});
    const QImage alone = picture->taken();
    plot.reference(other);
    EXPECT_EQ(picture->taken(), alone) << "the curve lies over it, its hole is not hatched";
    other.points[0] = PlotPoint::of(0, 20);
    plot.reference(other);
    const QImage pixels =
        picture->changedBy([&] { plot.reference(std::nullopt); }, [&] { plot.reference(other); });
    EXPECT_NEAR(QRectF(inkBox(pixels)).center().y(), yOf(20), 2);
    EXPECT_NEAR(inkBox(pixels).width(), curves().width() / 2, 2);
}

TEST_F(ShownPlot, ASparseCurveIsASmoothLineThroughItsPoints) {
    PlotSeries series;
    series.colour = kGreen;
    for (const double hertz : {20.0, 200.0, 2000.0, 20000.0})
        series.points.push_back(PlotPoint::of(hertz, hertz == 200 ? 80 : 40));
    plot.x = PlotAxis{AxisKind::Log, 20, 20000};
    plot.series({series});
    const QImage pixels = ink();
    const QRect box = curves();
    const auto middle = [&](double share) {
        const int x = box.left() + static_cast<int>(share * (box.width() - 1));
        return QRectF(inkBox(pixels.copy(x, box.top(), 1, box.height())).translated(0, box.top()))
            .center()
            .y();
    };
    EXPECT_NEAR(middle(1.0 / 3), yOf(80), 3);
    EXPECT_NEAR(middle(1.0 / 6), yOf(60), 3);
    EXPECT_NEAR(middle(0.8), yOf(40), 3);
}

TEST_F(ShownPlot, FiguresOfTheScaleStandBesideTheirLines) {
    look(0, 1000);
    const QImage with = picture->taken();
    plot.y = PlotAxis{AxisKind::Linear, 5, 105};
    const QImage pixels = picture->changedBy(
        [&] {
            plot.y = PlotAxis{AxisKind::Linear, 0, 100};
        },
        [] {});
    EXPECT_FALSE(inkBox(pixels).isNull()) << "the figures moved";
    const QRect box = curves();
    EXPECT_LT(inkBox(pixels).left(), box.left());
}

TEST_F(ShownPlot, PaperShowsTheSameAsTheScreen) {
    plot.series({day()});
    look(20000, 63200);
    const QImage screen = picture->taken();
    const QSize size = picture->boxOf(plot).size();
    QImage paper(size, QImage::Format_RGB32);
    QPainter painter(&paper);
    paintPlot(painter, plot, {QRectF(QPointF(), QSizeF(size)), size.width() / 12900.0, 1});
    painter.end();
    int away = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            away += isAbout(screen.pixelColor(x, y), paper.pixelColor(x, y)) ? 0 : 1;
    }
    EXPECT_LT(away, size.width() * size.height() / 1000);
}

}  // namespace display::qt
