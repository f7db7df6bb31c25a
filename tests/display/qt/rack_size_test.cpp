// SPDX-License-Identifier: GPL-3.0-or-later
// The rack made larger and smaller, over the whole screen, and put back where it stood.
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "display/controls/buttons.h"
#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/text_field.h"
#include "display/number_table.h"
#include "tests/display/qt/rack_of_two.h"

namespace display::qt {

class RackSize : public RackOfTwo {
 protected:
    RackWindow& rack() { return *desktop->rackWindow(); }
    static QRect screen() { return QGuiApplication::primaryScreen()->geometry(); }
    qreal pixelsPerTwip() { return desktop->scale().px(1); }
    /// The width of the real rack, which is twice as wide as these panels.
    int wide() { return desktop->rackSize().width(); }
    void expectScaled() {
        const QRect box = desktop->scale().whole(Box{0, 0, upper.width, upper.height});
        EXPECT_EQ(view(upper).size(), box.size());
        const QRect key = desktop->scale().whole(upper.Key1.boxOnForm());
        EXPECT_EQ(widget(upper.Key1).geometry().size(), key.size());
        EXPECT_EQ(view(lower).y(), view(upper).geometry().bottom() + 1);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        widget(upper.Key1).setFocus();
        QTest::keyClick(QApplication::focusWidget(), key, held);
        settle();
    }
};

TEST_F(RackSize, IsWhatWasAskedForWithinWhatFits) {
    const QPoint corner = rack().pos();
    desktop->resizeRack(wide() * 0.95);
    settle();
    expectScaled();
    EXPECT_EQ(rack().pos(), corner);
    EXPECT_EQ(desktop->screenPoint(upper.left, upper.top), corner);
    desktop->resizeRack(1);
    settle();
    const int smallest = wide();
    // 960 pixels, if the screen has more.
    const qreal whole = Scale::filling(QtDesktop::kRack, screen().size()) * 12000;
    EXPECT_NEAR(smallest, whole > 960 ? 960 : 0.6 * whole, 4);
    expectScaled();
    desktop->resizeRack(100000);
    settle();
    EXPECT_LE(wide(), screen().width() + 1);
    EXPECT_LE(desktop->rackSize().height(), screen().height() + 1);
    EXPECT_GT(wide(), smallest);
    expectScaled();
}

TEST_F(RackSize, F11TakesTheWholeScreenAndGivesItBack) {
    desktop->resizeRack(screen().width() * 0.7);
    settle();
    const QPoint corner = rack().pos();
    const int before = wide();
    press(Qt::Key_F11);
    EXPECT_TRUE(rack().isWhole());
    EXPECT_EQ(rack().geometry(), screen());
    EXPECT_GT(wide(), before);
    EXPECT_TRUE(std::abs(wide() - screen().width()) < 3 ||
                std::abs(desktop->rackSize().height() - screen().height()) < 3);
    // The model's places stay true, since dialogs are placed by them.
    EXPECT_EQ(desktop->screenPoint(upper.left, upper.top), rack().pos() + view(upper).pos());
    expectScaled();
    press(Qt::Key_F11);
    EXPECT_FALSE(rack().isWhole());
    EXPECT_EQ(wide(), before);
    EXPECT_EQ(rack().pos(), corner);
    expectScaled();
}

TEST_F(RackSize, IsDraggedByItsCorner) {
    // Wide enough to become 80 pixels narrower.
    desktop->resizeRack(std::max(screen().width() * 0.7, 1080.0));
    settle();
    auto* grip = rack().findChild<QWidget*>("CornerGrip");
    ASSERT_TRUE(grip && grip->isVisible());
    EXPECT_EQ(grip->geometry().bottomRight(), rack().rect().bottomRight());
    const int before = wide();
    const QPoint from = grip->rect().center();
    QTest::mousePress(grip, Qt::LeftButton, Qt::NoModifier, from);
    const QPoint global = grip->mapToGlobal(from);
    for (int step = 1; step <= 4; ++step) {
        const QPoint at = global - QPoint(20 * step, 20 * step * 7 / 12);
        QTest::mouseMove(grip, grip->mapFromGlobal(at));
        settle();
    }
    EXPECT_NEAR(wide(), before - 80, 3);
    QTest::mouseRelease(grip, Qt::LeftButton, Qt::NoModifier, grip->rect().center());
    settle();
    expectScaled();
    EXPECT_EQ(grip->geometry().bottomRight(), rack().rect().bottomRight());
}

TEST_F(RackSize, PlusAndMinusWithCtrlDoItByKeyboard) {
    desktop->resizeRack(screen().width() * 0.8);
    settle();
    const int before = wide();
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(wide(), before / 1.1, 4);
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(wide(), before, 6);
}

TEST_F(RackSize, TellsWhereItStandsAMomentLater) {
    std::optional<RackPlace> told;
    desktop->onRackPlaced = [&] { told = desktop->rackPlace(); };
    desktop->resizeRack(screen().width() * 0.75);
    settle();
    rack().move(rack().pos() + QPoint(12, 9));
    ASSERT_TRUE(until([&] { return told.has_value(); }));
    EXPECT_EQ(told->left, rack().x());
    EXPECT_EQ(told->top, rack().y());
    EXPECT_EQ(told->width, wide());
    EXPECT_FALSE(told->whole);
    const RackPlace before = *told;
    told.reset();
    press(Qt::Key_F11);
    ASSERT_TRUE(until([&] { return told.has_value(); }));
    // The place that is remembered for when the rack leaves the full screen.
    EXPECT_EQ(*told, (RackPlace{before.left, before.top, before.width, true}));
    desktop->onRackPlaced = {};
}

TEST_F(RackSize, TellsWhereItStandsBeforeTheProgramEnds) {
    std::vector<RackPlace> told;
    desktop->onRackPlaced = [&] { told.push_back(desktop->rackPlace()); };
    rack().move(rack().pos() + QPoint(12, 9));
    settle();
    const QPoint corner = rack().pos();
    EXPECT_TRUE(told.empty());
    EXPECT_THROW(desktop->end(), ProgramEnded);
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(QPoint(told[0].left, told[0].top), corner);
    desktop->onRackPlaced = {};
    // The order to leave the application's loop is for a loop: else the next test's boxes obey it.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QApplication::exec();
}

/// A rack that is shown at the place that was remembered.
class RememberedRack : public QtBench {
 protected:
    void show(const RackPlace& place) {
        desktop->rack({&upper});
        desktop->placeRack(place);
        upper.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(desktop->rackWindow()));
        settle();
    }
    void TearDown() override { desktop->rack({}); }
    Unit upper{*desktop, "upper", 400};
};

