// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/acts/kinds_of_calls.h"

#include <algorithm>
#include <map>

#include "display/controls/buttons.h"

namespace hmonitor::test {

namespace {

std::string kindOf(const display::EventQueue& queue, const display::Control& control) {
    std::string kind = control.usable() ? "u" : control.shown() ? "s" : "-";
    if (queue.hears(control)) kind += 'h';
    if (const auto* key = dynamic_cast<const display::Key*>(&control)) kind += key->caption.get();
    return kind;
}

std::string kindOf(const display::EventQueue& queue, const display::Form& form) {
    std::string kind = form.name() + (form.visible ? " visible" : "");
    for (const display::Timer* timer : form.timers()) kind += timer->enabled ? '1' : '0';
    if (!form.visible) return kind;
    if (form.windowState == display::WindowState::Minimised) kind += " folded";
    for (const display::Control* control : form.controls()) {
        if (control->interactive()) kind += kindOf(queue, *control);
    }
    return kind;
}

}  // namespace

std::string kindOfCall(RunBench& bench, const char* function) {
    const display::EventQueue& queue = bench.desktop.queue();
    std::string kind = function;
    kind += queue.running() ? " in a run" : "";
    if (const display::Form* window = bench.program.unitInUse.window)
        kind += " of " + window->name();
    for (const display::Form* form : bench.desktop.forms()) {
        if (form->loaded()) kind += '|' + kindOf(queue, *form);
    }
    return kind;
}

std::vector<int> callsOfEachKind(const std::vector<std::string>& kinds) {
    struct Seen {
        int first = -1, second = -1, last = -1;
    };
    std::map<std::string, Seen> seen;
    for (int i = 0; i < static_cast<int>(kinds.size()); ++i) {
        Seen& its = seen[kinds[static_cast<std::size_t>(i)]];
        if (its.first < 0) {
            its.first = i;
        } else if (its.second < 0) {
            its.second = i;
        } else {
            its.last = i;
        }
    }
    std::vector<int> calls;
    for (const auto& [kind, its] : seen) {
        for (const int call : {its.first, its.second, its.last}) {
            if (call >= 0) calls.push_back(call);
        }
    }
    std::ranges::sort(calls);
    return calls;
}

}  // namespace hmonitor::test
