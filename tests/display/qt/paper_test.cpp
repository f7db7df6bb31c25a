// SPDX-License-Identifier: GPL-3.0-or-later
// Forms and sheets on paper, read back from their pixels.
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QTemporaryDir>

#include "display/chart.h"
#include "display/qt/painting/chart_painter.h"
#include "display/qt/painting/form_painter.h"
#include "display/qt/painting/page_writer.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

/// A sheet with one of each thing that pages contain, and keys beside it.
class PaperForm final : public Form {
 public:
    explicit PaperForm(Desktop& desktop) : Form(desktop, "PaperForm") {
        Beside.onClick = [] {};
        Key1.onClick = [] {};
        HScroll1.onChange = [] {};
    }
    Panel Faceplate{*this, "Faceplate"};
    Panel Sheet{*this, "Sheet"};
    Label Heading{*this, "Heading"};
    Line Rule{*this, "Rule"};
    Picture Logo{*this, "Logo"};
    PictureBox Graph{*this, "Graph"};
    Chart Bars{*this, "Bars"};
    TextField Comment{*this, "Comment"};
    Key Key1{*this, "Key1"};
    ScrollBar HScroll1{*this, "HScroll1"};
    Key Beside{*this, "Beside"};

    static constexpr float kLeft = 300, kTop = 400;

 protected:
    void layOut() override {
        width = 9000.f;
        height = 7000.f;
        place(Faceplate, {0, 0, 9000, 7000}).surface = Surface::Faceplate;
        place(Sheet, {kLeft, kTop, 8000, 6000}).surface = Surface::Sheet;
        place(Heading, {400, 200, 3000, 300}, &Sheet).caption = "HHHHHH";
        Heading.colour = kBlack;
        Heading.font = Font{240};
        place(Rule, 400, 700, 7600, 700, &Sheet).colour = kRed;
        place(Logo, {5000, 200, 2600, 400}, &Sheet).border = Border::Plain;
        place(Graph, {400, 1000, 3000, 2000}, &Sheet);
        place(Bars, {4000, 1000, 3600, 2000}, &Sheet);
        place(Comment, {400, 4500, 3000, 600}, &Sheet).font = Font{160};
        Comment.colour = kBlack;
        place(Key1, {400, 5300, 1200, 400}, &Sheet).caption = "Key";
        place(HScroll1, {2000, 5300, 2000, 240}, &Sheet).range(0, 10, 2);
        place(Beside, {300, 6500, 2000, 400}).caption = "Beside";
    }
};

class SheetPaint : public QtBench {
 protected:
    SheetPaint() { form.load(); }

    static constexpr qreal kPixel = 0.1;  ///< pixels a twip

    static int pixel(float twips) { return qRound(twips * kPixel); }

    QImage picture(QSizeF twips, const std::function<void(QPainter&)>& paint) {
        QImage image((twips * kPixel).toSize(), QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        painter.scale(kPixel, kPixel);
        paint(painter);
        return image;
    }
    QImage sheet() {
        return picture({8000, 6000}, [&](QPainter& p) { paintSheet(p, form.Sheet, kPixel); });
    }
    QImage whole() {
        return picture({9000, 7000}, [&](QPainter& p) { paintForm(p, form, kPixel); });
    }
    static QRect pixelsOf(const QImage& image, const QRect& within,
                          const std::function<bool(QColor)>& wanted) {
        QRect found;
        const QRect place = within & image.rect();
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x) {
                if (wanted(image.pixelColor(x, y))) found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }
    static bool dark(QColor colour) { return qGray(colour.rgb()) < 128; }
    static QRect boxOf(const Control& control) {
        return {pixel(control.left), pixel(control.top), pixel(control.width),
                pixel(control.height)};
    }
    QRect inkOf(const QImage& image, const Control& control) {
        return pixelsOf(image, boxOf(control), dark);
    }

    PaperForm form{*desktop};
};

TEST_F(SheetPaint, ASheetStandsAloneWithWhatLiesOnIt) {
    const QImage image = sheet();
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(798, 598), QColor(Qt::white));
    const QRect heading = inkOf(image, form.Heading);
    EXPECT_NEAR(heading.left(), pixel(400), 4);
    EXPECT_GT(heading.width(), 80);
    EXPECT_EQ(image.pixelColor(pixel(4000), pixel(700)), QColor(Qt::red));
    // The same on a print of the whole form.
    const QImage all = whole();
    EXPECT_EQ(all.pixelColor(pixel(4000 + PaperForm::kLeft), pixel(700 + PaperForm::kTop)),
              QColor(Qt::red));
    EXPECT_NE(all.pixelColor(pixel(100), pixel(3000)), QColor(Qt::magenta));
    EXPECT_NE(all.pixelColor(pixel(100), pixel(3000)), QColor(Qt::white));
}

