// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/look.h"
#include "core/window_look.h"
#include "spectrum/form_new_spectro.h"

namespace hmonitor {

void Form_NewSpectro::layOut() {
    width = 4800;
    height = 2700;
    caption = "Spectrum";

    place(Faceplate, {0, 0, 4800, 2700}).surface = display::Surface::Faceplate;
    place(SSPanel1, {0, 0, 4800, look::kTitleStrip});
    place(Heading, look::titleBox(4800)).caption = "Spectrum";
    Heading.font = look::kTitle;

    place(Label3, {240, 600, 4320, 240}).caption = "Values for NEW spectrum run:";
    Label3.font = look::kDialog;
    place(Frame1, {240, 900, 4320, 960}).surface = display::Surface::Well;
    place(FrameCaption, {160, 110, 3000, 220}, &Frame1).caption = "Frequency: BW";
    FrameCaption.font = look::kCaption;
    FrameCaption.colour = look::kCaptionColour;
    place(Combo1, {160, 440, 2180, 360}, &Frame1).tabIndex = 1;
    Combo1.says = {"Ancho de banda y paso en kHz", "Span and step in kHz"};
    place(Label1, {2520, 500, 500, 240}, &Frame1).caption = "Step";
    Label1.font = look::kDialog;
    place(Text_Step, {3040, 440, 620, 360}, &Frame1).tabIndex = 2;
    Text_Step.maxLength = 4;
    Text_Step.align = display::Align::Right;
    Text_Step.font = look::kDialog;
    Text_Step.says = {"Paso en kHz", "Step in kHz"};
    place(Label2, {3740, 500, 440, 240}, &Frame1).caption = "Khz";
    Label2.font = look::kDialog;

    place(Command3D1, {240, 2060, 2040, 420}).caption = "&New Run";
    Command3D1.isDefault = true;
    Command3D1.tabIndex = 3;
    Command3D1.says = {"Medir el espectro", "Measure the spectrum"};
    place(Command3D2, {2520, 2060, 2040, 420}).caption = "&Cancel";
    Command3D2.isCancel = true;
    Command3D2.tabIndex = 4;
    Command3D2.says = {"Volver al último espectro", "Back to the last spectrum"};
}

}  // namespace hmonitor
