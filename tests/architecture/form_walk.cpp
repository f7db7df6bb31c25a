// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/architecture/form_walk.h"

#include <algorithm>
#include <set>

#include "display/chart.h"
#include "display/controls/buttons.h"
#include "display/controls/containers.h"
#include "display/controls/scroll_bar.h"

namespace hmonitor::test {

using namespace display;

namespace {

/// Tolerance for an edge: half a twip of rounding.
constexpr float kSlack = 0.5f;

/// Whether a user's act on it reaches a handler. A field, a list or an option may have none: it is
/// read when another key is pressed.
bool isHandled(const Control& control) {
    if (const auto* key = dynamic_cast<const Key*>(&control)) return key->onClick != nullptr;
    if (const auto* bar = dynamic_cast<const ScrollBar*>(&control)) return bar->onChange != nullptr;
    return true;
}

class Walk {
 public:
    explicit Walk(const Form& form) : form_(form) {}

    std::vector<std::string> faults() {
        for (Control* control : form_.controls()) {
            checkName(*control);
            checkPlace(*control);
            if (control->interactive()) checkKey(*control);
        }
        checkOverlaps();
        return std::move(faults_);
    }

 private:
    void fault(const Control& control, const std::string& what) {
        faults_.push_back(form_.name() + "." + control.name() + " " + what);
    }

    void checkName(const Control& control) {
        if (control.name().empty()) fault(control, "has no name");
        if (!names_.insert(control.name()).second) fault(control, "has a name that stands twice");
    }

    void checkPlace(Control& control) {
        if (control.timesPlaced != 1) {
            fault(control, "is placed " + std::to_string(control.timesPlaced) + " times");
            return;
        }
        const Box box = control.boxInContainer();
        const Panel* in = control.container;
        const float unit = in ? in->unit.get() : 1;
        const float width = (in ? in->width.get() : form_.width.get()) / unit;
        const float height = (in ? in->height.get() : form_.height.get()) / unit;
        if (box.left < -kSlack || box.top < -kSlack || box.right() > width + kSlack ||
            box.bottom() > height + kSlack) {
            fault(control, "reaches out of " + (in ? in->name() : std::string("its form")));
        }
    }

    void checkKey(Control& control) {
        if (!isHandled(control)) fault(control, "has no handler");
        if (*control.says.spanish == 0) fault(control, "has no accessible name in Spanish");
        if (*control.says.english == 0) fault(control, "has no accessible name in English");
        if (control.width <= 0 || control.height <= 0) fault(control, "has no size");
    }

    static bool overlap(const Box& a, const Box& b) {
        return a.left + kSlack < b.right() && b.left + kSlack < a.right() &&
               a.top + kSlack < b.bottom() && b.top + kSlack < a.bottom();
    }

    /// Controls on two pages of a tab row are never visible together, and the row itself surrounds
    /// its pages.
    static bool mayMeet(Control& a, Control& b) {
        return a.interactive() && b.interactive() && a.shown() && b.shown() &&
               !dynamic_cast<Tabs*>(&a) && !dynamic_cast<Tabs*>(&b);
    }

    void checkOverlaps() {
        const auto& controls = form_.controls();
        for (std::size_t i = 0; i < controls.size(); ++i) {
            for (std::size_t j = i + 1; j < controls.size(); ++j) {
                if (mayMeet(*controls[i], *controls[j]) &&
                    overlap(controls[i]->boxOnForm(), controls[j]->boxOnForm())) {
                    fault(*controls[i], "overlaps " + controls[j]->name());
                }
            }
        }
    }

    const Form& form_;
    std::set<std::string> names_;
    std::vector<std::string> faults_;
};

}  // namespace

std::vector<std::string> faultsOf(const Form& form) {
    return Walk(form).faults();
}

}  // namespace hmonitor::test
