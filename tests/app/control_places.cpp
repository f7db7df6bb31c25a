// SPDX-License-Identifier: GPL-3.0-or-later
// Prints where each control of each window stands, for hands that act on the screen: one line a
// control, "FORM CONTROL LEFT TOP WIDTH HEIGHT" in twips from the window's upper left corner, and
// "FORM . 0 0 WIDTH HEIGHT" for the window itself.
#include <algorithm>
#include <cstdio>
#include <exception>

#include "display/chart.h"
#include "display/controls.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace display;

/// A control's box in its container: what a line spans stands in its ends.
class InContainer final : public ControlVisitor {
 public:
    Box box;

    explicit InContainer(Control& control)
        : box{control.left, control.top, control.width, control.height} {
        control.accept(*this);
    }

    void visit(Line& line) override {
        const auto [left, right] = std::minmax(line.x1.get(), line.x2.get());
        const auto [top, bottom] = std::minmax(line.y1.get(), line.y2.get());
        box = {left, top, right - left, bottom - top};
    }
    void visit(Label&) override {}
    void visit(Shape&) override {}
    void visit(Picture&) override {}
    void visit(Panel&) override {}
    void visit(PictureBox&) override {}
    void visit(Key&) override {}
    void visit(TextField&) override {}
    void visit(CheckBox&) override {}
    void visit(Option&) override {}
    void visit(ComboBox&) override {}
    void visit(ListBox&) override {}
    void visit(ScrollBar&) override {}
    void visit(Tabs&) override {}
    void visit(Chart&) override {}
    void visit(PagePreview&) override {}
};

Box onForm(Control& control) {
    Box box = InContainer(control).box;
    for (const Panel* in = control.container; in; in = in->container) {
        const float unit = in->unit;
        box = {in->left + box.left * unit, in->top + box.top * unit, box.width * unit,
               box.height * unit};
    }
    return box;
}

void print(const Form& form, const char* control, const Box& box) {
    std::printf("%s %s %.1f %.1f %.1f %.1f\n", form.name().c_str(), control, box.left, box.top,
                box.width, box.height);
}

void printAll() {
    hmonitor::test::RackBench bench;
    bench.start();
    for (Form* form : bench.desktop.forms()) {
        form->load();
        print(*form, ".", {0, 0, form->width, form->height});
        for (Control* control : form->controls()) {
            print(*form, control->name().c_str(), onForm(*control));
        }
    }
}

}  // namespace

int main() {
    try {
        printAll();
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "control_places: %s\n", fault.what());
        return 1;
    }
}
