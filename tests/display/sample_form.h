// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "display/chart.h"
#include "display/controls/buttons.h"
#include "display/controls/containers.h"
#include "display/controls/labels.h"
#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/plot.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/shapes.h"
#include "display/controls/text_field.h"
#include "display/family.h"
#include "display/form.h"

namespace display::test {

/// A form with one of each control, as any desktop has to show it: a container with a unit of its
/// own, keys of two pictures, a handle, tabs with a page each, two timers. It notes its events in
/// `heard`, one line an event: "Key1 click", "Timer1 tick".
class SampleForm final : public Form {
 public:
    explicit SampleForm(Desktop& desktop, std::string name = "SampleForm");

    /// The events since the list was last cleared, in order.
    std::vector<std::string> heard;
    /// Whether a line is among the events.
    bool didHear(std::string_view line) const;
    /// If set, closing the window is only noted and the window stays open.
    bool staysOpen = false;
    bool raisesResize = false;

    void closeRequested() override;
    void resized() override { heard.emplace_back("resized"); }
    bool raisesResizeAtShow() const override { return raisesResize; }
    void activated() override { heard.emplace_back("activated"); }

    Panel Panel1{*this, "Panel1"};  ///< the faceplate, in twips
    Panel Panel2{*this, "Panel2"};  ///< a well whose unit is 15 twips
    Picture Handle1{*this, "Handle1"};
    Label Label1{*this, "Label1"};
    Label LabelValue{*this, "LabelValue"};
    Line Line1{*this, "Line1"};
    Family<Line, 3> LineBar{*this, "LineBar"};
    Shape Shape1{*this, "Shape1"};
    Picture KeyN{*this, "KeyN"};
    Picture Lamp1{*this, "Lamp1"};
    PictureBox PictureBox1{*this, "PictureBox1"};
    Key Key1{*this, "Key1"};
    Key KeyDefault{*this, "KeyDefault"};
    Key KeyCancel{*this, "KeyCancel"};
    TextField Text1{*this, "Text1"};
    CheckBox Check1{*this, "Check1"};
    Panel Group1{*this, "Group1"};
    Option Option1{*this, "Option1"};
    Option Option2{*this, "Option2"};
    Option OptionApart{*this, "OptionApart"};
    ComboBox Combo1{*this, "Combo1"};
    ListBox List1{*this, "List1"};
    ScrollBar HScroll1{*this, "HScroll1"};
    Tabs Tabs1{*this, "Tabs1"};
    Panel Page1{*this, "Page1"};
    Panel Page2{*this, "Page2"};
    Label LabelPage1{*this, "LabelPage1"};
    Key KeyPage2{*this, "KeyPage2"};
    Chart Chart1{*this, "Chart1"};
    Plot Plot1{*this, "Plot1"};

    Timer Timer1{*this, "Timer1"};
    Timer Timer2{*this, "Timer2"};

 protected:
    void layOut() override;
    void onLoad() override { heard.emplace_back("load"); }
    void onUnload() override { heard.emplace_back("unload"); }

 private:
    void bind();
    void layOutPanels();
    void layOutPainted();
    void layOutKeys();
    void layOutFields();
    void layOutTabs();
    Event says(std::string line);
};

}  // namespace display::test
