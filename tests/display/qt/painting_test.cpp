// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QCursor>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <algorithm>
#include <cstdlib>

#include "display/qt/painting/scale.h"
#include "tests/display/qt/pixel_difference.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class Painting : public QtBench {
 protected:
    void SetUp() override {
        // The pointer is kept away: a control under it lights up and is painted once more.
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
        showSample();
    }

    QColor colourAt(const QPoint& at) {
        const QImage image = view(*sample).grab().toImage();
        return image.pixelColor((QPointF(at) * image.devicePixelRatio()).toPoint());
    }
};

TEST_F(Painting, NothingChanged_NothingIsPainted) {
    QTest::qWait(100);
    const int before = view(*sample).paints();
    sample->LabelValue.caption = "75.0";
    sample->LabelValue.colour = kGreen;
    QTest::qWait(200);
    EXPECT_EQ(view(*sample).paints(), before);
}

TEST_F(Painting, OneReadoutChanged_OnePaintOfJustItsPlace) {
    QTest::qWait(100);
    const int before = view(*sample).paints();
    sample->LabelValue.caption = "76.4";
    desktop->frameSoon();
    QTest::qWait(150);
    EXPECT_EQ(view(*sample).paints(), before + 1);
    const QRect dirty = view(*sample).lastDirty().boundingRect();
    const QRectF label = view(*sample).scale().snapped(sample->LabelValue.boxOnForm());
    EXPECT_TRUE(dirty.intersects(label.toRect()));
    EXPECT_LT(dirty.width(), label.width() + 8);
    EXPECT_LT(dirty.height(), 3 * label.height());
}

TEST_F(Painting, AWordTooLongForItsPlate_EndsOnIt) {
    Label& label = sample->LabelValue;
    label.surface = Surface::Well;
    label.font = Font{140};
    label.caption = "MMMM";
    view(*sample).sync();
    const QImage before = view(*sample).grab().toImage();
    label.caption = std::string(400, 'M');
    view(*sample).sync();
    const QImage after = view(*sample).grab().toImage();
    const qreal ratio = after.devicePixelRatio();
    const QRectF box = view(*sample).scale().snapped(label.boxOnForm());
    int inside = 0;
    QRectF beside;  // in pixels of the form
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            if (after.pixel(x, y) == before.pixel(x, y)) continue;
            const QPointF at(x / ratio, y / ratio);
            if (box.adjusted(-1, -3, 1, 3).contains(at)) {
                ++inside;
            } else {
                beside |= QRectF(at, QSizeF(1 / ratio, 1 / ratio));
            }
        }
    }
    EXPECT_GT(inside, 0);
    EXPECT_TRUE(beside.isEmpty()) << beside.left() << " " << beside.top() << " " << beside.width()
                                  << " " << beside.height() << " beside " << box.left() << " "
                                  << box.top() << " " << box.width() << " " << box.height();
}

TEST_F(Painting, ManyChangesBetweenTwoFrames_AreOnePaint) {
    QTest::qWait(100);
    const int before = view(*sample).paints();
    for (int i = 0; i < 500; ++i) sample->LabelValue.caption = std::to_string(i);
    desktop->frameSoon();
    QTest::qWait(150);
    EXPECT_EQ(view(*sample).paints(), before + 1);
}

TEST_F(Painting, Shape_TakesItsColourAndWhatLiesAboveStays) {
    const QPoint at = middle(sample->Shape1);
    EXPECT_EQ(colourAt(at), QColor(Qt::cyan));
    sample->Shape1.colour = kRed;
    sample->Shape1.fadesFrom = kRed;
    desktop->frameSoon();
    QTest::qWait(100);
    EXPECT_EQ(colourAt(at), QColor(Qt::red));
    sample->Shape1.visible = false;
    desktop->frameSoon();
    QTest::qWait(100);
    EXPECT_NE(colourAt(at), QColor(Qt::red));
}

