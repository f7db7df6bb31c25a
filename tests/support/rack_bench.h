// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "all_forms.h"
#include "app/forms.h"
#include "base/rewrite_steps.h"
#include "core/files.h"
#include "display/headless/headless_desktop.h"
#include "program/program.h"
#include "tests/support/scripted_driver.h"
#include "tests/support/temp_folder.h"

namespace hmonitor::test {

/// Joins texts as lines, each ended by carriage return and line feed.
std::string lines(const std::vector<std::string>& texts);

/// A preset block of 300 bytes with these memories: number, name, frequency text ("1025").
struct Memory {
    int number;
    std::string name;
    std::string frequency;
};
std::string memoryBlock(const std::vector<Memory>& memories);

/// A disk that fails at the steps of a rewrite that a test names.
struct ToldDisk final : base::RewriteWatcher {
    /// Empty: all goes well. Returns 0, or the `errno` value of what fails.
    std::function<int(base::RewriteStep, base::StepMoment)> told;
    int at(base::RewriteStep step, base::StepMoment moment) override {
        return told ? told(step, moment) : 0;
    }
};

/// The whole program on the headless desktop, a scripted unit of version 1.8 (or the one that is
/// given) and a working folder of its own with the shipped kind of settings: preset 1 of three
/// memories (1 "RADIO UNO" 98.1, 3 "RADIO TRES" 102.55, 16 "DIECISEIS" 87.5).
class RackBench {
 public:
    explicit RackBench(int languageId = kEnglish, Brand brand = Brand::Marvenia,
                       std::unique_ptr<ScriptedDriver> unit = std::make_unique<ScriptedDriver>());
    explicit RackBench(std::unique_ptr<ScriptedDriver> unit);
    ~RackBench();

    static constexpr int kEnglish = 0x0409;
    static constexpr int kSpanish = 0x0c0a;
    static constexpr int kPortuguese = 0x0416;

    void write(std::string_view name, std::string_view bytes);
    std::string read(std::string_view name) const;
    bool exists(std::string_view name) const;
    void remove(std::string_view name);

    /// Starts the program, from the splash screen to the measuring rack.
    void start();
    /// Shows the splash only.
    void showSplash();
    /// Lets time pass on the virtual clock.
    void advance(std::chrono::milliseconds time) { desktop.advance(time); }
    /// Lets ticks of 30 ms pass.
    void beat(int count = 1) { advance(std::chrono::milliseconds(30 * count)); }

    // The user's input, with everything that follows from it. Inside a handler (a modal script, a
    // driver's during...) nothing can follow yet: use `hand` there.
    void settle() { desktop.settle(); }
    void press(display::Picture& key) { hand.press(key), settle(); }
    void release(display::Picture& key) { hand.release(key), settle(); }
    template <class Clicked>
    void click(Clicked& key) {
        hand.click(key), settle();
    }
    void check(display::CheckBox& box, bool on) { hand.check(box, on), settle(); }
    void edit(display::TextField& field, std::string_view text) {
        hand.edit(field, text), settle();
    }
    void type(display::TextField& field, std::string_view text) {
        hand.type(field, text), settle();
    }
    void set(display::ScrollBar& bar, int value) { hand.set(bar, value), settle(); }

    /// The unit's readings by number: 1 to 16 of HM_Data, 17 and 18 of HM_DataRDS.
    float& output(int number) {
        return readings.*figures::kOutputs.at(static_cast<std::size_t>(number - 1));
    }

    /// The calls since the last call of this function.
    std::vector<std::string> takeCalls();

    TempFolder scratch;
    ToldDisk disk;  ///< all that the program writes to its folder
    display::HeadlessDesktop desktop;
    std::unique_ptr<ScriptedDriver> unit;
    ScriptedDriver& driver;
    Readings& readings;  ///< what the unit says
    Files files;
    Program program;
    Forms forms;

    // Short names for parts of the program.
    hmonitor::Form1& form1;
    hmonitor::Form_B& formB;
    hmonitor::Form_C& formC;
    hmonitor::Form_D& formD;
    hmonitor::StationState& state;
    display::Hand& hand;
};

}  // namespace hmonitor::test
