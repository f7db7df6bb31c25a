// SPDX-License-Identifier: GPL-3.0-or-later
// Whole drawings compared with a second calculation (drawings.py), to a hundredth of a unit.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "spectrum/channel_graph.h"
#include "tests/spectrum/graphs.h"
#include "tests/spectrum/text_canvas.h"

namespace hmonitor::test {
namespace {

std::string expected(const std::string& name) {
    std::ifstream in(std::string(HMONITOR_SOURCE_DIR "/tests/spectrum/drawings/") + name + ".txt");
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void draw(Class1& graph, std::initializer_list<std::pair<int, int>> bars) {
    graph.GraphInit();
    for (const auto& [x, height] : bars) {
        Int16 y = height;
        graph.GraphLine(x, y);
    }
}

TEST(Drawings, BareGraph) {
    TextCanvas canvas(2400, 900);
    Class1 graph = bareGraph(canvas);
    draw(graph, {{1, 5}, {2, 10}, {3, 15}, {4, 20}, {5, 25}, {6, 30}, {7, 35}, {8, 40}});
    EXPECT_EQ(canvas.all(), expected("bare_8"));
}

TEST(Drawings, ChannelOf17Columns) {
    TextCanvas canvas(9600, 6300);
    Class1 graph = channelGraph(canvas, 17, 25);
    graph.GraphInit();
    for (int i = 1; i <= 17; ++i) {
        Int16 y = -3 * (9 - i) * (9 - i);
        graph.GraphLine(i, y);
    }
    EXPECT_EQ(canvas.all(), expected("offset_17"));
}

TEST(Drawings, ChannelOf33Columns) {
    TextCanvas canvas(9600, 6300);
    Class1 graph = channelGraph(canvas, 33, 50);
    draw(graph, {{17, 0}});
    EXPECT_EQ(canvas.all(), expected("offset_33"));
}

TEST(Drawings, ChannelOf41ColumnsInAFrame) {
    TextCanvas canvas(9600, 6300, 30);
    Class1 graph = channelGraph(canvas, 41, 25);
    draw(graph, {{1, 60}, {21, 0}, {41, -60}});
    EXPECT_EQ(canvas.all(), expected("offset_41"));
}

TEST(Drawings, BandOf800Columns) {
    TextCanvas canvas(9600, 4000);
    Class1 graph = bandGraph(canvas);
    draw(graph, {{1, 70}, {400, 35}, {800, 1}});
    EXPECT_EQ(canvas.all(), expected("band_800"));
}

TEST(Drawings, BandOfFewColumns) {
    TextCanvas canvas(9600, 4000);
    Class1 graph = bandGraph(canvas);
    graph.XColumns = 33;
    draw(graph, {{33, 10}});
    EXPECT_EQ(canvas.all(), expected("band_33"));
}

TEST(Drawings, SmallBandInAFrame) {
    TextCanvas canvas(840, 240, 2);
    Class1 graph = smallBandGraph(canvas);
    draw(graph, {{1, 70}, {400, 35}, {800, 1}});
    EXPECT_EQ(canvas.all(), expected("small_800"));
}

}  // namespace
}  // namespace hmonitor::test
