// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
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

/// The place of a control, in the units of its container (twips unless the container says
/// otherwise).
struct Box {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    bool operator==(const Box&) const = default;
    constexpr float right() const { return left + width; }
    constexpr float bottom() const { return top + height; }
};

/// A point, in the units of a container.
struct Place {
    float x = 0;
    float y = 0;
    bool operator==(const Place&) const = default;
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

/// Sets a property, or a plain value in a list of properties, back to its initial value.
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

    /// Sets everything back to the state before the layout was applied.
    void reset();

    /// Calls each(name, property) for the properties that all kinds have. The properties of one
    /// kind are listed by the kind itself.
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
    /// A place in a drawing's own coordinates (see NumberTable::Spot), in the units of its
    /// container from its upper left corner.
    virtual Place placeOf(double x, double y) const {
        return {static_cast<float>(x), static_cast<float>(y)};
    }
    /// Its box in twips from the form's upper left corner, all containers resolved.
    Box boxOnForm() const;

    /// Whether it is visible and whether it is enabled, its containers and its form taken into
    /// account.
    bool shown() const;
    bool usable() const;

    /// Gives it the keyboard focus; where it cannot take it yet, as soon as it can.
    void takeFocus();

    /// What the screen reader says and the tool tip shows, in the language of the form.
    std::string_view accessibleName() const;

    Property<float> left{*this}, top{*this}, width{*this}, height{*this};
    Property<bool> visible{*this, true};
    Property<bool> enabled{*this, true};

    /// The panel that it stands in, or null for the form itself.
    Property<Panel*> container{*this, nullptr};

    /// Accessible name. A readout with a caption needs none: the caption is its name.
    Words says;
    /// The value for the screen reader where the control paints something other than text: the
    /// digits in a panel, a lamp. Called only when an assistive tool asks, so it costs the live
    /// panels nothing.
    std::function<std::string()> reading;
    /// The numbers that a drawing shows. A control that has them can be copied and saved.
    std::function<NumberTable()> numbers;
    /// A number of the drawing was picked by a click or by Enter: the row of its table.
    std::function<void(std::size_t row)> onPick;
    /// What that does: "Click or Enter: tune".
    Words picks;
    /// The part of the form, in twips, that a picture of this drawing shows: the drawing with its
    /// scales and its legend. Of no size: the drawing alone.
    Box pictureBox;
    /// Tool tip; empty for none.
    Words tip;
    /// Place in the Tab order; 0 leaves it out.
    int tabIndex = 0;
    /// A click does not take the keyboard focus.
    bool leavesFocus = false;

    /// How often the layout placed it since the last load. Anything but once is a fault, which a
    /// test reports.
    int timesPlaced = 0;

 protected:
    virtual void resetKind() = 0;

 private:
    Form& form_;
    std::string name_;
};

}  // namespace display
