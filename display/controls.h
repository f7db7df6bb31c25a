// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "display/control.h"
#include "display/drawing.h"

namespace display {

enum class Align { Left, Centre, Right };
enum class Weight { Normal, Bold };

/// A type face at a height. The size is in twips whatever the container's unit is.
struct Font {
    float size = 180;
    Weight weight = Weight::Normal;
    bool spaced = false;  ///< letters spaced out, as engraved headings are
    bool operator==(const Font&) const = default;
};

/// What a panel looks like. The screen draws each in its own way; the model only names it.
enum class Surface {
    None,       ///< nothing of its own
    Faceplate,  ///< the metal of a rack unit
    Well,       ///< a dark display set into the faceplate
    Plate,      ///< a light plate for black figures
    Sheet,      ///< white paper
    Glow,       ///< light that grows to the right: the head of a moving bar
    Veil        ///< dims what lies under it
};

/// A value of a control that is assigned as a hand sets it: the control decides what becomes of it
/// and fires its event.
template <class Owner, class T>
class Firing {
 public:
    explicit Firing(Owner& owner) : owner_(owner), value_(owner) {}
    Firing(const Firing&) = delete;
    Firing& operator=(const Firing&) = delete;
    Firing& operator=(T wanted) {
        owner_.take(wanted);
        return *this;
    }
    operator T() const { return value_; }
    /// Fires nothing.
    void reset() { value_.reset(); }

 private:
    friend Owner;
    Owner& owner_;
    Property<T> value_;
};

/// Each kind of control is one of these. It lists each of its own properties once, in
/// forEachProperty: by that list it is put back at a load, and tests read it.
template <class Kind>
class KindOf : public Control {
 public:
    using Control::Control;
    void accept(ControlVisitor& visitor) final;

 protected:
    void resetKind() override;
};

/// A text. Painted; never takes the focus.
class Label final : public KindOf<Label> {
 public:
    using KindOf::KindOf;

    Text caption{*this};
    Property<Colour> colour{*this, kWhite};
    Property<Font> font{*this};
    Property<Align> align{*this, Align::Left};
    /// Filled behind the text.
    Property<Surface> surface{*this, Surface::None};
    Property<bool> wraps{*this, false};
    /// A measured value: exposed to the screen reader with its value at a bounded rate.
    bool readout = false;

    template <class Each>
    void forEachProperty(Each each) {
        each("caption", caption), each("colour", colour), each("font", font);
        each("align", align), each("surface", surface), each("wraps", wraps);
        each("readout", readout);
    }
};

/// How the ends of a line look.
enum class Stroke { Plain, Round, Segment };

/// A straight line between two points, in the units of its container.
class Line final : public KindOf<Line> {
 public:
    using KindOf::KindOf;

    /// What lies between its ends.
    Box boxInContainer() const override;

    void from(float x, float y) { x1 = x, y1 = y; }
    void to(float x, float y) { x2 = x, y2 = y; }

    Property<float> x1{*this}, y1{*this}, x2{*this}, y2{*this};
    Property<Colour> colour{*this, kWhite};
    /// Thickness in units of 15 twips.
    Property<float> thickness{*this, 1};
    Property<Stroke> stroke{*this, Stroke::Plain};

    template <class Each>
    void forEachProperty(Each each) {
        each("x1", x1), each("y1", y1), each("x2", x2), each("y2", y2);
        each("colour", colour), each("thickness", thickness), each("stroke", stroke);
    }
};

enum class Outline { Rectangle, Rounded, Oval };

/// A filled figure in its box.
class Shape final : public KindOf<Shape> {
 public:
    using KindOf::KindOf;

    Property<Outline> outline{*this, Outline::Rectangle};
    Property<Colour> colour{*this, kBlack};
    /// The colour at the left edge; equal to colour for a flat figure.
    Property<Colour> fadesFrom{*this, kBlack};

    template <class Each>
    void forEachProperty(Each each) {
        each("outline", outline), each("colour", colour), each("fadesFrom", fadesFrom);
    }
};

/// A plain line around a picture.
enum class Border { None, Plain };

/// A control that shows one of the program's own drawings by name, "" for none. With events bound
/// it is a key: a press, then a release on it, or a cancel when the button comes up elsewhere.
class Picture final : public KindOf<Picture> {
 public:
    using KindOf::KindOf;
    bool interactive() const override;

