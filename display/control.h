// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "display/colour.h"
#include "display/property.h"

namespace display {

class ControlVisitor;
class Form;
enum class Language { Spanish, English };
class Panel;
struct NumberTable;

/// Where a control stands, in the units of its container (twips unless the container says else).
struct Box {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    bool operator==(const Box&) const = default;
    constexpr float right() const { return left + width; }
    constexpr float bottom() const { return top + height; }
};

/// One text in the two languages that the panels speak. UTF-8.
struct Words {
    const char* spanish = "";
    const char* english = "";
};

constexpr std::string_view wordsIn(Language language, const Words& words) {
    return language == Language::Spanish ? words.spanish : words.english;
}

/// The pointer on a control: position from its upper left corner in twips, and whether the left
/// button is down.
struct Mouse {
    float x = 0;
    float y = 0;
    bool left = false;
};

/// A property, or a plain value in a list of properties, back to what it was made with.
template <class Listed>
void resetProperty(Listed& listed) {
    if constexpr (requires { listed.reset(); }) {
        listed.reset();
    } else {
        listed = Listed{};
    }
}

using Event = std::function<void()>;
using MouseEvent = std::function<void(const Mouse&)>;

/// Base of the closed set of controls (see ControlVisitor). A control is a member of its form and
/// lives as long; its name is its run-time name, which tests and the screen reader use.
class Control : public Revised {
 public:
    Control(Form& form, std::string name);
    virtual ~Control() = default;

    virtual void accept(ControlVisitor& visitor) = 0;

    /// Back to the state before any design value was laid.
    void reset();

    /// Names each property that all kinds have. What a kind has of its own it lists itself.
    template <class Each>
    void forEachCommonProperty(Each each) {
        each("left", left), each("top", top), each("width", width), each("height", height);
        each("visible", visible), each("enabled", enabled), each("container", container);
        each("says", says), each("tip", tip);
        each("tabIndex", tabIndex), each("leavesFocus", leavesFocus);
    }

    /// True when a person can act on it: it then becomes a real widget with keyboard and focus.
    virtual bool interactive() const { return false; }

    const std::string& name() const { return name_; }
    Form& form() const { return form_; }

    /// Its box in the units of its container.
    virtual Box boxInContainer() const { return {left, top, width, height}; }
    /// Its box in twips from the form's upper left corner, all containers resolved.
    Box boxOnForm() const;

    /// Shown and usable, its containers and its form included.
    bool shown() const;
    bool usable() const;

    /// Gives it the keyboard; later, where it cannot take it yet.
    void takeFocus();

    /// What the screen reader says and the tool tip shows, in the language of the form.
    std::string_view accessibleName() const;

    Property<float> left{*this}, top{*this}, width{*this}, height{*this};
    Property<bool> visible{*this, true};
    Property<bool> enabled{*this, true};

    /// The panel that it stands in, or null for the form itself.
    Property<Panel*> container{*this, nullptr};

    /// Accessible name; readouts that have a caption leave it to the caption.
    Words says;
    /// What it reads to the screen reader, where what it paints is no text of its own: the digits
    /// in a panel, a lamp. Asked for when somebody listens, so it costs the live panels nothing.
    std::function<std::string()> reading;
    /// What a drawing shows in numbers. A control that tells them can be copied and saved.
    std::function<NumberTable()> numbers;
    /// Where the picture of a drawing lies on its form, in twips, with the scales and the legend
    /// that stand around it; of no size: the drawing alone.
    Box pictureBox;
    /// Tool tip; empty for none.
    Words tip;
    /// Place in the Tab order; 0 keeps it out of it.
    int tabIndex = 0;
    /// A click leaves the keyboard where it was.
    bool leavesFocus = false;

    /// How often a layout placed it since the last load: exactly once, or the form is wrong.
    int timesPlaced = 0;

 protected:
    virtual void resetKind() = 0;

 private:
    Form& form_;
    std::string name_;
};

}  // namespace display