TEST_F(SheetPaint, NoWindowHasToStand) {
    EXPECT_FALSE(form.visible);
    EXPECT_EQ(desktop->viewOf(form), nullptr);
    EXPECT_FALSE(inkOf(sheet(), form.Heading).isEmpty());
    EXPECT_EQ(desktop->viewOf(form), nullptr);
}

TEST_F(SheetPaint, WhatIsHiddenIsNotThere) {
    form.Heading.visible = false;
    EXPECT_TRUE(inkOf(sheet(), form.Heading).isEmpty());
    form.Sheet.visible = false;
    EXPECT_NE(whole().pixelColor(pixel(2000), pixel(2000)), QColor(Qt::white));
}

TEST_F(SheetPaint, ABorderIsALineAroundItsPicture) {
    const auto line = [&] {
        return pixelsOf(sheet(), boxOf(form.Logo), [](QColor c) { return qGray(c.rgb()) < 230; });
    };
    EXPECT_EQ(line(), boxOf(form.Logo));
    form.Logo.border = Border::None;
    EXPECT_TRUE(line().isEmpty());
    form.Logo.picture = "InkTeskel";
    EXPECT_FALSE(line().isEmpty());
}

TEST_F(SheetPaint, ADrawingIsItsMarksCutAtItsBox) {
    Drawing& drawing = form.Graph.drawing;
    drawing.scale(10, 0);  // 300 by 200
    drawing.foreground = kGreen;
    drawing.box(100, 50, 1000, 150);
    drawing.foreground = kRed;
    drawing.box(20, 50, 20, 150);
    const QImage image = sheet();
    const QRect green =
        pixelsOf(image, image.rect(), [](QColor c) { return c == QColor(0, 255, 0); });
    EXPECT_EQ(green.left(), pixel(400 + 1000));
    EXPECT_EQ(green.right(), pixel(400 + 3000) - 1);
    EXPECT_EQ(green.top(), pixel(1000 + 500));
    EXPECT_EQ(green.bottom(), pixel(1000 + 1500));
    // A box of no width is as wide as a pixel of the screen, however fine the paper.
    EXPECT_EQ(image.pixelColor(pixel(400 + 200), pixel(1000 + 1000)), QColor(Qt::red));
    const qreal fine = 1;
    QImage finer(3000, 2000, QImage::Format_RGB32);
    finer.fill(Qt::white);
    QPainter painter(&finer);
    paintControl(painter, form.Graph, fine);
    EXPECT_EQ(finer.pixelColor(209, 1000), QColor(Qt::red));
    EXPECT_EQ(finer.pixelColor(211, 1000), QColor(Qt::white));
}

TEST_F(SheetPaint, AMapIsItsCellsAndNothingBetweenThem) {
    Drawing& drawing = form.Graph.drawing;
    drawing.scale(10, 0);
    const CellGrid grid{0, 0, 30, 50, 10, 4};
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 10; ++column) {
            drawing.foreground = (row + column) % 2 ? kRed : kGreen;
            drawing.cell(grid, column, row);
        }
    }
    QImage image(3000, 2000, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        paintControl(painter, form.Graph, 1);
    }
    for (const int x : {2, 297, 302, 597, 2998}) {
        const bool red = x / 300 % 2;
        EXPECT_EQ(image.pixelColor(x, 250), QColor(red ? Qt::red : Qt::green)) << x;
    }
}

TEST_F(SheetPaint, AFieldOnPaperIsItsTextWithinItsBoxHoweverLong) {
    form.Comment.text = "short";
    const QRect line = inkOf(sheet(), form.Comment);
    EXPECT_FALSE(line.isEmpty());
    EXPECT_LT(line.height(), pixel(300));
    std::string text;
    for (int i = 0; i < 24; ++i) text += "a longer comment ";
    form.Comment.text = text + "W";
    const QImage image = sheet();
    const QRect ink = inkOf(image, form.Comment);
    EXPECT_GT(ink.height(), pixel(300));
    const QRect around = boxOf(form.Comment).adjusted(-20, -20, 20, 20);
    EXPECT_EQ(pixelsOf(image, around, dark), ink);
    // The last letter is printed too: without it the print differs.
    form.Comment.text = text;
    EXPECT_NE(sheet(), image);
}

