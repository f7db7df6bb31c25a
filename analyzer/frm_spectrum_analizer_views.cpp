// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/analyzer_graphs.h"

#include <cstdint>
#include <string>

#include "analyzer/frm_spectrum_analizer.h"
#include "analyzer/sparse_labels.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/long_date.h"
#include "spectrum/channel_spectrum_file.h"
#include "spectrum/class1.h"
#include "spectrum/form6.h"

namespace hmonitor {

namespace {

constexpr display::Words kMode3D{"Modo espectro 3D", "3D spectrum mode"};
constexpr display::Words kModeZoom{"Modo espectro zoom", "Spectral zoom mode"};
/// The text height of the labels at the map's axes.
constexpr float kMapPoints = 5.5f;

constexpr DensityColors kColors = buildPalette();

}  // namespace

std::string_view frmSpectrumAnalizer::mode3D() const {
    return wordsIn(language, kMode3D);
}

std::string_view frmSpectrumAnalizer::modeZoom() const {
    return wordsIn(language, kModeZoom);
}

bool frmSpectrumAnalizer::zoomOnShow() const {
    return butSpecMode.caption == mode3D();
}

void frmSpectrumAnalizer::EscalaClean(Int16&, Int16&) {}

void frmSpectrumAnalizer::ShowSpectrum_3D() {
    SparseLabels canvas(Picture3d.drawing, kMapPoints);
    Class1 graph = densityGraph(canvas, kScanStepKhz);
    graph.GraphInit();
    EscalaClean(graph.XColumns, graph.XStep);
    map_ = &graph;
    UpdateSpectrogram();
    map_ = nullptr;
}

void frmSpectrumAnalizer::UpdateSpectrogram() {
    const int sweeps = measurement.SessionInfo.Acquisitions;
    if (!map_ || measurement.CurrentSessionFile.empty() || sweeps == 0) return;
    for (int x = 0; x < Density::kColumns - 1; ++x) {
        for (int row = 0; row < Density::kRows - 1; ++row) {
            const int entry = densityEntry(measurement.SpectralDensity.at(x, row), sweeps);
            if (entry == kNotSeen) continue;
            const display::Colour colour = kColors[static_cast<std::size_t>(entry)];
            map_->Canvas->cellWeight = weightOf(entry);
            map_->GraphPixel(x + 1, Density::kRows - 2 - row,
                             static_cast<std::int32_t>(colour.bgr));
        }
    }
}

void frmSpectrumAnalizer::ShowSpectrum_SpectralZoom(std::string_view fileName) {
    constexpr int kWholeBand = 800;
    const auto bytes =
        folder.exists(fileName) ? folder.read(fileName) : FileResult<std::string>(FileFault{});
    ChannelSpectrum sweep;
    if (bytes) sweep = ChannelSpectrum::parse(*bytes);
    // If the text has no number of levels, only the frame of the whole band is drawn.
    const bool counted = bytes && sweep.points > 0;
    const Int16 columns = counted ? sweep.points : Int16(kWholeBand);

    Class1 graph = sweepGraph(zoomCanvas_, columns, bytes ? sweep.stepKhz() : Int16(kScanStepKhz),
                              skipLabelsFor(columns));
    graph.GraphInit();
    shownBars_.clear();
    shownColumns_ = columns;
    EscalaClean(graph.XColumns, graph.XStep);
    // A simulated spectrum has no numbers to copy.
    if (!bytes) {
        for (int i = 1; i <= kWholeBand; ++i) {
            Int16 fromTop = toWhole(100 - madeUpLevel(i, desktop().random()));
            graph.GraphLine(i, fromTop);
        }
        return;
    }
    // A text with fewer levels than its count draws those that are there.
    for (int i = 1; i <= static_cast<int>(sweep.values.size()); ++i) {
        constexpr double kKhzPerMhz = 1000;
        shownBars_[i] = {sweep.beforeFirstMhz + i * sweep.stepKhz() / kKhzPerMhz, sweep.value(i)};
        Int16 fromTop = 100 - sweep.value(i);
        graph.GraphLine(i, fromTop);
    }
}

void frmSpectrumAnalizer::butSpecMode_Click() {
    desktop().pointer(display::PointerShape::Hourglass);
    butSpecMode.enabled = false;
    if (zoomOnShow()) {
        Picture3d.visible = true;
        PictureZoom.visible = false;
        butSpecMode.caption = modeZoom();
        LabelMode.caption = "3D Spectrum Analyzer";
    } else {
        butSpecMode.caption = mode3D();
        showZoomView();
    }
    desktop().pointer(display::PointerShape::Arrow);
    butSpecMode.enabled = true;
}

void frmSpectrumAnalizer::showZoomView() {
    Picture3d.visible = false;
    PictureZoom.visible = true;
    LabelMode.caption = "Spectral Zoom Analyzer";
}

void frmSpectrumAnalizer::changeWidth(float times) {
    // The graph follows when it is drawn next.
    PictureZoom.width = PictureZoom.width * times;
}

void frmSpectrumAnalizer::scrollPictures() {
    constexpr float kLeft = 120;
    constexpr float kMapNarrower = 5300;
    const float beyond = PictureZoom.width - Panel3D1.width;
    const auto last = static_cast<float>(HScroll1.maximum.get());
    const auto value = static_cast<float>(HScroll1.value);
    // The two views divide by different numbers, but both by the width of the bars' picture.
    PictureZoom.left = kLeft - beyond / (last - 1) * value;
    Picture3d.left = kLeft - (beyond - kMapNarrower) / last * value;
}

void frmSpectrumAnalizer::openPage() {
    hmonitor::Form6& page = *program.Form6;
    const display::PictureBox& view = zoomOnShow() ? PictureZoom : Picture3d;
    page.Label2.caption = longDate(desktop());
    page.Picture1.drawing.take(view.drawing);
    display::NumberTable table = view.numbers();
    page.Picture1.numbers = [table] { return table; };
    table.spots.clear();
    page.Picture1B.numbers = [table] { return table; };
    // The table of the page is for the channel spectrum only.
    page.Picture1B.drawing.clear();
    page.Picture1.left = view.left.get();
    page.Picture1.width = width.get();
    page.open();
}

}  // namespace hmonitor
