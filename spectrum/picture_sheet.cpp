// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/picture_sheet.h"

#include <string>
#include <utility>

#include "spectrum/channel_table.h"

#include "program/language.h"

namespace hmonitor {

PictureSheet::PictureSheet(Program& itsProgram, std::string itsName)
    : SheetForm(itsProgram, std::move(itsName)) {
    // Until a window fills the page.
    Picture1.numbers = [this] { return ShownSpectrum().table(program, language); };
}

void PictureSheet::onLoad() {
    constexpr float kFirstBrandLeft = 6800;
    SheetForm::onLoad();
    if (firstBrand()) Picture2.left = kFirstBrandLeft;
    Label1.caption = wordsIn(language, {"Impreso por ", "Printed by "});
    for (display::Label* label : {&Label7, &Label1})
        label->caption = label->caption.get() + program.words.gModel.str();
}

// Unlike on the pages of charts the texts are prepared first, and only the logo's border is
// removed.
void PictureSheet::dress(For what) {
    const bool paper = what == For::Paper;
    Picture2.border = paper ? display::Border::None : display::Border::Plain;
    Label1.visible = paper;
    if (paper) Label9.visible = false;
    Text1.enabled = !paper;
    Text2.enabled = paper;
    if (!paper) Label9.visible = true;
    SSCommand1.visible = !paper;
    SSCommand2.visible = !paper;
}

}  // namespace hmonitor
