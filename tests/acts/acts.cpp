// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/acts/acts.h"

#include "display/chart.h"
#include "display/controls/buttons.h"
#include "display/controls/containers.h"
#include "display/controls/control_visitor.h"
#include "display/controls/labels.h"
#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/plot.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/shapes.h"
#include "display/controls/text_field.h"
#include "display/page.h"

namespace hmonitor::test {

namespace {

using namespace display;

/// Every way to act on one control.
class WaysToAct final : public ControlVisitor {
 public:
    WaysToAct(Hand& hand, std::vector<Act>& acts) : hand_(hand), acts_(acts) {}

    void visit(Label&) override {}
    void visit(Line&) override {}
    void visit(Shape&) override {}
    void visit(Chart& chart) override { takeOut(chart); }
    void visit(PagePreview&) override {}
    void visit(Picture& key) override {
        if (key.onPress || key.onRelease || key.onClick) {
            add(key, "click", [&hand = hand_, &key] { hand.click(key); });
            add(key, "press", [&hand = hand_, &key] { hand.press(key); });
            add(key, "press, cancel", [&hand = hand_, &key] { hand.press(key), hand.cancel(key); });
        }
        if (key.onDoubleClick) doubleClick(key);
        if (key.onMouseDown) drag(key);
    }
    void visit(Panel& panel) override {
        if (panel.onDoubleClick) doubleClick(panel);
        if (panel.onMouseDown) drag(panel);
    }
    void visit(PictureBox& box) override {
        if (box.onDoubleClick) doubleClick(box);
        takeOut(box);
    }
    void visit(Key& key) override {
        add(key, "click", [&hand = hand_, &key] { hand.click(key); });
    }
    void visit(TextField& field) override {
        add(field, "edit", [&hand = hand_, &field] { hand.edit(field, "7"); });
        add(field, "empty", [&hand = hand_, &field] { hand.edit(field, ""); });
        add(field, "enter", [&hand = hand_, &field] { hand.enter(field); });
    }
    void visit(CheckBox& box) override {
        add(box, "check", [&hand = hand_, &box] { hand.check(box, !box.checked); });
    }
    void visit(Option& option) override {
        add(option, "choose", [&hand = hand_, &option] { hand.choose(option); });
    }
    void visit(Tabs& tabs) override {
        for (int tab = 0; tab < static_cast<int>(tabs.pages().size()); ++tab) {
            add(tabs, "choose", [&hand = hand_, &tabs, tab] { hand.choose(tabs, tab); });
        }
    }
    void visit(ComboBox& box) override { selectIn(box); }
    void visit(ListBox& box) override {
        selectIn(box);
        if (box.onDoubleClick) doubleClick(box);
    }
    void visit(Plot& plot) override {
        add(plot, "zoom in", [&hand = hand_, &plot] { hand.zoom(plot, 2, 0.3); });
        add(plot, "zoom out", [&hand = hand_, &plot] { hand.zoom(plot, 0.1, 0.9); });
        add(plot, "drag", [&hand = hand_, &plot] { hand.shift(plot, -0.4); });
        add(plot, "to the end", [&hand = hand_, &plot] { hand.press(plot, PlotKey::Last); });
        add(plot, "to the begin", [&hand = hand_, &plot] { hand.press(plot, PlotKey::First); });
        add(plot, "mark", [&hand = hand_, &plot] {
            hand.point(plot, 0, 0.25);
            hand.press(plot, PlotKey::OtherRight);
        });
        add(plot, "no marks", [&hand = hand_, &plot] { hand.press(plot, PlotKey::NoMarks); });
        takeOut(plot);
    }
    void visit(ScrollBar& bar) override {
        add(bar, "to the start", [&hand = hand_, &bar] { hand.set(bar, bar.minimum); });
        add(bar, "to the end", [&hand = hand_, &bar] { hand.set(bar, bar.maximum); });
        add(bar, "step", [&hand = hand_, &bar] { hand.scroll(bar, 1); });
        add(bar, "page back", [&hand = hand_, &bar] { hand.page(bar, -1); });
        add(bar, "drag and drop", [&hand = hand_, &bar] { hand.drag(bar, 3), hand.drop(bar); });
        add(bar, "drag", [&hand = hand_, &bar] { hand.drag(bar, 5); });
    }

 private:
    void add(const Control& control, const char* how, std::function<void()> go) {
        acts_.push_back({control.form().name() + "." + control.name() + " " + how, std::move(go)});
    }
    template <class List>
    void selectIn(List& list) {
        for (const int row : {-1, 0, 1, 99}) {
            add(list, "select", [&hand = hand_, &list, row] { hand.select(list, row); });
        }
    }
    void doubleClick(Control& control) {
        add(control, "double click", [&hand = hand_, &control] { hand.doubleClick(control); });
    }
    void drag(Control& handle) {
        add(handle, "drag", [&hand = hand_, &handle] {
            hand.mouseDown(handle, Mouse{10, 10, true});
            hand.mouseMove(handle, Mouse{70, 40, true});
            hand.mouseUp(handle, Mouse{70, 40, false});
        });
    }
    void takeOut(Control& drawing) {
        if (!drawing.numbers) return;
        add(drawing, "copy picture", [&hand = hand_, &drawing] { hand.copyPicture(drawing); });
        add(drawing, "copy numbers", [&hand = hand_, &drawing] { hand.copyNumbers(drawing); });
        add(drawing, "save", [&hand = hand_, &drawing] { hand.save(drawing); });
    }

    Hand& hand_;
    std::vector<Act>& acts_;
};

}  // namespace

std::vector<Act> actsOn(Form& form, Hand& hand) {
    std::vector<Act> acts;
    WaysToAct ways(hand, acts);
    for (Control* control : form.controls()) control->accept(ways);
    const std::string& name = form.name();
    acts.push_back({name + " close", [&] { hand.close(form); }});
    acts.push_back({name + " escape", [&] { hand.escape(form); }});
    acts.push_back({name + " enter", [&] { hand.enter(form); }});
    acts.push_back({name + " help", [&] { hand.help(form); }});
    acts.push_back({name + " unfold", [&] { hand.unfold(form); }});
    return acts;
}

std::vector<Act> pairsOf(const std::vector<Act>& acts) {
    std::vector<Act> pairs;
    for (const Act& first : acts) {
        for (const Act& second : acts) {
            pairs.push_back({first.name + ", " + second.name, [first, second] {
                                 first.go();
                                 second.go();
                             }});
        }
    }
    return pairs;
}

}  // namespace hmonitor::test
