// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/files.h"
#include "core/numbers.h"
#include "display/headless/headless_desktop.h"
#include "program/program.h"
#include "program/program_form.h"
#include "program/tuner.h"
#include "tests/support/scripted_driver.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {

/// Panels without forms: they note the calls of a tuning in the journal of driver calls.
struct NotedPanels final : TuningPanels {
    explicit NotedPanels(std::vector<std::string>& journal) : noted(journal) {}
    int bar() override { return barValue; }
    void moveTo(const WantedStation& station) override {
        noted.push_back("move to " + shortText(station.frequency).str() + ", memory " +
                        wholeText(station.memory).str());
    }
    void showMode(AudioMode mode) override {
        noted.push_back(mode == AudioMode::LeftRight ? "mode L and R" : "mode L+R and L-R");
    }
    void showResponseArmed(bool armed) override {
        noted.push_back(armed ? "response armed" : "response off");
    }
    void firstTuning() override { noted.push_back("first tuning"); }
    void leaveMemory() override { noted.push_back("leave memory"); }
    void runClocks(bool run) override { noted.push_back(run ? "clocks run" : "clocks stand"); }
    void enableTuning(bool enabled) override {
        noted.push_back(enabled ? "panel enabled" : "panel disabled");
    }
    void showTuned() override { noted.push_back("show tuned"); }
    void showFigures() override { noted.push_back("show figures"); }
    void rackStands() override { noted.push_back("rack stands"); }

    int barValue = 106;  ///< 98.1 MHz
    std::vector<std::string>& noted;
};

/// A window with a stop key, and a key that a run does not let through.
class RunWindow final : public ProgramForm {
 public:
    RunWindow(Program& itsProgram, std::string name) : ProgramForm(itsProgram, std::move(name)) {}
    display::Key Stop{*this, "Stop"};
    display::Key Other{*this, "Other"};
    display::Timer Clock{*this, "Clock"};
    void closeRequested() override {
        if (onClose) onClose();
    }
    std::function<void()> onClose;

 protected:
    void layOut() override;
};

/// The tuner, and windows that take the unit, without the program's forms: a rack of four empty
/// panels, a window, and settings with L and R, peak, no log, nothing armed.
struct ProgramBench {
    ProgramBench();
    std::vector<std::string> take() { return std::exchange(desktop.journal, {}); }
    void advance(std::chrono::milliseconds time) { desktop.advance(time); }
    bool rackIs(bool enabled) const;

    TempFolder scratch;
    display::HeadlessDesktop desktop;
    ScriptedDriver driver;
    Files files{scratch.path()};
    Program program{desktop, driver, files};
    Tuner tuner{program};
    NotedPanels panels{desktop.journal};
    std::vector<std::unique_ptr<RunWindow>> rack;
    RunWindow window{program, "Window"};
};

}  // namespace hmonitor::test
