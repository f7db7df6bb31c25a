// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/acts/rack_in_order.h"

#include <algorithm>

#include "display/controls/buttons.h"
#include "display/controls/pictures.h"
#include "display/controls/scroll_bar.h"

namespace hmonitor::test {

namespace {

using namespace std::chrono_literals;

/// Replaces a control's handler, if it has one, and puts it back at the end.
class Listening {
 public:
    explicit Listening(display::Event& handler) : handler_(handler), own_(std::move(handler)) {
        heard_ = !own_;
        handler_ = [this] { heard_ = true; };
    }
    ~Listening() { handler_ = std::move(own_); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
    bool heard() const { return heard_; }

 private:
    display::Event& handler_;
    display::Event own_;
    bool heard_ = false;
};

/// Whether a click reaches the key.
bool answers(RunBench& bench, display::Picture& key) {
    const Listening press(key.onPress), release(key.onRelease), click(key.onClick);
    bench.hand.click(key);
    bench.desktop.settle();
    return press.heard() && release.heard() && click.heard();
}

bool answers(RunBench& bench, display::Key& key) {
    const Listening click(key.onClick);
    bench.hand.click(key);
    bench.desktop.settle();
    return click.heard();
}

bool answers(RunBench& bench, display::ScrollBar& bar) {
    const Listening change(bar.onChange);
    const int before = bar.value;
    bench.hand.set(bar, before == bar.minimum ? before + 1 : before - 1);
    bench.hand.set(bar, before);
    bench.desktop.settle();
    return change.heard();
}

bool answers(RunBench& bench, display::Control& control) {
    if (!control.visible) return true;
    if (auto* picture = dynamic_cast<display::Picture*>(&control)) {
        const bool isKey = picture->onPress || picture->onRelease || picture->onClick;
        return !isKey || answers(bench, *picture);
    }
    if (auto* key = dynamic_cast<display::Key*>(&control)) return answers(bench, *key);
    if (auto* bar = dynamic_cast<display::ScrollBar*>(&control)) return answers(bench, *bar);
    return true;
}

std::string keysThatDoNotAnswer(RunBench& bench) {
    std::string silent;
    for (display::Form* panel : bench.program.rack) {
        for (display::Control* control : panel->controls()) {
            if (!answers(bench, *control)) silent += " " + panel->name() + "." + control->name();
        }
    }
    return silent;
}

std::string lastOrder(const std::vector<std::string>& calls) {
    for (auto call = calls.rbegin(); call != calls.rend(); ++call) {
        for (const char* order : {"HM_Normal", "HM_Parar", "HM_StartEspectro", "HM_Super"}) {
            if (call->starts_with(order)) return order;
        }
    }
    return "";
}

}  // namespace

std::string closeAll(RunBench& bench) {
    constexpr int kPatience = 8;
    for (int i = 0; i < kPatience && !bench.windows().empty() && !bench.desktop.ended(); ++i) {
        const auto windows = bench.windows();
        // The newest first, as they lie on top of each other.
        for (auto window = windows.rbegin(); window != windows.rend(); ++window)
            bench.hand.close(**window);
        bench.settle();
        // A sweep goes on until its own key stops it.
        auto& scanner = bench.forms.formBandSCanner;
        if (scanner.visible && scanner.Command3D1.caption == "Stop")
            bench.click(scanner.Command3D1);
        bench.wait(700);
    }
    std::string open;
    for (const display::Form* window : bench.windows()) open += " " + window->name();
    return open;
}

std::string faultOf(RunBench& bench) {
    if (bench.form1.windowState == display::WindowState::Minimised) {
        bench.hand.unfold(bench.form1);
        bench.settle();
    }
    std::string wrong;
    const auto must = [&wrong](bool holds, const std::string& what) {
        if (!holds) wrong += (wrong.empty() ? "" : "; ") + what;
    };
    must(!bench.desktop.queue().running(), "a run still filters what passes");
    must(bench.program.unitInUse.window == nullptr, "a window still has the unit");
    for (const display::Form* panel : bench.program.rack)
        must(panel->enabled, panel->name() + " is disabled");
    must(bench.formB.Timer2.enabled, "the heart does not beat");
    if (!bench.inDemoMode()) {
        const std::string last = lastOrder(bench.called.calls);
        must(last.empty() || last == "HM_Normal", "the unit was last told " + last);
        const int before = bench.called.dataCalls;
        bench.wait(100);
        must(bench.called.dataCalls > before, "nobody asks the unit");
    }
    const std::string silent = keysThatDoNotAnswer(bench);
    must(silent.empty(), "no answer of" + silent);
    return wrong;
}

std::string faultOfEnd(RunBench& bench) {
    const auto& calls = bench.called.calls;
    const auto parar = std::ranges::find(calls.rbegin(), calls.rend(), "HM_Parar");
    if (calls.empty() || calls.back() != "HM_Terminate") return "HM_Terminate is not the last call";
    if (parar == calls.rend() || parar - calls.rbegin() != 1) return "HM_Parar is not before it";
    return "";
}

}  // namespace hmonitor::test