TEST_F(RememberedRack, StandsWhereItStoodAndAsLarge) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int width = screen.width() * 3 / 4;
    show({screen.left() + 21, screen.top() + 17, width, false});
    EXPECT_EQ(desktop->rackWindow()->pos(), screen.topLeft() + QPoint(21, 17));
    EXPECT_NEAR(desktop->rackSize().width(), width, 4);
}

TEST_F(RememberedRack, ComesBackToAScreenThatHasShrunk) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    show({90000, -4000, screen.width() / 2 + 400, false});
    EXPECT_TRUE(screen.contains(desktop->rackWindow()->geometry()));
}

TEST_F(RememberedRack, TakesTheWholeScreenAgain) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    show({screen.left() + 5, screen.top() + 6, screen.width() * 3 / 4, true});
    ASSERT_TRUE(until([&] { return desktop->rackWindow()->isWhole(); }));
    settle();
    EXPECT_EQ(desktop->rackWindow()->geometry(), screen);
    EXPECT_EQ(desktop->rackPlace().left, screen.left() + 5);
}

/// A window that shows a graph.
class Graphed final : public Form {
 public:
    explicit Graphed(Desktop& desktop, bool withNumbers) : Form(desktop, "Graphed") {
        if (withNumbers) graph.numbers = [] { return NumberTable{}; };
    }
    PictureBox graph{*this, "graph"};
    Key key{*this, "key"};
    CheckBox check{*this, "check"};
    Option option{*this, "option"};
    ComboBox combo{*this, "combo"};
    TextField field{*this, "field"};

