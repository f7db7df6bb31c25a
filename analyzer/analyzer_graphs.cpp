// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/analyzer_graphs.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "core/numbers.h"
#include "spectrum/class1.h"

namespace hmonitor {

namespace {

constexpr int kShownColumns = Density::kColumns - 1;
constexpr int kShownRows = Density::kRows - 1;

/// Black ground, green bars.
Class1 blackGraph(display::Canvas& canvas) {
    Class1 graph;
    graph.XColumns = kShownColumns;
    graph.YUnits = kShownRows;
    graph.Canvas = &canvas;
    graph.BackColor = "0";
    graph.TraceColor = "49152";
    graph.TextColor = "16777215";
    graph.GridColor = "8421504";
    return graph;
}

}  // namespace

Class1 densityGraph(display::Canvas& canvas, Int16 stepKhz) {
    // The margins of the bars' graph, whose units are 17 times coarser.
    Class1 graph = blackGraph(canvas);
    graph.GraphKind = Kind::SmallBand;
    graph.BarGap = 1;
    graph.LeftMargin = 18;
    graph.TopMargin = 24;
    graph.BottomMargin = 38;
    graph.SkipLabels = -1;
    graph.XStep = stepKhz;
    return graph;
}

Class1 sweepGraph(display::Canvas& canvas, Int16 columns, Int16 stepKhz, Int16 skipLabels) {
    Class1 graph = blackGraph(canvas);
    graph.GraphKind = Kind::Band;
    graph.XColumns = columns;
    graph.BarGap = 10;
    graph.LeftMargin = 300;
    graph.TopMargin = 400;
    graph.BottomMargin = 640;
    graph.SkipLabels = skipLabels;
    graph.XStep = stepKhz;
    return graph;
}

Int16 skipLabelsFor(int lastIndex) {
    constexpr int kMostLabels = 25;
    return lastIndex > kMostLabels ? -1 : 0;
}

int densityEntry(double counted, std::int32_t acquisitions) {
    // Most cells are empty.
    if (counted == 0) return kNotSeen;
    const double share = std::min(counted / acquisitions * kSweepsOfScale, kMostCommon);
    return share < 1.0 ? kNotSeen : toWhole(share);
}

int weightOf(int entry) {
    return entry < toWhole(kMostCommon) ? entry : 0;
}

double madeUpLevel(int i, double random) {
    constexpr int kPeakEvery = 100;
    constexpr int kPeakWidth = 10;
    double level = random * 4.0 + 31.0;
    const int along = i % kPeakEvery;
    if (along <= kPeakWidth) level += (5 - std::abs(along - 5)) * 10;
    return level;
}

}  // namespace hmonitor
