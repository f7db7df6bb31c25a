// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/event_queue.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "display/control.h"
#include "display/form.h"

namespace display {

namespace {

/// Sets a flag for the length of a scope.
class Scope {
 public:
    explicit Scope(bool& flag) : flag_(flag), before_(flag) { flag = true; }
    ~Scope() { flag_ = before_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

 private:
    bool& flag_;
    bool before_;
};

}  // namespace

void EventQueue::remove(Timer& timer) {
    std::erase(timers_, &timer);
}

void EventQueue::post(Input input) {
    inputs_.push_back(std::move(input));
}

void EventQueue::forget(const display::Form& form) {
    for (std::deque<Input>* inputs : {&inputs_, &waiting_}) {
        std::erase_if(*inputs, [&form](const Input& input) { return input.form == &form; });
    }
}

Timer* EventQueue::nextTimer() const {
    Timer* next = nullptr;
    for (Timer* timer : timers_) {
        // A timer with an interval of 0 never ticks.
        if (!timer->enabled || timer->inHandler_ || timer->interval.interval_.count() <= 0)
            continue;
        if (!next || timer->due_ < next->due_ ||
            (timer->due_ == next->due_ && timer->order_ < next->order_)) {
            next = timer;
        }
    }
    return next;
}

std::optional<Time> EventQueue::nextDue() const {
    if (!inputs_.empty()) return now();
    const std::optional<Time> result = results_.nextDue();
    const Timer* next = nextTimer();
    if (!next) return result;
    return std::min(next->due_, result.value_or(next->due_));
}

bool EventQueue::standsOpen(const Input& input) const {
    return !input.form || (input.form->loaded() && input.form->visible);
}

bool EventQueue::isKeptOut(const Input& input) const {
    return input.waits && standsOpen(input) && (!modals_.empty() || filter());
}

void EventQueue::bringBack() {
    inputs_.insert(inputs_.begin(), std::make_move_iterator(waiting_.begin()),
                   std::make_move_iterator(waiting_.end()));
    waiting_.clear();
}

void EventQueue::popModal() {
    modals_.pop_back();
    bringBack();
}

void EventQueue::popFilter() {
    filters_.pop_back();
    bringBack();
}

bool EventQueue::passes(const Input& input) const {
    if (!standsOpen(input)) return false;
    if (!modals_.empty() && input.form != modals_.back().form) return false;
    const bool ownWindow = input.kind == Input::Kind::Form;
    if (!ownWindow && input.form && !input.form->enabled) return false;
    if (input.control && (!input.control->shown() || !input.control->usable())) {
        return false;
    }
    const RunFilter* run = filter();
    if (!run || input.kind == Input::Kind::MoveWindow || input.kind == Input::Kind::FormKey)
        return true;
    if (input.control) return hears(*input.control);
    if (input.form && input.form->looksOn) return true;
    return std::ranges::find(run->closable, input.form) != run->closable.end();
}

const EventQueue::RunFilter* EventQueue::filter() const {
    // A modal form that a run opened must get its input, or the run would never end.
    const std::size_t unfiltered = modals_.empty() ? 0 : modals_.back().runsBefore;
    return filters_.size() > unfiltered ? &filters_.back() : nullptr;
}

bool EventQueue::hears(const display::Control& control) const {
    const RunFilter* run = filter();
    return !run || control.form().looksOn ||
           std::ranges::find(run->controls, &control) != run->controls.end();
}

void EventQueue::runInput(Input input) {
    if (passes(input)) {
        input.act();
    } else if (isKeptOut(input)) {
        waiting_.push_back(std::move(input));
    }
}

void EventQueue::runTimers(Time until) {
    // Each timer ticks at most once in a pass: missed ticks have merged into this one.
    while (Timer* timer = nextTimer()) {
        if (timer->due_ > until) return;
        const Time interval = timer->interval.interval_;
        const Time late = until - timer->due_;
        timer->due_ += interval * (late / interval + 1);
        Scope inHandler(timer->inHandler_);
        if (timer->onTick) timer->onTick();
    }
}

void EventQueue::runInputs() {
    while (!inputs_.empty()) {
        Input input = std::move(inputs_.front());
        inputs_.pop_front();
        runInput(std::move(input));
    }
}

void EventQueue::runDue() {
    const Time until = now();
    runInputs();
    results_.run(until);
    runTimers(until);
}

void EventQueue::runModalPass() {
    const Time until = now();
    runInputs();
    results_.run(until);
    if (gateOpen_) runTimers(until);
}

void EventQueue::runBoxPass() {
    const Time until = now();
    results_.run(until);
    if (gateOpen_) runTimers(until);
}

void EventQueue::letThrough() {
    if (!gateOpen_ || inPass_) return;
    Scope inPass(inPass_);
    const Time until = now();
    // Input that arrives during the pass waits for the next one.
    for (std::size_t left = inputs_.size(); left > 0 && !inputs_.empty(); --left) {
        Input input = std::move(inputs_.front());
        inputs_.pop_front();
        runInput(std::move(input));
    }
    results_.run(until);
    runTimers(until);
}

}  // namespace display
