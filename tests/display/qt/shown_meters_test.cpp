// SPDX-License-Identifier: GPL-3.0-or-later
// The rack's meters, read back from their pixels and compared with the figures of the scale that is
// painted beside them.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <map>
#include <numbers>

#include "display/qt/painting/palette.h"
#include "panels/audio/level_bar.h"
#include "panels/audio/phase_vector.h"
#include "tests/display/qt/form_picture.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using display::qt::FormPicture;
using display::qt::inkBox;
using display::qt::isAbout;
using display::qt::onScale;

constexpr double kNearPixels = 1.5;

const QColor kLit(0, 255, 255);
const QColor kLitHigh(0xfd, 0x17, 0x23);

class ShownModulation : public testing::Test {
 protected:
    ShownModulation() {
        bench.start();
        picture = std::make_unique<FormPicture>(bench.form1);
        first = picture->middleOf(bench.form1.BarNumber[0]).x();
        last = picture->middleOf(bench.form1.BarNumber[16]).x();
    }
    void stand(float percent) {
        bench.state.ModSettle = "0";
        bench.state.DemoPeak = percent;
        bench.form1.ActualizarModulacion();
    }
    double percentOf(double x) const { return onScale(x, first, 0, last, 160); }

    RackBench bench;
    std::unique_ptr<FormPicture> picture;
    double first = 0, last = 0;
};

TEST_F(ShownModulation, MarkFillAndHeadOfTheBarStandAtTheFigureOnTheScale) {
    Form1& panel = bench.form1;
    for (const float percent : {10.f, 37.f, 75.f, 100.f, 133.f, 160.f}) {
        stand(percent);
        const double slack = kNearPixels * 160 / (last - first);
        EXPECT_NEAR(percentOf(picture->middleOf(panel.Line1).x()), percent, slack);
        EXPECT_NEAR(percentOf(picture->middleOf(panel.Picture1).x()), percent, slack);
        EXPECT_NEAR(percentOf(picture->middleOf(panel.Picture2).x()), percent, slack);
        panel.Line1.visible = false;
        EXPECT_NEAR(percentOf(picture->inkOf(panel.Label10).right() + 1), percent, 2 * slack);
        panel.Label10.visible = false;
        EXPECT_NEAR(percentOf(picture->inkOf(panel.BarFill).right() + 1), percent, slack);
        panel.Line1.visible = true;
        panel.Label10.visible = true;
    }
}

class ShownAudio : public testing::Test {
 protected:
    ShownAudio() {
        bench.start();
        picture = std::make_unique<FormPicture>(panel);
    }
    /// The needle's angle in degrees, from straight up to the right.
    static double degreesOf(QPointF from, QPointF to) {
        return std::atan2(to.x() - from.x(), from.y() - to.y()) * 180 / std::numbers::pi;
    }
    /// The pixel of the needle that is farthest from its pivot.
    QPointF tipOf(display::Line& needle, QPointF pivot) {
        const QImage pixels = picture->pixelsOf(needle);
        QPointF tip = pivot;
        double farthest = 0;
        for (int y = 0; y < pixels.height(); ++y) {
            for (int x = 0; x < pixels.width(); ++x) {
                if (pixels.constScanLine(y)[x] == 0) continue;
                const QPointF at(x + 0.5, y + 0.5);
                const double far = std::hypot(at.x() - pivot.x(), at.y() - pivot.y());
                if (far > farthest) farthest = far, tip = at;
            }
        }
        EXPECT_GT(farthest, 0) << needle.name() << " is not to be seen";
        return tip;
    }

    RackBench bench;
    Form_B& panel = bench.formB;
    std::unique_ptr<FormPicture> picture;
};

TEST_F(ShownAudio, ThePhaseNeedlePointsAtItsFigureOnTheDial) {
    for (display::Line* trail :
         {&panel.Line2, &panel.Line3, &panel.Line4, &panel.Line5, &panel.Line6})
        trail->visible = false;
    const QPointF pivot = picture->pointIn(panel.PhaseDial, kPhaseCentre.x, kPhaseCentre.y);
    for (int i = 0; i < 7; ++i) {
        bench.readings.stereoPhase = static_cast<float>(15 * i);
        bench.beat();
        const double figure =
            degreesOf(pivot, picture->middleOf(panel.PhaseNumber[static_cast<std::size_t>(i)]));
        EXPECT_NEAR(degreesOf(pivot, tipOf(panel.Line1, pivot)), figure, 2.5) << 15 * i;
    }
}

TEST_F(ShownAudio, ThePowerNeedlePointsAtItsFigureOnTheDial) {
    const QPointF pivot = picture->pointIn(panel.PowerDial, kPowerPivot.x, kPowerPivot.y);
    for (int i = 0; i < 6; ++i) {
        panel.DibujoPotencia(115 - 20 * i);
        const double figure =
            degreesOf(pivot, picture->middleOf(panel.PowerNumber[static_cast<std::size_t>(i)]));
        EXPECT_NEAR(degreesOf(pivot, tipOf(panel.LinePo, pivot)), figure, 2.5) << 20 * i;
    }
}

