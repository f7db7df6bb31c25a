// SPDX-License-Identifier: GPL-3.0-or-later
// A plot under a real wheel, pointer and keyboard.
#include <QClipboard>
#include <QGuiApplication>
#include <QWheelEvent>
#include <QXmlStreamReader>

#include "display/number_table.h"
#include "display/qt/painting/drawing_picture.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class PlotKeys : public QtBench {
 protected:
    PlotKeys() {
        plot.numbers = [] { return NumberTable{"History", "UNO", {{"Peak", "kHz"}}, {{"75"}}}; };
        showSample();
        plot.x = PlotAxis{AxisKind::Linear, 40, 60};
        plot.reach = Plot::Reach{0, 100, 2, 80};
        plot.insets = Plot::Insets{500, 200, 0, 0};
        settle();
    }
    /// A point on the curves, by shares of the plot's width and height.
    QPoint at(double x) {
        const QRect box = widget(plot).rect();
        const double left = box.width() * 500 / 2500.0;
        return {static_cast<int>(left + x * (box.width() - left)), box.height() / 2};
    }
    void wheel(double x, QPoint turned, Qt::KeyboardModifiers with = {}) {
        QWidget& on = widget(plot);
        QWheelEvent event(at(x), on.mapToGlobal(at(x)), {}, turned, Qt::NoButton, with,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&on, &event);
        settle();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        widget(plot).setFocus();
        QTest::keyClick(&widget(plot), key, with);
        settle();
    }
    double span() const { return plot.x.get().span(); }

    Plot& plot = sample->Plot1;
};

TEST_F(PlotKeys, TheWheelZoomsAboutThePointer) {
    wheel(0.25, {0, 120});
    EXPECT_NEAR(span(), 16, 1e-6);
    EXPECT_NEAR(plot.x.get().valueAt(0.25), 45, 0.3);
    wheel(0.25, {0, -120});
    EXPECT_NEAR(span(), 20, 1e-6);
}

TEST_F(PlotKeys, TheWheelWithShiftAndASidewaysWheelMoveTheRange) {
    wheel(0.5, {0, -120}, Qt::ShiftModifier);
    EXPECT_NEAR(plot.x.get().lowest, 40 + 20.0 / 12, 1e-6);
    wheel(0.5, {120, 0});
    EXPECT_NEAR(plot.x.get().lowest, 40, 1e-6);
    EXPECT_NEAR(span(), 20, 1e-9);
}

TEST_F(PlotKeys, ADragMovesTheRangeAndPutsNoMark) {
    QWidget& on = widget(plot);
    QTest::mousePress(&on, Qt::LeftButton, {}, at(0.75));
    QTest::mouseMove(&on, at(0.5));
    QTest::mouseMove(&on, at(0.25));
    QTest::mouseRelease(&on, Qt::LeftButton, {}, at(0.25));
    settle();
    EXPECT_NEAR(plot.x.get().lowest, 50, 0.4);
    EXPECT_FALSE(plot.mark(0));
}

TEST_F(PlotKeys, AWindowThatClosesInTheMiddleOfADragLetsGo) {
    QTest::mousePress(&widget(plot), Qt::LeftButton, {}, at(0.75));
    QTest::mouseMove(&widget(plot), at(0.5));
    EXPECT_EQ(widget(plot).cursor().shape(), Qt::ClosedHandCursor);
    sample->hide();
    settle();
    sample->show();
    settle();
    EXPECT_EQ(widget(plot).cursor().shape(), Qt::ArrowCursor);
    const double lowest = plot.x.get().lowest;
    QTest::mouseMove(&widget(plot), at(0.25));
    QTest::mouseRelease(&widget(plot), Qt::LeftButton, {}, at(0.25));
    settle();
    EXPECT_EQ(plot.x.get().lowest, lowest);
    EXPECT_FALSE(plot.mark(0));
}

TEST_F(PlotKeys, AClickPutsTheFirstMarkAndWithShiftTheSecond) {
    QTest::mouseClick(&widget(plot), Qt::LeftButton, {}, at(0.25));
    QTest::mouseClick(&widget(plot), Qt::LeftButton, Qt::ShiftModifier, at(0.75));
    settle();
    ASSERT_TRUE(plot.mark(0) && plot.mark(1));
    EXPECT_NEAR(*plot.mark(0), 45, 0.2);
    EXPECT_NEAR(*plot.mark(1), 55, 0.2);
    QTest::mouseClick(&widget(plot), Qt::LeftButton, {}, QPoint(3, 40));
    settle();
    EXPECT_NEAR(*plot.mark(0), 45, 0.2) << "beside the curves";
}

TEST_F(PlotKeys, EachKeyDoesWhatItSays) {
    key(Qt::Key_Plus);
    EXPECT_NEAR(span(), 10, 1e-9);
    key(Qt::Key_Minus);
    EXPECT_NEAR(span(), 20, 1e-9);
    key(Qt::Key_Right);
    EXPECT_NEAR(plot.x.get().lowest, 42.5, 1e-9);
    key(Qt::Key_Left);
    EXPECT_NEAR(plot.x.get().lowest, 40, 1e-9);
    key(Qt::Key_End);
    EXPECT_NEAR(plot.x.get().highest, 100, 1e-9);
    key(Qt::Key_Home);
    EXPECT_NEAR(plot.x.get().lowest, 0, 1e-9);
    key(Qt::Key_Right, Qt::ShiftModifier);
    key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_TRUE(plot.mark(0) && plot.mark(1));
    key(Qt::Key_Delete);
    EXPECT_FALSE(plot.mark(0) || plot.mark(1));
}

TEST_F(PlotKeys, IsCopiedAndSavedAsEveryDrawing) {
    const DrawingPicture picture(plot, 0.1);
    EXPECT_NEAR(picture.size().width(), 250, 1);
    const std::string svg = desktop->pictureOf(plot, PictureFormat::Svg);
    QXmlStreamReader xml(QByteArray::fromStdString(svg));
    while (!xml.atEnd()) xml.readNext();
    EXPECT_FALSE(xml.hasError());
    EXPECT_TRUE(desktop->pictureOf(plot, PictureFormat::Pdf).starts_with("%PDF"));
    widget(plot).setFocus();
    QTest::keyClick(&widget(plot), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    settle();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Peak (kHz),UNO\r\n75,\r\n");
}

TEST_F(PlotKeys, AnAssistiveToolReadsItsNameInBothLanguages) {
    EXPECT_EQ(widget(plot).accessibleName(), "History");
    sample->language = Language::Spanish;
    settle();
    EXPECT_EQ(widget(plot).accessibleName(), "Historia");
}

}  // namespace display::qt
