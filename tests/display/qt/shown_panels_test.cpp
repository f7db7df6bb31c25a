// SPDX-License-Identifier: GPL-3.0-or-later
// Decimal points, the power needle in its well, the marks of lit keys and the signs of the rack,
// read back from their pixels.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/numbers.h"
#include "display/qt/painting/palette.h"
#include "tests/display/qt/form_picture.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using display::qt::FormPicture;
using display::qt::inkBox;

/// The box of the amber pixels in a part of a picture, blended edges included.
QRect amberIn(const QImage& image, const QRect& where) {
    QImage pixels(image.size(), QImage::Format_Grayscale8);
    pixels.fill(0);
    for (int y = where.top(); y <= where.bottom(); ++y) {
        for (int x = where.left(); x <= where.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const bool amber = qRed(pixel) > 150 && qRed(pixel) > qGreen(pixel) + 30 &&
                               qGreen(pixel) > qBlue(pixel) + 30;
            if (amber) pixels.scanLine(y)[x] = 255;
        }
    }
    return inkBox(pixels);
}

/// The highest channel value of any pixel, up to 255.
int brightest(const QImage& image, const QRect& where) {
    int most = 0;
    for (int y = where.top(); y <= where.bottom(); ++y) {
        for (int x = where.left(); x <= where.right(); ++x) {
            most = std::max(most, qGray(image.pixel(x, y)));
        }
    }
    return most;
}

class ShownPanels : public testing::Test {
 protected:
    ShownPanels() {
        const float ordinary[] = {80,  -10, -12, 45,   2.5f, 1.5f, 9.5f, -60,
                                  -61, 40,  41,  0.5f, 12,   60,   12,   7};
        for (int i = 1; i <= 16; ++i) bench.output(i) = ordinary[i - 1];
        bench.start();
        bench.advance(std::chrono::milliseconds(500));
    }
    RackBench bench;
};

TEST_F(ShownPanels, TheDecimalPointsAreWiderThanASegmentInTheColourOfTheirDigits) {
    Form_C& panel = bench.formC;
    FormPicture picture(panel);
    struct Row {
        display::Shape& point;
        QColor colour;
        SegmentDigit& before;
        SegmentDigit& behind;
    };
    const QColor green(0, 255, 0);
    const QColor red(0xfd, 0x17, 0x23);
    for (const Row& row :
         {Row{panel.Error19Point, green, panel.error19[1], panel.error19[2]},
          Row{panel.PilotPoint, green, panel.pilot[1], panel.pilot[2]},
          Row{panel.DistortionPoint, red, panel.distortion[0], panel.distortion[1]}}) {
        const QRect ink = picture.inkOf(row.point);
        // All strokes lit, so that none is missing from the picture.
        row.before.show(8, display::kWhite, display::kBlack);
        const QRect foot = picture.inkOf(row.before.segment(2));
        // The picture is smaller than the screen's rack, so one pixel more or less counts.
        EXPECT_GE(ink.width(), foot.height()) << row.point.name();
        EXPECT_GE(ink.height(), foot.height()) << row.point.name();
        EXPECT_GE(row.point.width, 1.5f * 15 * row.before.segment(2).thickness);
        const QImage image = picture.taken();
        EXPECT_GE(inkBox(image, ink, row.colour).width(), ink.width() - 2) << row.point.name();
        // The point is between the digits, at the foot of the one before.
        EXPECT_GT(ink.left(), foot.right()) << row.point.name();
        row.behind.show(8, display::kWhite, display::kBlack);
        EXPECT_LT(ink.right(), picture.inkOf(row.behind.segment(2)).left()) << row.point.name();
        EXPECT_NEAR(ink.bottom(), foot.bottom(), 1) << row.point.name();
    }
}

TEST_F(ShownPanels, TheNeedleOfTheRelativePowerStaysInItsWellUpTo100) {
    Form_B& panel = bench.formB;
    FormPicture picture(panel);
    const QRect well = picture.boxOf(panel.PowerWell);
    for (int figure = 0; figure <= 100; figure += 5) {
        panel.DibujoPotencia(115 - figure);
        const QRect ink = picture.inkOf(panel.LinePo);
        EXPECT_TRUE(well.contains(ink)) << figure;
        EXPECT_GT(ink.height(), 5) << figure;
        // The tip is visible, not cut off at an edge.
        EXPECT_GT(ink.top(), well.top() + 5) << figure;
        EXPECT_LT(ink.right(), well.right() - 5) << figure;
    }
}

TEST_F(ShownPanels, NoNumberOfThePowerScaleIsUnderTheNeedle) {
    Form_B& panel = bench.formB;
    FormPicture picture(panel);
    for (display::Label& number : panel.PowerNumber) {
        const QRect ink = picture.inkOf(number);
        EXPECT_TRUE(picture.boxOf(panel.PowerWell).contains(ink)) << number.caption.get();
        panel.DibujoPotencia(115 - valueOf(number.caption.get()));
        EXPECT_FALSE(picture.inkOf(panel.LinePo).contains(ink.center())) << number.caption.get();
    }
}