/// The visible elements of a level bar: lit, red or dark.
class ShownLevels : public ShownAudio {
 protected:
    struct Element {
        double db = 0;  ///< by the figures of the scale
        bool lit = false, red = false;
    };
    std::vector<Element> seen(display::Family<display::Line, LevelBar::kElements>& elements) {
        const double first = picture->middleOf(panel.LevelNumber[0]).x();
        const double last = picture->middleOf(panel.LevelNumber[6]).x();
        const QImage image = picture->taken();
        std::vector<Element> bar;
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const display::Line& line = elements[i];
            const QPointF at = picture->pointIn(panel.LevelBars, line.x1, (line.y1 + line.y2) / 2);
            // An element may be drawn a pixel away from its place.
            const QRect place = QRect(at.toPoint() - QPoint(1, 0), QSize(2, 1));
            bar.push_back({onScale(at.x(), first, -25, last, 5),
                           !inkBox(image, place, kLit).isEmpty(),
                           !inkBox(image, place, kLitHigh).isEmpty()});
        }
        return bar;
    }
    static double headOf(const std::vector<Element>& bar) {
        double head = -99;
        for (const Element& element : bar) {
            if (element.lit) head = element.db;
        }
        return head;
    }
    static double markOf(const std::vector<Element>& bar) {
        double mark = -99;
        for (const Element& element : bar) {
            if (element.red) mark = element.db;
        }
        return mark;
    }
};

TEST_F(ShownLevels, TheHeadOfEachBarStandsAtItsLevelOnTheScale) {
    bench.readings.levelFirst = -10;
    bench.readings.levelSecond = -20;
    bench.beat(2);
    constexpr double kElement = 0.5;  // dB
    EXPECT_NEAR(headOf(seen(panel.LineAudL)), -10, 0.6);
    EXPECT_NEAR(headOf(seen(panel.LineAudR)), -20, 0.6);
    EXPECT_NEAR(markOf(seen(panel.LineAudL)), -10 + kElement, 0.6) << "the mark at the head";
    // Elements after the mark are dark, and those before the head lit, without a gap.
    for (const Element& element : seen(panel.LineAudL)) {
        EXPECT_EQ(element.lit, element.db < -9.75) << element.db;
    }
}

TEST_F(ShownLevels, ABarAboveZeroIsRedFromThereOn) {
    bench.readings.levelFirst = 3;
    bench.beat(2);
    for (const Element& element : seen(panel.LineAudL)) {
        EXPECT_EQ(element.lit, element.db < 0.25) << element.db;
        EXPECT_EQ(element.red, element.db > 0.25 && element.db < 3.75) << element.db;
    }
}

TEST_F(ShownLevels, TheMarkStaysWhereTheBarHasBeenAndFallsHalfADbEach300ms) {
    bench.readings.levelFirst = 0;
    bench.beat(2);
    bench.readings.levelFirst = -25;
    bench.beat(2);
    const double before = markOf(seen(panel.LineAudL));
    EXPECT_NEAR(before, 0.5, 1.1);
    bench.advance(std::chrono::milliseconds(3000));
    EXPECT_NEAR(markOf(seen(panel.LineAudL)), before - 5, 0.6);
}

/// The visible strokes of a seven-segment digit, in this order: top, upper left, upper right,
/// middle, lower left, lower right, bottom.
class ShownDigits : public ShownAudio {
 protected:
    std::string strokesOf(const QColor& lit) {
        const QImage image = picture->taken();
        std::string strokes;
        for (const auto& [u, v] : kPlaces) {
            const double h = place_.height() * 7 / 8.0, thick = h / 7, lean = 0.1 * h;
            const double x =
                place_.left() + thick / 2 + u * (place_.width() - thick - lean) + lean * (1 - v);
            const double y = place_.top() + thick / 2 + v * h;
            const QRect near(static_cast<int>(x) - 1, static_cast<int>(y) - 1, 3, 3);
            strokes += inkBox(image, near, lit).isEmpty() ? '0' : '1';
        }
        return strokes;
    }
    /// The digit's box: around all its strokes while they are lit.
    void find(SegmentDigit& digit) {
        place_ = QRect();
        for (int i = 0; i < 7; ++i) place_ |= picture->inkOf(digit.segment(i));
    }

 private:
    static constexpr std::array<std::pair<double, double>, 7> kPlaces = {
        {{0.5, 0}, {0, 0.25}, {1, 0.25}, {0.5, 0.5}, {0, 0.75}, {1, 0.75}, {0.5, 1}}};
    QRect place_;
};

TEST_F(ShownDigits, EachDigitIsReadAsItself) {
    const std::map<int, std::string> kShapes = {
        {0, "1110111"}, {1, "0010010"}, {2, "1011101"}, {3, "1011011"}, {4, "0111010"},
        {5, "1101011"}, {6, "1101111"}, {7, "1110010"}, {8, "1111111"}, {9, "1111011"}};
    const QColor red(0xfd, 0x17, 0x23);
    panel.RefrescoPotencia(88);
    find(panel.powerUnits);
    for (const auto& [digit, shape] : kShapes) {
        panel.PowerDigit = digit;
        panel.PowerPlace = 2;
        panel.Command_DibujoLCD_Potencia();
        EXPECT_EQ(strokesOf(red), shape) << digit;
    }
    const QColor on = display::qt::qColour(panel.SegmentOnColour);
    panel.Command4(8);
    find(panel.memoryUnits);
    for (const auto& [digit, shape] : kShapes) {
        panel.Command4(digit);
        EXPECT_EQ(strokesOf(on), shape) << digit;
    }
}

}  // namespace
}  // namespace hmonitor::test
