// SPDX-License-Identifier: GPL-3.0-or-later
// Work beside the program, on real threads.
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>

#include "display/open_question.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class WorkingDesktop : public QtBench {
 protected:
    WorkingDesktop() {
        // A loop that ended before in this process would end each later one at once.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
    }
    void askForSlowWork() {
        desktop->work(
            [this] {
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
                worked_ = true;
                return 0;
            },
            [this](int) { taken_ = true; });
    }
    void expectDoneAndNotTaken() {
        EXPECT_TRUE(worked_);
        QTest::qWait(20);
        EXPECT_FALSE(taken_);
    }

 private:
    std::atomic<bool> worked_ = false;
    bool taken_ = false;
};

TEST_F(WorkingDesktop, WorksOnAThreadOfItsOwnAndIsTakenOnTheProgramsOne) {
    const auto program = std::this_thread::get_id();
    std::thread::id worker, taker;
    desktop->work([] { return std::this_thread::get_id(); },
                  [&](std::thread::id id) {
                      worker = id;
                      taker = std::this_thread::get_id();
                  });
    EXPECT_EQ(worker, std::thread::id()) << "not inside the call";
    ASSERT_TRUE(until([&] { return worker != std::thread::id(); }));
    EXPECT_NE(worker, program);
    EXPECT_EQ(taker, program);
}

TEST_F(WorkingDesktop, LetsTheRackGoOnWhileItWorks) {
    showSample();
    desktop->queue().openGate();
    sample->Timer1.interval = std::chrono::milliseconds(10);
    sample->Timer1.enabled = true;
    settle();
    sample->heard.clear();
    std::promise<void> enough;
    bool taken = false;
    desktop->work(
        [&enough] {
            enough.get_future().wait();
            return 0;
        },
        [&taken](int) { taken = true; });
    EXPECT_TRUE(until([this] { return times("Timer1 tick") >= 3; }));
    EXPECT_FALSE(taken);
    enough.set_value();
    EXPECT_TRUE(until([&taken] { return taken; }));
    sample->Timer1.enabled = false;
}

TEST_F(WorkingDesktop, IsTakenInsideALongRun) {
    desktop->queue().openGate();
    desktop->queue().pushFilter({});
    bool taken = false;
    desktop->work([] { return 0; }, [&taken](int) { taken = true; });
    for (int i = 0; i < 5000 && !taken; ++i) {
        desktop->letEventsThrough();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(taken);
    desktop->queue().popFilter();
}

TEST_F(WorkingDesktop, TakesEachOfManyOnce) {
    constexpr int kMany = 20;
    int sum = 0;
    int taken = 0;
    for (int i = 1; i <= kMany; ++i) {
        desktop->work([i] { return i; },
                      [&](int result) {
                          sum += result;
                          ++taken;
                      });
    }
    EXPECT_TRUE(until([&] { return taken == kMany; }));
    settle();
    EXPECT_EQ(taken, kMany);
    EXPECT_EQ(sum, kMany * (kMany + 1) / 2);
}

TEST_F(WorkingDesktop, WaitsForItsWorkAtTheEndAndTakesNothing) {
    askForSlowWork();
    EXPECT_THROW(desktop->end(), ProgramEnded);
    expectDoneAndNotTaken();
}

TEST_F(WorkingDesktop, ThatGoesAwayWaitsForItsWork) {
    askForSlowWork();
    sample.reset();
    desktop.reset();
    expectDoneAndNotTaken();
}

TEST_F(WorkingDesktop, TellsTheWallClockInUtcAndItsZone) {
    const auto before = QDateTime::currentMSecsSinceEpoch();
    const WallTime wall = desktop->wallTime();
    const auto after = QDateTime::currentMSecsSinceEpoch();
    EXPECT_GE(wall.utc.time_since_epoch().count(), before);
    EXPECT_LE(wall.utc.time_since_epoch().count(), after);
    EXPECT_FALSE(wall.zone.empty());
    // Both clocks agree: the local date is that of UTC plus the zone's offset.
    const auto local =
        std::chrono::floor<std::chrono::days>(desktop->wallTime().utc + wall.fromUtc);
    const std::chrono::year_month_day day(local);
    const Date today = desktop->today();
    EXPECT_EQ(static_cast<unsigned>(day.day()), static_cast<unsigned>(today.day));
    EXPECT_EQ(static_cast<int>(day.year()), today.year);
}

TEST_F(WorkingDesktop, WorksInTheFolderOfTheProgramWhereverItWasStarted) {
    const QString before = QDir::currentPath();
    const auto folder = desktop->folder();
    EXPECT_EQ(folder, QDir(QCoreApplication::applicationDirPath()).filesystemPath());
    QDir::setCurrent(QDir::tempPath());
    EXPECT_EQ(desktop->folder(), folder);
    QDir::setCurrent(before);
}

TEST_F(WorkingDesktop, AsksWhichFileIsToBeRead) {
    QTemporaryDir folder;
    QFile file(folder.filePath("2026-11-21.hm16day"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QTimer hands;
    QString title;
    QStringList filters;
    QObject::connect(&hands, &QTimer::timeout, &hands, [&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QFileDialog*>(window);
            if (!dialog || !dialog->isVisible()) continue;
            hands.stop();
            title = dialog->windowTitle();
            filters = dialog->nameFilters();
            auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(file.fileName());
            QTest::keyClick(name, Qt::Key_Return);
        }
    });
    hands.start(20);
    const auto path = desktop->askWhatToOpen({"Open a day", {{"Day", "hm16day"}}});
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
    EXPECT_EQ(path, file.fileName().toStdString());
    EXPECT_EQ(title, "Open a day");
    EXPECT_EQ(filters, QStringList{"Day (*.hm16day)"});
}

}  // namespace display::qt
