// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/class1.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "spectrum/channel_graph.h"
#include "tests/spectrum/graphs.h"
#include "tests/spectrum/text_canvas.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr float kWidth = 9600;
constexpr float kHeight = 6300;

std::vector<std::string> barsOf(Class1& graph, TextCanvas& canvas, int x, int y) {
    canvas.marks.clear();
    Int16 row = y;
    graph.GraphLine(x, row);
    return canvas.marks;
}

TEST(GraphLine, NegativeRowDrawsAsItsSizeAndRewritesTheCallersVariable) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    Int16 y = -35;
    graph.GraphLine(3, y);
    EXPECT_EQ(y, 35);
    const std::string drawn = canvas.marks.back();
    EXPECT_EQ(drawn, barsOf(graph, canvas, 3, 35).back());
}

TEST(GraphLine, RowBeyondTheLastDrawsAtTheLastAndTheCallerHoldsIt) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    for (int beyond : {51, 70, -51, 32767, -32768}) {
        Int16 y = beyond;
        graph.GraphLine(3, y);
        EXPECT_EQ(y, 50) << beyond;
        EXPECT_EQ(canvas.marks.back(), "box 00c000 1570.00 5800.00 1905.00 5810.00") << beyond;
    }
}

TEST(TopOfBar, IsThatOfTheBarWhateverRowADamagedFileHolds) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    for (const int row : {std::numeric_limits<int>::min(), -70000, 70000}) {
        EXPECT_EQ(graph.topOfBar(3, row), graph.topOfBar(3, graph.YUnits)) << row;
    }
}

TEST(GraphLine, CentreBarIsRedOnGraphsAroundACarrierAlone) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 offset = channelGraph(canvas, 17, 25);
    offset.GraphInit();
    EXPECT_THAT(barsOf(offset, canvas, 8, 0)[0], testing::StartsWith("box 00c000"));
    EXPECT_THAT(barsOf(offset, canvas, 9, 0)[0], testing::StartsWith("box 0000ff"));
    EXPECT_THAT(barsOf(offset, canvas, 10, 0)[0], testing::StartsWith("box 00c000"));
    Class1 bare = bareGraph(canvas);
    bare.GraphInit();
    for (int x = 1; x <= 8; ++x) {
        EXPECT_THAT(barsOf(bare, canvas, x, 0)[0], testing::StartsWith("box ffa59d")) << x;
    }
}

TEST(GraphLine, CoordinatesStayAtTheEndOf16Bits) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    EXPECT_THAT(barsOf(graph, canvas, 200, 0),
                ElementsAre("box 00c000 32767.00 400.00 32767.00 5810.00"));
}

TEST(GraphLine, LeavesTheForegroundOnTheTraceColour) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    EXPECT_EQ(canvas.foreground, display::Colour{49152});
    barsOf(graph, canvas, 9, 0);
    EXPECT_EQ(canvas.foreground, display::Colour{49152});
}

TEST(GraphInit, RowsAndColumnsAreRoundedHalvesToEven) {
    // 50 rows of 100.5 and 101.5 units; 17 columns of 535.
    for (const auto& [height, top] : {std::pair{5915.f, "500.00"}, std::pair{5965.f, "502.00"}}) {
        TextCanvas canvas(kWidth, height);
        Class1 graph = channelGraph(canvas, 17, 25);
        graph.GraphInit();
        EXPECT_THAT(barsOf(graph, canvas, 1, 1)[0], testing::HasSubstr(std::string(" ") + top));
    }
}

TEST(GraphInit, TakesTheInnerSizeOfAFramedCanvas) {
    TextCanvas canvas(kWidth, kHeight, 100);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    // (6100 - 890) / 50 is 104 units a row, (9400 - 500) / 17 is 524 a column.
    EXPECT_THAT(barsOf(graph, canvas, 2, 10),
                ElementsAre("box 00c000 1024.00 1440.00 1348.00 5810.00"));
}

TEST(GraphClean, BareGraphIsItsBackgroundAlone) {
    TextCanvas canvas(2400, 900);
    Class1 graph = bareGraph(canvas);
    graph.GraphInit();
    EXPECT_THAT(canvas.marks, ElementsAre("box 000000 0.00 0.00 2400.00 900.00"));
    EXPECT_EQ(canvas.foreground, display::Colour{16754077});
}

std::vector<std::string> frequencies(const TextCanvas& canvas, std::size_t before) {
    const std::vector<std::string> texts = canvas.texts();
    return {texts.begin() + static_cast<std::ptrdiff_t>(before), texts.end()};
}

constexpr std::size_t kOffsetFrame = 9;  // seven levels and the two units
constexpr std::size_t kBandFrame = 11;   // nine levels and the two units

TEST(OffsetLabels, SeventeenColumnsReadTo200kHzAroundTheCarrier) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    EXPECT_THAT(
        frequencies(canvas, kOffsetFrame),
        ElementsAre(" -200", " -175", " -150", " -125", " -100", " -75", " -50", " -25", "  F0",
                    "  25", "  50", "  75", "  100", "  125", "  150", "  175", "  200"));
}

TEST(OffsetLabels, EverySecondColumnIsLabelledAndThePatternRunsOnAcrossTheCarrier) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 29, 25);
    graph.GraphInit();
    // 14 columns are before the carrier, so the last of them has no label, and the one after the
    // carrier has one.
    EXPECT_THAT(frequencies(canvas, kOffsetFrame),
                ElementsAre(" -350", " -300", " -250", " -200", " -150", " -100", " -50", "  F0",
                            "  25", "  75", "  125", "  175", "  225", "  275", "  325"));
}