 protected:
    void layOut() override {
        caption = "Graphed";
        width = 4000.f;
        height = 3000.f;
        place(graph, {100, 100, 3800, 2200});
        place(key, {100, 2400, 1000, 400});
        place(check, {1200, 2350, 600, 250}, "Check");
        place(option, {1200, 2650, 600, 250}, "Option");
        place(combo, {1900, 2400, 900, 300});
        place(field, {2900, 2400, 900, 300});
    }
};

class ResizedWindow : public QtBench {
 protected:
    void show(Form& form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view(form).window()));
        settle();
    }
};

TEST_F(ResizedWindow, FollowsItsEdgesAndTakesTheShapeOfItsForm) {
    Graphed form(*desktop, true);
    show(form);
    QWidget& window = *view(form).window();
    const QSize first = window.size();
    EXPECT_GT(window.maximumWidth(), first.width());
    // Wider than the graph's shape, so the height decides.
    window.resize(first.width() * 2, first.height() * 3 / 2);
    ASSERT_TRUE(until([&] { return std::abs(view(form).zoom() - 1.5) < 0.02; }));
    settle();
    EXPECT_NEAR(view(form).width(), first.width() * 3 / 2, 4);
    ASSERT_TRUE(until([&] { return std::abs(window.width() - first.width() * 3 / 2) < 5; }));
    EXPECT_EQ(window.size(), view(form).size());
    const QRect key = view(form).scale().whole(form.key.boxOnForm());
    EXPECT_EQ(widget(form.key).size(), key.size());
    EXPECT_NEAR(key.width(), desktop->scale().px(1500), 3);
    // The rack, and windows opened afterwards, keep their size.
    EXPECT_NEAR(desktop->scale().px(4000), first.width(), 2);
}

TEST_F(ResizedWindow, WordsGrowWithTheirWindow) {
    Graphed form(*desktop, true);
    show(form);
    const std::array<QWidget*, 4> widgets{&widget(form.check), &widget(form.option),
                                          &widget(form.combo), &widget(form.field)};
    std::array<int, 4> sizes{};
    for (std::size_t i = 0; i < widgets.size(); ++i) sizes[i] = widgets[i]->font().pixelSize();
    for (const double zoom : {1.5, 0.7}) {
        QWidget& window = *view(form).window();
        const QSizeF natural = QSizeF(view(form).size()) / view(form).zoom();
        window.resize((natural * zoom).toSize());
        ASSERT_TRUE(until([&] { return std::abs(view(form).zoom() - zoom) < 0.02; }));
        settle();
        for (std::size_t i = 0; i < widgets.size(); ++i) {
            EXPECT_NEAR(widgets[i]->font().pixelSize(), sizes[i] * zoom, 1) << i << " at " << zoom;
        }
    }
}

TEST_F(ResizedWindow, IsNotMadeSmallerThanItCanBeRead) {
    Graphed form(*desktop, true);
    show(form);
    QWidget& window = *view(form).window();
    const QSize first = window.size();
    window.resize(1, 1);
    settle();
    EXPECT_NEAR(window.width(), first.width() * 0.6, 3);
}

TEST_F(ResizedWindow, DoesNotQuarrelWithAWindowManagerThatKeepsItsSize) {
    Graphed form(*desktop, true);
    show(form);
    QWidget& window = *view(form).window();
    const QSize kept(window.width() * 2, window.height() * 3 / 2);
    window.resize(kept);
    ASSERT_TRUE(until([&] { return window.size() != kept; })) << "it took its form's shape";
    window.resize(kept);
    QTest::qWait(700);
    EXPECT_EQ(window.size(), kept);
    EXPECT_NEAR(view(form).zoom(), 1.5, 0.02);
}

TEST_F(ResizedWindow, WithoutAGraphHasItsOwnSize) {
    Graphed form(*desktop, false);
    show(form);
    EXPECT_EQ(view(form).window()->minimumSize(), view(form).window()->maximumSize());
}

}  // namespace display::qt
