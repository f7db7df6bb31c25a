// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form7.h"

#include "analyses/form_dd3.h"
#include "core/language.h"

namespace hmonitor {

using display::Surface;

Form7::Form7(Program& itsProgram) : ProgramForm(itsProgram, "Form7") {}

void Form7::onLoad() {
    language = panelLanguage(desktop().userLanguageId());
    // A page that was unloaded comes back with the curve that its window shows.
    if (program.Form_Dd3.filled() && program.Form_Dd3.peek().loaded())
        Graph1.take(program.Form_Dd3.peek().Graph1);
}

void Form7::layOut() {
    constexpr float kWidth = 9000;
    constexpr float kHeight = 6400;
    width = kWidth;
    height = kHeight;
    place(Sheet, {0, 0, kWidth, kHeight}).surface = Surface::Sheet;
    place(Label2, {360, 700, kWidth - 720, 240}).colour = display::kBlack;
    Label2.font = display::Font{160};
    place(Graph1, {360, 1200, kWidth - 720, 4200}).style = display::Chart::Style::Curve;
    Graph1.insets = display::Chart::Insets{0, 200, 0, 300};
    Graph1.lowest = 0.f;
    Graph1.highest = 30.f;
    Graph1.gridStep = 5.f;
    Graph1.columnCount(1);
    Graph1.seriesColour(1, display::kBlack);
}

}  // namespace hmonitor
