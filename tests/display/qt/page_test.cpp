// SPDX-License-Identifier: GPL-3.0-or-later
// Pages on paper and in the preview, read back from their pixels.
#include "display/page.h"

#include <QFile>
#include <QGraphicsView>
#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>

#include "display/qt/painting/page_painter.h"
#include "display/qt/widgets/page_preview_widget.h"
#include "tests/display/qt/paper_desktop.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

namespace {

/// At this resolution a pixel is ten page units.
constexpr qreal kDotsPerInch = 144;

int pixel(float units) {
    return qRound(units * kDotsPerInch / kPageUnitsPerInch);
}

QImage pictureOf(const PageDocument& document, const Paper& paper) {
    QImage image(pixel(paper.width), pixel(paper.height), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPages(painter, document, 1, 1, kDotsPerInch, [] {});
    return image;
}

/// The pixels that are not white; red ones alone where asked for.
QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(row[x]) < 128) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

PageDocument withMargins() {
    PageDocument document;
    document.margins = {720, 720, 720, 720};
    return document;
}

}  // namespace

/// A form with a preview alone.
class PagePreviewForm final : public Form {
 public:
    explicit PagePreviewForm(Desktop& desktop) : Form(desktop, "PagePreviewForm") {
        Key1.onClick = [this] { hide(); };
    }
    PagePreview ViewPro1{*this, "ViewPro1"};
    Key Key1{*this, "Key1"};

 protected:
    void layOut() override {
        width = 9000.f;
        height = 8000.f;
        place(ViewPro1, {300, 300, 8400, 6900}).tabIndex = 1;
        place(Key1, {300, 7300, 1200, 420}).isCancel = true;
    }
};

class PagePaint : public QtBench {};

TEST_F(PagePaint, LinesAndRectanglesStandAtTheirCoordinatesFromTheMarginsCorner) {
    PageDocument document = withMargins();
    document.pen = {kBlack, 40, PenStyle::Solid};
    document.rectangle({1000, 2000}, {5000, 4000});
    const QImage image = pictureOf(document, kA4);
    const QRect ink = inkOf(image);
    EXPECT_NEAR(ink.left(), pixel(720 + 1000 - 20), 1);
    EXPECT_NEAR(ink.top(), pixel(720 + 2000 - 20), 1);
    EXPECT_NEAR(ink.right(), pixel(720 + 5000 + 20), 1);
    EXPECT_NEAR(ink.bottom(), pixel(720 + 4000 + 20), 1);
    EXPECT_EQ(image.pixelColor(pixel(720 + 3000), pixel(720 + 3000)), QColor(Qt::white));
}

