// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/timer.h"

#include <utility>

#include "display/form.h"

namespace display {

Timer::Timer(Form& form, std::string name)
    : form_(form), name_(std::move(name)), queue_(form.desktop().queue()) {
    form.timers_.push_back(this);
    queue_.add(*this);
}

Timer::~Timer() {
    queue_.remove(*this);
}

void Timer::start() {
    due_ = queue_.now() + interval.interval_;
    order_ = queue_.nextOrder_++;
}

Timer::Switch& Timer::Switch::operator=(bool on) {
    if (on_ == on) return *this;
    on_ = on;
    if (on) timer_.start();
    return *this;
}

Timer::Interval& Timer::Interval::operator=(std::chrono::milliseconds interval) {
    if (interval_ == interval) return *this;
    interval_ = interval;
    if (timer_.enabled) timer_.start();
    return *this;
}

void Timer::reset() {
    enabled.on_ = false;
    interval.interval_ = std::chrono::milliseconds{0};
}

}  // namespace display
