// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/chart.h"
#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/scroll_bar.h"
#include "display/family.h"
#include "display/number_table.h"
#include "performance/day_tables.h"
#include "program/program_form.h"

namespace hmonitor {

/// The on-air performance log: one day as six charts, hour by hour, and its printed page, which
/// `Form4` shows.
class Form_D4A final : public ProgramForm {
 public:
    explicit Form_D4A(Program& program);

    void closeRequested() override;

    /// Clears the six charts.
    void Reset();
    /// Reads the day that `Combo1` has chosen and draws charts and page.
    void Leer();
    /// Draws the page of the day that was read last on `Form4`; nothing while no day is chosen.
    void drawPage();

    /// The day that was read last, here or as text: it outlives the loads of both windows.
    DayTables tables;

    static constexpr int kFirstLabel = 8;
    static constexpr std::size_t kLabels = 29;  ///< `Label8` to `Label36`
    static constexpr std::size_t kWells = 4;
    static constexpr std::size_t kCharts = 6;

    display::Panel Faceplate{*this, "Faceplate"};
    display::Panel SSPanel1{*this, "SSPanel1"};  ///< moves the window
    display::Label Heading{*this, "Heading"};
    display::Label Label_Station{*this, "Label_Station"};
    display::Label Label_Mhz{*this, "Label_Mhz"};
    /// Of `Graph1`; of `Graph2`; of `Graph3` and `Graph5`; of `Graph4` and `Graph6`.
    display::Family<display::Panel, kWells> Well{*this, "Well"};
    // What the scrollers nudge behind the charts.
    display::Picture Picture1{*this, "Picture1"};
    display::Picture Picture4{*this, "Picture4"};
    display::Picture Picture5{*this, "Picture5"};
    display::Picture Picture2{*this, "Picture2"};
    display::Family<display::Panel, kCharts> View{*this, "View"};  ///< the part that is seen
    display::Family<display::Chart, kCharts> Graph{*this, "Graph#", 1};
    /// The charts' captions, "Retrive", and hour marks that go with the charts.
    display::Family<display::Label, kLabels, kFirstLabel> Label{*this, "Label#"};
    display::Family<display::Label, 28> Scale{*this, "Scale"};  ///< beside the charts
    display::Family<display::Label, 3> Unit{*this, "Unit"};
    display::ComboBox Combo1{*this, "Combo1"};  ///< the day
    display::ListBox File1{*this, "File1"};     ///< the logs of the folder; hidden
    display::ScrollBar HScroll1{*this, "HScroll1"};
    display::ScrollBar HScroll2{*this, "HScroll2"};
    display::Key SSCommand1{*this, "SSCommand1"};  ///< print mode
    display::Key SSCommand2{*this, "SSCommand2"};  ///< text mode
    display::Key SSCommand3{*this, "SSCommand3"};  ///< close

 protected:
    void layOut() override;
    void onLoad() override;
    void onUnload() override;

 private:
    /// To which side a background was nudged last: empty or "1".
    using Side = SmallText;

    void layOutHead();
    void layOutWells();
    void layOutChart(std::size_t chart);
    void layOutCaptions();
    void layOutHourMarks();
    void layOutFoot();

    void listDays();
    void plot();
    void scrollUpper();
    void scrollLower();
    void moveCharts(std::size_t first, std::size_t last, float edge);
    std::string tellCell(const display::Chart& chart, int row, int column) const;
    display::NumberTable numbersOf(std::size_t chart) const;
    static void nudge(display::Picture& background, Side& side);
    void showText();
    void close();

    Side sideOfPicture1_, sideOfPicture4_, sideOfPicture5_, sideOfPicture2_;
};

}  // namespace hmonitor