TEST_F(SheetPaint, AKeyAndABarOnPaperAreWhatTheScreenShows) {
    const QImage image = sheet();
    EXPECT_FALSE(inkOf(image, form.Key1).isEmpty());
    const QRect thumb = pixelsOf(image, boxOf(form.HScroll1),
                                 [](QColor c) { return c.red() > 0x3a && c.red() < 0x70; });
    EXPECT_NEAR(thumb.left(), pixel(2000), 6);
    form.HScroll1.value = 10;
    const QRect moved = pixelsOf(sheet(), boxOf(form.HScroll1),
                                 [](QColor c) { return c.red() > 0x3a && c.red() < 0x70; });
    EXPECT_NEAR(moved.right(), pixel(4000), 6);
}

// Charts.

class ChartOnPaperTest : public SheetPaint {
 protected:
    ChartOnPaperTest() {
        Chart& chart = form.Bars;
        chart.rowCount(2);
        chart.columnCount(2);
        chart.insets = Chart::Insets{100, 200, 100, 300};
        chart.lowest = 30.f;
        chart.highest = 100.f;
        chart.gridStep = 0.f;
        chart.seriesColour(1, kRed);
        chart.seriesColour(2, kGreen);
        put(1, 1, "65");
        put(1, 2, "100");
        put(2, 1, "20");
        put(2, 2, "words");
    }
    void put(int row, int column, const char* text) {
        form.Bars.row = row;
        form.Bars.column = column;
        form.Bars.data(text);
    }
    // The plot on the sheet: x 4100 to 7500, y 1200 to 2700.
    QRect of(const QImage& image, QColor colour) {
        return pixelsOf(image, boxOf(form.Bars), [colour](QColor c) { return c == colour; });
    }
};

TEST_F(ChartOnPaperTest, BarsStandAtTheirValuesAndOthersAreNone) {
    const QImage image = sheet();
    const QRect red = of(image, Qt::red), green = of(image, QColor(0, 255, 0));
    EXPECT_NEAR(red.top(), pixel(1200 + 750), 1);
    EXPECT_NEAR(red.bottom(), pixel(2700), 2);
    EXPECT_NEAR(green.top(), pixel(1200), 1);
    // A bar's place is 0.42 of a row of 1700, of which it fills 0.88.
    EXPECT_NEAR(red.width(), pixel(1700 * 0.42f * 0.88f), 1);
    EXPECT_NEAR(red.center().x(), pixel(4100 + 850 - 1700 * 0.21f), 1);
    EXPECT_NEAR(green.center().x(), pixel(4100 + 850 + 1700 * 0.21f), 1);
}

TEST_F(ChartOnPaperTest, TheGroundIsWhiteOnASheetAndDarkInAWindow) {
    EXPECT_EQ(sheet().pixelColor(pixel(4020), pixel(1020)), QColor(Qt::white));
    form.Sheet.surface = Surface::Well;
    EXPECT_TRUE(dark(sheet().pixelColor(pixel(4020), pixel(1020))));
}

TEST_F(ChartOnPaperTest, LabelsStandUnderTheirRowsOrBars) {
    form.Bars.row = 2;
    form.Bars.rowLabel("   88.0");
    const QRect below(pixel(4000), pixel(2710), pixel(3600), pixel(290));
    EXPECT_NEAR(pixelsOf(sheet(), below, dark).center().x(), pixel(4100 + 1.5f * 1700), 3);
    form.Bars.rowLabelColumn(1);
    EXPECT_NEAR(pixelsOf(sheet(), below, dark).center().x(), pixel(4100 + 1.5f * 1700 - 357), 3);
}

TEST_F(ChartOnPaperTest, ACurveGoesThroughTheMiddleOfItsRows) {
    form.Bars.style = Chart::Style::Curve;
    form.Bars.columnCount(1);
    put(2, 1, "30");
    const QImage image = sheet();
    const QRect red = of(image, Qt::red);
    EXPECT_NEAR(red.left(), pixel(4100 + 850 - 30), 2);
    EXPECT_NEAR(red.top(), pixel(1200 + 750 - 30), 2);
    EXPECT_NEAR(red.right(), pixel(4100 + 2550 + 30), 2);
    // Half way between the two points, half way between their values.
    const QRect column(pixel(4100 + 1700), pixel(1200), 1, pixel(1500));
    EXPECT_NEAR(pixelsOf(image, column, [](QColor c) { return c.red() > 200 && c.green() < 120; })
                    .center()
                    .y(),
                pixel(1200 + 1125), 2);
}

