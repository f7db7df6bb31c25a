// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/chart_sheet.h"

#include <string_view>

#include "program/look.h"

namespace hmonitor {

void ChartSheet::dress(For what) {
    const bool paper = what == For::Paper;
    const auto border = paper ? display::Border::None : display::Border::Plain;
    Picture2.border = border;
    Label1.visible = paper;
    Text1.enabled = !paper;
    Label9.visible = !paper;
    Text2.enabled = paper;
    Picture1.border = border;
    SSCommand2.visible = !paper;
    SSCommand1.visible = !paper;
}

void ChartSheet::nameModel(display::Label& heading) {
    for (display::Label* label : {&heading, &Label2})
        label->caption = label->caption.get() + program.words.gModel.str();
}

void ChartSheet::placeChart(const display::Box& box) {
    constexpr float kEdge = 60;
    place(Picture1,
          {kSheetMargin - kEdge, box.top - kEdge, box.right() - kSheetMargin + 2 * kEdge,
           box.height + 2 * kEdge},
          &Sheet)
        .border = display::Border::Plain;
    place(Graph1, box, &Sheet);
    // The part between head and comment: the chart with its scale and its legend.
    Graph1.pictureBox = {Sheet.left, Sheet.top + kSheetBody - kEdge, Sheet.width,
                         Sheet.height - kSheetBody - kSheetFoot + kEdge};
}

void ChartSheet::placeScale(display::Label& figure, float y, std::string_view words) {
    constexpr float kWidth = 440;
    place(figure, {kSheetMargin, y - 75, kWidth, 150}, &Sheet, words,
          look::kScaleText.in(display::kBlack).right());
}

}  // namespace hmonitor
