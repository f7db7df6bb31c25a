// SPDX-License-Identifier: GPL-3.0-or-later
// A reader's marks over a chart and over a drawing, by real mouse and keyboard.
#include "display/qt/widgets/reading_layer.h"

#include <QAccessible>
#include <QImage>
#include <algorithm>
#include <string>
#include <vector>

#include "display/qt/painting/palette.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

/// A chart of four bars and a drawing of three numbers, with a key to leave them.
class ReadForm final : public Form {
 public:
    explicit ReadForm(Desktop& desktop) : Form(desktop, "ReadForm") {
        Graph1.numbers = [this] {
            NumberTable table{"Levels", "", {{"Frequency", "MHz"}, {"Level", "dBuV"}}, {}};
            for (int row = 1; row <= Graph1.rowCount(); ++row) {
                const auto value = Graph1.valueAt(row, 1);
                table.spots.push_back({table.rows.size(), 1, static_cast<double>(row), *value});
                table.rows.push_back({"88." + std::string(1, static_cast<char>('0' + row)),
                                      std::string(Graph1.dataAt(row, 1))});
            }
            return table;
        };
        Graph1.onPick = [this](std::size_t row) { picked.push_back(row); };
        Graph1.picks = {"Clic: sintonizar", "Click: tune"};
        Picture1.numbers = [] {
            NumberTable table{"Curve", "", {{"Offset", "kHz"}, {"Level", "dB"}}, {}};
            table.rows = {{"-25", "-3"}, {"0", "0"}, {"25", "-6.5"}};
            table.spots = {{0, 1, 20, 30}, {1, 1, 60, 10}, {2, 1, 100, 50}};
            return table;
        };
    }
    Panel View{*this, "View"};
    Chart Graph1{*this, "Graph1"};
    PictureBox Picture1{*this, "Picture1"};
    Key Key1{*this, "Key1"};
    std::vector<std::size_t> picked;

 protected:
    void layOut() override {
        width = 9000.f;
        height = 4000.f;
        caption = "Read";
        place(View, {100, 100, 4000, 3000});
        place(Graph1, {0, 0, 4000, 3000}, &View, Says{"Niveles", "Levels"});
        Graph1.insets = Chart::Insets{0, 0, 0, 0};
        Graph1.rowCount(4);
        Graph1.columnCount(1);
        for (int row = 1; row <= 4; ++row) {
            Graph1.row = row;
            Graph1.data(std::string(1, static_cast<char>('0' + 2 * row)) + "0");
        }
        place(Picture1, {4500, 100, 4200, 3000}, Says{"Curva", "Curve"}).drawing.scale(30, 0);
        Picture1.drawing.foreground = kBlack;
        Picture1.drawing.box(0, 0, 140, 100);
        place(Key1, {100, 3300, 1000, 400}, "Ok");
        tabOrder(Key1, Graph1, Picture1);
    }
};

class ReadingLayers : public QtBench {
 protected:
    ReadingLayers() : form(*desktop) {
        form.show();
        desktop->queue().openGate();
        settle();
        EXPECT_TRUE(until([&] { return view(form).isVisible() && !picture().isNull(); }));
    }
    QImage picture() { return view(form).grab().toImage().convertToFormat(QImage::Format_RGB32); }
    /// The pixel on the form's view of a place in a drawing's own coordinates.
    QPoint pixel(const Control& drawing, double x, double y) {
        const Place place = drawing.placeOf(x, y);
        const Box box = drawing.boxOnForm();
        const qreal scale = view(form).scale().px(1);
        return {static_cast<int>((box.left + place.x) * scale),
                static_cast<int>((box.top + place.y) * scale)};
    }
    void hover(const Control& drawing, QPoint onView) {
        QWidget* below = widget(drawing).childAt(widget(drawing).mapFrom(&view(form), onView));
        if (!below) below = &widget(drawing);
        QTest::mouseMove(below, below->mapFrom(&view(form), onView));
        settle();
    }
    void click(const Control& drawing, QPoint onView, Qt::MouseButton button) {
        QWidget* below = widget(drawing).childAt(widget(drawing).mapFrom(&view(form), onView));
        if (!below) below = &widget(drawing);
        QTest::mouseClick(below, button, {}, below->mapFrom(&view(form), onView));
        settle();
    }
    void key(const Control& drawing, Qt::Key pressed) {
        QTest::keyClick(&widget(drawing), pressed);
        settle();
    }
    std::string told(const Control& drawing) {
        return widget(drawing).accessibleDescription().toStdString();
    }
    /// Pixels of the marks' colour in a column of the picture.
    int markedIn(const QImage& image, int x) {
        int found = 0;
        for (int y = 0; y < image.height(); ++y)
            found += (image.pixel(x, y) & 0xffffff) == (kFocus & 0xffffff);
        return found;
    }
    /// The most of any column near x, because places are rounded to pixels.
    int markedNear(const QImage& image, int x) {
        int most = 0;
        for (int near = x - 2; near <= x + 2; ++near) most = std::max(most, markedIn(image, near));
        return most;
    }
    int marked(const QImage& image) {
        int found = 0;
        for (int x = 0; x < image.width(); ++x) found += markedIn(image, x);
        return found;
    }

