// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"
#include "program/tuner.h"
#include "spectrum/channel_spectrum_file.h"
#include "spectrum/channel_table.h"
#include "spectrum/class1.h"

namespace hmonitor {

void Form_D::makeGraph() {
    graph_ = std::make_unique<Class1>();
    graph_->GraphKind = Kind::Bare;
    graph_->XColumns = 8;
    graph_->YUnits = 50;
    graph_->Canvas = &PictureGraph1.drawing;
    graph_->BackColor = "0";
    graph_->TraceColor = "16754077";
    graph_->TextColor = "0";
    graph_->GridColor = "8421504";
    graph_->BarGap = 50;
    graph_->LeftMargin = 0;
    graph_->TopMargin = 0;
    graph_->BottomMargin = 0;
    graph_->SkipLabels = 0;
    graph_->XStep = 0;
    graph_->GraphInit();
    shownSpectrum_ = std::make_unique<ShownSpectrum>();
    PictureGraph1.numbers = [this] { return shownSpectrum_->table(program, language); };
}

void Form_D::spect() {
    const auto stored = ChannelSpectrum::read(program.files, program.tuner->TunedFreq);
    *shownSpectrum_ = {};
    if (!stored || stored->points < 1) {
        graph_->GraphClean();
        return;
    }
    graph_->XColumns = stored->points;
    graph_->GraphInit();
    shownSpectrum_->begin(stored->points, stored->stepKhz());
    // A file that ends before its count draws what is there.
    for (int i = 1; i <= static_cast<int>(stored->values.size()); ++i) {
        Int16 y = stored->value(i);
        graph_->GraphLine(i, y);
        shownSpectrum_->put(i, stored->values[static_cast<std::size_t>(i - 1)]);
    }
}

}  // namespace hmonitor
