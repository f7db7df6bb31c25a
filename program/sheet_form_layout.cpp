// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/window_look.h"
#include "program/sheet_form.h"

namespace hmonitor {

using display::Surface;

namespace {

constexpr float kLogoWidth = 2500;
constexpr float kLogoHeight = 420;
constexpr float kFootStrip = look::kKeyHeight + 2 * look::kWindowMargin;
/// A comment of so many characters has room on the paper.
constexpr int kLongestComment = 500;
constexpr display::Colour kPencil{0x605850};

}  // namespace

void SheetForm::layOutSheet(float sheetWidth, float sheetHeight, const char* title) {
    constexpr float kSheetTop = look::kTitleStrip + 40;
    width = sheetWidth + 2 * look::kWindowMargin;
    height = kSheetTop + sheetHeight + kFootStrip;
    place(Faceplate, {0, 0, width, height}).surface = Surface::Faceplate;
    place(SSPanel1, {0, 0, width, look::kTitleStrip});
    SSPanel1.says = {"Mover la ventana", "Move the window"};
    place(Title, look::titleBox(width), &SSPanel1).caption = title;
    Title.font = look::kTitle;
    Title.colour = look::kScaleColour;

    const float across = sheetWidth - 2 * kSheetMargin;
    place(Sheet, {look::kWindowMargin, kSheetTop, sheetWidth, sheetHeight}).surface =
        Surface::Sheet;
    for (display::Picture* logo : {&Picture2, &Picture4})
        place(*logo, {sheetWidth - kSheetMargin - kLogoWidth, 220, kLogoWidth, kLogoHeight},
              &Sheet);
    Picture2.picture = "InkTeskel";
    Picture2.border = display::Border::Plain;
    Picture4.picture = "InkMarvenia";
    Picture4.visible = false;
    place(Label2, {kSheetMargin, 760, across, 260}, &Sheet).font = display::Font{170};
    Label2.colour = display::kBlack;
    place(HeadRule, kSheetMargin, 1090, sheetWidth - kSheetMargin, 1090, &Sheet).colour = kPencil;

    place(Text2, {kSheetMargin - 50, sheetHeight - 1020, across + 100, 600}, &Sheet).enabled =
        false;
    Text2.font = display::Font{160};
    Text2.colour = display::kBlack;
    Text2.locked = true;
    Text2.says = {"Comentario en el papel", "Comment on the paper"};
    place(Label1, {kSheetMargin, sheetHeight - 360, across, 220}, &Sheet).font = display::Font{120};
    Label1.colour = kPencil;
    Label1.visible = false;
    layOutFoot(kSheetTop + sheetHeight + look::kWindowMargin);
}

void SheetForm::placeHeading(display::Label& heading, const char* words) {
    // Headings begin with two blanks.
    constexpr float kBlanks = 130;
    place(heading, {kSheetMargin - kBlanks, 260, 5200, 340}, &Sheet).caption = words;
    heading.font = display::Font{240, display::Weight::Bold};
    heading.colour = display::kBlack;
}

void SheetForm::layOutFoot(float keyTop) {
    constexpr float kKeyWidth = 1250;
    // Between the comment and the two keys stands a third, narrower one.
    constexpr float kThirdKey = 950;
    const float cancelLeft = width - look::kWindowMargin - kKeyWidth;
    const float printLeft = cancelLeft - 110 - kKeyWidth;
    place(Label9, {look::kWindowMargin + 60, keyTop + 120, 950, 180}).caption = "Comment";
    Label9.font = look::kDialog;
    Label9.colour = look::kCaptionColour;
    const float fieldLeft = look::kWindowMargin + 1080;
    place(Text1, {fieldLeft, keyTop + 65, printLeft - kThirdKey - 110 - fieldLeft, 290}).font =
        look::kDialog;
    Text1.maxLength = kLongestComment;
    Text1.says = {"Comentario de la página", "Comment of the page"};
    Text1.tabIndex = 1;
    place(SSCommand2, {printLeft, keyTop, kKeyWidth, look::kKeyHeight}).caption = "Print";
    SSCommand2.says = {"Imprimir la página", "Print the page"};
    SSCommand2.isDefault = true;
    SSCommand2.tabIndex = 3;
    place(SSCommand1, {cancelLeft, keyTop, kKeyWidth, look::kKeyHeight}).caption = "Cancel";
    SSCommand1.says = {"Cerrar la página; el comentario queda",
                       "Close the page; the comment stays"};
    SSCommand1.isCancel = true;
    SSCommand1.tabIndex = 4;
}

}  // namespace hmonitor