    ReadForm form;
};

TEST_F(ReadingLayers, StandAtTheNumberUnderThePointer) {
    EXPECT_EQ(marked(picture()), 0);
    const QPoint bar = pixel(form.Graph1, 3, 60);
    hover(form.Graph1, bar + QPoint(12, 40));
    EXPECT_EQ(told(form.Graph1), "88.3 MHz: 60 dBµV");
    const QImage shown = picture();
    keep(form, "reading_hover");
    // A line over the whole height at the bar, and none beside it.
    const int height = widget(form.Graph1).height();
    EXPECT_GE(markedNear(shown, bar.x()), height - 4);
    EXPECT_EQ(markedNear(shown, bar.x() + 25), 0);
    EXPECT_EQ(markedNear(shown, pixel(form.Graph1, 2, 0).x()), 0);
}

TEST_F(ReadingLayers, GoWithThePointerAndLeaveTheDrawingAsItWas) {
    const QImage before = picture();
    const std::uint64_t clock = form.clock();
    hover(form.Graph1, pixel(form.Graph1, 2, 40));
    EXPECT_NE(picture(), before);
    EXPECT_EQ(form.clock(), clock) << "the drawing itself has not changed";
    const std::string svg = desktop->pictureOf(form.Graph1, PictureFormat::Svg);
    EXPECT_EQ(svg.find("88.2 MHz"), std::string::npos) << "nor its picture";
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&widget(form.Graph1), &leave);
    settle();
    EXPECT_EQ(picture(), before);
    EXPECT_EQ(told(form.Graph1), "Levels");
}

TEST_F(ReadingLayers, EachStepByKeysIsAnotherItemWithTheFocusOfAScreenReader) {
    QAccessibleInterface* drawing = QAccessible::queryAccessibleInterface(&widget(form.Graph1));
    ASSERT_EQ(drawing->childCount(), 2);
    EXPECT_TRUE(drawing->child(0)->state().invisible) << "no mark yet";
    EXPECT_TRUE(drawing->child(1)->state().invisible);
    widget(form.Graph1).setFocus();
    ASSERT_TRUE(until([&] { return widget(form.Graph1).hasFocus(); }));
    key(form.Graph1, Qt::Key_Right);
    const QAccessibleInterface* last = nullptr;
    for (const char* told : {"88.2 MHz: 40 dBµV", "88.3 MHz: 60 dBµV", "88.4 MHz: 80 dBµV"}) {
        key(form.Graph1, Qt::Key_Right);
        QAccessibleInterface* now = drawing->child(0);
        EXPECT_NE(now, last) << "one that has the focus already is not told again";
        EXPECT_EQ(now->text(QAccessible::Name).toStdString(), told);
        EXPECT_TRUE(now->state().focused);
        EXPECT_FALSE(now->state().invisible);
        EXPECT_EQ(now->parent(), drawing);
        EXPECT_TRUE(drawing->child(1)->state().invisible) << "only the last one stands";
        EXPECT_EQ(drawing->indexOfChild(drawing->child(1)), 1);
        last = now;
    }
}

