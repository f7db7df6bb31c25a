// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace display {

class Control;
class Form;

/// A drawing is a control that tells its numbers (`Control::numbers`): it can be copied as a
/// picture, its numbers as comma-separated values, and both saved to a file.

/// The drawing that a person means who asks a form for it: the one that has the keyboard, else the
/// first that is shown; null where the form shows none.
Control* drawingMeant(const Form& form, const Control* focused);

/// True when any control of the form can be copied and saved, shown or not.
bool hasDrawings(const Form& form);

/// Its numbers on the clipboard, as text.
void copyNumbers(Control& drawing);
/// Its picture on the clipboard.
void copyPicture(Control& drawing);
/// Asks for a place and writes it there: a picture of pixels (png), of lines (svg), or its numbers
/// (csv), by the ending of the name. What goes wrong is told in a box, and no file is left behind.
void saveDrawing(Control& drawing);

}  // namespace display