TEST_F(PagePaint, APolylineGoesThroughItsPointsInItsColourAndWidth) {
    PageDocument document = withMargins();
    document.pen = {kRed, 70, PenStyle::Solid};
    document.polyline("0 3000 3000 1000 6000 3000 ");
    const QImage image = pictureOf(document, kA4);
    EXPECT_EQ(image.pixelColor(pixel(720 + 1500), pixel(720 + 2000)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(pixel(720 + 4500), pixel(720 + 2000)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(pixel(720 + 3000), pixel(720 + 3000)), QColor(Qt::white));
    int wide = 0;
    for (int y = pixel(720 + 1000); y < pixel(720 + 3000); ++y)
        wide += image.pixelColor(pixel(720 + 1500), y) == QColor(Qt::red);
    // The line slants: 70 units across it measure 84 along y.
    EXPECT_NEAR(wide, 84 / 10.0, 2);
}

TEST_F(PagePaint, AnUprightTextBeginsAtItsUpperLeftCornerAndATurnedOneGoesUp) {
    PageDocument document = withMargins();
    document.font.points = 24;
    document.text({2000, 3000}, "EEEEEEEE");
    const QRect upright = inkOf(pictureOf(document, kA4));
    EXPECT_NEAR(upright.left(), pixel(720 + 2000), 6);
    EXPECT_GE(upright.top(), pixel(720 + 3000));
    EXPECT_LE(upright.bottom(), pixel(720 + 3000 + lineHeight(24)));
    EXPECT_GT(upright.width(), 4 * upright.height());

    PageDocument turnedDocument = withMargins();
    turnedDocument.font.points = 24;
    turnedDocument.turnedText({2000, 6000}, 900, "EEEEEEEE");
    const QRect turned = inkOf(pictureOf(turnedDocument, kA4));
    EXPECT_NEAR(turned.bottom(), pixel(720 + 6000), 6);
    EXPECT_NEAR(turned.height(), upright.width(), 2);
    EXPECT_NEAR(turned.width(), upright.height(), 2);
    EXPECT_GE(turned.left(), pixel(720 + 2000));
    EXPECT_LE(turned.right(), pixel(720 + 2000 + lineHeight(24)));
}

TEST_F(PagePaint, ATextOfFixedPitchIsAsWideAsItsCharacters) {
    PageDocument document;
    document.font = {10, Weight::Normal, Pitch::Fixed, kBlack};
    document.text({1000, 1000}, "|" + std::string(49, ' ') + "|");
    document.font.pitch = Pitch::Proportional;
    const QRect ink = inkOf(pictureOf(document, kA4));
    // The middle of the text: from the middle of its first character to that of its last.
    EXPECT_NEAR(ink.left() + ink.width() / 2.0, pixel(1000 + 25.5f * fixedAdvance(10)), 1.5);
    EXPECT_NEAR(ink.width(), pixel(50 * fixedAdvance(10)), 3);
}

TEST_F(PagePaint, TheFixedFontIsFixed) {
    const auto widthOf = [](const std::string& text) {
        PageDocument document;
        document.font = {20, Weight::Normal, Pitch::Fixed, kBlack};
        document.text({1000, 1000}, "|" + text + "|");
        return inkOf(pictureOf(document, kA4)).width();
    };
    EXPECT_EQ(widthOf("iiiiiiii"), widthOf("MMMMMMMM"));
}

TEST_F(PagePaint, APictureFillsNoMoreThanItsPlace) {
    for (const char* name : {"InkTeskel", "InkMarvenia"}) {
        PageDocument document = withMargins();
        document.picture(name, {550, -360}, 2500, 400);
        const QRect ink = inkOf(pictureOf(document, kA4));
        ASSERT_FALSE(ink.isEmpty()) << name;
        EXPECT_TRUE(QRect(pixel(1270), pixel(360), pixel(2500), pixel(400)).contains(ink)) << name;
    }
}

class PageOnPaper : public QtBench {};

TEST_F(PageOnPaper, PagesGoToThePrinterOneASheet) {
    const QTemporaryDir folder;
    int argc = 0;
    PaperDesktop desk(argc, folder.filePath("pages.pdf"));
    PageDocument document = withMargins();
    for (int i = 0; i < 3; ++i) {
        document.newPage();
        document.text({0, 0}, "a page");
    }
    EXPECT_EQ(desk.printPages(document, 1, 2), "");
    QFile file(folder.filePath("pages.pdf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_EQ(bytes.count("/Type /Page\n"), 2);
}

TEST_F(PageOnPaper, APrinterThatCannotWriteIsTold) {
    int argc = 0;
    PaperDesktop desk(argc, "/no/such/folder/pages.pdf");
    EXPECT_NE(desk.printPages(withMargins(), 1, 1), "");
}

class Preview : public QtBench {
 protected:
    Preview() { form.show(); }

    PagePreviewWidget& preview() { return dynamic_cast<PagePreviewWidget&>(widget(form.ViewPro1)); }
    /// The preview as it stands on the screen.
    QImage picture() {
        QImage image = preview().grab().toImage().convertToFormat(QImage::Format_RGB32);
        return image;
    }
    /// The pixels of one colour.
    static QRect pixelsOf(const QImage& image, QRgb colour) {
        QRect pixels;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == colour) pixels |= QRect(x, y, 1, 1);
            }
        }
        return pixels;
    }
    /// Shows the document and returns its white sheet; empty if it does not appear.
    QRect shown(const PageDocument& document) {
        form.ViewPro1.show(document);
        form.ViewPro1.zoom = 30;
        settle();
        QRect sheet;
        const bool appeared = until([&] {
            sheet = pixelsOf(picture(), qRgb(255, 255, 255));
            return sheet.height() > 100;
        });
        return appeared ? sheet : QRect();
    }

    PagePreviewForm form{*desktop};
};

TEST_F(Preview, ShowsTheSheetAtItsTrueProportionsWithItsMarks) {
    PageDocument document = withMargins();
    document.pen = {kRed, 400, PenStyle::Solid};
    const Paper paper = desktop->paper();
    // Two red lines that cross in the middle of the sheet, up to a quarter of its sides away.
    const float x = paper.width / 2 - 720;
    const float y = paper.height / 2 - 720;
    document.line({x - paper.width / 4, y}, {x + paper.width / 4, y});
    document.line({x, y - paper.height / 4}, {x, y + paper.height / 4});
    const QRect sheet = shown(document);
    ASSERT_FALSE(sheet.isEmpty());
    keep(form, "preview");
    EXPECT_NEAR(double(sheet.height()) / sheet.width(), paper.height / paper.width, 0.02);
    const QRect cross = pixelsOf(picture(), qRgb(255, 0, 0));
    EXPECT_NEAR(cross.center().x(), sheet.center().x(), 2);
    EXPECT_NEAR(cross.center().y(), sheet.center().y(), 2);
    EXPECT_NEAR(cross.width(), sheet.width() / 2.0, 4);
    EXPECT_NEAR(cross.height(), sheet.height() / 2.0, 4);
}

TEST_F(Preview, APictureFillsNoMoreThanItsPlaceWhateverThePixelsOfThePaper) {
    PageDocument document = withMargins();
    document.picture("InkMarvenia", {550, -360}, 2500, 400);
    const QRect sheet = shown(document);
    ASSERT_FALSE(sheet.isEmpty());
    const QImage seen = picture().copy(sheet.adjusted(2, 2, -2, -2));
    const double unit = sheet.width() / double(desktop->paper().width);
    const QRect ink = inkOf(seen);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_GE(ink.left(), std::floor(1270 * unit) - 4);
    EXPECT_LE(ink.right(), std::ceil(3770 * unit) + 2);
    EXPECT_GE(ink.top(), std::floor(360 * unit) - 4);
    EXPECT_LE(ink.bottom(), std::ceil(760 * unit) + 2);
    EXPECT_GT(ink.width(), 1000 * unit) << "and no less";
}

TEST_F(Preview, BeginsAtTheTopOfThePageAndStaysWhereItIsLookedAt) {
    PageDocument document = withMargins();
    document.text({0, 0}, "top");
    form.ViewPro1.show(document);
    form.ViewPro1.zoom = 150;
    settle();
    QScrollBar& bar = *preview().findChild<QGraphicsView*>()->verticalScrollBar();
    ASSERT_GT(bar.maximum(), bar.minimum());
    EXPECT_EQ(bar.value(), bar.minimum());
    bar.setValue(bar.maximum());
    form.ViewPro1.show(document);
    settle();
    EXPECT_NEAR(bar.value(), bar.maximum(), 4);
}

TEST_F(Preview, ItsZoomIsPercentOfTheTrueSize) {
    form.ViewPro1.show(withMargins());
    form.ViewPro1.zoom = 30;
    settle();
    EXPECT_NEAR(preview().view().zoomFactor(), 0.30, 0.001);
    form.ViewPro1.zoom = 60;
    settle();
    EXPECT_NEAR(preview().view().zoomFactor(), 0.60, 0.001);
}

TEST_F(Preview, AnotherDocumentTakesThePlaceOfTheFirst) {
    PageDocument red = withMargins();
    red.pen = {kRed, 2000, PenStyle::Solid};
    red.line({0, 4000}, {9000, 4000});
    form.ViewPro1.zoom = 40;
    form.ViewPro1.show(red);
    settle();
    ASSERT_TRUE(until([&] { return !pixelsOf(picture(), qRgb(255, 0, 0)).isEmpty(); }));
    form.ViewPro1.show(withMargins());
    settle();
    EXPECT_TRUE(until([&] { return pixelsOf(picture(), qRgb(255, 0, 0)).isEmpty(); }));
    EXPECT_TRUE(until([&] { return !pixelsOf(picture(), qRgb(255, 255, 255)).isEmpty(); }));
}

TEST_F(Preview, TakesTheKeyboardAndLeavesEscapeToItsForm) {
    settle();
    QTest::keyClick(preview().findChild<QGraphicsView*>(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(form.visible);
}

}  // namespace display::qt
