// SPDX-License-Identifier: GPL-3.0-or-later
// What all pages that look like a sheet of paper do, from the key that opens them to the printer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "analyses/chart_sheet.h"
#include "spectrum/picture_sheet.h"
#include "tests/architecture/form_walk.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

using testing::ElementsAre;
using testing::IsEmpty;

/// A page and how it is opened.
struct PageOf {
    const char* name;
    SheetForm& (*page)(RackBench& bench);
    /// Opens the page from the rack, by the keys that lead there.
    void (*open)(RackBench& bench);
    display::Key& (*opener)(RackBench& bench);
};

namespace {

void door(RackBench& bench, display::Picture& key) {
    bench.press(key);
    bench.release(key);
}

// The slots of these forms are named like their classes, hence `bench.forms`.
const PageOf kPages[] = {
    {"BandScan", [](RackBench& bench) -> SheetForm& { return bench.forms.formPrintBandScan; },
     [](RackBench& bench) { door(bench, bench.formD.Image2); },
     [](RackBench& bench) -> display::Key& { return bench.forms.formBandSCanner.SSCommand1; }},
    {"Response", [](RackBench& bench) -> SheetForm& { return bench.forms.form7; },
     [](RackBench& bench) { door(bench, bench.formD.Image3); },
     [](RackBench& bench) -> display::Key& { return bench.forms.formDd3.SSCommand1; }},
    {"ChannelSpectrum", [](RackBench& bench) -> SheetForm& { return bench.forms.form6; },
     [](RackBench& bench) {
         bench.hand.doubleClick(bench.formD.PictureGraph1);
         bench.settle();
     },
     [](RackBench& bench) -> display::Key& { return bench.forms.formD1.SSCommand1; }},
    {"Analyzer", [](RackBench& bench) -> SheetForm& { return bench.forms.form6; },
     [](RackBench& bench) { bench.click(bench.formD.Image6); },
     [](RackBench& bench) -> display::Key& { return bench.forms.formSpectrumAnalizer.SSCommand1; }},
    {"Bandwidth", [](RackBench& bench) -> SheetForm& { return bench.forms.formD1aP; },
     [](RackBench& bench) { door(bench, bench.formD.Image1); },
     [](RackBench& bench) -> display::Key& { return bench.forms.formD1a.SSCommand1; }},
};

bool isChart(const PageOf& page) {
    return std::string_view(page.name) == "BandScan" || std::string_view(page.name) == "Response";
}

/// The controls that changed since that revision, in the order of their last change.
std::vector<std::string> changedSince(const display::Form& form, std::uint64_t since) {
    std::vector<const display::Control*> changed;
    for (const display::Control* control : form.controls()) {
        if (control->revision() > since) changed.push_back(control);
    }
    std::ranges::sort(changed, {}, &display::Control::revision);
    std::vector<std::string> names;
    for (const display::Control* control : changed) names.push_back(control->name());
    return names;
}

}  // namespace

class SheetPages : public testing::TestWithParam<PageOf> {
 protected:
    SheetPages() {
        bench.desktop.seedRandom(1);
        bench.start();
        GetParam().open(bench);
        show();
        bench.desktop.journal.clear();
    }

    void show() { bench.click(opener); }
    void comment(std::string_view text) { bench.edit(page.Text1, text); }
    void print() { bench.click(page.SSCommand2); }
    /// How often the page was printed.
    std::size_t prints() const { return bench.desktop.printedSheets.size(); }

    RackBench bench;
    SheetForm& page = GetParam().page(bench);
    display::Key& opener = GetParam().opener(bench);
};

INSTANTIATE_TEST_SUITE_P(Of, SheetPages, testing::ValuesIn(kPages),
                         [](const auto& of) { return std::string(of.param.name); });

TEST_P(SheetPages, OpenByTheirKeyBesideTheWindowThatAsks) {
    EXPECT_TRUE(page.visible);
    EXPECT_TRUE(opener.form().visible);
    EXPECT_EQ(page.SSCommand2.caption, "Print");
    EXPECT_EQ(page.SSCommand1.caption, "Cancel");
    EXPECT_EQ(page.Label9.caption, "Comment");
    EXPECT_TRUE(page.Label9.visible);
    EXPECT_FALSE(page.Label1.visible);
    EXPECT_TRUE(page.Text1.enabled);
    EXPECT_FALSE(page.Text2.enabled);
    EXPECT_EQ(page.Picture2.border.get(), display::Border::Plain);
    EXPECT_FALSE(page.Picture4.visible);
    EXPECT_EQ(page.Sheet.surface, display::Surface::Sheet);
}

