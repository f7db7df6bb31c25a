// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/form4.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/numbers.h"
#include "performance/form_d4a.h"
#include "performance/station_of_log.h"
#include "program/language.h"
#include "program/look.h"
#include "program/make_form.h"
#include "program/page_file.h"
#include "program/rack_place.h"

namespace hmonitor {

Form4::Form4(Program& itsProgram) : ProgramForm(itsProgram, "Form4") {
    hscZoom.onChange = [this] { setZoom(); };
    SSCommand1.onClick = [this] { hide(); };
    SSCommand2.onClick = [this] { print(); };
    KeyPdf.onClick = [this] { savePdf(); };
    SSCommand3.onClick = [this] {
        if (StationState.Band == "FM") program.Form_D4A->Leer();
    };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void Form4::onLoad() {
    language = panelLanguage(desktop().userLanguageId());
    if (program.words.gBrand == "Marvenia") Picture1.picture = Picture4.picture;
    setZoom();
    Text1.text = unprintedComment_;
    unprintedComment_.clear();
    // After a print it comes back with the page of the day that its window shows.
    if (program.Form_D4A.peek().loaded()) program.Form_D4A.peek().drawPage();
}

void Form4::activated() {
    // It is loaded with the window of the day, long before it is seen.
    if (!placed_) placeOverRack(*this, program);
    placed_ = true;
}

void Form4::closeRequested() {
    SSCommand1.press();
}

void Form4::setZoom() {
    ViewPro1.zoom = hscZoom.value;
    Percent.caption = wholeText(hscZoom.value).append(" %");
}

namespace {

bool carries(const display::PageDocument& document, std::string_view text) {
    if (text.empty() || document.pages().empty()) return text.empty();
    return std::ranges::any_of(document.pages().front().marks, [text](const auto& mark) {
        return mark.kind == display::PageMark::Kind::Writing && mark.text == text;
    });
}

}  // namespace

void Form4::print() {
    // Without a printer there is no page and no message.
    const bool printed = desktop().printPages(ViewPro1.document(), 1, 1).empty();
    const std::string& comment = Text1.text.get();
    if (!printed || !carries(ViewPro1.document(), comment)) unprintedComment_ = comment;
    unload();
}

void Form4::savePdf() {
    const std::string day(program.Form_D4A.peek().Combo1.list.text());
    savePageAsPdf(program, language, {stationOfLog(program, day), "On-Air Performance Log"},
                  [this] { return desktop().pdfOfPages(ViewPro1.document(), 1, 1); });
}

void Form4::layOut() {
    using namespace display;
    constexpr TextStyle kDim = look::kDialogText.in(look::kCaptionColour);
    constexpr float kWidth = 9000;
    constexpr float kFoot = 7060;
    layWindow(kWidth, 8300, "On-Air Performance Log", Faceplate);
    place(SSPanel1, {0, 0, kWidth, look::kTitleStrip + 160},
          Says{"Mover la ventana", "Move the window"});
    place(Heading, {240, 200, 5000, 260}, &SSPanel1, look::kTitleText, "On-Air Performance Log");
    // The logos are drawn in ink.
    place(Letterhead, {6400, 90, 2240, 440}, &SSPanel1, Surface::Sheet);
    place(Picture1, {120, 20, 2000, 400}, &Letterhead, "InkTeskel");
    place(Picture4, {120, 20, 2000, 400}, &Letterhead, "InkMarvenia", Hidden{});

    place(ViewPro1, {look::kMargin, 660, kWidth - 2 * look::kMargin, 6240},
          Says{"Vista previa de la página", "Preview of the page"});
    place(Frame1, {look::kMargin, kFoot + 70, 900, 180}, kDim, "Zoom");
    place(hscZoom, {1360, kFoot + 40, 2400, 240},
          Says{"Zoom de la vista previa", "Zoom of the preview"})
        .range(20, 200, 20);
    hscZoom.value = 50;
    place(Percent, {3860, kFoot + 70, 700, 180}, kDim);
    place(Label9, {look::kMargin, kFoot + 560, 1000, 180}, kDim, "Comment");
    place(Text1, {1360, kFoot + 510, 3240, 280}, look::kDialogText,
          Says{"Comentario de la página", "Comment of the page"});

    constexpr float kKeyWidth = 980;
    constexpr float kKeyTop = kFoot + 440;
    place(SSCommand3, {4740, kKeyTop, kKeyWidth, look::kKeyHeight}, "Set", Role::Default,
          Says{"Dibujar la página con el comentario", "Draw the page with the comment"});
    place(SSCommand2, {5820, kKeyTop, kKeyWidth, look::kKeyHeight}, "Print",
          Says{"Imprimir la página", "Print the page"});
    place(SSCommand1, {7660, kKeyTop, kKeyWidth, look::kKeyHeight}, "Cancel", Role::Cancel,
          Says{"Cerrar la vista previa", "Close the preview"});
    likePdfKey(place(KeyPdf, {6870, kKeyTop, 660, look::kKeyHeight}));
    tabOrder(Text1, SSCommand3, SSCommand2, SSCommand1, hscZoom, ViewPro1, KeyPdf);
}

template MadeForm makeForm(Program&, Slot<Form4>&);

}  // namespace hmonitor
