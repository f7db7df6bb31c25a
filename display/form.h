// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "display/design.h"
#include "display/desktop.h"
#include "display/timer.h"

namespace display {

enum class WindowState { Normal, Minimised };

/// A key of the keyboard's row of digits, whatever the layout writes with it.
struct DigitKey {
    int place = 1;  ///< from the left: 1 to 9, and 10 for the key of 0
    bool shift = false;
    bool operator==(const DigitKey&) const = default;
};

/// Initialised first: the properties of the form and its controls count with it.
struct FormClock {
    std::uint64_t ticks_ = 0;
};

/// A window of the program: its members are its controls. The object exists for the whole run;
/// loaded, shown, hidden and unloaded are its states. Loading sets every control back to the
/// form's layout and then runs onLoad().
class Form : private FormClock, public Revised {
 public:
    Form(Desktop& desktop, std::string name);
    virtual ~Form();

    void load();
    void show();
    void showModal();
    void hide();
    void unload();
    bool loaded() const { return loaded_; }

    Property<float> left{*this}, top{*this}, width{*this}, height{*this};
    Text caption{*this};
    Property<bool> visible{*this, false};
    Property<bool> enabled{*this, true};
    Property<bool> topmost{*this, false};
    Property<WindowState> windowState{*this, WindowState::Normal};
    /// The language of accessible names and tool tips.
    Property<Language> language{*this, Language::English};

    /// Minimises the window; the desktop then calls resized().
    void minimise();

    /// The user closed the window by the window manager: does what the form's own close key does.
    virtual void closeRequested() {}
    /// Called by the desktop: at the first show of the rack, when it is minimised and when it is
    /// restored.
    virtual void resized() {}
    /// True while the next show calls resized(): before the rack's first show only.
    virtual bool raisesResizeAtShow() const { return false; }
    /// Called after each show of a form that was hidden.
    virtual void activated() {}
    /// Called on the rack's first panel for a key that no control of the rack uses.
    virtual void digitPressed(DigitKey) {}

    /// It only looks on: its input passes while a run holds the thread.
    bool looksOn = false;

    const std::string& name() const { return name_; }
    Desktop& desktop() const { return desktop_; }
    const std::vector<Control*>& controls() const { return controls_; }
    const std::vector<Timer*>& timers() const { return timers_; }
    /// The control of that run-time name, or null.
    Control* find(std::string_view name) const;
    Timer* findTimer(std::string_view name) const;

    /// The newest revision of the form or one of its controls.
    std::uint64_t clock() const { return ticks_; }
    /// True inside layOut(): assignments fire no event then.
    bool layingOut() const { return layingOut_; }

    /// The keys that Enter and Escape press where the focused control does not use them.
    Key* defaultKey() const;
    Key* cancelKey() const;

 protected:
    /// Places every control with its design values. Called by load().
    virtual void layOut() = 0;
    virtual void onLoad() {}
    virtual void onUnload() {}

 private:
    friend class Control;
    friend class Timer;
    void resetToLayout();

    Desktop& desktop_;
    std::string name_;
    std::vector<Control*> controls_;
    std::vector<Timer*> timers_;
    bool loaded_ = false;
    bool layingOut_ = false;
};

}  // namespace display
