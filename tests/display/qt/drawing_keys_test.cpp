// SPDX-License-Identifier: GPL-3.0-or-later
// Copying and saving drawings by the keyboard of a real window.
#include <QClipboard>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include "display/number_table.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class DrawingKeys : public QtBench {
 protected:
    DrawingKeys() {
        sample->PictureBox1.numbers = [] { return table("Spectrum"); };
        sample->Chart1.numbers = [] { return table("Levels"); };
        showSample();
        Drawing& drawing = sample->PictureBox1.drawing;
        drawing.foreground = kBlack;
        drawing.box(0, 0, drawing.outerWidth(), drawing.outerHeight());
        drawing.foreground = kRed;
        drawing.box(0, 0, drawing.outerWidth() / 2, drawing.outerHeight());
        drawing.foreground = kWhite;
        drawing.textX = 60;
        drawing.textY = 20;
        drawing.print("dB/uV");
        QGuiApplication::clipboard()->setText("mine");
    }
    static NumberTable table(const char* title) {
        return {title, "UNO 98.1 MHz 2026-05-04", {{title, "dB"}}, {{"-3.5"}}};
    }
    void press(Qt::Key key, Qt::KeyboardModifiers with) {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &view(*sample), key, with);
        settle();
    }
    static QString text() { return QGuiApplication::clipboard()->text(); }
};

TEST_F(DrawingKeys, CtrlCCopiesThePictureOfTheFirstDrawingTwiceAsSharp) {
    press(Qt::Key_C, Qt::ControlModifier);
    const QImage image = QGuiApplication::clipboard()->image();
    const qreal pixels = desktop->scale().px(1);
    EXPECT_NEAR(image.width(), 2 * 1800 * pixels, 2);
    EXPECT_NEAR(image.height(), 2 * 1500 * pixels, 2);
    EXPECT_EQ(image.pixelColor(image.width() / 4, image.height() - 10), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(image.width() * 3 / 4, image.height() - 10), QColor(Qt::black));
    const QByteArray svg = QGuiApplication::clipboard()->mimeData()->data("image/svg+xml");
    EXPECT_TRUE(svg.contains("dB/uV")) << "text stays text";
}

TEST_F(DrawingKeys, CtrlShiftCCopiesItsNumbers) {
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(text(), "Spectrum (dB),UNO 98.1 MHz 2026-05-04\r\n-3.5,\r\n");
}

TEST_F(DrawingKeys, AClickOnAChartMeansThatChart) {
    QTest::mouseClick(&view(*sample), Qt::LeftButton, {}, middle(sample->Chart1));
    QTest::mouseClick(widget(sample->Chart1).childAt(5, 5), Qt::LeftButton);
    settle();
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(text(), "Levels (dB),UNO 98.1 MHz 2026-05-04\r\n-3.5,\r\n");
}

TEST_F(DrawingKeys, ATextFieldKeepsItsCopyWhileAnythingIsSelectedThere) {
    auto& field = dynamic_cast<QLineEdit&>(widget(sample->Text1));
    field.setFocus();
    field.selectAll();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(text(), "Radio");
    field.deselect();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
}

TEST_F(DrawingKeys, ADisabledFormKeepsWhatItShows) {
    sample->enabled = false;
    settle();
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(text(), "mine");
}

/// A chart of 20 rows behind a panel that shows ten of them, with a scale, a legend and a key.
class ScrolledChartForm final : public Form {
 public:
    explicit ScrolledChartForm(Desktop& desktop) : Form(desktop, "ScrolledChartForm") {
        Graph1.numbers = [] { return NumberTable{}; };
        HScroll1.onChange = [] {};
    }
    Panel Well{*this, "Well"};
    Panel View{*this, "View"};
    Chart Graph1{*this, "Graph1"};
    Label Scale1{*this, "Scale1"};
    Label Mark1{*this, "Mark1"};  ///< belongs to the chart's picture
    Label Beside{*this, "Beside"};
    Line Legend1{*this, "Legend1"};
    ScrollBar HScroll1{*this, "HScroll1"};

 protected:
    void layOut() override {
        width = 6000.f;
        height = 4000.f;
        place(Well, {500, 500, 3000, 2500}).surface = Surface::Well;
        // It ends at the chart's left edge, beside its plot.
        place(Scale1, {60, 900, 330, 200}, &Well).caption = "100";
        Scale1.align = Align::Right;
        place(View, {400, 0, 2600, 2000}, &Well);
        // Scrolled by ten rows.
        place(Graph1, {-100 - 2600, 0, 5400, 2000}, &View);
        Graph1.insets = Chart::Insets{100, 100, 100, 300};
        Graph1.rowCount(20);
        Graph1.columnCount(1);
        Graph1.seriesColour(1, kGreen);
        for (const int row : {1, 20}) {
            Graph1.row = row;
            Graph1.data("90");
        }
        place(Mark1, {-2600, 0, 300, 100}, &View).caption = "0 hs";
        place(HScroll1, {400, 2100, 2600, 200}, &Well);
        place(Legend1, 500, 3200, 800, 3200).colour = kRed;
        place(Beside, {4000, 500, 800, 200}).caption = "elsewhere";
        Graph1.pictureBox = {500, 500, 3000, 2900};
    }
};