TEST_F(Painting, AfterChanges_TheSurfaceEqualsOneThatIsPaintedAnew) {
    sample->LabelValue.caption = "12.5";
    sample->LineBar[1].colour = kRed;
    sample->Lamp1.picture = "multyon";
    sample->Shape1.width = 70.f;
    sample->Panel2.visible = false;
    desktop->frameSoon();
    QTest::qWait(100);
    sample->Panel2.visible = true;
    sample->PictureBox1.drawing.foreground = kRed;
    sample->PictureBox1.drawing.box(2, 2, 40, 40);
    desktop->frameSoon();
    QTest::qWait(100);
    const QImage changed = view(*sample).grab().toImage();
    FormView second(*desktop, *sample, nullptr);
    second.resize(view(*sample).size());
    second.sync();
    const QImage anew = second.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QImage shown = changed.convertToFormat(QImage::Format_RGB32);
    if (shown != anew) {
        keep(*sample, "changed");
        anew.save("pictures/anew.png");
    }
    // Paint devices antialias curves differently; anything missing, left over or misplaced differs
    // by far more.
    EXPECT_LE(largestDifference(shown, anew), 4);
}

TEST_F(Painting, AFormThatComesBackShowsWhatChangedMeanwhileAndNothingElse) {
    sample->LabelValue.caption = "1";
    settle();
    const QImage before = view(*sample).grab().toImage();
    sample->hide();
    settle();
    sample->LabelValue.caption = "2";
    sample->show();
    settle();
    EXPECT_NE(view(*sample).grab().toImage(), before);
    sample->LabelValue.caption = "1";
    settle();
    EXPECT_EQ(view(*sample).grab().toImage(), before);
}

TEST_F(Painting, Child_IsCutAtTheEdgeOfItsContainer) {
    sample->Shape1.left = 250.f;
    sample->Shape1.width = 400.f;
    desktop->frameSoon();
    QTest::qWait(100);
    const Scale& scale = view(*sample).scale();
    const QRectF well = scale.snapped(sample->Panel2.boxOnForm());
    const int y = middle(sample->Shape1).y();
    EXPECT_EQ(colourAt(QPoint(static_cast<int>(well.right()) - 3, y)), QColor(Qt::cyan));
    EXPECT_NE(colourAt(QPoint(static_cast<int>(well.right()) + 3, y)), QColor(Qt::cyan));
}

TEST_F(Painting, Drawing_BoxesTakeTheirLastPixelsInAndClearTakesThemAway) {
    sample->PictureBox1.drawing.foreground = kGreen;
    sample->PictureBox1.drawing.box(0, 0, 120, 100);
    desktop->frameSoon();
    QTest::qWait(100);
    const QPoint corner =
        view(*sample).scale().snapped(sample->PictureBox1.boxOnForm()).topLeft().toPoint();
    EXPECT_EQ(colourAt(corner + QPoint(2, 2)), QColor(0, 255, 0));
    sample->PictureBox1.drawing.clear();
    desktop->frameSoon();
    QTest::qWait(100);
    EXPECT_NE(colourAt(corner + QPoint(2, 2)), QColor(0, 255, 0));
}

TEST_F(Painting, Drawing_WhatNoBoxFilledShowsWhatLiesBehind) {
    Drawing& drawing = sample->PictureBox1.drawing;
    // On a small screen the window is smaller, so places are shares of the drawing's size.
    const QRectF box = view(*sample).scale().snapped(sample->PictureBox1.boxOnForm());
    const auto at = [&](qreal x, qreal y) {
        return (box.topLeft() + QPointF(x * box.width() / drawing.outerWidth(),
                                        y * box.height() / drawing.outerHeight()))
            .toPoint();
    };
    drawing.clear();
    settle();
    const QPoint free = at(60, 10), filled = at(60, 50);
    const QColor behindFree = colourAt(free), behindFilled = colourAt(filled);
    drawing.foreground = kRed;
    drawing.box(0, 20, 120, 100);
    settle();
    EXPECT_EQ(colourAt(free), behindFree);
    EXPECT_EQ(colourAt(filled), QColor(Qt::red));
    // Cleared and drawn again with a smaller box, it shows nothing of the larger one.
    drawing.clear();
    drawing.foreground = kGreen;
    drawing.box(0, 80, 120, 100);
    settle();
    EXPECT_EQ(colourAt(filled), behindFilled);
}

TEST_F(Painting, Drawing_ManyRedrawsOverEachOther_EqualOneThatIsDrawnOnce) {
    Drawing& drawing = sample->PictureBox1.drawing;
    auto redraw = [&](int frame) {
        drawing.foreground = kBlack;
        drawing.box(0, 0, drawing.outerWidth(), drawing.outerHeight());
        drawing.foreground = kRed;
        drawing.textX = 5;
        drawing.textY = 5;
        drawing.print("102.5");
        drawing.line(0, 90, 120, 10);
        drawing.line(0, 50, 120, 50);
        drawing.foreground = kGreen;
        for (int i = 0; i < 12; ++i) {
            const auto x = static_cast<float>(10 * i);
            drawing.box(x, static_cast<float>((frame * 13 + i * 29) % 90), x + 4, 98);
        }
    };
    for (int frame = 1; frame <= 5; ++frame) {
        redraw(frame);
        settle();
    }
    const QImage often = view(*sample).grab().toImage();
    drawing.clear();
    redraw(5);
    settle();
    EXPECT_EQ(often, view(*sample).grab().toImage());
}