TEST_F(ReadingLayers, AreMovedByTheArrowKeysAndSpaceFixesOne) {
    widget(form.Graph1).setFocus();
    key(form.Graph1, Qt::Key_Right);
    EXPECT_EQ(told(form.Graph1), "88.1 MHz: 20 dBµV");
    key(form.Graph1, Qt::Key_Space);
    key(form.Graph1, Qt::Key_End);
    EXPECT_EQ(told(form.Graph1),
              "88.4 MHz: 80 dBµV. Mark: 88.1 MHz: 20 dBµV. Difference: +0.3 MHz: +60 dB");
    const QImage shown = picture();
    keep(form, "reading_difference");
    const int height = widget(form.Graph1).height();
    EXPECT_GE(markedNear(shown, pixel(form.Graph1, 4, 0).x()), height - 4);
    const int dashed = markedNear(shown, pixel(form.Graph1, 1, 0).x());
    EXPECT_GT(dashed, height / 4);
    EXPECT_LT(dashed, height * 9 / 10) << "the fixed one is dashed";
    key(form.Graph1, Qt::Key_Left);
    EXPECT_NE(told(form.Graph1).find("+0.2 MHz: +40 dB"), std::string::npos);
}

TEST_F(ReadingLayers, EnterAndAClickPickTheNumber) {
    widget(form.Graph1).setFocus();
    key(form.Graph1, Qt::Key_Return);
    EXPECT_TRUE(form.picked.empty()) << "no mark yet";
    key(form.Graph1, Qt::Key_Right);
    key(form.Graph1, Qt::Key_Return);
    click(form.Graph1, pixel(form.Graph1, 3, 10), Qt::LeftButton);
    EXPECT_EQ(form.picked, (std::vector<std::size_t>{0, 2}));
}

TEST_F(ReadingLayers, BeginWithTheKeyboardAtTheChosenBarAndGoWithIt) {
    form.Graph1.chosen = {3, 1};
    settle();
    widget(form.Graph1).setFocus(Qt::TabFocusReason);
    settle();
    EXPECT_EQ(told(form.Graph1), "88.3 MHz: 60 dBµV");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&widget(form.Graph1), &leave);
    EXPECT_EQ(told(form.Graph1), "88.3 MHz: 60 dBµV") << "the pointer has nothing to do with it";
    widget(form.Picture1).setFocus(Qt::TabFocusReason);
    settle();
    EXPECT_EQ(told(form.Graph1), "Levels");
    EXPECT_EQ(told(form.Picture1), "-25 kHz: -3 dB") << "the first number";
}

TEST_F(ReadingLayers, TheRightButtonFixesOneAndPicksNothing) {
    click(form.Graph1, pixel(form.Graph1, 1, 10), Qt::RightButton);
    hover(form.Graph1, pixel(form.Graph1, 2, 10));
    EXPECT_EQ(told(form.Graph1),
              "88.2 MHz: 40 dBµV. Mark: 88.1 MHz: 20 dBµV. Difference: +0.1 MHz: +20 dB");
    EXPECT_TRUE(form.picked.empty());
}

TEST_F(ReadingLayers, StandOverADrawingToo) {
    const QPoint point = pixel(form.Picture1, 100, 50);
    hover(form.Picture1, point + QPoint(-5, 60));
    EXPECT_EQ(told(form.Picture1), "25 kHz: -6.5 dB");
    const QImage shown = picture();
    keep(form, "reading_drawing");
    EXPECT_GE(markedNear(shown, point.x()), widget(form.Picture1).height() - 4);
    click(form.Picture1, point, Qt::LeftButton);
    EXPECT_TRUE(widget(form.Picture1).hasFocus()) << "what is clicked is what is copied";
    key(form.Picture1, Qt::Key_Left);
    EXPECT_EQ(told(form.Picture1), "0 kHz: 0 dB");
}

TEST_F(ReadingLayers, LetUpAndDownLeadOutOfTheDrawing) {
    widget(form.Graph1).setFocus();
    key(form.Graph1, Qt::Key_Right);
    key(form.Graph1, Qt::Key_Down);
    EXPECT_TRUE(widget(form.Key1).hasFocus());
}