TEST_P(SheetPages, StandAsTheyShould) {
    EXPECT_THAT(faultsOf(page), IsEmpty());
}

TEST_P(SheetPages, PrintHidesThePageBeforeItIsPrintedAndUnloadsItAfter) {
    bool hidden = false, loaded = false;
    bench.desktop.duringSheet = [&](const display::Panel& sheet) {
        EXPECT_EQ(&sheet, &page.Sheet);
        hidden = !page.visible;
        loaded = page.loaded();
    };
    print();
    EXPECT_TRUE(hidden);
    EXPECT_TRUE(loaded);
    EXPECT_FALSE(page.loaded());
    EXPECT_FALSE(page.visible);
    EXPECT_THAT(bench.desktop.journal,
                ElementsAre("hide " + page.name(), "print sheet of " + page.name()));
    EXPECT_TRUE(opener.form().visible);
}

TEST_P(SheetPages, TheSheetIsMadeReadyInItsOrder) {
    std::vector<std::string> order;
    comment("seen");
    const std::uint64_t before = page.clock();
    bench.desktop.duringSheet = [&](const display::Panel&) { order = changedSince(page, before); };
    print();
    if (isChart(GetParam())) {
        EXPECT_THAT(order, ElementsAre("Picture2", "Label1", "Text1", "Label9", "Text2", "Picture1",
                                       "SSCommand2", "SSCommand1"));
    } else {
        EXPECT_THAT(order, ElementsAre("Picture2", "Label1", "Label9", "Text1", "Text2",
                                       "SSCommand1", "SSCommand2"));
    }
}

TEST_P(SheetPages, TheSheetIsPutBackInItsOrder) {
    std::uint64_t before = 0;
    bench.desktop.duringSheet = [&](const display::Panel&) { before = page.clock(); };
    print();
    if (isChart(GetParam())) {
        EXPECT_THAT(changedSince(page, before),
                    ElementsAre("Picture2", "Label1", "Text1", "Label9", "Text2", "Picture1",
                                "SSCommand2", "SSCommand1"));
    } else {
        EXPECT_THAT(changedSince(page, before), ElementsAre("Picture2", "Label1", "Text1", "Text2",
                                                            "Label9", "SSCommand1", "SSCommand2"));
    }
}

TEST_P(SheetPages, PaperShowsTheCommentAndNoKeys) {
    comment("después de la tormenta");
    bench.desktop.duringSheet = [&](const display::Panel&) {
        EXPECT_EQ(page.Text2.text, "después de la tormenta");
        EXPECT_EQ(page.Text1.text, "después de la tormenta");
        EXPECT_TRUE(page.Text2.enabled);
        EXPECT_FALSE(page.Text1.enabled);
        EXPECT_FALSE(page.Label9.visible);
        EXPECT_TRUE(page.Label1.visible);
        EXPECT_FALSE(page.SSCommand1.visible);
        EXPECT_FALSE(page.SSCommand2.visible);
        EXPECT_EQ(page.Picture2.border.get(), display::Border::None);
    };
    print();
    EXPECT_EQ(prints(), 1u);
    // The printed page is not the shown one, which stays as it was.
    EXPECT_FALSE(page.Text2.enabled);
    EXPECT_TRUE(page.Text1.enabled);
    EXPECT_TRUE(page.Label9.visible);
    EXPECT_FALSE(page.Label1.visible);
    EXPECT_TRUE(page.SSCommand1.visible);
    EXPECT_TRUE(page.SSCommand2.visible);
    EXPECT_EQ(page.Picture2.border.get(), display::Border::Plain);
}

TEST_P(SheetPages, AnEmptyCommentIsAnEmptyOneOnPaper) {
    bench.desktop.duringSheet = [&](const display::Panel&) { EXPECT_EQ(page.Text2.text, ""); };
    print();
    EXPECT_EQ(prints(), 1u);
}

TEST_P(SheetPages, AfterAPrintTheCommentIsGone) {
    comment("printed");
    print();
    show();
    EXPECT_TRUE(page.visible);
    EXPECT_EQ(page.Text1.text, "");
    bench.desktop.duringSheet = [&](const display::Panel&) { EXPECT_EQ(page.Text2.text, ""); };
    print();
    EXPECT_EQ(prints(), 2u);
}

