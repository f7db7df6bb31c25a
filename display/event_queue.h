// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "display/result_queue.h"
#include "display/timer.h"

namespace display {

class Control;
class Form;

/// One action of the user.
struct Input {
    enum class Kind {
        Control,     ///< acted on a control
        MoveWindow,  ///< dragged a window by a handle: let through during a run
        Form,        ///< closed, folded or unfolded a window, asked for help
        FormKey      ///< Enter or Escape: let through if the key that it presses is (see hears)
    };
    Kind kind = Kind::Control;
    display::Form* form = nullptr;
    display::Control* control = nullptr;
    std::function<void()> act;
    /// Input that a run or a modal form holds back is not lost: it is delivered when they are over.
    bool waits = false;
};

/// The queue of timers and input, the same for every desktop. Input comes in the order of its
/// arrival, then the results of threads, then timers by due time and by the order in which they
/// were enabled. A desktop gives the queue the time, wakes it when the next timer is due, and posts
/// the user's input.
class EventQueue {
 public:
    /// The controls that a long run listens to while it holds the thread.
    struct RunFilter {
        std::vector<const display::Control*> controls;
        std::vector<const display::Form*> closable;
    };

    explicit EventQueue(std::function<Time()> clock) : clock_(std::move(clock)) {}

    Time now() const { return clock_(); }

    void post(Input input);
    /// A thread has worked something out, which is taken from then on: whatever stands, but not
    /// before the gate is open inside a handler.
    void postResult(Time due, std::function<void()> take) { results_.post(due, std::move(take)); }

    /// Delivers everything that is due now. Must not be called inside a handler.
    void runDue();

    /// One pass inside a handler: delivers due timers and the input that the current run lets
    /// through. Does nothing while the gate is closed, nor inside another pass.
    void letThrough();

    /// When the next timer or result is due; none if there is none; now if input is waiting.
    std::optional<Time> nextDue() const;
    bool inputWaits() const { return !inputs_.empty(); }

    /// The gate opens when the rack measures. Until then letEventsThrough() delivers paint only.
    void openGate() { gateOpen_ = true; }
    bool gateOpen() const { return gateOpen_; }

    /// A modal form or box is open, in an event loop of its own: input goes to every enabled
    /// control as usual.
    void runModalPass();
    /// A message box is open: timers go on, earlier input waits until the box is answered.
    void runBoxPass();
    /// Delivers input alone, for a widget that must show the result at once. Must not be called
    /// inside a handler.
    void runInputs();

    /// While a modal form is open, other forms get no input.
    void pushModal(const display::Form& form) { modals_.push_back({&form, filters_.size()}); }
    void popModal();

    void pushFilter(RunFilter filter) { filters_.push_back(std::move(filter)); }
    void popFilter();
    bool running() const { return !filters_.empty(); }
    /// False if the current run does not listen to the control; windows that look on are always
    /// heard.
    bool hears(const display::Control& control) const;

    /// Drops the waiting input of a form that is being destroyed.
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
    ResultQueue results_;
    /// Held back until the run or the modal form is over.
    std::deque<Input> waiting_;
    std::vector<Timer*> timers_;
    std::vector<RunFilter> filters_;
    /// A modal form, and how many runs were going on when it opened: those do not filter its input.
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