TEST_F(ChartOnPaperTest, PaperAndScreenShowTheSameBars) {
    form.show();
    settle();
    ASSERT_TRUE(until([&] {
        return !pixelsOf(view(form).grab().toImage(), QRect(0, 0, 9999, 9999), [](QColor c) {
                    return c == QColor(Qt::red);
                }).isEmpty();
    }));
    const QImage screen = view(form).grab().toImage();
    const Scale& scale = view(form).scale();
    const QImage paper = sheet();
    for (const QColor colour : {QColor(Qt::red), QColor(0, 255, 0)}) {
        const QRectF at = scale.snapped(form.Bars.boxOnForm());
        const QRect seen =
            pixelsOf(screen, at.toRect(), [colour](QColor c) { return c == colour; });
        const QRect printed = of(paper, colour);
        // Both in twips of the form.
        EXPECT_NEAR(seen.left() / scale.px(1), printed.left() / kPixel + PaperForm::kLeft, 25);
        EXPECT_NEAR(seen.right() / scale.px(1), printed.right() / kPixel + PaperForm::kLeft, 25);
        EXPECT_NEAR(seen.top() / scale.px(1), printed.top() / kPixel + PaperForm::kTop, 25);
    }
}

// Pages.

class PageWriter : public SheetPaint {
 protected:
    QByteArray written(const PageContent& content) {
        const QTemporaryDir folder;
        const QString path = folder.filePath("page.pdf");
        {
            QPdfWriter writer(path);
            writer.setPageSize(QPageSize(QPageSize::A4));
            EXPECT_TRUE(writePage(writer, content));
            layout = writer.pageLayout();
        }
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    QPageLayout layout;
};

TEST_F(PageWriter, AWideSheetLiesAndAHighOneStands) {
    form.Heading.caption = "words";
    const QByteArray wide = written(pageOfSheet(form.Sheet));
    EXPECT_EQ(layout.orientation(), QPageLayout::Landscape);
    EXPECT_EQ(wide.count("/Type /Page\n"), 1);
    EXPECT_TRUE(wide.contains("/FontFile"));
    EXPECT_FALSE(wide.contains("/Subtype /Image"));
    form.Sheet.width = 3000.f;
    written(pageOfSheet(form.Sheet));
    EXPECT_EQ(layout.orientation(), QPageLayout::Portrait);
}

TEST_F(PageWriter, AMapKeepsEachOfItsColours) {
    Drawing& drawing = form.Graph.drawing;
    drawing.scale(10, 0);
    const CellGrid grid{0, 0, 30, 50, 10, 4};
    drawing.foreground = kRed;
    drawing.cell(grid, 3, 3);
    const QByteArray page = written(pageOfSheet(form.Sheet));
    EXPECT_TRUE(page.contains("/Subtype /Image"));
    EXPECT_FALSE(page.contains("DCTDecode")) << "a photograph's compression smears colours";
}

TEST_F(PageWriter, FormsStandAsTheirModelPlacesThem) {
    test::SampleForm below(*desktop, "Below");
    below.load();
    form.left = 500.f;
    form.top = 200.f;
    below.left = 500.f;
    below.top = 200.f + form.height;
    const PageContent content = pageOfForms({&form, &below});
    EXPECT_EQ(content.size, QSizeF(9000, form.height + below.height));
    const QImage image = picture(content.size, [&](QPainter& p) { content.paint(p, kPixel); });
    EXPECT_EQ(image.pixelColor(pixel(4000 + PaperForm::kLeft), pixel(700 + PaperForm::kTop)),
              QColor(Qt::red));
    const QImage alone = picture({9000, 6000}, [&](QPainter& p) { paintForm(p, below, kPixel); });
    const QImage part = image.copy(0, pixel(form.height), alone.width(), alone.height());
    // Antialiasing of curves may differ a little; anything missing or misplaced differs by more.
    int different = 0;
    for (int y = 0; y < alone.height(); ++y) {
        for (int x = 0; x < alone.width(); ++x)
            different += std::abs(qGray(part.pixel(x, y)) - qGray(alone.pixel(x, y))) > 12;
    }
    EXPECT_EQ(different, 0);
}

TEST_F(PageWriter, APlaceThatCannotBeWrittenIsNoPage) {
    QPdfWriter writer("/no/such/folder/page.pdf");
    EXPECT_FALSE(writePage(writer, pageOfSheet(form.Sheet)));
}

}  // namespace display::qt