TEST_P(SheetPages, CancelEscapeAndTheWindowsCloseKeepTheComment) {
    comment("kept");
    const std::function<void()> ways[] = {
        [&] { bench.click(page.SSCommand1); },
        [&] { bench.hand.escape(page), bench.settle(); },
        [&] { bench.hand.close(page), bench.settle(); },
    };
    for (const auto& leave : ways) {
        leave();
        EXPECT_FALSE(page.visible);
        EXPECT_TRUE(page.loaded());
        show();
        EXPECT_TRUE(page.visible);
        EXPECT_EQ(page.Text1.text, "kept");
    }
    EXPECT_EQ(prints(), 0u);
}

TEST_P(SheetPages, APrintThatFailsSaysNothingUnloadsThePageAndKeepsTheCommentForTheNextTime) {
    bench.desktop.printerFault = "No printer is set up on this computer.";
    comment("never on paper");
    print();
    EXPECT_THAT(bench.desktop.boxes, IsEmpty());
    EXPECT_FALSE(page.loaded());
    show();
    EXPECT_EQ(page.Text1.text, "never on paper");
    bench.desktop.printerFault.clear();
    print();
    show();
    EXPECT_EQ(page.Text1.text, "");
}

TEST_P(SheetPages, PrintPressedTwiceIsOnePage) {
    bench.hand.click(page.SSCommand2);
    bench.hand.click(page.SSCommand2);
    bench.settle();
    EXPECT_EQ(prints(), 1u);
    EXPECT_FALSE(page.visible);
}

TEST_P(SheetPages, HandsThatComeWhileItPrintsChangeNothing) {
    comment("on its way");
    bench.desktop.duringSheet = [&](const display::Panel&) {
        bench.hand.close(page);
        bench.hand.click(page.SSCommand2);
        bench.hand.click(page.SSCommand1);
        bench.hand.edit(page.Text1, "too late");
        bench.desktop.letEventsThrough();
        EXPECT_EQ(page.Text2.text, "on its way");
    };
    print();
    EXPECT_EQ(prints(), 1u);
    EXPECT_FALSE(page.loaded());
    bench.desktop.duringSheet = nullptr;
    show();
    EXPECT_TRUE(page.visible);
    EXPECT_EQ(page.Text1.text, "");
}

TEST_P(SheetPages, ClosingTheWindowThatAsksLosesNoComment) {
    comment("stays");
    bench.hand.close(opener.form());
    bench.settle();
    EXPECT_FALSE(opener.form().visible);
    EXPECT_EQ(page.Text1.text, "stays");
    bench.desktop.duringSheet = [&](const display::Panel&) { EXPECT_EQ(page.Text2.text, "stays"); };
    print();
    EXPECT_EQ(prints(), 1u);
}

TEST_P(SheetPages, TheKeyThatOpensThemBringsUpOneThatStandsAlready) {
    show();
    EXPECT_TRUE(page.visible);
    EXPECT_THAT(bench.desktop.journal, ElementsAre("hide " + page.name(), "show " + page.name()));
}

TEST_P(SheetPages, AreMovedByTheirTitle) {
    const float left = page.left, top = page.top;
    bench.hand.mouseDown(page.SSPanel1, display::Mouse{100, 100, true});
    bench.hand.mouseMove(page.SSPanel1, display::Mouse{160, 70, true});
    bench.settle();
    EXPECT_EQ(page.left, left + 60);
    EXPECT_EQ(page.top, top - 30);
    // From then on its place is where the user put it.
    bench.click(page.SSCommand1);
    show();
    EXPECT_EQ(page.left, left + 60);
}

TEST_P(SheetPages, EnterPrintsAndTheKeyboardStartsAtTheComment) {
    EXPECT_EQ(page.defaultKey(), &page.SSCommand2);
    EXPECT_EQ(page.cancelKey(), &page.SSCommand1);
    EXPECT_LT(page.Text1.tabIndex, page.SSCommand2.tabIndex);
    EXPECT_EQ(page.Text2.tabIndex, 0);
}

// Brands and languages.

class SheetPageOf : public testing::TestWithParam<PageOf> {};
INSTANTIATE_TEST_SUITE_P(Of, SheetPageOf, testing::ValuesIn(kPages),
                         [](const auto& of) { return std::string(of.param.name); });

