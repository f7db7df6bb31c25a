// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/controls/pictures.h"
#include "display/controls/text_field.h"
#include "program/program_form.h"

namespace hmonitor {

/// A page that looks like a sheet of paper: head, date, what was measured, and a comment that the
/// user types below it. "Print" prints the sheet without the window around it and unloads the
/// form; "Cancel" hides it, and the comment stays.
class SheetForm : public ProgramForm {
 public:
    void closeRequested() override { SSCommand1.press(); }

    /// Shows it, above the window that asks for it.
    void open();

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};  ///< moves the window
    display::Label Title{*this, "Title"};
    display::Panel Sheet{*this, "Sheet"};          ///< what is printed
    display::Line HeadRule{*this, "HeadRule"};     ///< under head and date
    display::Picture Picture2{*this, "Picture2"};  ///< the logo
    display::Picture Picture4{*this, "Picture4"};  ///< holds the second brand's logo
    display::Label Label2{*this, "Label2"};        ///< the date line
    display::Label Label1{*this, "Label1"};        ///< a line at the foot, on paper only
    display::TextField Text2{*this, "Text2"};      ///< the comment on paper
    display::Label Label9{*this, "Label9"};        ///< "Comment"
    display::TextField Text1{*this, "Text1"};      ///< the comment as it is typed
    display::Key SSCommand2{*this, "SSCommand2"};  ///< print
    display::Key KeyPdf{*this, "KeyPdf"};          ///< the same sheet as a file
    display::Key SSCommand1{*this, "SSCommand1"};  ///< cancel

 protected:
    SheetForm(Program& program, std::string name);

    void onLoad() override;

    enum class For { Paper, Screen };
    /// Makes the page ready for the paper, or puts it back as it stands on the screen.
    virtual void dress(For what) = 0;

    bool firstBrand() const { return program.words.gBrand == "Marvenia"; }

    /// Window, sheet and what all pages have, around a sheet of that size in twips.
    void layOutSheet(float sheetWidth, float sheetHeight, const char* title);
    /// The heading at the upper left of the sheet.
    void placeHeading(display::Label& heading, const char* words);

    /// From the sheet's edge to what stands on it, and below the rule under its head.
    static constexpr float kSheetMargin = 360;
    static constexpr float kSheetBody = 1240;
    /// What comment and foot line take at the sheet's foot.
    static constexpr float kSheetFoot = 1120;

 private:
    void print();
    void savePdf();
    /// The sheet as Print would print it now; nothing of the page is changed behind it.
    std::string pdf();
    void layOutFoot(float keyTop);

    /// The comment of a page that did not reach the printer: it comes back with the next load.
    std::string unprintedComment_;
    bool placed_ = false;  ///< has stood on the screen; from then on its place is the user's
};

}  // namespace hmonitor
