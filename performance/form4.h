// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/controls/pictures.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/text_field.h"
#include "display/page.h"
#include "program/program_form.h"

namespace hmonitor {

/// The preview of the day's page, with its zoom, its comment and the key that prints it.
class Form4 final : public ProgramForm {
 public:
    explicit Form4(Program& program);

    void closeRequested() override;
    void activated() override;

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};  ///< moves the window
    display::Label Heading{*this, "Heading"};
    display::Panel Letterhead{*this, "Letterhead"};
    display::Picture Picture1{*this, "Picture1"};  ///< the logo that the page takes
    display::Picture Picture4{*this, "Picture4"};  ///< the second brand's logo
    display::PagePreview ViewPro1{*this, "ViewPro1"};
    display::Label Frame1{*this, "Frame1"};  ///< "Zoom"
    display::ScrollBar hscZoom{*this, "hscZoom"};
    display::Label Percent{*this, "Percent"};
    display::Label Label9{*this, "Label9"};        ///< "Comment"
    display::TextField Text1{*this, "Text1"};      ///< the comment
    display::Key SSCommand3{*this, "SSCommand3"};  ///< draws the page again
    display::Key SSCommand2{*this, "SSCommand2"};  ///< print
    display::Key KeyPdf{*this, "KeyPdf"};          ///< the page as a file
    display::Key SSCommand1{*this, "SSCommand1"};  ///< hide

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void setZoom();
    void print();
    void savePdf();

    /// The comment that no paper has carried yet: it comes back with the next load.
    std::string unprintedComment_;
    bool placed_ = false;  ///< has stood on the screen; from then on its place is the user's
};

}  // namespace hmonitor