TEST_P(SheetPageOf, TheFirstBrandTakesItsLogoToItsPlace) {
    const std::string_view name = GetParam().name;
    float usual = 0;
    for (const auto brand : {Brand::Teskel, Brand::Marvenia}) {
        RackBench bench(RackBench::kEnglish, brand);
        bench.desktop.seedRandom(1);
        bench.start();
        GetParam().open(bench);
        bench.click(GetParam().opener(bench));
        const SheetForm& page = GetParam().page(bench);
        if (brand == Brand::Teskel) {
            EXPECT_EQ(page.Picture2.picture, "InkTeskel");
            usual = page.Picture2.left;
            EXPECT_EQ(usual + page.Picture2.width + 360, page.Sheet.width);
        } else {
            EXPECT_EQ(page.Picture2.picture, "InkMarvenia");
            const float left = name == "BandScan" ? usual : name == "Response" ? 5760.f : 6800.f;
            EXPECT_EQ(page.Picture2.left, left);
        }
    }
}

TEST_P(SheetPageOf, AreDatedInTheLanguageOfTheUser) {
    const std::string_view name = GetParam().name;
    for (const int language : {RackBench::kEnglish, RackBench::kSpanish}) {
        RackBench bench(language);
        bench.desktop.seedRandom(1);
        bench.start();
        GetParam().open(bench);
        bench.click(GetParam().opener(bench));
        const std::string date =
            language == RackBench::kSpanish ? "lunes 4, mayo 2026" : "Monday 4, May 2026";
        const std::string station = name == "Response" ? "RADIO UNO  98.1 mhz  "
                                    : name == "ChannelSpectrum" || name == "Bandwidth"
                                        ? "RADIO UNO 98.1 mhz  "
                                        : "";
        EXPECT_EQ(GetParam().page(bench).Label2.caption, station + date);
    }
}

TEST(SheetModel, StandsBehindHeadingAndDateOfChartsUntilTheDateIsSet) {
    RackBench bench;
    bench.start();
    bench.program.Form_PrintBandScan->show();
    EXPECT_EQ(bench.forms.formPrintBandScan.Label18.caption, "  Band ScannerHMonitor");
    EXPECT_EQ(bench.forms.formPrintBandScan.Label2.caption, "HMonitor");
    bench.program.Form7.peek().unload();
    bench.program.Form7->show();
    EXPECT_EQ(bench.forms.form7.Label3.caption, "  Frecuency Response HMonitor");
    EXPECT_EQ(bench.forms.form7.Label2.caption, "HMonitor");
    door(bench, bench.formD.Image2);
    bench.click(bench.forms.formBandSCanner.SSCommand1);
    EXPECT_EQ(bench.forms.formPrintBandScan.Label18.caption, "  Band ScannerHMonitor");
    EXPECT_EQ(bench.forms.formPrintBandScan.Label2.caption, "Monday 4, May 2026");
}

TEST(SheetModel, StandsBehindHeadingAndFootOfPictures) {
    RackBench bench;
    bench.start();
    bench.program.Form6->show();
    bench.program.FormD1aP->show();
    EXPECT_EQ(bench.forms.form6.Label7.caption, "  Spectrum HMonitor");
    EXPECT_EQ(bench.forms.form6.Label1.caption, "Printed by HMonitor");
    EXPECT_EQ(bench.forms.form6.Label2.caption, "");
    EXPECT_EQ(bench.forms.formD1aP.Label7.caption, "  Modulation Bandwidth HMonitor");
    EXPECT_EQ(bench.forms.formD1aP.Label1.caption, "Printed by HMonitor");
    // Each load begins anew.
    bench.forms.form6.unload();
    bench.program.Form6->show();
    EXPECT_EQ(bench.forms.form6.Label7.caption, "  Spectrum HMonitor");
}

TEST(SheetTitles, AreThoseOfThePages) {
    RackBench bench;
    bench.start();
    EXPECT_EQ(bench.program.Form_PrintBandScan->caption, "Form5");
    EXPECT_EQ(bench.program.Form7->caption, "Frecuency response");
    EXPECT_EQ(bench.program.Form6->caption, "Spectrum");
    EXPECT_EQ(bench.program.FormD1aP->caption, "Modulation Bandwidth");
}

}  // namespace hmonitor::test
