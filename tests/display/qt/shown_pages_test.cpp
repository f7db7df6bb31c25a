// SPDX-License-Identifier: GPL-3.0-or-later
// The pages that look like a sheet of paper, read back from their pixels: on the screen and as they
// go to the printer.
#include <gtest/gtest.h>

#include <QDir>
#include <QPainter>
#include <functional>

#include "core/numbers.h"
#include "display/qt/painting/form_painter.h"
#include "display/qt/painting/palette.h"
#include "program/sheet_form.h"
#include "tests/display/qt/form_picture.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using display::qt::FormPicture;
using display::qt::inkBox;
using display::qt::isAbout;
using display::qt::onScale;
using display::qt::qColour;

/// A sheet as it is printed, three pixels for each of the screen's.
class PaperSheet {
 public:
    explicit PaperSheet(SheetForm& form) : form_(form) {}

    static constexpr qreal kPixels = 0.3;  ///< a twip

    QImage taken() {
        QImage image(qRound(form_.Sheet.width * kPixels), qRound(form_.Sheet.height * kPixels),
                     QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        painter.scale(kPixels, kPixels);
        display::qt::paintSheet(painter, form_.Sheet, kPixels);
        return image;
    }
    QRect changedBy(const std::function<void()>& change, const std::function<void()>& undo) {
        const QImage before = taken();
        change();
        const QImage after = taken();
        undo();
        QRect changed;
        for (int y = 0; y < before.height(); ++y) {
            for (int x = 0; x < before.width(); ++x) {
                if (std::abs(qGray(before.pixel(x, y)) - qGray(after.pixel(x, y))) > 60)
                    changed |= QRect(x, y, 1, 1);
            }
        }
        return changed;
    }
    QRect inkOf(display::Control& control) {
        return changedBy([&] { control.visible = false; }, [&] { control.visible = true; });
    }
    QRect boxOf(const display::Control& control) const {
        const auto pixel = [](float twips) { return qRound(twips * kPixels); };
        return {pixel(control.left), pixel(control.top), pixel(control.width),
                pixel(control.height)};
    }

 private:
    SheetForm& form_;
};

void keepPicture(const QImage& image, const QString& name) {
    QDir().mkpath("pictures");
    image.save("pictures/" + name + ".png");
}

void writeCell(display::Chart& chart, int row, int column, std::string_view text) {
    chart.row = row;
    chart.column = column;
    chart.data(text);
}

class ShownPages : public testing::Test {
 protected:
    ShownPages() {
        bench.start();
        // Fonts need the application that the first picture starts.
        picture = std::make_unique<FormPicture>(bench.formD);
    }
    RackBench bench;
    std::unique_ptr<FormPicture> picture;
};

TEST_F(ShownPages, ABarOfTheScanReachesItsLevelOnScreenAndPaper) {
    Form_PrintBandScan& page = *bench.program.Form_PrintBandScan;
    FormPicture screen(page);
    PaperSheet paper(page);
    const double screenTop = screen.middleOf(page.Scale[0]).y();
    const double screenFoot = screen.middleOf(page.Scale[7]).y();
    const double paperTop = QRectF(paper.inkOf(page.Scale[0])).center().y();
    const double paperFoot = QRectF(paper.inkOf(page.Scale[7])).center().y();
    for (const int level : {31, 50, 71, 100}) {
        writeCell(page.Graph1, 5, 2, shortText(level));
        const auto clear = [&] { writeCell(page.Graph1, 5, 2, ""); };
        const auto back = [&] { writeCell(page.Graph1, 5, 2, shortText(level)); };
        const QRect seen = inkBox(screen.changedBy(clear, back));
        EXPECT_NEAR(onScale(seen.top(), screenTop, 100, screenFoot, 30), level, 0.4);
        const QRect printed = paper.changedBy(clear, back);
        EXPECT_NEAR(onScale(printed.top(), paperTop, 100, paperFoot, 30), level, 0.15);
        EXPECT_NEAR(onScale(printed.bottom(), paperTop, 100, paperFoot, 30), 30, 0.15);
    }
}

TEST_F(ShownPages, BarsOfTheScanHaveTheColoursOfTheLegendOnWhite) {
    Form_PrintBandScan& page = *bench.program.Form_PrintBandScan;
    FormPicture screen(page);
    PaperSheet paper(page);
    for (int column = 1; column <= 5; ++column) writeCell(page.Graph1, 5, column, "80");
    const QImage shown = screen.taken(), printed = paper.taken();
    for (int column = 1; column <= 5; ++column) {
        const QColor legend =
            qColour(page.legend.stroke(static_cast<std::size_t>(column - 1)).colour);
        EXPECT_GT(inkBox(shown, screen.boxOf(page.Graph1), legend).height(), 50) << column;
        EXPECT_GT(inkBox(printed, paper.boxOf(page.Graph1), legend).height(), 300) << column;
        EXPECT_GE(display::qt::contrastOf(legend, Qt::white), 3.0) << column;
    }
    EXPECT_EQ(printed.pixelColor(paper.boxOf(page.Graph1).topLeft() + QPoint(9, 9)),
              QColor(Qt::white));
    EXPECT_EQ(shown.pixelColor(screen.boxOf(page.Graph1).topLeft() + QPoint(3, 3)),
              QColor(Qt::white));
}

TEST_F(ShownPages, AToneOfTheResponseStandsAtItsLevelOnScreenAndPaper) {
    Form7& page = *bench.program.Form7;
    FormPicture screen(page);
    PaperSheet paper(page);
    const double screenTop = screen.middleOf(page.ScaleNumber[0]).y();
    const double screenFoot = screen.middleOf(page.ScaleNumber[6]).y();
    const double paperTop = QRectF(paper.inkOf(page.ScaleNumber[0])).center().y();
    const double paperFoot = QRectF(paper.inkOf(page.ScaleNumber[6])).center().y();
    for (int row = 1; row <= 8; ++row) writeCell(page.Graph1, row, 1, "");
    // 12 is 3 dB below the middle of the scale.
    for (const auto& [data, level] : {std::pair{"12", -3.0}, {"28", 13.0}, {"15", 0.0}}) {
        page.Graph1.dashed = false;
        writeCell(page.Graph1, 4, 1, data);
        const auto clear = [&] { writeCell(page.Graph1, 4, 1, ""); };
        const auto back = [&, data = data] { writeCell(page.Graph1, 4, 1, data); };
        const QRectF seen = inkBox(screen.changedBy(clear, back));
        EXPECT_NEAR(onScale(seen.center().y(), screenTop, 15, screenFoot, -15), level, 0.25);
        const QRectF printed = paper.changedBy(clear, back);
        EXPECT_NEAR(onScale(printed.center().y(), paperTop, 15, paperFoot, -15), level, 0.1);
    }
}

TEST_F(ShownPages, TheCommentStandsAtTheFootOfThePaperAlone) {
    for (SheetForm* page : {static_cast<SheetForm*>(&*bench.program.Form7),
                            static_cast<SheetForm*>(&*bench.program.Form_PrintBandScan),
                            static_cast<SheetForm*>(&*bench.program.Form6),
                            static_cast<SheetForm*>(&*bench.program.FormD1aP)}) {
        page->Text2.text = "A calm day";
        PaperSheet paper(*page);
        const QRect ink = paper.inkOf(page->Text2);
        ASSERT_FALSE(ink.isEmpty()) << page->name();
        EXPECT_TRUE(paper.boxOf(page->Text2).contains(ink)) << page->name();
        EXPECT_GT(ink.top(), paper.taken().height() * 0.8) << page->name();
    }
}

TEST_F(ShownPages, NoTwoThingsOnASheetStandInEachOthersPlace) {
    bench.desktop.seedRandom(1);
    bench.program.Form_D1->show();
    bench.click(bench.forms.formD1.SSCommand1);
    Form6& page = bench.forms.form6;
    page.Text2.text = std::string(500, 'm');
    page.Label1.visible = true;
    PaperSheet paper(page);
    std::vector<std::pair<std::string, QRect>> inks;
    for (display::Control* control : {static_cast<display::Control*>(&page.Label7),
                                      static_cast<display::Control*>(&page.Label2),
                                      static_cast<display::Control*>(&page.Picture2),
                                      static_cast<display::Control*>(&page.Picture1B),
                                      static_cast<display::Control*>(&page.Text2),
                                      static_cast<display::Control*>(&page.Label1)})
        inks.emplace_back(control->name(), paper.inkOf(*control));
    for (std::size_t i = 0; i < inks.size(); ++i) {
        EXPECT_FALSE(inks[i].second.isEmpty()) << inks[i].first;
        for (std::size_t j = i + 1; j < inks.size(); ++j)
            EXPECT_FALSE(inks[i].second.intersects(inks[j].second))
                << inks[i].first << " and " << inks[j].first;
    }
}

TEST_F(ShownPages, ThePageOfTheSpectrumHasTheGraphOfItsWindow) {
    bench.write("0981.spc", lines({"3", "50", "97.8", "12", "0", "7", ""}));
    bench.forms.formD1.unload();
    bench.program.Form_D1->show();
    bench.click(bench.forms.formD1.SSCommand1);
    Form6& page = bench.forms.form6;
    Form_D1& window = bench.forms.formD1;
    const auto of = [](display::PictureBox& box, const display::PictureBox& size) {
        QImage image(qRound(size.width * 0.1f), qRound(size.height * 0.1f), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(0.1, 0.1);
        display::qt::paintControl(painter, box, 0.1);
        return image;
    };
    const QImage bars = of(window.Picture1, window.Picture1);
    EXPECT_EQ(of(page.Picture1, window.Picture1), bars);
    EXPECT_FALSE(inkBox(bars, bars.rect(), qColour(display::kRed)).isEmpty());
    EXPECT_EQ(of(page.Picture1B, window.Picture2), of(window.Picture2, window.Picture2));
}

/// A page, its window and the key that opens it; pictures of it on screen and paper are kept.
class PagePictures : public testing::TestWithParam<int> {
 protected:
    PagePictures() : bench(GetParam()) {
        bench.desktop.seedRandom(3);
        bench.write("0981.spc", lines({"9", "50", "97.8", "48", "41", "30", "12", "0", "7", "33",
                                       "40", "47", ""}));
        bench.write("0981.res", lines({"-31", "-12", "4", "0", "5", "-8", "-20", "-55", "30", "125",
                                       "400", "1000", "4000", "8000", "12000", "15000"}));
        std::vector<std::string> scan;
        for (int i = 0; i < 103; ++i) scan.push_back(std::to_string(34 + i * 37 % 60));
        bench.write("scan.dat", lines(scan));
        bench.start();
        first = std::make_unique<FormPicture>(bench.formD);
    }
    void keep(SheetForm& page, const char* name) {
        const QString language = GetParam() == RackBench::kSpanish ? "es" : "en";
        page.Text1.text = GetParam() == RackBench::kSpanish
                              ? "Medición después de la tormenta, antena nueva"
                              : "Measured after the storm, new antenna";
        FormPicture screen(page);
        const QImage shown = screen.taken();
        keepPicture(shown, QString(name) + "_" + language);
        bool seen = false;
        bench.desktop.duringSheet = [&](const display::Panel&) {
            const QImage printed = PaperSheet(page).taken();
            keepPicture(printed, QString(name) + "_paper_" + language);
            // The margins are white, whatever the page contains.
            for (const QPoint corner :
                 {QPoint(2, 2), QPoint(printed.width() - 3, 2), QPoint(2, printed.height() - 3)})
                EXPECT_EQ(printed.pixelColor(corner), QColor(Qt::white)) << name;
            seen = true;
        };
        bench.click(page.SSCommand2);
        EXPECT_TRUE(seen) << name;
    }
    RackBench bench;
    std::unique_ptr<FormPicture> first;
};

INSTANTIATE_TEST_SUITE_P(In, PagePictures,
                         testing::Values(RackBench::kSpanish, RackBench::kEnglish),
                         [](const auto& of) {
                             return of.param == RackBench::kSpanish ? "Spanish" : "English";
                         });

TEST_P(PagePictures, AreWhiteSheetsWithWhatTheirWindowsShow) {
    bench.program.Form_BandSCanner->show();
    bench.click(bench.forms.formBandSCanner.SSCommand1);
    keep(bench.forms.formPrintBandScan, "page_scan");
    bench.formD.respo();
    bench.program.Form_Dd3->show();
    bench.click(bench.forms.formDd3.SSCommand1);
    keep(bench.forms.form7, "page_response");
    bench.forms.formD1.unload();
    bench.program.Form_D1->show();
    bench.click(bench.forms.formD1.SSCommand1);
    keep(bench.forms.form6, "page_spectrum");
    bench.program.FormD1a->show();
    bench.click(bench.forms.formD1a.Command1);
    bench.click(bench.forms.formD1a.SSCommand1);
    keep(bench.forms.formD1aP, "page_bandwidth");
    bench.program.frmSpectrumAnalizer->show();
    bench.click(bench.forms.formSpectrumAnalizer.SSCommand1);
    keep(bench.forms.form6, "page_analyzer");
}

}  // namespace
}  // namespace hmonitor::test
