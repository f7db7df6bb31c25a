// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/form.h"

#include <utility>

namespace display {

Form::Form(Desktop& desktop, std::string name)
    : Revised(ticks_), desktop_(desktop), name_(std::move(name)) {
    desktop.forms_.push_back(this);
}

Form::~Form() {
    desktop_.formDestroyed(*this);
    desktop_.queue().forget(*this);
    std::erase(desktop_.forms_, this);
}

void Form::resetToLayout() {
    layingOut_ = true;
    caption = "";
    enabled = true;
    topmost = false;
    windowState = WindowState::Normal;
    for (Control* control : controls_) control->reset();
    for (Timer* timer : timers_) timer->reset();
    layOut();
    layingOut_ = false;
}

void Form::load() {
    if (loaded_) return;
    // The form counts as loaded before onLoad() runs, since what that calls may refer to this form
    // again.
    loaded_ = true;
    resetToLayout();
    desktop_.formLoaded(*this);
    onLoad();
}

void Form::show() {
    load();
    if (visible) return;
    visible = true;
    desktop_.formShown(*this);
    activated();
}

void Form::showModal() {
    load();
    visible = true;
    desktop_.formShown(*this);
    activated();
    desktop_.runModal(*this);
    if (desktop_.ended()) throw ProgramEnded{};
}

void Form::hide() {
    if (!visible) return;
    visible = false;
    desktop_.formHidden(*this);
}

void Form::unload() {
    if (!loaded_) return;
    onUnload();
    hide();
    for (Timer* timer : timers_) timer->enabled = false;
    desktop_.queue().forget(*this);
    loaded_ = false;
}

void Form::minimise() {
    windowState = WindowState::Minimised;
    desktop_.formMinimised(*this);
}

Control* Form::find(std::string_view name) const {
    for (Control* control : controls_) {
        if (control->name() == name) return control;
    }
    return nullptr;
}

Timer* Form::findTimer(std::string_view name) const {
    for (Timer* timer : timers_) {
        if (timer->name() == name) return timer;
    }
    return nullptr;
}

namespace {

template <class Wanted>
Key* firstKey(const Form& form, Wanted wanted) {
    for (Control* control : form.controls()) {
        auto* key = dynamic_cast<Key*>(control);
        if (key && wanted(*key) && key->shown() && key->usable()) return key;
    }
    return nullptr;
}

}  // namespace

Key* Form::defaultKey() const {
    return firstKey(*this, [](const Key& key) { return key.isDefault; });
}

Key* Form::cancelKey() const {
    return firstKey(*this, [](const Key& key) { return key.isCancel; });
}

}  // namespace display