TEST_F(ReadingLayers, ComeBackWithTheNumbersOfADrawingThatWasCleared) {
    widget(form.Graph1).setFocus();
    key(form.Graph1, Qt::Key_Right);
    key(form.Graph1, Qt::Key_Space);
    key(form.Graph1, Qt::Key_Right);
    const std::string before = told(form.Graph1);
    form.Graph1.rowCount(0);
    settle();
    const QWidget& layer = *widget(form.Graph1).findChild<QWidget*>("ReadingLayer");
    EXPECT_FALSE(layer.isVisible());
    EXPECT_EQ(told(form.Graph1), "Levels");
    form.Graph1.rowCount(4);
    settle();
    EXPECT_EQ(told(form.Graph1), before);
    EXPECT_TRUE(layer.isVisible());
}

TEST_F(ReadingLayers, GoWithTheirWindow) {
    click(form.Picture1, pixel(form.Picture1, 60, 10), Qt::RightButton);
    hover(form.Graph1, pixel(form.Graph1, 2, 10));
    form.hide();
    settle();
    form.show();
    ASSERT_TRUE(until([&] { return view(form).isVisible(); }));
    settle();
    EXPECT_EQ(told(form.Graph1), "Levels");
    EXPECT_EQ(told(form.Picture1), "Curve");
    EXPECT_FALSE(widget(form.Picture1).findChild<QWidget*>("ReadingLayer")->isVisible());
    EXPECT_FALSE(widget(form.Graph1).findChild<QWidget*>("ReadingLayer")->isVisible());
}

TEST_F(ReadingLayers, ThePlateLeavesTheMarkInSightWhereNeitherSideHasRoomForIt) {
    form.Graph1.picks = {"", "Click: tune the station of this channel at once"};
    for (const double level : {20., 70.}) {
        form.Graph1.row = 2;
        form.Graph1.data(std::to_string(static_cast<int>(level)));
        settle();
        const QPoint mark = pixel(form.Graph1, 2, level);
        hover(form.Graph1, mark);
        const QImage shown = picture();
        keep(form, "reading_narrow_" + QString::number(level));
        int ring = 0;
        for (int x = mark.x() - 8; x <= mark.x() + 8; ++x) {
            for (int y = mark.y() - 8; y <= mark.y() + 8; ++y)
                ring += shown.valid(x, y) && (shown.pixel(x, y) & 0xffffff) == (kFocus & 0xffffff);
        }
        EXPECT_GT(ring, 12) << level;
    }
}

TEST_F(ReadingLayers, ThePlateIsReadWhereTheKeyboardGoesBeyondWhatIsSeen) {
    form.Graph1.width = 9000.f;
    settle();
    widget(form.Graph1).setFocus();
    for (const auto& [key, left] :
         {std::pair(Qt::Key_End, 0.f), std::pair(Qt::Key_Home, -5000.f)}) {
        form.Graph1.left = left;
        settle();
        QTest::keyClick(&widget(form.Graph1), key);
        settle();
        const QImage shown = picture();
        const QRect seen = view(form).scale().whole(form.View.boxOnForm());
        int plate = 0;
        for (int y = seen.top(); y <= seen.bottom(); ++y) {
            for (int x = seen.left(); x <= seen.right(); ++x)
                plate += (shown.pixel(x, y) & 0xffffff) == (kFaceplateTop & 0xffffff);
        }
        EXPECT_GT(plate, 1500) << told(form.Graph1);
    }
}

TEST_F(ReadingLayers, ThePlateStaysInsideTheDrawing) {
    for (const double row : {1., 4.}) {
        hover(form.Graph1, pixel(form.Graph1, row, 80));
        const QImage shown = picture();
        const QRect chart = widget(form.Graph1).geometry();
        int plate = 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                if ((shown.pixel(x, y) & 0xffffff) != (kFaceplateTop & 0xffffff)) continue;
                if (chart.contains(x, y)) ++plate;
            }
        }
        EXPECT_GT(plate, 1500) << row;
    }
}

}  // namespace display::qt