    Text picture{*this};
    /// Words on the key, where its drawing has room for them.
    Text caption{*this};
    Property<Border> border{*this, Border::None};

    Event onPress, onRelease, onCancel, onClick;
    /// Between a press and what ends it.
    bool held = false;
    /// Pointer events of a handle; a handle takes no focus.
    MouseEvent onMouseDown, onMouseMove, onMouseUp;
    Event onDoubleClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("picture", picture), each("caption", caption), each("border", border);
        each("held", held);
    }
};

/// A container with a surface. Its children stand in its units and are cut at its edge.
class Panel final : public KindOf<Panel> {
 public:
    using KindOf::KindOf;

    Text caption{*this};
    Property<Surface> surface{*this, Surface::None};
    /// Twips for one unit of the children's coordinates.
    Property<float> unit{*this, 1};

    MouseEvent onMouseDown, onMouseMove, onMouseUp;
    Event onDoubleClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("caption", caption), each("surface", surface), each("unit", unit);
    }
};

/// A picture box: a control that carries a drawing (see Drawing) in its own scale.
class PictureBox final : public KindOf<PictureBox> {
 public:
    using KindOf::KindOf;
    bool interactive() const override;

    Drawing drawing{*this};
    Event onDoubleClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("drawing", drawing);
    }
};

/// A push key with a caption; & marks its letter. press() runs its click as a program does it.
class Key final : public KindOf<Key> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }
    void press() {
        if (onClick) onClick();
    }

    Text caption{*this};
    Property<Colour> colour{*this, kWhite};
    Property<bool> lit{*this, false};
    /// Enter presses the default key of a form, Escape the one that loses least.
    bool isDefault = false;
    bool isCancel = false;
    /// Keys that press it wherever the keyboard is in its window, such as "Ctrl+X".
    std::string_view shortcut;

    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("caption", caption), each("colour", colour), each("lit", lit);
        each("isDefault", isDefault), each("isCancel", isCancel), each("shortcut", shortcut);
    }
};

/// One line of text that the user may edit.
class TextField final : public KindOf<TextField> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    /// A hand's edit: takes the text, fires onChange if it differs.
    void edit(std::string_view text);

    /// Selects the whole text, so that the next typed character takes its place.
    void selectAll();
    /// True from selectAll() until the text changes.
    bool allSelected() const { return allSelected_; }

    /// Assigned by code; fires onChange like a hand when it differs.
    class Value {
     public:
        explicit Value(TextField& field) : field_(field), text_(field) {}
        Value(const Value&) = delete;
        Value& operator=(const Value&) = delete;
        Value& operator=(std::string_view text) {
            field_.edit(text);
            return *this;
        }
        operator std::string_view() const { return text_; }
        const std::string& get() const { return text_.get(); }
        bool empty() const { return text_.empty(); }
        /// Fires nothing.
        void reset();
        friend bool operator==(const Value& a, std::string_view b) { return a.text_ == b; }

     private:
        friend class TextField;
        TextField& field_;
        Text text_;
    } text{*this};

    /// How often selectAll() was called: a screen that has seen fewer selects the text anew.
    Property<int> selections{*this, 0};
    Property<bool> locked{*this, false};
    Property<int> maxLength{*this, 0};  ///< characters; 0 for no limit
    Property<Align> align{*this, Align::Left};
    Property<Colour> colour{*this, kWhite};
    Property<Font> font{*this};

    Event onChange;
    /// Each typed character; answers the character to take, 0 to swallow it.
    std::function<char32_t(char32_t)> onTyped;
    Event onEnter;

    template <class Each>
    void forEachProperty(Each each) {
        each("text", text), each("locked", locked), each("maxLength", maxLength);
        each("align", align), each("colour", colour), each("font", font);
    }

 private:
    bool allSelected_ = false;
};

/// A box that is checked or not. Assigning another value fires onClick, as a hand does.
class CheckBox final : public KindOf<CheckBox> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    Firing<CheckBox, bool> checked{*this};

    Text caption{*this};
    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("checked", checked), each("caption", caption);
    }

 private:
    friend Firing<CheckBox, bool>;
    void take(bool on);
};

