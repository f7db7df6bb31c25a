// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/controls/lists.h"
#include "display/family.h"
#include "display/page.h"
#include "performance/day_tables.h"
#include "program/program_form.h"

namespace hmonitor {

/// One day of the on-air log as text: six lists in two tabs, and the report of the same figures.
class Form15 final : public ProgramForm {
 public:
    explicit Form15(Program& program);

    void closeRequested() override;
    /// Reads the day that `Form_D4A` has chosen and fills the six lists.
    void Leer();

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};    ///< moves the window
    display::Panel SSPanel2{*this, "SSPanel2"};    ///< "Text Mode"
    display::Panel SSPanel22{*this, "SSPanel22"};  ///< the day in brackets
    display::Label Station{*this, "Station"};      ///< whose day it is
    display::Tabs SSTab1{*this, "SSTab1"};
    display::Panel Page1{*this, "Page1"};
    display::Panel Page2{*this, "Page2"};
    display::Family<display::Label, 2> Title{*this, "Title"};      ///< of the first page's lists
    display::Family<display::Label, 7> Label{*this, "Label#", 2};  ///< `Label2` to `Label8`
    display::Family<display::Label, 6> Time{*this, "Time"};        ///< heads of the lists
    display::Family<display::Label, 8> Value{*this, "Value"};
    display::Family<display::ListBox, 6> List{*this, "List#", 1};  ///< `List1` to `List6`
    display::Key SSCommand2{*this, "SSCommand2"};                  ///< print the report
    display::Key KeyPdf{*this, "KeyPdf"};                          ///< the report as a file
    display::Key SSCommand1{*this, "SSCommand1"};                  ///< back to the charts

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void layOutFirstPage();
    void layOutSecondPage();
    std::string_view day() const;
    display::PageDocument report() const;
    void savePdf();
    void close();

    DayTables& tables_;
};

}  // namespace hmonitor
