// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace display {

class Control;
class Form;

/// A drawing is a control that has numbers (`Control::numbers`): it can be copied as a picture or
/// as comma-separated values, and saved to a file as either.

/// The drawing that is meant by a copy or save key: the one with the keyboard focus, else the first
/// that is visible; null where the form shows none.
Control* drawingMeant(const Form& form, const Control* focused);

/// True when any control of the form can be copied and saved, visible or not.
bool hasDrawings(const Form& form);

/// Copies its numbers to the clipboard, as text.
void copyNumbers(Control& drawing);
/// Copies its picture to the clipboard.
void copyPicture(Control& drawing);
/// Asks for a file name and saves the drawing: as a raster image (png), a vector drawing (svg),
/// its numbers (csv) or a page with the vector drawing (pdf), by the ending of the name. A fault is
/// shown in a message box, and no file is left behind.
void saveDrawing(Control& drawing);

}  // namespace display