/// One of a group (the options of one container): choosing it clears the others.
class Option final : public KindOf<Option> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    /// Chooses it, by hand or by code; fires onClick if it was not chosen.
    void choose();

    Property<bool> chosen{*this, false};
    Text caption{*this};
    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("chosen", chosen), each("caption", caption);
    }
};

/// The rows of a combo or list box and the selected one (-1: none).
class ListModel {
 public:
    explicit ListModel(Revised& owner) : owner_(owner) {}
    void clear();
    void reset() { clear(); }
    void add(std::string_view row);
    const std::vector<std::string>& rows() const { return rows_; }
    int selected() const { return selected_; }
    std::string_view text() const;
    bool setSelected(int row);  ///< true when it changed

 private:
    Revised& owner_;
    std::vector<std::string> rows_;
    int selected_ = -1;
};

/// A closed list that opens; select() by hand or code fires onClick.
class ComboBox final : public KindOf<ComboBox> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }
    void select(int row);

    ListModel list{*this};
    /// Choosing the row that is chosen already fires onClick too.
    bool firesAgain = false;
    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("list", list), each("firesAgain", firesAgain);
    }
};

/// An open list.
class ListBox final : public KindOf<ListBox> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }
    void select(int row);

    ListModel list{*this};
    /// Columns that are parted by blanks stand under each other.
    Property<bool> fixedPitch{*this, false};
    Event onClick, onDoubleClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("list", list), each("fixedPitch", fixedPitch);
    }
};

/// A scroll bar. The value is clamped to its range; assigning another value fires onChange. While
/// a hand drags the thumb, thumb moves and onScroll fires; the value follows at the release.
class ScrollBar final : public KindOf<ScrollBar> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    Firing<ScrollBar, int> value{*this};

    void range(int lowest, int highest, int page);
    /// A hand on the thumb.
    void drag(int position);
    void dropThumb();
    /// The hand lost the thumb, which goes back to the value.
    void loseThumb();

    Property<int> minimum{*this, 0}, maximum{*this, 100};
    Property<int> pageStep{*this, 10};
    Property<int> thumb{*this, 0};
    Property<bool> dragging{*this, false};
    Property<bool> vertical{*this, false};

    Event onChange, onScroll;

    template <class Each>
    void forEachProperty(Each each) {
        each("minimum", minimum), each("maximum", maximum), each("pageStep", pageStep);
        each("dragging", dragging), each("thumb", thumb), each("value", value);
        each("vertical", vertical);
    }

 private:
    friend Firing<ScrollBar, int>;
    void take(int wanted);
    int clamped(int wanted) const;
};

/// A row of tabs; each page is a panel that is shown while its tab is the current one.
class Tabs final : public KindOf<Tabs> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    void add(std::string_view caption, Panel& page);
    void choose(int tab);

    Property<int> current{*this, 0};
    struct Page {
        std::string caption;
        Panel* panel;
    };
    const std::vector<Page>& pages() const { return pages_; }
    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("current", current), each("pages", pages_);
    }

 private:
    std::vector<Page> pages_;
};

class Chart;
class PagePreview;

/// The closed set of controls. A new kind does not compile until every display handles it.
class ControlVisitor {
 public:
    virtual ~ControlVisitor() = default;
    virtual void visit(Label&) = 0;
    virtual void visit(Line&) = 0;
    virtual void visit(Shape&) = 0;
    virtual void visit(Picture&) = 0;
    virtual void visit(Panel&) = 0;
    virtual void visit(PictureBox&) = 0;
    virtual void visit(Key&) = 0;
    virtual void visit(TextField&) = 0;
    virtual void visit(CheckBox&) = 0;
    virtual void visit(Option&) = 0;
    virtual void visit(ComboBox&) = 0;
    virtual void visit(ListBox&) = 0;
    virtual void visit(ScrollBar&) = 0;
    virtual void visit(Tabs&) = 0;
    virtual void visit(Chart&) = 0;
    virtual void visit(PagePreview&) = 0;
};

}  // namespace display
