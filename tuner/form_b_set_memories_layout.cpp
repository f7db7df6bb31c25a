// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/numbers.h"
#include "program/look.h"
#include "tuner/form_b_set_memories.h"
#include "tuner/preset_look.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kLeft = 240;
constexpr float kGap = 120;
constexpr float kKeyHeight = 400;
/// What stands between the margins of the narrow dialog.
constexpr float kInner = preset_look::kNarrow - 2 * kLeft;
constexpr TextStyle kEntry{{170}, kCyan};

/// The box of control `place`, from 0, of `count` side by side.
constexpr Box shareOf(int place, int count, float top, float height = kKeyHeight) {
    const float width = (kInner - kGap * static_cast<float>(count - 1)) / static_cast<float>(count);
    return {kLeft + static_cast<float>(place) * (width + kGap), top, width, height};
}

}  // namespace

void Form_bSetMemories::layOut() {
    const bool spanish = program.words.gLanguage == "ES";
    language = spanish ? Language::Spanish : Language::English;
    layWindow(preset_look::kWide, 6860, spanish ? "Memorias" : "Memory Presets", Faceplate);
    layOutMemory();
    layOutList();
    layOutKeys();
    layOutOptions();
    tabOrder(presets, Text1, Text2, SSCommand20, SSCommand22, SSCommand17, SSCommand18, SSCommand19,
             label_dbCorrection, SSCommand21, SSCheck1, SSCheck2, SSCheck3);
}

void Form_bSetMemories::layOutMemory() {
    constexpr Tip kMemoryTip{"La memoria que se edita, de 1 a 16",
                             "The memory being edited, 1 to 16"};
    place(MemoryWell, {kLeft, 240, kInner, 760}, Surface::Well, kMemoryTip);
    placeDigit(memoryTens, {200, 130, 340, 500}, &MemoryWell, look::kUnlit);
    placeDigit(memoryUnits, {640, 130, 340, 500}, &MemoryWell, look::kUnlit);
    place(Label_Selected, {1240, 260, 2500, 260}, &MemoryWell, look::kSmallReadoutText, kMemoryTip,
          Readout{"Memoria elegida", "Selected memory"});

    for (int memory = 1; memory <= kMemories; ++memory) {
        const int row = (memory - 1) / 4;
        place(presets[memory],
              shareOf((memory - 1) % 4, 4, 1140 + static_cast<float>(row) * (kKeyHeight + 90)),
              wholeText(memory));
    }

    place(Label_Frequency, shareOf(0, 2, 3160, 150), look::kCaptionText,
          Words{"Frecuencia [MHz]", "Frequency [MHz]"});
    place(Label_Name, shareOf(1, 2, 3160, 150), look::kCaptionText, Words{"Nombre", "Name"});
    place(Text1, shareOf(0, 2, 3340, 380), kEntry, Says{"Frecuencia en MHz", "Frequency in MHz"},
          Tip{"De 87.5 a 108.0 MHz, con o sin punto: 98.1, 98.15, 981, 9815. Enter la guarda",
              "From 87.5 to 108.0 MHz, with or without the point: 98.1, 98.15, 981, 9815. "
              "Enter saves it"});
    place(Text2, shareOf(1, 2, 3340, 380), kEntry, Says{"Nombre de la emisora", "Station name"},
          Tip{"Hasta nueve letras. Enter guarda la memoria",
              "Up to nine letters. Enter saves the memory"})
        .maxLength = static_cast<int>(hmonitor::MemoryBlock::kNameSize);
}

void Form_bSetMemories::layOutList() {
    constexpr float kLine = 190;
    constexpr float kWidth = kInner / 2;
    constexpr int kLines = kMemories / 2;
    place(ListWell, {kLeft, 4400, kInner, kLines * kLine + 120}, Surface::Well,
          Tip{"Nombre y frecuencia en MHz de las dieciséis memorias",
              "Name and frequency in MHz of the sixteen memories"});
    for (int memory = 1; memory <= kMemories; ++memory) {
        const float left = (memory - 1) / kLines == 0 ? 0 : kWidth;
        const float top = 60 + kLine * static_cast<float>((memory - 1) % kLines);
        const TextStyle right = look::kPlainText.right();
        place(ListNumber[memory], {left + 60, top, 260, kLine}, &ListWell, right,
              wholeText(memory));
        place(ListName[memory], {left + 400, top, 960, kLine}, &ListWell, look::kPlainText,
              Readout{presetName(memory)});
        place(ListFrequency[memory], {left + 1360, top, 520, kLine}, &ListWell, right,
              Readout{presetFrequencyName(memory)});
    }
}

void Form_bSetMemories::layOutKeys() {
    place(SSCommand20, shareOf(0, 2, 3840), "Save", Says{"Guardar", "Save"},
          Tip{"Guarda la frecuencia y el nombre en la memoria elegida, y la sintoniza",
              "Stores frequency and name in the selected memory, and tunes it"});
    place(SSCommand22, shareOf(1, 2, 3840), "Delet", Says{"Borrar", "Delete"},
          Tip{"Borra la memoria elegida", "Empties the selected memory"});
    place(SSCommand17, shareOf(0, 3, 6220), "Accept", Role::Default, Says{"Aceptar", "Accept"},
          Tip{"Guarda las opciones y cierra", "Saves the options and closes"});
    place(SSCommand18, shareOf(1, 3, 6220), "Cancel", Says{"Cancelar", "Cancel"});
    place(SSCommand19, shareOf(2, 3, 6220), "Optimize <<", Says{"Opciones", "Options"},
          Tip{"Muestra u oculta las opciones", "Shows or hides the options"});
}

void Form_bSetMemories::layOutOptions() {
    constexpr float kRowWidth = preset_look::kWide - preset_look::kNarrow - kLeft;
    constexpr Tip kTuneTip{"Se guarda con las opciones; una de las dos está siempre marcada",
                           "Kept with the options; one of the two is always ticked"};
    place(Options, {preset_look::kNarrow, 240, kRowWidth, 3000});
    place(Label_Correction, {0, 0, kRowWidth, 150}, &Options, look::kCaptionText,
          "dB Field correction");
    place(label_dbCorrection, {0, 190, 1500, 380}, &Options, kEntry,
          Says{"Corrección de campo en dB", "dB Field correction"},
          Tip{"Se suma a la intensidad de campo; Modify permite cambiarla",
              "Added to the field intensity; Modify unlocks it"})
        .locked = true;
    place(SSCommand21, {1620, 190, 1300, 380}, &Options, "Modify",
          Says{"Modificar la corrección", "Modify the correction"},
          Tip{"Permite cambiar la corrección de campo", "Unlocks the field correction"});
    place(SSCheck1, {0, 900, kRowWidth, 300}, &Options, "Tune only odd Frequencies", kTuneTip,
          Says{"Sintonizar solo frecuencias impares", "Tune only odd Frequencies"});
    place(SSCheck2, {0, 1300, kRowWidth, 300}, &Options, "Tune all Frequencies", kTuneTip,
          Says{"Sintonizar todas las frecuencias", "Tune all Frequencies"});
    place(SSCheck3, {0, 1820, kRowWidth, 300}, &Options, "Make Log Files of the actual Preset",
          Says{"Registrar la memoria actual en archivos", "Make Log Files of the actual Preset"},
          Tip{"La unidad guarda el registro diario de la emisora",
              "The unit keeps the daily log of the station"});
}

}  // namespace hmonitor