TEST(ScaleTest, EdgesFallOnDevicePixelsAtEveryRatio) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        const Scale scale(0.0987, ratio);
        for (float left = 0; left < 3000; left += 137) {
            const QRectF box = scale.snapped(Box{left, left / 2, 333, 77});
            for (const double edge : {box.left(), box.top(), box.right(), box.bottom()}) {
                EXPECT_NEAR(edge * ratio, std::round(edge * ratio), 1e-9);
            }
            const QRect whole = scale.whole(Box{left, left / 2, 333, 77});
            EXPECT_NEAR(whole.left() * ratio, std::round(whole.left() * ratio), 1e-9);
            EXPECT_NEAR(whole.bottom() * ratio + ratio, std::round(whole.bottom() * ratio + ratio),
                        1e-9);
        }
    }
}

TEST(ScaleTest, RackStandsWholeOnSmallScreensAndGrowsOnLargeOnes) {
    const QSizeF rack(12000, 7000);
    // Screens with a task bar of 40 pixels each.
    const double small = Scale::fitting(rack, {1366, 728});
    EXPECT_LE(small * 7000, 728);
    EXPECT_LE(small * 12000, 1366);
    EXPECT_GE(small, 0.1);
    const double large = Scale::fitting(rack, {1920, 1040});
    EXPECT_LE(large * 7000, 1040);
    EXPECT_GT(large, 1.4 * 0.1);
    EXPECT_DOUBLE_EQ(Scale::fitting(rack, {5120, 2880}), 0.145);
}

class Accessible : public Painting {
 protected:
    QAccessibleInterface* child(const QString& name) {
        QAccessibleInterface* form = QAccessible::queryAccessibleInterface(&view(*sample));
        for (int i = 0; form && i < form->childCount(); ++i) {
            QAccessibleInterface* found = form->child(i);
            if (!found) continue;
            if (found->text(QAccessible::Name) == name) return found;
            // The name of a figure is followed by its value.
            if (found->text(QAccessible::Name).startsWith(name + ": ")) return found;
            if (found->text(QAccessible::Description) == name) return found;
        }
        return nullptr;
    }
};

TEST_F(Accessible, Readout_HasNameAndValueInTheLanguageOfTheForm) {
    QAccessibleInterface* readout = child("Carrier deviation");
    ASSERT_NE(readout, nullptr);
    sample->Label1.caption = "other words";
    EXPECT_EQ(child("Carrier deviation")->text(QAccessible::Value), "75.0");
    EXPECT_EQ(child("Carrier deviation")->text(QAccessible::Name), "Carrier deviation: 75.0");
    sample->language = Language::Spanish;
    sample->LabelValue.caption = "74.5";
    ASSERT_NE(child("Desviacion de portadora"), nullptr);
    EXPECT_EQ(child("Desviacion de portadora")->text(QAccessible::Value), "74.5");
    EXPECT_NE(child("other words"), nullptr);
}

TEST_F(Accessible, EveryInteractiveControl_IsThereByItsName) {
    for (const char* name : {"Peak", "Scan", "OK", "Exit", "Name", "Stereo", "50 microseconds",
                             "Mode", "Sessions", "Frequency", "One", "Spectrum"}) {
        EXPECT_NE(child(name), nullptr) << name;
    }
}

TEST_F(Accessible, ChangingReadout_IsToldAtMostTwiceASecond) {
    ASSERT_NE(child("Carrier deviation"), nullptr);
    const int before = view(*sample).accessible().announcements();
    QElapsedTimer passed;
    passed.start();
    for (int i = 0; i < 40; ++i) {
        sample->LabelValue.caption = std::to_string(i);
        desktop->frameSoon();
        QTest::qWait(30);
    }
    QTest::qWait(600);
    const int told = view(*sample).accessible().announcements() - before;
    EXPECT_GE(told, 1);
    EXPECT_LE(told, passed.elapsed() / 500 + 1);
}

}  // namespace display::qt