TEST(OffsetLabels, OddNumberOfColumnsBeforeTheCarrierTurnsThePattern) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 27, 25);
    graph.GraphInit();
    EXPECT_THAT(frequencies(canvas, kOffsetFrame),
                ElementsAre(" -325", " -275", " -225", " -175", " -125", " -75", " -25", "  F0",
                            "  50", "  100", "  150", "  200", "  250", "  300"));
}

TEST(OffsetLabels, LevelsReadFromNothingTo60Below) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    auto texts = canvas.texts();
    texts.resize(kOffsetFrame);
    EXPECT_THAT(texts, ElementsAre("  0", "-10", "-20", "-30", "-40", "-50", "-60", "Khz", "dB"));
}

TEST(BandLabels, LevelsReadFromTwoNoughtsTo20) {
    for (const bool small : {false, true}) {
        TextCanvas canvas(kWidth, kHeight);
        Class1 graph = small ? smallBandGraph(canvas) : bandGraph(canvas);
        graph.GraphInit();
        auto texts = canvas.texts();
        texts.resize(kBandFrame);
        EXPECT_THAT(texts, ElementsAre("00 ", "90 ", "80 ", "70 ", "60 ", "50 ", "40 ", "30 ",
                                       "20 ", "MHz", "dB/uV"));
    }
}

TEST(BandLabels, EightHundredColumnsAreLabelledEachHalfMegahertzFrom88To108) {
    for (const bool small : {false, true}) {
        TextCanvas canvas(kWidth, kHeight);
        Class1 graph = small ? smallBandGraph(canvas) : bandGraph(canvas);
        graph.GraphInit();
        const auto labels = frequencies(canvas, kBandFrame);
        ASSERT_THAT(labels, SizeIs(41));
        EXPECT_EQ(labels[0], "88.0 ");
        EXPECT_EQ(labels[1], "88.5 ");
        EXPECT_EQ(labels[24], "100.0 ");
        EXPECT_EQ(labels[40], "108.0 ");
    }
}

TEST(BandTicks, StandEachFourColumnsAndAreHeavyEachTwenty) {
    TextCanvas canvas(kWidth, 4000);
    Class1 graph = bandGraph(canvas);
    graph.GraphInit();
    // A row is 42 units high and a column 12 wide: the ticks are at 70 rows and at 390.
    EXPECT_THAT(canvas.startingWith("box 808080 300.00 3330.00 314.00 3400.00"), SizeIs(1));
    EXPECT_THAT(canvas.startingWith("line 808080 w1 348.00 3330.00 348.00 3390.00"), SizeIs(1));
    EXPECT_THAT(canvas.startingWith("box 808080 540.00 3330.00 554.00 3400.00"), SizeIs(1));
    EXPECT_THAT(canvas.startingWith("line 808080 w1 312.00 3330"), IsEmpty());
}

TEST(BandTicks, DoNotFollowTheLeftMargin) {
    TextCanvas canvas(kWidth, 4000);
    Class1 graph = bandGraph(canvas);
    graph.LeftMargin = 600;
    graph.GraphInit();
    EXPECT_THAT(canvas.startingWith("box 808080 300.00 3330.00 314.00 3400.00"), SizeIs(1));
}

TEST(SmallBand, SetsItsOwnFonts) {
    TextCanvas canvas(840, 240);
    canvas.fontName = "";
    Class1 graph = smallBandGraph(canvas);
    graph.GraphInit();
    EXPECT_EQ(canvas.fontName, "MS Serif");
    EXPECT_EQ(canvas.fontPoints, 7);
}

TEST(FineGraphs, LeaveTheFontOfTheCanvas) {
    TextCanvas canvas(kWidth, kHeight);
    canvas.fontName = "other";
    canvas.fontPoints = 5;
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    Class1 band = bandGraph(canvas);
    band.GraphInit();
    EXPECT_EQ(canvas.fontName, "other");
    EXPECT_EQ(canvas.fontPoints, 5);
}

TEST(GraphPixel, IsOneColumnOfPixelsAndLeavesItsColour) {
    TextCanvas canvas(kWidth, 4000);
    Class1 graph = bandGraph(canvas);
    graph.GraphInit();
    canvas.marks.clear();
    graph.GraphPixel(100, 10, 0x123456);
    EXPECT_THAT(canvas.marks, ElementsAre("box 123456 1500.00 820.00 1500.00 853.60"));
    EXPECT_EQ(canvas.foreground, display::Colour{0x123456});
}

TEST(GraphRepaint, DrawsTheGridAndNoMore) {
    TextCanvas canvas(kWidth, kHeight);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    canvas.marks.clear();
    graph.GraphRepaint();
    EXPECT_THAT(canvas.marks, SizeIs(11));
    EXPECT_THAT(canvas.startingWith("box 808080"), SizeIs(6));
    EXPECT_THAT(canvas.startingWith("line 808080"), SizeIs(5));
}

TEST(ChannelGraph, LabelsEverySecondColumnPast25) {
    TextCanvas canvas(kWidth, kHeight);
    EXPECT_EQ(channelGraph(canvas, 25, 25).SkipLabels, 0);
    EXPECT_EQ(channelGraph(canvas, 26, 25).SkipLabels, -1);
}

}  // namespace
}  // namespace hmonitor::test
