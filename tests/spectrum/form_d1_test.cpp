// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "spectrum/span_choice.h"
#include "tests/spectrum/spectrum_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Stores a file for the tuned frequency and shows it.
struct StoredBench : SpectrumBench {
    explicit StoredBench(const std::string& bytes) {
        write("0979.spc", bytes);
        shows.unload();
        hand.doubleClick(formD.PictureGraph1);
        desktop.settle();
    }
};

std::size_t barsOn(const display::PictureBox& picture) {
    std::size_t bars = 0;
    for (const display::Mark& mark : picture.drawing.marks()) {
        const bool filled = mark.kind == display::Mark::Kind::Filled;
        bars += filled && (mark.colour == display::Colour{49152} || mark.colour == display::kRed);
    }
    return bars;
}

TEST(Form_D1, ShowsTheStoredSpectrumAsBarsAndAsATable) {
    StoredBench bench(lines({"3", "50", "97.8", "12", "0", "7", ""}));
    EXPECT_THAT(SpectrumBench::printedAt(bench.shows.Picture2, 1),
                ElementsAre("Values:", "-50:", "  F0", " 50:"));
    EXPECT_THAT(SpectrumBench::printedAt(bench.shows.Picture2, 500), ElementsAre("-12", "0", "-7"));
    EXPECT_EQ(barsOn(bench.shows.Picture1), 3u);
}

TEST(Form_D1, AfterThePresetEditorItsDoorShowsTheStationsSpectrumAllTheSame) {
    SpectrumBench bench;
    bench.write("0979.spc", lines({"3", "50", "97.8", "12", "0", "7", ""}));
    bench.shows.unload();
    bench.hand.click(bench.formB.Image3);
    bench.desktop.settle();
    bench.hand.click(bench.forms.formSetMemories.SSCommand18);
    bench.desktop.settle();
    // Another value in the state's frequency must not matter.
    bench.state.CurrentFreq = "1";
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    EXPECT_EQ(barsOn(bench.shows.Picture1), 3u);
}

TEST(Form_D1, TheRowsStand175UnitsApart) {
    StoredBench bench(lines({"3", "50", "97.8", "12", "0", "7", ""}));
    std::vector<float> rows;
    for (const display::Mark& mark : bench.shows.Picture2.drawing.marks()) {
        if (mark.kind == display::Mark::Kind::Print && mark.x1 == 500) rows.push_back(mark.y1);
    }
    EXPECT_THAT(rows, ElementsAre(355, 530, 705));
}

TEST(Form_D1, HeadAndCarrierOfTheTableAreRed) {
    StoredBench bench(lines({"3", "50", "97.8", "12", "0", "7", ""}));
    for (const display::Mark& mark : bench.shows.Picture2.drawing.marks()) {
        if (mark.kind != display::Mark::Kind::Print) continue;
        const bool red = mark.text == "Values:" || mark.text == "  F0";
        EXPECT_EQ(mark.colour, red ? display::kRed : display::kBlack) << mark.text;
    }
}

TEST(Form_D1, FortyOnePointsHaveEverySecondColumnLabelled) {
    std::vector<std::string> text{"41", "25", "97.375"};
    for (int i = 1; i <= 41; ++i) text.push_back(i == 21 ? "0" : "30");
    text.emplace_back();
    StoredBench bench(lines(text));
    std::size_t labels = 0;
    for (const display::Mark& mark : bench.shows.Picture1.drawing.marks()) {
        labels += mark.kind == display::Mark::Kind::Print && mark.y1 == 5840;
    }
    // Columns 1, 3 ... 19, the carrier, then 22, 24 ... 40.
    EXPECT_EQ(labels, 21u);
    EXPECT_EQ(barsOn(bench.shows.Picture1), 41u);
}

TEST(Form_D1, WithoutAFileShowsTheEmptyGraph) {
    SpectrumBench bench;
    bench.remove("0979.spc");
    bench.shows.unload();
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    EXPECT_TRUE(bench.shows.visible);
    EXPECT_EQ(barsOn(bench.shows.Picture1), 0u);
    EXPECT_THAT(bench.shows.Picture1.drawing.marks(), testing::Not(IsEmpty()));
    EXPECT_THAT(bench.shows.Picture2.drawing.marks(), IsEmpty());
}

TEST(Form_D1, FileThatEndsBeforeItsCountShowsWhatIsThere) {
    for (const int count : {4, 26, 99, 801, 40000}) {
        SCOPED_TRACE(count);
        StoredBench bench(lines({std::to_string(count), "25", "97.675", "12", "5", "7", ""}));
        EXPECT_THAT(SpectrumBench::printedAt(bench.shows.Picture2, 500),
                    ElementsAre("-12", "-5", "-7"));
        EXPECT_TRUE(bench.desktop.boxes.empty());
    }
}

