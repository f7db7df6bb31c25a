// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/controls/control_kind.h"
#include "display/drawing.h"

namespace display {

/// A plain line around a picture.
enum class Border { None, Plain };

/// A control that shows one of the program's own drawings by name, "" for none. With events bound
/// it is a button: a press is followed by a release on it, or by a cancel when the pointer's button
/// comes up elsewhere.
class Picture final : public KindOf<Picture> {
 public:
    using KindOf::KindOf;
    bool interactive() const override;

    Text picture{*this};
    /// Words on the button, where its drawing has room for them.
    Text caption{*this};
    Property<Border> border{*this, Border::None};

    Event onPress, onRelease, onCancel, onClick;
    /// Keyboard shortcut that clicks it wherever the focus is in its window, such as "F3".
    std::string_view shortcut;
    /// True from a press until its release or cancel.
    bool held = false;
    /// Pointer events of a handle, by which a window is moved; a handle takes no focus.
    MouseEvent onMouseDown, onMouseMove, onMouseUp;
    Event onDoubleClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("picture", picture), each("caption", caption), each("border", border);
        each("held", held), each("shortcut", shortcut);
    }
};

/// A control that holds a Drawing in its own scale.
class PictureBox final : public KindOf<PictureBox> {
 public:
    using KindOf::KindOf;
    bool interactive() const override;
    Place placeOf(double x, double y) const override;

    Drawing drawing{*this};
    Event onDoubleClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("drawing", drawing);
    }
};

}  // namespace display
