// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/text_field.h"
#include "display/form.h"
#include "program/look.h"

namespace hmonitor {

/// Why no run begins with a step under 1 kHz.
inline constexpr display::Words kLeastStep{"El paso mínimo es 1 kHz.", "The least step is 1 kHz."};

/// The common part of the dialogs that ask for span and step of a run, starting at that distance
/// from the top; their texts differ.
template <class Dialog>
void laySpanDialog(Dialog& its, display::TextField& step, float top) {
    using namespace display;
    constexpr TextStyle kField{look::kDialog, kWhite, Align::Right};
    place(its.Label3, {240, top, 4320, 240}, look::kDialogText, "Values for NEW spectrum run:");
    place(its.Frame1, {240, top + 300, 4320, 960}, Surface::Well);
    place(its.FrameCaption, {160, 110, 3000, 220}, &its.Frame1, look::kCaptionText,
          "Frequency: BW");
    place(its.Combo1, {160, 440, 2180, 360}, &its.Frame1);
    place(its.Label1, {2520, 500, 500, 240}, &its.Frame1, look::kDialogText, "Step");
    place(step, {3040, 440, 620, 360}, &its.Frame1, kField, Says{"Paso en kHz", "Step in kHz"})
        .maxLength = 4;
    place(its.Label2, {3740, 500, 440, 240}, &its.Frame1, look::kDialogText, "Khz");
    const float keys = its.height - look::kKeyHeight - 220;
    place(its.Command3D1, {240, keys, 2040, look::kKeyHeight}, "&New Run", Role::Default);
    place(its.Command3D2, {2520, keys, 2040, look::kKeyHeight}, "&Cancel", Role::Cancel);
    tabOrder(its.Combo1, step, its.Command3D1, its.Command3D2);
}

}  // namespace hmonitor
