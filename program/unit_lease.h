// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "program/program.h"
#include "program/tuning_panels.h"

namespace hmonitor {

/// The unit, lent to one window at a time. Who needs it for something else than the panels' normal
/// measuring holds a lease from the call that halts the unit until it is tuned back; the program
/// says who has it and since when (`Program::unitInUse`). A form owns its lease and closes it when
/// it is unloaded, so that the unit comes back however the window went.
class UnitLease {
 public:
    UnitLease(Program& program, const display::Form& window) : program_(program), window_(window) {}
    ~UnitLease();
    UnitLease(const UnitLease&) = delete;
    UnitLease& operator=(const UnitLease&) = delete;

    /// The window has the unit from here on. False, and nothing done, while another one has it.
    bool take();
    bool held() const { return program_.unitInUse.window == &window_; }

    /// Tunes for a run in that audio mode and takes the run's frequency: for its points and for
    /// the name of its file.
    void tuneFor(AudioMode mode);
    /// 100 kHz units, of the last tuneFor().
    double frequency() const { return frequency_; }

    /// How the unit goes back to normal measuring: in the mode that is stored, or in L and R.
    enum class Back { AsStored, LeftRight };
    /// The unit measures for the panels again. Nothing where it is not held.
    void giveBack(Back back);
    /// Who takes the unit next returns it, or it measures for the panels already.
    void letGo();
    /// The window closes: the unit goes back if it is held, and the rack takes keys again.
    void close(Back back);

    /// Stands while the thread is held by a measurement: the rack is disabled, and what comes
    /// through inside the driver's calls is the controls that were named, the close of the lease's
    /// window, moving windows, paint and timers. Enables again what it disabled.
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
};

}  // namespace hmonitor
