// SPDX-License-Identifier: GPL-3.0-or-later
// The on-air log on the real desktop: how often it is painted, and its report on paper.
#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QTest>

#include "all_forms.h"
#include "app/forms.h"
#include "display/qt/painting/page_painter.h"
#include "display/qt/windows/form_view.h"
#include "display/qt/windows/qt_desktop.h"
#include "performance/day_report.h"
#include "performance/report_page.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

std::string dayLog(int tens) {
    std::string bytes;
    for (int hour = 0; hour < 24; ++hour) {
        const std::string figure = std::to_string(tens + hour);
        bytes += std::to_string(hour) + " " + figure + " -5.5 -6 " + figure + " 2 60 " + figure +
                 " 1 2 \r\n";
    }
    return bytes;
}

/// Counts the paint events of a widget.
class Paints final : public QObject {
 public:
    explicit Paints(QWidget* watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return QObject::eventFilter(watched, event);
    }
    int count = 0;
};

class LogScreen : public testing::Test {
 protected:
    LogScreen() {
        scratch.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
        scratch.write("normal.hm", lines({"100", "0", "0", "0", "1.000", "0", "0", "2", "90"}));
        scratch.write("Hm-res.dat", lines({"0", "0", "0"}));
        scratch.write("scan.dat", "");
        scratch.write("halden.dat", memoryBlock({{1, "RADIO UNO", "979"}}));
        scratch.write("20260303.log", dayLog(60));
        scratch.write("20260304.log", dayLog(80));
        desktop.rack({&forms.form1, &forms.formB, &forms.formC, &forms.formD, &forms.form3});
    }

    struct Platform {
        Platform() {
            if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
                qputenv("QT_QPA_PLATFORM", "offscreen");
            static int argc = 1;
            static char name[] = "test_log_frames";
            static char* argv[] = {name, nullptr};
            // Never deleted: that would unload the fonts.
            [[maybe_unused]] static const auto* application = new QApplication(argc, argv);
        }
    };

    Platform platform;
    int argc = 0;
    TempFolder scratch;
    display::qt::QtDesktop desktop{argc, nullptr};
    ScriptedDriver driver;
    Files files{scratch.path()};
    Program program{desktop, driver, files};
    Forms forms{program};
};

TEST_F(LogScreen, AChangeOfTheDayIsOnePaintOfEachChart) {
    Form_D4A& charts = forms.formD4A;
    charts.show();
    QTest::qWait(300);
    const display::qt::FormView& view = *desktop.viewOf(charts);
    std::vector<std::unique_ptr<Paints>> plots;
    for (QWidget* widget : view.window()->findChildren<QWidget*>()) {
        if (widget->inherits("QCustomPlot")) plots.push_back(std::make_unique<Paints>(widget));
    }
    ASSERT_EQ(plots.size(), 6u);
    const int before = view.paints();
    desktop.hand().select(charts.Combo1, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return charts.Graph[0].dataAt(1, 1) == "60"; }));
    QTest::qWait(300);
    int painted = 0;
    for (const auto& plot : plots) {
        EXPECT_LE(plot->count, 1);
        painted += plot->count;
    }
    // Three charts are equal on both days, the others differ.
    EXPECT_GE(painted, 3);
    EXPECT_LE(view.paints() - before, 1);
}

TEST_F(LogScreen, TheReportHasNoInkBeyondTheMargins) {
    constexpr qreal kDotsPerInch = 72;
    const auto report = dayReport(dayLog(100), "20260304", "Marvenia");
    for (const display::Paper& paper : {display::kA4, display::kLetter}) {
        const auto pixels = [](float units) {
            return static_cast<int>(units * kDotsPerInch / display::kPageUnitsPerInch);
        };
        QImage image(pixels(paper.width), pixels(paper.height), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        display::qt::paintPages(painter, composeReportPage(report, paper, 14), 1, 1, kDotsPerInch,
                                [] {});
        painter.end();
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != qRgb(255, 255, 255)) ink |= QRect(x, y, 1, 1);
            }
        }
        const QRect sheet = image.rect().adjusted(36, 36, -36, -36);
        EXPECT_TRUE(sheet.contains(ink)) << paper.width;
        // The line of hyphens ends at the right margin.
        EXPECT_GT(ink.right(), sheet.right() - 6) << paper.width;
    }
}

}  // namespace
}  // namespace hmonitor::test
