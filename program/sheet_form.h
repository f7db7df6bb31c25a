// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/controls/pictures.h"
#include "display/controls/text_field.h"
#include "program/program_form.h"

namespace hmonitor {

/// A window that looks like a sheet of paper: head, date, what was measured, and a comment that the
/// user types below it. "Print" prints the sheet alone and unloads the form; "Cancel" hides the
/// form and keeps the comment.
class SheetForm : public ProgramForm {
 public:
    void closeRequested() override { SSCommand1.press(); }

    /// Shows it above the window that asks for it.
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
    /// Prepares the page for printing, or puts it back for the screen.
    virtual void dress(For what) = 0;

    bool firstBrand() const { return program.words.gBrand == "Marvenia"; }

    /// Lays out the window, the sheet of that size in twips, and what all pages have.
    void layOutSheet(float sheetWidth, float sheetHeight, const char* title);
    /// The heading at the upper left of the sheet.
    void placeHeading(display::Label& heading, const char* words);

    /// The distance from the sheet's edge to its contents, and the gap below the rule under its
    /// head.
    static constexpr float kSheetMargin = 360;
    static constexpr float kSheetBody = 1240;
    /// The height of comment and foot line at the bottom of the sheet.
    static constexpr float kSheetFoot = 1120;

 private:
    void print();
    void savePdf();
    /// The sheet as Print would print it now; the page itself is not changed.
    std::string pdf();
    void layOutFoot(float keyTop);

    /// The comment of a page that was not printed: the next load brings it back.
    std::string unprintedComment_;
    bool placed_ = false;  ///< was shown before; from then on the user decides its position
};

}  // namespace hmonitor
