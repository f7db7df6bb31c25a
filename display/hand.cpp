// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/hand.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/plot.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/text_field.h"
#include "display/drawing_export.h"

namespace display {

namespace {

void run(const Event& event) {
    if (event) event();
}

}  // namespace

void Hand::post(Control& control, std::function<void()> act) {
    desktop_.queue().post({Input::Kind::Control, &control.form(), &control, std::move(act)});
}

void Hand::post(Form& form, std::function<void()> act) {
    desktop_.queue().post({Input::Kind::Form, &form, nullptr, std::move(act)});
}

namespace {

/// Enter and Escape press a key only if a click on it would be let through by the current run.
void pressIfHeard(Key* key) {
    if (key && key->form().desktop().queue().hears(*key)) key->press();
}

}  // namespace

void Hand::press(Picture& key) {
    post(key, [&key] {
        key.held = true;
        run(key.onPress);
    });
}

void Hand::release(Picture& key) {
    post(key, [&key] {
        // A release is ignored if its press was held back.
        if (!key.held) return;
        key.held = false;
        run(key.onRelease);
        run(key.onClick);
    });
}

void Hand::cancel(Picture& key) {
    post(key, [&key] {
        if (!key.held) return;
        key.held = false;
        run(key.onCancel);
    });
}

void Hand::click(Picture& key) {
    press(key);
    release(key);
}

void Hand::doubleClick(Control& control) {
    post(control, [&control] {
        if (auto* picture = dynamic_cast<Picture*>(&control)) run(picture->onDoubleClick);
        if (auto* panel = dynamic_cast<Panel*>(&control)) run(panel->onDoubleClick);
        if (auto* box = dynamic_cast<PictureBox*>(&control)) run(box->onDoubleClick);
        if (auto* list = dynamic_cast<ListBox*>(&control)) run(list->onDoubleClick);
    });
}

namespace {

template <class Member>
void onHandle(Control& handle, const Mouse& at, Member Panel::*ofPanel,
              Member Picture::*ofPicture) {
    if (auto* panel = dynamic_cast<Panel*>(&handle); panel && panel->*ofPanel)
        (panel->*ofPanel)(at);
    if (auto* picture = dynamic_cast<Picture*>(&handle); picture && picture->*ofPicture) {
        (picture->*ofPicture)(at);
    }
}

}  // namespace

void Hand::mouseDown(Control& handle, Mouse at) {
    desktop_.queue().post({Input::Kind::MoveWindow, &handle.form(), &handle, [&handle, at] {
                               onHandle(handle, at, &Panel::onMouseDown, &Picture::onMouseDown);
                           }});
}

void Hand::mouseMove(Control& handle, Mouse at) {
    desktop_.queue().post({Input::Kind::MoveWindow, &handle.form(), &handle, [&handle, at] {
                               onHandle(handle, at, &Panel::onMouseMove, &Picture::onMouseMove);
                           }});
}

void Hand::mouseUp(Control& handle, Mouse at) {
    desktop_.queue().post({Input::Kind::MoveWindow, &handle.form(), &handle, [&handle, at] {
                               onHandle(handle, at, &Panel::onMouseUp, &Picture::onMouseUp);
                           }});
}

void Hand::mouseDown(Control& handle, Pointer at) {
    desktop_.queue().post({Input::Kind::MoveWindow, &handle.form(), &handle, [&handle, at] {
                               onHandle(handle, at(), &Panel::onMouseDown, &Picture::onMouseDown);
                           }});
}

void Hand::mouseMove(Control& handle, Pointer at) {
    desktop_.queue().post({Input::Kind::MoveWindow, &handle.form(), &handle, [&handle, at] {
                               onHandle(handle, at(), &Panel::onMouseMove, &Picture::onMouseMove);
                           }});
}

void Hand::mouseUp(Control& handle, Pointer at) {
    desktop_.queue().post({Input::Kind::MoveWindow, &handle.form(), &handle, [&handle, at] {
                               onHandle(handle, at(), &Panel::onMouseUp, &Picture::onMouseUp);
                           }});
}

void Hand::click(Key& key) {
    post(key, [&key] { key.press(); });
}

void Hand::check(CheckBox& box, bool on) {
    post(box, [&box, on] { box.checked = on; });
}

void Hand::choose(Option& option) {
    post(option, [&option] { option.choose(); });
}

void Hand::choose(Tabs& tabs, int tab) {
    post(tabs, [&tabs, tab] { tabs.choose(tab); });
}

void Hand::select(ComboBox& box, int row) {
    post(box, [&box, row] { box.select(row); });
}

void Hand::select(ListBox& box, int row) {
    post(box, [&box, row] { box.select(row); });
}

namespace {

/// With a mark in place of each byte that is no UTF-8: what follows trusts the text.
std::string whole(std::string_view text) {
    std::string valid;
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
    return valid;
}

std::u32string typedCharacters(std::string_view text) {
    const std::string valid = whole(text);
    std::u32string characters;
    utf8::utf8to32(valid.begin(), valid.end(), std::back_inserter(characters));
    return characters;
}

std::size_t characters(const std::string& text) {
    return static_cast<std::size_t>(utf8::unchecked::distance(text.begin(), text.end()));
}

/// The byte offset of that character; the length in bytes for one beyond the last.
std::size_t byteOf(const std::string& text, std::size_t character) {
    auto at = text.begin();
    utf8::unchecked::advance(at, std::min(character, characters(text)));
    return static_cast<std::size_t>(at - text.begin());
}

/// Replaces the span by one typed character; returns how many were inserted: 1, or 0 when the
/// field's filter or its length refuses it.
std::size_t typeOne(TextField& field, char32_t character, Span replaced) {
    if (field.onTyped) character = field.onTyped(character);
    if (character == 0) return 0;
    std::string text = whole(field.text.get());
    const std::size_t from = byteOf(text, replaced.from);
    text.erase(from, byteOf(text, replaced.to) - from);
    if (field.maxLength > 0 &&
        characters(text) >= static_cast<std::size_t>(field.maxLength.get())) {
        return 0;
    }
    std::string encoded;
    utf8::unchecked::append(character, std::back_inserter(encoded));
    text.insert(from, encoded);
    field.edit(text);
    return 1;
}

void cut(TextField& field, Span span) {
    std::string text = whole(field.text.get());
    const std::size_t from = byteOf(text, span.from);
    text.erase(from, byteOf(text, span.to) - from);
    field.edit(text);
}

/// Each character goes where the one before it ended.
void typeAll(TextField& field, std::u32string_view typed, Span replaced) {
    if (field.locked) return;
    if (typed.empty()) cut(field, replaced);
    for (const char32_t character : typed) {
        if (typeOne(field, character, replaced) == 0) continue;
        ++replaced.from;
        replaced.to = replaced.from;
    }
}

}  // namespace

void Hand::type(TextField& field, std::string_view text) {
    for (const char32_t character : typedCharacters(text)) {
        post(field, [&field, character] {
            const std::size_t end = characters(whole(field.text.get()));
            typeAll(field, {&character, 1}, {field.allSelected() ? 0 : end, end});
        });
    }
}

void Hand::type(TextField& field, std::string_view text, Span replaced) {
    post(field,
         [&field, replaced, typed = typedCharacters(text)] { typeAll(field, typed, replaced); });
}

void Hand::edit(TextField& field, std::string_view text) {
    post(field, [&field, wanted = std::string(text)] {
        if (!field.locked) field.edit(wanted);
    });
}

void Hand::enter(TextField& field) {
    post(field, [&field] {
        if (field.onEnter) {
            field.onEnter();
        } else {
            pressIfHeard(field.form().defaultKey());
        }
    });
}

void Hand::scroll(ScrollBar& bar, int steps) {
    post(bar, [&bar, steps] { bar.value = bar.value + steps; });
}

void Hand::page(ScrollBar& bar, int pages) {
    post(bar, [&bar, pages] { bar.value = bar.value + pages * bar.pageStep; });
}

void Hand::set(ScrollBar& bar, int value) {
    post(bar, [&bar, value] { bar.value = value; });
}

void Hand::drag(ScrollBar& bar, int position) {
    post(bar, [&bar, position] { bar.drag(position); });
}

void Hand::drop(ScrollBar& bar) {
    post(bar, [&bar] { bar.dropThumb(); });
}

void Hand::zoom(Plot& plot, double by, double at) {
    post(plot, [&plot, by, at] { plot.zoom(by, at); });
}

void Hand::shift(Plot& plot, double share) {
    post(plot, [&plot, share] { plot.shift(share); });
}

void Hand::point(Plot& plot, std::size_t mark, double share) {
    post(plot, [&plot, mark, share] { plot.point(mark, share); });
}

void Hand::press(Plot& plot, PlotKey key) {
    post(plot, [&plot, key] { plot.press(key); });
}

void Hand::enter(Form& form) {
    desktop_.queue().post(
        {Input::Kind::FormKey, &form, nullptr, [&form] { pressIfHeard(form.defaultKey()); }});
}

void Hand::shortcut(Form& form, std::string_view keys) {
    for (Control* control : form.controls()) {
        auto* key = dynamic_cast<Key*>(control);
        if (key && !keys.empty() && key->shortcut == keys) click(*key);
        auto* picture = dynamic_cast<Picture*>(control);
        if (picture && !keys.empty() && picture->shortcut == keys) click(*picture);
    }
}

void Hand::escape(Form& form) {
    desktop_.queue().post(
        {Input::Kind::FormKey, &form, nullptr, [&form] { pressIfHeard(form.cancelKey()); }});
}

void Hand::close(Form& form) {
    post(form, [&form] {
        if (form.enabled) form.closeRequested();
    });
}

void Hand::unfold(Form& form) {
    // The window is already restored: its panels come back as soon as they can.
    desktop_.queue().post({Input::Kind::Form, &form, nullptr,
                           [&form] {
                               if (form.windowState == WindowState::Normal) return;
                               form.windowState = WindowState::Normal;
                               form.resized();
                           },
                           true});
}

void Hand::help(Form& form) {
    post(form, [&form] { form.desktop().showHelp(form.desktop().helpFile); });
}

void Hand::digit(Form& form, DigitKey key) {
    // As a click on a key of the form: a run and a window over it hold it back.
    desktop_.queue().post(
        {Input::Kind::Control, &form, nullptr, [&form, key] { form.digitPressed(key); }});
}

void Hand::copyPicture(Control& drawing) {
    post(drawing, [&drawing] { display::copyPicture(drawing); });
}

void Hand::copyNumbers(Control& drawing) {
    post(drawing, [&drawing] { display::copyNumbers(drawing); });
}

void Hand::save(Control& drawing) {
    // A dialog inside a run would hold it.
    post(drawing, [this, &drawing] {
        if (!desktop_.queue().running()) saveDrawing(drawing);
    });
}

void Hand::pick(Control& drawing, std::size_t row) {
    post(drawing, [&drawing, row] {
        if (drawing.onPick) drawing.onPick(row);
    });
}

}  // namespace display
