// SPDX-License-Identifier: GPL-3.0-or-later
// How often a channel spectrum is painted while it grows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <QThread>
#include <QTimer>

#include "display/qt/windows/form_view.h"
#include "tests/display/qt/program_screen.h"

namespace hmonitor::test {
namespace {

/// The program on the real desktop with a scripted unit of points on 97.9 MHz.
class ScreenBench : public ProgramScreen {
 public:
    ScreenBench() {
        driver.hardwareVersion = 1.5f;
        driver.readings.field = 70;
    }

    /// Runs from the splash to the measuring rack.
    bool start() {
        constexpr int kPatience = 20000;
        QTimer ready;
        QObject::connect(&ready, &QTimer::timeout, [this] {
            // Not quit(), which would close the windows.
            if (desktop.queue().gateOpen()) QCoreApplication::exit();
        });
        ready.start(20);
        QTimer::singleShot(kPatience, &ready, [] { QCoreApplication::exit(); });
        desktop.run([this] { forms.formWaitLoad.show(); });
        return desktop.queue().gateOpen();
    }
};

TEST(QtFrames, AChannelSpectrumOf33PointsIsPaintedAtMostOnceAPoint) {
    ScreenBench bench;
    ASSERT_TRUE(bench.start());
    Form_D1& shows = bench.forms.formD1;
    bench.desktop.hand().doubleClick(bench.forms.formD.PictureGraph1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shows.visible.get(); }));
    bench.desktop.hand().click(shows.Command3D1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return bench.forms.formNewSpectro.visible.get(); }));

    constexpr int kSpanOf33 = 5;
    bench.driver.superLevel = 40;
    std::vector<int> paints;
    bench.driver.duringSuper = [&](float) {
        // As slow as a unit; a display that paints by a timer of its own would paint twice
        // meanwhile.
        QThread::msleep(60);
        paints.push_back(bench.desktop.viewOf(shows)->paints());
    };
    bench.desktop.hand().select(bench.forms.formNewSpectro.Combo1, kSpanOf33);
    bench.desktop.hand().click(bench.forms.formNewSpectro.Command3D1);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return paints.size() == 33 && shows.Command3D2.caption == "Ok"; }, 20000));

    ASSERT_EQ(paints.size(), 33u);
    for (std::size_t i = 1; i < paints.size(); ++i) {
        EXPECT_LE(paints[i] - paints[i - 1], 1) << "point " << i;
    }
    // And the bars grow visibly.
    EXPECT_GE(paints.back() - paints.front(), 30);
}

TEST(QtFrames, AWindowThatIsHigherThanTheScreenStandsThereWholeASizeSmaller) {
    ScreenBench bench;
    Form_D1& shows = bench.forms.formD1;
    shows.load();
    shows.height = 20000.f;
    shows.Command3D2.top = 19500.f;
    shows.show();
    const display::qt::FormView& view = *bench.desktop.viewOf(shows);
    const QRect room = bench.desktop.availableRoom();
    EXPECT_LE(view.window()->geometry().bottom(), room.bottom());
    EXPECT_GE(view.window()->geometry().top(), room.top());
    EXPECT_GT(view.height(), room.height() / 2);
    const QWidget* close = view.widgetOf(shows.Command3D2);
    ASSERT_NE(close, nullptr);
    EXPECT_LE(close->geometry().bottom(), view.height());
    // The other windows keep the scale of the rack.
    bench.forms.formNewSpectro.show();
    EXPECT_EQ(bench.desktop.viewOf(bench.forms.formNewSpectro)->scale(), bench.desktop.scale());
}

}  // namespace
}  // namespace hmonitor::test
