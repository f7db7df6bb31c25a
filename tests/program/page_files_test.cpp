// SPDX-License-Identifier: GPL-3.0-or-later
// The keys that save a page as a PDF.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program/station_line.h"
#include "program/tuner.h"
#include "tests/performance/log_bench.h"
#include "tests/support/page_recorder.h"

namespace hmonitor::test {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

TEST(StationLine, NamesStationFrequencyAndDay) {
    EXPECT_EQ(stationLine("RADIO UNO", 98.1, "2026-05-04"), "RADIO UNO 98.1 MHz 2026-05-04");
    EXPECT_EQ(stationLine("  TRES   ", 102.55, "20260304"), "TRES 102.55 MHz 20260304");
    EXPECT_EQ(stationLine("         ", 87.5, "2026-01-02"), "87.5 MHz 2026-01-02");
}

TEST(StationLine, OfAFrequencyThatIsNoMemoryHasNoName) {
    RackBench bench;
    bench.desktop.date = {2026, 1, 9, 5, 12, 0, 0};
    bench.start();
    EXPECT_EQ(stationLine(bench.program), "RADIO UNO 98.1 MHz 2026-01-09");
    bench.set(bench.formB.HScroll1, 130);
    EXPECT_EQ(stationLine(bench.program), "100.5 MHz 2026-01-09");
}

/// What a page's key must not change.
struct Untouched {
    explicit Untouched(RackBench& its)
        : bench(its), boxes(its.desktop.boxes.size()), clipboard(its.desktop.clipboard) {
        bench.takeCalls();
        journal = bench.desktop.journal.size();
    }
    void expect() {
        EXPECT_THAT(bench.takeCalls(), IsEmpty());
        EXPECT_EQ(bench.desktop.boxes.size(), boxes);
        EXPECT_EQ(bench.desktop.clipboard, clipboard);
        EXPECT_THAT(bench.desktop.printed, IsEmpty());
        EXPECT_THAT(bench.desktop.printedPages, IsEmpty());
    }
    RackBench& bench;
    std::size_t boxes, journal;
    std::string clipboard;
};

TEST(PdfKey, OfTheRackWritesTheImageThatPrintPrints) {
    RackBench bench;
    bench.start();
    Untouched before(bench);
    bench.desktop.saveAnswers = {"/there/rack.pdf"};
    bench.click(bench.form1.KeyPdf);
    ASSERT_THAT(bench.desktop.saveQuestions, SizeIs(1));
    EXPECT_EQ(bench.desktop.saveQuestions[0].stem, "RADIO UNO 98.1 MHz 2026-05-04 Rack");
    EXPECT_EQ(bench.desktop.saveQuestions[0].kinds[0].ending, "pdf");
    EXPECT_THAT(bench.desktop.writtenFiles,
                ElementsAre(Pair("/there/rack.pdf", "pdf of Form1 Form_B Form_C Form_D")));
    before.expect();
    EXPECT_EQ(bench.form1.KeyPdf.picture, "MinN");
}

TEST(PdfKey, WithoutAPlaceWritesNothing) {
    RackBench bench;
    bench.start();
    Untouched before(bench);
    bench.desktop.saveAnswers = {""};
    bench.click(bench.form1.KeyPdf);
    EXPECT_THAT(bench.desktop.writtenFiles, IsEmpty());
    before.expect();
}

TEST(PdfKey, TellsAFileThatCannotBeWritten) {
    RackBench bench(RackBench::kSpanish);
    bench.start();
    bench.desktop.saveAnswers = {"/full/rack.pdf"};
    bench.desktop.writeFault = "rack.pdf no se puede escribir: lleno";
    bench.desktop.boxAnswers = {"ok"};
    bench.click(bench.form1.KeyPdf);
    ASSERT_THAT(bench.desktop.boxes, SizeIs(1));
    EXPECT_EQ(bench.desktop.boxes[0].title, "HMonitor");
    EXPECT_EQ(bench.desktop.boxes[0].text, "rack.pdf no se puede escribir: lleno");
    EXPECT_EQ(bench.desktop.saveQuestions[0].title, "Guardar como PDF");
    EXPECT_TRUE(bench.form1.visible);
}

TEST(PdfKey, OfThePreviewWritesThePageOfTheDay) {
    LogBench bench;
    bench.open();
    bench.click(bench.charts.SSCommand1);
    bench.edit(bench.page.Text1, "antenna ices");
    bench.click(bench.page.SSCommand3);
    Untouched before(bench);
    bench.desktop.saveAnswers = {"/there/day.pdf"};
    bench.click(bench.page.KeyPdf);
    EXPECT_EQ(bench.desktop.saveQuestions[0].stem,
              "RADIO UNO 98.1 MHz 20260304 On-Air Performance Log");
    ASSERT_THAT(bench.desktop.pdfPages, SizeIs(1));
    EXPECT_EQ(recorded(bench.desktop.pdfPages[0].document),
              recorded(bench.page.ViewPro1.document()));
    EXPECT_EQ(bench.desktop.pdfPages[0].first, 1);
    EXPECT_EQ(bench.desktop.pdfPages[0].last, 1);
    EXPECT_EQ(bench.desktop.writtenFiles.count("/there/day.pdf"), 1u);
    before.expect();
    EXPECT_TRUE(bench.page.visible) << "Print alone unloads the page";
    EXPECT_EQ(bench.page.Text1.text, "antenna ices");
}

TEST(PdfKey, OfTheReportWritesWhatPrintPrints) {
    LogBench bench;
    bench.openText();
    bench.desktop.saveAnswers = {"/there/report.pdf"};
    bench.click(bench.text.KeyPdf);
    bench.click(bench.text.SSCommand2);
    ASSERT_THAT(bench.desktop.pdfPages, SizeIs(1));
    ASSERT_THAT(bench.desktop.printedPages, SizeIs(1));
    EXPECT_EQ(recorded(bench.desktop.pdfPages[0].document),
              recorded(bench.desktop.printedPages[0].document));
    EXPECT_EQ(bench.desktop.saveQuestions[0].stem, "RADIO UNO 98.1 MHz 20260304 Report");
}

/// Which controls a page shows, and the texts of its two comments.
std::string stateOf(const SheetForm& page) {
    std::string state = page.Text1.text.get() + "|" + page.Text2.text.get() + "|";
    for (const display::Control* control : page.controls()) {
        state += control->name() + (control->visible ? "+" : "-") + (control->enabled ? "+" : "-");
        if (const auto* picture = dynamic_cast<const display::Picture*>(control))
            state += picture->border == display::Border::Plain ? "#" : "";
    }
    return state;
}

TEST(PdfKey, OfASheetWritesItAsPrintWouldAndLeavesThePageAsItWas) {
    RackBench bench;
    bench.start();
    for (SheetForm* page :
         {static_cast<SheetForm*>(&bench.forms.formPrintBandScan),
          static_cast<SheetForm*>(&bench.forms.form7), static_cast<SheetForm*>(&bench.forms.form6),
          static_cast<SheetForm*>(&bench.forms.formD1aP)}) {
        page->load();
        page->open();
        bench.edit(page->Text1, "antenna ices");
        const std::string before = stateOf(*page);
        Untouched rest(bench);
        std::string dressed;
        bench.desktop.duringSheet = [&](const display::Panel&) {
            dressed = page->Text2.text.get() + (page->Label1.visible ? " foot" : "") +
                      (page->Label9.visible ? " head" : "") +
                      (page->SSCommand2.visible ? " keys" : "");
        };
        bench.desktop.saveAnswers = {"/there/" + page->name() + ".pdf"};
        bench.click(page->KeyPdf);
        bench.desktop.duringSheet = nullptr;
        EXPECT_EQ(dressed, "antenna ices foot") << page->name();
        EXPECT_EQ(bench.desktop.writtenFiles["/there/" + page->name() + ".pdf"],
                  "pdf of sheet of " + page->name());
        EXPECT_EQ(stateOf(*page), before) << page->name();
        EXPECT_TRUE(page->visible) << page->name();
        EXPECT_THAT(bench.desktop.printedSheets, IsEmpty());
        rest.expect();
        page->hide();
    }
    EXPECT_EQ(bench.desktop.saveQuestions[2].stem, "RADIO UNO 98.1 MHz 2026-05-04 Spectrum");
}

TEST(PdfKey, WithoutAPlaceLeavesASheetUndressed) {
    RackBench bench;
    bench.start();
    Form7& page = bench.forms.form7;
    page.load();
    page.open();
    const auto revision = page.clock();
    bench.desktop.saveAnswers = {""};
    bench.click(page.KeyPdf);
    EXPECT_EQ(page.clock(), revision) << "nothing was touched";
}

TEST(PrintKey, PressedTwicePrintsASheetOnce) {
    RackBench bench;
    bench.start();
    Form7& page = bench.forms.form7;
    page.load();
    page.open();
    bench.hand.click(page.SSCommand2);
    bench.hand.click(page.SSCommand2);
    bench.settle();
    EXPECT_THAT(bench.desktop.printedSheets, SizeIs(1));
    EXPECT_FALSE(page.visible);
}

TEST(PdfKey, SaysWhatItDoesInBothLanguages) {
    for (const int language : {RackBench::kEnglish, RackBench::kSpanish}) {
        RackBench bench(language);
        bench.start();
        for (display::Form* form : bench.desktop.forms()) form->load();
        int keys = 0;
        for (const display::Form* form : bench.desktop.forms()) {
            const display::Control* key = form->find("KeyPdf");
            if (!key) continue;
            ++keys;
            EXPECT_STREQ(key->tip.english, "Saves the same page as a PDF file") << form->name();
            EXPECT_STREQ(key->tip.spanish, "Guarda la misma página como archivo PDF");
        }
        EXPECT_EQ(keys, 7);
    }
}

}  // namespace hmonitor::test
