// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/look.h"
#include "program/page_file.h"
#include "program/sheet_form.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kLogoWidth = 2500;
constexpr float kLogoHeight = 420;
constexpr float kFootStrip = look::kKeyHeight + 2 * look::kWindowMargin;
/// The longest comment that fits on the paper, in characters.
constexpr int kLongestComment = 500;
constexpr Colour kPencil{0x605850};

}  // namespace

void SheetForm::layOutSheet(float sheetWidth, float sheetHeight, const char* title) {
    constexpr float kSheetTop = look::kTitleStrip + 40;
    layWindow(sheetWidth + 2 * look::kWindowMargin, kSheetTop + sheetHeight + kFootStrip, title,
              Faceplate);
    layTitle(SSPanel1, Title, title);

    const float across = sheetWidth - 2 * kSheetMargin;
    const Box logo{sheetWidth - kSheetMargin - kLogoWidth, 220, kLogoWidth, kLogoHeight};
    place(Sheet, {look::kWindowMargin, kSheetTop, sheetWidth, sheetHeight}, Surface::Sheet);
    place(Picture2, logo, &Sheet, "InkTeskel").border = Border::Plain;
    place(Picture4, logo, &Sheet, "InkMarvenia", Hidden{});
    place(Label2, {kSheetMargin, 760, across, 260}, &Sheet, TextStyle{{170}, kBlack});
    place(HeadRule, kSheetMargin, 1090, sheetWidth - kSheetMargin, 1090, &Sheet,
          LineStyle{kPencil});

    place(Text2, {kSheetMargin - 50, sheetHeight - 1020, across + 100, 600}, &Sheet,
          TextStyle{{160}, kBlack}, Says{"Comentario en el papel", "Comment on the paper"});
    Text2.enabled = false;
    Text2.locked = true;
    place(Label1, {kSheetMargin, sheetHeight - 360, across, 220}, &Sheet, TextStyle{{120}, kPencil},
          Hidden{});
    layOutFoot(kSheetTop + sheetHeight + look::kWindowMargin);
}

void SheetForm::placeHeading(Label& heading, const char* words) {
    // Headings begin with two blanks.
    constexpr float kBlanks = 130;
    place(heading, {kSheetMargin - kBlanks, 260, 5200, 340}, &Sheet, words,
          TextStyle{{240, Weight::Bold}, kBlack});
}

void SheetForm::layOutFoot(float keyTop) {
    constexpr float kKeyWidth = 1250;
    // Between the comment and the two keys is a third, narrower one.
    constexpr float kThirdKey = 950;
    const float cancelLeft = width - look::kWindowMargin - kKeyWidth;
    const float printLeft = cancelLeft - 110 - kKeyWidth;
    const float fieldLeft = look::kWindowMargin + 1080;
    place(Label9, {look::kWindowMargin + 60, keyTop + 120, 950, 180},
          look::kDialogText.in(look::kCaptionColour), "Comment");
    place(Text1, {fieldLeft, keyTop + 65, printLeft - kThirdKey - 110 - fieldLeft, 290},
          look::kDialogText, Says{"Comentario de la página", "Comment of the page"})
        .maxLength = kLongestComment;
    place(SSCommand2, {printLeft, keyTop, kKeyWidth, look::kKeyHeight}, "Print", Role::Default,
          Says{"Imprimir la página", "Print the page"});
    place(SSCommand1, {cancelLeft, keyTop, kKeyWidth, look::kKeyHeight}, "Cancel", Role::Cancel,
          Says{"Cerrar la página; el comentario queda", "Close the page; the comment stays"});
    likePdfKey(place(KeyPdf, {printLeft - kThirdKey, keyTop, kThirdKey - 110, look::kKeyHeight}));
    tabOrder(Text1, KeyPdf, SSCommand2, SSCommand1);
}

}  // namespace hmonitor
