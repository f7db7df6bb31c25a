// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/look.h"
#include "core/numbers.h"
#include "tuner/form_b_set_memories.h"
#include "tuner/preset_look.h"

namespace hmonitor {

using display::Key;
using display::Label;
using display::Language;
using display::Surface;

namespace {

constexpr float kHeight = 5200;
constexpr float kLeft = 240;
constexpr float kGap = 120;
constexpr float kKeyHeight = 400;
/// What stands between the margins of the narrow dialog.
constexpr float kInner = preset_look::kNarrow - 2 * kLeft;

/// Width of one of `count` controls side by side.
constexpr float share(int count) {
    return (kInner - kGap * static_cast<float>(count - 1)) / static_cast<float>(count);
}

/// Left of control `place`, from 0, of `count`.
constexpr float leftOf(int place, int count) {
    return kLeft + static_cast<float>(place) * (share(count) + kGap);
}

}  // namespace

void Form_bSetMemories::layOut() {
    width = preset_look::kWide;
    height = kHeight;
    place(Faceplate, {0, 0, preset_look::kWide, kHeight}).surface = Surface::Faceplate;
    layOutMemory();
    layOutKeys();
    layOutOptions();
}

void Form_bSetMemories::layOutMemory() {
    place(MemoryWell, {kLeft, 240, kInner, 760}).surface = Surface::Well;
    placeDigit(memoryTens, {200, 130, 340, 500}, &MemoryWell, look::kUnlit);
    placeDigit(memoryUnits, {640, 130, 340, 500}, &MemoryWell, look::kUnlit);
    place(Label_Selected, {1240, 260, 2500, 260}, &MemoryWell).font = look::kSmallReadout;
    Label_Selected.colour = display::kCyan;
    Label_Selected.readout = true;
    Label_Selected.says = {"Memoria elegida", "Selected memory"};
    Label_Selected.tip = {"La memoria que se edita, de 1 a 16", "The memory being edited, 1 to 16"};
    MemoryWell.tip = Label_Selected.tip;

    constexpr int kInRow = 4;
    for (int memory = 1; memory <= kMemories; ++memory) {
        const int column = (memory - 1) % kInRow;
        const int row = (memory - 1) / kInRow;
        const float y = 1140 + static_cast<float>(row) * (kKeyHeight + 90);
        Key& key = presets[memory];
        place(key, {leftOf(column, kInRow), y, share(kInRow), kKeyHeight});
        key.caption = wholeText(memory);
        key.says = presetName(memory);
        key.tip = preset_look::kStoredTip;
        key.tabIndex = memory;
    }

    for (Label* label : {&Label_Frequency, &Label_Name}) {
        const int column = label == &Label_Name ? 1 : 0;
        place(*label, {leftOf(column, 2), 3160, share(2), 150}).font = look::kCaption;
        label->colour = look::kCaptionColour;
    }
    place(Text1, {leftOf(0, 2), 3340, share(2), 380}).says = {"Frecuencia en MHz",
                                                              "Frequency in MHz"};
    Text1.tip = {"De 87.5 a 108.0 MHz, con o sin punto: 98.1, 98.15, 981, 9815. Enter la guarda",
                 "From 87.5 to 108.0 MHz, with or without the point: 98.1, 98.15, 981, 9815. "
                 "Enter saves it"};
    place(Text2, {leftOf(1, 2), 3340, share(2), 380}).says = {"Nombre de la emisora",
                                                              "Station name"};
    Text2.tip = {"Hasta nueve letras. Enter guarda la memoria",
                 "Up to nine letters. Enter saves the memory"};
    Text2.maxLength = static_cast<int>(hmonitor::MemoryBlock::kNameSize);
    int tab = kMemories;
    for (display::TextField* field : {&Text1, &Text2}) {
        field->colour = display::kCyan;
        field->font = display::Font{170};
        field->tabIndex = ++tab;
    }
}

void Form_bSetMemories::layOutKeys() {
    place(SSCommand20, {leftOf(0, 2), 3840, share(2), kKeyHeight}).caption = "Save";
    SSCommand20.says = {"Guardar", "Save"};
    SSCommand20.tip = {"Guarda la frecuencia y el nombre en la memoria elegida, y la sintoniza",
                       "Stores frequency and name in the selected memory, and tunes it"};
    place(SSCommand22, {leftOf(1, 2), 3840, share(2), kKeyHeight}).caption = "Delet";
    SSCommand22.says = {"Borrar", "Delete"};
    SSCommand22.tip = {"Borra la memoria elegida", "Empties the selected memory"};

    place(SSCommand17, {leftOf(0, 3), 4560, share(3), kKeyHeight}).caption = "Accept";
    SSCommand17.says = {"Aceptar", "Accept"};
    SSCommand17.tip = {"Guarda las opciones y cierra", "Saves the options and closes"};
    SSCommand17.isDefault = true;
    place(SSCommand18, {leftOf(1, 3), 4560, share(3), kKeyHeight}).caption = "Cancel";
    SSCommand18.says = {"Cancelar", "Cancel"};
    place(SSCommand19, {leftOf(2, 3), 4560, share(3), kKeyHeight}).caption = "Optimize <<";
    SSCommand19.says = {"Opciones", "Options"};
    SSCommand19.tip = {"Muestra u oculta las opciones", "Shows or hides the options"};
    int tab = Text2.tabIndex;
    for (Key* key : {&SSCommand20, &SSCommand22, &SSCommand17, &SSCommand18, &SSCommand19}) {
        key->tabIndex = ++tab;
    }
}

void Form_bSetMemories::layOutOptions() {
    constexpr float kRowWidth = preset_look::kWide - preset_look::kNarrow - kLeft;
    place(Options, {preset_look::kNarrow, 240, kRowWidth, 3000});
    place(Label_Correction, {0, 0, kRowWidth, 150}, &Options).caption = "dB Field correction";
    Label_Correction.font = look::kCaption;
    Label_Correction.colour = look::kCaptionColour;
    place(label_dbCorrection, {0, 190, 1500, 380}, &Options).says = {"Corrección de campo en dB",
                                                                     "dB Field correction"};
    label_dbCorrection.tip = {"Se suma a la intensidad de campo; Modify permite cambiarla",
                              "Added to the field intensity; Modify unlocks it"};
    label_dbCorrection.colour = display::kCyan;
    label_dbCorrection.font = display::Font{170};
    label_dbCorrection.locked = true;
    place(SSCommand21, {1620, 190, 1300, 380}, &Options).caption = "Modify";
    SSCommand21.says = {"Modificar la corrección", "Modify the correction"};
    SSCommand21.tip = {"Permite cambiar la corrección de campo", "Unlocks the field correction"};

    place(SSCheck1, {0, 900, kRowWidth, 300}, &Options).caption = "Tune only odd Frequencies";
    SSCheck1.says = {"Sintonizar solo frecuencias impares", "Tune only odd Frequencies"};
    place(SSCheck2, {0, 1300, kRowWidth, 300}, &Options).caption = "Tune all Frequencies";
    SSCheck2.says = {"Sintonizar todas las frecuencias", "Tune all Frequencies"};
    place(SSCheck3, {0, 1820, kRowWidth, 300}, &Options).caption =
        "Make Log Files of the actual Preset";
    SSCheck1.tip =
        SSCheck2.tip = {"Se guarda con las opciones; una de las dos está siempre marcada",
                        "Kept with the options; one of the two is always ticked"};
    SSCheck3.says = {"Registrar la memoria actual en archivos",
                     "Make Log Files of the actual Preset"};
    SSCheck3.tip = {"La unidad guarda el registro diario de la emisora",
                    "The unit keeps the daily log of the station"};
    int tab = SSCommand19.tabIndex;
    label_dbCorrection.tabIndex = ++tab;
    SSCommand21.tabIndex = ++tab;
    for (display::CheckBox* box : {&SSCheck1, &SSCheck2, &SSCheck3}) box->tabIndex = ++tab;
}

void Form_bSetMemories::speak() {
    const bool spanish = program.words.gLanguage == "ES";
    language = spanish ? Language::Spanish : Language::English;
    caption = spanish ? "Memorias" : "Memory Presets";
    Label_Frequency.caption = spanish ? "Frecuencia [MHz]" : "Frequency [MHz]";
    Label_Name.caption = spanish ? "Nombre" : "Name";
}

}  // namespace hmonitor
