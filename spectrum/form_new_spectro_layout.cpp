// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/form_new_spectro.h"
#include "spectrum/span_dialog.h"

namespace hmonitor {

void Form_NewSpectro::layOut() {
    layWindow(4800, 2700, "Spectrum", Faceplate);
    layTitle(SSPanel1, Heading, "Spectrum");
    // The heading is one short word here: the note gets the rest of the strip.
    constexpr float kNote = 1600;
    Heading.width = look::titleBox(kNote).width;
    place(Refused, {kNote, 150, width - kNote - 240, 200}, &SSPanel1, look::kNoteText,
          display::Readout{"Por qué no se midió", "Why no run began"});
    Heading.colour = display::kWhite;
    laySpanDialog(*this, Text_Step, 600);
    Combo1.says = {"Ancho de banda y paso en kHz", "Span and step in kHz"};
    Command3D1.says = {"Medir el espectro", "Measure the spectrum"};
    Command3D2.says = {"Volver al último espectro", "Back to the last spectrum"};
}

}  // namespace hmonitor
