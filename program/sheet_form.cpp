// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/sheet_form.h"

#include <utility>

#include "program/language.h"
#include "program/page_file.h"
#include "program/rack_place.h"
#include "program/station_line.h"

namespace hmonitor {

SheetForm::SheetForm(Program& itsProgram, std::string itsName)
    : ProgramForm(itsProgram, std::move(itsName)) {
    SSCommand2.onClick = [this] { print(); };
    KeyPdf.onClick = [this] { savePdf(); };
    SSCommand1.onClick = [this] { hide(); };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void SheetForm::onLoad() {
    language = panelLanguage(desktop().userLanguageId());
    if (firstBrand()) Picture2.picture = Picture4.picture;
    Text1.text = unprintedComment_;
    unprintedComment_.clear();
}

void SheetForm::open() {
    // The page may be loaded by the first tuning, before the rack has its position; and it needs a
    // position before it is shown, so that the desktop can move it onto the screen.
    if (!placed_) placeOverRack(*this, program);
    placed_ = true;
    // A page that is covered by the window that asks for it is raised.
    hide();
    show();
}

void SheetForm::savePdf() {
    savePageAsPdf(program, language, {stationLine(program), caption.get()},
                  [this] { return pdf(); });
}

std::string SheetForm::pdf() {
    const std::string onPaper = Text2.text.get();
    Text2.text = Text1.text.get();
    dress(For::Paper);
    std::string bytes = desktop().pdfOfSheet(Sheet);
    dress(For::Screen);
    Text2.text = onPaper;
    return bytes;
}

void SheetForm::print() {
    hide();
    Text2.text = Text1.text.get();
    dress(For::Paper);
    // Without a printer nothing is printed and nothing is said.
    const bool printed = desktop().printSheet(Sheet).empty();
    dress(For::Screen);
    if (!printed) unprintedComment_ = Text1.text.get();
    unload();
}

}  // namespace hmonitor