TEST(Form_D1, FileWithoutPointsShowsTheEmptyGraph) {
    for (const char* count : {"0", "-1", "abc", ""}) {
        SCOPED_TRACE(count);
        StoredBench bench(lines({count, "25", "97.675", "12", "5", "7", ""}));
        EXPECT_EQ(barsOn(bench.shows.Picture1), 0u);
        EXPECT_TRUE(bench.shows.visible);
    }
}

TEST(Form_D1, FileCutAtAnyLengthIsShownAsFarAsItGoes) {
    const std::string whole = lines({"3", "50", "97.8", "12", "0", "7", ""});
    SpectrumBench bench;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        bench.write("0979.spc", whole.substr(0, length));
        bench.shows.unload();
        bench.shows.show();
        EXPECT_LE(barsOn(bench.shows.Picture1), 3u) << length;
        bench.program.Form_D->spect();
    }
    EXPECT_EQ(barsOn(bench.shows.Picture1), 3u);
}

TEST(Form_D1, ValuesBeyondTheScaleAreCutInTheGraphAndStandInTheTable) {
    StoredBench bench(lines({"3", "25", "97.85", "40000", "60", "abc", ""}));
    EXPECT_THAT(SpectrumBench::printedAt(bench.shows.Picture2, 500),
                ElementsAre("-40000", "-60", "abc"));
    EXPECT_EQ(barsOn(bench.shows.Picture1), 3u);
}

TEST(Form_D1, FileThatCannotBeReadIsTold) {
    SpectrumBench bench;
    bench.remove("0979.spc");
    std::filesystem::create_directory(bench.scratch.path() / "0979.spc");
    bench.desktop.answerEveryBox = true;
    bench.shows.unload();
    bench.shows.show();
    ASSERT_THAT(bench.desktop.boxes, SizeIs(1));
    EXPECT_THAT(bench.desktop.boxes[0].text, testing::HasSubstr("0979.spc"));
    EXPECT_TRUE(bench.shows.visible);
}

TEST(Form_D1, ClosingEnablesTheRack) {
    SpectrumBench bench;
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    bench.program.disableRack();
    bench.takeCalls();
    bench.hand.escape(bench.shows);
    bench.desktop.settle();
    EXPECT_FALSE(bench.shows.loaded());
    for (const display::Form* panel : bench.program.rack) EXPECT_TRUE(panel->enabled);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
}

TEST(Form_D1, HandsItsPlaceToTheBandwidthWindow) {
    SpectrumBench bench;
    bench.shows.left = 4321.f;
    bench.shows.top = 123.f;
    bench.hand.click(bench.shows.SSCommand2);
    bench.desktop.settle();
    EXPECT_TRUE(bench.width.visible);
    EXPECT_FALSE(bench.shows.visible);
    EXPECT_EQ(bench.width.left, 4321.f);
    EXPECT_EQ(bench.width.top, 123.f);
}

TEST(Form_D1, IsMovedByItsTitle) {
    SpectrumBench bench;
    const float left = bench.shows.left;
    const float top = bench.shows.top;
    bench.hand.mouseDown(bench.shows.SSPanel1, display::Mouse{100, 50, true});
    bench.hand.mouseMove(bench.shows.SSPanel1, display::Mouse{160, 90, true});
    bench.desktop.settle();
    EXPECT_EQ(bench.shows.left, left + 60);
    EXPECT_EQ(bench.shows.top, top + 40);
}

TEST(Form_NewSpectro, OffersSevenSpansTheFirstChosen) {
    SpectrumBench bench;
    bench.hand.click(bench.shows.Command3D1);
    bench.desktop.settle();
    EXPECT_FALSE(bench.shows.visible);
    EXPECT_THAT(
        bench.asks.Combo1.list.rows(),
        ElementsAre("±  200Khz  (25)", "±  300Khz  (25)", "±  350Khz  (25)", "±  500Khz  (50)",
                    "±  600Khz  (50)", "±  800Khz  (50)", "± 1000Khz  (100)"));
    EXPECT_EQ(bench.asks.Combo1.list.selected(), 0);
    EXPECT_EQ(bench.asks.Text_Step.text, "25");
    bench.hand.select(bench.asks.Combo1, 6);
    bench.desktop.settle();
    EXPECT_EQ(bench.asks.Text_Step.text, "100");
    EXPECT_EQ(bench.asks.SpanKHz, "1000");
}

TEST(Form_NewSpectro, CancelGoesBackToTheSpectrum) {
    SpectrumBench bench;
    bench.hand.click(bench.shows.Command3D1);
    bench.desktop.settle();
    bench.hand.escape(bench.asks);
    bench.desktop.settle();
    EXPECT_TRUE(bench.shows.visible);
    EXPECT_FALSE(bench.asks.loaded());
}

}  // namespace
}  // namespace hmonitor::test