class DrawingPictures : public DrawingKeys {};

TEST_F(DrawingPictures, OfAScrolledChartAreTheWholeChartWithItsScaleAndLegend) {
    ScrolledChartForm form(*desktop);
    form.load();
    const QImage image = QImage::fromData(
        QByteArray::fromStdString(desktop->pictureOf(form.Graph1, PictureFormat::Png)), "PNG");
    const qreal pixels = 2 * desktop->scale().px(1);
    EXPECT_NEAR(image.width(), (3000 + 5400 - 200 - 2600) * pixels, 2);
    // The middles of the first and the last bar; in the picture the plot begins at the view's left
    // edge.
    const auto at = [&](float left, float top) {
        return image.pixelColor(qRound(left * pixels), qRound(top * pixels));
    };
    EXPECT_GT(at(400 + 5200 * 0.5f / 20, 1600).green(), 200);
    EXPECT_GT(at(400 + 5200 * 19.5f / 20, 1600).green(), 200);
    EXPECT_LT(at(400 + 5200 * 10.5f / 20, 1600).green(), 100);
    EXPECT_EQ(at(150, 2700), QColor(Qt::red)) << "the legend";
    int bright = 0;
    for (float x = 310; x < 390; x += 4)
        for (float y = 900; y < 1100; y += 4) bright += qGray(at(x, y).rgb()) > 128;
    EXPECT_GT(bright, 20) << "the scale, over the chart's ground";

    const std::string svg = desktop->pictureOf(form.Graph1, PictureFormat::Svg);
    EXPECT_NE(svg.find(">0 hs<"), std::string::npos) << "what goes with the chart";
    EXPECT_EQ(svg.find("elsewhere"), std::string::npos);
}

TEST_F(DrawingPictures, AsSvgAreLinesAndText) {
    const std::string svg = desktop->pictureOf(sample->PictureBox1, PictureFormat::Svg);
    QXmlStreamReader reader(QByteArray::fromStdString(svg));
    int texts = 0;
    while (!reader.atEnd())
        texts += reader.readNext() == QXmlStreamReader::StartElement &&
                 reader.name() == QLatin1String("text");
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_EQ(texts, 1);
    EXPECT_EQ(svg.find("<image"), std::string::npos);
}

TEST_F(DrawingPictures, AsPngAreWhatIsCopied) {
    const std::string png = desktop->pictureOf(sample->PictureBox1, PictureFormat::Png);
    const QImage image = QImage::fromData(QByteArray::fromStdString(png), "PNG");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32),
              QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32));
}

TEST_F(DrawingPictures, TakeTheNamedPlaceOnTheFormWithItsScales) {
    // The well with its labels, from the picture box's left edge to its right one.
    sample->PictureBox1.pictureBox = {150, 300, 6450, 1500};
    const std::string png = desktop->pictureOf(sample->PictureBox1, PictureFormat::Png);
    const QImage image = QImage::fromData(QByteArray::fromStdString(png), "PNG");
    const qreal pixels = 2 * desktop->scale().px(1);
    EXPECT_NEAR(image.width(), 6450 * pixels, 2);
    const auto at = [&](float twipsLeft, float twipsTop) {
        return image.pixelColor(qRound((twipsLeft - 150) * pixels),
                                qRound((twipsTop - 300) * pixels));
    };
    EXPECT_EQ(at(4800 + 400, 1500), QColor(Qt::red)) << "the drawing";
    EXPECT_EQ(at(150 + 15 * 100, 300 + 15 * 30), QColor(Qt::red)) << "the line in the well";
}

TEST_F(DrawingPictures, OfAChartHaveItsBars) {
    sample->Chart1.seriesColour(1, kGreen);
    for (int row = 1; row <= 4; ++row) {
        sample->Chart1.row = row;
        sample->Chart1.data("80");
    }
    const std::string svg = desktop->pictureOf(sample->Chart1, PictureFormat::Svg);
    EXPECT_EQ(svg.find("<image"), std::string::npos) << "bars are figures, no pixels";
    const QImage image = QImage::fromData(
        QByteArray::fromStdString(desktop->pictureOf(sample->Chart1, PictureFormat::Png)), "PNG");
    int green = 0;
    for (int x = 0; x < image.width(); ++x)
        green += image.pixelColor(x, image.height() / 2).green() > 200;
    EXPECT_GT(green, image.width() / 2);
}

TEST_F(DrawingPictures, NeedNoWindowOnTheScreen) {
    sample->hide();
    settle();
    const QImage image = QImage::fromData(
        QByteArray::fromStdString(desktop->pictureOf(sample->PictureBox1, PictureFormat::Png)),
        "PNG");
    EXPECT_EQ(image.pixelColor(image.width() / 4, image.height() - 10), QColor(Qt::red));
}

}  // namespace display::qt
