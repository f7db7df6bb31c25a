// SPDX-License-Identifier: GPL-3.0-or-later
// The on-air log on the real desktop: how often it is painted, and its report on paper.
#include <gtest/gtest.h>

#include <QPainter>
#include <QTest>

#include "display/qt/painting/page_painter.h"
#include "performance/day_report.h"
#include "performance/report_page.h"
#include "tests/display/qt/paint_count.h"
#include "tests/display/qt/program_screen.h"

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

class LogScreen : public testing::Test, protected ProgramScreen {
 protected:
    LogScreen() {
        scratch.write("20260303.log", dayLog(60));
        scratch.write("20260304.log", dayLog(80));
    }
};

TEST_F(LogScreen, AChangeOfTheDayIsOnePaintOfEachChart) {
    Form_D4A& charts = forms.formD4A;
    charts.show();
    QTest::qWait(300);
    const display::qt::FormView& view = *desktop.viewOf(charts);
    const auto plots = display::qt::chartPaintsOf(view);
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
