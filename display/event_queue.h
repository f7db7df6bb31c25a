// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "display/timer.h"

namespace display {

class Control;
class Form;

/// What a person did, as it reaches the queue.
struct Input {
    enum class Kind {
        Control,     ///< acted on a control
        MoveWindow,  ///< dragged a window by a handle: passes during a run
        Form,        ///< closed, folded or unfolded a window, asked for help
        FormKey      ///< Enter or Escape: it acts if the key that it presses is heard (see hears)
    };
    Kind kind = Kind::Control;
    display::Form* form = nullptr;
    display::Control* control = nullptr;
    std::function<void()> act;
    /// What a run or a modal form keeps out is not lost: it comes when they are over.
    bool waits = false;
};

/// The queue of timers and input, one for every desktop: input in the order of its coming, then
/// timers by due time and by order of switching on. A desktop gives it the time, wakes it when the
/// next timer is due, and posts raw input.
class EventQueue {
 public:
    /// What a long run lets through while it holds the thread.
    struct RunFilter {
        std::vector<const display::Control*> controls;
        std::vector<const display::Form*> closable;
    };

    explicit EventQueue(std::function<Time()> clock) : clock_(std::move(clock)) {}

    Time now() const { return clock_(); }

    void post(Input input);

    /// Runs everything that is due now. Not for use inside a handler.
    void runDue();

    /// One pass inside a handler: due timers, and input that the running filter lets by. Does
    /// nothing before the gate is open, nor inside another pass.
    void letThrough();

    /// When the next timer is due; nothing if none runs. Due at once if input waits.
    std::optional<Time> nextDue() const;
    bool inputWaits() const { return !inputs_.empty(); }

    /// Until the rack measures, letting events through delivers paint only.
    void openGate() { gateOpen_ = true; }
    bool gateOpen() const { return gateOpen_; }

    /// A modal form or box stands: input passes as ever, to what is enabled, in a loop of its own.
    void runModalPass();
    /// A message box stands: time goes on, what a hand did before waits until it is answered.
    void runBoxPass();
    /// Input alone, for a widget that must show at once what became of it. Not for use inside a
    /// handler.
    void runInputs();

    /// While a modal form stands, the others hear nothing.
    void pushModal(const display::Form& form) { modals_.push_back({&form, filters_.size()}); }
    void popModal();

    void pushFilter(RunFilter filter) { filters_.push_back(std::move(filter)); }
    void popFilter();
    bool running() const { return !filters_.empty(); }
    /// True unless a run stands that does not list the control.
    bool hears(const display::Control& control) const;

    /// Forgets what waits for a form that goes away.
    void forget(const display::Form& form);

 private:
    friend class Timer;
    void add(Timer& timer) { timers_.push_back(&timer); }
    void remove(Timer& timer);

    Timer* nextTimer() const;
    void runInput(Input input);
    void runTimers(Time until);
    bool passes(const Input& input) const;
    bool standsOpen(const Input& input) const;
    bool isKeptOut(const Input& input) const;
    void bringBack();
    const RunFilter* filter() const;

    std::function<Time()> clock_;
    std::deque<Input> inputs_;
    /// Kept out, to come back later.
    std::deque<Input> waiting_;
    std::vector<Timer*> timers_;
    std::vector<RunFilter> filters_;
    /// A modal form, and how many runs stood when it opened: those do not filter it.
    struct Modal {
        const display::Form* form;
        std::size_t runsBefore;
    };
    std::vector<Modal> modals_;
    std::uint64_t nextOrder_ = 1;
    bool gateOpen_ = false;
    bool inPass_ = false;
};

}  // namespace display
