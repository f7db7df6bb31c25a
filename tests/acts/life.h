// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/acts/acts.h"
#include "tests/acts/folder_damage.h"
#include "tests/acts/rack_in_order.h"

namespace hmonitor::test {

/// One run of the whole program in which, step by step, anything happens that a seed draws: acts on
/// every control of every window that stands, also inside calls of the driver and while a box
/// stands; odd readings; slow, failing and silent calls; files that are damaged; a disk that is
/// full; clocks that are set. Where the unit's kind, the language and all else come from the seed,
/// a life can be lived again.
class Life {
 public:
    explicit Life(std::uint64_t seed);
    ~Life();

    /// Lives that many steps, or until the program ends. Returns what went wrong; empty if nothing
    /// did.
    std::string live(int steps);
    int steps() const { return steps_; }
    /// The last things that happened, a line each.
    std::string story() const;

 private:
    bool one(int in) { return draw(in) == 0; }
    int draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
    void tell(std::string what);

    void step();
    void actSomewhere();
    void actOn(display::Form& form);
    bool typeInto(display::Form& form);
    void changeReadings();
    void changeUnit();
    void changeFiles();
    void changeClock();
    void passTime();
    void inCall(const char* call);
    void inBox();
    void stopRuns();
    void forgetWhatIsShown();
    void setRight();

    std::string faultOfStep();
    std::string oddTexts() const;
    std::string faultOfTheEnd();
    std::string faultWhenAllIsClosed();

    std::mt19937_64 random_;
    UnitKind unit_;
    std::unique_ptr<RunBench> bench_;
    std::unique_ptr<FolderDamage> damage_;
    std::map<display::Form*, std::vector<Act>> acts_;
    std::deque<std::string> told_;
    int steps_ = 0;
    int callsOfStep_ = 0;
    int depth_ = 0;
    int slow_ = 0;  ///< milliseconds that a call takes at most
    std::string lastBox_;
};

}  // namespace hmonitor::test
