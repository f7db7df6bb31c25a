// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

namespace display {

class EventQueue;
class Form;

/// Time since the program's start; virtual on the headless desktop.
using Time = std::chrono::microseconds;

/// A timer of a form. Enabling it starts a full interval; changing the interval of a running timer
/// starts anew; enabling a running timer changes nothing. Missed ticks merge into one, and a
/// handler is never entered twice.
class Timer {
 public:
    Timer(Form& form, std::string name);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// Assigned like a value: Timer2.enabled = true.
    class Switch {
     public:
        explicit Switch(Timer& timer) : timer_(timer) {}
        Switch(const Switch&) = delete;
        Switch& operator=(const Switch&) = delete;
        Switch& operator=(bool on);
        operator bool() const { return on_; }

     private:
        friend class Timer;
        Timer& timer_;
        bool on_ = false;
    } enabled{*this};

    class Interval {
     public:
        explicit Interval(Timer& timer) : timer_(timer) {}
        Interval(const Interval&) = delete;
        Interval& operator=(const Interval&) = delete;
        Interval& operator=(std::chrono::milliseconds interval);
        operator std::chrono::milliseconds() const { return interval_; }

     private:
        friend class Timer;
        friend class EventQueue;
        Timer& timer_;
        std::chrono::milliseconds interval_{0};
    } interval{*this};

    std::function<void()> onTick;

    const std::string& name() const { return name_; }
    Form& form() const { return form_; }
    /// Disables it and clears the interval, as before the form's layout.
    void reset();

 private:
    friend class EventQueue;
    void start();

    Form& form_;
    std::string name_;
    EventQueue& queue_;
    Time due_{0};
    std::uint64_t order_ = 0;
    bool inHandler_ = false;
};

}  // namespace display
