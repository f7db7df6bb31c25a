// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "program/program.h"
#include "program/tuning_panels.h"

namespace hmonitor {

/// The unit, lent to one window at a time. A window that needs it for something other than the
/// panels' normal measuring holds a lease, from the call that stops the unit until it is tuned
/// back; `Program::unitInUse` tells who holds it and since when. A form owns its lease and closes
/// it when it is unloaded, so that the unit is returned however the window is closed.
class UnitLease {
 public:
    UnitLease(Program& program, const display::Form& window) : program_(program), window_(window) {}
    ~UnitLease();
    UnitLease(const UnitLease&) = delete;
    UnitLease& operator=(const UnitLease&) = delete;

    /// Takes the unit. False, with no effect, while another window has it.
    bool take();
    bool held() const { return program_.unitInUse.window == &window_; }

    /// Tunes for a run in that audio mode, and notes the frequency for the run's points and for the
    /// name of its file.
    void tuneFor(AudioMode mode);
    /// The frequency of the last tuneFor(), in units of 100 kHz.
    double frequency() const { return frequency_; }

    /// The audio mode in which the unit returns to normal measuring: the stored one, or L and R.
    enum class Back { AsStored, LeftRight };
    /// The station on which the unit returns instead of the one that the rack was on; forgotten
    /// when it has returned.
    void returnTo(const WantedStation& station) { wanted_ = station; }
    /// Returns the unit to the panels. Does nothing if the lease is not held.
    void giveBack(Back back);
    /// Gives up the lease without tuning: the next holder returns the unit, or it already measures
    /// for the panels.
    void letGo();
    /// Called when the window is closed: returns the unit if it is held, and enables the rack.
    void close(Back back);

    /// Exists while a measurement holds the thread. The rack is disabled, and the driver's calls
    /// let through only: the named controls, closing the lease's window, moving windows, paint and
    /// timers. It enables again what it disabled.
    class Hold {
     public:
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

     private:
        friend class UnitLease;
        Hold(Program& program, std::vector<const display::Control*> heard,
             const display::Form& window);
        Program& program_;
        std::array<bool, 4> wereEnabled_{};
    };
    [[nodiscard]] Hold hold(std::vector<const display::Control*> heard) const {
        return {program_, std::move(heard), window_};
    }

 private:
    Program& program_;
    const display::Form& window_;
    double frequency_ = 0;
    std::optional<WantedStation> wanted_;
};

}  // namespace hmonitor
