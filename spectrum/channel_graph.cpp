// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/channel_graph.h"

namespace hmonitor {

Class1 channelGraph(display::Canvas& canvas, Int16 columns, Int16 stepKhz) {
    constexpr int kMostLabels = 25;
    Class1 graph;
    graph.GraphKind = Kind::Offset;
    graph.XColumns = columns;
    graph.YUnits = 50;
    graph.Canvas = &canvas;
    graph.BackColor = "16777215";
    graph.TraceColor = "49152";
    graph.TextColor = "0";
    graph.GridColor = "8421504";
    graph.BarGap = 200;
    graph.LeftMargin = 300;
    graph.TopMargin = 400;
    graph.BottomMargin = 490;
    graph.SkipLabels = columns > kMostLabels ? -1 : 0;
    graph.XStep = stepKhz;
    return graph;
}

}  // namespace hmonitor
