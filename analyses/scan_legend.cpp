// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/scan_legend.h"

#include <array>

#include "display/controls/shapes.h"

namespace hmonitor {

namespace {

constexpr std::size_t kFuchsia = 4;

using Palette = std::array<display::Colour, ScanLegend::kColumns>;

constexpr Palette kOnScreen = {{{0xffff00},
                                {0x50e050},
                                {0x40d0ff},
                                {0x5050ff},
                                {0xff40ff},
                                {0xffa04d},
                                {0x3090ff},
                                {0xe0e0e0},
                                {0x98c000},
                                {0xff7090}}};
constexpr Palette kOnPaper = {{{0x808000},
                               {0x107010},
                               {0x0080a0},
                               {0x2020c0},
                               {0xa000a0},
                               {0xb05000},
                               {0x0050b0},
                               {0x404040},
                               {0x506000},
                               {0x902040}}};

}  // namespace

display::Line& ScanLegend::stroke(std::size_t column) {
    if (column == kFuchsia) return Line_Fuxia;
    return Line[column < kFuchsia ? column : column - 1];
}

void ScanLegend::show(const ScanOption& option) {
    for (std::size_t i = 0; i < option.series.size(); ++i) {
        Label_Serie[i].caption = option.series[i];
        Label_Serie[i + 5].caption = kUpperSeries[i];
    }
    showUpper(option.spacing == ScanSpacing::All);
    const bool four = option.spacing == ScanSpacing::Quarter;
    Label_Serie[kFuchsia].visible = !four;
    Line_Fuxia.visible = !four;
}

void ScanLegend::hideUpper() {
    showUpper(false);
}

void ScanLegend::showUpper(bool visible) {
    for (std::size_t column = 5; column < kColumns; ++column) {
        Label_Serie[column].visible = visible;
        stroke(column).visible = visible;
    }
}

void ScanLegend::colour(display::Chart& chart, ScanGround ground) {
    const Palette& palette = ground == ScanGround::Screen ? kOnScreen : kOnPaper;
    for (std::size_t column = 0; column < kColumns; ++column) {
        stroke(column).colour = palette[column];
        chart.seriesColour(static_cast<int>(column) + 1, palette[column]);
    }
}

}  // namespace hmonitor
