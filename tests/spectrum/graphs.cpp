// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/spectrum/graphs.h"

namespace hmonitor::test {

Class1 bareGraph(display::Canvas& canvas) {
    Class1 graph;
    graph.GraphKind = Kind::Bare;
    graph.XColumns = 8;
    graph.YUnits = 50;
    graph.Canvas = &canvas;
    graph.BackColor = "0";
    graph.TraceColor = "16754077";
    graph.TextColor = "0";
    graph.GridColor = "8421504";
    graph.BarGap = 50;
    return graph;
}

Class1 bandGraph(display::Canvas& canvas) {
    Class1 graph;
    graph.GraphKind = Kind::Band;
    graph.XColumns = 800;
    graph.YUnits = 70;
    graph.Canvas = &canvas;
    graph.BackColor = "0";
    graph.TraceColor = "49152";
    graph.TextColor = "16777215";
    graph.GridColor = "8421504";
    graph.BarGap = 10;
    graph.LeftMargin = 300;
    graph.TopMargin = 400;
    graph.BottomMargin = 640;
    graph.SkipLabels = -1;
    graph.XStep = 25;
    return graph;
}

Class1 smallBandGraph(display::Canvas& canvas) {
    Class1 graph = bandGraph(canvas);
    graph.GraphKind = Kind::SmallBand;
    graph.BarGap = 1;
    graph.LeftMargin = 18;
    graph.TopMargin = 24;
    graph.BottomMargin = 38;
    return graph;
}

}  // namespace hmonitor::test