/// The box of the amber pixels on a key.
QRect markOn(FormPicture& picture, const display::Control& key) {
    return amberIn(picture.taken(), picture.boxOf(key));
}

TEST_F(ShownPanels, EveryLitPictureKeyWearsTheSameAmberMark) {
    struct Row {
        display::Picture& key;
        const char* lit;
        const char* dark;
    };
    const Row rows[] = {
        {bench.form1.Image_Average, "msA", "msN"},  {bench.form1.Image6, "PeakA", "PeakN"},
        {bench.form1.Image7, "MinA", "MinN"},       {bench.form1.Image_Power, "PowerA", "PowerN"},
        {bench.formB.Image1, "LyRA", "LyRN"},       {bench.formB.Image2, "LRA", "LRN"},
        {bench.formB.Image3, "SetA", "SetN"},       {bench.formB.Image4, "RemoteA", "RemoteN"},
        {bench.formC.Image_Reset1, "ResA", "ResN"}, {bench.formC.Image2, "ResA", "ResN"},
        {bench.formC.Image3, "ResA", "ResN"},       {bench.formD.Image1, "OpenA", "OpenN"},
        {bench.formD.Image4, "LogA", "LogN"},       {bench.formD.Image5, "OffA", "OffN"}};
    for (const Row& row : rows) {
        FormPicture picture(row.key.form());
        const QRect box = picture.boxOf(row.key);
        row.key.picture = row.lit;
        const QRect mark = markOn(picture, row.key);
        EXPECT_GE(mark.width(), 9) << row.key.name() << " " << row.lit;
        EXPECT_GE(mark.height(), 1) << row.key.name();
        EXPECT_LE(mark.height(), 4) << row.key.name();
        EXPECT_NEAR(mark.center().x(), box.center().x(), 1.5) << row.key.name();
        EXPECT_LT(mark.bottom(), box.top() + box.height() / 3) << row.key.name();
        row.key.picture = row.dark;
        EXPECT_TRUE(markOn(picture, row.key).isEmpty()) << row.key.name();
    }
}

TEST_F(ShownPanels, ALitKeyOfTheEditorWearsItToo) {
    bench.click(bench.formB.Image3);
    Form_bSetMemories& editor = bench.forms.formSetMemories;
    FormPicture picture(editor);
    EXPECT_GE(markOn(picture, editor.presets[1]).width(), 9);
    EXPECT_TRUE(markOn(picture, editor.presets[2]).isEmpty());
}

TEST_F(ShownPanels, StaleFiguresAreDimmedUnderAnAmberSignAndComeBack) {
    struct Row {
        PanelSign& sign;
        display::Label& figure;
    };
    for (const Row& row : {Row{bench.form1.sign, bench.form1.Label_FMod},
                           Row{bench.formB.sign, bench.formB.Label_PhaseVector},
                           Row{bench.formC.sign, bench.formC.Label_PilotLevel}}) {
        FormPicture picture(row.figure.form());
        const std::string panel = row.figure.form().name();
        const QRect figure = picture.inkOf(row.figure);
        const QRect head = picture.boxOf(row.sign.words);
        const int live = brightest(picture.taken(), figure);
        EXPECT_TRUE(amberIn(picture.taken(), head).isEmpty()) << panel;
        row.sign.show("NO DATA 3 s", PanelSign::Figures::Stale);
        const QImage stale = picture.taken();
        EXPECT_LT(brightest(stale, figure), live * 2 / 3) << panel;
        EXPECT_GT(brightest(stale, figure), live / 4) << "still to be read: " << panel;
        const QRect words = amberIn(stale, head);
        EXPECT_GT(words.width(), 40) << panel;
        EXPECT_LT(words.right(), head.right()) << panel;
        row.sign.show("", PanelSign::Figures::Live);
        EXPECT_EQ(brightest(picture.taken(), figure), live) << panel;
    }
}

TEST_F(ShownPanels, AnAmberRingStandsAroundDigitsThatCannotBeTuned) {
    bench.click(bench.formB.Image4);
    Form_bTuner& keypad = bench.forms.formTuner;
    FormPicture picture(keypad);
    const QRect around = picture.boxOf(keypad.Ring);
    EXPECT_TRUE(amberIn(picture.taken(), around).isEmpty());
    bench.edit(keypad.Text1, "200");
    const QRect ring = amberIn(picture.taken(), around);
    EXPECT_GT(ring.width(), around.width() - 6);
    EXPECT_GT(ring.height(), around.height() - 6);
}

}  // namespace
}  // namespace hmonitor::test
