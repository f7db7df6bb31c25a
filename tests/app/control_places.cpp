// SPDX-License-Identifier: GPL-3.0-or-later
// Prints where each control of each window stands, for hands that act on the screen: one line a
// control, "FORM CONTROL LEFT TOP WIDTH HEIGHT" in twips from the window's upper left corner, and
// "FORM . 0 0 WIDTH HEIGHT" for the window itself.
#include <cstdio>
#include <exception>

#include "display/chart.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace display;

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
            print(*form, control->name().c_str(), control->boxOnForm());
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
